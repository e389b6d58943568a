// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include <functional>

/// The dialogs in which a user names a file. Nothing waits for them: `chosen` is called with the full path when one was
/// named, and never when the dialog was cancelled.
class FileDialogs {
public:
    struct FileType {
        QString label;
        QString pattern; ///< such as "*.twk"
    };

    struct Request {
        QString title;
        QList<FileType> types;
        QString proposal; ///< the file name to begin with; may be empty
        QString extension; ///< when saving, added to a name that does not end in it; no dot
        QString folder = {}; ///< where the dialog begins; empty for where the last one without a folder ended
    };

    virtual ~FileDialogs() = default;

    virtual void open(const Request& request, std::function<void(const QString& path)> chosen) = 0;
    /// Asks before an existing file is replaced.
    virtual void save(const Request& request, std::function<void(const QString& path)> chosen) = 0;
    /// Begins in the folder `proposal`.
    virtual void folder(
        const QString& title, const QString& proposal, std::function<void(const QString& path)> chosen) = 0;
};
