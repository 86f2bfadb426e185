/// @file HashText.h
/// Checksums to recognise a file by. They reveal other versions and damage, and do not protect
/// against forgery.
///
/// Texts:   lower-case hexadecimal digits, with leading zeros.
/// Source:  FNV-1a by Fowler, Noll and Vo, draft-eastlake-fnv.
/// Tests:   tests/system/HashTextTest.cpp
#pragma once

#include <string>
#include <string_view>

[[nodiscard]] std::string HashText32(std::string_view sBytes);  ///< 8 digits
[[nodiscard]] std::string HashText64(std::string_view sBytes);  ///< 16 digits
