// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtPlugin>

#include <functional>

class QWidget;

/// A web browser without anything around it. It leaves no traces on the disk, opens no window of its own and downloads
/// nothing.
class Browser {
public:
    virtual ~Browser() = default;

    /// What shows the page. Whoever puts it somewhere owns it, and gives up the browser before.
    [[nodiscard]] virtual QWidget* widget() = 0;
    /// Shows the page of an absolute URL. Of other protocols than http and https nothing is shown.
    virtual void navigate(const QByteArray& url) = 0;
    /// Shows nothing, and stops whatever the page was doing.
    virtual void clear() = 0;
    /// `navigated` is called with the URL of each page that is shown, however it was come to.
    virtual void onNavigated(std::function<void(const QByteArray& url)> navigated) = 0;
};

/// What the library with the browser gives. It is large, so it is loaded when the first browser is asked for.
class BrowserFactory {
public:
    virtual ~BrowserFactory() = default;

    /// The caller owns it.
    [[nodiscard]] virtual Browser* create() = 0;
};

#define TARNWICK_BROWSER_FACTORY "tarnwick.BrowserFactory/1"
Q_DECLARE_INTERFACE(BrowserFactory, TARNWICK_BROWSER_FACTORY)
