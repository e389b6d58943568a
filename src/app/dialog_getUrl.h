// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

class Browser;
class LanguageTable;

namespace Ui {
class dialog_getUrl;
}

/// The window in which the user takes the address of a page. The page is in the window, or in the user's own browser.
class dialog_getUrl final : public QDialog {
    Q_OBJECT

public:
    /// `language` must outlive the window.
    dialog_getUrl(std::unique_ptr<Browser> browser, const LanguageTable& language);
    ~dialog_getUrl() override;

    /// Puts a URL into the address field and loads its page.
    void goUrl(const QByteArray& url);
    /// Whether the user closed the window with OK.
    [[nodiscard]] bool getSuccess() const { return result() == Accepted; }
    /// The text of the address field.
    [[nodiscard]] QByteArray link() const;

protected:
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void fitToScreen();
    void showAddress(const QByteArray& url);
    void navigate();

    std::unique_ptr<Browser> m_browser;
    std::unique_ptr<Ui::dialog_getUrl> m_ui;
};
