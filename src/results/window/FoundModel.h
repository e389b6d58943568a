// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/PacedUpdate.h"
#include "base/RowRuns.h"
#include "base/StepQueue.h"
#include "crawl/FetchReport.h"
#include "crawl/ListWalk.h"
#include "results/ResultFilter.h"
#include "results/RowChanges.h"
#include "results/window/StyleIcon.h"

#include <QAbstractTableModel>

#include <optional>
#include <vector>

class LanguageTable;

/// The found items that pass the filter, one row each, in the order in which they were found. The check box of a row is
/// its mark. Views are told of changes at most every 50 ms.
///
/// An item's `listIndex` is its row, from 1. It may be out of date for an item that has lost its row.
class FoundModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    /// All references must outlive the model.
    FoundModel(FundListe& list, const ResultFilter& filter, const LanguageTable& language, QObject* parent);

    /// Gives a new item a row if it passes the filter. An item that is taken out of the list keeps its row until the
    /// next rebuild.
    void offer(FundKnoten* node);
    /// Shows what an answer has changed in an item, with the status number instead of a state text. An item without a
    /// row gets one, behind all others, if it passes the filter now.
    void refresh(FundKnoten* node);
    /// Shows a state text in an item's row, if it has a row.
    void report(FundKnoten* node, const FetchReport& report);
    /// Drops all rows. Call it when their items are gone.
    void clear();
    /// Begins to choose the rows anew by the present filter. Runs between other events; at the end the views show the
    /// result and `rebuilt` is emitted. A second call starts over.
    void rebuild();

    [[nodiscard]] bool isRebuilding() const { return m_rebuild.isBusy(); }
    /// Whether the filter shows none of the items. False while a rebuild may find some.
    [[nodiscard]] bool hidesAll() const { return m_rows.empty() && !isRebuilding(); }

    /// The item of a row, from 0.
    [[nodiscard]] const FundStück& itemAt(int row) const { return rowAt(row).node->inhalt; }
    /// An item's size in the unit of the list; nullopt if it is unknown.
    [[nodiscard]] std::optional<qint64> shownSize(const FundStück& item) const;
    [[nodiscard]] RowRuns markedRows() const;
    /// Sets or removes the marks of rows.
    void setMarked(const RowRuns& rows, bool marked);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    /// The number of rows has changed.
    void countChanged();
    void rebuilt();

private:
    /// Small and trivially destructible: there may be millions of rows, which are all dropped at once.
    struct Row {
        FundKnoten* node = nullptr;
        FetchEvent event = FetchEvent::Connecting;
        bool hasStateText = false; ///< the status column shows the text of `event`
        bool marked = false;
    };
    [[nodiscard]] Row& rowAt(qint32 row) { return m_rows[static_cast<size_t>(row)]; }
    [[nodiscard]] const Row& rowAt(qint32 row) const { return m_rows[static_cast<size_t>(row)]; }
    /// The item's row, from 0; nullopt if it has none.
    [[nodiscard]] std::optional<qint32> rowOf(const FundKnoten* node) const;
    /// Requests that the views redraw rows.
    void showRows(qint32 firstRow, size_t count);
    void tellViews();
    /// A step of a rebuild; false at the end of the list.
    [[nodiscard]] bool chooseSome();
    void chooseOrHide(FundKnoten* node);
    void takeOver();
    void apply(const RowChange& change);
    void replaceAll();
    /// Numbers the rows in their items and drops the state texts.
    void restartRows();
    [[nodiscard]] QString text(const Row& row, int column) const;
    [[nodiscard]] QString statusText(const Row& row) const;
    [[nodiscard]] QVariant toolTip(const Row& row, int column) const;

    const ResultFilter& m_filter;
    const LanguageTable& m_language;
    std::vector<Row> m_rows;
    size_t m_told = 0; ///< the number of rows that the views know of
    // The range of rows to redraw; empty while first exceeds last.
    size_t m_firstChanged = 1;
    size_t m_lastChanged = 0;
    qint64 m_shownUnit; ///< the unit of all shown sizes: that of the last rebuild, in bytes
    PacedUpdate m_tellViews;

    ListWalk<FundListe> m_walk;
    ResultFilter m_rebuildFilter; ///< as it was when the rebuild began
    /// The rows that a running rebuild has chosen so far. Until its end, `m_rows` stays as it is.
    std::vector<RowChoice> m_next;
    std::vector<FundKnoten*> m_hidden; ///< the items that will lose their rows
    /// The items that were answered during a rebuild, which may have tested them before.
    std::vector<FundKnoten*> m_answered;
    StepQueue m_rebuild;
    StyleIcon m_fileIcon { QStyle::SP_FileIcon };
    StyleIcon m_folderIcon { QStyle::SP_DirIcon };
};
