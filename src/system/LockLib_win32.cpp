#include <windows.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

#include "system/Deadline.h"
#include "system/HostPath.h"
#include "system/LockLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"

struct FileLock::Handle {
    HANDLE hFile;

    explicit Handle(HANDLE hOpen) : hFile(hOpen) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { CloseHandle(hFile); }  // the file is deleted with its last handle
};

Result<FileLock> FileLock::FileTake(const std::string& sPath, double dSeconds,
                                    const std::stop_token& stop)
{
    constexpr DWORD kStep = 2;          // ms
    constexpr double kDyingMax = 0.25;  // seconds
    const std::wstring sFile = WideFromUtf8(sPath);
    using Seconds = std::chrono::duration<double>;
    const auto tmStart = std::chrono::steady_clock::now();  // the tick count is too coarse
    auto tmHeld = tmStart;                                  // when another was last seen to hold it
    const Deadline deadline(dSeconds);
    for (;;) {
        // Opened without sharing: the open file itself is the lock, and the system releases it when
        // the program dies.
        const HANDLE hFile =
            CreateFileW(sFile.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr,
                        OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (hFile != INVALID_HANDLE_VALUE)
            return FileLock(std::make_unique<Handle>(hFile));
        const DWORD nCode = GetLastError();
        const auto tmNow = std::chrono::steady_clock::now();
        if (nCode == ERROR_SHARING_VIOLATION)
            tmHeld = tmNow;
        // A file that is being deleted denies access for a moment; one that the user may not open
        // denies it for good.
        const bool bDenied = Seconds(tmNow - tmHeld).count() >= kDyingMax;
        if (nCode == ERROR_PATH_NOT_FOUND)
            return RunError{kPathNotFound};
        if (nCode != ERROR_SHARING_VIOLATION && nCode != ERROR_ACCESS_DENIED)
            return RunError{nCode == ERROR_DISK_FULL ? kDiskFull : kPathFileAccessError};
        if (bDenied || deadline.IsOver() || stop.stop_requested())
            return RunError{kPermissionDenied};
        Sleep(kStep);
    }
}

int FileLock::DescriptorGet() const { return -1; }

FileLock::FileLock(std::unique_ptr<Handle> pHandle) : m_pHandle(std::move(pHandle)) {}
FileLock::FileLock(FileLock&&) noexcept = default;
FileLock& FileLock::operator=(FileLock&&) noexcept = default;
FileLock::~FileLock() = default;
