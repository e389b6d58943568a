// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window/ColumnsTable.h"

#include "base/lang.h"

#include <QHeaderView>
#include <QMenu>
#include <QSet>

#include <optional>
#include <utility>

namespace {

constexpr int firstColumn = 0;

struct StoredColumn {
    int column;
    int width; ///< 0 for one that is hidden
};

std::optional<StoredColumn> columnFrom(const QByteArray& text)
{
    constexpr int widest = 10'000;
    const qsizetype colon = text.indexOf(':');
    bool isColumn = false;
    bool isWidth = false;
    const StoredColumn stored { text.left(colon).toInt(&isColumn), text.mid(colon + 1).toInt(&isWidth) };
    const bool isUsable =
        colon >= 0 && isColumn && isWidth && stored.column >= 0 && stored.width >= 0 && stored.width <= widest;
    return isUsable ? std::optional(stored) : std::nullopt;
}

/// The columns of a state in their order, without those from `count` on, which another version of the program saved.
/// Empty if any part of the state is damaged: QHeaderView's own format crashes the program when a damaged state is
/// drawn, so the state is text that is checked here.
QList<StoredColumn> columnsFrom(const QByteArray& state, qsizetype count)
{
    QList<StoredColumn> columns;
    QSet<int> seen;
    for (const QByteArray& text : state.split(' ')) {
        const auto stored = columnFrom(text);
        if (!stored || seen.contains(stored->column))
            return {};
        seen += stored->column;
        if (stored->column < count)
            columns += *stored;
    }
    return columns;
}

} // namespace

ColumnsTable::ColumnsTable(QAbstractItemModel& model, QList<int> widths, const LanguageTable& language, QWidget* parent)
    : SpeakingView(parent)
    , m_widths(std::move(widths))
    , m_language(language)
{
    Q_ASSERT(m_widths.size() == model.columnCount());
    setModel(&model);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);

    // Rows of one height cost the same however many there are.
    QHeaderView& rows = *verticalHeader();
    rows.hide();
    rows.setMinimumSectionSize(fontMetrics().height() + 4);
    rows.setDefaultSectionSize(fontMetrics().height() + 4);
    rows.setSectionResizeMode(QHeaderView::Fixed);

    QHeaderView& columns = *horizontalHeader();
    columns.setSectionsMovable(true);
    columns.setHighlightSections(false);
    // A selection model of its own: to draw a section, a header asks the selection whether every row is selected.
    columns.setSelectionModel(new QItemSelectionModel(&model, &columns));
    columns.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&columns, &QHeaderView::customContextMenuRequested, this, &ColumnsTable::showColumnMenu);
    resetColumns();
}

RowRuns ColumnsTable::selectedRows() const
{
    RowRuns rows;
    // Ranges of the same rows may stand for different columns.
    for (const QItemSelectionRange& range : selectionModel()->selection())
        rows.push_back({ range.top(), range.bottom() });
    return mergedRuns(std::move(rows));
}

QByteArray ColumnsTable::columnState() const
{
    const QHeaderView& header = *horizontalHeader();
    QByteArrayList columns;
    for (int place = 0; place < header.count(); ++place) {
        const int column = header.logicalIndex(place);
        columns += QByteArray::number(column) + ':' + QByteArray::number(header.sectionSize(column));
    }
    return columns.join(' ');
}

bool ColumnsTable::restoreColumns(const QByteArray& state)
{
    const auto columns = columnsFrom(state, m_widths.size());
    QHeaderView& header = *horizontalHeader();
    for (int place = 0; place < columns.size(); ++place) {
        const auto& [column, width] = columns[place];
        header.moveSection(header.visualIndex(column), place);
        header.setSectionHidden(column, width == 0 && column != firstColumn);
        if (width > 0)
            header.resizeSection(column, width);
    }
    return !columns.isEmpty();
}

void ColumnsTable::showColumnMenu(const QPoint& place)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QHeaderView* const header = horizontalHeader();
    for (int column = 0; column < m_widths.size(); ++column) {
        QAction* const toggle = menu->addAction(model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
            header, [header, column](bool shown) { header->setSectionHidden(column, !shown); });
        toggle->setCheckable(true);
        toggle->setChecked(!header->isSectionHidden(column));
        toggle->setEnabled(column != firstColumn);
    }
    menu->addSeparator();
    menu->addAction(m_language.text("more.resetColumns"), this, &ColumnsTable::resetColumns);
    menu->popup(header->viewport()->mapToGlobal(place));
}

void ColumnsTable::resetColumns()
{
    QHeaderView& header = *horizontalHeader();
    for (int column = 0; column < m_widths.size(); ++column) {
        header.showSection(column);
        header.moveSection(header.visualIndex(column), column);
        header.resizeSection(column, m_widths[column] * fontMetrics().height() / 9);
    }
}
