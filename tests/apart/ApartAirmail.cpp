#include "apart/ApartAirmail.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <vector>

#include "apart/ApartIni.h"
#include "apart/ApartText.h"

namespace {

constexpr std::size_t kValueMost = 511;
constexpr double kLatMost = 90.0, kLonMost = 180.0;

/// "38°30.00'N": the degrees, the minutes, and the letter that makes the angle negative.
std::optional<double> Angle(const std::string& sText, const char* sNegative)
{
    static const std::string kDegree = "\u00B0";
    const std::size_t nDegree = sText.find(kDegree);
    if (nDegree == std::string::npos)
        return std::nullopt;
    const std::size_t nMinutes = nDegree + kDegree.size();
    const std::size_t nEnd = sText.find('\'', nMinutes);
    if (nEnd == std::string::npos)
        return std::nullopt;
    const auto dDegrees = ApartNumber(sText.substr(0, nDegree));
    const auto dMinutes = ApartNumber(sText.substr(nMinutes, nEnd - nMinutes));
    if (!dDegrees || !dMinutes)
        return std::nullopt;
    const double dValue = *dDegrees + *dMinutes / 60.0;
    return sText.substr(nEnd + 1) == sNegative ? -dValue : dValue;
}

/// A text's runs of digits, and its shape: each run becomes a 9, several blanks become one, letters
/// become upper case.
struct Shape {
    std::string sShape;
    std::vector<int> anNumber;
    std::vector<int> anDigits;
};

Shape ShapeOf(const std::string& sText)
{
    constexpr int kNumberMost = 99999;
    Shape shape;
    bool bDigit = false;
    for (const char c : ApartTrim(sText)) {
        if (c >= '0' && c <= '9') {
            if (!bDigit) {
                shape.sShape += '9';
                shape.anNumber.push_back(0);
                shape.anDigits.push_back(0);
            }
            bDigit = true;
            int& nNumber = shape.anNumber.back();
            nNumber = std::min(nNumber * 10 + (c - '0'), kNumberMost);
            ++shape.anDigits.back();
            continue;
        }
        bDigit = false;
        if (c != ' ' || shape.sShape.back() != ' ')
            shape.sShape += static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    }
    return shape;
}

/// Year, month, day, hour, minute, second; nothing if the text is no date.
std::optional<std::vector<int>> Date(const std::string& sText)
{
    constexpr int kYearLeast = 100;
    Shape shape = ShapeOf(sText);
    bool bHalf = false, bAfternoon = false;
    if (shape.sShape.ends_with("AM") || shape.sShape.ends_with("PM")) {
        bHalf = true;
        bAfternoon = shape.sShape.ends_with("PM");
        shape.sShape = ApartTrim(shape.sShape.substr(0, shape.sShape.size() - 2));
    }
    const std::string sDate = shape.sShape.substr(0, 5);
    const std::string sTime = shape.sShape.substr(std::min(shape.sShape.size(), sDate.size()));
    if ((sDate != "9-9-9" && sDate != "9/9/9")
        || (sTime.empty() ? bHalf : sTime != " 9:9" && sTime != " 9:9:9"))
        return std::nullopt;
    // The year has four digits, everything else one or two.
    const std::size_t nYear = shape.anDigits[0] > 2 ? 0 : 2;
    for (std::size_t n = 0; n < shape.anDigits.size(); ++n)
        if (n == nYear ? shape.anDigits[n] != 4 : shape.anDigits[n] > 2)
            return std::nullopt;
    if (sDate == "9-9-9" && nYear != 0)
        return std::nullopt;
    std::vector<int> an = shape.anNumber;
    an.resize(6);
    if (nYear != 0) {
        std::rotate(an.begin(), an.begin() + 2, an.begin() + 3);  // the year first
        if (an[1] > 12)
            std::swap(an[1], an[2]);
    }
    const bool bLeap = (an[0] % 4 == 0 && an[0] % 100 != 0) || an[0] % 400 == 0;
    const std::vector<int> anDays{0, 31, bLeap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (an[0] < kYearLeast || an[1] < 1 || an[1] > 12 || an[2] < 1
        || an[2] > anDays[static_cast<std::size_t>(an[1])] || an[4] > 59 || an[5] > 59)
        return std::nullopt;
    if (bHalf ? an[3] < 1 || an[3] > 12 : an[3] > 23)
        return std::nullopt;
    if (bHalf)
        an[3] = an[3] % 12 + (bAfternoon ? 12 : 0);
    return an;
}

struct Source {
    const char *sSection, *sLatitude, *sLongitude, *sTime;
};

constexpr Source kSources[] = {
    {"Position Report", "Current Latitude", "Current Longitude", "Current Time"},
    {"Position Report", "Latitude", "Longitude", "DateTime"},
    {"Propagation", "Latitude", "Longitude", nullptr},
};

void PositionAdd(const ApartIni& ini, Outcome& to)
{
    for (const Source& source : kSources) {
        const auto fnText = [&](const char* sKey) {
            return ini.Get(source.sSection, sKey, kValueMost);
        };
        const auto dLat = Angle(fnText(source.sLatitude), "S");
        const auto dLon = Angle(fnText(source.sLongitude), "W");
        const std::string sTime = source.sTime != nullptr ? fnText(source.sTime) : "";
        if (!dLat || !dLon || (source.sTime != nullptr && sTime.empty()))
            continue;
        if (std::abs(*dLat) > kLatMost || std::abs(*dLon) > kLonMost)
            continue;
        const auto anTime =
            source.sTime != nullptr ? Date(sTime) : std::optional(std::vector<int>(6));
        if (!anTime) {
            to.Add("position", std::string("its time is no date"));
            return;
        }
        to.Add("latitude", *dLat);
        to.Add("longitude", *dLon);
        for (const int n : *anTime) to.Add("time", n);
        return;
    }
    to.Add("position", std::string("none"));
}

/// A Maidenhead square with the scale of the station lists.
std::optional<std::pair<double, double>> Square(const std::string& sText)
{
    std::string sGrid = ApartBytes(sText);
    for (char& c : sGrid)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 32);
    if (sGrid.size() == 4)
        sGrid += "MM";
    if (sGrid.size() < 6)
        return std::nullopt;
    const auto fnCode = [&](std::size_t n, char cZero) {
        return static_cast<unsigned char>(sGrid[n]) - static_cast<double>(cZero);
    };
    const auto fnAngle = [&](std::size_t n) {
        return fnCode(n, 'J') * 10.0 + fnCode(n + 2, '0') + fnCode(n + 4, 'A') * 59.0 / 23.0 / 60.0;
    };
    return std::pair(fnAngle(1), 2.0 * fnAngle(0));
}

std::string Before(const std::string& sText, char c) { return sText.substr(0, sText.find(c)); }

}  // namespace

