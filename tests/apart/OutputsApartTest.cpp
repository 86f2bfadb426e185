/// The engines' outputs, whole and spoilt, read by the program and by independently written
/// readers: both get the same values, or both refuse.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "apart/ApartOutputs.h"
#include "propagation/PropagationAreaLib.h"
#include "propagation/reader/ReaderLib.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

constexpr int kFrequencies = 10;

/// The outputs that engines left under these names, in alphabetical order.
std::vector<std::string> CapturedGet(const std::string& sFolder, const std::string& sBegin,
                                     const std::string& sExtension)
{
    std::vector<fs::path> aPath;
    for (const auto& entry : fs::directory_iterator(CAPTURED + ("/" + sFolder)))
        if (entry.path().filename().string().starts_with(sBegin)
            && entry.path().extension() == sExtension)
            aPath.push_back(entry.path());
    std::sort(aPath.begin(), aPath.end());
    std::vector<std::string> asBytes;
    for (const fs::path& pth : aPath) {
        asBytes.push_back(BytesRead(pth.string()));
        if (asBytes.back().empty())
            asBytes.pop_back();  // left by an engine that printed nothing
    }
    return asBytes;
}

std::vector<std::string> Joined(std::vector<std::string> asText,
                                const std::vector<std::string>& asMore)
{
    asText.insert(asText.end(), asMore.begin(), asMore.end());
    return asText;
}

/// The head and the first points of a grid.
std::string GridBegin(const std::string& sGrid)
{
    constexpr std::size_t kMost = 12000;
    return sGrid.size() <= kMost ? sGrid : sGrid.substr(0, sGrid.find('\n', kMost) + 1);
}

double OptionalGet(float fValue) { return std::isnan(fValue) ? kApartNone : fValue; }

class OutputsApart : public testing::Test {
protected:
    // Every variant is written to a file, so use a disk in memory if there is one.
    const EnvironmentSet m_env{
        "TMPDIR", fs::exists("/dev/shm") ? std::optional<std::string>("/dev/shm") : std::nullopt};
    const TempFolder m_folder;
    const EnvironmentSet m_root{"HOPCAST_ITSHFBC", m_folder.Path()};

    Outcome PointRead(const std::string& sBytes, bool bRec533) const
    {
        const std::string sPath = m_folder.Write("sound.out", sBytes);
        auto resFile = TextFile::Open(sPath);
        PropagationTable table(kFrequencies);
        Outcome outcome;
        Request request;
        request.nData = kFrequencies;
        request.afFrequency.assign(1, 0.0F);
        for (const double d : KhzGet()) request.afFrequency.push_back(static_cast<float>(d));
        if (!(bRec533 ? ReaderRec533(resFile.ValueGet(), request, 1, kFrequencies, table)
                      : ReaderIcepacVoacap(resFile.ValueGet(), 1, kFrequencies, table)))
            outcome.Refuse();
        if (bRec533)
            Rec533Collect(table, outcome);
        else
            VoacapCollect(table, outcome);
        return outcome;
    }
    static std::vector<double> KhzGet()
    {
        return {2000, 4000, 6000, 8000, 10125, 12000, 14100, 16000, 18000, 20000};
    }

private:
    using Cells = CellArray<float>;
    static void RowCollect(const char* sName, const Cells& cells, int iHour, Outcome& to)
    {
        for (int i = 1; i <= kFrequencies; ++i)
            to.Add(sName, OptionalGet(cells(iHour, i)), iHour, i);
    }
    static void PathCollect(const PropagationTable& table, Outcome& to)
    {
        to.Add("azimuth there", table.fAzimuthTxRc);
        to.Add("azimuth back", table.fAzimuthRcTx);
        to.Add("range", table.fRange);
    }
    static void HourCollect(const PropagationTable& table, int iHour, Outcome& to)
    {
        to.Add("MUF", table.fMUF[iHour], iHour);
        to.Add("LUF", table.fLUF[iHour], iHour);
        to.AddNear("FOT", OptionalGet(table.fFOT[iHour]), iHour);
    }
    static void VoacapCollect(const PropagationTable& table, Outcome& to)
    {
        for (int iHour = 1; iHour <= kHourCount; ++iHour) HourCollect(table, iHour, to);
        PathCollect(table, to);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            for (int i = 1; i <= kFrequencies; ++i)
                to.Add("mode", table.sLayer(iHour, i), iHour, i);
            RowCollect("angle", table.fTakeoffAngle, iHour, to);
            RowCollect("delay", table.fTimeDelay, iHour, to);
            RowCollect("height", table.fVirtualHeight, iHour, to);
            RowCollect("signal", table.fSdBW, iHour, to);
            RowCollect("noise", table.fNdBW, iHour, to);
            RowCollect("ratio", table.fSnr, iHour, to);
            RowCollect("reliability", table.fReliability, iHour, to);
            RowCollect("lower", table.fSnrLower, iHour, to);
            RowCollect("upper", table.fSnrUpper, iHour, to);
        }
    }
    static void Rec533Collect(const PropagationTable& table, Outcome& to)
    {
        PathCollect(table, to);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            HourCollect(table, iHour, to);
            for (int i = 1; i <= kFrequencies; ++i)
                to.Add("mode", table.sLayer(iHour, i), iHour, i);
            for (int i = 1; i <= kFrequencies; ++i) {
                to.Add("angle", table.fTakeoffAngle(iHour, i), iHour, i);
                to.AddNear("signal", table.fSdBW(iHour, i), iHour, i);
                to.AddNear("noise", table.fNdBW(iHour, i), iHour, i);
            }
            RowCollect("ratio", table.fSnr, iHour, to);
            RowCollect("reliability", table.fReliability, iHour, to);
        }
    }
};

