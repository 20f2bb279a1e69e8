// SPDX-License-Identifier: MIT
// The player of moving pictures: what it plays, and that whatever else it is given does no harm.
#include "platform/forms/MoviePlayer.h"
#include "platform/forms/Panel.h"
#include "support/FakeWorld.h"
#include "support/GifMovie.h"
#include "support/IntroMovie.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QBuffer>
#include <QMovie>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
QByteArray redPng() {
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

// A player on a screen of any density.
class PlayerOnScreen : public MoviePlayer {
public:
    using MoviePlayer::MoviePlayer;
    qreal density = 1.0;
    int paintings = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paintings;
        MoviePlayer::paintEvent(event);
    }
    int metric(PaintDeviceMetric asked) const override {
        if (asked == PdmDevicePixelRatio) return qCeil(density);
        return asked == PdmDevicePixelRatioScaled ? qRound(density * devicePixelRatioFScale())
                                                  : MoviePlayer::metric(asked);
    }
};

// Notes what is asked for, and answers with a movie.
class MovieServer : public QTcpServer {
public:
    QByteArrayList requests;

    MovieServer() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { answer(*socket); });
        });
    }

private:
    // The length says where the movie ends, and the client hangs up: a server that hangs up first looks
    // like a broken line now and then, and is asked once more.
    void answer(QTcpSocket& socket) {
        if (!socket.peek(socket.bytesAvailable()).endsWith("\r\n\r\n")) return; // the rest is on its way
        requests.append(socket.readLine().trimmed());
        socket.readAll();
        const QByteArray movie = twoColours();
        socket.write("HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " +
                     QByteArray::number(movie.size()) + "\r\n\r\n" + movie);
    }
};

// Whether a picture is one of a movie's frames, dot for dot.
bool isFrameOf(const QString& path, QImage picture) {
    picture.setDevicePixelRatio(1);
    QMovie movie(path);
    for (int frame = 0; frame < movie.frameCount() && movie.jumpToFrame(frame); ++frame) {
        if (movie.currentImage().convertToFormat(QImage::Format_RGB32) == picture) return true;
    }
    return false;
}
} // namespace

class MoviePlayerTest : public QObject {
    Q_OBJECT

    const QColor red{0xFF, 0, 0};
    const QColor blue{0, 0, 0xFF};

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<Panel> box;
    std::unique_ptr<Panel> cover;
    std::unique_ptr<PlayerOnScreen> player;

