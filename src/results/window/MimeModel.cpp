// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/MimeModel.h"

#include "base/allgemein.h"

MimeModel::MimeModel(MimeTypeList& list, QObject* parent)
    : QAbstractListModel(parent)
    , m_list(list)
{
}

void MimeModel::meet(const QByteArray& type)
{
    if (type.isEmpty())
        return;
    MimeTypeList::Place place = m_list.placeOf(type);
    if (!place.isTaken) {
        if (m_list.isFull() && !makeRoom())
            return;
        place = m_list.placeOf(type);
        beginInsertRows({}, static_cast<int>(place.index), static_cast<int>(place.index));
        m_list.insert(type);
        endInsertRows();
    }
    m_list.setMet(place.index);
}

bool MimeModel::makeRoom()
{
    const auto old = m_list.leastUseful();
    if (!old)
        return false;
    beginRemoveRows({}, static_cast<int>(*old), static_cast<int>(*old));
    m_list.remove(*old);
    endRemoveRows();
    return true;
}

int MimeModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_list.entries().size());
}

QVariant MimeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const MimeTypeList::Entry& entry = m_list.entries()[static_cast<size_t>(index.row())];
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
