// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

/// Measures the longest time between two passes of the event loop during its lifetime. A timer that is always due fires
/// once in each pass.
class Heartbeat : public QObject {
public:
    Heartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] {
            m_longest = qMax(m_longest, m_sinceBeat.nsecsElapsed());
            m_sinceBeat.start();
        });
        m_sinceBeat.start();
        m_timer.start(0);
    }
    [[nodiscard]] double longestMilliseconds() const { return static_cast<double>(m_longest) / 1e6; }

private:
    QTimer m_timer;
    QElapsedTimer m_sinceBeat;
    qint64 m_longest = 0;
};
