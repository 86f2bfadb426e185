#include "settings/ForecastFile.h"

#include <array>

#include "settings/ForecastParts.h"
#include "settings/ForecastReader.h"
#include "system/ErrorTextLib.h"
#include "system/FileLib.h"
#include "system/HashText.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

constexpr std::string_view kHead = "Hopcast sunspot forecast 1";
constexpr std::string_view kEnd = "end ";
constexpr std::array<std::string_view, 3> kSources{"noaa", "silso", "wwv"};
constexpr std::array<std::string_view, 3> kDatings{"issued", "mailed", "read"};

std::string NumbersText(int nYear, int nMonth, const std::string& sLast)
{
    return NumberToText(nYear) + " " + NumberToText(nMonth) + " " + sLast;
}

template <std::size_t n>
std::optional<int> WordFind(const std::array<std::string_view, n>& asWord, std::string_view sWord)
{
    for (std::size_t i = 0; i < n; ++i)
        if (asWord[i] == sWord)
            return static_cast<int>(i);
    return std::nullopt;
}

/// "noaa mailed 2026 11 20".
bool OriginRead(std::string_view sLine, SunSpotForecast& forecast)
{
    const std::vector<std::string_view> asWord = ForecastWords(sLine);
    if (asWord.size() != 5)
        return false;
    const auto optSource = WordFind(kSources, asWord[0]);
    const auto optDating = WordFind(kDatings, asWord[1]);
    const auto optYear = ForecastWhole(asWord[2], 4);
    const auto optMonth = ForecastWhole(asWord[3], 2);
    const auto optDay = ForecastWhole(asWord[4], 2);
    if (!optSource || !optDating || !optYear || !optMonth || !optDay)
        return false;
    const auto optDate = ForecastDay(*optYear, *optMonth, *optDay);
    if (!optDate)
        return false;
    forecast.eSource = static_cast<ForecastSource>(*optSource);
    forecast.eDating = static_cast<ForecastDating>(*optDating);
    forecast.dtDay = *optDate;
    return true;
}

/// "2026 11 87.9".
Result<void> MonthRead(std::string_view sLine, SunSpotForecast& forecast)
{
    const std::vector<std::string_view> asWord = ForecastWords(sLine);
    if (asWord.size() != 3)
        return RunError{"no month"};
    const auto optYear = ForecastWhole(asWord[0], 4);
    const auto optMonth = ForecastWhole(asWord[1], 2);
    const auto resValue = NumberFromText(asWord[2]);
    if (!optYear || !optMonth || !resValue)
        return RunError{"no month"};
    const ForecastMonth month{*optYear, *optMonth, resValue.ValueGet()};
    if (forecast.eSource != ForecastSource::Wwv)
        return ForecastMonthAdd(forecast.aMonths, month);
    if (!forecast.aMonths.empty() || month.nYear != forecast.dtDay.nYear
        || month.nMonth != forecast.dtDay.nMonth || month.dValue < kFluxLeast
        || month.dValue > kFluxMost)
        return RunError{"no flux of one day"};
    forecast.aMonths.push_back(month);
    return {};
}

RunError Refused(std::string_view sFile, const std::string& sWhy)
{
    return RunError{"Cannot read " + std::string(sFile) + ": " + sWhy};
}

}  // namespace

std::string ForecastFilePath(std::string_view sProfileFile)
{
    return PathWithEnding(sProfileFile, ".forecast.txt");
}

std::string ForecastFileEnded(std::string_view sLines)
{
    return std::string(sLines) + std::string(kEnd) + HashText32(sLines) + "\n";
}

std::string ForecastFileText(const SunSpotForecast& forecast)
{
    const std::string_view sSource = kSources.at(static_cast<std::size_t>(forecast.eSource));
    const std::string_view sDating = kDatings.at(static_cast<std::size_t>(forecast.eDating));
    std::string sText(kHead);
    sText += "\n" + std::string(sSource) + " " + std::string(sDating) + " "
             + NumbersText(forecast.dtDay.nYear, forecast.dtDay.nMonth,
                           NumberToText(forecast.dtDay.nDay))
             + "\n";
    for (const ForecastMonth& month : forecast.aMonths)
        sText += NumbersText(month.nYear, month.nMonth, NumberToText(month.dValue)) + "\n";
    return ForecastFileEnded(sText);
}

Result<SunSpotForecast> ForecastFileParse(std::string_view sBytes)
{
    constexpr std::size_t kLinesLeast = 4;  // head, origin, one month, end
    const std::vector<std::string_view> asLine = TextLines(sBytes);
    std::string sBefore;
    SunSpotForecast forecast;
    if (asLine.size() < kLinesLeast || !sBytes.ends_with('\n'))
        return RunError{"it is cut"};
    const std::size_t nLast = asLine.size() - 1;
    for (std::size_t n = 0; n < nLast; ++n) sBefore += std::string(asLine[n]) + "\n";
    if (asLine[nLast] != std::string(kEnd) + HashText32(sBefore))
        return RunError{"it was cut or changed"};
    if (asLine[0] != kHead)
        return RunError{"it is of another kind"};
    if (!OriginRead(asLine[1], forecast))
        return RunError{"line 2 has no source and date"};
    for (std::size_t n = 2; n < nLast; ++n)
        if (const auto res = MonthRead(asLine[n], forecast); !res)
            return RunError{"line " + NumberToText(static_cast<int>(n) + 1) + ": " + res.TextGet()};
    return forecast;
}

Result<std::optional<SunSpotForecast>> ForecastLoad(std::string_view sProfileFile)
{
    const std::string sFile = ForecastFilePath(sProfileFile);
    if (!FileExists(sFile))
        return std::optional<SunSpotForecast>();
    const auto resBytes = FileRead(sFile, kForecastTextMost);
    const auto resForecast =
        resBytes ? ForecastFileParse(resBytes.ValueGet()) : resBytes.ErrorGet();
    if (!resForecast)
        return Refused(
            sFile, resForecast.TextGet() + ". The mean cycle is used. Read the forecast again.");
    return std::optional(resForecast.ValueGet());
}

Result<void> ForecastSave(const std::string& sProfileFile, const SunSpotForecast& forecast)
{
    const std::string sFile = ForecastFilePath(sProfileFile);
    std::string sWhy;
    if (const int nError = ProfileFolderMake(sProfileFile); nError != 0)
        sWhy = SystemErrorText(nError);
    else if (const auto res = FileReplace(sFile, ForecastFileText(forecast)); !res)
        sWhy = res.TextGet();
    if (!sWhy.empty())
        return RunError{"Cannot keep the forecast in " + sFile + ": " + sWhy
                        + ". Check that files can be written there, and read it again."};
    return {};
}

Result<SunSpotForecast> ForecastOpen(std::string_view sFile, const DateTime& dtToday)
{
    const auto resBytes = FileRead(sFile, kForecastTextMost);
    if (!resBytes)
        return Refused(sFile, resBytes.TextGet() == kOverflow
                                  ? "it is longer than 256 KB. Choose the file of the reply."
                                  : resBytes.TextGet() + ". Choose a file that can be read.");
    const std::string& sBytes = resBytes.ValueGet();
    if (!sBytes.starts_with(kHead))
        return ForecastFromText(sBytes, dtToday);
    const auto resForecast = ForecastFileParse(sBytes);
    if (!resForecast)
        return Refused(sFile, resForecast.TextGet() + ". Read the forecast again.");
    return resForecast.ValueGet();
}
