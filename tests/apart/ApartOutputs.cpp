#include "apart/ApartOutputs.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "apart/ApartText.h"

namespace {

constexpr int kHours = 24;
constexpr std::size_t kWidth = 5;

using Lines = std::vector<std::string>;

bool Holds(const std::string& sLine, const char* sLabel)
{
    return sLine.find(sLabel) != std::string::npos;
}

/// A file's lines and the position of the search for labels. A missing row reads as an empty line:
/// its modes are empty, its numbers fail.
class Rows {
public:
    explicit Rows(const std::string& sBytes) : m_asLine(ApartLines(sBytes)) {}

    std::string Next() { return m_nNext < m_asLine.size() ? m_asLine[m_nNext++] : std::string(); }
    std::string Find(const char* sLabel)
    {
        const auto it = std::find_if(From(m_nNext), m_asLine.cend(), [&](const std::string& sLine) {
            return Holds(sLine, sLabel);
        });
        m_asPassed.insert(m_asPassed.end(), From(m_nNext), it);
        m_nNext = static_cast<std::size_t>(it - m_asLine.cbegin());
        return Next();
    }
    /// Forgets the rows that were skipped.
    void PassedClear() { m_asPassed.clear(); }
    /// The last row with the label among those that Find has skipped since then.
    [[nodiscard]] std::optional<std::string> Passed(const char* sLabel) const
    {
        std::optional<std::string> sFound;
        for (const std::string& sLine : m_asPassed)
            if (Holds(sLine, sLabel))
                sFound = sLine;
        return sFound;
    }

private:
    [[nodiscard]] Lines::const_iterator From(std::size_t n) const
    {
        return m_asLine.cbegin() + static_cast<std::ptrdiff_t>(n);
    }
    Lines m_asLine;
    std::size_t m_nNext = 0;
    Lines m_asPassed;
};

std::vector<std::string> Fields(const std::string& sLine, std::size_t nFirstColumn,
                                std::size_t nCount)
{
    std::vector<std::string> asField;
    for (std::size_t n = 0; n < nCount; ++n) {
        const std::size_t nColumn = nFirstColumn + kWidth * n;
        asField.push_back(ApartColumns(sLine, nColumn, nColumn + kWidth - 1));
    }
    return asField;
}

/// Collects the outcome; refuses the file at a number that cannot be read.
class Collector {
public:
    float Single(const std::string& sField)
    {
        const auto fValue = ApartSingle(sField);
        if (!fValue)
            outcome.Refuse();
        return fValue.value_or(0.0F);
    }
    /// A frequency, printed in MHz.
    void Khz(const char* sName, const std::string& sField, int iHour)
    {
        const auto dMhz = ApartNumber(sField);
        if (!dMhz)
            outcome.Refuse();
        outcome.Add(sName, static_cast<float>(dMhz.value_or(0.0) * 1000.0), iHour);
    }
    void OptionalKhz(const char* sName, const std::string& sField, int iHour)
    {
        const auto dMhz = ApartNumber(sField);
        outcome.AddNear(sName, dMhz ? *dMhz * 1000.0 : kApartNone, iHour);
    }
    void Path(const std::string& sLine)
    {
        outcome.Add("azimuth there", Single(ApartColumns(sLine, 43, 48)));
        outcome.Add("azimuth back", Single(ApartColumns(sLine, 51, 56)));
        outcome.Add("range", Single(ApartColumns(sLine, 60, 66)));
    }
    void Modes(const std::vector<std::string>& asField, int iHour)
    {
        for (std::size_t n = 0; n < asField.size(); ++n)
            outcome.Add("mode", ApartUtf8(asField[n]), iHour, static_cast<int>(n) + 1);
    }
    void Numbers(const char* sName, const std::vector<std::string>& asField, int iHour)
    {
        for (std::size_t n = 0; n < asField.size(); ++n)
            outcome.Add(sName, Single(asField[n]), iHour, static_cast<int>(n) + 1);
    }
    void Optionals(const char* sName, const std::vector<std::string>& asField, int iHour)
    {
        for (std::size_t n = 0; n < asField.size(); ++n) {
            const auto fValue = ApartSingle(asField[n]);
            outcome.Add(sName, fValue ? *fValue : kApartNone, iHour, static_cast<int>(n) + 1);
        }
    }

    Outcome outcome;
};

}  // namespace

