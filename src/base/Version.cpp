// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Version.h"

#include "base/commit.h"

namespace {

const QString number = QStringLiteral(TARNWICK_VERSION);
const QString commit = QStringLiteral(TARNWICK_COMMIT);

} // namespace

QString version::numberAndCommit()
{
    return commit.isEmpty() ? number : QString(number + QLatin1String(" (") + commit + u')');
}

QString version::details()
{
    const QString build =
        commit.isEmpty() ? QString() : QString(QLatin1String("commit ") + commit + QLatin1String(", "));
    return number + QLatin1String(" (") + build + QLatin1String("Qt ") + QLatin1String(qVersion()) + u')';
}
