// voacapw.exe outside Windows: the engine program VOACAP, run by the Linux port voacapl.

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "engine/voacap/VoacapLauncher.h"
#include "system/SignalLib.h"

int main(int nArguments, char** apszArguments)
{
    try {
        VoacapPlaces places;
        places.stop = EndSignalsStop();
        const std::vector<std::string> asArguments(apszArguments + (nArguments > 0 ? 1 : 0),
                                                   apszArguments + nArguments);
        const VoacapOutcome outcome = VoacapLaunch(asArguments, places);
        if (outcome.nStatus != 0)
            std::fprintf(stderr, "voacapw: %s\n", outcome.sText.c_str());
        return outcome.nStatus;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "voacapw: %s\n", error.what());
        return 1;
    }
}
