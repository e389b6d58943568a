// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Text.h"

#include <QDirIterator>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

/// The layers, from the bottom up. Layers of one row do not include each other.
static const QList<QStringList> layers { { QStringLiteral("base") }, { QStringLiteral("http") },
    { QStringLiteral("pages") }, { QStringLiteral("crawl") },
    { QStringLiteral("downloads"), QStringLiteral("requests") }, { QStringLiteral("results") },
    { QStringLiteral("session") }, { QStringLiteral("app"), QStringLiteral("console") } };

/// Tests the rules of the source folders: each layer includes from itself and from the layers below, and only windows
/// name widgets.
class tst_house : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void everyFolderIsALayer();
    void includesPointDown();
    void onlyWindowsIncludeFromAWindow();
    void onlyWindowsNameWidgets();
    void noTwoFilesIncludeEachOther();

private:
    struct Source {
        QString text;
        QStringList included; ///< the project's own includes, as "layer/file"
    };
    QHash<QString, Source> m_sources; ///< by "layer/file"
};

static QString folderOf(const QString& file)
{
    return file.section(u'/', 0, 0);
}

/// The row of a file's layer; -1 if its folder is no layer.
static qsizetype rowOf(const QString& file)
{
    qsizetype row = layers.size() - 1;
    while (row >= 0 && !layers[row].contains(folderOf(file)))
        --row;
    return row;
}

static bool mayInclude(const QString& file, const QString& included)
{
    return folderOf(file) == folderOf(included) || (rowOf(included) >= 0 && rowOf(included) < rowOf(file));
}

static bool isInWindow(const QString& file)
{
    return file.contains(QLatin1String("/window/"));
}

/// Whether a file belongs to the windows, which may name widgets.
static bool mayNameWidgets(const QString& file)
{
    return isInWindow(file) || folderOf(file) == QLatin1String("app");
}

/// "layer/Unit" of "layer/Unit.h": a header and its source count as one file.
static QString unitOf(const QString& file)
{
    return file.section(u'.', 0, 0);
}

/// The classes of a Qt library. It has one header without an ending for each class.
static QSet<QString> classesIn(const QString& folder)
{
    const QStringList names = QDir(folder).entryList({ QStringLiteral("Q*") }, QDir::Files);
    QSet<QString> classes(names.cbegin(), names.cend());
    classes.removeIf([](const QString& name) { return name.contains(u'.') || name.startsWith(QLatin1String("Qt")); });
    return classes;
}

void tst_house::initTestCase()
{
    const QDir sources(QStringLiteral(TARNWICK_SOURCES));
    static const QRegularExpression own(QStringLiteral("^#include \"([^\"]+)\""), QRegularExpression::MultilineOption);
    QDirIterator files(
        sources.path(), { QStringLiteral("*.h"), QStringLiteral("*.cpp") }, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        Source source { QString::fromUtf8(contentOf(files.next())), {} };
        for (const QRegularExpressionMatch& match : own.globalMatch(source.text)) {
            const QString included = match.captured(1);
            if (!included.endsWith(QLatin1String(".moc")) && !included.startsWith(QLatin1String("ui_")))
                source.included += included;
        }
        m_sources.insert(sources.relativeFilePath(files.filePath()), source);
    }
    QVERIFY(m_sources.size() > 30);
}

void tst_house::everyFolderIsALayer()
{
    for (auto file = m_sources.keyBegin(); file != m_sources.keyEnd(); ++file)
        QVERIFY2(rowOf(*file) >= 0, qPrintable(*file));
}

void tst_house::includesPointDown()
{
    for (auto entry = m_sources.cbegin(); entry != m_sources.cend(); ++entry) {
        for (const QString& included : entry->included)
            QVERIFY2(
                mayInclude(entry.key(), included), qPrintable(entry.key() + QLatin1String(" includes ") + included));
    }
}

void tst_house::onlyWindowsIncludeFromAWindow()
{
    for (auto entry = m_sources.cbegin(); entry != m_sources.cend(); ++entry) {
        for (const QString& included : entry->included)
            QVERIFY2(mayNameWidgets(entry.key()) || !mayNameWidgets(included),
                qPrintable(entry.key() + QLatin1String(" includes ") + included));
    }
}

void tst_house::onlyWindowsNameWidgets()
{
    QSet<QString> classes;
    for (const QString& folder : QStringLiteral(TARNWICK_WIDGET_HEADERS).split(u'|'))
        classes += classesIn(folder);
    QVERIFY(classes.contains(QLatin1String("QWidget")));
    static const QRegularExpression name(QStringLiteral("\\bQ[A-Z]\\w+"));
    for (auto entry = m_sources.cbegin(); entry != m_sources.cend(); ++entry) {
        if (mayNameWidgets(entry.key()))
            continue;
        for (const QRegularExpressionMatch& match : name.globalMatch(entry->text))
            QVERIFY2(!classes.contains(match.captured()),
                qPrintable(entry.key() + QLatin1String(" names ") + match.captured()));
    }
}

void tst_house::noTwoFilesIncludeEachOther()
{
    QHash<QString, QStringList> units;
    for (auto entry = m_sources.cbegin(); entry != m_sources.cend(); ++entry) {
        for (const QString& included : entry->included)
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
