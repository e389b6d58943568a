// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/BodyBuffer.h"
#include "crawl/FundListe.h"
#include "crawl/HttpExchange.h"

#include <QObject>

class RequestExtras;

/// What has just happened to an item's fetch.
enum class FetchEvent {
    Connecting,
    Requesting,
    UnsupportedProtocol,
    Relocated, ///< `detail` is the Location value as received
    EarlyDisconnect,
    SocketError, ///< `detail` is the error number, ":" and its description
};

/// A fetch event with its data. It becomes text where it is shown.
struct FetchReport {
    FetchEvent event = FetchEvent::Connecting;
    QByteArray detail;
};

/// What a search has settled for a fetch.
struct FetchRules {
    bool followRelocation = true; ///< whether 301, 302 and 307 end the fetch as relocated
    bool wantsReferences = true; ///< whether the body is kept if it is HTML
    /// A body that exceeds this many bytes ends with the piece that does it.
    qsizetype bodyLimit = qsizetype { 1 } << 30;
};

/// One fetch of a found item: asks the server for it, records in the item what the server says, and keeps the body of
/// a page. It ends once, with `ended` or by `close`; the item's state then tells how, and is never "not fetched".
class ItemFetch final : public QObject {
    Q_OBJECT

public:
    /// The item must outlive the fetch.
    ItemFetch(FundStück& item, const FetchRules& rules, RequestExtras& extras, QObject* parent);

    /// Begins connecting. Nothing but the first report is signalled from within.
    void start();
    /// Closes the connection as if the server had done it, without `ended`.
    void close();
    /// Closes the connection and leaves the item's state as it is, without a signal.
    void abort() { m_exchange.abort(); }

    /// The Location value, once the item was relocated.
    [[nodiscard]] const QByteArray& location() const { return m_location; }
    /// The page as far as it arrived. Only once.
    [[nodiscard]] BodyBuffer takeBody();

signals:
    void reported(const FetchReport& report);
    /// The answer's fields were set in the item.
    void answered();
    void ended();

private:
    void onConnected();
    void onHeader(const QByteArray& header);
    void onBody(const QByteArray& piece);
    void onFailed(const SocketFailure& failure);
    void takeAnswer(const QByteArray& header);
    void end();

    FundStück& m_item;
    FetchRules m_rules;
    RequestExtras& m_extras;
    HttpExchange m_exchange;
    BodyBuffer m_empfangsPuffer;
    QByteArray m_location;
};
