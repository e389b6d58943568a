// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>

/// Measures the average speed of a transfer over its recent past. It keeps one in six of the samples offered to it, and
/// averages over the newest ten of these.
class DLGeschwindigkeitsmessung {
public:
    /// Offers a sample: a time in milliseconds, and the bytes received until then.
    void push(qint64 timeMs, qint64 totalBytes);
    /// In bytes per second, halves rounded to even; 0 until two samples of different times are kept.
    [[nodiscard]] qint64 getDurschnittsGeschwindigkeit() const;
    /// Starts a new measurement. The count of skipped samples goes on, so up to five are skipped before the first is
    /// kept.
    void reset();

private:
    static constexpr int size = 10;
    static constexpr int offersPerSample = 6;

    struct Sample {
        qint64 time = 0;
        qint64 bytes = 0;
    };

    [[nodiscard]] static int nextIndex(int index) { return index < size - 1 ? index + 1 : 0; }

    /// A ring buffer. The first sample of a measurement is at index 1.
    std::array<Sample, size> m_samples;
    int m_current = 0;
    bool m_wrapped = false;
    int m_skip = 0;
};
