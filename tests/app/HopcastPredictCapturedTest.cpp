/// The console program's numbers compared with those that the real engines printed.
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "app/HopcastPredictRig.h"
#include "propagation/EngineCases.h"
#include "propagation/PropagationTable.h"
#include "support/NeedVoacapl.h"
#include "system/NumberLib.h"

namespace {

std::vector<std::string> CommasCut(const std::string& sLine)
{
    std::vector<std::string> asPiece;
    std::istringstream stm(sLine);
    for (std::string sPiece; std::getline(stm, sPiece, ',');) asPiece.push_back(sPiece);
    return asPiece;
}

float Number(const std::string& sText)
{
    const auto res = NumberFromTextSingle(sText);
    EXPECT_TRUE(res) << sText;
    return res ? res.ValueGet() : 0.0F;
}

/// The number after a name in the program's JSON.
float JsonNumber(const std::string& sJson, const std::string& sName)
{
    const std::size_t nFrom = sJson.find('"' + sName + "\": ") + sName.size() + 4;
    return Number(sJson.substr(nFrom, sJson.find_first_of(",\n}", nFrom) - nFrom));
}

/// The program's csv read back into a table.
PropagationTable TableFromCsv(const std::string& sCsv, int nFrequencies)
{
    PropagationTable table(nFrequencies);
    std::istringstream stm(sCsv);
    std::string sLine;
    std::getline(stm, sLine);
    for (int iHour = 1; iHour <= 24; ++iHour) {
        for (int i = 1; i <= nFrequencies; ++i) {
            std::getline(stm, sLine);
            const std::vector<std::string> asPiece = CommasCut(sLine);
            EXPECT_EQ(asPiece.size(), 21u) << sLine;
            if (asPiece.size() != 21)
                return table;
            EXPECT_EQ(asPiece[0], NumberToText(iHour));
            EXPECT_EQ(asPiece[1], NumberToText(iHour - 1));
            table.fMUF[iHour] = Number(asPiece[2]);
            table.fLUF[iHour] = Number(asPiece[3]);
            table.sLayer(iHour, i) = asPiece[5];
            table.fTakeoffAngle(iHour, i) = Number(asPiece[6]);
            table.fTimeDelay(iHour, i) = Number(asPiece[7]);
            table.fVirtualHeight(iHour, i) = Number(asPiece[8]);
            table.fSdBW(iHour, i) = Number(asPiece[9]);
            table.fNdBW(iHour, i) = Number(asPiece[10]);
            table.fSnr(iHour, i) = Number(asPiece[11]);
        }
    }
    return table;
}

Words CircuitWords(const CircuitCase& c)
{
    const auto Pair = [](double dA, double dB) {
        return NumberToText(dA) + "," + NumberToText(dB);
    };
    std::string sFrequencies;
    for (const double dKhz : c.adKilohertz)
        sFrequencies += (sFrequencies.empty() ? "" : ",") + NumberToText(dKhz);
    return {"--model",
            "voacap",
            "--format",
            "csv",
            "--tx=" + Pair(c.dTxLat, c.dTxLon),
            "--rc=" + Pair(c.dRcLat, c.dRcLon),
            "--month",
            NumberToText(c.nMonth),
            "--coefficients",
            c.sCoefficients,
            "--ssn",
            NumberToText(c.dSunSpots),
            "--q-index",
            NumberToText(c.dQIndex),
            "--noise",
            NumberToText(c.dNoise),
            "--takeoff",
            NumberToText(c.dTakeoff),
            "--reliability",
            NumberToText(c.dReliability),
            "--multipath-power",
            NumberToText(c.dMultipathPower),
            "--multipath-delay",
            NumberToText(c.dMultipathDelay),
            "--layers",
            Pair(c.layers.dE, c.layers.dF1) + "," + Pair(c.layers.dF2, c.layers.dEs),
            "--frequencies",
            sFrequencies};
}

class HopcastPredictVoacap : public HopcastPredict,
                             public testing::WithParamInterface<CircuitCase> {};
TEST_P(HopcastPredictVoacap, GivesTheCapturedNumbersThroughTheLauncher)
{
    NEED_VOACAPL();
    const CircuitCase& c = GetParam();
    Words asWords = CircuitWords(c);
    if (c.iAntenna <= 2) {
        asWords.insert(asWords.end(), {"--antenna", NumberToText(c.iAntenna)});
    } else {
        // The command line offers no type without antenna cards, but a profile may hold one.
        const std::string sProfile = m_tmp.Write(
            "a.ini", "[Propagation Model]\nAntenna Type=" + NumberToText(c.iAntenna) + "\n");
        asWords.insert(asWords.end(), {"--profile", sProfile});
    }
    const ProgramResult res = Predict(asWords);
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sError, "");
    PropagationTable table = TableFromCsv(res.sOut, static_cast<int>(c.adKilohertz.size()));
    asWords[3] = "json";
    const ProgramResult resJson = Predict(asWords);
    ASSERT_EQ(resJson.nStatus, 0) << resJson.sError;
    table.fAzimuthTxRc = JsonNumber(resJson.sOut, "azimuth_tx_rc");
    table.fAzimuthRcTx = JsonNumber(resJson.sOut, "azimuth_rc_tx");
    table.fRange = JsonNumber(resJson.sOut, "range_nmi");
    TableCompare(c, table, 1, false);
}
std::vector<CircuitCase> VoacapCases()
{
    std::vector<CircuitCase> aCase;
    for (const CircuitCase& c : CircuitCases()) {
        if (c.iModel == kEngineVoacap)
            aCase.push_back(c);
    }
    return aCase;
}
INSTANTIATE_TEST_SUITE_P(Circuits, HopcastPredictVoacap, testing::ValuesIn(VoacapCases()),
                         [](const testing::TestParamInfo<CircuitCase>& prm) {
                             return CaseName(prm.param.sName);
                         });

