// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/RowRuns.h"
#include "base/SpeakingView.h"

#include <QList>
#include <QTableView>

class LanguageTable;

/// A table of rows of one height, which may be millions, whose columns the user moves, sizes and hides. The first
/// column is always there. Whole rows are selected.
class ColumnsTable final : public SpeakingView<QTableView> {
    Q_OBJECT

public:
    /// `widths` are those of the columns at first, in ninths of the height of a line of text. `language` and the model
    /// must outlive the table.
    ColumnsTable(QAbstractItemModel& model, QList<int> widths, const LanguageTable& language, QWidget* parent);

    [[nodiscard]] RowRuns selectedRows() const;

    /// Widths, order and visibility of the columns, for the next start of the program. One that is hidden comes back
    /// with its first width.
    [[nodiscard]] QByteArray columnState() const;
    /// False, with the columns as they were, for a state that cannot be used.
    bool restoreColumns(const QByteArray& state);

private:
    void showColumnMenu(const QPoint& place);
    void resetColumns();

    QList<int> m_widths;
    const LanguageTable& m_language;
};
