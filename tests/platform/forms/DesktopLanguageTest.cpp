// SPDX-License-Identifier: MIT
// The language of message boxes and file dialogs: it is the chosen one, in every word, at once and at no
// cost.
#include "platform/forms/DesktopDialogs.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QMessageBox>
#include <QTimer>
#include <QTreeView>

using namespace torvane;
using namespace Qt::StringLiterals;

class DesktopLanguageTest : public QObject {
    Q_OBJECT

    std::unique_ptr<DesktopLanguage> language;
    QString locale;
    QMap<QByteArray, QString> texts; // of the language file
    int lookUps = 0;

    // Everything that a window says, but for names of files and places.
    static QSet<QString> words(const QWidget& window) {
        QSet<QString> all = {window.windowTitle()};
        for (const QObject* object : window.findChildren<QObject*>()) {
            for (const char* property : {"text", "toolTip", "accessibleName", "title", "placeholderText"}) {
                all.insert(object->property(property).toString());
            }
            if (const auto* view = qobject_cast<const QTreeView*>(object)) {
                for (int column = 0; column < view->model()->columnCount(); ++column) {
                    all.insert(view->model()->headerData(column, Qt::Horizontal).toString());
                }
            }
        }
        all.remove({});
        return all;
    }
    template <typename Dialog>
    void whenShown(const std::function<void(Dialog&)>& look) {
        QTimer::singleShot(0, this, [look] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog != nullptr);
            look(*dialog);
            dialog->reject();
        });
    }
    QStringList buttonsOf(int flags) {
        QStringList captions;
        whenShown<QMessageBox>([&](QMessageBox& box) {
            for (const QAbstractButton* button : box.buttons()) captions << button->text();
        });
        DesktopMessageBoxes(language.get()).MsgBox(u"text"_s, flags);
        return captions;
    }
    QSet<QString> wordsOfDialog(QString (DesktopFileDialogs::*show)(const FileQuestion&)) {
        QSet<QString> all;
        whenShown<QFileDialog>([&](QFileDialog& dialog) { all = words(dialog); });
        DesktopFileDialogs dialogs(language.get());
        (dialogs.*show)({u"title"_s, u"ROM|*.gb"_s, 1, u"game.gb"_s});
        return all;
    }

