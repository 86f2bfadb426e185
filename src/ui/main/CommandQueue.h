/// @file CommandQueue.h
/// Runs one command at a time: what the user asks for during a run waits until it ends.
///
/// Tests:   tests/ui/main/FrmMainBusyTest.cpp
#pragma once

#include <QObject>
#include <functional>
#include <vector>

class CommandQueue final : public QObject {
    Q_OBJECT
public:
    /// The time of a run: shows the busy pointer and holds commands back.
    class Run {
    public:
        explicit Run(CommandQueue& queue);
        ~Run();
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

    private:
        CommandQueue& m_queue;
    };

    using QObject::QObject;
    [[nodiscard]] bool RunningIs() const { return m_bRunning; }
    /// Runs a command now, or after the run in progress.
    void Do(std::function<void()> fnCommand);
    /// However many updates are asked for during a run, one follows; it comes before the commands.
    void UpdateRequest() { m_bUpdateRequested = true; }
    /// Drops all waiting and further commands, so that nothing opens a window after File, Exit.
    void End() { m_bEnded = true; }

Q_SIGNALS:
    void UpdateRequested();

private:
    void WaitingDo();

    bool m_bRunning = false;
    bool m_bUpdateRequested = false;
    bool m_bEnded = false;
    std::vector<std::function<void()>> m_aWaiting;
};
