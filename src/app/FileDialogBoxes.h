// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileDialogs.h"

#include <QFileDialog>

/// The system's file dialogs, over the window in which the user is. They begin in the folder where the last one ended.
class FileDialogBoxes final : public FileDialogs {
public:
    void open(const Request& request, std::function<void(const QString& path)> chosen) override;
    void save(const Request& request, std::function<void(const QString& path)> chosen) override;

    void folder(
        const QString& title, const QString& proposal, std::function<void(const QString& path)> chosen) override;

private:
    void show(QFileDialog* dialog, const Request& request, std::function<void(const QString& path)> chosen);

    QString m_folder;
};
