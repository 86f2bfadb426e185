#include "system/ClockLib.h"

#include <array>
#include <charconv>
#include <chrono>
#include <ctime>
#include <utility>

#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

struct Handlers {
    ClockSource source;
    EventPumpFn fnPump;
};

Handlers& HandlersGet()
{
    static Handlers handlers;
    return handlers;
}

DateTime DateTimeGet(const std::tm& tmTime)
{
    // A leap second counts as the last second of its minute.
    return {tmTime.tm_year + 1900, tmTime.tm_mon + 1, tmTime.tm_mday,
            tmTime.tm_hour,        tmTime.tm_min,     tmTime.tm_sec > 59 ? 59 : tmTime.tm_sec};
}

DateTime SystemNow(bool bLocal)
{
    const std::time_t nNow = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm tmNow{};
#ifdef _WIN32
    (bLocal ? localtime_s : gmtime_s)(&tmNow, &nNow);
#else
    (bLocal ? localtime_r : gmtime_r)(&nNow, &tmNow);
#endif
    return DateTimeGet(tmNow);
}

double SystemTimer()
{
    using namespace std::chrono;
    const DateTime dt = SystemNow(true);
    const auto nMicro = duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
    const double dFraction = static_cast<double>(nMicro % 1000000) / 1e6;
    return dt.nHour * 3600.0 + dt.nMinute * 60.0 + dt.nSecond + dFraction;
}

// Splits the text at any of the separators; blanks at a piece's ends are dropped.
struct Pieces {
    std::array<std::string_view, 3> asText;
    int nCount = 0;
};

Pieces PiecesGet(std::string_view sText, char chrSeparator)
{
    Pieces pcs;
    while (pcs.nCount < 3) {
        const std::size_t nAt = sText.find(chrSeparator);
        pcs.asText[static_cast<std::size_t>(pcs.nCount++)] = sText.substr(0, nAt);
        if (nAt == std::string_view::npos)
            return pcs;
        sText.remove_prefix(nAt + 1);
    }
    pcs.nCount = 4;  // more pieces than any date or time has
    return pcs;
}

// Whole number of one to nMost digits, -1 for anything else.
int WholeGet(std::string_view sText, std::size_t nMost)
{
    int nValue = 0;
    if (sText.empty() || sText.size() > nMost
        || sText.find_first_not_of("0123456789") != std::string_view::npos)
        return -1;
    std::from_chars(sText.data(), sText.data() + sText.size(), nValue);
    return nValue;
}

std::chrono::year_month_day CivilDate(const DateTime& dt)
{
    return {std::chrono::year(dt.nYear), std::chrono::month(static_cast<unsigned>(dt.nMonth)),
            std::chrono::day(static_cast<unsigned>(dt.nDay))};
}

bool DateRead(std::string_view sText, DateTime& dt)
{
    const bool bDashes = sText.find('-') != std::string_view::npos;
    const Pieces pcs = PiecesGet(sText, bDashes ? '-' : '/');
    if (pcs.nCount != 3)
        return false;
    const bool bYearFirst = pcs.asText[0].size() > 2;
    if (bDashes && !bYearFirst)
        return false;
    const std::string_view sYear = bYearFirst ? pcs.asText[0] : pcs.asText[2];
    dt.nYear = sYear.size() == 4 ? WholeGet(sYear, 4) : -1;
    dt.nMonth = WholeGet(bYearFirst ? pcs.asText[1] : pcs.asText[0], 2);
    dt.nDay = WholeGet(bYearFirst ? pcs.asText[2] : pcs.asText[1], 2);
    if (!bYearFirst && dt.nMonth > 12)
        std::swap(dt.nMonth, dt.nDay);
    return dt.nYear >= 100 && dt.nMonth >= 1 && dt.nDay >= 1 && CivilDate(dt).ok();
}

bool TimeRead(std::string_view sText, DateTime& dt)
{
    const std::string sUpper = TextUpper(sText);
    std::string_view sTime = sUpper;
    const bool bAm = sTime.ends_with("AM");
    const bool bPm = sTime.ends_with("PM");
    if (bAm || bPm)
        sTime = TextTrim(sTime.substr(0, sTime.size() - 2));
    const Pieces pcs = PiecesGet(sTime, ':');
    if (pcs.nCount < 2 || pcs.nCount > 3)
        return false;
    dt.nHour = WholeGet(pcs.asText[0], 2);
    dt.nMinute = WholeGet(pcs.asText[1], 2);
    dt.nSecond = pcs.nCount == 3 ? WholeGet(pcs.asText[2], 2) : 0;
    if (bAm || bPm) {
        if (dt.nHour < 1 || dt.nHour > 12)
            return false;
        dt.nHour = dt.nHour % 12 + (bPm ? 12 : 0);
    }
    return dt.nHour >= 0 && dt.nHour <= 23 && dt.nMinute >= 0 && dt.nMinute <= 59 && dt.nSecond >= 0
           && dt.nSecond <= 59;
}

long long HourNumber(const DateTime& dt) { return DayNumber(dt) * 24 + dt.nHour; }

}  // namespace

DateTime UtcNow()
{
    const ClockSource& source = HandlersGet().source;
    return source.fnUtc ? source.fnUtc() : SystemNow(false);
}

DateTime LocalNow()
{
    const ClockSource& source = HandlersGet().source;
    return source.fnLocal ? source.fnLocal() : SystemNow(true);
}

Result<DateTime> DateTimeFromText(std::string_view sText)
{
    const std::string_view sAll = TextTrim(sText);
    const std::size_t nBlank = sAll.find(' ');
    DateTime dt;
    if (!DateRead(sAll.substr(0, nBlank), dt))
        return RunError{kTypeMismatch};
    if (nBlank != std::string_view::npos && !TimeRead(TextTrim(sAll.substr(nBlank)), dt))
        return RunError{kTypeMismatch};
    return dt;
}

long long DayNumber(const DateTime& dt)
{
    return std::chrono::sys_days(CivilDate(dt)).time_since_epoch().count();
}

long long DayBoundaries(const DateTime& dtFrom, const DateTime& dtTo)
{
    return DayNumber(dtTo) - DayNumber(dtFrom);
}

long long HourBoundaries(const DateTime& dtFrom, const DateTime& dtTo)
{
    return HourNumber(dtTo) - HourNumber(dtFrom);
}

long long MinuteBoundaries(const DateTime& dtFrom, const DateTime& dtTo)
{
    return (HourNumber(dtTo) * 60 + dtTo.nMinute) - (HourNumber(dtFrom) * 60 + dtFrom.nMinute);
}

double TimerGet()
{
    const ClockSource& source = HandlersGet().source;
    return source.fnTimer ? source.fnTimer() : SystemTimer();
}

void Delay(double dSeconds)
{
    const double dEnd = TimerGet() + dSeconds;
    while (TimerGet() < dEnd) EventPumpRun();
}

EventPumpFn EventPumpSetHandler(EventPumpFn fnPump)
{
    return std::exchange(HandlersGet().fnPump, std::move(fnPump));
}

void EventPumpRun()
{
    if (HandlersGet().fnPump)
        HandlersGet().fnPump();
}

ClockSource ClockSetHandler(ClockSource source)
{
    return std::exchange(HandlersGet().source, std::move(source));
}
