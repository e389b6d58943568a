// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "downloads/TargetName.h"
#include "support/Table.h"

#include <QTest>

class tst_TargetName : public QObject {
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void rulesStandForThemselves_data();
    void rulesStandForThemselves();
};

namespace {

/// Directories and name joined by "/", or the refused part.
QByteArray textOf(const TargetName& target)
{
    if (target.refusal)
        return *target.refusal == TargetName::Refusal::Directory ? "(directory)" : "(name)";
    return (target.directories + QByteArrayList { target.name }).join('/');
}

constexpr NamingRules all { true, true, true };

} // namespace

void tst_TargetName::names_data()
{
    const auto row = table<QByteArray, QByteArray, QByteArray>("url", "contentType", "target");
    row("host, port and path", "http://x.y.z:8080/a/f.zip", "?", "z/y/x/8080/a/f.zip");
    row("without a port it is 80", "http://x.y.z/a/b/f.zip", "?", "z/y/x/80/a/b/f.zip");
    row("a query, its extension before its question mark", "http://h/f.cgi?id=1", "application/zip; x=y",
        "h/80/f.cgi%3Fid=1.zip");
    row("an unknown type", "http://h/f", "x/y", "h/80/f");
    row("the type is not trimmed", "http://h/f", "application/zip ;x", "h/80/f");
    // In other code pages than UTF-8 these bytes are visible letters.
    if (allgemein::fromSystem("\u202E") == QChar(0x202e)) {
        row("a name that reads backwards", "http://h/photo\u202Egpj.exe", "?", "h/80/photo%E2%80%AEgpj.exe");
        row("hidden characters", "http://h/a\u200B/b\u2028\x1b", "?", "h/80/a%E2%80%8B/b%E2%80%A8%1B");
    }
    row("no name", "http://h/a/", "?", "h/80/a/index");
    row("no name, but an extension", "http://h/a/", "text/html", "h/80/a/.htm");
    row("what Windows does not take", "http://h/<>|\"?*\\", "?", "h/80/%3C%3E%7C%22%3F%2A%5C");
    row("a slash in the query cuts the name there", "http://h/a?b=/c", "?", "h/80/a?b=/c");
    row("empty directories are none", "http://h//a///f", "?", "h/80/a/f");
    row("a directory with dots in it", "http://h/..a/b../f", "?", "h/80/..a/b../f");
    row("a separator in the host", "http://h/a:b", "?", "(directory)");
    row("NUL in the name", QByteArrayLiteral("http://h/a\0b"), "?", "(name)");
    row("directories without end", "http://h/" + QByteArray("a/").repeated(30'000), "?", "(directory)");
#ifdef Q_OS_WIN
    row("a device for a host", "http://nul/f", "?", "(directory)");
#endif
}

void tst_TargetName::names()
{
    QFETCH(QByteArray, url);
    QFETCH(QByteArray, contentType);
    QTEST(textOf(TargetName::of(url, contentType, all)), "target");
}

void tst_TargetName::rulesStandForThemselves_data()
{
    // The names without rules, with the extension, renamed, and with both.
    const auto row = table<QByteArray, QByteArray, QByteArrayList>("url", "directories", "names");
    const QByteArray refused = "(name)";
    const QByteArray longName(300, 'n');
    row("a plain name", "http://h/f", "h/80/", { "f", "f.zip", "f", "f.zip" });
    row("an extension", "http://h/f.zip", "h/80/", { "f.zip", "f.zip", "f.zip", "f.zip" });
    row("a query", "http://h/f?x", "h/80/", { "f?x", "f?x.zip", "f%3Fx", "f%3Fx.zip" });
    row("no name", "http://h:8/a/", "h/8/a/", { refused, ".zip", "index", ".zip" });
    row("dots", "http://a.b/c.d/..e", "b/a/80/c.d/", { "..e", "..e.zip", "..e", "..e.zip" });
    row("the name is up", "http://h/..", "h/80/", { refused, "...zip", refused, "...zip" });
    row("the host is up", "http://../f", "80/", { "f", "f.zip", "f", "f.zip" });
    row("percent signs", "http://h/a%2Fb", "h/80/", { "a%2Fb", "a%2Fb.zip", "a%2Fb", "a%2Fb.zip" });
    row("a backslash", "http://h/a\\b", "h/80/", { refused, refused, "a%5Cb", "a%5Cb.zip" });
    row("a very long name", "http://h/" + longName, "h/80/",
        { longName, longName + ".zip", longName, longName + ".zip" });
#ifdef Q_OS_WIN
    row("a device", "http://h/nul", "h/80/", { refused, refused, refused, refused });
#endif
}

void tst_TargetName::rulesStandForThemselves()
{
    QFETCH(QByteArray, url);
    QFETCH(QByteArray, directories);
    QFETCH(QByteArrayList, names);
    for (int rules = 0; rules < 8; ++rules) {
        const NamingRules naming { (rules & 4) != 0, (rules & 1) != 0, (rules & 2) != 0 };
        const QByteArray& name = names[rules & 3];
        const QByteArray expected = naming.dirByUrl && name != "(name)" ? directories + name : name;
        QCOMPARE(textOf(TargetName::of(url, "application/zip", naming)), expected);
    }
}

QTEST_APPLESS_MAIN(tst_TargetName)

#include "tst_TargetName.moc"
