/// @file AntennaTip.h
/// What the entries of the antenna list mean with an engine. Their captions are VOACAP's and
/// ICEPAC's; REC533 takes them otherwise.
///
/// Tests:   tests/ui/options/FrmOptionsLoadTest.cpp
#pragma once

#include <QString>

/// One line for the engine and one for each entry, with the power that comes with it; empty for an
/// engine that is none.
[[nodiscard]] QString AntennaTipGet(int iModel);
