#include <fcntl.h>
#include <io.h>
#include <windows.h>

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

}  // namespace

std::FILE* HostFileOpenRead(const std::string& sHostPath, int& nErrno)
{
    return FileOpen(sHostPath, L"rbN", nErrno);
}

std::FILE* HostFileOpenWrite(const std::string& sHostPath, int& nErrno)
{
    return FileOpen(sHostPath, L"wbN", nErrno);
}

int FileReplaceCheck(std::string_view sPath)
{
    const DWORD nAttributes = GetFileAttributesW(WideFromUtf8(PathToHost(sPath)).c_str());
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
    const std::wstring sFile = WideFromUtf8(PathToHost(sPath));
    const std::wstring sTemporary = sFile + L".hopcast-" + std::to_wstring(GetCurrentProcessId());
    std::FILE* pFile = _wfopen(sTemporary.c_str(), L"wbN");
    if (!pFile)
        return errno;
    int nErrno = 0;
    if (std::fwrite(sBytes.data(), 1, sBytes.size(), pFile) != sBytes.size())
        nErrno = errno;
    if (std::fclose(pFile) != 0 && nErrno == 0)
        nErrno = errno;
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
