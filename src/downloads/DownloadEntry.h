// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "downloads/WrittenFile.h"
#include "http/ExchangeFailure.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// The state of an entry of the download list.
enum class DownloadTag {
    None, ///< added, not queued
    Waiting, ///< "W"
    Running, ///< "V": being transferred, or stopped by the user
    Complete, ///< "C": as many bytes arrived as were announced
    Warning, ///< "S": ended, but not with the announced size
    Failed, ///< "F"
};

/// The text of an entry in the status column.
enum class DownloadStatus {
    None,
    Enqueued,
    Requesting,
    Loading, ///< the body arrives; shown with its speed
    Stopped, ///< by the user
    Complete,
    TooShort, ///< the size differs from the announced one, or none was announced
    Relocated,
    UnsupportedProtocol,
    EarlyDisconnect,
    NetError,
    CannotCreateDirectory,
    FileExists,
    CannotCreateFile,
    CannotWrite,
    Refused, ///< the HTTP status is an error, and such answers are not to be saved
};

/// One entry of the download list.
struct DownloadEntry {
    /// From this HTTP status on, an answer is an error page instead of the file.
    static constexpr int firstErrorStatus = 400;

    quint64 id = 0; ///< from 1, ascending in the order of the list
    QByteArray url; ///< becomes the new address when the server relocates it
    QByteArray referer;
    DownloadTag tag = DownloadTag::None;
    DownloadStatus status = DownloadStatus::None;
    std::optional<qint64> speed; ///< in bytes per second; set while the body arrives
    std::optional<qint64> received; ///< bytes of the body; set when the body begins
    qint64 size = -1; ///< in bytes; -1 when unknown
    int httpStatus = 0; ///< of the last answer; 0 without one
    std::optional<ExchangeFailure> failure; ///< of the network, in the last transfer
    QString target; ///< full path of the file; empty until it is created
    std::optional<WrittenFile> written; ///< by the last transfer that created a file
};

/// "W", "V", "C", "S" or "F"; empty for an entry that is not queued.
[[nodiscard]] QByteArray letterOf(DownloadTag tag);
