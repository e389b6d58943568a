// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/window/DownloadModel.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "base/window/Captions.h"
#include "downloads/DownloadQueue.h"
#include "downloads/EntryText.h"

#include <utility>

namespace {

bool isNumber(int column)
{
    return column == DownloadModel::Received || column == DownloadModel::Size;
}

} // namespace

DownloadModel::DownloadModel(const DownloadQueue& queue, const LanguageTable& language, QObject* parent)
    : QAbstractTableModel(parent)
    , m_queue(queue)
    , m_language(language)
    , m_announced(queue.count())
{
    connect(&m_update, &PacedUpdate::due, this, &DownloadModel::notifyViews);
    connect(&queue, &DownloadQueue::added, &m_update, &PacedUpdate::request);
    connect(&queue, &DownloadQueue::changed, this, [this](quint64 id) {
        m_changed += id;
        m_update.request();
    });
    connect(&queue, &DownloadQueue::aboutToRemove, this, [this](int first, int last) {
        notifyViews();
        beginRemoveRows({}, first, last);
        m_announced -= last - first + 1;
    });
    connect(&queue, &DownloadQueue::removed, this, [this] { endRemoveRows(); });
    connect(&queue, &DownloadQueue::aboutToReset, this, [this] { beginResetModel(); });
    connect(&queue, &DownloadQueue::wasReset, this, [this] {
        m_announced = m_queue.count();
        endResetModel();
    });
    connect(&language, &LanguageTable::changed, this, [this] {
        emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
        refresh();
    });
}

void DownloadModel::refresh()
{
    if (m_announced > 0)
        emit dataChanged(index(0, 0), index(m_announced - 1, ColumnCount - 1));
}

void DownloadModel::notifyViews()
{
    m_update.cancel();
    if (m_queue.count() > m_announced) {
        beginInsertRows({}, m_announced, m_queue.count() - 1);
        m_announced = m_queue.count();
        endInsertRows();
    }
    int first = m_announced;
    int last = -1;
    for (const quint64 id : std::exchange(m_changed, {})) {
        // If the entry was removed meanwhile, this is the row of the next one. Redrawing that does no harm.
        const int row = m_queue.rowOf(id);
        first = qMin(first, row);
        last = qMax(last, qMin(row, m_announced - 1));
    }
    if (first <= last)
        emit dataChanged(index(first, 0), index(last, ColumnCount - 1));
}

int DownloadModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_announced;
}

int DownloadModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int { ColumnCount };
}

QVariant DownloadModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), index.column());
    case Qt::ToolTipRole:
        return captions::toolTip(toolTip(index.row(), index.column()));
    case Qt::TextAlignmentRole:
        return isNumber(index.column()) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case percentRole:
        return percent(index.row());
    default:
        return {};
    }
}

QVariant DownloadModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section >= ColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return m_language.text("DLManager.l_downloads.ColumnHeaders(" + QByteArray::number(section + 1) + ')');
    if (role == Qt::TextAlignmentRole)
        return QVariant((isNumber(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

QString DownloadModel::text(int row, int column) const
{
    const DownloadEntry& entry = m_queue.entryAt(row);
    switch (column) {
    case Filename:
        return entryText::fileName(entry);
    case Status:
        return entryText::status(entry, m_language);
    case Received:
        return entryText::received(entry);
    case Size:
        return entryText::size(entry);
    case Progress:
        return entryText::progress(entry, m_queue.settings().usePercent);
    case Target:
        return allgemein::withVisibleControls(entry.target);
    case Url:
        return allgemein::shownText(entry.url);
    default:
        return {};
    }
}

QString DownloadModel::toolTip(int row, int column) const
{
    if (column == Status)
        return entryText::reason(m_queue.entryAt(row), m_language);
    return text(row, column == Filename ? int { Url } : column);
}

QVariant DownloadModel::percent(int row) const
{
    const DownloadEntry& entry = m_queue.entryAt(row);
    if (!entry.received || entry.size <= 0)
        return {};
    return static_cast<int>(qMin(*entry.received, entry.size) * 100 / entry.size);
}
