/// @file ChildRun.h
/// Runs a helper program to its end, as a launcher does: in this program's own process group.
#pragma once

#include "system/ChildProcess.h"

inline Result<ChildResult> ChildRun(ProcessCommand command, double dSeconds,
                                    const std::stop_token& stop = {})
{
    command.bOwnGroup = false;
    auto resChild = ChildProcess::Start(command);
    if (!resChild)
        return resChild.ErrorGet();
    return resChild.ValueGet().Wait(dSeconds, stop);
}
