// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LanguageFile.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "downloads/EntryText.h"
#include "results/twk.h"
#include "session/Settings.h"
#include "support/Table.h"
#include "support/Text.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using Step = LanguageFile::Step;

class tst_lang : public QObject {
    Q_OBJECT

private slots:
    void languagesHaveTheSameKeys_data();
    void languagesHaveTheSameKeys();
    void frenchTextsUseProtectedSpaces();
    void frenchLabelsStandApartFromTheirValues_data();
    void frenchLabelsStandApartFromTheirValues();
    void selectsBuiltInLanguages();
    void knowsTheLanguageOfALocale();
    void readsLanguageFiles_data();
    void readsLanguageFiles();
    void stopsAtUnknownKeys();

private:
    [[nodiscard]] QString fileWith(const QByteArray& content) const;

    QTemporaryDir m_folder;
};

namespace {

using Texts = QList<QPair<QByteArray, QString>>;

Texts textsOf(const char* fileName)
{
    Texts texts;
    for (const QByteArray& line : contentOf(QLatin1String(":/languages/") + QLatin1String(fileName)).split('\n')) {
        if (const auto pair = allgemein::splitKeyValue(line))
            texts += { pair->key, QString::fromUtf8(pair->value) };
    }
    return texts;
}

/// A caption without the marks that may differ between translations of one word.
QString bare(QString text)
{
    return text.remove(u'&').remove(QChar(QChar::Nbsp)).remove(u' ');
}

} // namespace

QString tst_lang::fileWith(const QByteArray& content) const
{
    const QString name = m_folder.filePath(QStringLiteral("x.lng"));
    return writeFile(name, content) ? name : QString();
}

void tst_lang::languagesHaveTheSameKeys_data()
{
    QTest::addColumn<QByteArray>("english");
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<QString>("sameWords");
    const auto row = [](const char* english, const char* other, const char* sameWords) {
        QTest::newRow(other) << QByteArray(english) << QByteArray(other) << QString::fromLatin1(sameWords);
    };
    row("english.lng", "german.lng",
        "Filter Details Status Url URL: URL Links(linkhref) Frames(framesrc) Cookies OK Start");
    row("english.lng", "french.lng", "Options URL: URL Cookies OK Question");
    row("more_english.lng", "more_german.lng", "%1:%2");
    row("more_english.lng", "more_french.lng", "%1,version%2 %1:%2");
}

void tst_lang::languagesHaveTheSameKeys()
{
    QFETCH(QByteArray, english);
    QFETCH(QByteArray, other);
    QFETCH(QString, sameWords);
    const QStringList same = sameWords.split(u' ');
    const Texts expected = textsOf(english.constData());
    const Texts texts = textsOf(other.constData());
    QVERIFY(!texts.isEmpty());
    QCOMPARE(texts.size(), expected.size());
    for (qsizetype index = 0; index < texts.size(); ++index) {
        const auto& [key, text] = texts[index];
        QCOMPARE(key, expected[index].first);
        QVERIFY2(!text.isEmpty(), key.constData());
        QVERIFY2(bare(text) != bare(expected[index].second) || same.contains(bare(text)), key.constData());
        // A translation keeps the dots of a command that opens a dialog, and the places for values.
        for (const char* piece : { "...", ":", "%1", "%2" }) {
            const QLatin1String mark(piece);
            const bool both = text.endsWith(mark) == expected[index].second.endsWith(mark);
            QVERIFY2(both || piece[0] == '%', key.constData());
            QVERIFY2(piece[0] != '%' || text.contains(mark) == expected[index].second.contains(mark), key.constData());
        }
    }
}

void tst_lang::frenchTextsUseProtectedSpaces()
{
    // A mark that ends a word has U+00A0 before it, a quotation mark inside of it. "http://" ends no word.
    const QRegularExpression fault(QStringLiteral("[^\\x{00A0}][!?;»]|[^\\x{00A0}]:(\\s|$)|«[^\\x{00A0}]|’"));
    for (const auto& [key, text] : textsOf("french.lng") + textsOf("more_french.lng"))
        QVERIFY2(!text.contains(fault), key.constData());
}

void tst_lang::frenchLabelsStandApartFromTheirValues_data()
{
    LanguageTable french;
    french.selectBuiltIn(LanguageTable::French);
    using searchFile::LoadError;
    const FileError reason { FileError::System, QStringLiteral("x") };
    const auto row = table<QString>("text");
    row("a file that cannot be opened", twk::errorText({ LoadError::CannotOpen, reason, {} }, french));
    row("a file that cannot be read", twk::errorText({ LoadError::CannotRead, reason, {} }, french));
    row("another file", twk::errorText({ LoadError::NotASearchFile, {}, {} }, french));
    row("a skipped line", twk::warningText({ 1, searchFile::SkippedLine::UnknownKey, "x" }, french));
    const auto netError = [&french](const ExchangeFailure& failure) {
        return twk::stateText({ FetchEvent::NetError, {}, failure }, french);
    };
    row("a socket error", netError({ ExchangeFailure::System, 0, QStringLiteral("x") }));
    row("a bad port", netError({ ExchangeFailure::BadPort, 99999 }));
    row("silence", netError({ ExchangeFailure::Silence, 20 }));
    row("an unknown setting", settings::report({ "x", 1, 1, false, {} }, french)->text.section(u'\n', 0, 0));
    DownloadEntry entry;
    entry.status = DownloadStatus::NetError;
    entry.failure = ExchangeFailure { ExchangeFailure::System, 0, QStringLiteral("x") };
    row("a failed download", entryText::reason(entry, french));
}

