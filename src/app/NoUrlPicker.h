// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/UrlPicker.h"

/// In the place of the URL picker where the build has no browser.
class NoUrlPicker final : public UrlPicker {
public:
    [[nodiscard]] bool isAvailable() const override { return false; }
    void pickUrl(const QByteArray&, std::function<void(const QByteArray& url)>) override { }
};
