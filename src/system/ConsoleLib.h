/// @file ConsoleLib.h
/// The console that a program runs in: its arguments as UTF-8, whether output goes anywhere, and
/// whether it shows colours.
/// Tests:   tests/app/HopcastPredictTest.cpp, ProgramsWin32Test.cpp
#pragma once

#include <string>
#include <vector>

/// The arguments after the program's name, in UTF-8 (on Windows from the wide command line).
[[nodiscard]] std::vector<std::string> ArgumentsGet(int nArguments, char** asArguments);

/// False when printed text goes nowhere: in a window program that Windows started from its desktop
/// or from a command prompt. True when its output is redirected.
[[nodiscard]] bool ConsoleIsOpen();

/// While it lives, the console reads what is printed as UTF-8. At its end, and when the user ends
/// the program from the keyboard, the console gets its previous settings back, as the shell goes on
/// in it. Create it first in main, one at a time. Only Windows needs it.
class ConsoleUtf8 {
public:
    ConsoleUtf8();
    ~ConsoleUtf8();
    ConsoleUtf8(const ConsoleUtf8&) = delete;
    ConsoleUtf8& operator=(const ConsoleUtf8&) = delete;
};

/// True when standard output is a terminal that shows 24-bit colours. NO_COLOR forbids them,
/// CLICOLOR_FORCE=1 forces them everywhere. On Windows they are switched on in the console for as
/// long as a ConsoleUtf8 lives.
[[nodiscard]] bool ConsoleTakesColor();
