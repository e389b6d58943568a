// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileDialogs.h"

#include <QFileDialog>

class LanguageTable;
class Messages;

/// The system's file dialogs, over the active window. A dialog begins in the folder of the file that was chosen last.
class FileDialogBoxes final : public FileDialogs {
public:
    /// Both must outlive the dialogs.
    FileDialogBoxes(const LanguageTable& language, Messages& messages);

    void open(const Request& request, std::function<void(const QString& path)> chosen) override;
    void save(const Request& request, std::function<void(const QString& path)> chosen) override;

    void folder(
        const QString& title, const QString& proposal, std::function<void(const QString& path)> chosen) override;

private:
    void show(QFileDialog* dialog, const Request& request, std::function<void(const QString& path)> chosen);

    void confirmReplacing(const Request& request, const QString& path, std::function<void(const QString& path)> chosen);

    const LanguageTable& m_language;
    Messages& m_messages;
    QString m_folder;
};
