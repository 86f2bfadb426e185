// The user's own power with engine programs: the decks stay the same, and the results are shifted
// once.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>

#include "propagation/EngineCases.h"
#include "propagation/FakeEngine.h"
#include "propagation/PowerTable.h"
#include "propagation/PropagationAreaLib.h"
#include "propagation/PropagationLib.h"
#include "propagation/itshfbc/ProcessEngine.h"
#include "support/MsgRecorder.h"

namespace {

struct PowerCase {
    int iModel;
    const char* sName;
    const char* sProgram;
    const char* sOutput;  ///< captured output that the model's reader reads
    const char* sGrid;    ///< captured grid and its extension
    const char* sGridExtension;
};

const PowerCase kPowerCases[] = {
    {kEngineIcepac, "ICEPAC", "icepacw.exe", "voacap/p2p_01", "voacap/area_02", ".vg1"},
    {kEngineVoacap, "VOACAP", "voacapw.exe", "voacap/p2p_01", "voacap/area_02", ".vg1"},
    {kEngineRec533, "REC533", "rec533w.exe", "rec533/p2p_01", "rec533/area_02", ".rg1"},
};

std::ostream& operator<<(std::ostream& stm, const PowerCase& c) { return stm << c.sName; }

/// Each engine with each antenna type; type 7 is unknown.
class OwnPower : public testing::TestWithParam<std::tuple<PowerCase, int>> {
protected:
    static constexpr int kCount = 12;  // two chunks, one frequency out of range

    [[nodiscard]] Request RequestGet(float fPower) const
    {
        Request request = InputMake(CircuitCaseGet("rec533/p2p_01"));
        request.iModel = m_case.iModel;
        request.iAntennaType = m_iAntenna;
        request.nYear = kCapturedYear;
        request.nData = kCount;
        request.afFrequency.assign(1, 0.0F);
        for (int i = 1; i <= kCount; ++i)
            request.afFrequency.push_back(i == 3 ? 50.0F : static_cast<float>(i) * 1000.0F);
        request.fPower = fPower;
        return request;
    }
    [[nodiscard]] PropagationTable TableGet(float fPower)
    {
        PropagationTable table(kCount);
        EXPECT_TRUE(PropagationRun(RequestGet(fPower), table, ToldFailures()));
        return table;
    }
    [[nodiscard]] AreaRequest AreaGet(float fPower) const
    {
        AreaRequest request = AreaInputMake(AreaCases().at(1));
        request.iModel = m_case.iModel;
        request.iAntennaType = m_iAntenna;
        request.fPower = fPower;
        return request;
    }
    [[nodiscard]] std::vector<AreaPoint> PointsGet(float fPower) const
    {
        std::vector<AreaPoint> aPoints;
        for (const Failure& failure : AreaPointsRead(AreaGet(fPower), aPoints))
            ADD_FAILURE() << failure.sText << ", " << failure.sDetail;
        aPoints.resize(std::max<std::size_t>(aPoints.size(), 1));  // callers read the first point
        return aPoints;
    }
    /// Every deck from nFirst on must equal the one written nCalls runs earlier.
    void DecksExpectEqual(int nFirst, int nCalls) const
    {
        for (int n = nFirst; n <= m_root.CallCount(); ++n)
            EXPECT_TRUE(m_root.DeckGet(n) == m_root.DeckGet(n - nCalls)) << n;
    }

