// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/ListCommand.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "console/CommandLine.h"
#include "console/PrintOptions.h"
#include "results/SearchFileReader.h"
#include "results/twk.h"

int runListCommand(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("list"), QStringLiteral("Prints the found items of a search file."),
        QStringLiteral("list example.twk --mime image/png --format urls"), QStringLiteral("FILE.twk"),
        QStringLiteral("A search file."));
    PrintOptions::addTo(parser);
    if (!parser.parse(arguments))
        return Done;
    const PrintOptions printing = PrintOptions::from(parser);
    const QString fileName = parser.argument();

    StoredSearch search;
    const SearchFile::LoadResult result = SearchFile::load(fileName, search);
    const LanguageTable language;
    const QString error = twk::errorText(result, language);
    // A file that is no search file at all is told of once, not once a line.
    if (result.error != SearchFile::LoadError::NotASearchFile)
        complainOfSkippedLines(fileName, result, language);
    const ItemPrinter printer(language, [](const FundStück& item) { return QString::number(item.statusCode); });
    const bool printed = printToStandardOutput(
        [&](QIODevice& out) { printer.print(out, printing.format, search.list, printing.filter); });
    if (!error.isEmpty())
        throw UsageError { fileName + QLatin1String(": ") + error };
    return printed ? Done : PartlyFailed;
}
