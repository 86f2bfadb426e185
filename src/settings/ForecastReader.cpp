#include "settings/ForecastReader.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "settings/ForecastParts.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

/// The lines without quoting marks ("> > "), and with blanks for control characters and no-break
/// spaces.
std::string TextClean(std::string_view sText)
{
    constexpr std::string_view kHardBlank = "\xC2\xA0";
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (sText.starts_with(kByteOrderMark))
        sText.remove_prefix(kByteOrderMark.size());
    std::string sClean;
    sClean.reserve(sText.size() + 1);
    for (std::string_view sLine : TextLines(sText)) {
        const std::size_t nQuote = sLine.find_first_not_of("> \t");
        sLine.remove_prefix(nQuote == std::string_view::npos ? sLine.size() : nQuote);
        for (std::size_t n = 0; n < sLine.size(); ++n) {
            if (sLine.substr(n, kHardBlank.size()) == kHardBlank) {
                sClean += ' ';
                ++n;
            } else {
                sClean += static_cast<unsigned char>(sLine[n]) < ' ' ? ' ' : sLine[n];
            }
        }
        sClean += '\n';
    }
    return sClean;
}

/// The day of a mail header's line "Date: Fri, 20 Nov 2026 12:34:56 +0000" (RFC 5322), or nothing.
std::optional<DateTime> MailDayGet(std::string_view sLine)
{
    constexpr std::string_view kLabel = "Date:";
    if (!TextEqualNoCase(sLine.substr(0, kLabel.size()), kLabel))
        return std::nullopt;
    const std::vector<std::string_view> asWord = ForecastWords(sLine.substr(kLabel.size()));
    const std::size_t nFirst = !asWord.empty() && asWord[0].ends_with(',') ? 1 : 0;
    if (asWord.size() < nFirst + 3 || asWord[nFirst + 2].size() != 4)
        return std::nullopt;
    const auto optDay = ForecastWhole(asWord[nFirst], 2);
    const auto optMonth = ForecastMonthNumber(asWord[nFirst + 1]);
    const auto optYear = ForecastWhole(asWord[nFirst + 2], 4);
    if (!optDay || !optMonth || !optYear)
        return std::nullopt;
    return ForecastDay(*optYear, *optMonth, *optDay);
}

/// Dates a forecast without a date: by the last mail header that is not in the future, because the
/// header of a forwarded mail follows that of the outer one; else by today.
void ForecastDate(SunSpotForecast& forecast, std::string_view sText, const DateTime& dtToday)
{
    forecast.dtDay = DateTime{dtToday.nYear, dtToday.nMonth, dtToday.nDay};
    for (const std::string_view sLine : TextLines(sText)) {
        const auto optDay = MailDayGet(sLine);
        if (!optDay || *optDay > dtToday)
            continue;
        forecast.dtDay = *optDay;
        forecast.eDating = ForecastDating::Mailed;
    }
}

RunError Refused(const std::string& sWhy)
{
    return RunError{"Cannot read a sunspot number: " + sWhy + "."};
}

Result<SunSpotForecast> MonthsTake(ForecastSource eSource, const Result<ForecastMonths>& resMonths,
                                   std::string_view sText, const DateTime& dtToday)
{
    if (!resMonths)
        return Refused(resMonths.TextGet());
    SunSpotForecast forecast;
    forecast.eSource = eSource;
    forecast.aMonths = resMonths.ValueGet();
    ForecastDate(forecast, sText, dtToday);
    return forecast;
}

Result<SunSpotForecast> FluxTake(const Result<ForecastFlux>& resFlux, const DateTime& dtToday)
{
    if (!resFlux)
        return Refused(resFlux.TextGet());
    const ForecastFlux& flux = resFlux.ValueGet();
    if (DayBoundaries(dtToday, flux.dtDay) > 1)  // time zones can differ by a day
        return Refused("WWV's bulletin has a future date. Check the date of this computer's clock");
    SunSpotForecast forecast;
    forecast.eSource = ForecastSource::Wwv;
    forecast.eDating = ForecastDating::Issued;
    forecast.dtDay = flux.dtDay;
    forecast.aMonths = {{flux.dtDay.nYear, flux.dtDay.nMonth, flux.dFlux}};
    return forecast;
}

std::string MonthName(const ForecastMonth& month)
{
    return NumberToText(month.nYear) + "-" + NumberFormat(static_cast<double>(month.nMonth), "00");
}

/// True when the months are neighbours but their numbers are too far apart.
bool JumpIs(const ForecastMonth& first, const ForecastMonth& next)
{
    constexpr double kJumpMost = 30.0;  // smoothed numbers have never changed by half as much
    const int nApart = (next.nYear - first.nYear) * 12 + next.nMonth - first.nMonth;
    return nApart == 1 && std::abs(next.dValue - first.dValue) > kJumpMost;
}

}  // namespace

