/// @file NightStyle.h
/// Night in every window of the program. A style and a palette paint in reds on black, and a colour
/// table over each finished window removes all other light, whatever painted it: icons, pictures,
/// Qt's menus. The pointer is red. Dialogs are Qt's own, since the system's would be bright. The
/// window frames remain the system's.
///
/// Threads: the windows' thread.
/// Tests:   tests/ui/common/NightStyleTest.cpp, tests/ui/night/NightTest.cpp
#pragma once

#include <QPalette>

/// Switches Night on or off in all windows, including those opened later.
/// REQUIRES: a QApplication
void NightSet(bool bNight);

/// Red on black for every role of every group.
[[nodiscard]] QPalette NightPaletteGet();
