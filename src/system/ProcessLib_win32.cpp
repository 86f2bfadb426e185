#include "system/ProcessLib.h"

bool ProgramIsWindows(const std::string&) { return true; }

std::string ProgramMissingPartGet(const std::string&) { return {}; }
