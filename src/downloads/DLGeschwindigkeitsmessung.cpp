// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/DLGeschwindigkeitsmessung.h"

#include <cmath>

void DLGeschwindigkeitsmessung::push(qint64 timeMs, qint64 totalBytes)
{
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    m_current = nextIndex(m_current);
    m_samples[static_cast<size_t>(m_current)] = { timeMs, totalBytes };
    if (m_current == 0)
        m_wrapped = true;
    m_skip = offersPerSample - 1;
}

qint64 DLGeschwindigkeitsmessung::getDurschnittsGeschwindigkeit() const
{
    // Before the first sample is kept, index 1 holds a sample of the last transfer.
    if (m_current == 0 && !m_wrapped)
        return 0;
    const Sample& newest = m_samples[static_cast<size_t>(m_current)];
    const Sample& oldest = m_samples[static_cast<size_t>(m_wrapped ? nextIndex(m_current) : 1)];
    if (newest.time == oldest.time)
        return 0;
    const double milliseconds = static_cast<double>(newest.time - oldest.time);
    return static_cast<qint64>(std::nearbyint(static_cast<double>(newest.bytes - oldest.bytes) * 1000 / milliseconds));
}

void DLGeschwindigkeitsmessung::reset()
{
    m_current = 0;
    m_wrapped = false;
    m_samples[0] = {};
}
