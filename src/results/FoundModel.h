// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/PacedUpdate.h"
#include "base/RowRuns.h"
#include "base/StyleIcon.h"
#include "crawl/ItemFetch.h"
#include "crawl/ListWalk.h"
#include "results/ResultFilter.h"
#include "results/RowChanges.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QTimer>

#include <optional>
#include <vector>

class LanguageTable;

/// The found items that pass the filter, a row each, in the order in which they were found. Rows that come are told to
/// the views as often as people can follow. A row's check box is its mark.
///
/// An item's `listIndex` is its row here, from 1. It may be out of date for an item that has lost its row.
class FoundModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Filename, MimeContent, Size, Depth, Status, RefType, Language, Url, ColumnCount };

    /// All three must outlive the model.
    FoundModel(const FundListe& list, const ResultFilter& filter, const LanguageTable& language, QObject* parent);

    /// Gives a new item a row if it passes the filter.
    void offer(FundKnoten* knoten);
    /// Shows an item's row anew, with the status number in the place of a state text.
    void refresh(FundKnoten* knoten);
    /// Writes a state text into an item's row, if it has one.
    void report(FundKnoten* knoten, const FetchReport& report);
    /// Must be told before an item is taken out of the list; its row stays until the next rebuild.
    void removing(FundKnoten* knoten) { m_walk.removing(knoten); }
    /// Drops all rows, since their items are gone.
    void clear();
    /// Chooses the rows anew, by the filter as it is now. It works between other events, shows the result at the end
    /// with `rebuilt`, and starts over when it is called again meanwhile.
    void rebuild();

    [[nodiscard]] bool isRebuilding() const { return m_rebuildSlice.isActive(); }

    /// The item of a row, from 0.
    [[nodiscard]] const FundStück& itemAt(int row) const { return rowAt(row).knoten->inhalt; }
    /// An item's size as the list shows it, in its unit; nothing when it is unknown.
    [[nodiscard]] std::optional<qint64> shownSize(const FundStück& item) const;
    [[nodiscard]] RowRuns markedRows() const;
    /// Marks rows or takes their marks away.
    void setMarked(const RowRuns& rows, bool marked);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    /// How many rows there are has changed.
    void countChanged();
    void rebuilt();

private:
    /// Kept small, and without memory of its own: there may be millions, and all of them go at once.
    struct Row {
        FundKnoten* knoten = nullptr;
        /// Where the state text's detail stands in `m_details`; its event is `event`.
        qint32 detail = 0;
        FetchEvent event = FetchEvent::Connecting;
        bool hasStateText = false;
        bool marked = false;
    };
    [[nodiscard]] Row& rowAt(qint32 row) { return m_rows[static_cast<size_t>(row)]; }
    [[nodiscard]] const Row& rowAt(qint32 row) const { return m_rows[static_cast<size_t>(row)]; }
    /// The item's row, from 0; nothing without one.
    [[nodiscard]] std::optional<qint32> rowOf(const FundKnoten* knoten) const;
    /// Has the views show rows anew.
    void showRows(qint32 firstRow, size_t count);
    void tellViews();
    void rebuildSlice();
    void chooseOrHide(FundKnoten* knoten);
    void takeOver();
    void apply(const RowChange& change);
    void replaceAll();
    /// Numbers the rows in their items, and has each show its item as it is.
    void restartRows();
    [[nodiscard]] qint32 placeOfDetail(const QByteArray& detail);
    [[nodiscard]] QString text(const Row& row, int column) const;
    [[nodiscard]] QString statusText(const Row& row) const;
    [[nodiscard]] QVariant toolTip(const Row& row, int column) const;

    const ResultFilter& m_filter;
    const LanguageTable& m_language;
    std::vector<Row> m_rows;
    size_t m_told = 0; ///< how many rows the views know of
    /// The rows that show something else than the views know; none while first exceeds last.
    size_t m_firstChanged = 1;
    size_t m_lastChanged = 0;
    /// The details of the state texts that rows show. Where one fetch fails, mostly many fail alike.
    QList<QByteArray> m_details;
    QHash<QByteArray, qint32> m_detailPlaces;
    qint64 m_shownUnit = 1; ///< the unit of the sizes in the rows: that of the last rebuild
    PacedUpdate m_tellViews;

    ListWalk m_walk;
    ResultFilter m_rebuildFilter; ///< as it was when the rebuild began
    /// The rows that a rebuild has chosen so far. While it works, the rows that are shown stay as they are.
    std::vector<RowChoice> m_next;
    std::vector<FundKnoten*> m_hidden; ///< the items that will lose their rows
    QTimer m_rebuildSlice;
    StyleIcon m_fileIcon { QStyle::SP_FileIcon };
    StyleIcon m_folderIcon { QStyle::SP_DirIcon };
};
