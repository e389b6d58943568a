// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/ItemOptions.h"

#include "base/allgemein.h"
#include "console/Terminal.h"

#include <limits>

namespace {

constexpr Option formatName { .name = "format",
    .letter = 'f',
    .value = "tsv|urls|json|table",
    .help = "How items are printed. Default: table on a terminal, else tsv." };

constexpr Option mime { .name = "mime", .value = "TYPE", .help = "Only items of this MIME type, as sent. Repeatable." };
constexpr Option notMime { .name = "not-mime", .value = "TYPE", .help = "No items of this MIME type. Repeatable." };
constexpr Option urlPart {
    .name = "url-part", .value = "TEXT", .help = "Only URLs that contain this text. Repeatable."
};
constexpr Option notUrlPart {
    .name = "not-url-part", .value = "TEXT", .help = "No URLs that contain this text. Repeatable."
};
constexpr Option minDepth { .name = "min-depth", .value = "N", .help = "Only items of at least this depth." };
constexpr Option maxDepth { .name = "max-depth", .value = "N", .help = "Only items of at most this depth." };
constexpr Option minSize {
    .name = "min-size", .value = "SIZE", .help = "Only items of at least this size (bytes, or 10K, 2M)."
};
constexpr Option maxSize { .name = "max-size", .value = "SIZE", .help = "Only items of at most this size." };
constexpr Option branch { .name = "branch", .value = "SUBURL", .help = "Only items below this sub-URL." };

constexpr std::array formatOptions { &formatName };
constexpr std::array filterOptions { &mime, &notMime, &urlPart, &notUrlPart, &minDepth, &maxDepth, &minSize, &maxSize,
    &branch };

/// The value in bytes: a number with an optional suffix K or M.
qint64 sizeFrom(const CommandLine& line, const Option& option)
{
    QString text = line.value(option);
    qint64 unit = 1;
    if (text.endsWith(u'K', Qt::CaseInsensitive) || text.endsWith(u'M', Qt::CaseInsensitive)) {
        unit = text.back().toUpper() == u'K' ? 1024 : 1024 * 1024;
        text.chop(1);
    }
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    if (!ok || number < 0 || number > std::numeric_limits<qint64>::max() / unit)
        throw UsageError { QStringLiteral("--%1 needs a number of bytes, with K or M behind it if you like, not '%2'")
                               .arg(QLatin1String(option.name), line.value(option)) };
    return number * unit;
}

template <typename Read>
FilterRange rangeFrom(const CommandLine& line, const Option& minimum, const Option& maximum, Read read)
{
    const qint64 min = line.isSet(minimum) ? read(line, minimum) : 0;
    const qint64 max = line.isSet(maximum) ? read(line, maximum) : std::numeric_limits<qint64>::max();
    return { line.isSet(minimum) || line.isSet(maximum), min, max };
}

FilterSwitch switchFrom(const CommandLine& line, const Option& white, const Option& black)
{
    if (line.isSet(white) && line.isSet(black))
        throw UsageError {
            QStringLiteral("--%1 and --%2 exclude each other").arg(QLatin1String(white.name), QLatin1String(black.name))
        };
    if (line.isSet(white))
        return FilterSwitch::Whitelist;
    return line.isSet(black) ? FilterSwitch::Blacklist : FilterSwitch::Off;
}

/// The texts given for two options, of which at most one is set.
QList<QByteArray> textsFrom(const CommandLine& line, const Option& white, const Option& black)
{
    QList<QByteArray> texts;
    for (const QString& text : line.values(white) + line.values(black))
        texts += allgemein::toSystem(text);
    return texts;
}

} // namespace

const OptionGroup itemOptions::format = formatOptions;
const OptionGroup itemOptions::filter = filterOptions;

ItemFormat itemOptions::formatFrom(const CommandLine& line)
{
    if (!line.isSet(formatName))
        return terminal::isTerminal(stdout) ? ItemFormat::Table : ItemFormat::Tsv;
    const QString name = line.value(formatName);
    const auto format = itemFormatFrom(name);
    if (!format)
        throw UsageError { QStringLiteral("--format knows tsv, urls, json and table, not '%1'").arg(name) };
    return *format;
}

ResultFilter itemOptions::filterFrom(const CommandLine& line)
{
    const auto wholeNumber = [](const CommandLine& given, const Option& option) {
        return qint64 { given.wholeNumber(option) };
    };
    ResultFilter filter;
    filter.depth = rangeFrom(line, minDepth, maxDepth, wholeNumber);
    filter.size = rangeFrom(line, minSize, maxSize, sizeFrom);
    filter.mimeSwitch = switchFrom(line, mime, notMime);
    for (const QByteArray& mimeType : textsFrom(line, mime, notMime))
        filter.mimeListe.insert(mimeType).listed = true;
    filter.urlSwitch = switchFrom(line, urlPart, notUrlPart);
    filter.filterTexte = textsFrom(line, urlPart, notUrlPart);
    if (line.isSet(branch))
        filter.branch = SubUrl::fromText(allgemein::toSystem(line.value(branch)));
    return filter;
}
