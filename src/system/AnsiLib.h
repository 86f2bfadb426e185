/// @file AnsiLib.h
/// Names of this machine's folders in files of the Windows world: Windows-1252, and on a machine
/// with another alphabet (the system code page 936 of Chinese, 65001 for UTF-8 ...) as programs
/// there write them.
///
/// Reading: bytes that are whole characters of the machine's alphabet are taken so; all others were
/// written under Windows-1252. Writing: the machine's alphabet, and Windows-1252 for a text that it
/// lacks. Outside Windows the alphabet is Windows-1252.
/// Errors:  none; what has no meaning is replaced as TextLib.h says.
/// Tests:   tests/system/CodePageWin32Test.cpp, run under Wine with several code pages
#pragma once

#include <string>
#include <string_view>

[[nodiscard]] std::string Utf8FromFileBytes(std::string_view sBytes);
[[nodiscard]] std::string FileBytesFromUtf8(std::string_view sText);
