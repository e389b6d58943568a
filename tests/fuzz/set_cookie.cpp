// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "requests/CookieStore.h"

#include <QDir>

/// The names in the cookie folder's parent folder, and in the cookie folder.
static QStringList filesAround(const QString& folder)
{
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    return QDir(folder + QLatin1String("/..")).entryList(everything) + QDir(folder).entryList(everything);
}

/// Input: the host of an answer in the first line, then the value of its Set-Cookie field.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QByteArray host = input.line();
    const QString folder = fileNamed("cookies");
    CookieStore store;
    store.setCookieFolder(folder);
    store.takeSetCookies({ input.rest() }, host);

    const QStringList files = filesAround(folder);
    require(
        files.size() <= 2 && files[0] == QLatin1String("cookies"), "a host has a file in the cookie folder or none");
    require(files.size() == 1 || files[1] == QString::fromLocal8Bit(host) + QLatin1String(".tkc"),
        "the file is the host's");
    const QByteArray line = store.getCookieHeader("http://" + host + ":80/");
    require(line.isEmpty() || (files.size() == 2 && line.count('\n') == 1 && line.count('\r') == 1),
        "what was stored is sent on one line");
    require(store.deleteAll().isEmpty() && filesAround(folder).size() == 1, "all cookies can be deleted");
    return 0;
}
