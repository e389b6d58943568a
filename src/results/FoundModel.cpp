// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/FoundModel.h"

#include "base/Captions.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "crawl/url.h"
#include "results/ResultFilter.h"
#include "results/twk.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

namespace {

/// How long a rebuild runs before other events get their turn.
constexpr int sliceMilliseconds = 8;
/// How many items are tested between two looks at the clock.
constexpr int itemsPerLook = 64;
/// Of what a server said of itself, in bytes.
constexpr qsizetype longestDetail = 1000;
/// Views follow this many separate changes, and keep selection and place; beyond it they start anew.
constexpr size_t mostChanges = 64;

bool isNumber(int column)
{
    return column == FoundModel::Size || column == FoundModel::Depth || column == FoundModel::Status;
}

QByteArray headerKey(int column)
{
    return "main.l_founds.ColumnHeaders(" + QByteArray::number(column + 1) + ')';
}

} // namespace

FoundModel::FoundModel(
    const FundListe& list, const ResultFilter& filter, const LanguageTable& language, QObject* parent)
    : QAbstractTableModel(parent)
    , m_filter(filter)
    , m_language(language)
    , m_walk(list)
{
    connect(&m_tellViews, &PacedUpdate::due, this, &FoundModel::tellViews);
    connect(&m_rebuildSlice, &QTimer::timeout, this, &FoundModel::rebuildSlice);
    connect(&language, &LanguageTable::changed, this, [this] {
        emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
        showRows(0, m_told);
    });
}

void FoundModel::offer(FundKnoten* knoten)
{
    // A rebuild comes to it.
    if (m_rebuildSlice.isActive() || !m_filter.shows(knoten->inhalt))
        return;
    m_rows.push_back({ .knoten = knoten });
    knoten->inhalt.listIndex = static_cast<qint32>(m_rows.size());
    m_tellViews.request();
}

void FoundModel::refresh(FundKnoten* knoten)
{
    if (const auto row = rowOf(knoten)) {
        rowAt(*row).hasStateText = false;
        showRows(*row, 1);
    }
}

void FoundModel::report(FundKnoten* knoten, const FetchReport& report)
{
    if (const auto row = rowOf(knoten)) {
        rowAt(*row).detail = placeOfDetail(report.detail.left(longestDetail));
        rowAt(*row).event = report.event;
        rowAt(*row).hasStateText = true;
        showRows(*row, 1);
    }
}

void FoundModel::clear()
{
    m_rebuildSlice.stop();
    m_next = {};
    m_hidden = {};
    m_walk.restart();
    beginResetModel();
    m_rows = {};
    m_told = 0;
    m_details.clear();
    m_detailPlaces.clear();
    endResetModel();
    emit countChanged();
}

void FoundModel::rebuild()
{
    m_walk.restart();
    m_next.clear();
    m_hidden.clear();
    m_rebuildFilter = m_filter;
    m_rebuildSlice.start(0);
    rebuildSlice();
}

void FoundModel::rebuildSlice()
{
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(sliceMilliseconds)) {
        for (int item = 0; item < itemsPerLook; ++item) {
            FundKnoten* const knoten = m_walk.next();
            if (!knoten) {
                takeOver();
                return;
            }
            chooseOrHide(knoten);
        }
    }
}

void FoundModel::chooseOrHide(FundKnoten* knoten)
{
    const auto row = rowOf(knoten);
    if (m_rebuildFilter.shows(knoten->inhalt))
        m_next.push_back({ knoten, row });
    else if (row)
        m_hidden.push_back(knoten);
}

void FoundModel::takeOver()
{
    m_rebuildSlice.stop();
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
            [&](const RowChoice& choice) { *row++ = { .knoten = choice.knoten }; });
        m_told = m_rows.size();
        endInsertRows();
    }
}

void FoundModel::replaceAll()
{
    std::vector<Row> rows;
    rows.reserve(m_next.size());
    for (const RowChoice& choice : m_next)
        rows.push_back({ .knoten = choice.knoten, .marked = choice.row && rowAt(*choice.row).marked });
    beginResetModel();
    m_rows.swap(rows);
    m_told = m_rows.size();
    endResetModel();
}

void FoundModel::restartRows()
{
    for (FundKnoten* const knoten : m_hidden)
        knoten->inhalt.listIndex = 0;
    for (size_t row = 0; row < m_rows.size(); ++row) {
        m_rows[row].hasStateText = false;
        // To touch an item costs more than to tell that it keeps its row.
        if (m_next[row].row != static_cast<qint32>(row))
            m_rows[row].knoten->inhalt.listIndex = static_cast<qint32>(row) + 1;
    }
    m_details.clear();
    m_detailPlaces.clear();
}

std::optional<qint32> FoundModel::rowOf(const FundKnoten* knoten) const
{
    const qint32 row = knoten->inhalt.listIndex - 1;
    const bool isThere = row >= 0 && static_cast<size_t>(row) < m_rows.size() && rowAt(row).knoten == knoten;
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
        emit dataChanged(index(static_cast<int>(first), 0), index(static_cast<int>(last) - 1, ColumnCount - 1));
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
    return parent.isValid() ? 0 : int { ColumnCount };
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
        return isNumber(column) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::CheckStateRole:
        return column == Filename ? QVariant(row.marked ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::DecorationRole:
        if (column != Filename)
            return {};
        return url::fileNameOf(row.knoten->inhalt.adresse).isEmpty() ? m_folderIcon.icon() : m_fileIcon.icon();
    default:
        return {};
    }
}

bool FoundModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != Filename)
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
    return index.column() == Filename ? all | Qt::ItemIsUserCheckable : all;
}

QVariant FoundModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section >= ColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return m_language.text(headerKey(section));
    if (role == Qt::TextAlignmentRole)
        return QVariant((isNumber(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

QString FoundModel::text(const Row& row, int column) const
{
    const FundStück& item = row.knoten->inhalt;
    switch (column) {
    case Filename:
        return allgemein::shownText(url::fileNameOf(item.adresse));
    case MimeContent:
        return allgemein::shownText(item.mimeTyp);
    case Size:
        return item.groesse < 0 ? QStringLiteral("?") : QString::number(item.groesse / m_shownUnit);
    case Depth:
        return QString::number(item.tiefe);
    case Status:
        return statusText(row);
    case RefType:
        return twk::referenceTypeName(item.referenzTyp);
    case Language:
        return allgemein::shownText(item.sprache);
    case Url:
        return allgemein::shownText(item.adresse);
    default:
        return {};
    }
}

QString FoundModel::statusText(const Row& row) const
{
    return row.hasStateText ? twk::stateText({ row.event, m_details[row.detail] }, m_language)
                            : QString::number(row.knoten->inhalt.statusCode);
}

QVariant FoundModel::toolTip(const Row& row, int column) const
{
    if (column == Filename)
        return captions::toolTip(text(row, Url));
    const FundStück& item = row.knoten->inhalt;
    if (column != Status || item.statusCode != 0)
        return {};
    // Why there is no status is not kept, but this much can be told.
    if (item.zustand == Zustand::Fehlgeschlagen)
        return m_language.text("lang.netError");
    return url::protocolOf(item.adresse) == "http" ? QVariant() : m_language.text("lang.netUnsupportedProtocol");
}

qint32 FoundModel::placeOfDetail(const QByteArray& detail)
{
    const auto known = m_detailPlaces.constFind(detail);
    if (known != m_detailPlaces.constEnd())
        return *known;
    const qint32 place = static_cast<qint32>(m_details.size());
    m_details += detail;
    m_detailPlaces.insert(detail, place);
    return place;
}
