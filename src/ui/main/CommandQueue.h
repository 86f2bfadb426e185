/// @file CommandQueue.h
/// One command at a time: what the user asks for during a run waits for its end.
///
/// Tests:   tests/ui/main/FrmMainBusyTest.cpp
#pragma once

#include <QObject>
#include <functional>
#include <vector>

class CommandQueue final : public QObject {
    Q_OBJECT
public:
    /// The time of a run: busy pointer, commands kept waiting.
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
    /// Does it at once, or after the run.
    void Do(std::function<void()> fnCommand);
    /// An update asked for during a run, however often, is one; it comes before the commands.
    void UpdateWant() { m_bUpdateWanted = true; }
    /// Drops what waits, now and later: nothing opens a window behind an exit.
    void End() { m_bEnded = true; }

Q_SIGNALS:
    void UpdateAsked();

private:
    void WaitingDo();

    bool m_bRunning = false;
    bool m_bUpdateWanted = false;
    bool m_bEnded = false;
    std::vector<std::function<void()>> m_aWaiting;
};
