// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ResultsArea.h"

#include "app/WindowPlace.h"
#include "base/window/FittingArea.h"
#include "results/window/FilterPane.h"
#include "results/window/FoundsView.h"
#include "results/window/HostTreeView.h"
#include "session/Session.h"

#include <QSplitter>
#include <QVBoxLayout>

ResultsArea::ResultsArea(Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_founds(session.foundItems, session.filter, session.language, nullptr)
    , m_hosts(session.foundItems, nullptr)
    , m_tree(new HostTreeView(m_hosts, this))
    , m_list(new FoundsView(m_founds, session.language, this))
    , m_filterArea(new FittingArea(this))
    , m_filter(new FilterPane(session.filter, m_filterArea))
    , m_splitter(new QSplitter(this))
{
    layOut();
    followSearch();
    wireFilter();
}

ResultsArea::~ResultsArea()
{
    // A search that is still running must not report to models that are being destroyed.
    m_session.search.disconnect(this);
}

void ResultsArea::layOut()
{
    m_tree->setObjectName(QStringLiteral("baum"));
    m_list->setObjectName(QStringLiteral("l_founds"));
    m_splitter->addWidget(m_tree);
    m_splitter->addWidget(m_list);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    const int line = fontMetrics().height();
    m_splitter->setSizes({ 16 * line, 46 * line });
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(m_splitter, 1);
    m_filterArea->setWidget(m_filter);
    // As high as the filter needs, so that the results keep the rest of the window.
    m_filterArea->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    rows->addWidget(m_filterArea);
    setFocusProxy(m_list);
}

void ResultsArea::followSearch()
{
    SearchRun& run = m_session.search;
    connect(&run, &SearchRun::recorded, this, [this](FundKnoten* node) {
        m_founds.offer(node);
        m_hosts.add(node->inhalt);
        m_filter->mimeTypes().meet(node->inhalt.mimeTyp);
        emit countChanged();
    });
    connect(&run, &SearchRun::refreshed, this, [this](FundKnoten* node) {
        m_founds.refresh(node);
        m_filter->mimeTypes().meet(node->inhalt.mimeTyp);
        emit countChanged();
    });
    connect(&run, &SearchRun::reported, &m_founds, &FoundModel::report);
    connect(&run, &SearchRun::cleared, this, [this] {
        m_filter->mimeTypes().forgetMet();
        m_founds.clear();
        m_hosts.clear();
        m_filterWaits = false; // new items are tested by the filter as it is now
    });
    connect(&run, &SearchRun::finished, this, &ResultsArea::rebuild);
    connect(&m_founds, &FoundModel::countChanged, this, &ResultsArea::countChanged);
}

void ResultsArea::wireFilter()
{
    connect(m_tree, &HostTreeView::branchChosen, this, [this](const SubUrl& branch) {
        m_session.filter.setBranch(branch);
        filterChanged();
    });
    connect(m_filter, &FilterPane::filterChanged, this, &ResultsArea::filterChanged);
    connect(m_filter, &FilterPane::applyClicked, this, &ResultsArea::applyFilter);
    connect(m_filter, &FilterPane::closeClicked, this, &ResultsArea::filterCloseClicked);
}

void ResultsArea::filterChanged()
{
    m_filter->showBranch();
    if (!m_session.filter.branch)
        m_tree->showRoot();
    m_filterWaits = true;
    if (m_session.windows.filterAutoApply)
        applyFilter();
    emit countChanged();
}

void ResultsArea::applyFilter()
{
    m_filterWaits = false;
    m_founds.rebuild();
}

void ResultsArea::applyWaitingFilter()
{
    if (m_filterWaits)
        applyFilter();
}

void ResultsArea::rebuild()
{
    applyFilter();
    m_hosts.rebuild();
}

void ResultsArea::meet(const MimeTypeList& types)
{
    for (const MimeTypeList::Entry& entry : types.entries())
        m_filter->mimeTypes().meet(entry.type);
}

void ResultsArea::expandHostOf(const QByteArray& url)
{
    m_tree->expandHostOf(url);
}

void ResultsArea::setSizeUnit(qint64 bytes, const QString& name)
{
    m_filter->setSizeUnit(bytes, name);
    filterChanged();
}

void ResultsArea::showFilter(bool on)
{
    m_session.windows.filter = on;
    m_filterArea->setVisible(on);
}

void ResultsArea::showTree(bool on)
{
    // A splitter forgets the width of a hidden widget.
    if (!on && m_tree->isVisible())
        m_session.windows.treeX = treeWidth();
    m_session.windows.tree = on;
    m_tree->setVisible(on);
}

void ResultsArea::showStatus(const SearchStatus& status)
{
    m_filter->setShownCount(shownCount());
    m_list->setEmptyText(status.emptyListText(m_founds.hidesAll(), m_filterWaits, m_session.language));
}

void ResultsArea::restoreState()
{
    m_list->restoreColumns(m_session.views.columns);
    if (m_session.windows.treeX > 0) {
        const int tree = windowPlace::pixels(m_session.windows.treeX);
        m_splitter->setSizes({ tree, window()->width() - tree });
    }
}

void ResultsArea::rememberState()
{
    m_filter->takeBounds();
    if (m_session.windows.tree)
        m_session.windows.treeX = treeWidth();
    m_session.views.columns = m_list->columnState();
}

/// In twips.
int ResultsArea::treeWidth() const
{
    return windowPlace::twips(m_splitter->sizes().constFirst());
}
