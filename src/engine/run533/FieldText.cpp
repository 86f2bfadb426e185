#include "engine/run533/FieldText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace run533 {
namespace {

constexpr std::array kPowers{1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

// The printed value, in units of its last digit.
double UnitsGet(double dValue, int nWidth, int nDecimals)
{
    const double dScale = kPowers[static_cast<std::size_t>(nDecimals)];
    // Digits of the largest number: the point takes a column, the leading blank another.
    const int nDigits = nWidth - 1 - (nDecimals > 0 ? 1 : 0);
    const double dMost = kPowers[static_cast<std::size_t>(nDigits)] - 1.0;
    const double dLeast = -(kPowers[static_cast<std::size_t>(nDigits - 1)] - 1.0);
    return std::isnan(dValue) ? 0.0 : std::clamp(std::round(dValue * dScale), dLeast, dMost);
}

}  // namespace

double FieldValueGet(double dValue, int nWidth, int nDecimals)
{
    return UnitsGet(dValue, nWidth, nDecimals) / kPowers[static_cast<std::size_t>(nDecimals)];
}

void FieldAppend(std::string& sLine, double dValue, int nWidth, int nDecimals)
{
    const double dUnits = UnitsGet(dValue, nWidth, nDecimals);
    auto nUnits = static_cast<long long>(std::abs(dUnits));
    std::array<char, 24> aText;
    char* pEnd = aText.data() + aText.size();
    char* pText = pEnd;
    for (int i = 0; i < nDecimals || nUnits > 0 || i <= nDecimals; ++i) {
        if (i == nDecimals && nDecimals > 0)
            *--pText = '.';
        *--pText = static_cast<char>('0' + nUnits % 10);
        nUnits /= 10;
    }
    if (dUnits < 0.0)
        *--pText = '-';
    const auto nLength = static_cast<int>(pEnd - pText);
    sLine.append(static_cast<std::size_t>(std::max(nWidth - nLength, 0)), ' ');
    sLine.append(pText, static_cast<std::size_t>(nLength));
}

void FieldAppend(std::string& sLine, std::string_view sText, int nWidth)
{
    const auto nRoom = static_cast<std::size_t>(std::abs(nWidth));
    sText = sText.substr(0, nRoom);
    const std::size_t nBlanks = nRoom - sText.size();
    if (nWidth > 0)
        sLine.append(nBlanks, ' ');
    sLine.append(sText);
    if (nWidth < 0)
        sLine.append(nBlanks, ' ');
}

}  // namespace run533
