// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/About.h"

#include "base/allgemein.h"
#include "base/folders.h"
#include "base/lang.h"
#include "requests/FirefoxDatabase.h"

#include <QCoreApplication>
#include <QFileInfo>

QString about::text(const LanguageTable& language)
{
    const QString version =
        language.text("more.version").arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion());
    return version + QLatin1String("\n\n") + language.text("more.licence") + QLatin1String("\n\nQt ")
        + QLatin1String(qVersion()) + QLatin1String("\nSQLite ") + FirefoxDatabase::libraryVersion();
}

QString about::helpFile(const QString& name)
{
    // A language file names the page; it must not name another file.
    if (!allgemein::isPlainFileName(allgemein::toSystem(name)))
        return {};
    const QString program = QCoreApplication::applicationDirPath();
    const QString beside = program + QLatin1String("/help/") + name;
    return QFileInfo::exists(beside) ? beside : program + QLatin1String("/../share/tarnwick/help/") + name;
}

QUrl about::website()
{
    return QUrl(QStringLiteral(TARNWICK_WEBSITE));
}

QUrl about::updates()
{
    return QUrl(QStringLiteral(TARNWICK_UPDATES));
}