    const PowerCase m_case = std::get<0>(GetParam());
    const int m_iAntenna = std::get<1>(GetParam());
    FakeRoot m_root;
    MsgRecorder m_msg;
};

INSTANTIATE_TEST_SUITE_P(Engines, OwnPower,
                         testing::Combine(testing::ValuesIn(kPowerCases),
                                          testing::Values(0, 1, 2, 7)),
                         [](const auto& test) {
                             return std::get<0>(test.param).sName + std::string("_")
                                    + std::to_string(std::get<1>(test.param));
                         });

TEST_P(OwnPower, Of1000WattsIs10DecibelAboveThatOf100InEveryCellOfATable)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sOutput, ".out"));
    const PropagationTable tableCard = TableGet(0.0F);
    const int nCalls = m_root.CallCount();
    const PropagationTable tableLow = TableGet(100.0F);
    const PropagationTable tableHigh = TableGet(1000.0F);
    ASSERT_EQ(m_root.CallCount(), 3 * nCalls);
    DecksExpectEqual(nCalls + 1, nCalls);
    const double dLow =
        10.0 * std::log10(100.0 / CardPowerGet(m_case.iModel, m_iAntenna, DeckKind::PointToPoint));
    for (int i = 1; i <= kCount; ++i) {
        EXPECT_EQ(tableHigh.PresentIs(i), i != 3);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            SCOPED_TRACE("hour " + std::to_string(iHour) + ", frequency " + std::to_string(i));
            if (i != 3) {
                EXPECT_NEAR(tableHigh.fSnr(iHour, i) - tableLow.fSnr(iHour, i), 10.0, 1e-4);
                EXPECT_NEAR(tableHigh.fSdBW(iHour, i) - tableLow.fSdBW(iHour, i), 10.0, 1e-4);
                EXPECT_NEAR(tableLow.fSnr(iHour, i) - tableCard.fSnr(iHour, i), dLow, 1e-4);
                EXPECT_NEAR(tableLow.fSdBW(iHour, i) - tableCard.fSdBW(iHour, i), dLow, 1e-4);
            }
            EXPECT_EQ(tableHigh.fNdBW(iHour, i), tableCard.fNdBW(iHour, i));
            EXPECT_TRUE(tableHigh.fReliability(iHour, i) == tableCard.fReliability(iHour, i)
                        || std::isnan(tableCard.fReliability(iHour, i)));
            EXPECT_TRUE(tableHigh.fSnrLower(iHour, i) == tableCard.fSnrLower(iHour, i)
                        || std::isnan(tableCard.fSnrLower(iHour, i)));
            EXPECT_EQ(tableHigh.fLUF[iHour], tableCard.fLUF[iHour]);
        }
    }
    EXPECT_EQ(tableHigh.request.fPower, 1000.0F);
}

TEST_P(OwnPower, IsInThePredictionOfTheEngineOnce)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sOutput, ".out"));
    const PropagationTable table = TableGet(100.0F);
    const Prediction prediction = ProcessEngine(m_case.iModel).Predict(RequestGet(100.0F), {});
    ASSERT_TRUE(prediction.bOk);
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        EXPECT_EQ(prediction.table.fSnr(iHour, 1), table.fSnr(iHour, 1));
}

TEST_P(OwnPower, Of1000WattsIs10DecibelAboveThatOf100AtEveryPointOfAnArea)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sGrid, m_case.sGridExtension));
    const std::vector<AreaPoint> aCard = PointsGet(0.0F);
    const std::vector<AreaPoint> aLow = PointsGet(100.0F);
    const std::vector<AreaPoint> aHigh = PointsGet(1000.0F);
    ASSERT_EQ(m_root.CallCount(), 3);
    DecksExpectEqual(2, 1);
    const double dLow =
        10.0 * std::log10(100.0 / CardPowerGet(m_case.iModel, m_iAntenna, DeckKind::Area));
    ASSERT_EQ(aCard.size(), 121U);
    ASSERT_EQ(aHigh.size(), aCard.size());
    int nShifted = 0;
    for (std::size_t n = 0; n < aCard.size(); ++n) {
        EXPECT_EQ(aHigh[n].dLat, aCard[n].dLat);
        if (aCard[n].fSnr <= -999.0F) {
            EXPECT_EQ(aHigh[n].fSnr, aCard[n].fSnr);
            continue;
        }
        EXPECT_NEAR(aHigh[n].fSnr - aLow[n].fSnr, 10.0, 1e-4);
        EXPECT_NEAR(aLow[n].fSnr - aCard[n].fSnr, dLow, 1e-4);
        ++nShifted;
    }
    EXPECT_GT(nShifted, 60);
}

TEST_P(OwnPower, IsNotAppliedToAGridOpenedWithoutARun)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath(m_case.sGrid, m_case.sGridExtension));
    const float fCard = PointsGet(0.0F).front().fSnr;
    AreaFile file;
    ASSERT_TRUE(Succeeded(PropagationAreaOpen(AreaGet(20.0F), file)));
    file.Close();
    ASSERT_TRUE(Succeeded(PropagationAreaOpenFile(m_case.iModel, file)));
    int iIndex1 = 0;
    int iIndex2 = 0;
    AreaPoint point;
    ASSERT_TRUE(
        PropagationAreaReadPoint(file, iIndex1, iIndex2, point.dLat, point.dLon, point.fSnr));
    EXPECT_EQ(point.fSnr, fCard);
}

}  // namespace
