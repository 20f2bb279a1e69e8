// SPDX-License-Identifier: MIT
// The process is killed while the database window downloads. A test of its own: a fork must come before Qt
// paints, which starts threads that the new process would lack.
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"
#include "support/WebServer.h"

#include <sys/wait.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class EditDBKillTest : public OpenedDatabase {
    Q_OBJECT

private slots:
    void initTestCase() { start(); }
    void cleanupTestCase() { end(); }

    void killed_during_the_download_it_leaves_the_old_copy_and_no_other_file() {
        opened->world.folder.write(u"online_db.dat"_s, wario);
        bool hasHalf = false;
        WebServer server([&](QTcpSocket& client, const QByteArray&) {
            const QByteArray answer = answerOf(tetris.repeated(1000));
            client.write(answer.first(answer.size() / 2));
            connect(&client, &QTcpSocket::bytesWritten, &client,
                    [&] { hasHalf = client.bytesToWrite() == 0; });
        });
        useServer(server.address(QString()));
        const QStringList before = opened->world.folder.entries();
        const pid_t child = fork();
        if (child == 0) {
            server.stopListening();
            opened->open();
            click(main().chameleonButton3);
            _exit(1);
        }
        QVERIFY(child > 0);
        QTRY_VERIFY_WITH_TIMEOUT(hasHalf, 30000);
        QCOMPARE(kill(child, SIGKILL), 0);
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status)); // it was still waiting
        QCOMPARE(copy(), wario);
        QCOMPARE(opened->world.folder.entries(), before);
    }
    void the_next_start_downloads_as_ever() {
        useServer(QString());
        openDatabase(tetris);
        QCOMPARE(titles(), QStringList{u"TETRIS"_s});
        QCOMPARE(copy(), tetris + "\r\n");
        QCOMPARE(hiddenNames(), QStringList());
        QCOMPARE(messages().boxes.size(), 0);
    }
};

TORVANE_TEST(EditDBKillTest)
#include "EditDBKillTest.moc"
