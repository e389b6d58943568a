// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "downloads/DLGeschwindigkeitsmessung.h"
#include "downloads/TargetFile.h"
#include "downloads/WrittenFile.h"
#include "http/HttpExchange.h"

#include <QElapsedTimer>
#include <QObject>

#include <memory>

class Connections;
class RequestExtras;
enum class DownloadStatus;
struct DownloadEntry;
struct DownloadSettings;
struct WebRules;

/// One transfer: requests an entry's URL, names and creates the target file, and writes the body to it as it arrives.
/// It keeps the entry up to date, and ends once: with `ended`, or by `stop`.
class Transfer final : public QObject {
    Q_OBJECT

public:
    /// The file and the meter get the body in pieces of at most this many bytes.
    static constexpr qsizetype pieceSize = 32 * 1024;

    /// The rules must fetch the protocol of the entry's URL. All arguments must outlive the transfer.
    Transfer(DownloadEntry& entry, const DownloadSettings& settings, RequestExtras& extras, Connections& connections,
        DLGeschwindigkeitsmessung& meter, QObject* parent);

    /// Begins connecting. No signal is emitted before this returns.
    void start();
    /// Closes connection and file without a signal. The entry learns the file, and stays as it is otherwise.
    void stop();

signals:
    /// The entry has changed.
    void changed();
    void ended();

private:
    void onConnected();
    void onHeader(const AnswerHead& head);
    void onBody(const QByteArray& piece);
    void onClosed(BodyEnd end);
    /// Where a relocation leads.
    [[nodiscard]] QByteArray targetOf(const QByteArray& location) const;
    /// `size` is the announced one; -1 when none was.
    void beginBody(qint64 size);
    [[nodiscard]] bool writePiece(const char* bytes, qsizetype size);
    /// How much of the file the transfer has written, judged by the entry.
    [[nodiscard]] WrittenFile::Extent extent() const;
    void fail(DownloadStatus why);
    void finish();

    DownloadEntry& m_entry;
    const DownloadSettings& m_settings;
    RequestExtras& m_extras;
    const WebRules& m_rules;
    std::unique_ptr<HttpExchange> m_exchange;
    TargetFile m_file;
    DLGeschwindigkeitsmessung& m_meter;
    QElapsedTimer m_clock;
};
