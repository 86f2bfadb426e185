/// @file RunnerPost.h
/// Answers of a Runner on a window's thread.
///
/// Tests:   tests/ui/common/RunnerPostTest.cpp
#pragma once

#include "propagation/Runner.h"

class QObject;

/// Calls are run by the event loop of the receiver's thread, in their order; those that wait when
/// the receiver goes are dropped. REQUIRES: the runner goes before the receiver, as a member of its
/// does.
[[nodiscard]] Runner::PostFn RunnerPostTo(QObject& receiver);
