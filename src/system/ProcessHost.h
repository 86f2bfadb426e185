/// @file ProcessHost.h
/// The platform's own start of a program. Private to ProcessLib.
#pragma once

#include "system/ProcessLib.h"

/// As ProcessStart. REQUIRES: at least one word, the first not empty.
[[nodiscard]] Result<int> HostProcessStart(const ProcessCommand& command);
