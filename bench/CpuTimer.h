// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ctime>

/// Measures how long the program itself has computed, so that whatever else the machine does meanwhile counts less.
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
