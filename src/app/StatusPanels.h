// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStatusBar>

#include <array>

class LanguageTable;
class QLabel;
class QProgressBar;
struct SearchStatus;

/// The status bar: the panels of the search, how many rows are shown, and a sign that a search is running.
class StatusPanels final : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusPanels(QWidget* parent);

    void show(const SearchStatus& status, int shownRows, const LanguageTable& language);

private:
    static constexpr size_t shownPanel = 5;

    /// The five panels of the search and that of the shown rows.
    std::array<QLabel*, shownPanel + 1> m_panels;
    QProgressBar* m_busy;
};
