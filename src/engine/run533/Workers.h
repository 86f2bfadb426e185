/// @file Workers.h
/// One procedure on several threads at once.
///
/// Errors:  what the procedure throws on any thread is thrown on the caller's, when all have ended.
/// Tests:   tests/engine/WorkersTest.cpp
#pragma once

#include <functional>

namespace run533 {

/// Runs fnWork on the caller's thread and on up to nThreads - 1 more; fewer where the system has no
/// more threads.
void WorkersRun(int nThreads, const std::function<void()>& fnWork);

}  // namespace run533
