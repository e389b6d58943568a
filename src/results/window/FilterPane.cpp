// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/FilterPane.h"

#include "base/allgemein.h"
#include "base/window/Captions.h"
#include "base/window/OptionButtons.h"
#include "results/ResultFilter.h"
#include "ui_FilterPane.h"

#include <QShortcut>
#include <QStyle>

namespace {

/// In milliseconds. A bound is applied after a pause this long in typing, so that no half-typed number is.
constexpr int typingPause = 600;

/// The bytes of a URL part, whose text may be shown shortened or escaped.
constexpr int bytesRole = Qt::UserRole;

} // namespace

FilterPane::FilterPane(ResultFilter& filter, QWidget* parent)
    : QGroupBox(parent)
    , m_filter(filter)
    , m_mimeModel(filter.mimeListe, nullptr)
    , m_ui(std::make_unique<Ui::FilterPane>())
{
    m_ui->setupUi(this);
    m_mimeSwitch =
        optionButtons({ m_ui->mimeFilterSwitch_0, m_ui->mimeFilterSwitch_1, m_ui->mimeFilterSwitch_2 }, this);
    m_urlSwitch = optionButtons({ m_ui->urlFilterSwitch_0, m_ui->urlFilterSwitch_1, m_ui->urlFilterSwitch_2 }, this);
    captions::nameArrays(*this);
    m_ui->mimeListe->setModel(&m_mimeModel);
    m_ui->b_closeFilter->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    m_ui->b_liftBranch->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    for (zahlenEingabe* const bound : { m_ui->minDepth, m_ui->maxDepth, m_ui->minSize, m_ui->maxSize })
        bound->init(0, FilterRange::greatest, 0);
    m_typingPause.setSingleShot(true);
    m_typingPause.setInterval(typingPause);
    m_ui->mimeListe->setMaximumHeight(8 * fontMetrics().height());
    // The types that most sites have are read whole, beside their boxes.
    m_ui->mimeListe->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("application/javascript")));
    m_ui->filterTexte->setMaximumHeight(6 * fontMetrics().height());
    showFilter();
    wire();
}

FilterPane::~FilterPane()
{
    // A field that has the focus ends its editing when the base class hides it, after the members of this class are
    // gone.
    for (zahlenEingabe* const field : findChildren<zahlenEingabe*>())
        field->disconnect(this);
}

void FilterPane::wire()
{
    wireSwitch(*m_mimeSwitch, m_filter.mimeSwitch);
    wireSwitch(*m_urlSwitch, m_filter.urlSwitch);
    wireRange(m_ui->c_useMaxDepth, m_ui->minDepth, m_ui->maxDepth, m_filter.depth);
    wireRange(m_ui->c_useSize, m_ui->minSize, m_ui->maxSize, m_filter.size);
    connect(&m_mimeModel, &MimeModel::listedChanged, this, &FilterPane::change);
    connect(m_ui->filterTexte, &QListWidget::itemSelectionChanged, this, &FilterPane::enableControls);
    connect(m_ui->neuFilterText, &QLineEdit::textChanged, this, &FilterPane::enableControls);
    connect(m_ui->neuFilterText, &QLineEdit::returnPressed, this, &FilterPane::addPart);
    connect(m_ui->addFilterText, &QToolButton::clicked, this, &FilterPane::addPart);
    connect(m_ui->removeFilterText, &QToolButton::clicked, this, &FilterPane::removeParts);
    auto* const removeKey = new QShortcut(QKeySequence::Delete, m_ui->filterTexte);
    removeKey->setContext(Qt::WidgetShortcut);
    connect(removeKey, &QShortcut::activated, this, &FilterPane::removeParts);
    connect(&m_typingPause, &QTimer::timeout, this, &FilterPane::takeBounds);
    connect(m_ui->b_liftBranch, &QToolButton::clicked, this, &FilterPane::liftBranch);
    connect(m_ui->b_resetFilter, &QPushButton::clicked, this, &FilterPane::reset);
    connect(m_ui->b_filterAkt, &QPushButton::clicked, this, [this] {
        takeBounds();
        emit applyClicked();
    });
    connect(m_ui->b_closeFilter, &QToolButton::clicked, this, &FilterPane::closeClicked);
}

void FilterPane::wireSwitch(const QButtonGroup& buttons, FilterSwitch& chosen)
{
    connect(&buttons, &QButtonGroup::idToggled, this, [this, &chosen](int mode, bool on) {
        if (!on)
            return;
        chosen = static_cast<FilterSwitch>(mode);
        change();
    });
}

void FilterPane::wireRange(QCheckBox* used, zahlenEingabe* min, zahlenEingabe* max, FilterRange& range)
{
    connect(used, &QCheckBox::toggled, this, [this, &range](bool on) {
        range.used = on;
        change();
    });
    for (const zahlenEingabe* const bound : { min, max }) {
        connect(bound, &zahlenEingabe::changed, &m_typingPause, [this] { m_typingPause.start(); });
        connect(bound, &zahlenEingabe::editingFinished, this, &FilterPane::takeBounds);
    }
}

