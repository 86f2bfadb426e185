// NOAA's predicted solar cycle: [{"time-tag": "2026-11", "predicted_ssn": 87.9, ...}, ...]
#include <charconv>
#include <cmath>

#include "settings/ForecastParts.h"

namespace {

constexpr std::string_view kTag = "time-tag";
constexpr std::string_view kNumber = "predicted_ssn";
constexpr std::size_t kObjectsMost = 1200;
constexpr std::size_t kKeysMost = 64;    // in an object
constexpr std::size_t kStringMost = 64;  // bytes

/// Reads a flat array of flat objects by the grammar of JSON (RFC 8259), from its opening bracket.
class ArrayReader {
public:
    explicit ArrayReader(std::string_view sText) : m_sText(sText) {}

    Result<ForecastMonths> Read()
    {
        ForecastMonths aMonths;
        std::size_t nObjects = 0;
        if (!Take('['))
            return Broken();
        do {
            auto resMonth = ObjectRead();
            if (!resMonth)
                return resMonth.ErrorGet();
            if (++nObjects > kObjectsMost)
                return RunError{"NOAA's forecast has more than 1200 months. Request it again"};
            if (const auto res = ForecastMonthAdd(aMonths, resMonth.ValueGet()); !res)
                return res.ErrorGet();
        } while (Take(','));
        if (!Take(']'))
            return Broken();
        return aMonths;
    }

private:
    [[nodiscard]] RunError Broken() const
    {
        return RunError{m_sText.empty() ? "NOAA's forecast ends early. Paste the whole reply, or "
                                          "request it again"
                                        : "NOAA's forecast is damaged. Request it again"};
    }

    /// Skips blanks; true when the next character is this one.
    bool Next(char chr)
    {
        const std::size_t nAt = m_sText.find_first_not_of(" \n");
        m_sText.remove_prefix(nAt == std::string_view::npos ? m_sText.size() : nAt);
        return m_sText.starts_with(chr);
    }

    bool Take(char chr)
    {
        if (!Next(chr))
            return false;
        m_sText.remove_prefix(1);
        return true;
    }

    std::optional<std::string_view> String()
    {
        if (!Take('"'))
            return std::nullopt;
        const std::size_t nEnd = m_sText.find_first_of("\"\\\n");
        if (nEnd == std::string_view::npos) {
            m_sText = {};
            return std::nullopt;
        }
        if (m_sText[nEnd] != '"' || nEnd > kStringMost)  // no text in this array has escapes
            return std::nullopt;
        const std::string_view sString = m_sText.substr(0, nEnd);
        m_sText.remove_prefix(nEnd + 1);
        return sString;
    }

    /// A number, true, false or null as its characters.
    std::string_view Word()
    {
        const std::size_t nEnd = m_sText.find_first_of(" \n,}]");
        const std::string_view sWord = m_sText.substr(0, nEnd);
        m_sText.remove_prefix(sWord.size());
        return sWord;
    }

    static std::optional<double> Number(std::string_view sWord)
    {
        const std::string_view sDigits = sWord.starts_with('-') ? sWord.substr(1) : sWord;
        const auto DigitIs = [&](std::size_t n) {
            return n < sDigits.size() && sDigits[n] >= '0' && sDigits[n] <= '9';
        };
        if (!DigitIs(0) || (sDigits[0] == '0' && DigitIs(1)) || sDigits.back() == '.')
            return std::nullopt;
        double dValue = 0.0;
        const char* pEnd = sWord.data() + sWord.size();
        const auto [pStop, eError] = std::from_chars(sWord.data(), pEnd, dValue);
        if (eError != std::errc() || pStop != pEnd || !std::isfinite(dValue))
            return std::nullopt;
        return dValue;
    }

    static bool TagRead(std::string_view sTag, ForecastMonth& month)
    {
        constexpr std::size_t kLength = 7;  // 2026-11
        if (sTag.size() != kLength || sTag[4] != '-')
            return false;
        const auto optYear = ForecastWhole(sTag.substr(0, 4), 4);
        const auto optMonth = ForecastWhole(sTag.substr(5), 2);
        month.nYear = optYear.value_or(0);
        month.nMonth = optMonth.value_or(0);
        return optYear && optMonth;
    }

    /// Its two keys, each once; the other keys are not used here, but must be JSON too.
    Result<ForecastMonth> ObjectRead()
    {
        ForecastMonth month;
        int nTags = 0;
        int nNumbers = 0;
        std::size_t nKeys = 0;
        if (!Take('{'))
            return Broken();
        do {
            const auto optKey = String();
            if (!optKey || !Take(':') || ++nKeys > kKeysMost)
                return Broken();
            if (Next('"')) {
                const auto optText = String();
                if (!optText || *optKey == kNumber
                    || (*optKey == kTag && (++nTags > 1 || !TagRead(*optText, month))))
                    return Broken();
                continue;
            }
            const std::string_view sWord = Word();
            const auto optNumber = Number(sWord);
            if (*optKey == kNumber && optNumber && ++nNumbers == 1)
                month.dValue = *optNumber;
            else if (*optKey == kNumber || *optKey == kTag
                     || (!optNumber && sWord != "null" && sWord != "true" && sWord != "false"))
                return Broken();
        } while (Take(','));
        if (!Take('}') || nTags != 1 || nNumbers != 1)
            return Broken();
        return month;
    }

    std::string_view m_sText;
};

}  // namespace

std::optional<Result<ForecastMonths>> ForecastNoaaRead(std::string_view sText)
{
    const std::size_t nTag = sText.find("\"time-tag\"");
    if (nTag == std::string_view::npos)
        return std::nullopt;
    const std::size_t nFrom = sText.rfind('[', nTag);
    if (nFrom == std::string_view::npos)
        return RunError{
            "the beginning of NOAA's forecast is missing. Paste the whole reply, or request it "
            "again"};
    return ArrayReader(sText.substr(nFrom)).Read();
}
