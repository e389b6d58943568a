// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StepQueue.h"
#include "results/ListReader.h"
#include "results/SearchFileReader.h"
#include "session/SearchStatus.h"

#include <QObject>

#include <memory>
#include <optional>

class SearchFileWriter;
class SearchOpening;
class Session;

/// The search that the program shows: its commands, its state, and its file.
class CurrentSearch final : public QObject {
    Q_OBJECT

public:
    /// `session` must outlive it.
    explicit CurrentSearch(Session& session);

    /// Drops the search and starts a new one by the session's options, which have been confirmed. The filter looks at
    /// all branches then, since the new search may have none of the old ones; the same holds for `open`.
    void start();
    void stop();
    void continueSearch();

    /// Reads a search file. If that succeeds, its search takes the place of this one, its options become the session's,
    /// and its request preferences hold while the program runs. Two things are left out: whether the user is warned of
    /// cookies again, and the sending of cookies, if that is off so far (see `wantsCookies`). Ends with `opened`,
    /// unless another search is opened or started before.
    void open(const QString& fileName);
    /// Whether the opened file wants stored cookies to be sent and nobody has agreed yet.
    [[nodiscard]] bool wantsCookies() const { return m_wantsCookies; }
    /// Sends stored cookies as the opened file wants, until another search begins. Does nothing if no file wants that.
    void allowCookies();
    /// Adds those items of a list file to the search whose URLs it does not have. Ends with `imported`; the search can
    /// be continued then.
    void importList(const QString& fileName, listFormat::Format format);
    /// Writes the search to a file between other events, and makes that the search's file. Ends with `saved`.
    void save(const QString& fileName);
    /// Writes the rest of a save at once.
    void finishSaving() { m_saving.finish(); }

    [[nodiscard]] SearchStatus status() const;
    /// Empty for a search that was neither opened nor saved.
    [[nodiscard]] const QString& fileName() const { return m_fileName; }

signals:
    /// All items are about to go, since another search replaces this one.
    void aboutToDrop();
    /// The state or the file name has changed.
    void changed();
    /// A file was read as far as `result` tells; if it is usable, its search is the current one now. `mimeTypes` are
    /// those of its items.
    void opened(const QString& fileName, const searchFile::LoadResult& result, const MimeTypeList& mimeTypes);

    /// `error` tells why, if the file could not be saved.
    void saved(const QString& fileName, const std::optional<FileError>& error);
    /// A list was read as far as `list` tells.
    void imported(const QString& fileName, const ListReader& list);

private:
    void enter(SearchState state);
    void takeOpened();
    void takePrefs(RequestPrefs prefs);
    void revokeCookies();
    void stopImporting();
    /// Ends all work that needs the items.
    void letGo();

    Session& m_session;
    SearchStatus m_status;
    QString m_fileName;
    bool m_wantsCookies = false;
    bool m_areCookiesAllowed = false; ///< by `allowCookies`, for this search only
    SearchOpening* m_opening = nullptr;
    StepQueue m_importing;
    bool m_isImporting = false;
    StepQueue m_saving;
    std::shared_ptr<SearchFileWriter> m_writer; ///< while a file is saved
};