private slots:
    void init() {
        texts.clear();
        lookUps = 0;
        language = std::make_unique<DesktopLanguage>();
        language->setSource({[this] { return locale; },
                             [this](const char* key) {
                                 ++lookUps;
                                 return texts.value(key);
                             }});
    }
    void cleanup() { QLocale::setDefault(QLocale::system()); }

    void buttons_of_message_boxes_follow_the_language() {
        locale = u"es"_s;
        QCOMPARE(buttonsOf(36), (QStringList{u"&Sí"_s, u"&No"_s}));
        QCOMPARE(buttonsOf(64), QStringList{u"Aceptar"_s});
        locale = u"ca"_s;
        QCOMPARE(buttonsOf(36), (QStringList{u"&Sí"_s, u"&No"_s}));
        QCOMPARE(buttonsOf(64), QStringList{u"D'acord"_s});
        locale = u"en"_s;
        QCOMPARE(buttonsOf(36), (QStringList{u"&Yes"_s, u"&No"_s}));
        QCOMPARE(buttonsOf(64), QStringList{u"OK"_s});
    }
    void no_word_of_a_file_dialog_is_english_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("Spanish") << u"es"_s;
        QTest::newRow("Catalan") << u"ca"_s;
    }
    void no_word_of_a_file_dialog_is_english() {
        QFETCH(QString, name);
        const QSet<QString> names = {u"title"_s, u"game.gb"_s};
        for (const auto show : {&DesktopFileDialogs::showOpen, &DesktopFileDialogs::showSave,
                                &DesktopFileDialogs::showFolder}) {
            locale = u"en"_s;
            const QSet<QString> english = wordsOfDialog(show);
            QVERIFY(english.size() > 15);
            locale = name;
            const QSet<QString> other = wordsOfDialog(show);
            QCOMPARE((other & english) - names, QSet<QString>());
            QVERIFY(other.size() >= english.size() - 2); // two words may have become one
        }
    }
    void the_question_before_a_file_is_replaced_follows_the_language() {
        const TestFolder folder;
        const QString path = folder.write(u"game.gb"_s, "other");
        locale = u"es"_s;
        QString question;
        whenShown<QFileDialog>([&](QFileDialog& dialog) {
            whenShown<QMessageBox>([&](QMessageBox& box) { question = box.text(); });
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        DesktopFileDialogs(language.get()).showSave({u"title"_s, {}, 1, path});
        QVERIFY2(question.contains(u"game.gb"_s) && question.contains(u"reemplazar"_s), qPrintable(question));
    }
    void kinds_of_files_follow_the_language() {
        locale = u"es"_s;
        language->follow();
        QCOMPARE(QLocale().language(), QLocale::Spanish);
        texts["folder"] = u"Carpeta"_s;
        QCOMPARE(QCoreApplication::translate("QAbstractFileIconProvider", "Folder"), u"Carpeta"_s);
    }
    void what_qt_does_not_speak_is_taken_from_the_language_file() {
        locale = u"eu"_s;
        texts = {{"yes", u"&Bai"_s}, {"no", u"&Ez"_s}, {"ok", u"&Ados"_s}};
        QCOMPARE(buttonsOf(36), (QStringList{u"&Bai"_s, u"&Ez"_s}));
        QCOMPARE(buttonsOf(64), QStringList{u"Ados"_s}); // Qt gives this button no access key
        texts.remove("no");
        QCOMPARE(buttonsOf(36), (QStringList{u"&Bai"_s, u"&No"_s}));
    }
    void a_locale_that_is_none_means_english_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"", "xx", "../../es", "/usr/share/qt6/translations/qtbase_es", "español"})
            QTest::newRow(name) << QString::fromUtf8(name);
    }
    void a_locale_that_is_none_means_english() {
        QFETCH(QString, name);
        locale = name;
        QCOMPARE(buttonsOf(36), (QStringList{u"&Yes"_s, u"&No"_s}));
    }
    void a_country_of_a_language_speaks_it() {
        locale = u"es_MX"_s;
        QCOMPARE(buttonsOf(64), QStringList{u"Aceptar"_s});
    }
    void nothing_is_loaded_before_the_first_dialog_and_nothing_twice() {
        struct Changes : QObject {
            int count = 0;
            bool eventFilter(QObject* watched, QEvent* event) override {
                if (watched == qApp && event->type() == QEvent::LanguageChange) ++count;
                return false;
            }
        } changes;
        qApp->installEventFilter(&changes);
        locale = u"es"_s;
        QCoreApplication::processEvents();
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "&Yes"), u"&Yes"_s);
        QCOMPARE(changes.count, 0);
        language->follow();
        QCoreApplication::processEvents();
        const int first = changes.count;
        QVERIFY(first > 0);
        language->follow();
        QCoreApplication::processEvents();
        QCOMPARE(changes.count, first);
        QCOMPARE(lookUps, 0);
    }
    void it_goes_with_its_object() {
        locale = u"es"_s;
        language->follow();
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "&Yes"), u"&Sí"_s);
        language.reset();
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "&Yes"), u"&Yes"_s);
    }
    void without_a_source_nothing_is_loaded() {
        language->setSource({});
        QCOMPARE(buttonsOf(36), (QStringList{u"&Yes"_s, u"&No"_s}));
        language = nullptr;
        QCOMPARE(buttonsOf(36), (QStringList{u"&Yes"_s, u"&No"_s}));
    }
};

TORVANE_TEST(DesktopLanguageTest)
#include "DesktopLanguageTest.moc"
