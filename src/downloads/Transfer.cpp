// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/Transfer.h"

#include "base/allgemein.h"
#include "downloads/DownloadEntry.h"
#include "downloads/DownloadSettings.h"
#include "downloads/TargetName.h"
#include "http/Connections.h"
#include "http/RequestExtras.h"
#include "http/WebRules.h"
#include "http/newExchange.h"
#include "http/url.h"
#include "http/webUrl.h"

Transfer::Transfer(DownloadEntry& entry, const DownloadSettings& settings, RequestExtras& extras,
    Connections& connections, DLGeschwindigkeitsmessung& meter, QObject* parent)
    : QObject(parent)
    , m_entry(entry)
    , m_settings(settings)
    , m_extras(extras)
    , m_rules(connections.rules())
    , m_exchange(newExchange(connections))
    , m_meter(meter)
{
    connect(m_exchange.get(), &HttpExchange::connected, this, &Transfer::onConnected);
    connect(m_exchange.get(), &HttpExchange::headerArrived, this, &Transfer::onHeader);
    connect(m_exchange.get(), &HttpExchange::bodyArrived, this, &Transfer::onBody);
    connect(m_exchange.get(), &HttpExchange::failed, this, [this](const auto& failure) {
        m_entry.failure = failure;
        fail(DownloadStatus::NetError);
    });
    connect(m_exchange.get(), &HttpExchange::closed, this, &Transfer::onClosed);
}

void Transfer::start()
{
    m_entry.tag = DownloadTag::Running;
    m_entry.httpStatus = 0;
    m_entry.failure.reset();
    m_clock.start();
    m_exchange->start(m_entry.url);
}

void Transfer::stop()
{
    m_exchange->abort();
    if (!m_file.isOpen())
        return;
    m_file.close();
    m_entry.written = WrittenFile::at(m_file.path(), extent());
}

WrittenFile::Extent Transfer::extent() const
{
    if (m_entry.tag == DownloadTag::Complete)
        return WrittenFile::Whole;
    const bool hasAllBytes = m_entry.received == m_entry.size;
    return m_entry.tag == DownloadTag::Warning || hasAllBytes ? WrittenFile::Unconfirmed : WrittenFile::Part;
}

void Transfer::onConnected()
{
    m_entry.status = DownloadStatus::Requesting;
    emit changed();
    m_exchange->request(m_entry.url, m_entry.referer, m_extras);
}

void Transfer::onHeader(const AnswerHead& head)
{
    m_extras.takeCookies(head.cookies, m_entry.url);
    m_entry.httpStatus = head.status;
    if (m_settings.followRelocation && m_rules.relocates(m_entry.httpStatus)) {
        if (!head.location.isEmpty())
            m_entry.url = allgemein::onOneLine(targetOf(head.location));
        fail(DownloadStatus::Relocated);
        return;
    }
    const bool refusesErrors = m_settings.refuseErrors || m_rules.refusesErrorPages;
    if (refusesErrors && m_entry.httpStatus >= DownloadEntry::firstErrorStatus) {
        fail(DownloadStatus::Refused);
        return;
    }
    const TargetName target = TargetName::of(m_entry.url, head.type, m_settings.naming);
    if (const auto failure = m_file.open(m_settings.target, target, m_settings.overwrite, m_entry.written)) {
        fail(*failure);
        return;
    }
    // The settings may have changed since the entry was stopped, so that the file has another place now.
    if (m_entry.written && m_entry.written->path != m_file.path())
        m_entry.written->removePart();
    beginBody(head.length);
}

QByteArray Transfer::targetOf(const QByteArray& location) const
{
    return m_rules.keepsConnections ? webUrl::resolved(m_entry.url, location)
                                    : url::resolveReference(m_entry.url, location);
}

void Transfer::beginBody(qint64 size)
{
    m_entry.target = m_file.path();
    m_entry.status = DownloadStatus::Loading;
    m_entry.speed.reset();
    m_entry.received = 0;
    m_entry.size = size;
    emit changed();
    // The measurement of the speed begins now, even if the body's first bytes come later.
    onBody({});
}

void Transfer::onBody(const QByteArray& piece)
{
    // A server may send more than it announced, and never stop. The first byte too many ends the transfer.
    const bool isAnnounced = m_entry.size >= 0;
    const qint64 wanted = isAnnounced ? m_entry.size - *m_entry.received + 1 : piece.size();
    const QByteArrayView body = QByteArrayView(piece).first(qMin(wanted, piece.size()));
    qsizetype at = 0;
    do {
        if (!writePiece(body.data() + at, qMin(pieceSize, body.size() - at))) {
            fail(DownloadStatus::CannotWrite);
            return;
        }
        at += pieceSize;
    } while (at < body.size());
    m_entry.speed = m_meter.getDurschnittsGeschwindigkeit();
    emit changed();
    if (isAnnounced && *m_entry.received > m_entry.size)
        onClosed(BodyEnd::Closed);
}

bool Transfer::writePiece(const char* bytes, qsizetype size)
{
    const bool written = m_file.write(bytes, size);
    *m_entry.received += size;
    m_meter.push(m_clock.elapsed(), *m_entry.received);
    return written;
}

void Transfer::onClosed(BodyEnd end)
{
    if (!m_file.isOpen()) {
        fail(DownloadStatus::EarlyDisconnect);
        return;
    }
    // Where only the close of the connection ends a body, a size that was not announced counts as 0, so such a file is
    // complete only if it is empty.
    const bool complete = end == BodyEnd::Whole || (m_entry.size == -1 ? 0 : m_entry.size) == m_entry.received;
    m_entry.status = complete ? DownloadStatus::Complete : DownloadStatus::TooShort;
    m_entry.tag = complete ? DownloadTag::Complete : DownloadTag::Warning;
    finish();
}

void Transfer::fail(DownloadStatus why)
{
    m_entry.status = why;
    m_entry.tag = DownloadTag::Failed;
    finish();
}

void Transfer::finish()
{
    stop();
    emit changed();
    emit ended();
}
