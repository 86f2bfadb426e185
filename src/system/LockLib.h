/// @file LockLib.h
/// A lock file that keeps two programs on one engine root from mixing their files.
/// Tests:   tests/system/LockLibTest.cpp
#pragma once

#include <memory>
#include <stop_token>
#include <string>

#include "system/Result.h"

/// Held while it lives. Released by its destructor, or by the system once both the program and the
/// engine that inherited it have died. The engine is noted in the file: if it outlives its Hopcast,
/// a waiting program ends the engine's process group once the note is 10 s old.
class FileLock {
public:
    /// Waits at most dSeconds for the lock on sPath (made when missing). Programs that wait are
    /// served before new arrivals: the next in line holds sPath.next, so that a program that takes
    /// the lock again and again cannot starve another.
    /// @param stop  ends the wait like the limit, within some milliseconds
    /// @return the lock; "Permission denied" when another program holds it to the end of the wait
    ///         or the user may not make the file; another description when it cannot be made for
    ///         another reason.
    static Result<FileLock> Take(const std::string& sPath, double dSeconds,
                                 const std::stop_token& stop = {});

    FileLock(FileLock&&) noexcept;
    FileLock& operator=(FileLock&&) noexcept;
    ~FileLock();

    /// The open file that an engine inherits; -1 on Windows, where the engine ends with Hopcast in
    /// any case.
    [[nodiscard]] int DescriptorGet() const;

private:
    struct Handle;
    /// The lock of one file, in no particular order; otherwise as Take.
    static Result<FileLock> FileTake(const std::string& sPath, double dSeconds,
                                     const std::stop_token& stop);
    explicit FileLock(std::unique_ptr<Handle> pHandle);
    std::unique_ptr<Handle> m_pHandle;
};
