#include "ui/main/CommandQueue.h"

#include <QApplication>
#include <QTimer>
#include <utility>

#include "ui/common/NightPointer.h"

CommandQueue::Run::Run(CommandQueue& queue) : m_queue(queue)
{
    m_queue.m_bRunning = true;
    QApplication::setOverrideCursor(PointerGet(Qt::WaitCursor));
}

CommandQueue::Run::~Run()
{
    QApplication::restoreOverrideCursor();
    m_queue.m_bRunning = false;
    if (m_queue.m_bUpdateRequested || !m_queue.m_aWaiting.empty())
        QTimer::singleShot(0, &m_queue, &CommandQueue::WaitingDo);
}

void CommandQueue::Do(std::function<void()> fnCommand)
{
    if (m_bEnded)
        return;
    if (m_bRunning)
        m_aWaiting.push_back(std::move(fnCommand));
    else
        fnCommand();
}

/// Runs the commands given during the run, in order.
void CommandQueue::WaitingDo()
{
    if (m_bRunning)
        return;  // the end of that run calls this again
    if (std::exchange(m_bUpdateRequested, false) && !m_bEnded)
        Q_EMIT UpdateRequested();
    for (const auto& fnCommand : std::exchange(m_aWaiting, {})) Do(fnCommand);
}
