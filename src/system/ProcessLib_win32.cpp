#include "system/ProcessLib.h"

bool ProgramIsWindows(const std::string&) { return true; }

std::string ProgramLackGet(const std::string&) { return {}; }
