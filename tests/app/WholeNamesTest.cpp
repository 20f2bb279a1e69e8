// SPDX-License-Identifier: MIT
// Games whose names have dots, in a program whose user has names cut at the last one: what each window makes
// of them.
#include "support/Archive.h"
#include "support/OpenedCompact.h"
#include "support/PictureBytes.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace torvane {
class WholeNamesTest : public QObject {
    Q_OBJECT

    static inline const QString mario = u"Dr. Mario (JU) (V1.1) [!]"_s;

    std::unique_ptr<OpenedCompact> opened;

    MainFrm& main() const { return opened->main(); }
    QByteArrayList started() const {
        QByteArrayList games;
        for (const auto& start : opened->world.processes.starts) games += start.arguments.join(' ');
        return games;
    }
    QByteArray path(const QString& relative) const {
        return opened->world.appPath().toUtf8() + '/' + relative.toUtf8();
    }
    template <typename List>
    static QStringList rowsOf(const List& list) {
        QStringList texts;
        for (int row = 0; row < list.rowCount(); ++row) {
            texts += list.model().index(row, 0).data().toString();
        }
        return texts;
    }
    static QPixmap pictureOf(const ListView& list, int row) {
        return list.model().index(row, 0).data(Qt::DecorationRole).value<QPixmap>();
    }
    void openArchive(const QString& name, const QList<ArchiveMember>& members) const {
        writeArchive(opened->world.folder.path(u"roms/"_s + name), members);
        opened->open();
        click(main().Zipper);
        QVERIFY(opened->program->loaded<ZIP_Viewer>() != nullptr);
    }
    ZIP_Viewer& archive() const { return *opened->program->loaded<ZIP_Viewer>(); }

private slots:
    void init() {
        opened = std::make_unique<OpenedCompact>();
        opened->world.setSetting("Names", u"whole"_s);
    }
    void cleanup() { opened.reset(); }

