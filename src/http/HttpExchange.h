// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/AnswerHead.h"
#include "http/ExchangeFailure.h"

#include <QByteArray>
#include <QObject>

class RequestExtras;

/// What is known of a body when its exchange ends.
enum class BodyEnd {
    Closed, ///< the connection was closed; whether the body is whole is for the announced length to say
    Whole, ///< the body had its length or its last chunk
};

/// One request and its answer: connects, sends, hands on header and body, and ends exactly once, with `closed` or
/// `failed`, unless it is aborted. No signal comes from within `start`, so a chain of exchanges that fail at once never
/// nests.
class HttpExchange : public QObject {
    Q_OBJECT

public:
    /// A body is handed on in pieces of at most this many bytes.
    static constexpr qint64 readAhead = 256 * 1024;

    using QObject::QObject;

    /// Begins connecting to the host of `url` once control is back in the event loop.
    virtual void start(const QByteArray& url) = 0;
    /// Sends the request for `url`; called when `connected` was emitted.
    virtual void request(const QByteArray& url, const QByteArray& referer, const RequestExtras& extras) = 0;
    /// The rest of the answer is not wanted: `closed` follows, at once or when the connection can be used again. No
    /// other signal is emitted any more. Called behind the header.
    virtual void skipRest() = 0;
    /// Ends the exchange now, without a signal, and closes the connection. May be called from a slot of any signal.
    virtual void abort() = 0;

signals:
    void connected();
    void headerArrived(const AnswerHead& head);
    /// The next piece of the body.
    void bodyArrived(const QByteArray& piece);
    /// The answer has ended. All that came of it was handed on before.
    void closed(BodyEnd end);
    void failed(const ExchangeFailure& failure);
};
