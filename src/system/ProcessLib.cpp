#include "system/ProcessLib.h"

#include <utility>

#include "system/ProcessHost.h"
#include "system/RunErrorText.h"

namespace {

ProcessStartFn& HandlerGet()
{
    static ProcessStartFn fnHandler;
    return fnHandler;
}

}  // namespace

Result<int> ProcessStart(const ProcessCommand& command)
{
    if (const ProcessStartFn& fnHandler = HandlerGet())
        return fnHandler(command);
    if (command.asWords.empty() || command.asWords.front().empty())
        return RunError{kFileNotFound};
    return HostProcessStart(command);
}

ProcessStartFn ProcessSetHandler(ProcessStartFn fnStart)
{
    return std::exchange(HandlerGet(), std::move(fnStart));
}
