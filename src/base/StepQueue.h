// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>
#include <list>

/// Runs long work in small steps, a few milliseconds at a time, so that other events are handled in between. All pieces
/// of work run one after the other.
class StepQueue final : public QObject {
    Q_OBJECT

public:
    /// Runs steps for about `sliceMilliseconds` before it returns to the event loop. The clock is read after each step.
    explicit StepQueue(int sliceMilliseconds = 8);

    /// Does one small part of the work. Returns false when the work is done.
    using Step = std::function<bool()>;

    /// Appends work. If the queue is empty, the first slice runs before this returns; otherwise the work waits for all
    /// that was added before.
    void add(Step step);
    /// Runs all remaining steps before it returns. Does nothing when called from a step.
    void finish();
    /// Drops all work. A step may call this as well; it is then not run again, whatever it returns.
    void clear();
    [[nodiscard]] bool isBusy() const;

private:
    void runSlice();
    void runStep();

    const int m_sliceMilliseconds;
    std::list<Step> m_steps; ///< without the one that is running
    bool m_isRunning = false; ///< a step runs; it may let other events pass
    bool m_isDropped = false; ///< the running step is not to be run again
    QTimer m_nextSlice;
};
