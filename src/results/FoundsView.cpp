// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/FoundsView.h"

#include "base/lang.h"
#include "results/FoundModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QMenu>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableView>

#include <array>
#include <utility>

namespace {

/// A view that says something while it has no rows, and in which the space bar marks the current row.
template <typename View> class SpeakingView : public View {
public:
    using View::View;

    void setEmptyText(const QString& text)
    {
        m_emptyText = text;
        this->viewport()->update();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        View::paintEvent(event);
        if (this->model()->rowCount() > 0)
            return;
        QPainter painter(this->viewport());
        painter.setPen(this->palette().color(QPalette::PlaceholderText));
        const QRect margins = this->viewport()->rect().adjusted(20, 20, -20, -20);
        painter.drawText(margins, Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        const QModelIndex row = this->currentIndex().siblingAtColumn(FoundModel::Filename);
        if (event->key() != Qt::Key_Space || event->modifiers() != Qt::NoModifier || !row.isValid()) {
            View::keyPressEvent(event);
            return;
        }
        const bool marked = row.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        this->model()->setData(row, marked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }

private:
    QString m_emptyText;
};

/// In ninths of the height of a line of text.
constexpr std::array<int, FoundModel::ColumnCount> columnWidths { 110, 70, 40, 50, 75, 55, 45, 240 };

/// Names a directory by its last piece, since it has no file name.
class IconDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->text.isEmpty())
            option->text = index.siblingAtColumn(FoundModel::Url).data().toString().section(u'/', -2, -2) + u'/';
    }
};

} // namespace

class DetailsView final : public SpeakingView<QTableView> {
    using SpeakingView::SpeakingView;
};

class IconsView final : public SpeakingView<QListView> {
public:
    using SpeakingView::SpeakingView;

    /// The library's own icon mode lays out a million rows several times slower than its list mode, so every mode is a
    /// list mode that flows.
    void setMode(FoundsMode mode)
    {
        const bool large = mode == FoundsMode::Icons;
        const int line = fontMetrics().height();
        m_place = large ? QStyleOptionViewItem::Top : QStyleOptionViewItem::Left;
        setFlow(mode == FoundsMode::List ? QListView::TopToBottom : QListView::LeftToRight);
        setIconSize(large ? QSize(2 * line, 2 * line) : QSize(line, line));
        setGridSize(large ? QSize(9 * line, 4 * line + line / 2) : QSize(14 * line, line + line / 3));
    }

protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override
    {
        QListView::initViewItemOption(option);
        option->decorationPosition = m_place;
        option->displayAlignment =
            m_place == QStyleOptionViewItem::Top ? Qt::AlignHCenter | Qt::AlignTop : Qt::AlignLeft | Qt::AlignVCenter;
    }

private:
    QStyleOptionViewItem::Position m_place = QStyleOptionViewItem::Left;
};

FoundsView::FoundsView(FoundModel& model, const LanguageTable& language, QWidget* parent)
    : QStackedWidget(parent)
    , m_model(model)
    , m_language(language)
    , m_details(new DetailsView(this))
    , m_icons(new IconsView(this))
{
    setUpDetails();
    m_icons->setObjectName(QStringLiteral("l_founds_icons"));
    m_icons->setModel(&model);
    m_icons->setSelectionModel(m_details->selectionModel());
    m_icons->setItemDelegate(new IconDelegate(m_icons));
    m_icons->setUniformItemSizes(true);
    m_icons->setWrapping(true);
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setMovement(QListView::Static);
    for (QAbstractItemView* const view : std::initializer_list<QAbstractItemView*> { m_details, m_icons }) {
        view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        view->setSelectionBehavior(QAbstractItemView::SelectRows);
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setContextMenuPolicy(Qt::ActionsContextMenu);
        addWidget(view);
    }
    setMode(FoundsMode::Details);
}