Outcome ApartAirmailIni(const std::string& sBytes)
{
    const ApartIni ini(sBytes);
    Outcome outcome;
    outcome.Add("version", ini.Get("Settings", "Last Program Version", kValueMost));
    PositionAdd(ini, outcome);
    const auto fNumber = ApartSingle(ini.Get("Propagation", "SSN", kValueMost));
    outcome.Add("SSN", fNumber && *fNumber >= 0.0F && *fNumber <= 311.0F ? *fNumber : -1.0F);
    return outcome;
}

Outcome ApartStations(const std::string& sBytes)
{
    Outcome outcome;
    const ApartIni ini(sBytes);
    const auto asLine = ApartLines(sBytes);
    auto it = std::find(asLine.begin(), asLine.end(), "[Station Info]");
    if (it == asLine.end() || ++it == asLine.end() || it->find('=') == std::string::npos) {
        outcome.Refuse();
        return outcome;
    }
    for (; it != asLine.end() && it->find('=') != std::string::npos; ++it) {
        const std::string sKey = ApartUtf8(Before(*it, '='));
        outcome.Add("station", sKey);
        // A name with an undefined byte is listed, but its entry cannot be found.
        const bool bName = sKey.find("\uFFFD") == std::string::npos;
        const std::string sValue = bName ? ini.Get("Station Info", sKey, kValueMost) : "";
        const std::size_t nColon = sValue.find(':');
        const bool bColon = nColon != std::string::npos;
        // Up to the entry's first semicolon: one before the colon leaves nothing.
        const std::string sShown = Before(sValue, ';');
        outcome.Add("description", sShown.size() > nColon ? sShown.substr(nColon + 1) : "");
        const auto square = bColon ? Square(Before(sValue, ':')) : std::nullopt;
        const bool bThere =
            square && std::abs(square->first) <= kLatMost && std::abs(square->second) <= kLonMost;
        outcome.AddNear("latitude", bThere ? square->first : kLatMost * 2);
        outcome.AddNear("longitude", bThere ? square->second : kLonMost * 2);
    }
    return outcome;
}

std::optional<std::string> ApartInstallLog(const std::string& sBytes)
{
    static const std::string kKey = "NewCommonRoot= ";
    std::optional<std::string> sFolder;
    for (const std::string& sLine : ApartLines(sBytes)) {
        const std::size_t nAt = sLine.find(kKey);
        if (nAt == std::string::npos)
            continue;
        const std::string sRest = sLine.substr(nAt + kKey.size());
        if (sRest.empty())
            break;  // there is no last character to drop
        sFolder = ApartUtf8(sRest.substr(0, sRest.size() - 1));
    }
    return sFolder;
}

