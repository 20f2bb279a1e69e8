// SPDX-License-Identifier: MIT
// Every window of the program, walked as an assistive tool does, in every language.
#include "support/AccessibleTree.h"
#include "support/LanguageRows.h"
#include "support/OpenedProgram.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
QString pathOf(const QAccessibleInterface* part) {
    QStringList path;
    for (const QObject* object = part->object(); object != nullptr; object = object->parent()) {
        path.prepend(object->objectName());
    }
    return path.join(u'/');
}

QString faultOf(QAccessibleInterface* part, const QSet<QString>& catalogue) {
    const QString name = part->text(QAccessible::Name).trimmed();
    if (name.isEmpty()) return u"has no name"_s;
    if (catalogue.contains(name)) return u"is named like the catalogue: "_s + name;
    if (part->role() == QAccessible::NoRole) return u"has no role"_s;
    const QAccessibleInterface* parent = part->parent();
    if (parent == nullptr || parent->child(parent->indexOfChild(part)) != part) return u"is no child"_s;
    const auto* control = qobject_cast<Control*>(part->object());
    const auto* label = qobject_cast<Label*>(part->object());
    if (label != nullptr && label->isShadow()) return u"is a shadow"_s;
    const bool isOffered =
        part->actionInterface() != nullptr &&
        part->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction());
    if (control != nullptr && control->isPressable() && control->isEnabled() && !isOffered) {
        return u"can't be pressed"_s;
    }
    return {};
}
} // namespace

class AccessibleWindowsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    // Every window of the program that is there in the language, shown.
    QList<Form*> windows() const {
        QList<Form*> found;
        Windows::forEach([&]<typename W>() {
            Form* window = opened->program->load<W>();
            if (window == nullptr || W::id == Window::Menuing) return; // the latter is never shown
            window->Show();
            found.append(window);
        });
        return found;
    }
    // The English window again, with the words of another language.
    void reopenIn(const char* language) {
        opened = std::make_unique<OpenedProgram>();
        opened->world.useLanguage(language);
        opened->game(u"a.gb"_s);
        opened->open();
    }

