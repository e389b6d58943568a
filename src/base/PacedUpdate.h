// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QTimer>

/// Has views brought up to date for changes that may come by the thousand: once for all that come together, and no more
/// often than people can follow, since every time something is drawn.
class PacedUpdate final : public QObject {
    Q_OBJECT

public:
    PacedUpdate();

    /// Something has changed. `due` follows.
    void request();
    /// Nothing is to be brought up to date any more.
    void cancel() { m_timer.stop(); }
    [[nodiscard]] bool isRequested() const { return m_timer.isActive(); }

signals:
    void due();

private:
    QTimer m_timer;
    QElapsedTimer m_sinceLast;
};
