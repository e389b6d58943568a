// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/RowRuns.h"

#include <QItemSelectionModel>
#include <QStackedWidget>

class ColumnsTable;
class FoundModel;
class IconsView;
class LanguageTable;
class QAbstractItemView;

/// How the results list shows its rows.
enum class FoundsMode { Icons = 0, SmallIcons = 1, List = 2, Details = 3 };

/// The results list in four modes, which share rows, selection and marks.
class FoundsView final : public QStackedWidget {
    Q_OBJECT

public:
    /// Both must outlive the view.
    FoundsView(FoundModel& model, const LanguageTable& language, QWidget* parent);

    void setMode(FoundsMode mode);
    [[nodiscard]] FoundsMode mode() const { return m_mode; }
    /// Shown in the place of rows while there are none.
    void setEmptyText(const QString& text);
    /// What the views are called where they are read out.
    void setViewsName(const QString& name);
    /// The commands of the context menu.
    void setCommands(const QList<QAction*>& commands);

    [[nodiscard]] RowRuns selectedRows() const;
    /// Selects rows beside or in the place of those that are selected.
    void selectRows(const RowRuns& rows, QItemSelectionModel::SelectionFlag how);

    /// Widths, order and visibility of the columns, for the next start of the program.
    [[nodiscard]] QByteArray columnState() const;
    /// False, with the columns as they were, for a state that cannot be used.
    bool restoreColumns(const QByteArray& state);

signals:
    void doubleClicked();

private:
    [[nodiscard]] QAbstractItemView* current() const;
    [[nodiscard]] QItemSelectionModel& selection() const;

    FoundModel& m_model;
    ColumnsTable* m_details;
    IconsView* m_icons;
    FoundsMode m_mode = FoundsMode::Details;
};
