// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StatusPanels.h"

#include "base/lang.h"
#include "base/window/Captions.h"
#include "base/window/ElidedLabel.h"
#include "session/SearchStatus.h"

#include <QProgressBar>
#include <QPushButton>

#include <algorithm>

namespace {

/// How the panels share the room; the start URL needs the most.
constexpr std::array<int, 6> stretches { 4, 5, 2, 4, 5, 3 };

} // namespace

StatusPanels::StatusPanels(QWidget* parent)
    : QStatusBar(parent)
    , m_filtered(new QPushButton(this))
    , m_busy(new QProgressBar(this))
{
    setObjectName(QStringLiteral("statusBar"));
    for (size_t panel = 0; panel < m_panels.size(); ++panel) {
        m_panels[panel] = new ElidedLabel(this);
        m_panels[panel]->setObjectName(QStringLiteral("panel_%1").arg(panel + 1));
        addWidget(m_panels[panel], stretches[panel]);
    }
    m_filtered->setObjectName(QStringLiteral("b_filtered"));
    m_filtered->setFlat(true);
    m_filtered->setFocusPolicy(Qt::TabFocus);
    m_filtered->hide();
    connect(m_filtered, &QPushButton::clicked, this, &StatusPanels::filteredClicked);
    addPermanentWidget(m_filtered);
    m_busy->setObjectName(QStringLiteral("busy"));
    m_busy->setRange(0, 0);
    m_busy->setTextVisible(false);
    m_busy->setMaximumSize(fontMetrics().averageCharWidth() * 12, fontMetrics().height());
    m_busy->hide();
    addPermanentWidget(m_busy);
}

void StatusPanels::show(const SearchStatus& status, int shownRows, bool isFiltered, const LanguageTable& language)
{
    const QString label = language.text("main.lbl_nFiltered").remove(u':').trimmed();
    const QString shown = language.labelled(label, QString::number(shownRows));
    const auto texts = status.panels(language);
    for (size_t panel = 0; panel < m_panels.size(); ++panel)
        m_panels[panel]->setText(panel < shownPanel ? texts[panel] : shown);
    m_panels[1]->setToolTip(captions::toolTip(texts[1]));
    m_filtered->setToolTip(language.text("more.filteredHint"));
    m_filtered->setVisible(isFiltered);
    m_busy->setVisible(status.isBusy());
    m_busy->setAccessibleName(language.text("lang.search_searching"));
}
