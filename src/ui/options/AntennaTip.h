/// @file AntennaTip.h
/// What the entries of the antenna list mean to an engine. Their captions are those of VOACAP and
/// ICEPAC; REC533 interprets them differently.
///
/// Tests:   tests/ui/options/FrmOptionsLoadTest.cpp
#pragma once

#include <QString>

/// One line for the engine and one for each entry, with the entry's power; empty for an unknown
/// engine.
[[nodiscard]] QString AntennaTipGet(int iModel);
