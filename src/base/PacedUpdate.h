// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QTimer>

/// Limits how often views are brought up to date while changes come by the thousand: at once after the first change,
/// and then at most every 50 ms. Each update draws something, which takes longer than most changes.
class PacedUpdate final : public QObject {
    Q_OBJECT

public:
    PacedUpdate();

    /// Tells that something has changed; `due` follows from the event loop.
    void request();
    /// Drops a requested update.
    void cancel() { m_timer.stop(); }
    [[nodiscard]] bool isRequested() const { return m_timer.isActive(); }

signals:
    void due();

private:
    QTimer m_timer;
    QElapsedTimer m_sinceLast;
};
