// The program of the REC533 slot.
//
//   rec533w.exe ROOT DECK OUTPUT        point to point, files below ROOT/RUN
//   rec533w.exe ROOT AREA CALC DECK     area, files below ROOT/areadata
//
// Exit status: 0 done, 2 a deck, antenna or file that cannot be used (one line on standard error).

#include <cstdio>
#include <exception>
#include <string>

#include "engine/run533/Run.h"

namespace {

constexpr int kFailed = 2;

Result<void> ProgramRun(int nCount, char** pArguments)
{
    if (nCount == 4)
        return run533::PointRun(pArguments[1], pArguments[2], pArguments[3]);
    if (nCount == 5 && std::string(pArguments[2]) == "AREA" && std::string(pArguments[3]) == "CALC")
        return run533::AreaRun(pArguments[1], pArguments[4]);
    return RunError{"usage: ROOT DECK OUTPUT, or ROOT AREA CALC DECK"};
}

}  // namespace

int main(int nCount, char** pArguments)
{
    std::string sError;
    try {
        const Result<void> resRun = ProgramRun(nCount, pArguments);
        if (resRun)
            return 0;
        sError = resRun.TextGet();
    } catch (const std::exception& error) {
        sError = error.what();
    }
    std::fprintf(stderr, "rec533w: %s\n", sError.c_str());
    return kFailed;
}
