// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// URLs of modern web mode.
namespace webUrl {

/// The absolute URL, without its fragment, that `reference` leads to from `base`; empty if it makes no URL.
[[nodiscard]] QByteArray resolved(const QByteArray& base, const QByteArray& reference);

/// A URL that a plain search has recorded. Such a search writes port 80 where an https URL has none.
[[nodiscard]] QByteArray fromPlainSearch(const QByteArray& url);

} // namespace webUrl
