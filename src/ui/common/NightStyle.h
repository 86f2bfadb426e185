/// @file NightStyle.h
/// Night in every window of the program: a style and a palette in reds on black, and over each
/// finished window a table of colours that leaves no other light, whatever painted it: icons,
/// pictures, a menu of the toolkit. The pointer is red, and dialogs are the toolkit's own, as the
/// system's would shine. Window frames are the system's.
///
/// Threads: that of the windows.
/// Tests:   tests/ui/common/NightStyleTest.cpp, tests/ui/night/NightTest.cpp
#pragma once

#include <QPalette>

/// Switches Night on or off, at once in all windows; those to come have it, too.
/// REQUIRES: a QApplication
void NightSet(bool bNight);

/// Red on black for every role of every group.
[[nodiscard]] QPalette NightPaletteGet();
