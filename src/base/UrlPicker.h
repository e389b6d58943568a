// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <functional>

/// The window in which the user browses to a page to take its URL.
class UrlPicker {
public:
    virtual ~UrlPicker() = default;

    /// Shows the page of `url`. `picked` is called with the URL of the page that was taken, and never when none was.
    virtual void pickUrl(const QByteArray& url, std::function<void(const QByteArray& url)> picked) = 0;
};
