// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "requests/CookieStore.h"

#include <QFileInfo>

/// Input: the path of a request in the first line, then the cookie file of its host.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QByteArray url = "http://a.h:80/" + input.line();
    const QString file = fileWith(input.rest(), "h.tkc");
    CookieStore store;
    store.setCookieFolder(QFileInfo(file).path());
    const auto checkLine = [](const QByteArray& line) {
        const bool whole = line.startsWith("Cookie: ") && line.indexOf("\r\n") == line.size() - 2;
        require(line.isEmpty() || (whole && line.count('\n') == 1 && line.count('\r') == 1 && !line.contains('\0')),
            "the cookies of a request are one line");
    };
    checkLine(store.getCookieHeader(url));

    require(store.saveCookie("h", "/", "new", "1"), "a cookie can be stored beside whatever there is");
    const QByteArray first = contentOf(file);
    require(first.endsWith("/\tnew\t1\r\n"), "the new cookie is the last line");
    checkLine(store.getCookieHeader(url));
    require(store.saveCookie("h", "/", "new", "1") && contentOf(file) == first, "stored again, nothing changes");
    return 0;
}