    // Plays a movie on the screen until the player says what has become of it.
    bool play(const QString& location) const {
        QSignalSpy ready(player.get(), &MoviePlayer::readyStateChanged);
        player->setMovie(location);
        player->Play();
        return form->appear() && (!ready.isEmpty() || ready.wait(10000)) && ready.size() == 1;
    }
    bool play(const QByteArray& bytes, const QString& name = u"movie.dat"_s) const {
        return play(world->folder.write(name, bytes));
    }
    QColor seen() const { return imageOf(*player).pixelColor(20, 20); }
    bool isEmpty() const { return inkOf(imageOf(*form), Colours::toQColor(TestForm::back)).isNull(); }

private slots:
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
        player = std::make_unique<PlayerOnScreen>(*form, "Flash", DesignRect{10, 10, 192, 122});
    }
    void cleanup() {
        cover.reset();
        player.reset();
        box.reset();
        form.reset();
    }

    void an_animated_gif_is_played_over_the_whole_control() {
        QVERIFY(play(twoColours()));
        QVERIFY(player->isPlaying());
        QTRY_COMPARE(seen(), red);
        QCOMPARE(inkOf(imageOf(*form), Colours::toQColor(TestForm::back)), QRect(10, 10, 192, 122));
        QTRY_COMPARE(seen(), blue);
    }
    void a_movie_that_asks_for_one_round_goes_on() {
        QVERIFY(play(twoColours()));
        for (int round = 0; round < 3; ++round) {
            QTRY_COMPARE(seen(), red);
            QTRY_COMPARE(seen(), blue);
        }
        QVERIFY(player->isPlaying());
    }
    void the_intro_an_animated_webp_is_played() {
        QVERIFY(play(introPath));
        QVERIFY(player->isPlaying());
        QVERIFY(!isEmpty());
        const QImage first = imageOf(*player);
        QTRY_VERIFY(imageOf(*player) != first);
    }
    void a_still_gif_is_shown() {
        QVERIFY(play(gifHead() + gifFrame(1) + ';'));
        QTest::qWait(200); // longer than its one frame takes
        QCOMPARE(seen(), blue);
        QVERIFY(player->isPlaying());
    }
    void a_movie_is_recognised_by_its_content_and_not_by_its_name() {
        QVERIFY(play(twoColours(), u"movie.png"_s));
        QVERIFY(player->isPlaying());
        QVERIFY(play(redPng(), u"picture.gif"_s));
        QVERIFY(!player->isPlaying());
        QVERIFY(isEmpty());
    }
    void a_file_address_is_followed() {
        world->folder.write(u"a folder/año %41.gif"_s, twoColours());
        QVERIFY(play(QString::fromLatin1(
            QUrl::fromLocalFile(world->folder.path(u"a folder/año %41.gif"_s)).toEncoded())));
        QVERIFY(player->isPlaying());
    }
    void a_path_spelled_with_backslashes_and_in_other_letters_is_found() {
        world->folder.write(u"data/banner.swf"_s, twoColours());
        QVERIFY(play(world->folder.path() + u"\\DATA\\Banner.SWF"_s));
        QVERIFY(player->isPlaying());
    }

    void a_dense_screen_gets_the_movie_in_twice_the_pixels_if_there_is_one_data() {
        QTest::addColumn<qreal>("density");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("twin");
        QTest::addColumn<bool>("getsTwin");
        const auto row = [](const char* what, qreal density, const QString& name, const QString& twin,
                            bool getsTwin) { QTest::newRow(what) << density << name << twin << getsTwin; };
        row("plain screen", 1, u"movie.dat"_s, u"movie@2x.dat"_s, false);
        row("a little denser", 1.25, u"movie.dat"_s, u"movie@2x.dat"_s, true);
        row("twice as dense", 2, u"movie.dat"_s, u"movie@2x.dat"_s, true);
        row("three times as dense", 3, u"movie.dat"_s, u"movie@2x.dat"_s, true);
        row("no twin", 2, u"movie.dat"_s, u"other@2x.dat"_s, false);
        row("two dots in the name", 2, u"movie.old.dat"_s, u"movie.old@2x.dat"_s, true);
        row("no ending", 2, u"movie"_s, u"movie@2x"_s, true);
        row("a dot in the folder's name alone", 2, u"a.folder/movie"_s, u"a.folder/movie@2x"_s, true);
    }
    void a_dense_screen_gets_the_movie_in_twice_the_pixels_if_there_is_one() {
        QFETCH(qreal, density);
        QFETCH(QString, name);
        QFETCH(QString, twin);
        QFETCH(bool, getsTwin);
        player->density = density;
        world->folder.write(twin, gifHead() + gifFrame(1) + ';');
        QVERIFY(play(gifHead() + gifFrame(0) + ';', name));
        QTRY_COMPARE(seen(), getsTwin ? blue : red);
        QCOMPARE(player->geometry(), QRect(10, 10, 192, 122));
    }
    void the_twin_of_a_file_address_is_found() {
        player->density = 2;
        world->folder.write(u"a folder/movie@2x.gif"_s, gifHead() + gifFrame(1) + ';');
        const QString file = world->folder.write(u"a folder/movie.gif"_s, gifHead() + gifFrame(0) + ';');
        QVERIFY(play(QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded())));
        QTRY_COMPARE(seen(), blue);
    }
    void a_twin_that_is_no_movie_is_not_played() {
        player->density = 2;
        world->folder.write(u"movie@2x.dat"_s, redPng());
        QVERIFY(play(gifHead() + gifFrame(0) + ';'));
        QTRY_COMPARE(seen(), red);
    }
    void a_server_is_asked_once_and_for_no_twin() {
        player->density = 2;
        const MovieServer server;
        QVERIFY(play(u"http://127.0.0.1:%1/movie.gif"_s.arg(server.serverPort())));
        QVERIFY(player->isPlaying());
        QCOMPARE(server.requests.size(), 1);
        QVERIFY(server.requests.first().startsWith("GET /movie.gif "));
    }
    void the_intro_is_shown_dot_for_dot_on_any_screen_data() {
        QTest::addColumn<qreal>("density");
        QTest::addColumn<QString>("frames");
        QTest::newRow("plain") << 1.0 << introPath;
        QTest::newRow("dense") << 2.0 << QStringLiteral(TORVANE_ART_TREE_DIR "/data/intro@2x.dat");
    }
    void the_intro_is_shown_dot_for_dot_on_any_screen() {
        QFETCH(qreal, density);
        QFETCH(QString, frames);
        player->density = density;
        QVERIFY(play(introPath));
        QTRY_VERIFY(!isEmpty());
        const QImage seenFrame = imageOf(*player);
        QCOMPARE(seenFrame.size(), QSize(192, 122) * density);
        QVERIFY(isFrameOf(frames, seenFrame));
    }

    void what_is_no_movie_leaves_the_player_empty_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray webp = introBytes();
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("just a text\r\n");
        QTest::newRow("a picture of another kind") << redPng();
        QTest::newRow("mark of a GIF alone") << QByteArray("GIF89a");
        QTest::newRow("GIF without a picture") << gifHead();
        QTest::newRow("GIF with an end but no picture") << gifHead() + ';';
        QTest::newRow("GIF cut within its first picture") << gifHead() + gifFrame(0).first(14);
        QTest::newRow("GIF with garbage in place of pictures") << gifHead() + QByteArray(500, '\xA5');
        QTest::newRow("GIF of no size") << "GIF89a" + QByteArray(200, '\0');
        QTest::newRow("mark of a container alone") << QByteArray("RIFF");
        QTest::newRow("container cut within its length") << QByteArray("RIFF\x10\0\0", 7);
        QTest::newRow("container of sound") << QByteArray("RIFF\x10\0\0\0WAVEfmt ", 16);
        QTest::newRow("mark of a WebP alone") << webp.first(12);
        QTest::newRow("WebP cut within its head") << webp.first(40);
        QTest::newRow("WebP with garbage behind its mark") << webp.first(12) + QByteArray(1000, '\xA5');
    }
    void what_is_no_movie_leaves_the_player_empty() {
        QFETCH(QByteArray, bytes);
        QVERIFY(play(bytes));
        QTest::qWait(50);
        QVERIFY(!player->isPlaying());
        QVERIFY(isEmpty());
    }
    void what_is_missing_leaves_the_player_empty_data() {
        QTest::addColumn<QString>("location");
        QTest::newRow("no location") << QString();
        QTest::newRow("missing file") << u"/no such folder/x.dat"_s;
        QTest::newRow("folder") << u"/"_s;
        QTest::newRow("device") << u"/dev/zero"_s;
        QTest::newRow("missing file by its address") << u"file:///no%20such/x.dat"_s;
        QTest::newRow("address of an unknown kind") << u"gopher://example.invalid/x"_s;
        QTest::newRow("address without a host") << u"http://"_s;
    }
    void what_is_missing_leaves_the_player_empty() {
        QFETCH(QString, location);
        QVERIFY(play(location));
        QVERIFY(!player->isPlaying());
        QVERIFY(isEmpty());
    }
    void a_movie_that_is_cut_off_does_no_harm() {
        const QByteArray gif = twoColours();
        for (qsizetype length = 0; length < gif.size(); ++length) QVERIFY(play(gif.first(length)));
        const QByteArray webp = introBytes();
        QVERIFY(webp.size() > 1000);
        for (const qsizetype length : {webp.size() / 10, webp.size() / 2, webp.size() - 1}) {
            QVERIFY(play(webp.first(length)));
            QTest::qWait(30);
        }
        QVERIFY(play(twoColours()));
        QVERIFY(player->isPlaying());
    }
    void a_file_beyond_sixteen_mebibytes_is_not_played() {
        QFile file(world->folder.write(u"big.gif"_s, twoColours()));
        QVERIFY(file.resize(17 << 20));
        QVERIFY(play(file.fileName()));
        QVERIFY(!player->isPlaying());
        QVERIFY(isEmpty());
        QVERIFY(file.resize(16 << 20));
        QVERIFY(play(file.fileName()));
        QVERIFY(player->isPlaying());
    }
    void another_movie_replaces_the_old_one() {
        QVERIFY(play(gifHead() + gifFrame(0) + ';'));
        QTRY_COMPARE(seen(), red);
        QVERIFY(play(gifHead() + gifFrame(1) + ';', u"other.dat"_s));
        QTRY_COMPARE(seen(), blue);
        QVERIFY(play(u"/no such file"_s));
        QVERIFY(isEmpty());
    }
    void a_movie_rests_while_nobody_can_see_it_data() {
        using Act = std::function<void(MoviePlayerTest&)>;
        QTest::addColumn<Act>("hide");
        QTest::addColumn<Act>("show");
        QTest::newRow("minimised window") << Act([](auto& t) { t.form->setWindowStateWord(Form::minimised); })
                                          << Act([](auto& t) { t.form->setWindowStateWord(Form::normal); });
        QTest::newRow("hidden window")
            << Act([](auto& t) { t.form->Hide(); }) << Act([](auto& t) { t.form->Show(); });
        QTest::newRow("hidden player") << Act([](auto& t) { t.player->setVisible(false); })
                                       << Act([](auto& t) { t.player->setVisible(true); });
        QTest::newRow("hidden container") << Act([](auto& t) { t.box->setVisible(false); })
                                          << Act([](auto& t) { t.box->setVisible(true); });
        QTest::newRow("moved out of its container")
            << Act([](auto& t) { t.player->move(0, 300); }) << Act([](auto& t) { t.player->move(0, 0); });
        QTest::newRow("behind another control")
            << Act([](auto& t) { t.cover->raise(); }) << Act([](auto& t) { t.cover->lower(); });
    }
    void a_movie_rests_while_nobody_can_see_it() {
        QFETCH(std::function<void(MoviePlayerTest&)>, hide);
        QFETCH(std::function<void(MoviePlayerTest&)>, show);
        box = std::make_unique<Panel>(*form, "box", DesignRect{10, 10, 192, 122}, Panel::Look{});
        player = std::make_unique<PlayerOnScreen>(*box, "Flash", DesignRect{0, 0, 192, 122});
        cover = std::make_unique<Panel>(*box, "cover", DesignRect{0, 0, 192, 122}, Panel::Look{});
        cover->lower();
        QVERIFY(play(twoColours()));
        hide(*this);
        QTRY_VERIFY(!player->isPlaying());
        QTest::qWait(100); // hiding may paint once more
        const int paintings = player->paintings;
        QTest::qWait(300); // time for six frames
        QVERIFY(!player->isPlaying());
        QCOMPARE(player->paintings, paintings);
        show(*this);
        QTRY_VERIFY(player->isPlaying());
        QTRY_COMPARE(seen(), red);
        QTRY_COMPARE(seen(), blue);
    }
    void nothing_is_loaded_before_the_player_is_on_the_screen() {
        QSignalSpy ready(player.get(), &MoviePlayer::readyStateChanged);
        player->setMovie(world->folder.write(u"movie.dat"_s, twoColours()));
        player->Play();
        QTest::qWait(50);
        QCOMPARE(ready.size(), 0);
        QVERIFY(form->appear());
        QTRY_COMPARE(ready.size(), 1);
    }
    void a_movie_that_nobody_wants_played_stays_unseen() {
        player->setMovie(world->folder.write(u"movie.dat"_s, twoColours()));
        QVERIFY(form->appear());
        QTest::qWait(50);
        QVERIFY(!player->isPlaying());
        QVERIFY(isEmpty());
        QCOMPARE(player->Movie(), world->folder.path(u"movie.dat"_s));
    }
    void a_press_is_reported_as_a_click() {
        QVERIFY(form->appear());
        QSignalSpy clicks(player.get(), &MoviePlayer::Click);
        QTest::mouseClick(player.get(), Qt::LeftButton, {}, {5, 5});
        QCOMPARE(clicks.size(), 1);
    }
};

TORVANE_TEST(MoviePlayerTest)
#include "MoviePlayerTest.moc"
