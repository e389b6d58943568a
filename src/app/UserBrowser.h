// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Browser.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

class LanguageTable;
class Messages;
class Shell;

/// The user's own browser in the place of an embedded one. Pages open there. A URL that the user copies while the
/// widget is shown counts as the page that is shown. The widget explains this.
class UserBrowser final : public QObject, public Browser {
    Q_OBJECT

public:
    /// The arguments must outlive the browser.
    UserBrowser(const LanguageTable& language, Messages& messages, Shell& shell);
    ~UserBrowser() override;

    [[nodiscard]] QWidget* widget() override { return m_widget; }
    [[nodiscard]] bool isEmbedded() const override { return false; }
    /// Opens ftp URLs as well. Shows a message if the page cannot be opened.
    void navigate(const QByteArray& url) override;
    void clear() override { }
    void onNavigated(std::function<void(const QByteArray& url)> navigated) override;
    /// There is no page whose links could be followed.
    void onLinkFollowed(std::function<void()>) override { }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void startWatching();
    void clipboardChanged();
    /// Reports the URL on the clipboard, unless it is the one that was there before.
    void look();

    const LanguageTable& m_language;
    Messages& m_messages;
    Shell& m_shell;
    QPointer<QWidget> m_widget;
    QByteArray m_seen; ///< the last URL that was on the clipboard
    std::function<void(const QByteArray& url)> m_navigated = [](const QByteArray&) {
    };
};
