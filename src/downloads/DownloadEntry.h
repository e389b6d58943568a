// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// How far an entry of the download list has come.
enum class DownloadTag {
    None, ///< added, not queued
    Waiting, ///< "W"
    Running, ///< "V"; it stays when the user stops the transfer
    Complete, ///< "C": as many bytes as were announced
    Warning, ///< "S": ended, but the size does not confirm it
    Failed, ///< "F"
};

/// What the status column says of an entry.
enum class DownloadStatus {
    None,
    Enqueued,
    Requesting,
    Loading, ///< with a speed, once the body arrives
    Complete,
    TooShort, ///< other than announced, or not announced at all
    Relocated,
    UnsupportedProtocol,
    EarlyDisconnect,
    NetError,
    CannotCreateDirectory,
    FileExists,
    CannotCreateFile,
    CannotWrite,
};

/// One entry of the download list.
struct DownloadEntry {
    quint64 id = 0; ///< from 1, ascending in the order of the list
    QByteArray url; ///< becomes the new address when the server relocates it
    QByteArray referer;
    DownloadTag tag = DownloadTag::None;
    DownloadStatus status = DownloadStatus::None;
    std::optional<qint64> speed; ///< in bytes per second, of a transfer whose body arrives
    std::optional<qint64> received; ///< bytes of the body; nothing before it
    qint64 size = -1; ///< in bytes; -1 when unknown
    QString target; ///< full path of the file, once created
};

/// "W", "V", "C", "S" or "F"; empty for an entry that is not queued.
[[nodiscard]] QByteArray letterOf(DownloadTag tag);
