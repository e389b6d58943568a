// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

#include <chrono>
#include <optional>

class QDateTime;

/// How long a server asks to wait by the value of a Retry-After field: seconds, or a date in one of the three formats
/// of RFC 9110. At least 0, also for a date that is past; at most `most`. Nothing if the value is neither.
[[nodiscard]] std::optional<std::chrono::seconds> retryAfter(
    QByteArrayView value, const QDateTime& now, std::chrono::seconds most);