Outcome ApartVoacap(const std::string& sBytes, std::size_t nFrequencies)
{
    constexpr std::size_t kFirst = 12;
    Rows rows(sBytes);
    Collector to;
    (void)rows.Find("MUF    LUF");
    (void)rows.Next();
    for (int iHour = 1; iHour <= kHours; ++iHour) {
        const std::string sLine = rows.Next();
        to.Khz("MUF", ApartColumns(sLine, 39, 43), iHour);
        to.Khz("LUF", ApartColumns(sLine, 46, 50), iHour);
        to.OptionalKhz("FOT", ApartColumns(sLine, 18, 22), iHour);
    }
    (void)rows.Find("AZIMUTHS");
    to.Path(rows.Next());
    for (int iHour = 1; iHour <= kHours; ++iHour) {
        const auto fnCut = [&](const std::string& sLine) {
            return Fields(sLine, kFirst, nFrequencies);
        };
        to.Modes(fnCut(rows.Find("MODE")), iHour);
        rows.PassedClear();
        to.Numbers("angle", fnCut(rows.Find("ANGLE")), iHour);
        to.Numbers("delay", fnCut(rows.Find("DELAY")), iHour);
        to.Numbers("height", fnCut(rows.Find("V HITE")), iHour);
        to.Numbers("signal", fnCut(rows.Find("S DBW")), iHour);
        to.Numbers("noise", fnCut(rows.Find("N DBW")), iHour);
        to.Numbers("ratio", fnCut(rows.Find("SNRxx")), iHour);
        to.Optionals("reliability", fnCut(rows.Passed("REL").value_or("")), iHour);
        to.Optionals("lower", fnCut(rows.Passed("SNR LW").value_or("")), iHour);
        to.Optionals("upper", fnCut(rows.Passed("SNR UP").value_or("")), iHour);
    }
    return to.outcome;
}

Outcome ApartRec533(const std::string& sBytes, const std::vector<double>& aKhz)
{
    constexpr std::size_t kFirst = 9;
    Rows rows(sBytes);
    Collector to;
    (void)rows.Find("AZIMUTHS");
    to.Path(rows.Next());
    for (int iHour = 1; iHour <= kHours; ++iHour) {
        const auto fnCut = [&](const std::string& sLine) {
            return Fields(sLine, kFirst, aKhz.size());
        };
        const std::string sHead = rows.Find("FREQ");
        to.Khz("MUF", ApartColumns(sHead, 5, 8), iHour);
        to.Khz("LUF", ApartColumns(sHead, 65, 68), iHour);
        to.OptionalKhz("FOT", ApartColumns(sHead, 69, 73), iHour);
        to.Modes(fnCut(rows.Find("MODE")), iHour);
        const auto asAngle = fnCut(rows.Find("ANGL"));
        const auto asField = fnCut(rows.Find("DBU"));
        const auto asRatio = fnCut(rows.Find("S/N"));
        rows.PassedClear();
        for (std::size_t n = 0; n < aKhz.size(); ++n) {
            const int iColumn = static_cast<int>(n) + 1;
            const double dSignal =
                to.Single(asField[n]) - 137.0 - 20.0 * std::log10(aKhz[n] / 20000.0);
            to.outcome.Add("angle", ApartSingle(asAngle[n]).value_or(0.0F), iHour, iColumn);
            to.outcome.AddNear("signal", dSignal, iHour, iColumn);
            to.outcome.AddNear("noise", dSignal - to.Single(asRatio[n]), iHour, iColumn);
        }
        to.Numbers("ratio", fnCut(rows.Find("SNxx")), iHour);
        to.Optionals("reliability", fnCut(rows.Passed("FS/N").value_or("")), iHour);
    }
    return to.outcome;
}

Outcome ApartGrid(const std::string& sBytes)
{
    constexpr std::size_t kFieldWidth = 6;
    Outcome outcome;
    const Lines asLine = ApartLines(sBytes);
    auto it = std::find_if(asLine.begin(), asLine.end(),
                           [](const std::string& sLine) { return Holds(sLine, "Latitude"); });
    if (it == asLine.end())
        return outcome;  // a grid without points
    const std::string sHead = *it;
    const bool bVoacap = Holds(sHead, " SNRxx");
    const std::string sLabel = bVoacap ? " SNRxx" : " SNxx";
    const std::size_t nAt = sHead.find(sLabel);
    int iPoint = 0;
    for (++it; it != asLine.end(); ++it) {
        const std::string& sLine = *it;
        ++iPoint;
        if (nAt == std::string::npos || sLine.size() < nAt + sLabel.size()) {
            outcome.Refuse();
            return outcome;
        }
        std::string sRatio = sLine.substr(nAt, kFieldWidth);
        // REC533's label starts one column right of its field, so a minus may come before the cut.
        if (!bVoacap && nAt > 0 && sLine[nAt - 1] == '-')
            sRatio.insert(0, "-");
        const auto dSouth = ApartNumber(ApartColumns(sLine, 4, 6));
        const auto dWest = ApartNumber(ApartColumns(sLine, 1, 3));
        const auto dLat = ApartNumber(ApartColumns(sLine, 7, 16));
        const auto dLon = ApartNumber(ApartColumns(sLine, 17, 26));
        const auto fRatio = ApartSingle(sRatio);
        if (!dSouth || !dWest || !dLat || !dLon || !fRatio) {
            outcome.Refuse();
            return outcome;
        }
        outcome.Add("index north", std::nearbyint(*dSouth), iPoint);
        outcome.Add("index east", std::nearbyint(*dWest), iPoint);
        outcome.Add("latitude", *dLat, iPoint);
        outcome.Add("longitude", *dLon, iPoint);
        outcome.Add("ratio", *fRatio, iPoint);
    }
    return outcome;
}
