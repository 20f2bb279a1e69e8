// SPDX-License-Identifier: MIT
// Where a server may send a download, and which servers are trusted.
#include "support/InetFixture.h"
#include "support/TestMain.h"

#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
QByteArray redirectTo(const QString& target, const QByteArray& status = "302 Found") {
    return answerOf("<h1>Moved</h1>", status, "Location: " + target.toUtf8() + "\r\n");
}

// "/3" leads to "/2", "/2" to "/1", "/1" to "/0", which is the file.
void countDown(QTcpSocket& client, const QByteArray& path) {
    const int left = path.mid(1).toInt();
    client.write(left == 0 ? answerOf("there") : redirectTo(u"/%1"_s.arg(left - 1)));
    client.disconnectFromHost();
}
} // namespace

class InetRedirectsTest : public QObject {
    Q_OBJECT

    FakeDesktop world;
    std::unique_ptr<InetForm> form;
    TestFolder keys;
    const QSslConfiguration usualTrust = QSslConfiguration::defaultConfiguration();

    Fetched from(const QString& address) { return fetched(form->down, address); }
    Fetched from(const WebServer& server) { return from(server.address()); }

    // A server's certificate for a name, signed by itself, and its key.
    QSslConfiguration identityOf(const QString& name, int days = 1) {
        QProcess::execute(u"openssl"_s,
                          {u"req"_s, u"-x509"_s, u"-nodes"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
                           u"ec_paramgen_curve:prime256v1"_s, u"-keyout"_s, keys.path(u"key"_s), u"-out"_s,
                           keys.path(u"certificate"_s), u"-days"_s, QString::number(days), u"-subj"_s,
                           u"/CN="_s + name, u"-addext"_s, u"subjectAltName="_s + name});
        QSslConfiguration identity = usualTrust;
        identity.setLocalCertificate(QSslCertificate(keys.read(u"certificate"_s)));
        identity.setPrivateKey(QSslKey(keys.read(u"key"_s), QSsl::Ec));
        return identity;
    }
    void trust(const QSslConfiguration& identity) {
        QSslConfiguration trusting = usualTrust;
        trusting.addCaCertificate(identity.localCertificate());
        QSslConfiguration::setDefaultConfiguration(trusting);
    }

private slots:
    void init() {
        form = std::make_unique<InetForm>(world.runtime);
        form->down.setLimits({.silenceMilliseconds = 2000});
    }
    void cleanup() {
        form.reset();
        QSslConfiguration::setDefaultConfiguration(usualTrust);
    }

    void a_redirect_is_followed_data() {
        QTest::addColumn<QByteArray>("status");
        for (const char* status : {"301 A", "302 B", "303 C", "307 D", "308 E"}) {
            QTest::newRow(status) << QByteArray(status);
        }
    }
    void a_redirect_is_followed() {
        QFETCH(QByteArray, status);
        const WebServer there(answerOf("there"));
        QCOMPARE(from(WebServer(redirectTo(there.address(), status))).body, "there");
    }
    void a_redirect_without_a_target_is_a_body_like_any_other() {
        QCOMPARE(from(WebServer(answerOf("<h1>Moved</h1>", "302 Found"))).body, "<h1>Moved</h1>");
    }
    void five_redirects_are_followed_and_a_sixth_is_not() {
        const WebServer server(countDown);
        QCOMPARE(from(server.address(u"/5"_s)).body, "there");
        QCOMPARE(server.requests.size(), 6);
        QCOMPARE(from(server.address(u"/6"_s)).failure, deviceError);
        QCOMPARE(server.requests.size(), 12);
        QCOMPARE(from(server.address(u"/5"_s)).body, "there"); // each download counts anew
    }
    void redirects_in_a_circle_end() {
        const WebServer server(redirectTo(u"?again"_s));
        QCOMPARE(from(server).failure, deviceError);
        QCOMPARE(server.requests.size(), 6);
    }
    void a_redirect_to_anything_but_a_web_address_is_a_failure_data() {
        QTest::addColumn<QString>("target");
        QTest::newRow("file") << u"file://"_s + keys.write(u"secret.txt"_s, "secret");
        QTest::newRow("file in capitals") << u"FILE://"_s + keys.path(u"secret.txt"_s);
        for (const char* target : {"ftp://127.0.0.1/x", "data:text/plain,x", "qrc:/x", "javascript:1",
                                   "http://", "https:///x", "http://[bad/x"}) {
            QTest::newRow(target) << QString::fromLatin1(target);
        }
    }
    void a_redirect_to_anything_but_a_web_address_is_a_failure() {
        QFETCH(QString, target);
        const WebServer server(redirectTo(target));
        const Fetched result = from(server);
        QCOMPARE(result.failure, deviceError);
        QCOMPARE(server.requests.size(), 1);
    }

    void a_trusted_secure_server_is_read_also_after_a_redirect() {
        const QSslConfiguration identity = identityOf(u"IP:127.0.0.1"_s);
        trust(identity);
        const WebServer secure(WebServer::saying(answerOf("secure")), identity);
        QCOMPARE(from(secure).body, "secure");
        QCOMPARE(from(WebServer(redirectTo(secure.address()))).body, "secure");
    }
    void a_secure_server_may_not_lead_to_an_open_one() {
        const QSslConfiguration identity = identityOf(u"IP:127.0.0.1"_s);
        trust(identity);
        const WebServer open(answerOf("open"));
        const WebServer secure(WebServer::saying(redirectTo(open.address())), identity);
        QCOMPARE(from(secure).failure, deviceError);
        QCOMPARE(secure.requests.size(), 1);
        QCOMPARE(open.requests.size(), 0);
    }
    void a_server_that_signed_its_own_certificate_is_not_read() {
        const WebServer secure(WebServer::saying(answerOf("forged")), identityOf(u"IP:127.0.0.1"_s));
        QCOMPARE(from(secure).failure, deviceError);
        QCOMPARE(from(WebServer(redirectTo(secure.address()))).failure, deviceError);
        QCOMPARE(secure.requests.size(), 0);
    }
    void a_certificate_for_another_name_is_not_accepted() {
        const QSslConfiguration identity = identityOf(u"DNS:other.example"_s);
        trust(identity);
        const WebServer secure(WebServer::saying(answerOf("forged")), identity);
        QCOMPARE(from(secure).failure, deviceError);
        QCOMPARE(secure.requests.size(), 0);
    }
    void a_reset_of_a_secure_line_is_a_failure_and_its_end_is_none() {
        const QSslConfiguration identity = identityOf(u"IP:127.0.0.1"_s);
        trust(identity);
        const QByteArray answer = "HTTP/1.1 200 OK\r\n\r\nfive!";
        QCOMPARE(from(WebServer(WebServer::saying(answer), identity)).body, "five!");
        QCOMPARE(from(WebServer(WebServer::breakingOffAfter(answer), identity)).failure, deviceError);
    }
    void a_large_body_over_a_secure_line_arrives_whole() {
        const QSslConfiguration identity = identityOf(u"IP:127.0.0.1"_s);
        trust(identity);
        QByteArray body(5 << 20, '\0');
        for (qsizetype i = 0; i < body.size(); ++i) body[i] = static_cast<char>(i * 31 >> 7);
        QCOMPARE(from(WebServer(WebServer::saying(answerOf(body)), identity)).body, body);
    }
};

TORVANE_TEST(InetRedirectsTest)
#include "InetRedirectsTest.moc"
