// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Text.h"

#include <QDirIterator>
#include <QHash>
#include <QRegularExpression>
#include <QTest>

/// The floors of the house, from the ground. An include points to the same floor or down.
static const QStringList floors { QStringLiteral("base"), QStringLiteral("crawl"), QStringLiteral("requests"),
    QStringLiteral("downloads"), QStringLiteral("results"), QStringLiteral("app"), QStringLiteral("console") };

class tst_house : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void everyFolderIsAFloor();
    void includesPointDown();
    void noTwoFilesIncludeEachOther();

private:
    /// The project's own includes of each file, both as "folder/file".
    QHash<QString, QStringList> m_includes;
};

static qsizetype floorOf(const QString& file)
{
    return floors.indexOf(file.section(u'/', 0, 0));
}

/// "folder/Unit" of "folder/Unit.h": a header and its source count as one file.
static QString unitOf(const QString& file)
{
    return file.section(u'.', 0, 0);
}

void tst_house::initTestCase()
{
    const QDir sources(QStringLiteral(TARNWICK_SOURCES));
    static const QRegularExpression own(QStringLiteral("^#include \"([^\"]+)\""), QRegularExpression::MultilineOption);
    QDirIterator files(
        sources.path(), { QStringLiteral("*.h"), QStringLiteral("*.cpp") }, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = sources.relativeFilePath(files.next());
        const QString text = QString::fromUtf8(contentOf(files.filePath()));
        m_includes.insert(file, {});
        for (const QRegularExpressionMatch& match : own.globalMatch(text))
            m_includes[file] += match.captured(1);
    }
    QVERIFY(m_includes.size() > 30);
}

void tst_house::everyFolderIsAFloor()
{
    for (auto file = m_includes.keyBegin(); file != m_includes.keyEnd(); ++file)
        QVERIFY2(floorOf(*file) >= 0, qPrintable(*file));
}

void tst_house::includesPointDown()
{
    for (auto entry = m_includes.cbegin(); entry != m_includes.cend(); ++entry) {
        for (const QString& included : entry.value()) {
            if (included.endsWith(QLatin1String(".moc")) || included.startsWith(QLatin1String("ui_")))
                continue;
            const bool down = floorOf(included) >= 0 && floorOf(included) <= floorOf(entry.key());
            QVERIFY2(down, qPrintable(entry.key() + QLatin1String(" includes ") + included));
        }
    }
}

void tst_house::noTwoFilesIncludeEachOther()
{
    QHash<QString, QStringList> units;
    for (auto entry = m_includes.cbegin(); entry != m_includes.cend(); ++entry) {
        for (const QString& included : entry.value())
            units[unitOf(entry.key())] += unitOf(included);
    }
    for (auto entry = units.cbegin(); entry != units.cend(); ++entry) {
        for (const QString& included : entry.value()) {
            const bool mutual = included != entry.key() && units.value(included).contains(entry.key());
            QVERIFY2(!mutual, qPrintable(entry.key() + QLatin1String(" and ") + included));
        }
    }
}

QTEST_GUILESS_MAIN(tst_house)
#include "tst_house.moc"
