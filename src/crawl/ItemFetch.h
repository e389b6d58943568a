// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FetchReport.h"
#include "crawl/FundListe.h"
#include "http/BodyBuffer.h"
#include "http/HttpExchange.h"

#include <QObject>

#include <memory>

class Connections;
class RequestExtras;

/// The rules of a search for one fetch.
struct FetchRules {
    bool followRelocation = true; ///< whether 301, 302 and 307 end the fetch as relocated
    bool takesAllCookies = false; ///< whether all Set-Cookie fields of an answer count, or the first
    bool wantsReferences = true; ///< whether the body is kept if it is HTML
    /// In bytes. The fetch ends with the piece of the body that exceeds it.
    qsizetype bodyLimit = qsizetype { 256 } << 20;
};

/// One fetch of a found item: asks the server for it, records in the item what the server says, and keeps the body of
/// a page. It ends once, with `ended` or by `close`; the item's state then tells how, and is never "not fetched".
class ItemFetch final : public QObject {
    Q_OBJECT

public:
    /// The item, the extras and the connections must outlive the fetch.
    ItemFetch(
        FundStück& item, const FetchRules& rules, RequestExtras& extras, Connections& connections, QObject* parent);

    /// Begins connecting. From within, only the first report is signalled.
    void start();
    /// Closes the connection as if the server had done it, without `ended`.
    void close();
    /// Closes the connection and leaves the item's state as it is, without a signal.
    void abort() { m_exchange->abort(); }

    /// The Location value, once the item was relocated.
    [[nodiscard]] const QByteArray& location() const { return m_location; }
    /// The page as far as it arrived. May be called once.
    [[nodiscard]] BodyBuffer takeBody();

signals:
    void reported(const FetchReport& report);
    /// The answer's fields were set in the item.
    void answered();
    void ended();

private:
    void onConnected();
    void onHeader(const AnswerHead& head);
    void onBody(const QByteArray& piece);
    void onFailed(const ExchangeFailure& failure);
    void takeAnswer(const AnswerHead& head);
    void end();

    FundStück& m_item;
    FetchRules m_rules;
    RequestExtras& m_extras;
    std::unique_ptr<HttpExchange> m_exchange;
    BodyBuffer m_empfangsPuffer;
    QByteArray m_location;
};