void tst_lang::frenchLabelsStandApartFromTheirValues()
{
    QFETCH(QString, text);
    static const QRegularExpression closeColon(QStringLiteral("[^\u00A0]: "));
    QVERIFY2(text.contains(QStringLiteral("\u00A0: ")) && !text.contains(closeColon), qPrintable(text));
}

void tst_lang::selectsBuiltInLanguages()
{
    LanguageTable table;
    QSignalSpy changed(&table, &LanguageTable::changed);
    QCOMPARE(table.keys().size(), 214); // The number of keys that language files can set.
    QCOMPARE(table.text("lang.search_noSearch"), QStringLiteral("no Search"));
    table.selectBuiltIn(LanguageTable::German);
    QCOMPARE(table.text("lang.netConnecting"), QStringLiteral("Verbindungsaufbau"));
    QVERIFY(table.set("lang.dlComplete", QStringLiteral("x")));
    table.selectBuiltIn(3);
    table.selectBuiltIn(-1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(table.text("lang.dlComplete"), QStringLiteral("x"));
    table.selectBuiltIn(LanguageTable::French);
    QCOMPARE(table.text("lang.helpfile"), QStringLiteral("français.html"));
    QCOMPARE(
        table.labelled(table.text("lang.search_depth"), QStringLiteral("2")), QStringLiteral("Profondeur\u00a0: 2"));
    QCOMPARE(table.text("lang.nothing"), QString());
    QCOMPARE(LanguageTable::plain(QStringLiteral("Save &as ...")), QStringLiteral("Save as"));
}

void tst_lang::knowsTheLanguageOfALocale()
{
    QCOMPARE(LanguageTable::builtInFor(QLocale(QStringLiteral("de_AT"))), int { LanguageTable::German });
    QCOMPARE(LanguageTable::builtInFor(QLocale(QStringLiteral("fr_CA"))), int { LanguageTable::French });
    QCOMPARE(LanguageTable::builtInFor(QLocale(QStringLiteral("it_IT"))), int { LanguageTable::English });
}

void tst_lang::readsLanguageFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("quit");
    const auto row = [](const char* title, const QByteArray& content, const char* quit) {
        QTest::newRow(title) << content << QString::fromUtf8(quit);
    };
    row("the end of a Windows line", "main.m_quit=Done\r\n", "Done");
    row("the last line without an end", "main.m_quit=Done", "Done");
    row("others keep what they were", "lang.dlComplete=Done", "&Beenden");
    row("an equals sign in the text", "main.m_quit=a=b", "a=b");
    row("blanks belong to the text", "main.m_quit= a ", " a ");
    row("no equals sign", "main.m_quit\n", "&Beenden");
    row("a comment", "//main.m_quit=x\n", "&Beenden");
    row("the last of two", "main.m_quit=a\nmain.m_quit=b\n", "b");
    row("a line that is too long", "main.m_quit=a\nmain.m_quit=" + QByteArray(200'000, 'x') + "\n", "a");
    row("UTF-8 without a mark", "main.m_quit=\xc3\xa9\n", "\xc3\xa9");
    row("marked as UTF-8", "\xef\xbb\xbfmain.m_quit=\xc3\xa9\n", "\xc3\xa9");
}

void tst_lang::readsLanguageFiles()
{
    QFETCH(QByteArray, content);
    LanguageTable table;
    table.selectBuiltIn(LanguageTable::German);
    QSignalSpy changed(&table, &LanguageTable::changed);
    LanguageFile file(fileWith(content), table);
    QCOMPARE(file.read(), Step::End);
    QCOMPARE(changed.count(), 1);
    QTEST(table.text("main.m_quit"), "quit");
}

void tst_lang::stopsAtUnknownKeys()
{
    LanguageTable table;
    LanguageFile file(fileWith(QByteArray(200'000, 'x')
                          + "\nmain.m_help=1\nMain.m_quit=x\nmore.hintNew=y\nmore.x=z\nmain.m_quit=2\n"),
        table);
    QCOMPARE(file.read(), Step::UnknownKey);
    QCOMPARE(file.key(), "Main.m_quit");
    QVERIFY(file.place().endsWith(QLatin1String(":3")));
    QCOMPARE(table.text("main.m_help"), QStringLiteral("1"));
    QCOMPARE(table.text("main.m_quit"), QStringLiteral("E&xit"));
    QCOMPARE(file.read(), Step::UnknownKey);
    QCOMPARE(file.key(), "more.x");
    QCOMPARE(table.text("more.hintNew"), QStringLiteral("y"));
    QCOMPARE(file.read(), Step::End);
    QCOMPARE(table.text("main.m_quit"), QStringLiteral("2"));
}

QTEST_GUILESS_MAIN(tst_lang)

#include "tst_lang.moc"
