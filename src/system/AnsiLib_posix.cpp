#include "system/AnsiLib.h"
#include "system/TextLib.h"

std::string Utf8FromFileBytes(std::string_view sBytes) { return Utf8FromWindows1252(sBytes); }

std::string FileBytesFromUtf8(std::string_view sText) { return Windows1252FromUtf8(sText); }