namespace {

/// Adds a character by the code of its escape sequence.
void CharacterAdd(std::u16string& sText, unsigned nCode) { sText += static_cast<char16_t>(nCode); }

std::string Utf8(const std::u16string& sText)
{
    std::string sUtf8;
    const auto fnAdd = [&](unsigned nCode) {
        const int nMore = nCode < 0x80 ? 0 : nCode < 0x800 ? 1 : nCode < 0x10000 ? 2 : 3;
        const unsigned nLead = nMore == 0 ? 0U : nMore == 1 ? 0xC0U : nMore == 2 ? 0xE0U : 0xF0U;
        sUtf8 += static_cast<char>(nLead | (nCode >> (6 * nMore)));
        for (int i = nMore - 1; i >= 0; --i)
            sUtf8 += static_cast<char>(0x80U | ((nCode >> (6 * i)) & 0x3FU));
    };
    for (std::size_t n = 0; n < sText.size(); ++n) {
        const bool bHigh = sText[n] >= 0xD800 && sText[n] < 0xDC00;
        const bool bLow = n + 1 < sText.size() && sText[n + 1] >= 0xDC00 && sText[n + 1] < 0xE000;
        if (bHigh && bLow) {
            fnAdd(0x10000U + (sText[n] - 0xD800U) * 0x400U + (sText[n + 1] - 0xDC00U));
            ++n;
        } else
            fnAdd(sText[n] >= 0xD800 && sText[n] < 0xE000 ? 0xFFFDU : sText[n]);
    }
    return sUtf8;
}

/// The first nCharacters characters of a UTF-8 text.
std::string ApartCut(const std::string& sText, std::size_t nCharacters)
{
    std::size_t n = 0;
    for (; n < sText.size(); ++n)
        if ((static_cast<unsigned char>(sText[n]) & 0xC0U) != 0x80 && nCharacters-- == 0)
            break;
    return sText.substr(0, n);
}

/// Takes up to nMost digits of the base at nAt, and moves nAt past them.
unsigned DigitsTake(const std::string& sText, std::size_t& nAt, const char* sDigits,
                    std::size_t nMost)
{
    const std::string sAll = sDigits;
    const unsigned nBase = sAll.size() > 10 ? 16 : 8;
    unsigned nCode = 0;
    for (std::size_t n = 0; n < nMost && nAt < sText.size(); ++n, ++nAt) {
        const std::size_t nDigit = sAll.find(static_cast<char>(
            sText[nAt] >= 'A' && sText[nAt] <= 'F' ? sText[nAt] + 32 : sText[nAt]));
        if (nDigit == std::string::npos)
            break;
        nCode = nCode * nBase + static_cast<unsigned>(nDigit);
    }
    return nCode;
}

/// Takes the quoted text that begins at nAt, and moves nAt past it; nothing if the text does not
/// end.
std::optional<std::u16string> QuotedTake(const std::string& sLine, std::size_t& nAt,
                                         const char* sQuotes = "\"\"")
{
    static const std::map<char, char> kShort{{'a', '\a'}, {'b', '\b'}, {'e', '\x1B'}, {'f', '\f'},
                                             {'n', '\n'}, {'r', '\r'}, {'t', '\t'},   {'v', '\v'}};
    std::u16string sText;
    if (nAt >= sLine.size() || sLine[nAt] != sQuotes[0])
        return std::nullopt;
    for (++nAt; nAt < sLine.size();) {
        const char c = sLine[nAt++];
        if (c == sQuotes[1])
            return sText;
        if (c != '\\') {
            CharacterAdd(sText, static_cast<unsigned char>(c));
            continue;
        }
        if (nAt == sLine.size())
            return std::nullopt;
        const char cEscape = sLine[nAt];
        if (cEscape == 'x')
            CharacterAdd(sText, DigitsTake(sLine, ++nAt, "0123456789abcdef", 4));
        else if (cEscape >= '0' && cEscape <= '7')
            CharacterAdd(sText, DigitsTake(sLine, nAt, "01234567", 3));
        else {
            CharacterAdd(sText, static_cast<unsigned char>(
                                    kShort.contains(cEscape) ? kShort.at(cEscape) : cEscape));
            ++nAt;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> ApartUserReg(const std::string& sBytes)
{
    constexpr std::size_t kBytesMost = 256;
    constexpr const char* kSection = "software\\sirius cybernetics\\airmail\\installation";
    const auto fnName = [](const std::optional<std::u16string>& sText) {
        return sText ? std::optional(ApartLower(Utf8(*sText))) : std::nullopt;
    };
    bool bSection = false;
    std::optional<std::u16string> sFolder;  // the last one counts
    for (const std::string& sLine : ApartLines(sBytes)) {
        std::size_t nAt = 0;
        if (sLine.starts_with('[')) {
            bSection = fnName(QuotedTake(sLine, nAt, "[]")) == kSection;
            continue;
        }
        if (!bSection || fnName(QuotedTake(sLine, nAt)) != "install folder"
            || sLine.substr(nAt, 1) != "=")
            continue;
        nAt += sLine.substr(nAt + 1).starts_with("str(2):") ? std::strlen("=str(2):") : 1;
        sFolder = QuotedTake(sLine, nAt);
    }
    if (!sFolder)
        return std::nullopt;
    // One byte for each character and one for the NUL. A NUL inside the text ends the text, but its
    // bytes count.
    const std::string sValue = ApartBytes(Utf8(*sFolder));
    // An empty value has no last character to drop.
    if (sValue.empty() || sValue.size() + 1 > kBytesMost)
        return std::nullopt;
    const std::u16string sShown = sFolder->substr(0, sFolder->find(u'\0'));
    return ApartCut(Utf8(sShown), sValue.size() - 1);
}
