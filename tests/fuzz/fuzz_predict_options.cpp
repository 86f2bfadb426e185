// Any words, one per line, as the command line of hopcast-predict.
#include <string>
#include <vector>

#include "app/predict/PredictOptions.h"
#include "fuzz/FuzzPrefix.h"
#include "settings/ProfileLib.h"
#include "settings/SettingsRange.h"

namespace {

std::vector<std::string> WordsGet(std::string_view sText)
{
    std::vector<std::string> asWord(1);
    for (const char c : sText) {
        if (c == '\n')
            asWord.emplace_back();
        else if (c != '\0')  // a NUL would end the word
            asWord.back() += c;
    }
    return asWord;
}

void OptionsCheck(const PredictOptions& options)
{
    constexpr int kHourMost = 23;
    constexpr int kJobsMost = 64;
    constexpr NumberRange kHours{1, 24};
    Check(SettingsFaultsGet(options.settings, true).empty() || !options.sFault.empty());
    Check(options.settings.m_nData >= 0 && options.settings.m_nData <= kFrequencyMax);
    Check(options.nJobs >= 0 && options.nJobs <= kJobsMost);
    Check(options.reach.iFrom >= -1 && options.reach.iFrom <= kHourMost);
    Check(kHours.Holds(options.reach.nHours));
    Check(!options.bReach || !options.reach.aLists.empty());
    Check(!options.need || kRangeNeed.Holds(options.need->fSnr));
    Check(options.iCompare == -1 || kRangeModel.Holds(options.iCompare));
    if (!options.bArea)
        return;
    Check(kRangeLatitude.Holds(options.area.dNorth) && kRangeLatitude.Holds(options.area.dSouth));
    Check(kRangeLongitude.Holds(options.area.dWest) && kRangeLongitude.Holds(options.area.dEast));
    if (options.bDay)
        return;
    Check(options.area.iHour >= 0 && options.area.iHour <= kHourMost);
    Check(kRangeFrequency.Holds(options.area.fFrequency));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzPrefix prefix;  // without Airmail
    const std::vector<std::string> asWord = WordsGet(FuzzText(pBytes, nBytes));
    for (const std::string& sWord : asWord)
        if (sWord.starts_with("--profile"))
            return 0;  // it would read a file of this machine, whose values are not checked
    const auto res = PredictOptionsGet(asWord);
    if (!res) {
        Check(!res.TextGet().empty());
        return 0;
    }
    if (!res.ValueGet().bHelp && !res.ValueGet().bVersion)
        OptionsCheck(res.ValueGet());
    return 0;
}
