// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "http/SubUrl.h"
#include "http/url.h"

#include <limits>

namespace {

/// Whether a URL names a server. The host reads up to a ":" in the path, and from slashes in the protocol on. A URL
/// with one of these is kept unchanged and leads nowhere.
bool namesServer(const QByteArray& url)
{
    return !url::hostOf(url).contains('/') && !url::protocolOf(url).contains('/');
}

void checkPieces(const QByteArray& url)
{
    const QByteArrayList pieces = url::components(url, std::numeric_limits<qint32>::max());
    require(pieces.size() == url::levelCount(url), "each level adds a piece");
    const qint32 most = static_cast<qint32>(qMin<qsizetype>(pieces.size(), 50));
    require(url::components(url, most) == pieces.first(most), "fewer pieces are the first ones");
    for (qint32 level = 0; level < most; ++level)
        require(url::urlComponent(url, level, true) == pieces[level], "a piece is the component of its level");
}

void checkKept(const SubUrl& entry)
{
    const SubUrl again = SubUrl::fromText(entry.text);
    require(again.text == entry.text && again.level == entry.level, "the text of an entry gives the entry");
}

/// Checks that each level's sub-URL contains the next one, and that its text alone restores it.
void checkLevels(const QByteArray& url)
{
    const std::vector<SubUrl> entries = SubUrl::levelsOf(url);
    for (size_t entry = 0; entry < entries.size(); ++entry) {
        const auto& [text, level] = entries[entry];
        require(entries[entry].matches(url), "a URL is in each of its levels");
        require(entry == 0 || entries[entry - 1].matches(text), "a level is in the one above");
        require(level <= url::labelCount(url::hostOf(url)) || url.startsWith(text), "a directory is a beginning");
        checkKept(entries[entry]);
    }
}

} // namespace

/// Input: the URL of a page in a line, then a reference on that page.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QByteArray base = url::normalised(input.line());
    const QByteArray& reference = input.rest();
    const QByteArray url = url::resolveReference(base, reference);
    require(!namesServer(base) || url.size() <= 7 + base.size() + reference.size(), "a reference grows by its page");
    require(reference.contains(':') ? url == reference : url == base || url::hostOf(url) == url::hostOf(base),
        "a relative reference stays on its host");

    const QByteArray recorded = url::normalised(url);
    checkPieces(url);
    checkPieces(recorded);
    checkKept(SubUrl::fromText(url));
    if (namesServer(recorded)) {
        require(url::normalised(recorded) == recorded, "what is recorded is recorded once");
        checkLevels(recorded);
    }
    return 0;
}
