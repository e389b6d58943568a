// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/PacedUpdate.h"

#include <QAbstractTableModel>
#include <QSet>

class DownloadQueue;
class LanguageTable;

/// The download list as rows. What is added or changes is told to the views as often as people can follow.
class DownloadModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Filename, Status, Received, Size, Progress, Target, Url, ColumnCount };
    /// How much of a file has arrived, from 0 to 100; nothing when that is unknown.
    static constexpr int percentRole = Qt::UserRole;

    /// Both must outlive the model.
    DownloadModel(const DownloadQueue& queue, const LanguageTable& language, QObject* parent);

    /// Has every row shown anew.
    void refresh();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void tellViews();
    [[nodiscard]] QString text(int row, int column) const;
    [[nodiscard]] QVariant percent(int row) const;

    const DownloadQueue& m_queue;
    const LanguageTable& m_language;
    int m_told = 0; ///< how many rows the views know of
    QSet<quint64> m_changed;
    PacedUpdate m_tellViews;
};