std::string ForecastNumberText(double dValue)
{
    constexpr std::size_t kMost = 12;
    const std::string sText = NumberToText(dValue);
    return sText.size() > kMost ? sText.substr(0, kMost) + "..." : sText;
}

std::vector<std::string_view> ForecastWords(std::string_view sLine)
{
    constexpr std::string_view kBetween = " \t\n;";
    std::vector<std::string_view> asWord;
    for (;;) {
        const std::size_t nFrom = sLine.find_first_not_of(kBetween);
        if (nFrom == std::string_view::npos)
            return asWord;
        sLine.remove_prefix(nFrom);
        asWord.push_back(sLine.substr(0, sLine.find_first_of(kBetween)));
        sLine.remove_prefix(asWord.back().size());
    }
}

std::optional<int> ForecastWhole(std::string_view sWord, std::size_t nDigits)
{
    if (sWord.empty() || sWord.size() > nDigits)
        return std::nullopt;
    int nValue = 0;
    for (const char chr : sWord) {
        if (chr < '0' || chr > '9')
            return std::nullopt;
        nValue = nValue * 10 + (chr - '0');
    }
    return nValue;
}

std::optional<int> ForecastMonthNumber(std::string_view sWord)
{
    constexpr std::array<std::string_view, 12> kNames{
        "January", "February", "March",     "April",   "May",      "June",
        "July",    "August",   "September", "October", "November", "December"};
    for (std::size_t n = 0; n < kNames.size(); ++n)
        if (TextEqualNoCase(sWord, kNames[n]) || TextEqualNoCase(sWord, kNames[n].substr(0, 3)))
            return static_cast<int>(n) + 1;
    return std::nullopt;
}

std::optional<DateTime> ForecastDay(int nYear, int nMonth, int nDay)
{
    const auto resDay = DateTimeFromText(NumberToText(nYear) + "-" + NumberToText(nMonth) + "-"
                                         + NumberToText(nDay));
    if (!resDay || resDay.ValueGet() != DateTime{nYear, nMonth, nDay})
        return std::nullopt;
    return resDay.ValueGet();
}

Result<void> ForecastMonthAdd(ForecastMonths& aMonths, const ForecastMonth& month)
{
    if (month.nMonth < 1 || month.nMonth > 12 || month.nYear < kForecastYearLeast
        || month.nYear > kForecastYearMost)
        return RunError{"there is no month " + MonthName(month) + ". Request the forecast again"};
    if (!(month.dValue >= 0.0 && month.dValue <= kVersion2Most))
        return RunError{"the number " + ForecastNumberText(month.dValue) + " of " + MonthName(month)
                        + " is outside 0 to 350. Request the forecast again"};
    const auto MonthCount = [](const ForecastMonth& m) { return m.nYear * 12 + m.nMonth; };
    const auto itAt = std::ranges::lower_bound(aMonths, MonthCount(month), {}, MonthCount);
    if (itAt != aMonths.end() && MonthCount(*itAt) == MonthCount(month)) {
        if (itAt->dValue == month.dValue)
            return {};  // a repeated line
        return RunError{MonthName(month) + " has two numbers, " + ForecastNumberText(itAt->dValue)
                        + " and " + ForecastNumberText(month.dValue) + ". Paste only one forecast"};
    }
    if ((itAt != aMonths.end() && JumpIs(month, *itAt))
        || (itAt != aMonths.begin() && JumpIs(*(itAt - 1), month)))
        return RunError{"the number " + ForecastNumberText(month.dValue) + " of " + MonthName(month)
                        + " does not fit those of the months next to it. Request the forecast "
                          "again"};
    aMonths.insert(itAt, month);
    return {};
}

Result<SunSpotForecast> ForecastFromText(std::string_view sText, const DateTime& dtToday)
{
    if (sText.size() > kForecastTextMost)
        return Refused("the text is longer than 256 KB. Paste only the reply");
    const std::string sClean = TextClean(sText);
    if (sClean.find_first_not_of(" \n") == std::string::npos)
        return Refused("the text is empty. Paste the reply, or open its file");
    if (const auto optNoaa = ForecastNoaaRead(sClean))
        return MonthsTake(ForecastSource::Noaa, *optNoaa, sClean, dtToday);
    if (const auto optSilso = ForecastSilsoRead(sClean, sText.ends_with('\n')))
        return MonthsTake(ForecastSource::Silso, *optSilso, sClean, dtToday);
    if (const auto optFlux = ForecastWwvRead(sClean))
        return FluxTake(*optFlux, dtToday);
    return Refused(
        "none was found. Paste the whole reply: NOAA's predicted solar cycle (JSON), SILSO's "
        "forecast (KFprediCM) or a bulletin of WWV");
}
