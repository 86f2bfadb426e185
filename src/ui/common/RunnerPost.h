/// @file RunnerPost.h
/// Delivers a Runner's answers on a window's thread.
///
/// Tests:   tests/ui/common/RunnerPostTest.cpp
#pragma once

#include "propagation/Runner.h"

class QObject;

/// The event loop of the receiver's thread makes the calls in order; calls still waiting when the
/// receiver is destroyed are dropped.
/// REQUIRES: the runner is destroyed before the receiver, as one of its members is.
[[nodiscard]] Runner::PostFn RunnerPostTo(QObject& receiver);
