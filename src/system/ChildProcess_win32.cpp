#include <windows.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <stop_token>
#include <string>
#include <vector>

#include "system/ChildProcess.h"
#include "system/Deadline.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"

/// A process with all that it starts itself.
struct ChildProcess::Host {
    HANDLE hProcess = nullptr;  // while it is open, the process id stays valid and the exit code
                                // can be read, however short the run was
    HANDLE hJob = nullptr;      // closing its last handle ends the family, also when Hopcast dies
    DWORD nId = 0;
    bool bWaited = false;
};

namespace {

constexpr DWORD kProcessAllAccess = 0x1F0FFF;

HANDLE JobMake()
{
    const HANDLE hJob = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (hJob != nullptr)
        SetInformationJobObject(hJob, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return hJob;
}

bool JobIsEmpty(HANDLE hJob)
{
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION info{};
    return !QueryInformationJobObject(hJob, JobObjectBasicAccountingInformation, &info, sizeof info,
                                      nullptr)
           || info.ActiveProcesses == 0;
}

/// The time left as the system's waits take it: whole milliseconds, rounded up. Rounded down, the
/// wait would be repeated over and over in the last millisecond.
DWORD MillisecondsLeft(const Deadline& deadline)
{
    return static_cast<DWORD>(std::ceil(deadline.LeftGet() * 1000.0));
}

/// Kills what is left of a family and waits until it is gone: it ends a moment after the call and
/// keeps its files open until then.
void FamilyEnd(HANDLE hJob, HANDLE hProcess)
{
    constexpr double kEndMax = 2.0;  // s
    const Deadline deadline(kEndMax);
    if (hJob != nullptr)
        TerminateJobObject(hJob, 0);
    WaitForSingleObject(hProcess, MillisecondsLeft(deadline));
    while (hJob != nullptr && !JobIsEmpty(hJob) && !deadline.IsOver()) Sleep(1);
}

/// Quotes one word so that the C run-time library of the started program reads it back unchanged.
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
        sLine += WordQuote(WideFromUtf8(sWord));
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

/// Start-up data for a hidden program that inherits only its input and output.
class Startup {
public:
    Startup(HANDLE hInput, HANDLE hOutput) : m_ahInherited{hInput, hOutput}
    {
        SIZE_T nSize = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &nSize);
        m_aBytes.resize(nSize);
        const auto pList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(m_aBytes.data());
        if (InitializeProcThreadAttributeList(pList, 1, 0, &nSize)) {
            m_startup.lpAttributeList = pList;
            UpdateProcThreadAttribute(pList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST,
                                      m_ahInherited.data(), sizeof m_ahInherited, nullptr, nullptr);
        }
        m_startup.StartupInfo.cb = sizeof m_startup;
        m_startup.StartupInfo.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
        m_startup.StartupInfo.wShowWindow = SW_HIDE;
        m_startup.StartupInfo.hStdInput = hInput;
        m_startup.StartupInfo.hStdOutput = hOutput;
        m_startup.StartupInfo.hStdError = hOutput;
    }
    ~Startup()
    {
        if (m_startup.lpAttributeList != nullptr)
            DeleteProcThreadAttributeList(m_startup.lpAttributeList);
    }
    Startup(const Startup&) = delete;
    Startup& operator=(const Startup&) = delete;
    [[nodiscard]] STARTUPINFOW* Get() { return &m_startup.StartupInfo; }

private:
    std::array<HANDLE, 2> m_ahInherited;
    std::vector<char> m_aBytes;
    STARTUPINFOEXW m_startup{};
};

RunError StartErrorMake(DWORD nCode)
{
    switch (nCode) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return {kFileNotFound};
        case ERROR_DIRECTORY:
            return {kPathNotFound};  // the working folder
        case ERROR_ACCESS_DENIED:
            return {kPermissionDenied};
        default:
            return {kInvalidCall};
    }
}

/// Puts a suspended process into its own job before it can start others, and lets it run.
HANDLE FamilyMake(const PROCESS_INFORMATION& process)
{
    const HANDLE hJob = JobMake();
    if (hJob != nullptr)
        AssignProcessToJobObject(hJob, process.hProcess);
    if (ResumeThread(process.hThread) == static_cast<DWORD>(-1))
        TerminateProcess(process.hProcess, 1);  // reported as a failed engine, without the wait
    CloseHandle(process.hThread);
    return hJob;
}