TEST_F(HopcastPredict, TheShippedProfilePredictsWithTheBuiltInEngine)
{
    const Words asShipped{"--profile", SHIPPED_PROFILE, "--month", "11", "--ssn", "100"};
    const EnvironmentSet forced("CLICOLOR_FORCE", "1");
    const EnvironmentSet wanted("NO_COLOR", std::nullopt);
    const ProgramResult res = Predict(asShipped);
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_EQ(res.sError, "");
    EXPECT_TRUE(
        res.sOut.starts_with("Hopcast prediction: REC533 (built-in), month 11, sunspot "
                             "number 100 (given)\n"))
        << res.sOut;
    for (int iHour = 0; iHour < 24; ++iHour) {
        const std::string sHour = (iHour < 10 ? "\n 0" : "\n ") + std::to_string(iHour) + "\x1b[";
        EXPECT_NE(res.sOut.find(sHour), std::string::npos) << iHour << "\n" << res.sOut;
    }
    // The run's numbers must be plausible for a real path.
    const ProgramResult resCsv =
        Predict({"--profile", SHIPPED_PROFILE, "--month", "11", "--ssn", "100", "--format", "csv"});
    ASSERT_EQ(resCsv.nStatus, 0) << resCsv.sError;
    const PropagationTable table = TableFromCsv(resCsv.sOut, 15);
    float fBest = -999.0F;
    for (int iHour = 1; iHour <= 24; ++iHour) {
        EXPECT_GT(table.fMUF[iHour], 2000.0F) << iHour;
        EXPECT_LT(table.fMUF[iHour], 60000.0F) << iHour;
        for (int i = 1; i <= 15; ++i) fBest = std::max(fBest, table.fSnr(iHour, i));
    }
    EXPECT_GT(fBest, 20.0F);
    EXPECT_LT(fBest, 120.0F);
}

}  // namespace