void FoundsView::setUpDetails()
{
    m_details->setObjectName(QStringLiteral("l_founds_details"));
    m_details->setModel(&m_model);
    m_details->setShowGrid(false);
    m_details->setWordWrap(false);
    m_details->setTabKeyNavigation(false);
    m_details->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);

    // Rows of one height cost the same however many there are.
    QHeaderView& rows = *m_details->verticalHeader();
    rows.hide();
    rows.setMinimumSectionSize(fontMetrics().height() + 4);
    rows.setDefaultSectionSize(fontMetrics().height() + 4);
    rows.setSectionResizeMode(QHeaderView::Fixed);

    QHeaderView& columns = *m_details->horizontalHeader();
    columns.setSectionsMovable(true);
    columns.setHighlightSections(false);
    columns.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&columns, &QHeaderView::customContextMenuRequested, this, &FoundsView::showColumnMenu);
    resetColumns();
}

void FoundsView::setMode(FoundsMode mode)
{
    const QModelIndex place = selection().currentIndex();
    m_mode = mode;
    if (mode == FoundsMode::Details) {
        setCurrentWidget(m_details);
    } else {
        m_icons->setMode(mode);
        setCurrentWidget(m_icons);
    }
    setFocusProxy(current());
    if (place.isValid())
        current()->scrollTo(place);
}

void FoundsView::setEmptyText(const QString& text)
{
    m_details->setEmptyText(text);
    m_icons->setEmptyText(text);
}

void FoundsView::setCommands(const QList<QAction*>& commands)
{
    m_details->addActions(commands);
    m_icons->addActions(commands);
}

RowRuns FoundsView::selectedRows() const
{
    RowRuns rows;
    // Ranges of the same rows may stand for different columns.
    for (const QItemSelectionRange& range : selection().selection())
        rows.push_back({ range.top(), range.bottom() });
    return mergedRuns(std::move(rows));
}

void FoundsView::selectRows(const RowRuns& rows, QItemSelectionModel::SelectionFlag how)
{
    QItemSelection chosen;
    for (const RowRun& run : rows)
        chosen.emplace_back(m_model.index(run.first, 0), m_model.index(run.last, FoundModel::ColumnCount - 1));
    selection().select(chosen, how);
}

QItemSelectionModel& FoundsView::selection() const
{
    return *m_details->selectionModel();
}

QByteArray FoundsView::columnState() const
{
    return m_details->horizontalHeader()->saveState();
}

bool FoundsView::restoreColumns(const QByteArray& state)
{
    QHeaderView& header = *m_details->horizontalHeader();
    const QByteArray before = header.saveState();
    const bool restored = header.restoreState(state) && header.count() == FoundModel::ColumnCount;
    if (!restored)
        header.restoreState(before);
    // The column with the check boxes is always there.
    header.showSection(FoundModel::Filename);
    return restored;
}

void FoundsView::showColumnMenu(const QPoint& place)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QHeaderView* const header = m_details->horizontalHeader();
    for (int column = 0; column < FoundModel::ColumnCount; ++column) {
        QAction* const toggle = menu->addAction(m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
            header, [header, column](bool shown) { header->setSectionHidden(column, !shown); });
        toggle->setCheckable(true);
        toggle->setChecked(!header->isSectionHidden(column));
        toggle->setEnabled(column != FoundModel::Filename);
    }
    menu->addSeparator();
    menu->addAction(m_language.text("more.resetColumns"), this, &FoundsView::resetColumns);
    menu->popup(header->viewport()->mapToGlobal(place));
}

void FoundsView::resetColumns()
{
    QHeaderView& header = *m_details->horizontalHeader();
    const int line = fontMetrics().height();
    for (int column = 0; column < FoundModel::ColumnCount; ++column) {
        header.showSection(column);
        header.moveSection(header.visualIndex(column), column);
        header.resizeSection(column, columnWidths[static_cast<size_t>(column)] * line / 9);
    }
}

QAbstractItemView* FoundsView::current() const
{
    return m_mode == FoundsMode::Details ? static_cast<QAbstractItemView*>(m_details) : m_icons;
}
