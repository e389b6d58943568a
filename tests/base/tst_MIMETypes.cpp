// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/MIMETypes.h"
#include "support/Table.h"

#include <QTest>

class tst_MIMETypes : public QObject {
    Q_OBJECT

private slots:
    void putsExtensionBehindName_data();
    void putsExtensionBehindName();
    void addsGivenExtensionOnce();
    void recognisesHtml();
};

void tst_MIMETypes::putsExtensionBehindName_data()
{
    const auto row = table<QByteArray, QByteArray, QByteArray>("name", "type", "result");
    row("extension in another case", "report.DOC", "application/msword", "report.DOC.doc");
    row("preferred extension there", "page.htm", "text/html", "page.htm");
    row("another extension of the type", "photo.jpg", "image/jpeg", "photo.jpg");
    row("no extension", "data", "application/octet-stream", "data.bin");
    row("name that is the extension", "jpg", "image/jpeg", "jpg.jpeg");
    row("unknown type", "a", "application/unknown", "a");
    row("empty type", "a", "", "a");
    row("type in another case", "photo", "image/JPEG", "photo");
    row("type whose row is cut short", "a", "application/x-shockwave-flash", "a");
    row("the cut row itself", "a", "application/x-shockwave-flas", "a.swf");
    row("first row", "a", "application/acad", "a.dwg");
    row("last row", "a", "x-world/x-vrml", "a.wrl");
    row("two types with one list", "a", "application/x-troff-ms", "a.me");
}

void tst_MIMETypes::putsExtensionBehindName()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, type);
    QTEST(MIMETypes::extensionByMIME(name, type), "result");
}

void tst_MIMETypes::addsGivenExtensionOnce()
{
    QCOMPARE(MIMETypes::addExtension("a.twk", "twk"), "a.twk");
    QCOMPARE(MIMETypes::addExtension("a.TWK", "twk"), "a.TWK.twk");
    QCOMPARE(MIMETypes::addExtension("twk", "twk"), "twk.twk");
}

void tst_MIMETypes::recognisesHtml()
{
    QVERIFY(MIMETypes::isHTML("text/html"));
    QVERIFY(MIMETypes::isHTML("text/html; charset=utf-8"));
    QVERIFY(!MIMETypes::isHTML("TEXT/HTML"));
    QVERIFY(!MIMETypes::isHTML(" text/html"));
    QVERIFY(!MIMETypes::isHTML("?"));
}

QTEST_GUILESS_MAIN(tst_MIMETypes)
#include "tst_MIMETypes.moc"
