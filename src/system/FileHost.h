/// @file FileHost.h
/// What FileLib needs of the platform. Private to the platform services.
///
/// Paths:   host paths, UTF-8.
/// Errors:  errno values.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// An ordinary file for reading; nullptr with nErrno set.
[[nodiscard]] std::FILE* HostFileOpenRead(const std::string& sHostPath, int& nErrno);
/// A file for output, emptied or made; nullptr with nErrno set. No child process inherits it.
[[nodiscard]] std::FILE* HostFileOpenWrite(const std::string& sHostPath, int& nErrno);

/// The same for a name that is Hopcast's own: what stands there is deleted first, and where it
/// cannot be, no link is followed, no named pipe waited for, and only an ordinary file emptied.
[[nodiscard]] std::FILE* HostFileOpenNew(const std::string& sHostPath, int& nErrno);
#ifndef _WIN32
/// As HostFileOpenNew. @return the descriptor, or -1.
[[nodiscard]] int HostDescriptorOpenNew(const std::string& sHostPath, int& nErrno);
#endif

/// As FileReplace. @return 0 or an errno value.
[[nodiscard]] int FileReplaceErrno(std::string_view sPath, std::string_view sBytes);
/// 0 when the file may be replaced by FileReplace or does not exist, else an errno value.
[[nodiscard]] int FileReplaceCheck(std::string_view sPath);

/// Case-blind; '*' stands for any characters, '?' for one.
[[nodiscard]] bool WildcardMatch(std::string_view sPattern, std::string_view sName);
