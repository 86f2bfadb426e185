/// @file AnsiLib.h
/// Names of this machine's folders in files of the Windows world: Windows-1252, or, on a machine
/// with another system code page (936 for Chinese, 65001 for UTF-8 ...), as programs there write
/// them.
///
/// Reading: bytes that form whole characters of the machine's code page are read as those; all
/// others were written under Windows-1252. Writing: the machine's code page, or Windows-1252 for a
/// text that it cannot express. Outside Windows the code page is Windows-1252.
/// Errors:  none; what has no meaning is replaced as TextLib.h says.
/// Tests:   tests/system/CodePageWin32Test.cpp, run under Wine with several code pages
#pragma once

#include <string>
#include <string_view>

[[nodiscard]] std::string Utf8FromFileBytes(std::string_view sBytes);
[[nodiscard]] std::string FileBytesFromUtf8(std::string_view sText);
