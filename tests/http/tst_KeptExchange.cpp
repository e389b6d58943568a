// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/Connections.h"
#include "http/HttpExchange.h"
#include "http/newExchange.h"
#include "http/WebRules.h"
#include "http/webRequest.h"
#include "support/PlainExtras.h"
#include "support/ScriptedServer.h"
#include "support/Table.h"

#include <QTest>

#include <memory>
#include <optional>

using Failure = ExchangeFailure;

/// Exchanges over connections that are used again, with and without TLS.
class tst_KeptExchange : public QObject {
    Q_OBJECT

private slots:
    void init();
    void usesOneConnectionForAll_data();
    void usesOneConnectionForAll();
    void closesAfterAnyDoubt_data();
    void closesAfterAnyDoubt();
    void skipsShortRests_data();
    void skipsShortRests();
    void asksAgainWhenAKeptConnectionWasClosed();
    void checksCertificates_data();
    void checksCertificates();
    void exceptsAHost();
    void givesUp_data();
    void givesUp();
    void writesRequests_data();
    void writesRequests();
    void limitsReferers_data();
    void limitsReferers();

private:
    struct Outcome {
        int status = 0;
        QByteArray body = {};
        std::optional<BodyEnd> end = {};
        std::optional<Failure> failure = {};
    };
    /// One exchange to its end. `wantsBody` is false for one that skips what follows the header.
    Outcome fetch(const QByteArray& url, bool wantsBody = true);

    WebRules m_rules;
    std::unique_ptr<Connections> m_connections;
    PlainExtras m_extras;
};

void tst_KeptExchange::init()
{
    m_rules = WebRules::modern();
    m_rules.proxy = QStringLiteral("none");
    m_rules.certificateFile = QStringLiteral(TARNWICK_CERTIFICATES "/authority.pem");
    m_connections = std::make_unique<Connections>(m_rules);
}

tst_KeptExchange::Outcome tst_KeptExchange::fetch(const QByteArray& url, bool wantsBody)
{
    Outcome outcome;
    const std::unique_ptr<HttpExchange> exchange = newExchange(*m_connections);
    connect(exchange.get(), &HttpExchange::connected, this, [&] { exchange->request(url, {}, m_extras); });
    connect(exchange.get(), &HttpExchange::headerArrived, this, [&](const AnswerHead& head) {
        outcome.status = head.status;
        if (!wantsBody)
            exchange->skipRest();
    });
    connect(exchange.get(), &HttpExchange::bodyArrived, this, [&](const QByteArray& piece) { outcome.body += piece; });
    connect(exchange.get(), &HttpExchange::closed, this, [&](BodyEnd end) { outcome.end = end; });
    connect(exchange.get(), &HttpExchange::failed, this, [&](const Failure& failure) { outcome.failure = failure; });
    exchange->start(url);
    const bool hasEnded = QTest::qWaitFor([&] { return outcome.end || outcome.failure; }, 20'000);
    Q_ASSERT(hasEnded);
    return outcome;
}

Answer kept(const QByteArray& fieldsAndBody)
{
    return { { "HTTP/1.1 200 OK\r\n" + fieldsAndBody }, Afterwards::Keep };
}

void tst_KeptExchange::usesOneConnectionForAll_data()
{
    const auto add = table<bool>("isSecure");
    add("http", false);
    add("https", true);
}

void tst_KeptExchange::usesOneConnectionForAll()
{
    QFETCH(bool, isSecure);
    if (isSecure && *ScriptedServer::withoutTls())
        QSKIP(ScriptedServer::withoutTls());
    const auto server = isSecure ? std::make_unique<ScriptedServer>("good") : std::make_unique<ScriptedServer>();
    server->script("/length", kept("Content-Length: 5\r\n\r\nhello"));
    server->script("/chunks", kept("Transfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n2\r\nde\r\n0\r\n\r\n"));
    server->script("/none", { { "HTTP/1.1 204 None\r\n\r\n" }, Afterwards::Keep });
    server->script("/hints",
        { { "HTTP/1.1 103 Hints\r\nLink: x\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok" },
            Afterwards::Keep });
    for (const auto& [path, status, body] :
        std::initializer_list<std::tuple<QByteArray, int, QByteArray>> {
            { "/length", 200, "hello" }, { "/chunks", 200, "abcde" }, { "/none", 204, "" }, { "/hints", 200, "ok" } }) {
        const Outcome outcome = fetch(server->origin() + path);
        QCOMPARE(outcome.status, status);
        QCOMPARE(outcome.body, body);
        QVERIFY(outcome.end == BodyEnd::Whole);
    }
    QCOMPARE(server->acceptedCount(), 1);
}

void tst_KeptExchange::closesAfterAnyDoubt_data()
{
    const auto add = table<QByteArray, int>("answer", "failure");
    constexpr int none = -1;
    add("the server says that it closes", "Connection: close\r\nContent-Length: 1\r\n\r\nx", none);
    add("more than was announced", "Content-Length: 1\r\n\r\nxHTTP/1.1 200 OK\r\n", none);
    add("a length and chunks", "Content-Length: 1\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n", none);
    add("two lengths", "Content-Length: 1\r\nContent-Length: 2\r\n\r\nx", Failure::AnswerInDoubt);
    add("a broken chunk", "Transfer-Encoding: chunked\r\n\r\nzz\r\n", Failure::AnswerInDoubt);
}

void tst_KeptExchange::closesAfterAnyDoubt()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, failure);
    ScriptedServer server;
    server.script("/", kept(answer));
    const Outcome outcome = fetch(server.origin() + "/");
    QCOMPARE(outcome.failure ? outcome.failure->kind : -1, failure);
    QTRY_COMPARE(server.connectionCount(), 0);
    QCOMPARE(fetch(server.origin() + "/elsewhere").status, 404);
    QCOMPARE(server.acceptedCount(), 2);
}

