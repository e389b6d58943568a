// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>
#include <list>

/// Long work in small steps, done a few milliseconds at a time, so that other events get their turn in between.
class StepQueue final : public QObject {
    Q_OBJECT

public:
    StepQueue();

    /// Does one small piece of the work; false when that was the last.
    using Step = std::function<bool()>;

    /// Has `step` done again and again until it says that it is finished, after whatever was added before. If nothing
    /// was, the first slice is done at once.
    void add(Step step);
    /// Does at once whatever is left. While a step runs, it does nothing.
    void finish();
    /// Drops whatever is left. Not from a step.
    void clear();
    [[nodiscard]] bool isBusy() const { return !m_steps.empty(); }

private:
    void runSlice();
    void runStep();

    std::list<Step> m_steps;
    bool m_isRunning = false; ///< a step runs, which may let other events pass
    QTimer m_nextSlice;
};
