#include <gtest/gtest.h>

#include <vector>

#include "engine/voacap/VoacapDeck.h"
#include "engine/voacap/VoacapOutput.h"
#include "engine/voacap/VoacapSample.h"

namespace {

std::vector<double> FrequenciesOf(const std::string& sDeckName)
{
    return VoacapDeckPoint(Sample(sDeckName)).ValueGet().aFrequencies;
}

class VoacapOutput : public testing::Test {
protected:
    std::string PointError(const std::string& sBytes, const std::vector<double>& aFrequencies)
    {
        return VoacapOutputPointCheck(m_folder.Write("sound.out", sBytes), aFrequencies).TextGet();
    }
    std::string GridError(const std::string& sBytes, int nGrid)
    {
        return VoacapOutputGridCheck(m_folder.Write("working.vg1", sBytes), nGrid).TextGet();
    }
    /// The sample with the first occurrence of a text replaced.
    static std::string Changed(const std::string& sName, std::string_view sOld,
                               std::string_view sNew)
    {
        std::string sBytes = Sample(sName);
        const std::size_t n = sBytes.find(sOld);
        EXPECT_NE(n, std::string::npos);
        return n == std::string::npos ? sBytes : sBytes.replace(n, sOld.size(), sNew);
    }

    TempFolder m_folder;
};

TEST_F(VoacapOutput, RealOutputsAreComplete)
{
    for (int i = 1; i <= 13; ++i)
        EXPECT_EQ(PointError(Sample(PointName(i) + ".out"), FrequenciesOf(PointName(i) + ".dat")),
                  "")
            << i;
}

TEST_F(VoacapOutput, ACutOutputIsNeverComplete)
{
    for (const int i : {1, 3, 13}) {
        const std::string sBytes = Sample(PointName(i) + ".out");
        const auto aFrequencies = FrequenciesOf(PointName(i) + ".dat");
        const std::size_t nTrailer = sBytes.find("END OF RUN");
        for (std::size_t n = 0; n < nTrailer + 9; n += 97)
            EXPECT_NE(PointError(sBytes.substr(0, n), aFrequencies), "") << i << " cut at " << n;
        EXPECT_EQ(PointError(sBytes.substr(0, nTrailer + 9), aFrequencies), "no END OF RUN");
    }
}

TEST_F(VoacapOutput, EveryHourIsWantedOnce)
{
    const auto aFrequencies = FrequenciesOf("p2p_01.dat");
    EXPECT_EQ(
        PointError(Changed("p2p_01.out", "   5.0 15.7  2.0", "   4.0 15.7  2.0"), aFrequencies),
        "hour blocks out of order");
    EXPECT_EQ(
        PointError(Changed("p2p_01.out", "   5.0 15.7  2.0", "   0.0 15.7  2.0"), aFrequencies),
        "hour blocks out of order");
    EXPECT_EQ(
        PointError(Changed("p2p_01.out", "   5.0 15.7  2.0", "  25.0 15.7  2.0"), aFrequencies),
        "hour blocks out of order");
}

TEST_F(VoacapOutput, EveryBlockIsWantedWithItsLastRow)
{
    const auto aFrequencies = FrequenciesOf("p2p_01.dat");
    EXPECT_EQ(PointError(Changed("p2p_01.out", "-  SNRxx", "-  SNR  "), aFrequencies),
              "hour blocks out of order");
    std::string sBytes = Sample("p2p_01.out");
    sBytes.replace(sBytes.rfind("SNRxx"), 5, "     ");
    EXPECT_EQ(PointError(sBytes, aFrequencies), "23 of 24 hour blocks");
    sBytes.erase(sBytes.rfind("  23.0"), sBytes.find(" *****") - sBytes.rfind("  23.0"));
    EXPECT_EQ(PointError(sBytes, aFrequencies), "23 of 24 hour blocks");
}

TEST_F(VoacapOutput, EveryFrequencyIsWanted)
{
    auto aFrequencies = FrequenciesOf("p2p_13.dat");
    aFrequencies.push_back(21.2);
    EXPECT_EQ(PointError(Sample("p2p_13.out"), aFrequencies), "21.2 MHz is missing");
    EXPECT_EQ(PointError(Sample("p2p_13.out"), {0.5, 14.2}), "14.2 MHz is missing");
    EXPECT_EQ(PointError(Sample("p2p_13.out"), {14.1, 0.5}), "14.1 MHz is missing");
}

TEST_F(VoacapOutput, RubbishAndNothingAreNoOutput)
{
    EXPECT_EQ(PointError("", {14.1}), "0 of 24 hour blocks");
    std::string sRubbish;
    for (int i = 0; i < 100000; ++i) sRubbish.push_back(static_cast<char>(i * 7919 >> 3));
    EXPECT_EQ(PointError(sRubbish, {14.1}), "0 of 24 hour blocks");
    EXPECT_EQ(GridError(sRubbish, 11), "no grid head");
    const std::vector<double> aFrequencies{14.1};
    EXPECT_EQ(VoacapOutputPointCheck(m_folder.Path("none"), aFrequencies).TextGet(),
              "no output file");
    EXPECT_EQ(VoacapOutputGridCheck(m_folder.Path("none"), 11).TextGet(), "no grid file");
}

TEST_F(VoacapOutput, RealGridsAreComplete)
{
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(
            GridError(Sample("area_0" + std::to_string(i) + ".vg1"), i == 2 || i == 4 ? 11 : 40),
            "")
            << i;
}

TEST_F(VoacapOutput, ACutGridIsNeverComplete)
{
    const std::string sBytes = Sample("area_02.vg1");
    // Nothing after a point's SNR is read.
    const std::size_t nLast = sBytes.rfind('\n', sBytes.size() - 2) + 1;
    const std::size_t nSnrEnd = nLast + 134;
    for (std::size_t n = 0; n < nSnrEnd; n += n + 200 < nSnrEnd ? 97 : 1)
        EXPECT_NE(GridError(sBytes.substr(0, n), 11), "") << "cut at " << n;
    EXPECT_EQ(GridError(sBytes.substr(0, nSnrEnd), 11), "");
}

TEST_F(VoacapOutput, AGridHasItsPointsInOrderAndNoMore)
{
    const std::string sBytes = Sample("area_02.vg1");
    EXPECT_EQ(GridError(sBytes, 12), "grid point 12 is not as expected");
    EXPECT_EQ(GridError(sBytes, 10), "grid point 11 is not as expected");
    EXPECT_EQ(GridError(sBytes + sBytes.substr(sBytes.rfind('\n', sBytes.size() - 2) + 1), 11),
              "grid point 122 is not as expected");
    EXPECT_EQ(GridError(sBytes.substr(0, sBytes.rfind('\n', sBytes.size() - 2) + 1), 11),
              "120 of 121 grid points");
    EXPECT_EQ(GridError(Changed("area_02.vg1", "\n  3  1", "\n  4  1"), 11),
              "grid point 3 is not as expected");
    EXPECT_EQ(GridError(Changed("area_02.vg1", " SNRxx", " SNRyy"), 11), "no SNRxx column");
}

}  // namespace
