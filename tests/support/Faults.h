/// @file Faults.h
/// Provokes faults: a user without permissions and a disk without space. The tests may run as the
/// superuser, who ignores permissions.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <functional>

/// Runs fnTest in a child process as an unprivileged user (nobody, if started by the superuser). An
/// expectation that fails there, or a crash, fails the running test. Changes that fnTest makes in
/// memory are lost with the child. Folders that it writes to must be open to that user.
void AsUnprivileged(const std::function<void()>& fnTest);

/// While it exists no file grows beyond nBytes, as on a full disk (errno EFBIG).
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
