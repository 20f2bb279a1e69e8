// SPDX-License-Identifier: MIT
// The real save dialog: a proposed name keeps its bytes as long as nobody types another one.
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"
#include "platform/forms/DesktopDialogs.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>

using namespace torvane;
using namespace Qt::StringLiterals;

class FileNameDialogTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    QString shown; // the name field when the dialog appeared

    static QLineEdit& nameField(QFileDialog& dialog) {
        return *dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
    }
    static void pressSave(QFileDialog& dialog) {
        auto* box = dialog.findChild<QDialogButtonBox*>(u"buttonBox"_s);
        QTest::mouseClick(box->button(QDialogButtonBox::Save), Qt::LeftButton);
    }
    static void type(QFileDialog& dialog, const QString& text) {
        nameField(dialog).selectAll();
        QTest::keyClicks(&nameField(dialog), text);
        nameField(dialog).completer()->popup()->hide(); // it would swallow the next click
    }
    // Asks with a proposal in the test's folder, and answers as `user` does.
    QString ask(const QString& proposed, const std::function<void(QFileDialog&)>& user) {
        QTimer::singleShot(0, this, [this, user] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog != nullptr);
            shown = nameField(*dialog).text();
            dialog->setDirectory(folder->path());
            user(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        return DesktopFileDialogs().showSave({u"x"_s, u"ROM|*.gb|ZIP|*.zip"_s, 1, proposed});
    }
    // What a box that appears says; it is closed by a button.
    static void answerBox(QMessageBox::StandardButton button, QString& text) {
        QTimer::singleShot(0, qApp, [button, &text] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QVERIFY(box->defaultButton() == box->button(QMessageBox::No));
            text = box->text();
            box->button(button)->click();
        });
    }
    QString at(const QByteArray& name) const { return Paths::spelled(folder->native(name)); }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        shown.clear();
    }

    void an_accepted_proposal_keeps_its_bytes_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name :
             {"a b.gb", "dq\"uote.gb", "\"two\" \"names\".gb", "my \"best\" game.gb", "no utf8 \xF1.gb",
              "back\\slash.gb", "~tilde.gb", "$HOME.gb", " ends ", "line\nbreak.gb", "<b>.gb", "%1.gb",
              "Pok\xC3\xA9mon.gb", "twice.gb.zip", "\xC3\xA9 \xE9"})
            QTest::newRow(name) << QByteArray(name);
    }
    void an_accepted_proposal_keeps_its_bytes() {
        QFETCH(QByteArray, name);
        QCOMPARE(ask(NativeText::fromNative(name), pressSave), at(name));
        QCOMPARE(shown, QString::fromUtf8(name));
        // The same where a part of the name is a file's.
        for (const char* other : {"uote.gb", "two", "names"}) folder->writeNative(other, "other");
        QCOMPARE(ask(NativeText::fromNative(name), pressSave), at(name));
    }
    void a_proposal_is_not_taken_for_a_file_that_differs_in_case() {
        folder->writeNative("PLAIN.GB", "other");
        const QString before = QDir::currentPath();
        QDir::setCurrent(folder->path());
        QCOMPARE(ask(u"plain.gb"_s, pressSave), at("plain.gb"));
        QDir::setCurrent(before);
        QCOMPARE(shown, u"plain.gb"_s);
    }
    void a_proposed_path_opens_its_folder() {
        folder->makeFolder(u"My Games"_s);
        const QString path = folder->path() + u"\\my games\\new \"one\".gb"_s;
        QString opened;
        const auto look = [&](QFileDialog& dialog) {
            dialog.setDirectory(opened);
            pressSave(dialog);
        };
        QTimer::singleShot(0, this, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            opened = dialog->directory().path();
            look(*dialog);
        });
        QCOMPARE(DesktopFileDialogs().showSave({u"x"_s, {}, 1, path}), at("My Games/new \"one\".gb"));
        QCOMPARE(opened, folder->path(u"My Games"_s));
    }
    void a_proposal_goes_along_to_another_folder() {
        folder->makeFolder(u"other"_s);
        const QString chosen = ask(NativeText::fromNative("a\xFF\".gb"), [&](QFileDialog& dialog) {
            dialog.setDirectory(folder->path(u"other"_s));
            pressSave(dialog);
        });
        QCOMPARE(chosen, at("other/a\xFF\".gb"));
    }
    void a_typed_name_counts() {
        const auto typing = [](const QString& text) {
            return [text](QFileDialog& dialog) {
                type(dialog, text);
                pressSave(dialog);
            };
        };
        QCOMPARE(ask(u"dq\"uote.gb"_s, typing(u"other.gb"_s)), at("other.gb"));
        QCOMPARE(ask(u"a.gb"_s, typing(u"my \"best\" game.gb"_s)), at("my \"best\" game.gb"));
        QCOMPARE(ask(u"a.gb"_s, typing(at("b.gb"))), at("b.gb"));
        QCOMPARE(ask(u"a.gb"_s, typing(at("\"b\".gb"))), at("\"b\".gb"));
        folder->makeFolder(u"sub"_s);
        QCOMPARE(ask(u"a.gb"_s, typing(u"sub/b.gb"_s)), at("sub/b.gb"));
        QCOMPARE(ask(u"a.gb"_s, typing(u"~/b.gb"_s)), QDir::homePath() + u"/b.gb"_s);
    }
    void an_empty_field_chooses_nothing() {
        const QString chosen = ask(u"a.gb"_s, [](QFileDialog& dialog) {
            nameField(dialog).clear();
            QMetaObject::invokeMethod(&dialog, "accept");
            QVERIFY(dialog.isVisible());
        });
        QCOMPARE(chosen, QString());
    }
    void a_typed_folder_is_entered_with_the_dialog_open_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << u"sub"_s;
        QTest::newRow("with quotes") << u"s\"u\"b"_s;
    }
    void a_typed_folder_is_entered_with_the_dialog_open() {
        QFETCH(QString, name);
        folder->makeFolder(name);
        const QString chosen = ask(name, [&](QFileDialog& dialog) {
            pressSave(dialog);
            QVERIFY(dialog.isVisible());
            QCOMPARE(dialog.directory().path(), folder->path(name));
        });
        QCOMPARE(chosen, QString());
    }
    void a_file_that_is_there_is_replaced_after_a_question_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"a.gb", "dq\"uote.gb", "no utf8 \xF1.gb", "<b>.gb"})
            QTest::newRow(name) << QByteArray(name);
    }
    void a_file_that_is_there_is_replaced_after_a_question() {
        QFETCH(QByteArray, name);
        folder->writeNative(name, "other");
        QString text;
        const auto answering = [&](QMessageBox::StandardButton button) {
            return [&, button](QFileDialog& dialog) {
                answerBox(button, text);
                pressSave(dialog);
                QCOMPARE(dialog.isVisible(), button == QMessageBox::No);
            };
        };
        QCOMPARE(ask(NativeText::fromNative(name), answering(QMessageBox::No)), QString());
        QVERIFY(text.startsWith(QString::fromUtf8(name)));
        text.clear();
        QCOMPARE(ask(NativeText::fromNative(name), answering(QMessageBox::Yes)), at(name));
        QVERIFY(!text.isEmpty());
    }
    void another_kind_of_file_changes_the_ending() {
        const QString chosen = ask(u"a.gb"_s, [](QFileDialog& dialog) {
            auto* kinds = dialog.findChild<QComboBox*>(u"fileTypeCombo"_s);
            kinds->setCurrentIndex(1);
            emit kinds->activated(1);
            pressSave(dialog);
        });
        QCOMPARE(chosen, at("a.zip"));
    }
    void where_only_the_folder_counts_a_file_that_is_there_is_taken_without_a_question() {
        folder->writeNative("shot.png", "picture");
        QTimer::singleShot(0, this, [this] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog != nullptr);
            type(*dialog, u"shot.png"_s);
            QTimer::singleShot(0, this, [] { // a question would wait for ever
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->reject();
            });
            pressSave(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        const FileQuestion question{
            .title = u"x"_s, .filter = {}, .fileName = at("Este Directorio"), .isForFolder = true};
        QCOMPARE(DesktopFileDialogs().showSave(question), at("shot.png"));
    }
};

TORVANE_TEST(FileNameDialogTest)
#include "FileNameDialogTest.moc"
