// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtPlugin>

#include <functional>

class QWidget;

/// A web browser for the URL picker. One that is embedded leaves no traces on the disk, opens no window of its own and
/// downloads nothing.
class Browser {
public:
    virtual ~Browser() = default;

    /// The widget that shows the page. The window that takes it owns it, and must destroy the browser first.
    [[nodiscard]] virtual QWidget* widget() = 0;
    /// False for a browser that shows pages in windows of its own.
    [[nodiscard]] virtual bool isEmbedded() const = 0;
    /// Shows the page of an absolute URL. Of other protocols than http and https nothing is shown.
    virtual void navigate(const QByteArray& url) = 0;
    /// Shows an empty page and stops what the last one was doing.
    virtual void clear() = 0;
    /// `navigated` is called with the URL of each page that begins to be shown, however the user got there. Its
    /// pictures may still be loading then.
    virtual void onNavigated(std::function<void(const QByteArray& url)> navigated) = 0;
    /// `followed` is called when the user follows a link or sends a form of an embedded page.
    virtual void onLinkFollowed(std::function<void()> followed) = 0;
};

/// The entry point of the library with the browser. The library is large, so it is loaded on first use.
class BrowserFactory {
public:
    virtual ~BrowserFactory() = default;

    /// The caller owns it.
    [[nodiscard]] virtual Browser* create() = 0;
};

#define TARNWICK_BROWSER_FACTORY "tarnwick.BrowserFactory/3"
Q_DECLARE_INTERFACE(BrowserFactory, TARNWICK_BROWSER_FACTORY)
