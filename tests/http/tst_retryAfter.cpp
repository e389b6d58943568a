// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/retryAfter.h"
#include "support/Table.h"

#include <QDateTime>
#include <QTest>

class tst_retryAfter : public QObject {
    Q_OBJECT

private slots:
    void waits_data();
    void waits();
};

void tst_retryAfter::waits_data()
{
    const auto row = table<QByteArray, qint64>("value", "seconds");
    constexpr qint64 none = -1;
    constexpr qint64 most = 300;
    row("seconds", " 120 ", 120);
    row("none", "0", 0);
    row("more than the bound", "301", most);
    row("beyond 64 bits", "99999999999999999999", most);
    row("negative", "-5", none);
    row("a fraction", "1.5", none);
    row("nothing", "", none);
    row("the usual date", "Mon, 31 Dec 2029 23:59:30 GMT", 30);
    row("a date in small letters", "mon, 31 dec 2029 23:59:30 GMT", 30);
    row("the date with hyphens", "Monday, 31-Dec-29 23:59:30 GMT", 30);
    row("the date of C", "Mon Dec 31 23:59:30 2029", 30);
    row("a day of one digit", "Tue Jan  1 00:00:01 2030", 61);
    row("a past date", "Sun, 06 Nov 1994 08:49:37 GMT", 0);
    row("a far date", "Sun, 06 Nov 9994 08:49:37 GMT", most);
    row("a year of the last century", "Sunday, 06-Nov-94 08:49:37 GMT", 0);
    row("a year of two digits ahead", "Tuesday, 31-Dec-79 00:00:00 GMT", most);
    row("another zone", "Mon, 31 Dec 2029 23:59:30 CET", none);
    row("no such day", "Mon, 31 Feb 2029 23:59:30 GMT", none);
    row("no such hour", "Mon, 31 Dec 2029 24:59:30 GMT", none);
    row("signs in the time", "Mon, 31 Dec 2029 +3:59:30 GMT", none);
    row("no year", "Mon, 31 Dec 20x9 23:59:30 GMT", none);
    row("words", "in an hour", none);
}

void tst_retryAfter::waits()
{
    QFETCH(QByteArray, value);
    const QDateTime now({ 2029, 12, 31 }, { 23, 59, 0 }, Qt::UTC);
    const auto wait = retryAfter(value, now, std::chrono::seconds(300));
    QTEST(wait ? static_cast<qint64>(wait->count()) : qint64(-1), "seconds");
}

QTEST_GUILESS_MAIN(tst_retryAfter)
#include "tst_retryAfter.moc"
