// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHashFunctions>

#include <optional>

/// Where a connection leads: the scheme, the host and the port of a URL.
struct Origin {
    bool isSecure = false; ///< https
    QByteArray host; ///< in small letters; an IPv6 address without its brackets
    quint16 port = 0;

    bool operator==(const Origin&) const = default;

    /// The origin of an http or https URL, without the user and password that it may carry. A port that is not written
    /// is the scheme's own. Nothing for another scheme, without a host, or with a port outside 1 to 65535.
    [[nodiscard]] static std::optional<Origin> of(QByteArrayView url);

    /// The value of a Host field: an IPv6 address in brackets, the port only if it is not the scheme's own.
    [[nodiscard]] QByteArray hostField() const;
    [[nodiscard]] quint16 ownPort() const { return isSecure ? 443 : 80; }
};

[[nodiscard]] inline size_t qHash(const Origin& origin, size_t seed = 0)
{
    return qHashMulti(seed, origin.isSecure, origin.host, origin.port);
}
