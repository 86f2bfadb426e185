/// @file ConsoleLib.h
/// The console that a program runs in: its arguments as UTF-8, whether anybody reads what it
/// prints, and whether it shows colours.
/// Tests:   tests/app/HopcastPredictTest.cpp, ProgramsWin32Test.cpp
#pragma once

#include <string>
#include <vector>

/// The arguments behind the program's name, in UTF-8 (on Windows taken from the wide command line).
[[nodiscard]] std::vector<std::string> ArgumentsGet(int nArguments, char** asArguments);

/// False when what is printed goes nowhere: a window program that Windows started from its desktop
/// or from a command prompt. Its output can be redirected, and is there then.
[[nodiscard]] bool ConsoleIsThere();

/// While it lives, the console takes what is printed as UTF-8. At its end, and when the user ends
/// the program by the keyboard, the console gets back what it had before: the shell goes on in it.
/// First thing in main; one at a time. Only Windows needs it.
class ConsoleUtf8 {
public:
    ConsoleUtf8();
    ~ConsoleUtf8();
    ConsoleUtf8(const ConsoleUtf8&) = delete;
    ConsoleUtf8& operator=(const ConsoleUtf8&) = delete;
};

/// True when standard output is a terminal that shows 24-bit colours. NO_COLOR forbids them,
/// CLICOLOR_FORCE=1 asks for them anywhere. On Windows the console is told to understand them, as
/// long as a ConsoleUtf8 lives.
[[nodiscard]] bool ConsoleTakesColor();
