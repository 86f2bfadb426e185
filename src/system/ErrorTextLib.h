/// @file ErrorTextLib.h
/// The system's texts for its error codes.
#pragma once

#include <string>

/// @param nCode  GetLastError code on Windows, errno elsewhere.
/// @return the system's text; "Error Code " and the code in decimal when the system has none.
[[nodiscard]] std::string SystemErrorText(int nCode);
