// SPDX-License-Identifier: GPL-3.0-or-later
// How fast does the analysis find the references of a page, and how fast does libxml2's SAX parser, which collects the
// same attributes of the same tags? Both work on the same bytes in turn. For each size of page the program prints the
// size, both numbers of references, which must be equal, and the speeds in MB/s.
#include "../CpuTimer.h"
#include "../Shapes.h"
#include "pages/HtmlAnalysis.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr qsizetype bytesOfTurn = 16 * 1024 * 1024;
constexpr int turns = 5;

struct Wanted {
    const char* tag;
    const char* attribute;
};
constexpr Wanted wanted[] = { { "a", "href" }, { "link", "href" }, { "frame", "src" }, { "img", "src" },
    { "form", "action" } };

const char* text(const xmlChar* bytes)
{
    return reinterpret_cast<const char*>(bytes);
}

void startElement(void* context, const xmlChar* name, const xmlChar** attributes)
{
    auto& references = *static_cast<QByteArrayList*>(context);
    for (const Wanted& want : wanted) {
        if (std::strcmp(text(name), want.tag) != 0)
            continue;
        for (; attributes && *attributes; attributes += 2)
            if (attributes[1] && std::strcmp(text(attributes[0]), want.attribute) == 0)
                references += text(attributes[1]);
        return;
    }
}

qsizetype parse(const QByteArray& page)
{
    QByteArrayList references;
    htmlSAXHandler handler {};
    handler.startElement = startElement;
    const htmlParserCtxtPtr parser =
        htmlCreatePushParserCtxt(&handler, &references, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8);
    htmlParseChunk(parser, page.data(), static_cast<int>(page.size()), 1);
    htmlFreeParserCtxt(parser);
    return references.size();
}

qsizetype parseWhole(const QByteArray& page)
{
    QByteArrayList references;
    htmlSAXHandler handler {};
    handler.startElement = startElement;
    const htmlParserCtxtPtr parser = htmlCreateMemoryParserCtxt(page.data(), static_cast<int>(page.size()));
    htmlSAXHandler* const own = parser->sax;
    parser->sax = &handler;
    parser->userData = &references;
    htmlParseDocument(parser);
    parser->sax = own;
    htmlFreeParserCtxt(parser);
    return references.size();
}

qsizetype analyse(const QByteArray& page)
{
    QByteArrayList references;
    HtmlAnalysis analysis(
        BodyBuffer(page), "http://www.example.org:80/news/page.html", { true, true, false, true, true, true });
    for (auto step = analysis.next(); step != HtmlAnalysis::Step::End; step = analysis.next())
        if (step == HtmlAnalysis::Step::Reference)
            references += analysis.reference().url;
    return references.size();
}

using Reader = qsizetype (*)(const QByteArray& page);

double speed(Reader read, const QByteArray& page)
{
    const qsizetype rounds = qMax(qsizetype(1), bytesOfTurn / page.size());
    const CpuTimer timer;
    for (qsizetype round = 0; round < rounds; ++round)
        read(page);
    return static_cast<double>(rounds * page.size()) / timer.seconds() / 1e6;
}

} // namespace

int main()
{
    for (const qsizetype size : { 16 * 1024, 128 * 1024, 8 * 1024 * 1024 }) {
        const QByteArray page = shapes::htmlPage(size);
        std::printf("%lld %lld %lld %lld", static_cast<long long>(size), analyse(page), parse(page), parseWhole(page));
        for (const Reader read : { analyse, parse, parseWhole }) {
            double best[turns];
            for (double& turn : best)
                turn = speed(read, page);
            std::sort(best, best + turns);
            std::printf(" %.1f", best[turns / 2]);
        }
        std::printf("\n");
    }
    return 0;
}
