// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/PrintOptions.h"

#include "base/allgemein.h"
#include "console/CommandLine.h"
#include "console/Terminal.h"

#include <limits>

namespace {

/// The bytes that a number with an optional suffix K or M stands for.
qint64 sizeFrom(const CommandParser& parser, const QString& name)
{
    QString text = parser.value(name);
    qint64 unit = 1;
    if (text.endsWith(u'K', Qt::CaseInsensitive) || text.endsWith(u'M', Qt::CaseInsensitive)) {
        unit = text.back().toUpper() == u'K' ? 1024 : 1024 * 1024;
        text.chop(1);
    }
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    if (!ok || number < 0 || number > std::numeric_limits<qint64>::max() / unit)
        throw UsageError { QStringLiteral("--%1 needs a number of bytes, with K or M behind it if you like, not '%2'")
                               .arg(name, parser.value(name)) };
    return number * unit;
}

template <typename Read>
FilterRange rangeFrom(const CommandParser& parser, const QString& minName, const QString& maxName, Read read)
{
    const qint64 min = parser.isSet(minName) ? read(parser, minName) : 0;
    const qint64 max = parser.isSet(maxName) ? read(parser, maxName) : std::numeric_limits<qint64>::max();
    return { parser.isSet(minName) || parser.isSet(maxName), min, max };
}

FilterSwitch switchFrom(const CommandParser& parser, const QString& white, const QString& black)
{
    if (parser.isSet(white) && parser.isSet(black))
        throw UsageError { QStringLiteral("--%1 and --%2 exclude each other").arg(white, black) };
    if (parser.isSet(white))
        return FilterSwitch::Whitelist;
    return parser.isSet(black) ? FilterSwitch::Blacklist : FilterSwitch::Off;
}

/// The texts given for either of two options, of which one at most is set.
QList<QByteArray> textsFrom(const CommandParser& parser, const QString& white, const QString& black)
{
    QList<QByteArray> texts;
    for (const QString& text : parser.values(white) + parser.values(black))
        texts += allgemein::toSystem(text);
    return texts;
}

/// Without the option a table on a terminal, else what scripts read.
ItemFormat formatFrom(const CommandParser& parser)
{
    if (!parser.isSet(QStringLiteral("format")))
        return terminal::isTerminal(stdout) ? ItemFormat::Table : ItemFormat::Tsv;
    const QString name = parser.value(QStringLiteral("format"));
    const auto format = itemFormatFrom(name);
    if (!format)
        throw UsageError { QStringLiteral("--format knows tsv, urls, json and table, not '%1'").arg(name) };
    return *format;
}

const QString mime = QStringLiteral("mime");
const QString notMime = QStringLiteral("not-mime");
const QString urlPart = QStringLiteral("url-part");
const QString notUrlPart = QStringLiteral("not-url-part");
const QString minDepth = QStringLiteral("min-depth");
const QString maxDepth = QStringLiteral("max-depth");
const QString minSize = QStringLiteral("min-size");
const QString maxSize = QStringLiteral("max-size");
const QString branch = QStringLiteral("branch");

} // namespace

void PrintOptions::addTo(CommandParser& parser)
{
    parser.addValue({ QStringLiteral("f"), QStringLiteral("format") },
        QStringLiteral("How items are printed: tsv, urls, json or table. Default: table on a terminal, else tsv."),
        QStringLiteral("FORMAT"));
    addFilterTo(parser);
}

void PrintOptions::addFilterTo(CommandParser& parser)
{
    const QString type = QStringLiteral("TYPE");
    const QString text = QStringLiteral("TEXT");
    const QString number = QStringLiteral("N");
    const QString size = QStringLiteral("SIZE");
    parser.addValue({ mime }, QStringLiteral("Only items of this MIME type, as sent. Repeatable."), type);
    parser.addValue({ notMime }, QStringLiteral("No items of this MIME type. Repeatable."), type);
    parser.addValue({ urlPart }, QStringLiteral("Only URLs that contain this text. Repeatable."), text);
    parser.addValue({ notUrlPart }, QStringLiteral("No URLs that contain this text. Repeatable."), text);
    parser.addValue({ minDepth }, QStringLiteral("Only items of at least this depth."), number);
    parser.addValue({ maxDepth }, QStringLiteral("Only items of at most this depth."), number);
    parser.addValue({ minSize }, QStringLiteral("Only items of at least this size (bytes, or 10K, 2M)."), size);
    parser.addValue({ maxSize }, QStringLiteral("Only items of at most this size."), size);
    parser.addValue({ branch }, QStringLiteral("Only items below this sub-URL."), QStringLiteral("SUBURL"));
}

PrintOptions PrintOptions::from(const CommandParser& parser)
{
    return { formatFrom(parser), filterFrom(parser) };
}

ResultFilter PrintOptions::filterFrom(const CommandParser& parser)
{
    const auto wholeNumber = [](const CommandParser& p, const QString& name) {
        return qint64 { p.wholeNumber(name) };
    };
    ResultFilter filter;
    filter.depth = rangeFrom(parser, minDepth, maxDepth, wholeNumber);
    filter.size = rangeFrom(parser, minSize, maxSize, sizeFrom);
    filter.mimeSwitch = switchFrom(parser, mime, notMime);
    for (const QByteArray& mimeType : textsFrom(parser, mime, notMime))
        filter.mimeListe.insert(mimeType).listed = true;
    filter.urlSwitch = switchFrom(parser, urlPart, notUrlPart);
    filter.filterTexte = textsFrom(parser, urlPart, notUrlPart);
    if (parser.isSet(branch))
        filter.branch = SubUrl::fromText(allgemein::toSystem(parser.value(branch)));
    return filter;
}
