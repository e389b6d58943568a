// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ctime>

/// Measures the processor time of this program, so that other programs on the machine disturb the figure less.
class CpuTimer {
public:
    [[nodiscard]] double seconds() const { return now() - m_start; }

private:
    static double now()
    {
        timespec time {};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    }

    double m_start = now();
};
