// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/FilterPane.h"

#include "base/Captions.h"
#include "base/allgemein.h"
#include "results/ResultFilter.h"
#include "ui_FilterPane.h"

#include <QSignalBlocker>
#include <QStyle>

#include <array>
#include <limits>

namespace {

using Switches = std::array<QRadioButton * Ui::FilterPane::*, 3>;
constexpr Switches mimeSwitches { &Ui::FilterPane::mimeFilterSwitch_0, &Ui::FilterPane::mimeFilterSwitch_1,
    &Ui::FilterPane::mimeFilterSwitch_2 };
constexpr Switches urlSwitches { &Ui::FilterPane::urlFilterSwitch_0, &Ui::FilterPane::urlFilterSwitch_1,
    &Ui::FilterPane::urlFilterSwitch_2 };

} // namespace

FilterPane::FilterPane(ResultFilter& filter, QWidget* parent)
    : QGroupBox(parent)
    , m_filter(filter)
    , m_mimeModel(filter.mimeListe, nullptr)
    , m_ui(std::make_unique<Ui::FilterPane>())
{
    m_ui->setupUi(this);
    captions::nameArrays(*this);
    m_ui->mimeListe->setModel(&m_mimeModel);
    m_ui->b_closeFilter->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    for (zahlenEingabe* const bound : { m_ui->minDepth, m_ui->maxDepth, m_ui->minSize, m_ui->maxSize }) {
        bound->init(0, std::numeric_limits<int>::max(), 0);
        // Narrower than its greatest number, which nobody types.
        bound->setMinimumWidth(14 * fontMetrics().averageCharWidth());
    }
    // High enough for the option buttons; the results need the room.
    setMaximumHeight(12 * fontMetrics().height());
    showFilter();
    wire();
}

FilterPane::~FilterPane() = default;

void FilterPane::wire()
{
    const auto wireSwitches = [this](const Switches& switches, FilterSwitch& chosen) {
        for (size_t mode = 0; mode < switches.size(); ++mode) {
            connect((*m_ui).*switches[mode], &QRadioButton::clicked, this, [this, mode, &chosen] {
                chosen = static_cast<FilterSwitch>(mode);
                enableControls();
                emit filterChanged();
            });
        }
    };
    wireSwitches(mimeSwitches, m_filter.mimeSwitch);
    wireSwitches(urlSwitches, m_filter.urlSwitch);
    wireRange(m_ui->c_useMaxDepth, m_ui->minDepth, m_ui->maxDepth, m_filter.depth);
    wireRange(m_ui->c_useSize, m_ui->minSize, m_ui->maxSize, m_filter.size);
    connect(&m_mimeModel, &MimeModel::listedChanged, this, &FilterPane::filterChanged);
    connect(m_ui->filterTexte, &QListWidget::itemSelectionChanged, this, &FilterPane::enableControls);
    connect(m_ui->neuFilterText, &QLineEdit::textChanged, this, &FilterPane::enableControls);
    connect(m_ui->neuFilterText, &QLineEdit::returnPressed, this, &FilterPane::addPart);
    connect(m_ui->addFilterText, &QToolButton::clicked, this, &FilterPane::addPart);
    connect(m_ui->removeFilterText, &QToolButton::clicked, this, &FilterPane::removeParts);
    connect(m_ui->b_filterAkt, &QPushButton::clicked, this, &FilterPane::applyClicked);
    connect(m_ui->b_closeFilter, &QToolButton::clicked, this, &FilterPane::closeClicked);
}

void FilterPane::wireRange(QCheckBox* used, zahlenEingabe* min, zahlenEingabe* max, FilterRange& range)
{
    connect(used, &QCheckBox::clicked, this, [this, &range](bool on) {
        range.used = on;
        enableControls();
        emit filterChanged();
    });
    const auto wireBound = [this](zahlenEingabe* input, qint64& bound) {
        connect(input, &QSpinBox::valueChanged, this, [this, &bound](int value) {
            bound = value;
            emit filterChanged();
        });
    };
    wireBound(min, range.min);
    wireBound(max, range.max);
}

void FilterPane::showFilter()
{
    const QSignalBlocker quiet(this);
    ((*m_ui).*mimeSwitches[static_cast<size_t>(m_filter.mimeSwitch)])->setChecked(true);
    ((*m_ui).*urlSwitches[static_cast<size_t>(m_filter.urlSwitch)])->setChecked(true);
    m_ui->filterTexte->clear();
    for (const QByteArray& part : m_filter.filterTexte)
        m_ui->filterTexte->addItem(allgemein::fromSystem(part));
    const auto showRange = [](const FilterRange& range, QCheckBox* used, QSpinBox* min, QSpinBox* max) {
        used->setChecked(range.used);
        min->setValue(static_cast<int>(range.min));
        max->setValue(static_cast<int>(range.max));
    };
    showRange(m_filter.depth, m_ui->c_useMaxDepth, m_ui->minDepth, m_ui->maxDepth);
    showRange(m_filter.size, m_ui->c_useSize, m_ui->minSize, m_ui->maxSize);
    enableControls();
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
    m_ui->filterTexte->addItem(m_ui->neuFilterText->text());
    m_ui->neuFilterText->clear();
    takeParts();
}

void FilterPane::removeParts()
{
    QListWidget& parts = *m_ui->filterTexte;
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
        m_filter.filterTexte += allgemein::toSystem(m_ui->filterTexte->item(row)->text());
    enableControls();
    emit filterChanged();
}
