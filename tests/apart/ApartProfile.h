/// @file ApartProfile.h
/// An independent reader of the profile, written from docs/files.md, with its own list of keys.
#pragma once

#include <string>

#include "apart/Outcome.h"

/// The settings after the defaults and then the file.
[[nodiscard]] Outcome ApartProfile(const std::string& sBytes);
