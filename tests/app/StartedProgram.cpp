#include "app/StartedProgram.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "system/FileLib.h"

namespace fs = std::filesystem;

namespace {

std::string FileText(const fs::path& pthFile)
{
    constexpr std::size_t kMax = std::size_t{64} << 10;
    const auto resText = FileReadHead(pthFile.native(), kMax);  // the process may be gone
    return resText ? resText.ValueGet() : std::string();
}

bool IsBelow(const fs::path& pthProcess, const std::string& sFolder)
{
    std::error_code ec;
    const std::string sState = FileText(pthProcess / "stat");
    const std::size_t nName = sState.rfind(") ");
    if (nName == std::string::npos || sState[nName + 2] == 'Z' || sState[nName + 2] == 'X')
        return false;
    // Hopcast's own command line does not contain the folder.
    return FileText(pthProcess / "cmdline").find(sFolder) != std::string::npos
           || fs::read_symlink(pthProcess / "cwd", ec).native().starts_with(sFolder);
}

}  // namespace

StartedProgram::StartedProgram(const std::vector<std::string>& asWords, const std::string& sOutput)
{
    std::vector<char*> apWords;
    for (const std::string& sWord : asWords) apWords.push_back(const_cast<char*>(sWord.c_str()));
    apWords.push_back(nullptr);
    m_nId = fork();
    if (m_nId == 0) {
        // A script starts its background jobs with some of these signals ignored.
        for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) signal(nSignal, SIG_DFL);
        const int nFile = open(sOutput.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        dup2(nFile, STDOUT_FILENO);
        dup2(nFile, STDERR_FILENO);
        execv(apWords[0], apWords.data());
        _exit(127);
    }
}

StartedProgram::~StartedProgram()
{
    if (m_nId <= 0)
        return;
    kill(m_nId, SIGKILL);
    waitpid(m_nId, nullptr, 0);
}

void StartedProgram::Signal(int nSignal) const
{
    if (m_nId > 0)
        kill(m_nId, nSignal);
}

std::optional<ProgramEnd> StartedProgram::EndAwait(std::chrono::milliseconds tMax)
{
    int nStatus = 0;
    if (m_nId <= 0 || !Await([&] { return waitpid(m_nId, &nStatus, WNOHANG) == m_nId; }, tMax))
        return std::nullopt;
    m_nId = -1;
    if (WIFSIGNALED(nStatus))
        return ProgramEnd{-1, WTERMSIG(nStatus)};
    return ProgramEnd{WEXITSTATUS(nStatus), 0};
}

std::vector<pid_t> ProcessesBelow(const std::string& sFolder)
{
    std::vector<pid_t> anId;
    std::error_code ec;
    for (fs::directory_iterator itr("/proc", ec), itrEnd; !ec && itr != itrEnd; itr.increment(ec)) {
        const std::string sName = itr->path().filename().native();
        if (std::all_of(sName.begin(), sName.end(), [](char c) { return c >= '0' && c <= '9'; })
            && IsBelow(itr->path(), sFolder))
            anId.push_back(std::stoi(sName));
    }
    return anId;
}
