// Any text as a forecast of the sunspot number: pasted, mailed, or a file.
#include "fuzz/FuzzForecast.h"
#include "settings/ForecastReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    const auto res = ForecastFromText(FuzzText(pBytes, nBytes), kFuzzToday);
    if (!res) {
        Check(res.TextGet().starts_with("Cannot read a sunspot number: ")
              && res.TextGet().ends_with('.'));
        Check(TextPrintable(res.TextGet()) == res.TextGet() && res.TextGet().size() < 300);
        return 0;
    }
    ForecastCheck(res.ValueGet());
    // What was read can be saved, and loads as the same forecast.
    const std::string sKept = ForecastFileText(res.ValueGet());
    const auto resKept = ForecastFileParse(sKept);
    Check(resKept && ForecastFileText(resKept.ValueGet()) == sKept);
    return 0;
}
