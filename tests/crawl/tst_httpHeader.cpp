// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/httpHeader.h"
#include "support/PlainExtras.h"

#include <QTest>

/// How requests are written. How headers are read is judged by the independent walk.
class tst_httpHeader : public QObject {
    Q_OBJECT

private slots:
    void requestsWithEveryLineInOrder();
};

void tst_httpHeader::requestsWithEveryLineInOrder()
{
    PlainExtras extras;
    extras.userAgent = "";
    extras.languages = "de;q=1";
    extras.cookies = "Cookie: a=1\r\n";
    extras.referer = true;
    const QByteArray start =
        "GET /a%0D%0Ab?c HTTP/1.1\r\nHost: h\r\nAccept: */*\r\nConnection: close\r\nUser-Agent: \r\n"
        "Accept-Language: de;q=1\r\nCookie: a=1\r\n";
    const QByteArray url = "http://h:8080/a\r\nb?c";
    QCOMPARE(httpHeader::baueAnfrage(url, "http://ref/", extras), start + "Referer: http://ref/\r\n\r\n");
    QCOMPARE(httpHeader::baueAnfrage(url, "", extras), start + "\r\n");
}

QTEST_GUILESS_MAIN(tst_httpHeader)
#include "tst_httpHeader.moc"
