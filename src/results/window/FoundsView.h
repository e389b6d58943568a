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

/// The results list in four modes, which share the rows, the selection and the marks.
class FoundsView final : public QStackedWidget {
    Q_OBJECT

public:
    /// Both must outlive the view.
    FoundsView(FoundModel& model, const LanguageTable& language, QWidget* parent);

    void setMode(FoundsMode mode);
    [[nodiscard]] FoundsMode mode() const { return m_mode; }
    /// The text that is shown while there are no rows.
    void setEmptyText(const QString& text);
    /// The name of the list for assistive technology.
    void setViewsName(const QString& name);
    /// The commands of the context menu.
    void setCommands(const QList<QAction*>& commands);

    [[nodiscard]] RowRuns selectedRows() const;
    /// Selects rows. `how` says whether the present selection stays.
    void selectRows(const RowRuns& rows, QItemSelectionModel::SelectionFlag how);

    /// See `ColumnsTable`.
    [[nodiscard]] QByteArray columnState() const;
    bool restoreColumns(const QByteArray& state);

signals:
    /// A row was double-clicked, but not on its check box.
    void doubleClicked(int row);

private:
    [[nodiscard]] QAbstractItemView* current() const;
    [[nodiscard]] QItemSelectionModel& selection() const;

    FoundModel& m_model;
    ColumnsTable* m_details;
    IconsView* m_icons;
    FoundsMode m_mode = FoundsMode::Details;
};
