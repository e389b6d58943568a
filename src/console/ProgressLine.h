// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QString>

/// A line on standard error that is written over and over. It is brought up to date a few times a second at most,
/// however often it is told something new.
class ProgressLine {
public:
    /// An inactive line never writes anything.
    explicit ProgressLine(bool active);

    /// True when it is time to show something new.
    [[nodiscard]] bool isDue() const;
    /// Shows a text, cut to the width of the terminal.
    void show(const QString& text);
    /// Removes the line, so that other output starts on an empty one.
    void clear();

private:
    bool m_active;
    bool m_shown = false;
    QElapsedTimer m_sinceShown;
};
