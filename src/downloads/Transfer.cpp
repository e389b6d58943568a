// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/Transfer.h"

#include "base/allgemein.h"
#include "crawl/httpHeader.h"
#include "crawl/url.h"
#include "downloads/DownloadEntry.h"
#include "downloads/DownloadSettings.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// A link would lead out of the target folder. Whoever else can write there could place one.
bool isLink(const QString& path)
{
    const QFileInfo there(path);
    return there.isSymbolicLink() || there.isJunction();
}

/// Creates a folder inside one that exists. That something is there already is no failure here: if it is no folder, the
/// file cannot be created. But a link is one.
bool makeFolder(const QString& path)
{
    return QDir().mkdir(path) || (QFileInfo::exists(path) && !isLink(path));
}

/// Whether something stands there that is no ordinary file. Writing to a pipe would wait for a reader.
bool isNoFile(const QString& path)
{
    const QFileInfo there(path);
    return isLink(path) || (there.exists() && !there.isFile());
}

} // namespace

Transfer::Transfer(DownloadEntry& entry, const DownloadSettings& settings, RequestExtras& extras,
    DLGeschwindigkeitsmessung& meter, QObject* parent)
    : QObject(parent)
    , m_entry(entry)
    , m_settings(settings)
    , m_extras(extras)
    , m_exchange(nullptr)
    , m_meter(meter)
{
    connect(&m_exchange, &HttpExchange::connected, this, &Transfer::onConnected);
    connect(&m_exchange, &HttpExchange::headerArrived, this, &Transfer::onHeader);
    connect(&m_exchange, &HttpExchange::bodyArrived, this, &Transfer::onBody);
    connect(&m_exchange, &HttpExchange::failed, this, [this] { fail(DownloadStatus::NetError); });
    connect(&m_exchange, &HttpExchange::closed, this, &Transfer::onClosed);
}

void Transfer::start()
{
    m_entry.tag = DownloadTag::Running;
    m_clock.start();
    m_exchange.start(url::hostOf(m_entry.url).toByteArray(), url::portOf(m_entry.url));
}

void Transfer::stop()
{
    m_exchange.abort();
    m_file.close();
}

void Transfer::onConnected()
{
    m_entry.status = DownloadStatus::Requesting;
    emit changed();
    m_exchange.send(httpHeader::baueAnfrage(m_entry.url, m_entry.referer, m_extras));
}

void Transfer::onHeader(const QByteArray& header)
{
    m_extras.takeCookies(httpHeader::setCookies(header), m_entry.url);
    if (m_settings.followRelocation && httpHeader::isRelocation(httpHeader::statusCode(header))) {
        const QByteArray location = httpHeader::location(header);
        if (!location.isEmpty())
            m_entry.url = allgemein::onOneLine(url::resolveReference(m_entry.url, location));
        fail(DownloadStatus::Relocated);
        return;
    }
    openTarget(header);
}

void Transfer::openTarget(const QByteArray& header)
{
    const auto named = targetName::of(m_entry.url, httpHeader::contentType(header), m_settings.naming);
    QString path = m_settings.target;
    bool folders = named.refusal != targetName::Refusal::Directory && (QDir().mkpath(path) || QFileInfo::exists(path));
    for (const QByteArray& directory : named.target.directories) {
        path += allgemein::fromSystem(directory);
        folders = folders && makeFolder(path);
        path = allgemein::withTrailingSeparator(path);
    }
    if (!folders) {
        fail(DownloadStatus::CannotCreateDirectory);
        return;
    }
    path += allgemein::fromSystem(named.target.name);
    m_file.setFileName(path);
    const QFile::OpenMode mode = m_settings.overwrite ? QFile::Truncate : QFile::NewOnly;
    // Unbuffered, so that a write that fails is known to have failed.
    if (named.refusal || isNoFile(path) || !m_file.open(QFile::WriteOnly | QFile::Unbuffered | mode)) {
        const bool exists = !named.refusal && !m_settings.overwrite && QFileInfo::exists(path);
        fail(exists ? DownloadStatus::FileExists : DownloadStatus::CannotCreateFile);
        return;
    }
    m_entry.target = path;
    m_entry.status = DownloadStatus::Loading;
    m_entry.speed.reset();
    m_entry.received = 0;
    m_entry.size = httpHeader::contentLength(header);
    emit changed();
    // The measurement begins here, whether the header brought a piece of the body with it or not.
    onBody({});
}

void Transfer::onBody(const QByteArray& body)
{
    qsizetype at = 0;
    do {
        if (!writePiece(body.constData() + at, qMin(pieceSize, body.size() - at))) {
            fail(DownloadStatus::CannotWrite);
            return;
        }
        at += pieceSize;
    } while (at < body.size());
    m_entry.speed = m_meter.getDurschnittsGeschwindigkeit();
    emit changed();
}

bool Transfer::writePiece(const char* bytes, qsizetype size)
{
    const bool written = m_file.write(bytes, size) == size;
    *m_entry.received += size;
    m_meter.push(m_clock.elapsed(), *m_entry.received);
    return written;
}

void Transfer::onClosed()
{
    if (!m_file.isOpen()) {
        fail(DownloadStatus::EarlyDisconnect);
        return;
    }
    // A size that was not announced counts as 0, so such a file is complete only if it is empty.
    const bool complete = (m_entry.size == -1 ? 0 : m_entry.size) == m_entry.received;
    m_entry.status = complete ? DownloadStatus::Complete : DownloadStatus::TooShort;
    m_entry.tag = complete ? DownloadTag::Complete : DownloadTag::Warning;
    end();
}

void Transfer::fail(DownloadStatus why)
{
    m_entry.status = why;
    m_entry.tag = DownloadTag::Failed;
    end();
}

void Transfer::end()
{
    stop();
    emit changed();
    emit ended();
}
