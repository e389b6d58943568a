// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/FoundModel.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "base/window/Captions.h"
#include "http/url.h"
#include "results/ResultColumns.h"
#include "results/ResultFilter.h"
#include "results/twk.h"

#include <algorithm>
#include <utility>

namespace {

/// How many items a step of a rebuild tests. Reading the clock costs more than one test.
constexpr int itemsPerStep = 64;
/// With at most this many separate changes of rows, views keep their selection and place; with more they are reset,
/// which is faster.
constexpr size_t mostChanges = 64;

constexpr int lastColumn = ResultColumn::Count - 1;

const ResultColumn& definition(int column)
{
    return resultColumns()[static_cast<size_t>(column)];
}

} // namespace

FoundModel::FoundModel(FundListe& list, const ResultFilter& filter, const LanguageTable& language, QObject* parent)
    : QAbstractTableModel(parent)
    , m_filter(filter)
    , m_language(language)
    , m_shownUnit(filter.sizeUnit)
    , m_walk(list)
{
    connect(&m_tellViews, &PacedUpdate::due, this, &FoundModel::tellViews);
    connect(&language, &LanguageTable::changed, this, [this] {
        emit headerDataChanged(Qt::Horizontal, 0, lastColumn);
        showRows(0, m_told);
    });
}

void FoundModel::offer(FundKnoten* node)
{
    // A running rebuild will reach this item.
    if (isRebuilding() || !m_filter.shows(node->inhalt))
        return;
    m_rows.push_back({ .node = node });
    node->inhalt.listIndex = static_cast<qint32>(m_rows.size());
    m_tellViews.request();
}

void FoundModel::refresh(FundKnoten* node)
{
    if (const auto row = rowOf(node)) {
        rowAt(*row).hasStateText = false;
        showRows(*row, 1);
    } else {
        offer(node);
    }
    if (isRebuilding())
        m_answered.push_back(node);
}

void FoundModel::report(FundKnoten* node, const FetchReport& report)
{
    if (const auto row = rowOf(node)) {
        rowAt(*row).event = report.event;
        rowAt(*row).hasStateText = true;
        showRows(*row, 1);
    }
}

void FoundModel::clear()
{
    m_rebuild.clear();
    m_next = {};
    m_hidden = {};
    m_answered = {};
    m_shownUnit = m_filter.sizeUnit;
    beginResetModel();
    m_rows = {};
    m_told = 0;
    endResetModel();
    emit countChanged();
}

void FoundModel::rebuild()
{
    m_walk.restart();
    m_next.clear();
    m_hidden.clear();
    m_answered.clear();
    m_rebuildFilter = m_filter;
    m_rebuild.clear();
    m_rebuild.add([this] { return chooseSome(); });
}

bool FoundModel::chooseSome()
{
    for (int item = 0; item < itemsPerStep; ++item) {
        FundKnoten* const node = m_walk.next();
        if (!node) {
            takeOver();
            return false;
        }
        chooseOrHide(node);
    }
    return true;
}

void FoundModel::chooseOrHide(FundKnoten* node)
{
    const auto row = rowOf(node);
    if (m_rebuildFilter.shows(node->inhalt))
        m_next.push_back({ node, row });
    else if (row)
        m_hidden.push_back(node);
}

void FoundModel::takeOver()
{
    m_rebuild.clear(); // no rebuild runs any more when the views are told
    tellViews();
    m_shownUnit = m_rebuildFilter.sizeUnit;
    if (const auto changes = rowChanges(m_rows.size(), m_next, mostChanges))
        std::for_each(changes->rbegin(), changes->rend(), [this](const RowChange& change) { apply(change); });
    else
        replaceAll();
    restartRows();
    m_next = {};
    m_hidden = {};
    showRows(0, m_told);
    for (FundKnoten* const node : std::exchange(m_answered, {})) {
        if (!rowOf(node))
            offer(node);
    }
    emit countChanged();
    emit rebuilt();
}

void FoundModel::apply(const RowChange& change)
{
    const auto place = [this](size_t row) {
        return m_rows.begin() + static_cast<std::ptrdiff_t>(row);
    };
    const int first = static_cast<int>(change.at);
    if (change.removed > 0) {
        beginRemoveRows({}, first, first + static_cast<int>(change.removed) - 1);
        m_rows.erase(place(change.at), place(change.at + change.removed));
        m_told = m_rows.size();
        endRemoveRows();
    }
    if (change.inserted > 0) {
        beginInsertRows({}, first, first + static_cast<int>(change.inserted) - 1);
        const auto items = m_next.begin() + static_cast<std::ptrdiff_t>(change.from);
        auto row = m_rows.insert(place(change.at), change.inserted, {});
        std::for_each(items, items + static_cast<std::ptrdiff_t>(change.inserted),
            [&](const RowChoice& choice) { *row++ = { .node = choice.node }; });
        m_told = m_rows.size();
        endInsertRows();
    }
}

void FoundModel::replaceAll()
{
    std::vector<Row> rows;
    rows.reserve(m_next.size());
    for (const RowChoice& choice : m_next)
        rows.push_back({ .node = choice.node, .marked = choice.row && rowAt(*choice.row).marked });
    beginResetModel();
    m_rows.swap(rows);
    m_told = m_rows.size();
    endResetModel();
}

