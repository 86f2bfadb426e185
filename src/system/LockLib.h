/// @file LockLib.h
/// A lock file that keeps two programs on one engine root from mixing their files.
/// Tests:   tests/system/LockLibTest.cpp
#pragma once

#include <memory>
#include <stop_token>
#include <string>

#include "system/Result.h"

/// Held while it lives; released by its destructor, and by the system when the program dies and
/// the engine that inherited it. An engine that outlives its Hopcast is noted in the file: who
/// waits ends its process group once the note is 10 s old.
class FileLock {
public:
    /// Waits at most dSeconds for the lock on sPath (made when missing). Waiters come before new
    /// arrivals: the next one holds sPath.next meanwhile, so that a program that takes the lock
    /// again and again cannot starve another.
    /// @param stop  ends the wait like the limit, within some milliseconds
    /// @return the lock; "Permission denied" when another holds it to the end of the wait or the
    ///         file cannot be made for want of rights; another description when it cannot be made
    ///         at all.
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
    /// The lock of one file, whoever gets it first; otherwise as Take.
    static Result<FileLock> FileTake(const std::string& sPath, double dSeconds,
                                     const std::stop_token& stop);
    explicit FileLock(std::unique_ptr<Handle> pHandle);
    std::unique_ptr<Handle> m_pHandle;
};