void tst_KeptExchange::skipsShortRests_data()
{
    const auto add = table<int, bool, int>("size", "isAnnounced", "connections");
    add("a short one", 60'000, true, 1);
    add("a short one in chunks", 60'000, false, 1);
    add("a long one", 70'000, true, 2);
    add("a long one in chunks", 400'000, false, 2);
}

void tst_KeptExchange::skipsShortRests()
{
    QFETCH(int, size);
    QFETCH(bool, isAnnounced);
    const QByteArray body(size, 'x');
    ScriptedServer server;
    const QByteArray announced = "Content-Length: " + QByteArray::number(size) + "\r\n\r\n" + body;
    const QByteArray chunk = QByteArray::number(size, 16) + "\r\n" + body + "\r\n";
    server.script("/", kept(isAnnounced ? announced : "Transfer-Encoding: chunked\r\n\r\n" + chunk + "0\r\n\r\n"));
    for (int times = 0; times < 2; ++times) {
        const Outcome outcome = fetch(server.origin() + "/", false);
        QCOMPARE(outcome.status, 200);
        QCOMPARE(outcome.body, "");
        QVERIFY(outcome.end);
    }
    QTEST(server.acceptedCount(), "connections");
}

void tst_KeptExchange::asksAgainWhenAKeptConnectionWasClosed()
{
    ScriptedServer server;
    server.script("/", kept("Content-Length: 2\r\n\r\nok"));
    // The server closes the connection when the second request arrives, once.
    server.script("/late", { {}, Afterwards::Close });
    QCOMPARE(fetch(server.origin() + "/").body, "ok");
    const Outcome outcome = fetch(server.origin() + "/late");
    QVERIFY(outcome.failure);
    // The request was sent on the kept connection and on a new one, and not a third time.
    QCOMPARE(server.paths(), (QByteArrayList { "/", "/late", "/late" }));
    QCOMPARE(server.acceptedCount(), 2);
}

void tst_KeptExchange::checksCertificates_data()
{
    const auto add = table<QByteArray, bool, int>("certificate", "knowsAuthority", "failure");
    add("signed by an authority that is not known", "good", false, Failure::CertificateOfUnknown);
    add("issued for another name", "other", true, Failure::CertificateOfOther);
    add("expired", "expired", true, Failure::CertificateExpired);
    add("self-signed", "self", true, Failure::CertificateSelfSigned);
    add("no TLS at all", "", true, Failure::NoTls);
}

void tst_KeptExchange::checksCertificates()
{
    if (*ScriptedServer::withoutTls())
        QSKIP(ScriptedServer::withoutTls());
    QFETCH(QByteArray, certificate);
    QFETCH(bool, knowsAuthority);
    QFETCH(int, failure);
    if (!knowsAuthority)
        m_rules.certificateFile.clear();
    const auto server = certificate.isEmpty() ? std::make_unique<ScriptedServer>()
                                              : std::make_unique<ScriptedServer>(certificate.constData());
    server->answerUnasked({ { "HTTP/1.1 400 Bad\r\n\r\n" } });
    const Outcome outcome = fetch("https://127.0.0.1:" + QByteArray::number(server->serverPort()) + "/");
    QVERIFY(outcome.failure);
    QVERIFY2(outcome.failure->kind == failure, qPrintable(outcome.failure->detail));
    QCOMPARE(outcome.failure->kind, static_cast<Failure::Kind>(failure));
    QCOMPARE(server->requests(), QByteArrayList());
}

void tst_KeptExchange::exceptsAHost()
{
    if (*ScriptedServer::withoutTls())
        QSKIP(ScriptedServer::withoutTls());
    ScriptedServer server("expired");
    m_rules.exceptedHosts = { "127.0.0.1" };
    QCOMPARE(fetch(server.origin() + "/").status, 404);
    m_rules.exceptedHosts = { "other.example" };
    m_connections->reset();
    QVERIFY(fetch(server.origin() + "/").failure);
}

void tst_KeptExchange::givesUp_data()
{
    const auto add = table<QByteArray, Answer, int>("url", "answer", "failure");
    add("a server that says nothing", "", { {}, Afterwards::Stall }, Failure::Silence);
    add("a server that stops in its header", "", { { "HTTP/1.1 200 OK\r\n" }, Afterwards::Stall }, Failure::Silence);
    add("a server that stops in its body", "", kept("Content-Length: 5\r\n\r\nab"), Failure::Silence);
    add("a body that is cut", "", { { "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nab" } }, Failure::AnswerCut);
    add("another protocol", "", { { "SSH-2.0-x\r\n" } }, Failure::AnswerNoHttp);
    add("nothing at all", "", { {} }, Failure::System);
    add("a port out of range", "http://127.0.0.1:70000/", {}, Failure::BadUrl);
    add("no host", "http:///x", {}, Failure::BadUrl);
    add("nobody listens", "http://127.0.0.1:1/", {}, Failure::System);
}

void tst_KeptExchange::givesUp()
{
    QFETCH(QByteArray, url);
    QFETCH(Answer, answer);
    m_rules.silenceLimit = std::chrono::seconds(1);
    ScriptedServer server;
    server.script("/", answer);
    const Outcome outcome = fetch(url.isEmpty() ? server.origin() + "/" : url);
    QVERIFY(outcome.failure);
    QTEST(static_cast<int>(outcome.failure->kind), "failure");
    QTRY_COMPARE(server.connectionCount(), 0);
}

void tst_KeptExchange::writesRequests_data()
{
    const auto add = table<QByteArray, QByteArray, QByteArray>("url", "target", "host");
    add("the port of the scheme is left out", "http://h:80/a", "/a", "h");
    add("another port is not", "http://h:443/a", "/a", "h:443");
    add("the port of https", "https://h:443/a?b", "/a?b", "h");
    add("no path", "https://h", "/", "h");
    add("a query without a path", "http://h?x=1", "/?x=1", "h");
    add("no fragment", "http://h/a#b?c", "/a", "h");
    add("no blanks and nothing beyond ASCII", "http://h/a b\xc3\xa4\t", "/a%20b%C3%A4%09", "h");
    add("what is encoded stays", "http://h/%20%zz", "/%20%zz", "h");
    add("no user and password", "http://me:secret@h:8080/", "/", "h:8080");
    add("an IPv6 address", "http://[::1]:8080/x", "/x", "[::1]:8080");
}

void tst_KeptExchange::writesRequests()
{
    QFETCH(QByteArray, url);
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, host);
    const auto origin = Origin::of(url);
    QVERIFY(origin);
    const QByteArray request = webRequest::text(url, *origin, {}, m_extras, {});
    const QByteArray start = "GET " + target + " HTTP/1.1\r\nHost: " + host + "\r\n";
    QCOMPARE(request.first(start.size()), start);
    QVERIFY(request.contains("\r\nAccept-Encoding: gzip\r\n") && request.endsWith("\r\n\r\n"));
    QVERIFY(!request.contains("secret"));
}

void tst_KeptExchange::limitsReferers_data()
{
    const auto add = table<QByteArray, QByteArray, QByteArray>("page", "url", "referer");
    add("the same origin gets the page", "http://h/a?b#c", "http://h:80/d", "http://h/a?b");
    add("another host gets the origin", "https://h/a", "https://i/", "https://h/");
    add("another port is another origin", "http://h:81/a", "http://h/", "http://h:81/");
    add("more security", "http://h/a", "https://h/", "http://h/");
    add("less security", "https://h/a", "http://h/", "");
    add("no page", "", "http://h/", "");
}

void tst_KeptExchange::limitsReferers()
{
    QFETCH(QByteArray, page);
    QFETCH(QByteArray, url);
    QTEST(webRequest::refererFor(url, page), "referer");
}

QTEST_GUILESS_MAIN(tst_KeptExchange)
#include "tst_KeptExchange.moc"
