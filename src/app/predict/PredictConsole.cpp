#include "app/predict/PredictConsole.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "system/TextLib.h"

namespace {

std::string LinesGet(const std::string& sText)
{
    std::string sLines;
    for (std::size_t nFrom = 0;;) {
        const std::size_t nEnd = std::min(sText.find_first_of("\r\n", nFrom), sText.size());
        sLines += TextPrintable(std::string_view(sText).substr(nFrom, nEnd - nFrom));
        if (nEnd == sText.size())
            return sLines;
        sLines += '\n';
        nFrom = nEnd + (sText.compare(nEnd, 2, "\r\n") == 0 ? 2 : 1);
    }
}

}  // namespace

int PredictFail(const char* sProgram, int nStatus, const std::string& sText)
{
    std::fprintf(stderr, "%s: %s\n", sProgram, LinesGet(sText).c_str());
    return nStatus;
}
