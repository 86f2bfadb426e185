// The fake engine on Windows. It runs the shell script beside it, as far as the tests use the
// shell's language, so that both systems run the same tests. Anything else makes it end with status
// 127.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <utility>

namespace fs = std::filesystem;

namespace {

constexpr int kUnknown = 127;

std::string Text(const fs::path& pthFile)
{
    std::ifstream stm(pthFile, std::ios::binary);
    return {std::istreambuf_iterator<char>(stm), {}};
}

void LineAppend(const char* sFile, const std::string& sLine)
{
    std::ofstream(sFile, std::ios::binary | std::ios::app) << sLine << '\n';
}

class Script {
public:
    Script(fs::path pthDeck, fs::path pthOut, int nCall)
        : m_pthDeck(std::move(pthDeck)), m_pthOut(std::move(pthOut)), m_nCall(nCall)
    {
    }

    /// Runs all statements and returns the status of the last.
    int Run(const std::string& sScript)
    {
        static const std::regex regEnds("\n|; ");
        int nStatus = 0;
        for (std::sregex_token_iterator it(sScript.begin(), sScript.end(), regEnds, -1), itEnd;
             it != itEnd; ++it)
            if (const std::string sStatement = *it; !sStatement.empty())
                nStatus = StatementRun(sStatement);
        return nStatus;
    }

private:
    int StatementRun(const std::string& sStatement)
    {
        std::smatch match;
        if (std::regex_match(sStatement, match, std::regex("(.*) (&&|\\|\\|) (.*)"))) {
            const int nStatus = StatementRun(match[1]);
            return (nStatus == 0) == (match[2] == "&&") ? StatementRun(match[3]) : nStatus;
        }
        if (std::regex_match(sStatement, match, std::regex("exit ([0-9]+)")))
            std::exit(std::stoi(match[1]));
        if (std::regex_match(sStatement, match, std::regex("(?:exec )?sleep ([0-9.]+)"))) {
            Sleep(static_cast<DWORD>(std::stod(match[1]) * 1000.0));
            return 0;
        }
        if (std::regex_match(sStatement, match, std::regex("\\[ \\$n -eq ([0-9]+) \\]")))
            return std::stoi(match[1]) == m_nCall ? 0 : 1;
        if (std::regex_match(sStatement, match, std::regex("grep -q '(.*)' \\$deck")))
            return std::regex_search(Text(m_pthDeck), std::regex(match[1].str())) ? 0 : 1;
        if (std::regex_match(sStatement, match, std::regex("cp '(.*)' \\$out")))
            return Copy(match[1].str());
        return FixedRun(sStatement);
    }

    int Copy(const std::string& sFrom) const
    {
        const std::string sBytes = Text(sFrom);
        std::ofstream stm(m_pthOut, std::ios::binary);
        stm << sBytes;
        return fs::exists(sFrom) && stm.good() ? 0 : 1;
    }

    int FixedRun(const std::string& sStatement) const
    {
        if (sStatement == "test ! -e $out")
            return fs::exists(m_pthOut) ? 1 : 0;
        if (sStatement == "mkdir -p $out")
            return fs::create_directories(m_pthOut) || fs::is_directory(m_pthOut) ? 0 : 1;
        if (sStatement == "kill -9 $$")
            TerminateProcess(GetCurrentProcess(), 9);
        if (sStatement == "cat > /dev/null") {
            while (std::getchar() != EOF) {
            }
            return 0;
        }
        if (sStatement.starts_with("echo")) {
            std::puts(sStatement.size() > 5 ? sStatement.c_str() + 5 : "");
            std::fflush(stdout);
            return 0;
        }
        if (sStatement == "printf 'STOP \\001\\377no  map \\033[1m\\n' >&2") {
            std::fputs("STOP \001\377no  map \033[1m\n", stderr);
            std::fflush(stderr);  // keeps the output in the order of the script
            return 0;
        }
        std::fprintf(stderr, "not known to the fake engine: %s\n", sStatement.c_str());
        std::exit(kUnknown);
    }

    fs::path m_pthDeck;
    fs::path m_pthOut;
    int m_nCall;
};

fs::path GridOf(const fs::path& pthDeck)
{
    const std::string sExtension = pthDeck.extension().string();
    fs::path pthGrid = pthDeck;
    return pthGrid.replace_extension(sExtension == ".ice"   ? ".ig1"
                                     : sExtension == ".voa" ? ".vg1"
                                                            : ".rg1");
}

}  // namespace

int main(int nArguments, char** asArguments)
{
    if (nArguments < 4)
        return kUnknown;
    wchar_t acProgram[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, acProgram, MAX_PATH);
    const fs::path pthProgram(acProgram);
    std::string sArguments;
    for (int i = 1; i < nArguments; ++i)
        sArguments += (i > 1 ? " " : "") + std::string(asArguments[i]);
    LineAppend("pids", std::to_string(GetCurrentProcessId()));
    LineAppend("calls", pthProgram.filename().string() + "|" + fs::current_path().string() + "|"
                            + sArguments);
    const std::string sCalls = Text("calls");
    const auto nCall = static_cast<int>(std::count(sCalls.begin(), sCalls.end(), '\n'));
    const bool bArea = std::string(asArguments[2]) == "AREA";
    const fs::path pthDeck =
        bArea ? fs::path("areadata") / asArguments[4] : fs::path("RUN") / asArguments[2];
    const fs::path pthOut = bArea ? GridOf(pthDeck) : fs::path("RUN") / asArguments[3];
    std::ofstream("deck." + std::to_string(nCall), std::ios::binary) << Text(pthDeck);
    return Script(pthDeck, pthOut, nCall).Run(Text(pthProgram.string() + ".script"));
}
