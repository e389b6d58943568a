// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "requests/WebCookieFile.h"
#include "requests/WebCookieJar.h"

#include <QUrl>

/// Input: the URL of an answer, its Set-Cookie field, then a cookies.txt.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QUrl url = QUrl::fromEncoded(input.line());
    const QByteArray field = input.line();
    const WebCookieFile file = WebCookieFile::parse(input.rest());
    require(file.cookies.size() + file.otherLines.size() <= input.rest().count('\n') + 1, "no line is two");
    const QByteArray text = file.text();
    require(WebCookieFile::parse(text).text() == text, "a file that was written reads the same");

    WebCookieJar jar;
    jar.setCookies(file.cookies);
    if (const auto cookie = WebCookieJar::fromField(field, url))
        jar.insertCookie(*cookie);
    require(WebCookieFile { jar.allCookies(), {}, {} }.text().count('\n') == jar.allCookies().size() + 1,
        "each cookie is a line");
    const QByteArray line = jar.line(url);
    require(line.isEmpty() || (line.endsWith("\r\n") && line.count('\r') == 1 && line.count('\n') == 1),
        "a request gets one line");
    return 0;
}