/// Waits in short steps, so that a stop is seen. @return false at the limit or the stop.
bool HandleAwait(HANDLE hProcess, const Deadline& deadline, const std::stop_token& stop)
{
    constexpr DWORD kStep = 10;  // ms
    while (!stop.stop_requested()) {
        const DWORD nLeft = MillisecondsLeft(deadline);
        if (WaitForSingleObject(hProcess, stop.stop_possible() ? std::min(nLeft, kStep) : nLeft)
            != WAIT_TIMEOUT)
            return true;
        if (deadline.IsOver())
            return false;
    }
    return false;
}

}  // namespace

ChildProcess::ChildProcess(std::unique_ptr<Host> pHost) : m_pHost(std::move(pHost)) {}
ChildProcess::ChildProcess(ChildProcess&&) noexcept = default;

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept
{
    std::swap(m_pHost, other.m_pHost);
    return *this;
}

ChildProcess::~ChildProcess()
{
    if (!m_pHost)
        return;
    if (!m_pHost->bWaited)
        (void)Wait(0.0);
    CloseHandle(m_pHost->hProcess);
    if (m_pHost->hJob != nullptr)
        CloseHandle(m_pHost->hJob);
}

int ChildProcess::IdGet() const { return static_cast<int>(m_pHost->nId); }

Result<ChildProcess> ChildProcess::Start(const ProcessCommand& command)
{
    if (command.asWords.empty() || command.asWords.front().empty())
        return RunError{kFileNotFound};
    std::wstring sLine = CommandLineMake(command);
    const std::wstring sFolder = WideFromUtf8(command.sWorkFolder);
    const std::wstring sOutput =
        command.sOutputFile.empty() ? L"NUL" : WideFromUtf8(command.sOutputFile);
    const HANDLE hOutput =
        InheritedOpen(sOutput, FILE_APPEND_DATA | SYNCHRONIZE,
                      command.sOutputFile.empty() ? OPEN_EXISTING : CREATE_ALWAYS);
    if (hOutput == INVALID_HANDLE_VALUE)
        return RunError{GetLastError() == ERROR_ACCESS_DENIED ? kPermissionDenied
                                                              : kPathFileAccessError};
    const HANDLE hInput = InheritedOpen(L"NUL", GENERIC_READ, OPEN_EXISTING);
    if (hInput == INVALID_HANDLE_VALUE) {
        CloseHandle(hOutput);
        return RunError{kPathFileAccessError};
    }
    Startup startup(hInput, hOutput);
    PROCESS_INFORMATION process{};
    const std::wstring sProgram = WideFromUtf8(command.sProgram);
    const BOOL bStarted = CreateProcessW(
        sProgram.empty() ? nullptr : sProgram.c_str(), sLine.data(), nullptr, nullptr, TRUE,
        CREATE_NO_WINDOW | CREATE_NEW_PROCESS_GROUP | CREATE_SUSPENDED
            | EXTENDED_STARTUPINFO_PRESENT,
        nullptr, sFolder.empty() ? nullptr : sFolder.c_str(), startup.Get(), &process);
    const DWORD nCode = GetLastError();
    CloseHandle(hInput);
    CloseHandle(hOutput);
    if (!bStarted)
        return StartErrorMake(nCode);
    auto pHost = std::make_unique<Host>();
    pHost->hProcess = process.hProcess;
    pHost->nId = process.dwProcessId;
    pHost->hJob = FamilyMake(process);
    return ChildProcess(std::move(pHost));
}

std::optional<ChildProcess> ChildProcess::Open(int nProcessId)
{
    auto pHost = std::make_unique<Host>();
    pHost->nId = static_cast<DWORD>(nProcessId);
    pHost->hProcess = OpenProcess(kProcessAllAccess, FALSE, pHost->nId);
    if (pHost->hProcess == nullptr)
        return {};
    return ChildProcess(std::move(pHost));
}

ChildResult ChildProcess::Wait(double dSeconds, const std::stop_token& stop)
{
    const HANDLE hProcess = m_pHost->hProcess;
    m_pHost->bWaited = true;
    ChildResult result;
    if (HandleAwait(hProcess, Deadline(dSeconds), stop)) {
        DWORD nExitCode = 1;
        if (!GetExitCodeProcess(hProcess, &nExitCode))
            nExitCode = 1;
        result.nCode = static_cast<int>(nExitCode);
    } else {
        result.eEnd = stop.stop_requested() ? ChildEnd::Stopped : ChildEnd::TimeLimit;
        TerminateProcess(hProcess, 0);
    }
    FamilyEnd(m_pHost->hJob, hProcess);
    return result;
}
