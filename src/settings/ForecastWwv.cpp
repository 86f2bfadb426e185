// The bulletin of WWV (NOAA's Geophysical Alert Message):
//   :Issued: 2026 Nov 21 1505 UTC
//   Solar flux 123 and estimated planetary A-index 12.
#include "settings/ForecastParts.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

RunError Twice() { return RunError{"it has several WWV bulletins. Paste only the latest one"}; }

/// The day in ":Issued: 2026 Nov 21 1505 UTC", from the words after the label.
std::optional<DateTime> IssuedRead(const std::vector<std::string_view>& asWord, std::size_t nFirst)
{
    if (asWord.size() < nFirst + 3 || asWord[nFirst].size() != 4)
        return std::nullopt;
    const auto optYear = ForecastWhole(asWord[nFirst], 4);
    const auto optMonth = ForecastMonthNumber(asWord[nFirst + 1]);
    const auto optDay = ForecastWhole(asWord[nFirst + 2], 2);
    if (!optYear || !optMonth || !optDay)
        return std::nullopt;
    return ForecastDay(*optYear, *optMonth, *optDay);
}

/// The day of issue, which must be the same for all bulletins in a text.
Result<DateTime> IssuedGet(const std::vector<std::string_view>& asWord)
{
    std::optional<DateTime> optIssued;
    for (std::size_t n = 0; n < asWord.size(); ++n) {
        if (!TextEqualNoCase(asWord[n], ":Issued:") && !TextEqualNoCase(asWord[n], "Issued:"))
            continue;
        const auto optDay = IssuedRead(asWord, n + 1);
        if (!optDay)
            return RunError{"the bulletin's day of issue cannot be read. Paste it again"};
        if (optIssued && *optIssued != *optDay)
            return Twice();
        optIssued = optDay;
    }
    if (!optIssued)
        return RunError{
            "WWV's bulletin has no day of issue (\":Issued:\"). Paste the whole bulletin, "
            "with its header"};
    return *optIssued;
}

}  // namespace

std::optional<Result<ForecastFlux>> ForecastWwvRead(std::string_view sText)
{
    const std::vector<std::string_view> asWord = ForecastWords(sText);  // lines may be wrapped
    std::optional<double> optFlux;
    bool bFound = false;
    for (std::size_t n = 0; n + 2 < asWord.size(); ++n) {
        if (!TextEqualNoCase(asWord[n], "Solar") || !TextEqualNoCase(asWord[n + 1], "flux"))
            continue;
        const auto resFlux = NumberFromText(asWord[n + 2]);
        if (!resFlux)
            continue;  // prose about the flux
        bFound = true;
        // Without the next word the number may be cut.
        if (n + 3 >= asWord.size() || !TextEqualNoCase(asWord[n + 3], "and"))
            return RunError{
                "WWV's bulletin is cut after \"Solar flux\". Paste the whole "
                "bulletin"};
        if (optFlux && *optFlux != resFlux.ValueGet())
            return Twice();
        optFlux = resFlux.ValueGet();
    }
    if (!bFound)
        return std::nullopt;
    if (*optFlux < kFluxLeast || *optFlux > kFluxMost)
        return RunError{"the solar flux " + ForecastNumberText(*optFlux)
                        + " is outside 60 to 370. Request the bulletin again"};
    const auto resIssued = IssuedGet(asWord);
    if (!resIssued)
        return resIssued.ErrorGet();
    return ForecastFlux{resIssued.ValueGet(), *optFlux};
}
