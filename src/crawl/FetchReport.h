// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/ExchangeFailure.h"

#include <QByteArray>

/// What has just happened to an item's fetch.
enum class FetchEvent {
    Connecting,
    Requesting,
    UnsupportedProtocol,
    Relocated, ///< `detail` is the Location value as received
    EarlyDisconnect,
    NetError, ///< `failure` tells the rest
};

/// A fetch event with its data. The text is made where it is shown.
struct FetchReport {
    FetchEvent event = FetchEvent::Connecting;
    QByteArray detail = {};
    ExchangeFailure failure = {};

    bool operator==(const FetchReport&) const = default;
};
