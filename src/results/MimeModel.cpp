// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/MimeModel.h"

#include "base/allgemein.h"

MimeModel::MimeModel(MimeListe& list, QObject* parent)
    : QAbstractListModel(parent)
    , m_list(list)
{
}

void MimeModel::meet(const QByteArray& type)
{
    if (type.isEmpty() || m_list.isFull() || m_list.contains(type))
        return;
    const int row = static_cast<int>(m_list.placeOf(type).index);
    beginInsertRows({}, row, row);
    m_list.insert(type);
    endInsertRows();
}

int MimeModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_list.entries().size());
}

QVariant MimeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const MimeListe::Entry& entry = m_list.entries()[static_cast<size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return allgemein::shownText(entry.type);
    case Qt::CheckStateRole:
        return entry.listed ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool MimeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole)
        return false;
    m_list.setListed(static_cast<size_t>(index.row()), value.toInt() == Qt::Checked);
    emit dataChanged(index, index, { Qt::CheckStateRole });
    emit listedChanged();
    return true;
}

Qt::ItemFlags MimeModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren;
}
