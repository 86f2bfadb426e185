/// hopcast-predict: predictions on the command line, with the same modules as the windows.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "app/predict/PredictConsole.h"
#include "app/predict/PredictOptions.h"
#include "app/predict/PredictRun.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "system/ConsoleLib.h"
#include "system/FileLib.h"
#include "system/MemoryLib.h"
#include "system/MsgLib.h"
#include "system/PathLib.h"
#include "system/SignalLib.h"

namespace {

int Fail(int nStatus, const std::string& sText)
{
    return PredictFail("hopcast-predict", nStatus, sText);
}

/// Prints a text. A closed standard output or a full disk must not pass for success.
int PrintOut(const std::string& sText)
{
    if (std::fwrite(sText.data(), 1, sText.size(), stdout) != sText.size()
        || std::fflush(stdout) != 0)
        return Fail(kExitFailed, "the output could not be written");
    return kExitPredicted;
}

}  // namespace

int main(int nArguments, char** asArguments)
{
    const ConsoleUtf8 console;
    EndSignalsHandle(EngineRootRelease);
    OutOfMemoryHandle("hopcast-predict", kExitFailed, EngineRootRelease);
    const std::vector<std::string> asWords = ArgumentsGet(nArguments, asArguments);
    const auto resOptions = PredictOptionsGet(asWords);
    if (!resOptions)
        return Fail(kExitUsage, resOptions.TextGet());
    const PredictOptions& options = resOptions.ValueGet();
    if (options.bHelp)
        return PrintOut(PredictHelpGet());
    if (options.bVersion)
        return PrintOut("hopcast-predict " HOPCAST_VERSION "\n");
    if (const std::string sHome = HomeFolderProblemGet(); !sHome.empty())
        return Fail(kExitUsage, sHome);

    MsgSetHandler([](MsgIcon, const std::string& sText) { Fail(kExitFailed, sText); });
    const auto resRoot = EngineRootProvision();
    const bool bColor = options.sOutput.empty() && ConsoleTakesColor();
    const auto output = PredictRunGet(options, bColor);
    if (!output) {
        // Without a root there is no engine; the reason follows the engine's own message.
        return resRoot ? kExitFailed
                       : Fail(kExitFailed, "Hopcast's own engine folder: " + resRoot.TextGet());
    }
    const int nPredicted = output->bWhole ? kExitPredicted : kExitFailed;
    if (options.sOutput.empty())
        return std::max(PrintOut(output->sText), nPredicted);
    if (const auto res = FileReplace(options.sOutput, output->sText); !res)
        return Fail(kExitFailed, "--output: " + options.sOutput + ": " + res.TextGet());
    return nPredicted;
}
