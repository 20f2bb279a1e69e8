// SPDX-License-Identifier: MIT
// The tool tips of the main window in the language, and without one.
#include "support/OpenedProgram.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class MainFrmToolTipsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    void prepare(const char* language) {
        opened = std::make_unique<OpenedProgram>();
        opened->world.useLanguage(language);
        opened->game(u"a.gb"_s);
    }
    // All tips of the window, by the tab order of their buttons.
    QString toolTips() const {
        QStringList tips;
        for (const chameleonButton* button : opened->open().findChildren<chameleonButton*>()) {
            if (!button->toolTip().isEmpty()) tips.append(button->toolTip());
        }
        return tips.join(u'|');
    }

private slots:
    void cleanup() { opened.reset(); }

    void tool_tips_are_in_the_chosen_language_data() {
        QTest::addColumn<QString>("tips");
        QTest::newRow("esp") << u"Cambiar a Torvette|!|Minimizar|Navegador .ZIP|Actualizar la lista|"
                                u"Búsqueda Avanzada|OnLine DataBase|Galería de Imágenes|Acerca de...|"
                                u"Buscar ROMs|WebList|Configuración"_s;
        QTest::newRow("cat") << u"Canvia a Torvette|!|Minimitza|Navegador de ZIP|Actualitza la llista|"
                                u"Cerca avançada|OnLine DataBase|Galeria d’imatges|Quant a…|"
                                u"Cerca una ROM|Directori web|Configuració"_s;
        QTest::newRow("eng") << u"Switch to Torvette|!|Minimise|ZIP browser|Refresh the list|"
                                u"Advanced search|OnLine DataBase|Image gallery|About…|"
                                u"Search for a ROM|Web directory|Configuration"_s;
    }
    void tool_tips_are_in_the_chosen_language() {
        QFETCH(QString, tips);
        prepare(QTest::currentDataTag());
        QCOMPARE(toolTips(), tips);
    }
    void a_language_file_without_tool_tips_leaves_those_of_the_design() {
        prepare("eng");
        opened->world.folder.write(u"data/lang/lang_eng.tvl"_s, "[MainMenu]\r\ngametitle=Title\r\n"
                                                                "[ToolTips]\r\nminimise=\r\nabout=About\r\n");
        QCOMPARE(toolTips(), u"Cambiar a Torvette|!|Minimizar|Navegador .ZIP|Refresh|Búsqueda Avanzada|"
                             u"OnLine DataBase|Galería de Imágenes|About|Buscar ROMs|WebList|"
                             u"Configuración"_s);
    }
};

TORVANE_TEST(MainFrmToolTipsTest)
#include "MainFrmToolTipsTest.moc"
