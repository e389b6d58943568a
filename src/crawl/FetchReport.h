// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// What has just happened to an item's fetch.
enum class FetchEvent {
    Connecting,
    Requesting,
    UnsupportedProtocol,
    Relocated, ///< `detail` is the Location value as received
    EarlyDisconnect,
    SocketError, ///< `detail` is the error number, ":" and its description
    BadPort, ///< `detail` is the port, which is outside 1 to 65535
    Silence, ///< `detail` is the time limit in seconds, in which no byte came
};

/// A fetch event with its data. The text is made where it is shown.
struct FetchReport {
    FetchEvent event = FetchEvent::Connecting;
    QByteArray detail;

    bool operator==(const FetchReport&) const = default;
};
