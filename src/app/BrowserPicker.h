// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/UrlPicker.h"

#include <QStringList>

#include <memory>

class LanguageTable;
class Messages;
class dialog_getUrl;

/// A picker with a browser in it. Window and browser are made when they are first asked for, and kept.
class BrowserPicker final : public UrlPicker {
public:
    /// `folders` are those in which the browser's library may be. The others must outlive the picker.
    BrowserPicker(const LanguageTable& language, Messages& messages, const QStringList& folders);
    ~BrowserPicker() override;

    /// Where the library is beside the program, or where it is installed.
    [[nodiscard]] static QStringList usualFolders();

    [[nodiscard]] const char* obstacle() const override;
    void pickUrl(const QByteArray& url, std::function<void(const QByteArray& url)> picked) override;

private:
    /// False when the browser cannot be had.
    [[nodiscard]] bool makeDialog();

    const LanguageTable& m_language;
    Messages& m_messages;
    QString m_library; ///< empty when there is none that can be used
    std::unique_ptr<dialog_getUrl> m_dialog;
    std::function<void(const QByteArray& url)> m_picked;
};
