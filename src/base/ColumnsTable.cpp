// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ColumnsTable.h"

#include "base/lang.h"

#include <QHeaderView>
#include <QMenu>

#include <utility>

namespace {

constexpr int firstColumn = 0;

} // namespace

ColumnsTable::ColumnsTable(QAbstractItemModel& model, QList<int> widths, const LanguageTable& language, QWidget* parent)
    : SpeakingView(parent)
    , m_widths(std::move(widths))
    , m_language(language)
{
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
    return horizontalHeader()->saveState();
}

bool ColumnsTable::restoreColumns(const QByteArray& state)
{
    QHeaderView& header = *horizontalHeader();
    const QByteArray before = header.saveState();
    const bool restored = header.restoreState(state) && header.count() == m_widths.size();
    if (!restored)
        header.restoreState(before);
    header.showSection(firstColumn);
    return restored;
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
