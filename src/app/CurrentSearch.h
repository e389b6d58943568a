// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/SearchStatus.h"
#include "results/SearchFileReader.h"

#include <QObject>

#include <optional>

class SearchOpening;
class Session;

/// The search that the program has at hand: what can be done with it, how far it is, and the file that keeps it.
class CurrentSearch final : public QObject {
    Q_OBJECT

public:
    /// `session` must outlive it.
    explicit CurrentSearch(Session& session);

    /// Drops the search and starts a new one by the session's options, which have been confirmed.
    void start();
    void stop();
    void continueSearch();

    /// Reads a search file; when that can be done, its search takes the place of this one, and its options and
    /// preferences those of the session. Ends with `opened`, unless another search is opened or started before.
    void open(const QString& fileName);
    /// Replaces a file and makes it this search's. Returns the system's error text on failure.
    [[nodiscard]] std::optional<QString> save(const QString& fileName);

    [[nodiscard]] SearchStatus status() const;
    /// Empty for a search that was neither opened nor saved.
    [[nodiscard]] const QString& fileName() const { return m_fileName; }

signals:
    /// The state or the file name is another.
    void changed();
    /// A file was read as far as `result` tells. `mimeTypes` are those of its items. Unless it could not be read at
    /// all, its search is the current one now.
    void opened(const QString& fileName, const SearchFile::LoadResult& result, const MimeListe& mimeTypes);

private:
    void enter(SearchState state);
    void takeOpened();

    Session& m_session;
    SearchStatus m_status;
    QString m_fileName;
    SearchOpening* m_opening = nullptr;
};
