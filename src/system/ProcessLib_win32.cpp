#include <windows.h>

#include <cmath>
#include <map>
#include <string>

#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/ProcessHost.h"
#include "system/RunErrorText.h"

namespace {

constexpr DWORD kProcessAllAccess = 0x1F0FFF;

/// The handles of processes not yet waited for: as long as one is open, the process id keeps its
/// meaning and the exit code can be asked for, however short the run was.
std::map<DWORD, HANDLE>& StartedGet()
{
    static std::map<DWORD, HANDLE> mapStarted;
    return mapStarted;
}

/// One word as the C run-time library of the started program will read it back.
std::wstring WordQuote(const std::wstring& sWord)
{
    if (!sWord.empty() && sWord.find_first_of(L" \t\"") == std::wstring::npos)
        return sWord;
    std::wstring sQuoted = L"\"";
    std::size_t nBackslashes = 0;
    for (const wchar_t cLetter : sWord) {
        if (cLetter == L'"')
            sQuoted.append(nBackslashes + 1, L'\\');
        nBackslashes = cLetter == L'\\' ? nBackslashes + 1 : 0;
        sQuoted += cLetter;
    }
    return sQuoted.append(nBackslashes, L'\\') + L'"';
}

std::wstring CommandLineMake(const ProcessCommand& command)
{
    std::wstring sLine;
    for (const std::string& sWord : command.asWords) {
        if (!sLine.empty())
            sLine += L' ';
        // A word that the root's place does not change is handed over as it is spelled.
        sLine += WordQuote(WideFromUtf8(PathIsEngineRoot(sWord) ? PathToHost(sWord) : sWord));
    }
    return sLine;
}

/// A file that the started program inherits.
HANDLE InheritedOpen(const std::wstring& sFile, DWORD nAccess, DWORD nDisposition)
{
    SECURITY_ATTRIBUTES security{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CreateFileW(sFile.c_str(), nAccess,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &security,
                       nDisposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

RunError StartErrorMake(DWORD nCode)
{
    switch (nCode) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return {kFileNotFound};
        case ERROR_DIRECTORY:
            return {kPathNotFound};  // of the working folder
        case ERROR_ACCESS_DENIED:
            return {kPermissionDenied};
        default:
            return {kInvalidCall};
    }
}

}  // namespace

Result<int> HostProcessStart(const ProcessCommand& command)
{
    std::wstring sLine = CommandLineMake(command);
    const std::wstring sFolder = WideFromUtf8(PathToHost(command.sWorkFolder));
    const std::wstring sOutput =
        command.sOutputFile.empty() ? L"NUL" : WideFromUtf8(PathToHost(command.sOutputFile));
    const HANDLE hOutput =
        InheritedOpen(sOutput, FILE_APPEND_DATA | SYNCHRONIZE,
                      command.sOutputFile.empty() ? OPEN_EXISTING : CREATE_ALWAYS);
    if (hOutput == INVALID_HANDLE_VALUE)
        return RunError{GetLastError() == ERROR_ACCESS_DENIED ? kPermissionDenied
                                                              : kPathFileAccessError};
    const HANDLE hInput = InheritedOpen(L"NUL", GENERIC_READ, OPEN_EXISTING);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
    startup.wShowWindow = SW_HIDE;
    startup.hStdInput = hInput;
    startup.hStdOutput = hOutput;
    startup.hStdError = hOutput;
    PROCESS_INFORMATION process{};
    const BOOL bStarted = CreateProcessW(
        nullptr, sLine.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW | CREATE_NEW_PROCESS_GROUP,
        nullptr, sFolder.empty() ? nullptr : sFolder.c_str(), &startup, &process);
    const DWORD nCode = GetLastError();
    CloseHandle(hInput);
    CloseHandle(hOutput);
    if (!bStarted)
        return StartErrorMake(nCode);
    CloseHandle(process.hThread);
    if (const auto itOld = StartedGet().find(process.dwProcessId); itOld != StartedGet().end())
        CloseHandle(itOld->second);
    StartedGet()[process.dwProcessId] = process.hProcess;
    return static_cast<int>(process.dwProcessId);
}

std::string ProgramLackGet(const std::string&) { return {}; }

bool ProcessWait(int nProcessId, double dSeconds)
{
    constexpr double kMillisecondsMax = 4e9;  // below INFINITE
    const auto nId = static_cast<DWORD>(nProcessId);
    const HANDLE hProcess = OpenProcess(kProcessAllAccess, FALSE, nId);
    if (const auto itStarted = StartedGet().find(nId); itStarted != StartedGet().end()) {
        CloseHandle(itStarted->second);
        StartedGet().erase(itStarted);
    }
    if (hProcess == nullptr)
        return true;  // taken to have finished
    const double dMilliseconds =
        dSeconds > 0.0 ? std::fmin(dSeconds * 1000.0, kMillisecondsMax) : 0.0;
    bool bOk = false;
    if (WaitForSingleObject(hProcess, static_cast<DWORD>(dMilliseconds)) == WAIT_TIMEOUT) {
        TerminateProcess(hProcess, 0);
        // It ends a moment later, and holds its files open until then.
        constexpr DWORD kEndMax = 2000;  // ms
        WaitForSingleObject(hProcess, kEndMax);
    } else {
        DWORD nExitCode = 1;
        bOk = GetExitCodeProcess(hProcess, &nExitCode) && nExitCode == 0;
    }
    CloseHandle(hProcess);
    return bOk;
}
