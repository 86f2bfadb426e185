#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "system/ConsoleLib.h"

std::vector<std::string> ArgumentsGet(int nArguments, char** asArguments)
{
    return {asArguments + (nArguments > 0 ? 1 : 0), asArguments + nArguments};
}

ConsoleUtf8::ConsoleUtf8() = default;
ConsoleUtf8::~ConsoleUtf8() = default;

bool ConsoleIsOpen() { return true; }

bool ConsoleTakesColor()
{
    const auto Set = [](const char* sName) {
        const char* sValue = std::getenv(sName);
        return sValue != nullptr && *sValue != '\0' && std::string_view(sValue) != "0";
    };
    if (Set("NO_COLOR"))
        return false;
    if (Set("CLICOLOR_FORCE"))
        return true;
    const char* sTerminal = std::getenv("TERM");
    return isatty(STDOUT_FILENO) != 0 && sTerminal != nullptr
           && std::string_view(sTerminal) != "dumb";
}
