/// @file ApartProfile.h
/// The profile, read apart from the program's reader: from docs/files.md, with its own list of
/// keys.
#pragma once

#include <string>

#include "apart/Outcome.h"

/// What the settings are, behind their defaults and the file.
[[nodiscard]] Outcome ApartProfile(const std::string& sBytes);
