// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "http/url.h"
#include "results/ListReader.h"

using listFormat::Format;

/// Checks that an item that is written is read as the same item again.
static void checkItem(Format format, const FundStück& item)
{
    require(url::isValidUrl(item.adresse) && item.adresse.size() <= url::longest, "an item has a usable URL");
    const QByteArray line = listFormat::itemLine(format, item);
    require(!line.contains('\n') && !line.contains('\r'), "an item is written on one line");
    const auto again = listFormat::itemFrom(format, line);
    require(again && again->adresse == item.adresse, "an exported URL is imported unchanged");
    require(listFormat::itemLine(format, *again) == line, "an exported item is imported unchanged");
}

/// Input: the format in the first line (empty: URLs alone), then a list.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const Format format = input.line().isEmpty() ? Format::Urls : Format::Csv;
    ListReader reader(fileWith(input.rest()), format);
    qint64 items = 0;
    const auto take = [&](const FundStück& item) {
        ++items;
        checkItem(format, item);
    };
    qsizetype lines = 0;
    while (reader.readLine(take))
        ++lines;
    require(!reader.error(), "the file can be read");
    const QByteArray list = input.rest().startsWith("\xef\xbb\xbf") ? input.rest().sliced(3) : input.rest();
    require(lines == list.count('\n') + (list.isEmpty() || list.endsWith('\n') ? 0 : 1), "each line is read once");
    require(items + reader.unusable().count() <= lines, "a line gives an item or is told as unusable");
    return 0;
}