void FilterPane::takeBounds()
{
    if (readBounds())
        emit filterChanged();
}

bool FilterPane::readBounds()
{
    m_typingPause.stop();
    const FilterRange depth { m_filter.depth.used, m_ui->minDepth->value(), m_ui->maxDepth->value() };
    const FilterRange size { m_filter.size.used, m_ui->minSize->value(), m_ui->maxSize->value() };
    if (depth == m_filter.depth && size == m_filter.size)
        return false;
    m_filter.depth = depth;
    m_filter.size = size;
    return true;
}

/// Tells of a change that is to apply at once, together with bounds that are still being typed.
void FilterPane::change()
{
    if (m_isShowing)
        return;
    readBounds();
    enableControls();
    emit filterChanged();
}

void FilterPane::showFilter()
{
    m_isShowing = true;
    m_mimeSwitch->button(static_cast<int>(m_filter.mimeSwitch))->setChecked(true);
    m_urlSwitch->button(static_cast<int>(m_filter.urlSwitch))->setChecked(true);
    m_ui->filterTexte->clear();
    for (const QByteArray& part : m_filter.filterTexte)
        addRow(part);
    showRange(m_filter.depth, m_ui->c_useMaxDepth, m_ui->minDepth, m_ui->maxDepth);
    showRange(m_filter.size, m_ui->c_useSize, m_ui->minSize, m_ui->maxSize);
    m_isShowing = false;
    m_typingPause.stop();
    showBranch();
    enableControls();
}

void FilterPane::showRange(const FilterRange& range, QCheckBox* used, zahlenEingabe* min, zahlenEingabe* max)
{
    used->setChecked(range.used);
    min->setValue(range.min);
    max->setValue(range.max);
}

void FilterPane::showBranch()
{
    const QString branch = m_filter.branch ? allgemein::shownText(m_filter.branch->text) : QString();
    const int width = 30 * fontMetrics().averageCharWidth();
    m_ui->b_liftBranch->setText(fontMetrics().elidedText(branch, Qt::ElideMiddle, width));
    m_ui->b_liftBranch->setVisible(m_filter.branch.has_value());
}

void FilterPane::liftBranch()
{
    m_filter.branch.reset();
    showBranch();
    change();
}

void FilterPane::reset()
{
    m_filter.reset();
    showFilter();
    emit filterChanged();
}

void FilterPane::setShownCount(int rows)
{
    m_ui->nAngezeigte->setText(QString::number(rows));
}

void FilterPane::setSizeUnit(qint64 bytes, const QString& name)
{
    m_filter.sizeUnit = bytes;
    m_ui->lbl_sizeUnit->setText(name);
}

void FilterPane::enableControls()
{
    m_ui->mimeListe->setEnabled(m_filter.mimeSwitch != FilterSwitch::Off);
    const bool byUrl = m_filter.urlSwitch != FilterSwitch::Off;
    m_ui->filterTexte->setEnabled(byUrl);
    m_ui->neuFilterText->setEnabled(byUrl);
    m_ui->addFilterText->setEnabled(byUrl && !m_ui->neuFilterText->text().isEmpty());
    m_ui->removeFilterText->setEnabled(byUrl && !m_ui->filterTexte->selectedItems().isEmpty());
    for (QWidget* const control : { m_ui->minDepth, m_ui->maxDepth })
        control->setEnabled(m_filter.depth.used);
    for (QWidget* const control : { m_ui->minSize, m_ui->maxSize })
        control->setEnabled(m_filter.size.used);
}

void FilterPane::addPart()
{
    if (m_ui->neuFilterText->text().isEmpty())
        return;
    addRow(allgemein::toSystem(m_ui->neuFilterText->text()));
    m_ui->neuFilterText->clear();
    takeParts();
}

void FilterPane::addRow(const QByteArray& part)
{
    auto* const row = new QListWidgetItem(allgemein::shownText(part), m_ui->filterTexte);
    row->setData(bytesRole, part);
}

void FilterPane::removeParts()
{
    QListWidget& parts = *m_ui->filterTexte;
    if (parts.selectedItems().isEmpty())
        return;
    int last = 0;
    for (int row = 0; row < parts.count();) {
        if (parts.item(row)->isSelected()) {
            delete parts.takeItem(row);
            last = row;
        } else {
            ++row;
        }
    }
    if (parts.count() > 0)
        parts.setCurrentRow(qMin(last, parts.count() - 1), QItemSelectionModel::ClearAndSelect);
    takeParts();
}

void FilterPane::takeParts()
{
    m_filter.filterTexte.clear();
    for (int row = 0; row < m_ui->filterTexte->count(); ++row)
        m_filter.filterTexte += m_ui->filterTexte->item(row)->data(bytesRole).toByteArray();
    change();
}
