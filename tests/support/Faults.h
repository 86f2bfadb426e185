/// @file Faults.h
/// Trouble made on purpose: a user without rights and a disk without room. The superuser, as whom
/// tests may run, ignores permissions.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <functional>

/// Runs fnTest in a child process as an unprivileged user (nobody, when started by the superuser).
/// An expectation that fails there fails the running test, and so does a crash. What fnTest changes
/// in memory is gone with the child. Folders that it is to write to must be open to that user.
void AsUnprivileged(const std::function<void()>& fnTest);

/// While it lives no file grows beyond nBytes: a full disk (errno EFBIG).
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t nBytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before{};
    void (*m_fnBefore)(int) = SIG_DFL;
};
