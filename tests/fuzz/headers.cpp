// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "http/AnswerSplitter.h"
#include "http/httpHeader.h"
#include "http/url.h"
#include "support/PlainExtras.h"

#include <algorithm>

/// The header and body of an answer that arrives in these pieces.
static AnswerSplitter::Parts split(const QByteArrayList& pieces)
{
    AnswerSplitter splitter;
    AnswerSplitter::Parts all;
    for (const QByteArray& piece : pieces) {
        const auto parts = splitter.take(piece);
        require(parts.header.isEmpty() || all.header.isEmpty(), "a header comes once");
        require(parts.body.isEmpty() || !parts.header.isEmpty() || !all.header.isEmpty(),
            "no body comes before the header");
        require(!parts.headerIsTooLong, "an answer below the limit is not too long");
        all.header += parts.header;
        all.body += parts.body;
    }
    return all;
}

static void checkReaders(const QByteArray& header)
{
    (void)httpHeader::statusCode(header);
    (void)httpHeader::contentLength(header);
    (void)httpHeader::contentType(header);
    const QByteArray location = httpHeader::location(header);
    const QByteArrayList cookies = httpHeader::setCookies(header);
    require(cookies.value(0) == httpHeader::setCookie(header), "the first of all cookies is the first cookie");
    for (const QByteArray& field : cookies + QByteArrayList { location, httpHeader::contentLanguage(header) })
        require(!field.contains('\r'), "a field ends at CR");

    // Wherever the answer relocates to, the next request is one request of five lines.
    PlainExtras extras;
    extras.referer = true;
    const QByteArray next = url::resolveReference("http://h:80/d/p.html", location);
    const QByteArray request = httpHeader::baueAnfrage(next, "http://r/" + location, extras);
    require(request.endsWith("\r\n\r\n") && request.count('\n') == 6 && request.count('\r') == 6
            && request.count("\r\n\r\n") == 1 && !request.contains('\0'),
        "nothing breaks a line of a request");
}

/// Input: the lengths of the pieces in the first line, then an answer.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, std::min<size_t>(size, AnswerSplitter::headerLimit));
    const QByteArray lengths = input.line();
    const QByteArray& answer = input.rest();
    const auto parts = split(inPieces(answer, lengths));
    const qsizetype end = answer.indexOf("\r\n\r\n");
    require(parts.header == answer.left(end < 0 ? 0 : end + 2), "the header is what stands before the blank line");
    require(parts.body == (end < 0 ? QByteArray() : answer.sliced(end + 4)), "the body is the rest");
    checkReaders(parts.header);
    checkReaders(answer);
    return 0;
}
