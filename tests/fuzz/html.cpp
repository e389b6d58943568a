// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "pages/HtmlAnalysis.h"

namespace {

const QByteArray pageUrl = "http://h:80/d/p.html";

AnalysisSwitches switchesFrom(char bits)
{
    const auto bit = [bits](int number) {
        return ((bits >> number) & 1) != 0;
    };
    return { bit(0), bit(1), bit(2), bit(3), bit(4), bit(5) };
}

/// "type URL" of each reference of a body that arrives in these pieces and is analysed in steps of `bytesPerStep`.
QByteArrayList references(const QByteArrayList& pieces, const AnalysisSwitches& switches, qsizetype bytesPerStep)
{
    BodyBuffer body;
    for (const QByteArray& piece : pieces)
        body.append(piece);
    const QByteArray page = pieces.join();
    // There are at most five passes. None looks at a byte more often than it has finders.
    qsizetype pausesLeft = 1 + 5 * 11 * (page.size() / bytesPerStep + 1);
    HtmlAnalysis analysis(std::move(body), pageUrl, switches);
    QByteArrayList found;
    for (auto step = analysis.next(bytesPerStep); step != HtmlAnalysis::Step::End; step = analysis.next(bytesPerStep)) {
        if (step == HtmlAnalysis::Step::Pause) {
            require(--pausesLeft >= 0, "an analysis ends");
            continue;
        }
        const QByteArray& url = analysis.reference().url;
        require(url.startsWith("http://h:80/") || page.contains(url), "a reference is on the page's host or absolute");
        found += QByteArray::number(static_cast<int>(analysis.reference().type)) + ' ' + url;
    }
    return found;
}

} // namespace

/// Input: in the first line the wanted kinds of reference, the size of a step and the lengths of the pieces; then a
/// page.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QByteArray line = input.line().leftJustified(2, '1');
    const QByteArray& page = input.rest();
    const AnalysisSwitches switches = switchesFrom(line[0]);
    const qsizetype bytesPerStep = 1 + static_cast<quint8>(line[1]);
    require(references({ page }, switches, HtmlAnalysis::bytesPerStep)
            == references(inPieces(page, line.sliced(2)), switches, bytesPerStep),
        "neither the pieces nor the steps change what is found");
    return 0;
}
