// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/RequestExtras.h"

#include <QList>

/// Adds no lines to requests, unless a test sets a member. Remembers the cookies of answers.
struct PlainExtras final : RequestExtras {
    std::optional<QByteArray> userAgent;
    std::optional<QByteArray> languages;
    QByteArray cookies;
    bool referer = false;
    QByteArrayList takenCookies;

    [[nodiscard]] std::optional<QByteArray> userAgentLine() const override { return userAgent; }
    [[nodiscard]] std::optional<QByteArray> acceptLanguageLine() const override { return languages; }
    [[nodiscard]] QByteArray cookieLine(const QByteArray&) const override { return cookies; }
    [[nodiscard]] bool sendsReferer() const override { return referer; }
    void takeCookies(const QByteArrayList& setCookieValues, const QByteArray&) override
    {
        takenCookies += setCookieValues;
        takenCookies.removeAll({});
    }
};
