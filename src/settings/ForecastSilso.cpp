// SILSO's forecast text KFprediCM: a row for each month, for example
//   2026 11 2026.873   85.3   5.1
// year, month, year as a decimal, smoothed number on the version-2 scale, its error. SILSO's tables
// of measured numbers begin alike and have more columns; their monthly numbers are not smoothed.
#include <cmath>

#include "settings/ForecastParts.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr std::size_t kRowLeast = 4;  // words; the error may be missing
constexpr std::size_t kRowMost = 5;
constexpr std::size_t kYearMost = 12;  // characters of the year as a decimal

/// The decimal year, if the first three words are those of a row.
std::optional<double> RowYearGet(const std::vector<std::string_view>& asWord)
{
    if (asWord.size() < 3 || asWord[0].size() != 4 || !ForecastWhole(asWord[0], 4)
        || !ForecastWhole(asWord[1], 2) || asWord[2].find('.') != 4 || asWord[2].size() > kYearMost)
        return std::nullopt;
    const auto resYear = NumberFromText(asWord[2]);
    return resYear ? std::optional(resYear.ValueGet()) : std::nullopt;
}

/// Adds one row. REQUIRES: RowYearGet accepts it.
Result<void> RowAdd(ForecastMonths& aMonths, const std::vector<std::string_view>& asWord,
                    double dYear)
{
    const std::string sMonth = std::string(asWord[0]) + " " + std::string(asWord[1]);
    if (asWord.size() > kRowMost)
        return RunError{
            "this is SILSO's table of measured months. Take its forecast, KFprediCM.txt"};
    const auto resValue =
        asWord.size() < kRowLeast ? RunError{""} : NumberFromText(asWord[kRowLeast - 1]);
    if (!resValue || (asWord.size() == kRowMost && !NumberFromText(asWord[kRowMost - 1])))
        return RunError{"the row of " + sMonth + " is not a row of numbers. Paste the reply again"};
    const ForecastMonth month{*ForecastWhole(asWord[0], 4), *ForecastWhole(asWord[1], 2),
                              resValue.ValueGet()};
    constexpr double kTolerance = 0.01;  // years
    const double dBegin = month.nYear + (month.nMonth - 1) / 12.0;
    if (dYear < dBegin - kTolerance || dYear > dBegin + 1.0 / 12.0 + kTolerance)
        return RunError{"the row of " + sMonth + " names another time as " + std::string(asWord[2])
                        + ". Paste the reply again"};
    return ForecastMonthAdd(aMonths, month);
}

}  // namespace

std::optional<Result<ForecastMonths>> ForecastSilsoRead(std::string_view sText, bool bEnded)
{
    ForecastMonths aMonths;
    bool bCut = false;
    const std::vector<std::string_view> asLine = TextLines(sText);
    for (std::size_t n = 0; n < asLine.size(); ++n) {
        const std::vector<std::string_view> asWord = ForecastWords(asLine[n]);
        const auto optYear = RowYearGet(asWord);
        if (!optYear)
            continue;
        // A last line without a line end may be cut, and its number wrong.
        bCut = n + 1 == asLine.size() && !bEnded && asWord.size() <= kRowLeast;
        if (bCut)
            break;
        if (const auto res = RowAdd(aMonths, asWord, *optYear); !res)
            return res.ErrorGet();
    }
    if (aMonths.empty() && bCut)
        return RunError{"the only row of SILSO's forecast may be cut. Paste the whole reply"};
    if (aMonths.empty())
        return std::nullopt;
    return aMonths;
}
