// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <functional>

/// Where a user browses to a page to take its URL.
class UrlPicker {
public:
    virtual ~UrlPicker() = default;

    /// The key of the text that says why there is no picker; nullptr when there is one.
    [[nodiscard]] virtual const char* obstacle() const = 0;
    /// Shows the page of `url`. `picked` is called with the URL of the page that was taken, and never when none was.
    virtual void pickUrl(const QByteArray& url, std::function<void(const QByteArray& url)> picked) = 0;
};
