// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/RowRuns.h"
#include "base/window/SpeakingView.h"

#include <QList>
#include <QTableView>

class LanguageTable;

/// A table whose columns the user can move, resize and hide, except that the first column is never hidden. All rows
/// have the same height, so that millions of them cost no more than a few. Selecting selects whole rows.
class ColumnsTable final : public SpeakingView<QTableView> {
    Q_OBJECT

public:
    /// `widths` has the first width of every column, in ninths of the height of a line of text. `language` and the
    /// model must outlive the table.
    ColumnsTable(QAbstractItemModel& model, QList<int> widths, const LanguageTable& language, QWidget* parent);

    [[nodiscard]] RowRuns selectedRows() const;

    /// Widths, order and visibility of the columns as text. The width of a hidden column is not kept.
    [[nodiscard]] QByteArray columnState() const;
    /// Restores what `columnState` returned, perhaps in a version of the program with fewer or more columns: columns
    /// that the state does not know stay as they are, behind the others. Returns false and changes nothing if the state
    /// is damaged.
    bool restoreColumns(const QByteArray& state);

private:
    void showColumnMenu(const QPoint& place);
    void resetColumns();

    QList<int> m_widths;
    const LanguageTable& m_language;
};