void FoundModel::restartRows()
{
    for (FundKnoten* const node : m_hidden)
        node->inhalt.listIndex = 0;
    for (size_t row = 0; row < m_rows.size(); ++row) {
        m_rows[row].hasStateText = false;
        // Skip the write when the row is unchanged: the item may not be in the cache.
        if (m_next[row].row != static_cast<qint32>(row))
            m_rows[row].node->inhalt.listIndex = static_cast<qint32>(row) + 1;
    }
}

std::optional<qint32> FoundModel::rowOf(const FundKnoten* node) const
{
    const qint32 row = node->inhalt.listIndex - 1;
    const bool isThere = row >= 0 && static_cast<size_t>(row) < m_rows.size() && rowAt(row).node == node;
    return isThere ? std::optional(row) : std::nullopt;
}

void FoundModel::showRows(qint32 firstRow, size_t count)
{
    if (count == 0)
        return;
    const size_t first = static_cast<size_t>(firstRow);
    const bool none = m_firstChanged > m_lastChanged;
    m_firstChanged = none ? first : qMin(m_firstChanged, first);
    m_lastChanged = none ? first + count - 1 : qMax(m_lastChanged, first + count - 1);
    m_tellViews.request();
}

void FoundModel::tellViews()
{
    m_tellViews.cancel();
    if (m_rows.size() > m_told) {
        beginInsertRows({}, static_cast<int>(m_told), static_cast<int>(m_rows.size()) - 1);
        m_told = m_rows.size();
        endInsertRows();
        emit countChanged();
    }
    const size_t first = std::exchange(m_firstChanged, 1);
    const size_t last = qMin(std::exchange(m_lastChanged, 0) + 1, m_told);
    if (first < last) {
        emit dataChanged(index(static_cast<int>(first), 0), index(static_cast<int>(last) - 1, lastColumn));
    }
}

std::optional<qint64> FoundModel::shownSize(const FundStück& item) const
{
    return item.groesse < 0 ? std::nullopt : std::optional(item.groesse / m_shownUnit);
}

RowRuns FoundModel::markedRows() const
{
    RowRuns marked;
    for (size_t row = 0; row < m_told; ++row) {
        const int number = static_cast<int>(row);
        if (!m_rows[row].marked)
            continue;
        if (!marked.empty() && marked.back().last == number - 1)
            marked.back().last = number;
        else
            marked.push_back({ number, number });
    }
    return marked;
}

void FoundModel::setMarked(const RowRuns& rows, bool marked)
{
    for (const RowRun& run : rows) {
        for (int row = run.first; row <= run.last; ++row)
            rowAt(row).marked = marked;
        showRows(run.first, static_cast<size_t>(run.last - run.first) + 1);
    }
}

int FoundModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_told);
}

int FoundModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int { ResultColumn::Count };
}

QVariant FoundModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Row& row = rowAt(index.row());
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return text(row, column);
    case Qt::ToolTipRole:
        return toolTip(row, column);
    case Qt::TextAlignmentRole:
        return definition(column).isNumber() ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::CheckStateRole:
        return column == ResultColumn::FileName ? QVariant(row.marked ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::DecorationRole:
        if (column != ResultColumn::FileName)
            return {};
        return url::fileNameOf(row.node->inhalt.adresse).isEmpty() ? m_folderIcon.icon() : m_fileIcon.icon();
    default:
        return {};
    }
}

bool FoundModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != ResultColumn::FileName)
        return false;
    setMarked({ { index.row(), index.row() } }, value.toInt() == Qt::Checked);
    tellViews();
    return true;
}

Qt::ItemFlags FoundModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags all = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    return index.column() == ResultColumn::FileName ? all | Qt::ItemIsUserCheckable : all;
}

QVariant FoundModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section > lastColumn)
        return {};
    if (role == Qt::DisplayRole)
        return m_language.text(definition(section).headerKey);
    if (role == Qt::TextAlignmentRole)
        return QVariant(definition(section).alignment | Qt::AlignVCenter);
    return {};
}

QString FoundModel::text(const Row& row, int column) const
{
    const FundStück& item = row.node->inhalt;
    if (column == ResultColumn::Status)
        return statusText(row);
    if (column == ResultColumn::Size && item.groesse >= 0)
        return QString::number(item.groesse / m_shownUnit);
    return allgemein::shownText(definition(column).text(item));
}

QString FoundModel::statusText(const Row& row) const
{
    const FundStück& item = row.node->inhalt;
    if (!row.hasStateText)
        return QString::number(item.statusCode);
    const bool hasEnded = item.reason && item.reason->event == row.event;
    return twk::stateText(hasEnded ? *item.reason : FetchReport { row.event, {} }, m_language);
}

QVariant FoundModel::toolTip(const Row& row, int column) const
{
    if (column == ResultColumn::FileName)
        return captions::toolTip(text(row, ResultColumn::Url));
    const FundStück& item = row.node->inhalt;
    if (column != ResultColumn::Status)
        return {};
    if (item.reason)
        return captions::toolTip(twk::stateText(*item.reason, m_language));
    // Files do not keep reasons, but their kind can be told.
    if (item.statusCode != 0)
        return {};
    if (item.zustand == FetchState::Failed)
        return m_language.text("lang.netError");
    return url::protocolOf(item.adresse) == "http" ? QVariant() : m_language.text("lang.netUnsupportedProtocol");
}
