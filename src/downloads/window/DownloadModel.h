// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/PacedUpdate.h"

#include <QAbstractTableModel>
#include <QSet>

class DownloadQueue;
class LanguageTable;

/// The rows of the download list. Views hear of new and changed rows a few times a second, so that a million entries
/// can be added without redrawing for each.
class DownloadModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Filename, Status, Received, Size, Progress, Target, Url, ColumnCount };
    /// The percentage of a file that has arrived, 0 to 100; invalid when it is unknown.
    static constexpr int percentRole = Qt::UserRole;

    /// `queue` and `language` must outlive the model.
    DownloadModel(const DownloadQueue& queue, const LanguageTable& language, QObject* parent);

    /// Makes the views redraw every row.
    void refresh();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void notifyViews();
    [[nodiscard]] QString text(int row, int column) const;
    /// As the cell, with more where there is more to tell.
    [[nodiscard]] QString toolTip(int row, int column) const;
    [[nodiscard]] QVariant percent(int row) const;

    const DownloadQueue& m_queue;
    const LanguageTable& m_language;
    int m_announced = 0; ///< the number of rows that the views know of
    QSet<quint64> m_changed;
    PacedUpdate m_update;
};
