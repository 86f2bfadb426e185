// Any bytes as the forecast that is kept beside the profile. A fuzzer does not guess a hash, so the
// input is also tried as the lines before it.
#include "fuzz/FuzzForecast.h"

namespace {

void FileCheck(std::string_view sBytes)
{
    const auto res = ForecastFileParse(sBytes);
    if (!res) {
        Check(!res.TextGet().empty());
        return;
    }
    ForecastCheck(res.ValueGet());
    const auto resAgain = ForecastFileParse(ForecastFileText(res.ValueGet()));
    Check(resAgain && resAgain.ValueGet().aMonths.size() == res.ValueGet().aMonths.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    const std::string_view sText = FuzzText(pBytes, nBytes);
    FileCheck(sText);
    FileCheck(ForecastFileEnded(sText));
    return 0;
}
