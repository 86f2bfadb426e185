#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>

#include "system/FileHost.h"
#include "system/FileLib.h"
#include "system/HostPath.h"
#include "system/PathLib.h"

namespace fs = std::filesystem;

namespace {

int ErrnoFromLastError()
{
    return std::error_code(static_cast<int>(GetLastError()), std::system_category())
        .default_error_condition()
        .value();
}

std::FILE* FileOpen(const std::string& sHostPath, const wchar_t* sMode, int& nErrno)
{
    std::FILE* pFile = _wfopen(WideFromUtf8(sHostPath).c_str(), sMode);
    if (!pFile)
        nErrno = errno;
    return pFile;
}

/// Makes a new file with an unused name beside sFile.
HANDLE TemporaryOpen(const std::wstring& sFile, std::wstring& sTemporary)
{
    constexpr int kTriesMax = 100;
    const std::wstring sFolder = sFile.substr(0, sFile.find_last_of(L"\\/:") + 1);
    HANDLE hFile = INVALID_HANDLE_VALUE;
    for (int i = 0; i < kTriesMax && hFile == INVALID_HANDLE_VALUE; ++i) {
        sTemporary = sFolder + L".hopcast-" + std::to_wstring(GetCurrentProcessId()) + L'-'
                     + std::to_wstring(i);
        hFile = CreateFileW(sTemporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
        if (hFile == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    return hFile;
}

/// Writes all bytes through to the disk, as a power cut could otherwise leave the new name without
/// them, and closes the file.
int TemporaryFill(HANDLE hFile, std::string_view sBytes)
{
    constexpr std::size_t kBlockMax = std::size_t{1} << 20;
    int nErrno = 0;
    while (nErrno == 0 && !sBytes.empty()) {
        DWORD nWritten = 0;
        if (WriteFile(hFile, sBytes.data(), static_cast<DWORD>(std::min(sBytes.size(), kBlockMax)),
                      &nWritten, nullptr))
            sBytes.remove_prefix(nWritten);
        else
            nErrno = ErrnoFromLastError();
    }
    if (nErrno == 0 && !FlushFileBuffers(hFile))
        nErrno = ErrnoFromLastError();
    if (!CloseHandle(hFile) && nErrno == 0)
        nErrno = ErrnoFromLastError();
    return nErrno;
}

}  // namespace

std::FILE* HostFileOpenRead(const std::string& sHostPath, int& nErrno)
{
    return FileOpen(sHostPath, L"rbN", nErrno);
}

std::FILE* HostFileOpenWrite(const std::string& sHostPath, int& nErrno)
{
    return FileOpen(sHostPath, L"wbN", nErrno);
}

std::FILE* HostFileOpenNew(const std::string& sHostPath, int& nErrno)
{
    DeleteFileW(WideFromUtf8(sHostPath).c_str());
    return HostFileOpenWrite(sHostPath, nErrno);
}

int FileReplaceCheck(std::string_view sPath)
{
    const DWORD nAttributes = GetFileAttributesW(WideFromUtf8(sPath).c_str());
    if (nAttributes == INVALID_FILE_ATTRIBUTES)
        return 0;
    if (nAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return EISDIR;
    return nAttributes & FILE_ATTRIBUTE_READONLY ? EACCES : 0;
}

int FileReplaceErrno(std::string_view sPath, std::string_view sBytes)
{
    if (const int nErrno = FileReplaceCheck(sPath))
        return nErrno;
    const std::wstring sFile = WideFromUtf8(sPath);
    std::wstring sTemporary;
    const HANDLE hFile = TemporaryOpen(sFile, sTemporary);
    if (hFile == INVALID_HANDLE_VALUE)
        return ErrnoFromLastError();
    int nErrno = TemporaryFill(hFile, sBytes);
    // ReplaceFile keeps the old file's access list; it needs an old file.
    if (nErrno == 0
        && !ReplaceFileW(sFile.c_str(), sTemporary.c_str(), nullptr,
                         REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)
        && !MoveFileExW(sTemporary.c_str(), sFile.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        nErrno = ErrnoFromLastError();
    if (nErrno != 0)
        DeleteFileW(sTemporary.c_str());
    return nErrno;
}
