// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/PacedUpdate.h"

namespace {

/// In milliseconds.
constexpr qint64 pace = 50;

} // namespace

PacedUpdate::PacedUpdate()
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_sinceLast.start();
        emit due();
    });
}

void PacedUpdate::request()
{
    if (m_timer.isActive())
        return;
    const qint64 passed = m_sinceLast.isValid() ? m_sinceLast.elapsed() : pace;
    m_timer.start(static_cast<int>(qMax<qint64>(0, pace - passed)));
}
