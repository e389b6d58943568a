// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SideWindows.h"

#include "app/WindowPlace.h"
#include "base/window/ColumnsTable.h"
#include "crawl/window/dialog_getSearch.h"
#include "downloads/window/DLManager.h"
#include "downloads/window/getDLStack.h"
#include "requests/window/dialog_requests.h"
#include "results/window/dialog_openBy.h"
#include "session/Session.h"

#include <utility>

SideWindows::SideWindows(Session& session, const Seams& seams, QWidget& main)
    : m_session(session)
    , m_seams(seams)
    , m_main(main)
{
}

SideWindows::~SideWindows() = default;

void SideWindows::showNewSearch()
{
    if (!m_newSearch) {
        m_newSearch = new dialog_getSearch(m_session.searchOptions, m_seams, &m_main);
        connect(m_newSearch, &dialog_getSearch::confirmed, this, &SideWindows::searchConfirmed);
    }
    m_newSearch->showOptions();
    m_newSearch->open();
}

void SideWindows::showNumbered()
{
    if (!m_numbered) {
        m_numbered = new getDLStack(m_session.downloads, m_seams, &m_main);
        connect(m_numbered, &getDLStack::confirmed, this, &SideWindows::showDownloadsIfWanted);
    }
    m_numbered->open();
}

void SideWindows::showRequests()
{
    if (!m_requests)
        m_requests =
            new dialog_requests(m_session.requestPrefs, m_session.ownRequestPrefs, m_session.cookies, m_seams, &m_main);
    m_requests->run();
}

void SideWindows::showOpenBy(std::function<QList<QByteArray>()> urls)
{
    if (!m_openBy)
        m_openBy = new dialog_openBy(m_seams, &m_main);
    m_openBy->run(std::move(urls));
}

void SideWindows::showDownloads()
{
    DLManager& window = downloads();
    window.show();
    window.raise();
    window.activateWindow();
}

void SideWindows::showDownloadsIfWanted()
{
    if (m_session.windows.autoOpenDLM)
        showDownloads();
}

DLManager& SideWindows::downloads()
{
    if (!m_downloads) {
        m_downloads = std::make_unique<DLManager>(m_session.downloads, m_seams);
        const WindowSettings& windows = m_session.windows;
        windowPlace::restore(*m_downloads, { windows.dlmWidth, windows.dlmHeight }, m_session.views.downloadsPlace);
        m_downloads->list().restoreColumns(m_session.views.downloadsColumns);
    }
    return *m_downloads;
}

void SideWindows::showOptions()
{
    if (m_newSearch)
        m_newSearch->showOptions();
    if (m_requests)
        m_requests->showLanguages();
}

void SideWindows::rememberState() const
{
    if (!m_downloads)
        return;
    const QSize size = windowPlace::twipsOf(*m_downloads);
    m_session.windows.dlmWidth = size.width();
    m_session.windows.dlmHeight = size.height();
    m_session.views.downloadsPlace = windowPlace::placeOf(*m_downloads);
    m_session.views.downloadsColumns = m_downloads->list().columnState();
}
