// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "downloads/TargetName.h"
#include "fuzz/fuzz.h"

#include <QDir>

/// Input: the naming rules in a line, the Content-Type in a line, and the URL of a download.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QByteArray switches = input.line();
    const QByteArray type = input.line();
    const NamingRules rules { switches.contains('d'), switches.contains('e'), switches.contains('r') };
    const TargetName target = TargetName::of(input.rest(), type, rules);
    if (target.refusal)
        return 0;
    QString path = QStringLiteral("/target/");
    for (const QByteArray& directory : target.directories)
        path += allgemein::fromSystem(directory) + u'/';
    path += allgemein::fromSystem(target.name);
    require(QDir::cleanPath(path) == path && path.startsWith(QLatin1String("/target/")), "a target is in its folder");
    require(!target.name.isEmpty() && !path.contains(QChar(0)), "a target has a name");
    require(rules.dirByUrl || target.directories.isEmpty(), "directories are made only if they are wanted");
    return 0;
}
