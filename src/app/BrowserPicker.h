// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/UrlPicker.h"

#include <QStringList>

#include <memory>

class Browser;
class LanguageTable;
class Messages;
class Shell;
class dialog_getUrl;

/// A picker with a browser in its window, or with the user's own browser where the library for that is missing, cannot
/// be loaded or would end the program. Window and browser are made on first use, and kept.
class BrowserPicker final : public UrlPicker {
public:
    /// The browser's library is looked for in `folders`. The others must outlive the picker.
    BrowserPicker(const LanguageTable& language, Messages& messages, Shell& shell, const QStringList& folders);
    ~BrowserPicker() override;

    /// The program's own folder, and the one into which the library is installed.
    [[nodiscard]] static QStringList usualFolders();

    void pickUrl(const QByteArray& url, std::function<void(const QByteArray& url)> picked) override;

private:
    void makeDialog();
    [[nodiscard]] std::unique_ptr<Browser> makeBrowser();

    const LanguageTable& m_language;
    Messages& m_messages;
    Shell& m_shell;
    QStringList m_folders;
    std::unique_ptr<dialog_getUrl> m_dialog;
    std::function<void(const QByteArray& url)> m_picked;
};
