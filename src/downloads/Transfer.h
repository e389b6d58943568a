// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/HttpExchange.h"
#include "downloads/DLGeschwindigkeitsmessung.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>

class RequestExtras;
enum class DownloadStatus;
struct DownloadEntry;
struct DownloadSettings;

/// One transfer: asks for an entry's URL, names and creates the target file, and writes the body to it as it arrives.
/// What happens is recorded in the entry. It ends once, with `ended` or by `stop`.
class Transfer final : public QObject {
    Q_OBJECT

public:
    /// The body goes to the file and the meter in pieces of at most this many bytes.
    static constexpr qsizetype pieceSize = 32 * 1024;

    /// The entry's URL is one of "http". All that is referred to must outlive the transfer.
    Transfer(DownloadEntry& entry, const DownloadSettings& settings, RequestExtras& extras,
        DLGeschwindigkeitsmessung& meter, QObject* parent);

    /// Begins connecting; no signal comes from within.
    void start();
    /// Closes connection and file and leaves the entry as it is, without a signal.
    void stop();

signals:
    /// The entry shows something else.
    void changed();
    void ended();

private:
    void onConnected();
    void onHeader(const QByteArray& header);
    void onBody(const QByteArray& body);
    void onClosed();
    void openTarget(const QByteArray& header);
    [[nodiscard]] bool writePiece(const char* bytes, qsizetype size);
    void fail(DownloadStatus why);
    void end();

    DownloadEntry& m_entry;
    const DownloadSettings& m_settings;
    RequestExtras& m_extras;
    HttpExchange m_exchange;
    QFile m_file;
    DLGeschwindigkeitsmessung& m_meter;
    QElapsedTimer m_clock;
};
