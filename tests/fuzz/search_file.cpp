// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "fuzz/fuzz.h"
#include "results/SearchFileWriter.h"
#include "results/twk.h"

/// Loads a file into a new search and returns the bytes that saving it writes. `result` is the result of loading.
static QByteArray reloaded(const QString& fileName, searchFile::LoadResult& result)
{
    StoredSearch search;
    result = searchFile::load(fileName, search);
    qint32 items = 0;
    for (const FundKnoten* node = search.list.getStart(); node; node = node->naechster())
        items += node->inhalt.adresse.isEmpty() ? 0 : 1;
    require(items == search.list.getAnzahl(), "each item has a URL");
    const QString copy = fileNamed("copy");
    require(!searchFile::save(copy, search.options, search.prefs, search.list), "a search can be saved");
    return contentOf(copy);
}

/// Input: a search file.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const LanguageTable language;
    searchFile::LoadResult result;
    const QByteArray first = reloaded(fileWith(Input(data, size).rest()), result);
    require(result.skipped.size() == qMin<qint64>(result.skippedCount, 100), "the first lines passed over are told");
    require((result.error == searchFile::LoadError::None) == twk::errorText(result, language).isEmpty(),
        "an error has a text");
    for (const searchFile::SkippedLine& line : result.skipped)
        require(line.number > 0 && !twk::warningText(line, language).isEmpty(), "a line is told by its number");

    require(reloaded(fileNamed("copy"), result) == first, "saved and opened again, a search is the same");
    require(result.error == searchFile::LoadError::None && result.skippedCount == 0, "what was saved is understood");
    return 0;
}