TEST_F(OutputsApart, VoacapsPathsAreReadAlikeByAReaderWrittenApart)
{
    OutcomesCompare(
        Joined(CapturedGet("voacap", "p2p", ".out"), CapturedGet("failures", "voacap", ".out")),
        [&](const std::string& sBytes, std::size_t) { return PointRead(sBytes, false); },
        [](const std::string& sBytes, std::size_t) { return ApartVoacap(sBytes, kFrequencies); },
        150, 150);
}

TEST_F(OutputsApart, Rec533sPathsAreReadAlikeByAReaderWrittenApart)
{
    OutcomesCompare(
        Joined(CapturedGet("rec533", "p2p", ".out"), CapturedGet("failures", "rec533", ".out")),
        [&](const std::string& sBytes, std::size_t) { return PointRead(sBytes, true); },
        [](const std::string& sBytes, std::size_t) { return ApartRec533(sBytes, KhzGet()); }, 150,
        150);
}

TEST_F(OutputsApart, GridsAreReadAlikeByAReaderWrittenApart)
{
    std::vector<std::string> asSample;
    for (const char* sFolder : {"rec533", "voacap", "failures"})
        for (const char* sExtension : {".rg1", ".vg1"})
            for (const std::string& sGrid : CapturedGet(sFolder, "", sExtension))
                asSample.push_back(GridBegin(sGrid));
    OutcomesCompare(
        asSample,
        [&](const std::string& sBytes, std::size_t) {
            // One reader serves the grids of all engines.
            m_folder.Write("areadata/working.rg1", sBytes);
            Outcome outcome;
            AreaFile file;
            EXPECT_FALSE(PropagationAreaOpenFile(kEngineRec533, file));
            for (int iPoint = 1;; ++iPoint) {
                int iNorth = 0, iEast = 0;
                double dLat = 0.0, dLon = 0.0;
                float fRatio = 0.0F;
                const auto res = PropagationAreaReadPoint(file, iNorth, iEast, dLat, dLon, fRatio);
                if (!res)
                    outcome.Refuse();
                if (!res || !res.ValueGet())
                    return outcome;
                outcome.Add("index north", iNorth, iPoint);
                outcome.Add("index east", iEast, iPoint);
                outcome.Add("latitude", dLat, iPoint);
                outcome.Add("longitude", dLon, iPoint);
                outcome.Add("ratio", fRatio, iPoint);
            }
        },
        [](const std::string& sBytes, std::size_t) { return ApartGrid(sBytes); }, 150, 150);
}

}  // namespace
