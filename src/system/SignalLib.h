/// @file SignalLib.h
/// What a program does when it is asked to end (SIGINT, SIGTERM, SIGHUP). On Windows nothing is
/// needed: the system ends engines with their Hopcast, and there is no temporary root.
///
/// Errors:  none. A signal that this program was started to ignore (nohup) stays ignored.
/// Tests:   tests/app/EndSignalsTest.cpp, tests/system/ChildProcessPosixTest.cpp
#pragma once

#include <functional>
#include <stop_token>

/// For a console program: from now on these signals end the engines with their groups, call
/// fnCleanUp (on a separate thread), and then end the program as usual. REQUIRES: called before
/// anything else, while there is no other thread.
void EndSignalsHandle(std::function<void()> fnCleanUp);

/// For a window program, which then closes itself: the descriptor of a pipe that becomes readable
/// with the first of these signals. A second one ends the program at once. @return -1 where there
/// is none.
[[nodiscard]] int EndSignalsPipe();

/// For a launcher, which cleans up before it ends: from now on the first of these signals requests
/// a stop, and a file that grows too large or a closed pipe is an ordinary error. REQUIRES: called
/// before anything else, while there is no other thread.
[[nodiscard]] std::stop_token EndSignalsStop();
