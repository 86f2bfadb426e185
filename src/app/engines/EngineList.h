/// @file EngineList.h
/// The engines that a program hands to its windows and studies.
///
/// Tests:   tests/app/EngineListTest.cpp
#pragma once

#include <memory>

#include "propagation/Engine.h"

/// The engine of a model as it is installed now: REC533 in this process where the root's program is
/// Hopcast's own, any other as the program of the root.
[[nodiscard]] std::shared_ptr<const Engine> EngineMake(int iModel);
