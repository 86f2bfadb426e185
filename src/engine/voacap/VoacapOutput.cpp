#include "engine/voacap/VoacapOutput.h"

#include <bitset>
#include <cmath>
#include <string_view>

#include "system/FileLib.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr int kHours = 24;
constexpr int kHourWidth = 6;      // first field of a block's first line
constexpr int kFrequencyCol = 12;  // after hour and MUF; fields F5.1
constexpr int kFrequencyWidth = 5;
constexpr double kHalfStep = 0.05;  // decks and outputs round to 0.1 MHz
constexpr int kIndexWidth = 3;      // grid: two counters of three columns
constexpr double kHalfIndex = 0.5;
constexpr std::string_view kSnrLabel = " SNRxx";

bool NumberIs(std::string_view sField, double dWanted, double dTolerance)
{
    const auto resNumber = NumberFromText(sField);
    return resNumber && std::abs(resNumber.ValueGet() - dWanted) < dTolerance;
}

/// The 24 hour blocks of a point-to-point output, line by line.
class HourBlocks {
public:
    explicit HourBlocks(std::span<const double> aFrequencies) : m_aFrequencies(aFrequencies) {}

    Result<void> LineTake(std::string_view sLine)
    {
        if (sLine.ends_with(" FREQ"))
            return BlockBegin(sLine);
        if (m_bOpen && TextTrim(sLine).ends_with("SNRxx")) {
            m_bOpen = false;
            ++m_nComplete;
        }
        return {};
    }
    Result<void> EndCheck() const
    {
        if (m_nComplete == kHours && !m_bOpen)
            return {};
        return RunError{NumberToText(m_nComplete) + " of 24 hour blocks"};
    }

private:
    Result<void> BlockBegin(std::string_view sLine)
    {
        const auto resHour = NumberFromText(TextColumns(sLine, 1, kHourWidth));
        const double dHour = resHour ? resHour.ValueGet() : 0.0;
        if (m_bOpen || !(dHour >= 1.0 && dHour <= kHours)
            || m_bitHours.test(static_cast<std::size_t>(dHour) - 1))
            return RunError{"hour blocks out of order"};
        m_bitHours.set(static_cast<std::size_t>(dHour) - 1);
        m_bOpen = true;
        int nCol = kFrequencyCol;
        for (const double dMHz : m_aFrequencies) {
            if (!NumberIs(TextColumns(sLine, nCol, kFrequencyWidth), dMHz, kHalfStep))
                return RunError{NumberToText(dMHz) + " MHz is missing"};
            nCol += kFrequencyWidth;
        }
        return {};
    }

    std::span<const double> m_aFrequencies;
    std::bitset<kHours> m_bitHours;
    bool m_bOpen = false;
    int m_nComplete = 0;
};

/// Skips to the head of the grid. @return the number of columns of a complete point.
Result<std::size_t> GridHeadRead(TextFile& file)
{
    std::string sLine;
    while (true) {
        const auto resRead = file.LineRead(sLine);
        if (!resRead)
            return resRead.ErrorGet();
        if (!resRead.ValueGet())
            return RunError{"no grid head"};
        if (sLine.find("Latitude") == std::string::npos)
            continue;
        const std::size_t nSnr = sLine.find(kSnrLabel);
        if (nSnr == std::string::npos)
            return RunError{"no SNRxx column"};
        return nSnr + kSnrLabel.size();
    }
}

}  // namespace

Result<void> VoacapOutputPointCheck(const std::string& sPath, std::span<const double> aFrequencies)
{
    auto resFile = TextFile::Open(sPath);
    if (!resFile)
        return RunError{"no output file"};
    HourBlocks blocks(aFrequencies);
    std::string sLine;
    std::string sLast;
    while (true) {
        const auto resRead = resFile.ValueGet().LineRead(sLine);
        if (!resRead)
            return resRead.ErrorGet();
        if (!resRead.ValueGet())
            break;
        if (const auto resTaken = blocks.LineTake(sLine); !resTaken)
            return resTaken;
        if (!TextTrim(sLine).empty())
            sLast = sLine;
    }
    if (const auto resBlocks = blocks.EndCheck(); !resBlocks)
        return resBlocks;
    if (sLast.find("END OF RUN") == std::string::npos)
        return RunError{"no END OF RUN"};
    return {};
}

Result<void> VoacapOutputGridCheck(const std::string& sPath, int nGrid)
{
    auto resFile = TextFile::Open(sPath);
    if (!resFile)
        return RunError{"no grid file"};
    TextFile& file = resFile.ValueGet();
    const auto resWidth = GridHeadRead(file);
    if (!resWidth)
        return resWidth.ErrorGet();
    const int nWanted = nGrid * nGrid;
    int nPoints = 0;
    std::string sLine;
    while (true) {
        const auto resRead = file.LineRead(sLine);
        if (!resRead)
            return resRead.ErrorGet();
        if (!resRead.ValueGet())
            break;
        const int nEast = nPoints % nGrid + 1;
        const int nNorth = nPoints / nGrid + 1;
        if (nPoints == nWanted || sLine.size() < resWidth.ValueGet()
            || !NumberIs(TextColumns(sLine, 1, kIndexWidth), nEast, kHalfIndex)
            || !NumberIs(TextColumns(sLine, 1 + kIndexWidth, kIndexWidth), nNorth, kHalfIndex))
            return RunError{"grid point " + NumberToText(nPoints + 1) + " is not as expected"};
        ++nPoints;
    }
    if (nPoints != nWanted)
        return RunError{NumberToText(nPoints) + " of " + NumberToText(nWanted) + " grid points"};
    return {};
}
