// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QStringList>

/// A line on standard error, or a few, that are written over and over. They are brought up to date a few times a second
/// at most, however often it is told something new.
class ProgressLine {
public:
    /// An inactive line never writes anything.
    explicit ProgressLine(bool active);

    /// True when it is time to show something new.
    [[nodiscard]] bool isDue() const;
    /// Shows a text, cut to the width of the terminal.
    void show(const QString& text) { show(QStringList(text)); }
    /// Shows a line for each text.
    void show(const QStringList& texts);
    /// Removes the lines, so that other output starts on an empty one.
    void clear();

private:
    bool m_active;
    qsizetype m_shown = 0; ///< how many lines stand there
    QElapsedTimer m_sinceShown;
};
