#include "system/NumberLib.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

// Longest plain text of a double: 309 digits before the point, or a sign, "0." and 324 zeros
// followed by 17 digits.
constexpr std::size_t kPlainMax = 400;

bool DigitIs(char chr) { return chr >= '0' && chr <= '9'; }

// Sign, digits, point, digits: the parts of a plain decimal text.
struct DecimalText {
    bool bNegative = false;
    std::string sWhole;     // no leading zeros
    std::string sFraction;  // as long as needed
};

// The shortest digits that read back to the same value in its own precision.
template <class T>
DecimalText DecimalGet(T value)
{
    std::array<char, kPlainMax> aText;
    const auto res = std::to_chars(aText.data(), aText.data() + aText.size(), std::abs(value),
                                   std::chars_format::fixed);
    const std::string_view sText(aText.data(), static_cast<std::size_t>(res.ptr - aText.data()));
    const std::size_t nPoint = sText.find('.');
    DecimalText dec;
    dec.bNegative = std::signbit(value);
    dec.sWhole = sText.substr(0, nPoint);
    if (nPoint != std::string_view::npos)
        dec.sFraction = sText.substr(nPoint + 1);
    if (dec.sWhole == "0")
        dec.sWhole.clear();
    return dec;
}

// Adds one to the last digit, with carries into the whole part.
void DecimalRoundUp(DecimalText& dec)
{
    for (std::string* pText : {&dec.sFraction, &dec.sWhole}) {
        for (auto it = pText->rbegin(); it != pText->rend(); ++it) {
            if (*it != '9') {
                ++*it;
                return;
            }
            *it = '0';
        }
    }
    dec.sWhole.insert(dec.sWhole.begin(), '1');
}

// Rounds half away from zero to nDecimals, or pads with zeros.
void DecimalRound(DecimalText& dec, std::size_t nDecimals)
{
    if (dec.sFraction.size() <= nDecimals) {
        dec.sFraction.append(nDecimals - dec.sFraction.size(), '0');
        return;
    }
    const bool bUp = dec.sFraction[nDecimals] >= '5';
    dec.sFraction.resize(nDecimals);
    if (bUp)
        DecimalRoundUp(dec);
}

bool DecimalIsZero(const DecimalText& dec)
{
    return dec.sWhole.find_first_not_of('0') == std::string::npos
           && dec.sFraction.find_first_not_of('0') == std::string::npos;
}

template <class T>
std::string FormatByPattern(T value, std::string_view sPattern)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";
    const std::size_t nPoint = sPattern.find('.');
    const std::size_t nWholeLeast = nPoint == std::string_view::npos ? sPattern.size() : nPoint;
    const std::size_t nDecimals =
        nPoint == std::string_view::npos ? 0 : sPattern.size() - nPoint - 1;
    DecimalText dec = DecimalGet(value);
    DecimalRound(dec, nDecimals);
    if (dec.sWhole.size() < nWholeLeast)
        dec.sWhole.insert(0, nWholeLeast - dec.sWhole.size(), '0');
    std::string sText = dec.bNegative && !DecimalIsZero(dec) ? "-" : "";
    sText += dec.sWhole;
    if (nPoint != std::string_view::npos)
        sText += '.';
    return sText + dec.sFraction;
}

template <class T>
std::string ShortestGet(T value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";
    const DecimalText dec = DecimalGet(value);
    std::string sText = dec.bNegative && !DecimalIsZero(dec) ? "-" : "";
    sText += dec.sWhole.empty() ? "0" : dec.sWhole;
    if (!dec.sFraction.empty())
        sText += "." + dec.sFraction;
    return sText;
}

// True for [digits][.digits] with a digit on at least one side of the point.
bool PlainNumberIs(std::string_view sText)
{
    std::size_t nDigits = 0;
    std::size_t nPoints = 0;
    for (const char chr : sText) {
        if (DigitIs(chr))
            ++nDigits;
        else if (chr == '.')
            ++nPoints;
        else
            return false;
    }
    return nDigits > 0 && nPoints <= 1;
}

// The text without blanks and without a plus sign (from_chars refuses it). An empty view when a
// second sign follows.
std::string_view NumberTextGet(std::string_view sText)
{
    sText = TextTrim(sText);
    if (!sText.empty() && sText.front() == '+') {
        sText.remove_prefix(1);
        if (!sText.empty() && sText.front() == '-')
            return {};
    }
    return sText;
}

template <class T>
Result<T> NumberRead(std::string_view sText, std::chars_format eFormat)
{
    T value{};
    const char* pEnd = sText.data() + sText.size();
    const auto res = std::from_chars(sText.data(), pEnd, value, eFormat);
    if (res.ec == std::errc::result_out_of_range) {
        // Too small counts as zero; too large has digits before the point or a large exponent.
        const double dMagnitude = std::abs(std::strtod(std::string(sText).c_str(), nullptr));
        if (dMagnitude < 1.0)
            return T{};
        return RunError{kOverflow};
    }
    if (res.ec != std::errc{} || res.ptr != pEnd)
        return RunError{kTypeMismatch};
    return value;
}

template <class T>
Result<T> NumberReadStrict(std::string_view sText)
{
    const std::string_view sNumber = NumberTextGet(sText);
    std::string_view sDigits = sNumber;
    if (!sDigits.empty() && sDigits.front() == '-')
        sDigits.remove_prefix(1);
    if (!PlainNumberIs(sDigits))
        return RunError{kTypeMismatch};
    return NumberRead<T>(sNumber, std::chars_format::fixed);
}

}  // namespace

Result<double> NumberFromText(std::string_view sText) { return NumberReadStrict<double>(sText); }

Result<float> NumberFromTextSingle(std::string_view sText)
{
    return NumberReadStrict<float>(sText);
}

Result<double> NumberFromTextLenient(std::string_view sText)
{
    std::string sNumber(NumberTextGet(sText));
    const std::size_t nComma = sNumber.find(',');
    if (nComma != std::string::npos) {
        if (sNumber.find('.') != std::string::npos)
            return RunError{kTypeMismatch};
        sNumber[nComma] = '.';
    }
    // Letters other than the exponent's are refused here: from_chars would take "inf" and "nan".
    if (sNumber.find_first_not_of("0123456789+-.eE") != std::string::npos)
        return RunError{kTypeMismatch};
    return NumberRead<double>(sNumber, std::chars_format::general);
}

std::string NumberFormat(double dValue, std::string_view sPattern)
{
    return FormatByPattern(dValue, sPattern);
}

std::string NumberFormat(float fValue, std::string_view sPattern)
{
    return FormatByPattern(fValue, sPattern);
}

std::string NumberToText(double dValue) { return ShortestGet(dValue); }

std::string NumberToText(float fValue) { return ShortestGet(fValue); }

std::string NumberToText(int nValue) { return std::to_string(nValue); }

std::string NumberToText(long long nValue) { return std::to_string(nValue); }

int RoundHalfEven(double dValue)
{
    if (std::isnan(dValue))
        return 0;
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    if (dValue <= kLeast)
        return std::numeric_limits<int>::min();
    if (dValue >= kMost)
        return std::numeric_limits<int>::max();
    const double dFloor = std::floor(dValue);
    const double dRest = dValue - dFloor;
    const bool bFloorOdd = std::fmod(dFloor, 2.0) != 0.0;
    const bool bUp = dRest > 0.5 || (dRest == 0.5 && bFloorOdd);
    return static_cast<int>(bUp ? dFloor + 1.0 : dFloor);
}
