// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/FoundsView.h"

#include "base/window/ColumnsTable.h"
#include "results/ResultColumns.h"
#include "results/window/FoundModel.h"

#include <QListView>
#include <QStyledItemDelegate>

namespace {

QList<int> columnWidths()
{
    QList<int> widths;
    for (const ResultColumn& column : resultColumns())
        widths += column.width;
    return widths;
}

/// Names a directory by its last component, since its file name is empty.
class IconDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->text.isEmpty())
            option->text = index.siblingAtColumn(ResultColumn::Url).data().toString().section(u'/', -2, -2) + u'/';
    }
};

} // namespace

class IconsView final : public SpeakingView<QListView> {
public:
    using SpeakingView::SpeakingView;

    /// All modes are QListView's list mode with different flows: its icon mode lays out a million rows several times
    /// slower.
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
    , m_details(new ColumnsTable(model, columnWidths(), language, this))
    , m_icons(new IconsView(this))
{
    m_details->setObjectName(QStringLiteral("l_founds_details"));
    m_icons->setObjectName(QStringLiteral("l_founds_icons"));
    m_icons->setModel(&model);
    m_icons->setSelectionModel(m_details->selectionModel());
    m_icons->setItemDelegate(new IconDelegate(m_icons));
    m_icons->setUniformItemSizes(true);
    m_icons->setWrapping(true);
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setMovement(QListView::Static);
    m_icons->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_icons->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_icons->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (QAbstractItemView* const view : std::initializer_list<QAbstractItemView*> { m_details, m_icons }) {
        view->setContextMenuPolicy(Qt::ActionsContextMenu);
        connect(view, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { emit doubleClicked(index.row()); });
        addWidget(view);
    }
    setMode(FoundsMode::Details);
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

void FoundsView::setViewsName(const QString& name)
{
    m_details->setAccessibleName(name);
    m_icons->setAccessibleName(name);
}

void FoundsView::setCommands(const QList<QAction*>& commands)
{
    m_details->addActions(commands);
    m_icons->addActions(commands);
}

RowRuns FoundsView::selectedRows() const
{
    return m_details->selectedRows();
}

void FoundsView::selectRows(const RowRuns& rows, QItemSelectionModel::SelectionFlag how)
{
    QItemSelection chosen;
    for (const RowRun& run : rows)
        chosen.emplace_back(m_model.index(run.first, 0), m_model.index(run.last, ResultColumn::Count - 1));
    selection().select(chosen, how);
}

QItemSelectionModel& FoundsView::selection() const
{
    return *m_details->selectionModel();
}

QByteArray FoundsView::columnState() const
{
    return m_details->columnState();
}

bool FoundsView::restoreColumns(const QByteArray& state)
{
    return m_details->restoreColumns(state);
}

QAbstractItemView* FoundsView::current() const
{
    return m_mode == FoundsMode::Details ? static_cast<QAbstractItemView*>(m_details) : m_icons;
}
