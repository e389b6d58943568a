// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Shell.h"

/// The system's desktop.
class DesktopShell final : public Shell {
public:
    bool openFile(const QString& path) override;
    bool openUrl(const QUrl& url) override;
    bool start(const ProgramCommand& command) override;
    void addRecentDocument(const QString& path) override;
};
