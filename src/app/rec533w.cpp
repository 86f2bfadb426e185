// rec533w.exe: the engine program REC533.
//
//   rec533w.exe ROOT DECK OUTPUT        point to point, files below ROOT/RUN
//   rec533w.exe ROOT AREA CALC DECK     area, files below ROOT/areadata
//
// Exit status: 0 done, 2 a deck, antenna or file that cannot be used (one line on standard error).

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "engine/run533/Run.h"
#include "system/ConsoleLib.h"

namespace {

constexpr int kFailed = 2;

Result<void> ProgramRun(const std::vector<std::string>& asWords)
{
    if (asWords.size() == 3)
        return run533::PointRun(asWords[0], asWords[1], asWords[2]);
    if (asWords.size() == 4 && asWords[1] == "AREA" && asWords[2] == "CALC")
        return run533::AreaRun(asWords[0], asWords[3]);
    return RunError{"usage: ROOT DECK OUTPUT, or ROOT AREA CALC DECK"};
}

}  // namespace

int main(int nCount, char** pArguments)
{
    const ConsoleUtf8 console;
    std::string sError;
    try {
        const Result<void> resRun = ProgramRun(ArgumentsGet(nCount, pArguments));
        if (resRun)
            return 0;
        sError = resRun.TextGet();
    } catch (const std::exception& error) {
        sError = error.what();
    }
    std::fprintf(stderr, "rec533w: %s\n", sError.c_str());
    return kFailed;
}
