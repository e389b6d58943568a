// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DesktopShell.h"

#include "base/Platform.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

bool DesktopShell::openFile(const QString& path)
{
    return QFileInfo::exists(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool DesktopShell::openUrl(const QUrl& url)
{
    return QDesktopServices::openUrl(url);
}

bool DesktopShell::start(const ProgramCommand& command)
{
    return platform::startProgram(command.program, command.arguments);
}

void DesktopShell::addRecentDocument(const QString& path)
{
    platform::addRecentDocument(path);
}
