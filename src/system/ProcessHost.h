/// @file ProcessHost.h
/// The platform's own start of a program. Private to ProcessLib.
#pragma once

#include "system/ProcessLib.h"

/// As ProcessStart. REQUIRES: at least one word, the first not empty.
[[nodiscard]] Result<int> HostProcessStart(const ProcessCommand& command);

#ifndef _WIN32
/// Ends all started programs with their groups because this program ends: asked first, killed after
/// 0.2 s. From then on no more is started, and whoever starts or waits for one never comes back.
void HostProcessesEnd();
#endif
