#include "settings/SunSpotLib.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "airmail/AirMailIni.h"
#include "settings/ForecastFile.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"

namespace {

/// The forecast to use: the named one, or the one that is kept, if any.
/// @param sWarning  gets what is wrong with the one that is kept
Result<std::optional<SunSpotForecast>> ForecastFind(const Settings& settings,
                                                    const std::string& sForecastFile,
                                                    const DateTime& dtToday, std::string& sWarning)
{
    if (!sForecastFile.empty()) {
        auto resOpened = ForecastOpen(sForecastFile, dtToday);
        if (!resOpened)
            return resOpened.ErrorGet();
        return std::optional(std::move(resOpened.ValueGet()));
    }
    auto resLoaded = ForecastLoad(settings.m_sProfileFile);
    if (resLoaded)
        return resLoaded;
    sWarning = resLoaded.TextGet();
    return std::optional<SunSpotForecast>();
}

Result<SunSpotRun> ForecastRunGet(const Settings& settings, const std::string& sForecastFile)
{
    const DateTime dtToday = UtcNow();
    const RunMonth month = RunMonthGet(settings);
    SunSpotRun ssn;
    const auto resForecast = ForecastFind(settings, sForecastFile, dtToday, ssn.sWarning);
    if (!resForecast)
        return resForecast.ErrorGet();
    const auto& optForecast = resForecast.ValueGet();
    const SunSpotEstimate estimate = SunSpotEstimateGet(optForecast ? &*optForecast : nullptr,
                                                        month.nYear, month.nMonth, dtToday);
    ssn.fNumber = static_cast<float>(estimate.nNumber);
    ssn.eSource = estimate.eSource;
    ssn.sSource = SunSpotSourceName(estimate.eSource);
    ssn.sScale = estimate.sScale;
    ssn.dtDay = estimate.dtDay;
    if (!ssn.dtDay.IsZero())
        ssn.nDaysOld = std::max(DayBoundaries(ssn.dtDay, dtToday), 0LL);
    ssn.sDetail = estimate.sDetail;
    if (ssn.sWarning.empty())
        ssn.sWarning = estimate.sWarning;
    return ssn;
}

}  // namespace

Result<bool> SunSpotNumberGet(Settings& settings, float& fNumber, Messages* paMessages)
{
    if (settings.m_bPropagationSunSpotNumber) {
        const std::string sText = AirMailSunSpotNumberGet(paMessages);
        if (sText.empty())
            return false;
        const auto resNumber = NumberFromTextSingle(sText);
        if (!resNumber)
            return resNumber.ErrorGet();
        if (!kRangeSunSpot.Holds(resNumber.ValueGet()))
            return RunError{AirMailIniPlaceGet("Propagation", "SSN") + ": "
                            + RangeFaultText(resNumber.ValueGet(), kRangeSunSpot)};
        settings.m_fPropagationSunSpotNumber = resNumber.ValueGet();
    }
    fNumber = settings.m_fPropagationSunSpotNumber;
    return true;
}

RunMonth RunMonthGet(const Settings& settings)
{
    if (!settings.m_bPropagationMonth)
        return {LocalNow().nYear, std::clamp(settings.m_iPropagationMonth, 1, 12)};
    const DateTime dtUtc = UtcNow();
    return {dtUtc.nYear, dtUtc.nMonth};
}

Result<bool> SunSpotRunGet(Settings& settings, const std::string& sForecastFile, SunSpotRun& ssn,
                           Messages* paMessages)
{
    if (!settings.m_bPropagationSunSpotNumber && settings.m_bPropagationForecast) {
        auto resRun = ForecastRunGet(settings, sForecastFile);
        if (!resRun)
            return resRun.ErrorGet();
        ssn = std::move(resRun.ValueGet());
        settings.m_fPropagationSunSpotNumber = ssn.fNumber;
        return true;
    }
    SunSpotRun run;
    const auto resNumber = SunSpotNumberGet(settings, run.fNumber, paMessages);
    if (!resNumber || !resNumber.ValueGet())
        return resNumber;
    run.eSource =
        settings.m_bPropagationSunSpotNumber ? SunSpotSource::AirMail : SunSpotSource::Typed;
    run.sSource = SunSpotSourceName(run.eSource);
    run.sDetail = run.eSource == SunSpotSource::AirMail ? AirMailIniPlaceGet("Propagation", "SSN")
                                                        : "as typed";
    ssn = std::move(run);
    return true;
}
