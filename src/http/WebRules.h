// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/httpHeader.h"

#include <QByteArray>
#include <QSet>
#include <QString>

#include <chrono>

/// How the program speaks to servers. The rules are handed on by reference, so a change holds from the next exchange
/// on. Code asks for the rule that it needs, never for a mode: the defaults are those of plain mode, `modern` sets
/// those of modern web mode.
struct WebRules {
    /// An exchange that gets no byte for so long ends; 0 means no limit.
    std::chrono::seconds silenceLimit { 0 };
    /// A connection that is not made in so long fails; 0 means that the system's limit holds.
    std::chrono::seconds connectLimit { 0 };

    /// Connections are used for one request after the other, speak TLS for https, and their answers end by length or
    /// chunks.
    bool keepsConnections = false;
    /// Cookies follow RFC 6265, in a store of their own.
    bool keepsWebCookies = false;
    /// 303 and 308 lead elsewhere as well.
    bool followsEveryRelocation = false;
    /// An answer with a status of 400 or more is no download.
    bool refusesErrorPages = false;

    QString certificateFile; ///< PEM certificates that are accepted beside the system's; empty for none
    QSet<QByteArray> exceptedHosts; ///< in small letters; any certificate of theirs is accepted
    QString proxy; ///< an http or socks5 URL, "none", or empty for the system's

    /// Whether URLs of this protocol can be fetched.
    [[nodiscard]] bool fetches(QByteArrayView protocol) const
    {
        return protocol == "http" || (keepsConnections && protocol == "https");
    }

    /// Whether a status sends the client elsewhere.
    [[nodiscard]] bool relocates(qint32 status) const
    {
        return httpHeader::isRelocation(status) || (followsEveryRelocation && (status == 303 || status == 308));
    }

    /// The rules of modern web mode with its default numbers.
    [[nodiscard]] static WebRules modern();
};
