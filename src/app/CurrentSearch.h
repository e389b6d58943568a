// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/SearchStatus.h"
#include "base/StepQueue.h"
#include "results/ListReader.h"
#include "results/SearchFileReader.h"

#include <QObject>

#include <memory>
#include <optional>

class SearchFileWriter;
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
    /// Adds the items of a list in a file to the search, those whose URLs it does not have yet. Ends with `imported`;
    /// the search can be continued then.
    void importList(const QString& fileName, listFormat::Format format);
    /// Replaces a file and makes it this search's, between other events. Ends with `saved`.
    void save(const QString& fileName);
    /// Does at once what is left of the saving.
    void finishSaving() { m_saving.finish(); }

    [[nodiscard]] SearchStatus status() const;
    /// Empty for a search that was neither opened nor saved.
    [[nodiscard]] const QString& fileName() const { return m_fileName; }

signals:
    /// All items are about to go, since another search takes the place of this one.
    void aboutToDrop();
    /// The state or the file name is another.
    void changed();
    /// A file was read as far as `result` tells. `mimeTypes` are those of its items. Unless it could not be read at
    /// all, its search is the current one now.
    void opened(const QString& fileName, const SearchFile::LoadResult& result, const MimeListe& mimeTypes);

    /// `error` is what the system says if the file could not be saved.
    void saved(const QString& fileName, const std::optional<QString>& error);
    /// A list was read as far as `list` tells.
    void imported(const QString& fileName, const ListReader& list);

private:
    void enter(SearchState state);
    void takeOpened();
    void stopImporting();
    /// Brings everything to an end that needs the items.
    void letGo();

    Session& m_session;
    SearchStatus m_status;
    QString m_fileName;
    SearchOpening* m_opening = nullptr;
    StepQueue m_importing;
    bool m_isImporting = false;
    StepQueue m_saving;
    std::shared_ptr<SearchFileWriter> m_writer; ///< while a file is saved
};
