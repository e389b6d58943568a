// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/MimeTypeList.h"

#include <QAbstractListModel>

/// The filter's MIME types as rows with check boxes; a checked type is a listed one.
class MimeModel final : public QAbstractListModel {
    Q_OBJECT

public:
    /// `list` must outlive the model and be changed through it only.
    MimeModel(MimeTypeList& list, QObject* parent);

    /// Takes note of a type of the present search, unless it is empty. If the list is full, an older type goes.
    void meet(const QByteArray& type);
    /// Call this when another search begins.
    void forgetMet() { m_list.forgetMet(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// The user has checked or unchecked a type.
    void listedChanged();

private:
    /// Removes the least useful type; false if there is none.
    [[nodiscard]] bool makeRoom();

    MimeTypeList& m_list;
};
