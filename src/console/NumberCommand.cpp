// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/NumberCommand.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "console/CommandLine.h"
#include "downloads/NumberedUrls.h"

#include <QIODevice>

#include <array>

namespace {

const QString pos = QStringLiteral("pos");
const QString min = QStringLiteral("min");
const QString max = QStringLiteral("max");
const QString digits = QStringLiteral("digits");
const QString type = QStringLiteral("type");

/// A number has no more; beyond it there is only room to fill.
constexpr qint32 mostDigits = 20;

void describe(CommandParser& parser)
{
    const QString number = QStringLiteral("N");
    parser.addValue({ pos },
        QStringLiteral("How many characters of the URL, \"http://\" included, stand before the index."), number);
    parser.addValue({ min }, QStringLiteral("The first index."), number);
    parser.addValue({ max }, QStringLiteral("The last index."), number);
    parser.addValue({ digits }, QStringLiteral("How many digits a decimal index has at least. Default: 1."), number);
    parser.addValue({ type },
        QStringLiteral("How the index is written: decimal, hex, upper or lower. Default: decimal."),
        QStringLiteral("TYPE"));
}

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

NumberedUrls runFrom(const CommandParser& parser)
{
    for (const QString& name : { pos, min, max }) {
        if (!parser.isSet(name))
            throw UsageError { QStringLiteral("number: --%1 is missing").arg(name) };
    }
    NumberedUrls run;
    run.startUrl = allgemein::toSystem(parser.argument());
    run.pos = parser.wholeNumber(pos);
    run.min = parser.wholeNumber(min);
    run.max = parser.wholeNumber(max);
    if (parser.isSet(digits))
        run.minStellen = parser.wholeNumber(digits);
    if (run.minStellen > mostDigits)
        throw UsageError { QStringLiteral("--digits takes at most %1").arg(mostDigits) };
    if (parser.isSet(type))
        run.type = typeFrom(parser.value(type));
    if (!run.confirm())
        throw UsageError { LanguageTable().text("lang.invalidStartUrl")
            + QStringLiteral(" '%1'").arg(parser.argument()) };
    return run;
}

} // namespace

int runNumberCommand(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("number"), QStringLiteral("Prints a run of URLs that differ in an index."),
        QStringLiteral("number http://www.example.org/img.jpg --pos 26 --min 1 --max 20 --digits 3"),
        QStringLiteral("URL"), QStringLiteral("The URL into which the index is put."));
    describe(parser);
    if (!parser.parse(arguments))
        return Done;
    const NumberedUrls run = runFrom(parser);
    const bool printed = printToStandardOutput([&](QIODevice& out) {
        for (qint64 index = run.min; index <= run.max; ++index) {
            if (out.write(run.urlFor(static_cast<qint32>(index)) + '\n') < 0)
                return;
        }
    });
    return printed ? Done : PartlyFailed;
}
