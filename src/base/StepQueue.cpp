// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/StepQueue.h"

#include <QElapsedTimer>

#include <utility>

StepQueue::StepQueue(int sliceMilliseconds)
    : m_sliceMilliseconds(sliceMilliseconds)
{
    connect(&m_nextSlice, &QTimer::timeout, this, &StepQueue::runSlice);
}

void StepQueue::add(Step step)
{
    const bool wasBusy = isBusy();
    m_steps.push_back(std::move(step));
    if (!wasBusy)
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
    m_isDropped = true;
    m_nextSlice.stop();
}

bool StepQueue::isBusy() const
{
    return !m_steps.empty() || (m_isRunning && !m_isDropped);
}

void StepQueue::runSlice()
{
    QElapsedTimer timer;
    timer.start();
    while (isBusy() && !m_isRunning && !timer.hasExpired(m_sliceMilliseconds))
        runStep();
    if (!isBusy())
        m_nextSlice.stop();
    else if (!m_nextSlice.isActive())
        m_nextSlice.start(0);
}

void StepQueue::runStep()
{
    std::list<Step> running;
    running.splice(running.begin(), m_steps, m_steps.begin());
    m_isRunning = true;
    m_isDropped = false;
    const bool isFinished = !running.front()();
    m_isRunning = false;
    if (!isFinished && !m_isDropped)
        m_steps.splice(m_steps.begin(), running);
}
