/// @file LockLib.h
/// A lock file that keeps two programs on one engine root from mixing their files.
/// Tests:   tests/system/LockLibTest.cpp
#pragma once

#include <memory>
#include <string>

#include "system/Result.h"

/// Held while it lives; released by its destructor, and by the system when the program dies.
class FileLock {
public:
    /// Waits at most dSeconds for the lock on sPath (made when missing).
    /// @return the lock; "Permission denied" when another holds it to the end of the wait or the
    ///         file cannot be made for want of rights; another description when it cannot be made
    ///         at all.
    static Result<FileLock> Take(const std::string& sPath, double dSeconds);

    FileLock(FileLock&&) noexcept;
    FileLock& operator=(FileLock&&) noexcept;
    ~FileLock();

private:
    struct Handle;
    explicit FileLock(std::unique_ptr<Handle> pHandle);
    std::unique_ptr<Handle> m_pHandle;
};