private slots:
    void init() { reopenIn("eng"); }
    void cleanup() { opened.reset(); }

    void every_part_of_every_window_has_a_name_and_a_role_data() { languageRows(); }
    void every_part_of_every_window_has_a_name_and_a_role() {
        QFETCH(QByteArray, language);
        reopenIn(language.constData());
        QStringList faults;
        qsizetype parts = 0;
        for (Form* window : windows()) {
            const QSet<QString> catalogue = catalogueNames(window->objectName());
            for (QAccessibleInterface* part : accessiblesFrom(accessible(*window))) {
                const QString fault = faultOf(part, catalogue);
                if (!fault.isEmpty()) faults.append(pathOf(part) + u' ' + fault);
                ++parts;
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QVERIFY2(parts > 70, qPrintable(u"only %1 parts were found"_s.arg(parts)));
    }
    void every_part_of_the_first_start_has_a_name_and_a_role() {
        opened = std::make_unique<OpenedProgram>();
        opened->world.setSetting("Language", QString());
        opened->start();
        SelLangStartUp& window = *opened->program->loaded<SelLangStartUp>();
        QCOMPARE(nameOf(window), u"Idioma · Llengua · Language"_s);
        for (QAccessibleInterface* part : accessiblesFrom(accessible(window))) {
            QCOMPARE(faultOf(part, catalogueNames(window.objectName())), QString());
        }
        for (Label* answer : {&window.Label4, &window.Label5, &window.Label6, &window.ok, &window.no}) {
            QCOMPARE(accessible(*answer).role(), QAccessible::Button);
        }
    }
    void every_button_in_sight_is_there_data() { languageRows(); }
    void every_button_in_sight_is_there() {
        QFETCH(QByteArray, language);
        reopenIn(language.constData());
        for (Form* window : windows()) {
            QObjectList there;
            for (QAccessibleInterface* part : accessiblesFrom(accessible(*window))) there += part->object();
            for (chameleonButton* button : window->findChildren<chameleonButton*>()) {
                QVERIFY2(there.contains(button), qPrintable(button->objectName()));
            }
        }
    }

    void the_options_and_boxes_of_the_search_are_called_by_the_words_beside_them() {
        AdvSearch& window = *opened->program->load<AdvSearch>();
        window.Show();
        QStringList found;
        for (QAccessibleInterface* part : accessiblesFrom(accessible(window))) {
            const QAccessible::Role role = part->role();
            if (role == QAccessible::RadioButton) found += u"option "_s + part->text(QAccessible::Name);
            if (role == QAccessible::EditableText) found += u"box "_s + part->text(QAccessible::Name);
        }
        found.removeDuplicates();
        const QStringList expected{u"option Search by name"_s,
                                   u"box Type the first letters of the game’s name."_s,
                                   u"option Search by position in the list"_s,
                                   u"box Type the game’s number in the list."_s,
                                   u"option Go to the end of the list"_s,
                                   u"option Go to the top of the list"_s};
        QCOMPARE(found, expected);
    }
    void windows_are_called_by_their_title_lines_in_the_language() {
        QCOMPARE(nameOf(opened->main()), u"Torvane 1.1 » Main menu"_s);
        QCOMPARE(nameOf(*opened->program->load<ZIP_Viewer>()), u"Torvane 1.1 » ZIP contents"_s);
        QCOMPARE(nameOf(*opened->program->load<NewAssistant>()), u"ROM assistant"_s);
        QCOMPARE(nameOf(*opened->program->load<Splash>()), u"Intro"_s);
        QCOMPARE(nameOf(*opened->program->load<EditDB>()), u"Torvane 1.1 » OnLine DataBase"_s);
        QCOMPARE(nameOf(*opened->program->load<DB_Info>()), u"OnLine DataBase ··· Entry"_s);
        QCOMPARE(nameOf(*opened->program->load<Form2>()), u"Torvane 1.1 » Use ROM.TAG"_s);
        QCOMPARE(nameOf(*opened->program->load<Compartir>()), u"Torvane 1.1 » Screenshot gallery"_s);
        QCOMPARE(nameOf(*opened->program->load<AmpliCaptura>()), u"Torvane 1.1 » Enlarged screenshot"_s);
        QCOMPARE(nameOf(*opened->program->load<SearchROM>()), u"Torvane 1.1 » Search for a ROM"_s);
        QCOMPARE(nameOf(*opened->program->load<AdvSearch>()), u"Torvane 1.1 » Advanced search"_s);
        QCOMPARE(nameOf(*opened->program->load<ConfigNew>()), u"Configuration"_s);
        QCOMPARE(nameOf(*opened->program->load<ConfGen>()), u"Torvane 1.1 » General settings"_s);
        QCOMPARE(nameOf(*opened->program->load<SelLang>()), u"Torvane 1.1 » Select language"_s);
        QCOMPARE(nameOf(*opened->program->load<Aboutfrm>()), u"About Torvane v1.1"_s);
        QCOMPARE(nameOf(*opened->program->load<URL>()), u"Torvane 1.1 » Web directory"_s);
        QCOMPARE(nameOf(*opened->program->load<AddPersonalWeb>()), u"Torvane 1.1 » Add a personal link"_s);
        click(opened->main().chameleonButton1);
        QCOMPARE(nameOf(*opened->program->loaded<TorvMsg>()), u"Are you sure you want to exit?"_s);
        reopenIn("cat");
        QCOMPARE(nameOf(opened->main()), u"Torvane 1.1 » Menú principal"_s);
    }
    void what_shows_no_words_is_called_in_the_language() {
        MainFrm& window = opened->main();
        QCOMPARE(nameOf(window.chameleonButton1), u"Close window"_s);
        QCOMPARE(nameOf(window.chameleonButton2), u"Minimise"_s);
        QCOMPARE(nameOf(window.chameleonButton14), u"Page up"_s);
        QCOMPARE(nameOf(window.chameleonButton15), u"Page down"_s);
        QCOMPARE(nameOf(window.ListView1), u"Game list"_s);
        QCOMPARE(nameOf(window.Label15), u"Load this ROM"_s);
        QCOMPARE(nameOf(window.EditID3Title), u"Game title"_s);
        QCOMPARE(nameOf(window.EditID3Company), u"Company"_s);
        QCOMPARE(nameOf(window.EditID3Info), u"Information"_s);
        NewAssistant& assistant = *opened->program->load<NewAssistant>();
        QCOMPARE(nameOf(assistant.AddFile), u"A single game"_s);
        QCOMPARE(nameOf(assistant.AddDir), u"A whole folder"_s);
        QCOMPARE(nameOf(assistant.ChameleonButton5), u"Yes, go ahead"_s);
        QCOMPARE(nameOf(assistant.ChameleonButton6), u"No, leave as is"_s);
        QCOMPARE(nameOf(assistant.FilePath), u"Chosen file"_s);
        EditDB& database = *opened->program->load<EditDB>();
        QCOMPARE(nameOf(database.ListView1), u"Database entries"_s);
        QCOMPARE(nameOf(database.File_Author), u"Author"_s);
        QCOMPARE(nameOf(database.File_Game), u"Game"_s);
        QCOMPARE(nameOf(database.File_Date), u"Age (in days)"_s);
        QCOMPARE(nameOf(database.File_Company), u"Company"_s);
        QCOMPARE(nameOf(opened->program->load<Form2>()->File1), u"Game list"_s);
        Compartir& gallery = *opened->program->load<Compartir>();
        QCOMPARE(nameOf(gallery.Snap), u"List of screenshots"_s);
        QCOMPARE(nameOf(gallery.ChameleonButton5), u"Minimise"_s);
        QCOMPARE(nameOf(gallery.ChameleonButton6), u"Previous screenshot"_s);
        QCOMPARE(nameOf(gallery.ChameleonButton7), u"Next screenshot"_s);
        QCOMPARE(nameOf(gallery.ChameleonButton8), u"Enlarge the screenshot"_s);
        QCOMPARE(nameOf(gallery.ChameleonButton9), u"Print the screenshot"_s);
        QCOMPARE(nameOf(gallery.ChameleonButton10), u"Delete the screenshot"_s);
        ConfGen& options = *opened->program->load<ConfGen>();
        QCOMPARE(nameOf(options.chameleonButton1), u"Close window"_s);
        QCOMPARE(nameOf(options.Picture1), u"Choose a colour for the Torvane Agent"_s);
        AmpliCaptura& enlarged = *opened->program->load<AmpliCaptura>();
        QCOMPARE(nameOf(enlarged.ChameleonButton2), u"Print the screenshot"_s);
        QCOMPARE(nameOf(enlarged.ChameleonButton3), u"Zoom in"_s);
        QCOMPARE(nameOf(enlarged.ChameleonButton4), u"Zoom out"_s);
        QCOMPARE(nameOf(opened->program->load<SelLang>()->File1), u"Language files"_s);
        QCOMPARE(nameOf(opened->program->load<Aboutfrm>()->ShockwaveFlash1), u"Credits"_s);
        QCOMPARE(nameOf(opened->program->load<URL>()->ListView1), u"List of web pages"_s);
        QCOMPARE(nameOf(opened->program->load<URL>()->chameleonButton1), u"Close window"_s);
        AddPersonalWeb& page = *opened->program->load<AddPersonalWeb>();
        QCOMPARE(nameOf(page.Text2), u"Page name"_s);
        QCOMPARE(nameOf(page.Text1), u"Page address (URL)"_s);
        reopenIn("esp");
        QCOMPARE(nameOf(opened->main().chameleonButton1), u"Cerrar la ventana"_s);
        QCOMPARE(nameOf(opened->main().EditID3Title), u"Título del juego"_s);
    }
    void the_editor_of_a_field_is_called_like_the_field() {
        MainFrm& window = opened->main();
        click(window.Edit_Menu);
        QVERIFY(isSeen(window.EditID3Title));
        QCOMPARE(nameOf(*window.EditID3Title.focusProxy()), u"Game title"_s);
        QCOMPARE(nameOf(*window.EditID3Info.focusProxy()), u"Information"_s);
    }

    void a_language_file_without_these_keys_leaves_the_words_of_the_design() {
        opened = std::make_unique<OpenedProgram>();
        opened->game(u"a.gb"_s);
        opened->world.folder.write(u"data/lang/lang_eng.tvl"_s, "[MainMenu]\r\ngametitle=Title\r\n");
        opened->open();
        QCOMPARE(nameOf(opened->main().chameleonButton1), u"Cerrar la ventana"_s);
        QCOMPARE(nameOf(opened->main().ListView1), u"Lista de juegos"_s);
        QCOMPARE(nameOf(opened->main().EditID3Title), u"Title"_s);
    }
    void what_no_user_sees_is_not_there() {
        MainFrm& window = opened->main();
        QObjectList there;
        for (QAccessibleInterface* part : accessiblesFrom(accessible(window))) there += part->object();
        for (QObject* unseen : std::initializer_list<QObject*>{
                 &window.Games, &window.File1, &window.Lbl_SS, &window.URL_Linker, &window.Label36,
                 &window.Image6, &window.DB, &window.Configuration_red}) {
            QVERIFY2(!there.contains(unseen), qPrintable(unseen->objectName()));
        }
    }
};

TORVANE_TEST(AccessibleWindowsTest)
#include "AccessibleWindowsTest.moc"
