// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/httpHeader.h"
#include "support/PlainExtras.h"
#include "support/Table.h"

#include <QTest>

class tst_httpHeader : public QObject {
    Q_OBJECT

private slots:
    void requestsWithEveryLineInOrder();
    void readsFields_data();
    void readsFields();
    void readsStatus_data();
    void readsStatus();
};

void tst_httpHeader::requestsWithEveryLineInOrder()
{
    PlainExtras extras;
    extras.userAgent = "";
    extras.languages = "de;q=1";
    extras.cookies = "Cookie: a=1\r\n";
    extras.referer = true;
    const QByteArray start =
        "GET /a%0D%0Ab?c HTTP/1.1\r\nHost: h%0D%0Ai\r\nAccept: */*\r\nConnection: close\r\nUser-Agent: \r\n"
        "Accept-Language: de;q=1\r\nCookie: a=1\r\n";
    const QByteArray url = "http://h\r\ni:8080/a\r\nb?c";
    QCOMPARE(httpHeader::baueAnfrage(url, "http://ref/\r\nx", extras), start + "Referer: http://ref/%0D%0Ax\r\n\r\n");
    QCOMPARE(httpHeader::baueAnfrage(url, "", extras), start + "\r\n");
}

void tst_httpHeader::readsFields_data()
{
    const auto row = table<QByteArray, QByteArray, qint64, QByteArray, QByteArray, QByteArray>(
        "fields", "type", "length", "language", "location", "cookie");
    row("no fields", "", "?", -1, "", "", "");
    row("all fields",
        "Content-Type: text/html; charset=x\r\nContent-Length: 12\r\nContent-Language: de\r\nLocation: /x\r\n"
        "Set-Cookie: a=1; path=/\r\n",
        "text/html; charset=x", 12, "de", "/x", "a=1; path=/");
    row("names in other cases", "content-type: a\r\nCONTENT-LENGTH: 7\r\ncontent-language: fr\r\nlocation: y\r\n", "a",
        7, "fr", "y", "");
    row("no blank behind the colon", "Content-Type:a\r\nContent-Length:7\r\nLocation:y\r\n", "?", -1, "", "", "");
    row("the first of two", "Set-Cookie: a=1\r\nSet-Cookie: b=2\r\n", "?", -1, "", "", "a=1");
    row("a longer name in front", "Content-Location: /wrong\r\nLocation: /right\r\n", "?", -1, "", "/wrong", "");
    row("inside another value", "X-Note: Content-Type: a\r\nContent-Type: b\r\n", "a", -1, "", "", "");
    row("a length behind blanks", "Content-Length:   9 \r\n", "?", 9, "", "", "");
    row("a CR alone ends some values", "Content-Language: a\rb\r\nContent-Type: c\rd\r\n", "c\rd", -1, "a", "", "");
    row("an LF alone ends none", "Content-Language: a\nb\r\n", "?", -1, "a\nb", "", "");
    row("empty values", "Content-Type: \r\nContent-Length: \r\nContent-Language: \r\n", "", 0, "", "", "");
}

void tst_httpHeader::readsFields()
{
    QFETCH(QByteArray, fields);
    const QByteArray header = "HTTP/1.1 200 OK\r\n" + fields;
    QTEST(httpHeader::contentType(header), "type");
    QTEST(httpHeader::contentLength(header), "length");
    QTEST(httpHeader::contentLanguage(header), "language");
    QTEST(httpHeader::location(header), "location");
    QTEST(httpHeader::setCookie(header), "cookie");
}

void tst_httpHeader::readsStatus_data()
{
    const auto row = table<QByteArray, qint32>("header", "status");
    row("with a reason", "HTTP/1.1 404 Not Found\r\n", 404);
    row("version 1.0", "HTTP/1.0 200 OK\r\n", 200);
    row("no reason, another blank behind", "HTTP/1.1 302\r\nLocation: /x\r\n", 302);
    row("no reason, no other blank", "HTTP/1.1 204\r\n", 204);
    row("two blanks", "HTTP/1.1  200 OK\r\n", 0);
    row("small letters", "http/1.1 200 OK\r\n", 0);
    row("not a number", "HTTP/1.1 OK 200\r\n", 0);
    row("beyond 32 bits", "HTTP/1.1 99999999999 OK\r\n", 0);
    row("text in front", "ICY HTTP/1.1 200 OK\r\n", 200);
    row("no blank at all", "HTTP/1.1\r\n", 0);
    row("empty", "\r\n", 0);
}

void tst_httpHeader::readsStatus()
{
    QFETCH(QByteArray, header);
    QTEST(httpHeader::statusCode(header), "status");
}

QTEST_GUILESS_MAIN(tst_httpHeader)
#include "tst_httpHeader.moc"
