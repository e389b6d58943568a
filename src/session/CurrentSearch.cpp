// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CurrentSearch.h"

#include "results/SearchFileWriter.h"
#include "session/SearchOpening.h"
#include "session/Session.h"

#include <memory>
#include <utility>

CurrentSearch::CurrentSearch(Session& session)
    : m_session(session)
{
    connect(&session.search, &SearchRun::finished, this, [this] { enter(SearchState::Finished); });
    connect(&session.search, &SearchRun::limitReached, this, [this] { enter(SearchState::Stopped); });
}

void CurrentSearch::start()
{
    delete std::exchange(m_opening, nullptr);
    letGo();
    revokeCookies();
    m_fileName.clear();
    m_session.filter.branch.reset();
    m_status.startUrl = m_session.searchOptions.startUrl;
    m_status.depthLimit = m_session.searchOptions.tiefe;
    enter(SearchState::Searching);
    m_session.search.starteSuche(m_session.searchOptions);
}

void CurrentSearch::stop()
{
    m_session.search.stopSearch();
    enter(SearchState::Stopped);
}

void CurrentSearch::continueSearch()
{
    delete std::exchange(m_opening, nullptr);
    m_status.depthLimit = m_session.searchOptions.tiefe;
    enter(SearchState::Searching);
    m_session.search.continueSearch(m_session.searchOptions);
}

void CurrentSearch::open(const QString& fileName)
{
    // A file names its sub-URLs and languages in full, and the follow mode unless it is the first.
    SearchOptions options = m_session.searchOptions;
    options.quellUrl.clear();
    options.followSub = FollowMode::All;
    options.unterpfade.clear();
    RequestPrefs prefs = m_session.requestPrefs;
    prefs.clearLanguages();
    // A permission for this search does not hold for the next one.
    if (m_areCookiesAllowed)
        prefs.useCookies = m_session.ownRequestPrefs.useCookies;

    delete m_opening;
    m_opening = new SearchOpening(fileName, options, prefs, this);
    connect(m_opening, &SearchOpening::ended, this, &CurrentSearch::takeOpened);
    emit changed();
}

void CurrentSearch::takeOpened()
{
    // Later, since one of its signals called this.
    SearchOpening* const opening = std::exchange(m_opening, nullptr);
    opening->deleteLater();
    StoredSearch& search = opening->search();
    if (searchFile::isUsable(opening->result().error)) {
        letGo();
        m_session.searchOptions = search.options;
        takePrefs(search.prefs);
        m_session.filter.branch.reset();
        m_fileName = opening->fileName();
        m_status.startUrl = search.options.startUrl;
        m_status.depthLimit = search.options.tiefe;
        m_session.search.openSearch(search.list);
        enter(SearchState::Loaded);
    }
    emit changed();
    emit opened(opening->fileName(), opening->result(), search.mimeTypes);
}

void CurrentSearch::takePrefs(RequestPrefs prefs)
{
    revokeCookies();
    RequestPrefs& inForce = m_session.requestPrefs;
    m_wantsCookies = prefs.useCookies && !inForce.useCookies;
    prefs.useCookies = prefs.useCookies && inForce.useCookies;
    prefs.dontWarnAboutCookiesAgain = inForce.dontWarnAboutCookiesAgain;
    inForce = prefs;
}

void CurrentSearch::allowCookies()
{
    m_areCookiesAllowed = std::exchange(m_wantsCookies, false);
    if (m_areCookiesAllowed)
        m_session.requestPrefs.useCookies = true;
}

void CurrentSearch::revokeCookies()
{
    m_wantsCookies = false;
    // The user may have chosen in the dialog since.
    if (std::exchange(m_areCookiesAllowed, false))
        m_session.requestPrefs.useCookies = m_session.ownRequestPrefs.useCookies;
}

void CurrentSearch::importList(const QString& fileName, listFormat::Format format)
{
    m_isImporting = true;
    emit changed();
    const auto list = std::make_shared<ListReader>(fileName, format);
    m_importing.add([this, list, fileName] {
        if (list->readLine([this](FundStück item) { m_session.search.record(std::move(item)); }))
            return true;
        if (m_session.foundItems.getAnzahl() > 0)
            m_status.state = SearchState::Loaded;
        m_isImporting = false;
        emit changed();
        emit imported(fileName, *list);
        return false;
    });
}

void CurrentSearch::stopImporting()
{
    m_importing.clear();
    m_isImporting = false;
}

void CurrentSearch::save(const QString& fileName)
{
    finishSaving();
    m_writer = std::make_shared<SearchFileWriter>(
        fileName, m_session.searchOptions, m_session.requestPrefs, m_session.foundItems);
    m_saving.add([this, writer = m_writer, fileName] {
        if (!writer->writeSome())
            return true;
        m_writer.reset();
        const auto error = writer->commit();
        if (!error) {
            m_fileName = fileName;
            emit changed();
        }
        emit saved(fileName, error);
        return false;
    });
}

void CurrentSearch::letGo()
{
    stopImporting();
    finishSaving();
    emit aboutToDrop();
}

SearchStatus CurrentSearch::status() const
{
    SearchStatus status = m_status;
    status.found = m_session.foundItems.getAnzahl();
    status.opening = m_opening || m_isImporting;
    return status;
}

void CurrentSearch::enter(SearchState state)
{
    m_status.state = state;
    emit changed();
}
