/// Two engines side by side, and the days behind a median, on the command line: real program, real
/// engines.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "app/HopcastPredictRig.h"
#include "support/NeedVoacapl.h"

namespace {

using Fields = std::vector<std::string>;

/// The lines of a csv without quoted fields, header first.
std::vector<Fields> LinesOf(const std::string& sCsv)
{
    std::vector<Fields> aLine;
    std::istringstream stm(sCsv);
    for (std::string sLine; std::getline(stm, sLine);) {
        Fields& asField = aLine.emplace_back(1);
        for (const char chr : sLine) {
            if (chr == ',')
                asField.emplace_back();
            else
                asField.back() += chr;
        }
    }
    return aLine;
}

std::vector<std::string> ColumnOf(const std::vector<Fields>& aLine, const std::string& sName)
{
    std::size_t iColumn = 0;
    while (iColumn < aLine.at(0).size() && aLine[0][iColumn] != sName) ++iColumn;
    std::vector<std::string> asValue;
    for (std::size_t n = 1; n < aLine.size(); ++n) asValue.push_back(aLine[n].at(iColumn));
    return asValue;
}

class PredictCompare : public HopcastPredict {
protected:
    [[nodiscard]] static ProgramResult Run(const Words& asMore)
    {
        Words asWords{"--tx", "38,-122", "--rc", "24,-110",       "--ssn",
                      "62",   "--month", "11",   "--frequencies", "7000,14000,21000"};
        asWords.insert(asWords.end(), asMore.begin(), asMore.end());
        return Predict(asWords);
    }
};

TEST_F(PredictCompare, AnEngineWithItselfHasNoDifferenceAndFullAgreement)
{
    const ProgramResult res = Run({"--model", "rec533", "--compare", "rec533"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    const auto aLine = LinesOf(res.sOut);
    ASSERT_EQ(aLine.size(), 1U + 24 * 3);
    EXPECT_EQ(aLine[0], (Fields{"utc", "khz", "snr_db_A", "snr_db_B", "difference_db"}));
    EXPECT_EQ(aLine[1][0], "0");
    EXPECT_EQ(aLine[1][1], "7000");
    int nZero = 0;
    for (std::size_t n = 1; n < aLine.size(); ++n) {
        ASSERT_EQ(aLine[n].size(), 5U);
        EXPECT_EQ(aLine[n][2], aLine[n][3]);
        EXPECT_TRUE(aLine[n][4].empty() || aLine[n][4] == "0") << aLine[n][4];
        nZero += aLine[n][4] == "0" ? 1 : 0;
    }
    EXPECT_GT(nZero, 40);
    EXPECT_NE(res.sError.find("within 6 dB in 100 %"), std::string::npos) << res.sError;
    EXPECT_NE(res.sError.find("E-mail, normal: 40 dB"), std::string::npos) << "the need is named";
}

TEST_F(PredictCompare, ItsColumnsAreThoseOfTheTwoEnginesAtOnePower)
{
    NEED_VOACAPL();
    const ProgramResult res =
        Run({"--model", "voacap", "--antenna", "2", "--compare", "rec533", "--need", "30"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    // VOACAP's whips of 5 kW are REC533's second choice.
    const ProgramResult resA = Run({"--model", "voacap", "--antenna", "2", "--format", "csv"});
    const ProgramResult resB = Run({"--model", "rec533", "--antenna", "1", "--format", "csv",
                                    "--power", ColumnOf(LinesOf(resA.sOut), "power_w").at(0)});
    const auto aLine = LinesOf(res.sOut);
    const auto asA = ColumnOf(aLine, "snr_db_A");
    const auto asB = ColumnOf(aLine, "snr_db_B");
    const auto asDifference = ColumnOf(aLine, "difference_db");
    EXPECT_EQ(asA, ColumnOf(LinesOf(resA.sOut), "snr_db"));
    const auto asSingleB = ColumnOf(LinesOf(resB.sOut), "snr_db");
    ASSERT_EQ(asB.size(), asSingleB.size());
    int nKnown = 0;
    for (std::size_t n = 0; n < asB.size(); ++n) {
        EXPECT_NEAR(std::stod(asB[n]), std::stod(asSingleB[n]), 0.001);
        if (asDifference[n].empty())
            continue;
        EXPECT_NEAR(std::stod(asDifference[n]), std::stod(asA[n]) - std::stod(asB[n]), 0.001);
        ++nKnown;
    }
    EXPECT_GT(nKnown, 40);
    EXPECT_NE(res.sError.find("VOACAP (A) and REC533 (B)"), std::string::npos) << res.sError;
    EXPECT_NE(res.sError.find("open for 30 dB"), std::string::npos) << res.sError;
}

TEST_F(PredictCompare, AMissingEngineIsNamedAndNothingIsPrinted)
{
    const ProgramResult res = Run({"--model", "rec533", "--compare", "icepac"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_NE(res.sError.find("ICEPAC"), std::string::npos) << res.sError;
}

TEST_F(PredictCompare, AnEngineThatFailsIsToldAndNothingIsPrinted)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("exit 3\n"));
    const ProgramResult res = Run({"--model", "rec533", "--compare", "rec533"});
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_FALSE(res.sError.empty());
}

TEST_F(PredictCompare, TheBuiltInEnginesCsvHasReliabilityAndDeciles)
{
    const ProgramResult res = Run({"--model", "rec533", "--format", "csv"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    const auto aLine = LinesOf(res.sOut);
    const auto asRel = ColumnOf(aLine, "rel");
    const auto asLower = ColumnOf(aLine, "snr_lower_db");
    const auto asUpper = ColumnOf(aLine, "snr_upper_db");
    const auto asSnr = ColumnOf(aLine, "snr_db");
    int nGood = 0;
    for (std::size_t n = 0; n < asRel.size(); ++n) {
        if (asLower[n].empty())
            continue;
        EXPECT_GT(std::stod(asLower[n]), 0.0);
        EXPECT_GT(std::stod(asUpper[n]), 0.0);
        ASSERT_FALSE(asRel[n].empty());
        // Where the lower decile is above 40 dB, nine days in ten are too.
        if (std::stod(asSnr[n]) - std::stod(asLower[n]) > 41.0) {
            EXPECT_GE(std::stod(asRel[n]), 0.9);
            ++nGood;
        }
    }
    EXPECT_GT(nGood, 5);
}

}  // namespace
