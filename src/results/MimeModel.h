// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/MimeListe.h"

#include <QAbstractListModel>

/// A list of MIME types with check boxes for those that are listed.
class MimeModel final : public QAbstractListModel {
    Q_OBJECT

public:
    /// `list` must outlive the model and be changed through it only.
    MimeModel(MimeListe& list, QObject* parent);

    /// Adds a type that was met, unless it is there or empty.
    void meet(const QByteArray& type);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// The user has checked or unchecked a type.
    void listedChanged();

private:
    MimeListe& m_list;
};
