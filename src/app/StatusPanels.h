// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStatusBar>

#include <array>

class LanguageTable;
class QLabel;
class QProgressBar;
class QPushButton;
struct SearchStatus;

/// The status bar: the panels of the search, the number of shown rows, a sign that a filter is on, and a bar that moves
/// while a search runs.
class StatusPanels final : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusPanels(QWidget* parent);

    /// `isFiltered`: a filter is on, whether or not it can be seen.
    void show(const SearchStatus& status, int shownRows, bool isFiltered, const LanguageTable& language);

signals:
    /// The sign of a filter was clicked.
    void filteredClicked();

private:
    static constexpr size_t shownPanel = 5;

    /// The five panels of the search, and one for the number of shown rows.
    std::array<QLabel*, shownPanel + 1> m_panels {};
    QPushButton* m_filtered;
    QProgressBar* m_busy;
};
