/// @file RunErrorText.h
/// The classic descriptions of run-time errors that users of this family of programs know.
#pragma once

#include "system/Result.h"

inline constexpr const char* kTypeMismatch = "Type mismatch";
inline constexpr const char* kInvalidCall = "Invalid procedure call or argument";
inline constexpr const char* kOverflow = "Overflow";
inline constexpr const char* kOutOfMemory = "Out of memory";
inline constexpr const char* kDivisionByZero = "Division by zero";
inline constexpr const char* kSubscriptOutOfRange = "Subscript out of range";
inline constexpr const char* kFileNotFound = "File not found";
inline constexpr const char* kPathNotFound = "Path not found";
inline constexpr const char* kPermissionDenied = "Permission denied";
inline constexpr const char* kPathFileAccessError = "Path/File access error";
inline constexpr const char* kDiskFull = "Disk full";
inline constexpr const char* kInputPastEnd = "Input past end of file";

/// The description that fits an errno value of a file operation (no such file: "File not found",
/// not permitted or busy: "Permission denied", no space or a size limit: "Disk full", anything
/// else: "Path/File access error").
[[nodiscard]] RunError RunErrorFromErrno(int nErrno);
