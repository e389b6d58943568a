// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

class Browser;
class LanguageTable;

namespace Ui {
class dialog_getUrl;
}

/// The window in which the user browses to a page and takes its address.
class dialog_getUrl final : public QDialog {
    Q_OBJECT

public:
    /// `language` must outlive the window.
    dialog_getUrl(std::unique_ptr<Browser> browser, const LanguageTable& language);
    ~dialog_getUrl() override;

    /// Puts a URL into the address field, and shows its page.
    void goUrl(const QByteArray& url);
    /// Whether the window was closed with the button that takes the address.
    [[nodiscard]] bool getSuccess() const { return result() == Accepted; }
    /// What stands in the address field.
    [[nodiscard]] QByteArray link() const;

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void navigate();

    std::unique_ptr<Browser> m_browser;
    std::unique_ptr<Ui::dialog_getUrl> m_ui;
};
