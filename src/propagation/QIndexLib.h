/// @file QIndexLib.h
/// Converts the auroral Q index, which the engines take, to the planetary K index, which
/// observatories and forecasts publish.
///
/// Units:   both are plain numbers; Kp runs from 0 to 9.
/// Source:  B. S. Dandekar, 1993, AD-A282764: Q = 0.964 Kp - 0.3 up to Kp 2.23 and
///          Q = 2.04 Kp - 2.7 above, here solved for Kp.
/// Tests:   tests/propagation/QIndexLibTest.cpp
#pragma once

/// Kp of a Q index, never below 0 or above 9; not-a-number stays so. Q 3 is Kp 2.794.
[[nodiscard]] float PropagationQtoK(float fQ);
