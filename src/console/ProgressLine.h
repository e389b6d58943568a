// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QStringList>

/// Lines at the end of standard error that show the progress of the work. Each update replaces the lines of the one
/// before. `isDue` limits the updates to ten a second.
class ProgressLine {
public:
    /// An inactive object never writes anything.
    explicit ProgressLine(bool active);

    /// Whether the last update is long enough ago.
    [[nodiscard]] bool isDue() const;
    /// Shows one line, cut to the width of the terminal.
    void show(const QString& text) { show(QStringList(text)); }
    /// Shows several lines, each cut to the width of the terminal.
    void show(const QStringList& texts);
    /// Removes the lines, so that other output starts on an empty line.
    void clear();

private:
    bool m_active;
    qsizetype m_shown = 0; ///< the number of lines on the terminal
    QElapsedTimer m_sinceShown;
};
