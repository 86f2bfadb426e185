/// @file FileHost.h
/// What FileLib needs of the platform. Private to the platform services.
///
/// Paths:   host paths, UTF-8.
/// Errors:  errno values.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Opens an ordinary file for reading; nullptr with nErrno set if that fails.
[[nodiscard]] std::FILE* HostFileOpenRead(const std::string& sHostPath, int& nErrno);
/// Opens a file for output, emptied or created; nullptr with nErrno set if that fails. No child
/// process inherits it.
[[nodiscard]] std::FILE* HostFileOpenWrite(const std::string& sHostPath, int& nErrno);

/// The same for one of Hopcast's own names: whatever has that name is deleted first. If it cannot
/// be deleted, no link is followed, no named pipe waited for, and only an ordinary file emptied.
[[nodiscard]] std::FILE* HostFileOpenNew(const std::string& sHostPath, int& nErrno);
#ifndef _WIN32
/// As HostFileOpenNew. @return the descriptor, or -1.
[[nodiscard]] int HostDescriptorOpenNew(const std::string& sHostPath, int& nErrno);
#endif

/// As FileReplace. @return 0 or an errno value.
[[nodiscard]] int FileReplaceErrno(std::string_view sPath, std::string_view sBytes);
/// 0 when the file may be replaced by FileReplace or does not exist, else an errno value.
[[nodiscard]] int FileReplaceCheck(std::string_view sPath);

/// Ignores case; '*' matches any characters, '?' matches one.
[[nodiscard]] bool WildcardMatch(std::string_view sPattern, std::string_view sName);