    void a_row_has_the_name_up_to_the_last_dot_and_the_icon_of_its_console() {
        for (const QString& name : {u"a.gba"_s, mario + u".gb"_s, u"v1.0.gbc"_s, u"z.gb"_s}) {
            opened->game(name);
        }
        opened->open();
        QCOMPARE(rowsOf(main().ListView1), (QStringList{u"a"_s, mario, u"v1.0"_s, u"z"_s}));
        QCOMPARE(pictureOf(main().ListView1, 1).toImage(), pictureOf(main().ListView1, 3).toImage());
        QVERIFY(pictureOf(main().ListView1, 1).toImage() != pictureOf(main().ListView1, 0).toImage());
        QVERIFY(pictureOf(main().ListView1, 2).toImage() != pictureOf(main().ListView1, 1).toImage());
    }
    void without_the_setting_a_row_ends_at_the_first_dot() {
        opened->world.setSetting("Names", QString());
        opened->game(mario + u".gb"_s);
        opened->open();
        QCOMPARE(rowsOf(main().ListView1), QStringList{u"Dr"_s});
    }
    void a_game_is_selected_shown_and_launched() {
        opened->games(1);
        opened->tagged(mario + u".gb"_s, u"Doctor"_s);
        opened->open();
        opened->chooseRow(0);
        QCOMPARE(main().Games.FileName(), mario + u".gb"_s);
        QCOMPARE(main().GameTitle.Caption(), u"Doctor"_s);
        QVERIFY(isSeen(main().ID3_Menu));
        click(main().ChameleonButton16);
        QCOMPARE(started(), QByteArrayList{path(u"roms/"_s + mario + u".gb"_s)});
    }
    void a_game_is_found_by_a_beginning_that_has_dots() {
        for (const QString& name : {u"Dr. Mario.gb"_s, u"Dr. Mario 2.gb"_s, u"Drum.gb"_s}) opened->game(name);
        opened->open();
        const QStringList rows = rowsOf(main().ListView1);
        QCOMPARE(rows[main().rowOf(u"dr. mario 2"_s)], u"Dr. Mario 2"_s);
        QCOMPARE(rows[main().rowOf(u"dru"_s)], u"Drum"_s);
        // The end of a name is no part of its row.
        QCOMPARE(main().rowOf(u"Drum."_s), -1);
        QCOMPARE(main().rowOf(u"Drum.gb"_s), -1);
    }
    void an_archive_is_one_whatever_dots_are_before_its_end() {
        openArchive(mario + u".zip"_s, {{u"a.gb"_s, "game"}});
        QVERIFY(isSeen(archive()));
        QCOMPARE(main().Label10.Caption(), mario + u".zip"_s);
        QVERIFY(QFileInfo::exists(opened->world.folder.path(u"ziptemp/"_s + mario + u"/a.gb"_s)));
        QCOMPARE(opened->program->id3.RomTag.Extension, u".zip"_s);
    }
    void an_archive_goes_straight_to_the_emulator_without_a_minimised_window() {
        opened->game(u"v1.1.zip"_s, "PK");
        opened->open();
        bool isMinimised = true;
        opened->world.processes.whileRunning = [&] {
            isMinimised = main().windowStateWord() == Form::minimised;
        };
        main().Label15_Click();
        QCOMPARE(started(), QByteArrayList{path(u"roms/v1.1.zip"_s)});
        QVERIFY(!isMinimised);
    }
    void archives_of_one_beginning_have_folders_of_their_own() {
        writeArchive(opened->world.folder.path(u"roms/v1.1.zip"_s), {{u"b.gb"_s, "b"}});
        openArchive(u"v1.0.zip"_s, {{u"a.gb"_s, "a"}});
        QCOMPARE(opened->world.folder.entries(u"ziptemp"_s), QStringList{u"v1.0"_s});
        QCOMPARE(rowsOf(archive().ListView1), QStringList{u"a.gb"_s});
    }
    void a_game_is_started_out_of_an_archive() {
        openArchive(u"pack.v2.zip"_s, {{mario + u".gb"_s, "game"}, {u"read.me.txt"_s, "text"}});
        QCOMPARE(rowsOf(archive().ListView1), (QStringList{mario + u".gb"_s, u"read.me.txt"_s}));
        doubleClick(archive().ListView1, archive().ListView1.rowRect(0).center());
        QCOMPARE(started(), QByteArrayList{path(u"ziptemp/pack.v2/"_s + mario + u".gb"_s)});
        doubleClick(archive().ListView1, archive().ListView1.rowRect(1).center());
        QCOMPARE(started().size(), 1);
    }
    void a_copy_proposes_the_kind_of_the_game() {
        opened->game(mario + u".gb"_s, "bytes");
        opened->dialogs().answer = opened->world.folder.path(u"copy.v1.gb"_s);
        opened->open();
        click(main().Edit_Menu);
        click(main().chameleonButton10);
        QCOMPARE(opened->dialogs().questions.last().filterIndex, 4);
        QCOMPARE(opened->world.folder.read(u"copy.v1.gb"_s), QByteArray("bytes"));
    }
    void a_game_is_imported_under_its_whole_name() {
        const QString from = opened->original(mario + u".gb"_s, "bytes");
        opened->openAssistant();
        opened->copyFile(from);
        click(opened->assistant().ChameleonButton2);
        QCOMPARE(opened->bytesOf(mario + u".gb"_s), QByteArray("bytes"));
        QCOMPARE(rowsOf(main().ListView1), QStringList{mario});
    }
    void the_compact_window_names_the_console() {
        opened->tagged(mario + u".gb"_s, u"Doctor"_s);
        opened->game(u"pack.v2.zip"_s, "PK");
        opened->openCompact();
        QCOMPARE(opened->data().mid(1, 1), QStringList{u"GB Classic"_s});
        opened->next();
        QCOMPARE(opened->data(), (QStringList{u"#0002"_s, u"ZIP File"_s, u"0 KB"_s, QString(), QString()}));
    }
    void the_gallery_knows_the_kind_of_a_screenshot() {
        opened->games(1);
        opened->world.folder.write(u"roms/data/screenshots/Dr. Mario-0.bmp"_s, bmpBytes());
        opened->open();
        click(main().chameleonButton4);
        auto& gallery = *opened->program->loaded<Compartir>();
        QCOMPARE(rowsOf(gallery.Snap), QStringList{u"Dr. Mario-0"_s});
        QCOMPARE(gallery.Format.Caption(), u"BitMaP"_s);
        opened->world.printer.exists = false;
        opened->world.messages.answer = MsgBoxFlags::answerYes;
        click(gallery.ChameleonButton9);
        QCOMPARE(opened->dialogs().questions.last().fileName, u"Dr. Mario-0.pdf"_s);
        click(gallery.ChameleonButton8);
        click(opened->program->loaded<AmpliCaptura>()->ChameleonButton2);
        QCOMPARE(opened->dialogs().questions.size(), 2);
        QCOMPARE(opened->dialogs().questions.last().fileName, u"Dr. Mario-0.pdf"_s);
    }
};
} // namespace torvane

using torvane::WholeNamesTest;
TORVANE_TEST(WholeNamesTest)
#include "WholeNamesTest.moc"
