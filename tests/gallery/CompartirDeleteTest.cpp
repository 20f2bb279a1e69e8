// SPDX-License-Identifier: MIT
// Deleting pictures in the gallery: what is asked, what goes, and what stays.
#include "support/OpenedGallery.h"
#include "support/TestMain.h"

#include <filesystem>

using namespace torvane;
using namespace Qt::StringLiterals;

class CompartirDeleteTest : public OpenedGallery {
    Q_OBJECT

    // Three pictures, of which the second is chosen.
    void openThree() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) picture(QLatin1String(name));
        openGallery();
        chooseRow(1);
    }
    void clickDelete(int answer) {
        messages().answer = answer;
        click(window().ChameleonButton10);
    }
    void deleteCurrent() { clickDelete(MsgBoxFlags::answerYes); }
    // Does something the first time that the window serves events after the question.
    void whenServed(const std::function<void()>& deed) {
        messages().whileOpen = [this, deed] {
            QMetaObject::invokeMethod(&window(), deed, Qt::QueuedConnection);
        };
    }
    // Does something the first time that the window serves events after it has listed its pictures anew.
    void whenServedAgain(const std::function<void()>& deed) {
        whenServed([this, deed] {
            Compartir* old = &window();
            connect(&old->Snap.model(), &RowModel::modelReset, old,
                    [old, deed] { QMetaObject::invokeMethod(old, deed, Qt::QueuedConnection); });
        });
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void it_asks_first() {
        openThree();
        clickDelete(MsgBoxFlags::answerNo);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), text("warning"));
        QCOMPARE(messages().boxes.first().title, text("gallerytitle"));
        QCOMPARE(messages().boxes.first().flags, 52);
        QCOMPARE(files(), QStringList({u"a.bmp"_s, u"b.bmp"_s, u"c.bmp"_s}));
        QCOMPARE(row(), 1);
    }
    void a_yes_deletes_the_selected_file_and_no_other() {
        picture(u"notes.txt"_s, "mine");
        openThree();
        deleteCurrent();
        QCOMPARE(files(), QStringList({u"a.bmp"_s, u"c.bmp"_s, u"notes.txt"_s}));
    }
    void the_window_loads_anew_and_shows_the_first_picture() {
        openThree();
        const Compartir* old = &window();
        deleteCurrent();
        QVERIFY(&window() != old);
        QVERIFY(window().isVisible());
        QCOMPARE(rows(), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(row(), 0);
        QCOMPARE(window().Format.Caption(), u"BitMaP"_s);
    }
    void the_user_sees_an_empty_list_then_the_new_one_then_the_new_window() {
        openThree();
        const Compartir* old = &window();
        QList<int> counts;
        const auto look = [&] { counts += &window() == old ? window().Snap.rowCount() : -1; };
        whenServed(look);
        deleteCurrent();
        QCOMPARE(counts, QList<int>{0});
        const Compartir* second = &window();
        QVERIFY(second != old);
        old = second;
        whenServedAgain(look);
        deleteCurrent();
        QCOMPARE(counts, QList<int>({0, 1}));
        QVERIFY(&window() != second);
    }
    void a_window_that_is_closed_meanwhile_stays_closed_data() {
        QTest::addColumn<bool>("isListedAnew");
        QTest::newRow("with an empty list") << false;
        QTest::newRow("with the new list") << true;
    }
    void a_window_that_is_closed_meanwhile_stays_closed() {
        QFETCH(bool, isListedAnew);
        openThree();
        const auto close = [this] { window().Unload(); };
        isListedAnew ? whenServedAgain(close) : whenServed(close);
        deleteCurrent();
        QVERIFY(loaded<Compartir>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(files(), QStringList({u"a.bmp"_s, u"c.bmp"_s}));
        QCOMPARE(messages().boxes.size(), 1);
    }
    void the_main_window_stays_away_until_the_gallery_is_closed() {
        openThree();
        deleteCurrent();
        QVERIFY(!main().isVisible());
        collectGone();
        deleteCurrent();
        collectGone();
        QVERIFY(!main().isVisible());
        click(window().chameleonButton1);
        QVERIFY(loaded<Compartir>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void the_last_picture_leaves_an_empty_list() {
        picture(u"a.bmp"_s);
        openGallery();
        deleteCurrent();
        QCOMPARE(files(), QStringList());
        QCOMPARE(rows(), QStringList());
        QCOMPARE(window().Format.Caption(), QString());
        QVERIFY(window().Image1.source().isNull());
        QCOMPARE(messages().boxes.size(), 1);
    }
    void a_png_is_deleted_in_the_same_way() {
        picture(u"a.png"_s, pngBytes());
        openGallery();
        deleteCurrent();
        QCOMPARE(files(), QStringList());
    }
    void a_picture_that_was_reached_by_a_step_is_the_selected_one() {
        openThree();
        next();
        deleteCurrent();
        QCOMPARE(files(), QStringList({u"a.bmp"_s, u"b.bmp"_s}));
    }
    void a_link_goes_and_its_target_stays() {
        opened->world.folder.write(u"elsewhere.bmp"_s, bmpBytes());
        std::filesystem::create_symlink(
            "../../../elsewhere.bmp",
            opened->world.folder.native(shots.toUtf8() + "/link.bmp").toStdString());
        openGallery();
        deleteCurrent();
        QCOMPARE(files(), QStringList());
        QCOMPARE(opened->world.folder.read(u"elsewhere.bmp"_s), bmpBytes());
    }
    void a_name_of_any_bytes_is_deleted() {
        const QByteArrayList names{"no\xFFutf8 .bmp", "no\xFEutf8 .bmp", "back\\slash.bmp", "100% <b>.bmp"};
        for (const QByteArray& name : names) {
            opened->world.folder.writeNative(shots.toUtf8() + '/' + name, bmpBytes());
        }
        openGallery();
        for (auto left = names.size(); left > 0; --left) {
            QCOMPARE(rows().size(), left);
            deleteCurrent();
            collectGone();
        }
        QVERIFY(std::filesystem::is_empty(opened->world.folder.native(shots.toUtf8()).toStdString()));
        QCOMPARE(messages().boxes.size(), names.size());
    }
    void a_file_that_has_gone_is_reported_and_one_of_other_letters_stays() {
        openThree();
        std::filesystem::rename(opened->world.folder.native(shots.toUtf8() + "/b.bmp").toStdString(),
                                opened->world.folder.native(shots.toUtf8() + "/B.BMP").toStdString());
        deleteCurrent();
        QVERIFY(files().contains(u"B.BMP"_s));
        QCOMPARE(messages().boxes.size(), 2);
        QVERIFY(messages().last().contains(u"b.bmp"_s) && messages().last().contains(u"53"_s));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(window().isVisible());
        QCOMPARE(window().Snap.rowCount(), 3);
    }
    void a_file_that_may_not_be_deleted_is_reported_and_stays() {
        openThree();
        opened->world.folder.setMode(shots, 0555);
        {
            const OrdinaryUser user;
            deleteCurrent();
        }
        opened->world.folder.setMode(shots, 0755);
        QCOMPARE(files().size(), 3);
        QVERIFY(messages().last().contains(u"70"_s));
        QCOMPARE(opened->world.ends, 0);
        QCOMPARE(row(), 1);
    }
    void the_enlarged_view_goes_with_the_window() {
        openThree();
        enlarge();
        deleteCurrent();
        QVERIFY(loaded<AmpliCaptura>() == nullptr);
        QVERIFY(window().isVisible());
    }
    void a_window_that_is_closed_while_it_asks_deletes_nothing() {
        openThree();
        messages().whileOpen = [this] { window().Unload(); };
        deleteCurrent();
        QCOMPARE(files().size(), 3);
        QVERIFY(loaded<Compartir>() == nullptr && main().isVisible());
    }
    void a_window_that_is_closed_meanwhile_reports_nothing() {
        openThree();
        whenServed([this] {
            window().Unload();
            opened->world.setSetting("Capturas", opened->world.appPath() + u"\\nowhere"_s);
        });
        deleteCurrent();
        QCOMPARE(messages().boxes.size(), 1);
    }
    void only_a_yes_deletes() {
        openThree();
        for (const int answer : {0, MsgBoxFlags::answerOk, MsgBoxFlags::answerNo}) clickDelete(answer);
        QCOMPARE(messages().boxes.size(), 3);
        QCOMPARE(files().size(), 3);
    }
};

TORVANE_TEST(CompartirDeleteTest)
#include "CompartirDeleteTest.moc"
