// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/import.h"
#include "requests/ExplorerCookies.h"
#include "support/TestSeams.h"

#include <QFileInfo>

/// Input: a file of the cookie folder of Internet Explorer.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Input(data, size).rest();
    FilledRegistry registry;
    const QFileInfo file(fileWith(content, "user@host.txt"));
    registry.values.insert(QStringLiteral("Cookies"), file.path());
    importAll(std::make_unique<ExplorerCookies>(registry), content.count('\n') / 8);
    return 0;
}
