// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "console/Commands.h"
#include "console/ItemOptions.h"
#include "console/Output.h"
#include "results/SearchFileReader.h"
#include "results/twk.h"

namespace {

int listItems(const CommandLine& line)
{
    const ItemFormat format = itemOptions::formatFrom(line);
    const ResultFilter filter = itemOptions::filterFrom(line);
    const QString fileName = line.argument();

    StoredSearch search;
    const searchFile::LoadResult result = searchFile::load(fileName, search);
    const LanguageTable language;
    const QString error = twk::errorText(result, language);
    // Every line of a file that is no search file is skipped; one complaint about the file says enough.
    if (result.error != searchFile::LoadError::NotASearchFile)
        complainOfSkippedLines(fileName, result, language);
    const ItemPrinter printer(language);
    const bool printed =
        printToStandardOutput([&](QIODevice& out) { printer.print(out, format, search.list, filter); });
    if (!error.isEmpty())
        throw UsageError { fileName + QLatin1String(": ") + error };
    return printed ? Done : PartlyFailed;
}

} // namespace

const Command commands::list {
    .name = "list",
    .arguments = "FILE.twk",
    .argumentsHelp = "A search file.",
    .summary = "Prints the found items of a search file.",
    .example = "list example.twk --mime image/png --format urls",
    .options = { itemOptions::format, itemOptions::filter },
    .run = listItems,
};
