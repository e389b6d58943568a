// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/StepQueue.h"

#include <QElapsedTimer>

#include <utility>

namespace {

constexpr int sliceMilliseconds = 8;

} // namespace

StepQueue::StepQueue()
{
    connect(&m_nextSlice, &QTimer::timeout, this, &StepQueue::runSlice);
}

void StepQueue::add(Step step)
{
    m_steps.push_back(std::move(step));
    if (m_steps.size() == 1)
        runSlice();
}

void StepQueue::finish()
{
    while (isBusy() && !m_isRunning)
        runStep();
    if (!isBusy())
        m_nextSlice.stop();
}

void StepQueue::clear()
{
    m_steps.clear();
    m_nextSlice.stop();
}

void StepQueue::runSlice()
{
    QElapsedTimer timer;
    timer.start();
    while (isBusy() && !m_isRunning && !timer.hasExpired(sliceMilliseconds))
        runStep();
    if (!isBusy())
        m_nextSlice.stop();
    else if (!m_nextSlice.isActive())
        m_nextSlice.start(0);
}

void StepQueue::runStep()
{
    m_isRunning = true;
    const bool isFinished = !m_steps.front()();
    m_isRunning = false;
    if (isFinished)
        m_steps.pop_front();
}
