// Any text as the frequency list that the user edits, and as an amateur band.
#include <array>
#include <cmath>

#include "fuzz/FuzzCheck.h"
#include "settings/Settings.h"
#include "system/MsgLib.h"
#include "ui/options/FrequencyText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr int kCountBefore = -1;
    MsgSetHandler([](MsgIcon, const std::string&) {});
    const std::string_view sText = FuzzText(pBytes, nBytes);
    std::array<float, kFrequencyMax + 1> afFrequency{};
    int nSet = 0;
    int nCount = kCountBefore;
    const bool bOk = FrequencyListFromText(
        sText,
        [&](int i, float fKhz) {
            Check(i == ++nSet && i <= kFrequencyMax && std::isfinite(fKhz));
            afFrequency[static_cast<std::size_t>(i)] = fKhz;
        },
        nCount);
    Check(nCount == kCountBefore ? !bOk : nCount == nSet);
    if (bOk) {  // the shown list can be read again
        const auto fnGet = [&](int i) { return afFrequency[static_cast<std::size_t>(i)]; };
        int nAgain = kCountBefore;
        Check(FrequencyListFromText(
            FrequencyListToText(nCount, fnGet),
            [&](int i, float fKhz) { Check(fKhz == std::round(fnGet(i))); }, nAgain));
        Check(nAgain == nCount);
    }
    if (const auto sMiddle = BandMiddleGet(sText))
        Check(!sMiddle->empty());
    return 0;
}
