// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>

/// The average speed of a transfer over its recent past: of the samples that are offered, one in six is kept, and the
/// newest ten of these count.
class DLGeschwindigkeitsmessung {
public:
    /// Offers a sample: a time in milliseconds and the bytes that the transfer has received until then.
    void push(qint64 timeMs, qint64 totalBytes);
    /// In bytes per second, halves rounded to even; 0 while there are no two samples of different times.
    [[nodiscard]] qint64 getDurschnittsGeschwindigkeit() const;
    /// Starts a new measurement. Up to five samples of it may be passed over before the first is kept.
    void reset();

private:
    static constexpr int size = 10;
    static constexpr int offersPerSample = 6;

    struct Sample {
        qint64 time = 0;
        qint64 bytes = 0;
    };

    [[nodiscard]] static int nextIndex(int index) { return index < size - 1 ? index + 1 : 0; }

    /// A ring; the first sample of a measurement stands at index 1.
    std::array<Sample, size> m_samples;
    int m_current = 0;
    bool m_wrapped = false;
    int m_skip = 0;
};
