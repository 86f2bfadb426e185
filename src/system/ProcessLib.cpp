#include "system/ProcessLib.h"

#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace {

ProcessStartFn& HandlerGet()
{
    static ProcessStartFn fnHandler;
    return fnHandler;
}

/// The programs that were started and not yet waited for. It outlives every thread: at the
/// program's end the system ends those that are left.
struct StartedProcesses {
    std::mutex m_mutex;
    std::map<int, ChildProcess> m_mapChildren;
};

StartedProcesses& StartedGet()
{
    static auto* const pStarted = new StartedProcesses;
    return *pStarted;
}

std::optional<ChildProcess> StartedTake(int nProcessId)
{
    const std::lock_guard lock(StartedGet().m_mutex);
    auto node = StartedGet().m_mapChildren.extract(nProcessId);
    if (!node)
        return {};
    return std::move(node.mapped());
}

}  // namespace

Result<int> ProcessStart(const ProcessCommand& command)
{
    if (const ProcessStartFn& fnHandler = HandlerGet())
        return fnHandler(command);
    auto resChild = ChildProcess::Start(command);
    if (!resChild)
        return resChild.ErrorGet();
    const int nId = resChild.ValueGet().IdGet();
    const std::lock_guard lock(StartedGet().m_mutex);
    StartedGet().m_mapChildren.insert_or_assign(nId, std::move(resChild.ValueGet()));
    return nId;
}

bool ProcessWait(int nProcessId, double dSeconds, const std::stop_token& stop)
{
    auto child = StartedTake(nProcessId);
    if (!child)
        child = ChildProcess::Open(nProcessId);
    if (!child)
        return true;
    const ChildResult result = child->Wait(dSeconds, stop);
    return result.eEnd == ChildEnd::Exited && result.nCode == 0;
}

ProcessStartFn ProcessSetHandler(ProcessStartFn fnStart)
{
    return std::exchange(HandlerGet(), std::move(fnStart));
}
