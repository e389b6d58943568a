// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/window/FoundModel.h"
#include "results/window/HostTree.h"

#include <QWidget>

class FilterPane;
class FittingArea;
class FoundsView;
class HostTreeView;
class QSplitter;
class Session;
struct SearchStatus;

/// The middle of the main window: the found items as list and tree, and the filter pane that narrows them. It follows
/// the search run of the session.
class ResultsArea final : public QWidget {
    Q_OBJECT

public:
    /// `session` must outlive the area.
    ResultsArea(Session& session, QWidget* parent);
    ~ResultsArea() override;

    [[nodiscard]] FoundModel& founds() { return m_founds; }
    [[nodiscard]] FoundsView& list() { return *m_list; }
    [[nodiscard]] int shownCount() const { return m_founds.rowCount(); }

    /// Chooses the rows of the list and the branches of the tree anew.
    void rebuild();
    /// Takes MIME types into the filter's list.
    void meet(const MimeTypeList& types);
    /// Expands the branch of this URL's host, as soon as it is there.
    void expandHostOf(const QByteArray& url);
    /// The unit of the sizes in the list and of the filter's bounds.
    void setSizeUnit(qint64 bytes, const QString& name);
    void showTree(bool on);
    void showFilter(bool on);
    /// Applies the filter if it was changed while changes were not applied at once.
    void applyWaitingFilter();
    /// Shows what the status says about the results.
    void showStatus(const SearchStatus& status);

    /// Applies what the session remembers of columns and splitter, and writes it back.
    void restoreState();
    void rememberState();

signals:
    /// The number of found or shown items has changed, or the filter.
    void countChanged();
    void filterCloseClicked();

private:
    void layOut();
    void followSearch();
    void wireFilter();
    void filterChanged();
    void applyFilter();
    [[nodiscard]] int treeWidth() const;

    Session& m_session;
    FoundModel m_founds;
    HostTree m_hosts;
    HostTreeView* m_tree;
    FoundsView* m_list;
    FittingArea* m_filterArea;
    FilterPane* m_filter;
    QSplitter* m_splitter;
    bool m_filterWaits = false; ///< the filter was changed since it was applied
};
