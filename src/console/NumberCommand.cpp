// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "base/lang.h"
#include "console/Commands.h"
#include "console/Output.h"
#include "downloads/NumberedUrls.h"

#include <QIODevice>

namespace {

constexpr Option pos {
    .name = "pos", .value = "N", .help = "How many characters of the URL, \"http://\" included, stand before the index."
};
constexpr Option min { .name = "min", .value = "N", .help = "The first index." };
constexpr Option max { .name = "max", .value = "N", .help = "The last index." };
constexpr Option digits {
    .name = "digits", .value = "N", .help = "How many digits a decimal index has at least. Default: 1."
};
constexpr Option type {
    .name = "type", .value = "decimal|hex|upper|lower", .help = "How the index is written. Default: decimal."
};

constexpr std::array options { &pos, &min, &max, &digits, &type };

/// The greatest index has ten digits, so more than this would only add zeros.
constexpr qint32 mostDigits = 20;

IndexType typeFrom(const QString& name)
{
    struct Name {
        const char* name;
        IndexType type;
    };
    static constexpr std::array names { Name { "decimal", IndexType::Decimal }, Name { "hex", IndexType::Hexadecimal },
        Name { "upper", IndexType::CapitalLetters }, Name { "lower", IndexType::SmallLetters } };
    for (const Name& known : names) {
        if (name == QLatin1String(known.name))
            return known.type;
    }
    throw UsageError { QStringLiteral("--type knows decimal, hex, upper and lower, not '%1'").arg(name) };
}

NumberedUrls runFrom(const CommandLine& line)
{
    for (const Option* const option : { &pos, &min, &max }) {
        if (!line.isSet(*option))
            throw UsageError { QStringLiteral("number: --%1 is missing").arg(QLatin1String(option->name)) };
    }
    NumberedUrls run;
    run.startUrl = allgemein::toSystem(line.argument());
    run.pos = line.wholeNumber(pos);
    run.min = line.wholeNumber(min);
    run.max = line.wholeNumber(max);
    if (line.isSet(digits))
        run.minStellen = line.wholeNumber(digits);
    if (run.minStellen > mostDigits)
        throw UsageError { QStringLiteral("--digits takes at most %1").arg(mostDigits) };
    if (line.isSet(type))
        run.type = typeFrom(line.value(type));
    if (!run.confirm())
        throw UsageError { LanguageTable().text("lang.invalidStartUrl")
            + QStringLiteral(" '%1'").arg(line.argument()) };
    return run;
}

int printUrls(const CommandLine& line)
{
    const NumberedUrls run = runFrom(line);
    const bool printed = printToStandardOutput([&](QIODevice& out) {
        for (qint64 index = run.min; index <= run.max; ++index) {
            if (out.write(run.urlFor(static_cast<qint32>(index)) + '\n') < 0)
                return;
        }
    });
    return printed ? Done : PartlyFailed;
}

} // namespace

const Command commands::number {
    .name = "number",
    .arguments = "URL",
    .argumentsHelp = "The URL into which the index is put.",
    .summary = "Prints a run of numbered URLs.",
    .example = "number http://www.example.org/img.jpg --pos 26 --min 1 --max 20 --digits 3",
    .options = { options },
    .run = printUrls,
};
