/// @file EngineList.h
/// The engines that a program gives to its windows and studies.
///
/// Tests:   tests/app/EngineListTest.cpp
#pragma once

#include <memory>

#include "propagation/Engine.h"

/// A model's engine as it is installed now: REC533 in this process if the root's program is
/// Hopcast's own, otherwise the root's program.
[[nodiscard]] std::shared_ptr<const Engine> EngineMake(int iModel);
