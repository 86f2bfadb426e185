// Two programs with one engine root: neither makes the other fail or gets the other's numbers.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "support/ProgramRun.h"
#include "system/FileLib.h"
#include "system/PathLib.h"
#include "ui/soak/SoakDrive.h"
#include "ui/soak/SoakWatch.h"

namespace {

constexpr int kRunsFull = 200;
constexpr int kRow = 7;

using Words = std::vector<std::string>;

Words CircuitWords(const char* sTransmitter, const char* sReceiver, const char* sMonth,
                   const char* sSunSpots)
{
    return {TEST_BIN "/hopcast-predict",
            "--format",
            "csv",
            std::string("--tx=") + sTransmitter,
            std::string("--rc=") + sReceiver,
            "--month",
            sMonth,
            "--ssn",
            sSunSpots};
}

/// Runs hopcast-predict repeatedly and compares each output with that of a run on its own.
class Repeated {
public:
    explicit Repeated(Words asWords)
        : m_asWords(std::move(asWords)), m_resAlone(ProgramRun(m_asWords))
    {
        EXPECT_EQ(m_resAlone.nStatus, 0) << m_resAlone.sError;
    }
    void Run()
    {
        for (int i = 0; i < m_nRuns; ++i) {
            const auto tmStart = std::chrono::steady_clock::now();
            const ProgramResult res = ProgramRun(m_asWords);
            const std::chrono::duration<double> tmTaken =
                std::chrono::steady_clock::now() - tmStart;
            m_dSlowest = std::max(m_dSlowest, tmTaken.count());
            EXPECT_EQ(res.nStatus, 0) << "run " << i << ": " << res.sError;
            EXPECT_EQ(res.sError, "");
            EXPECT_EQ(res.sOut, m_resAlone.sOut) << "run " << i;
        }
        std::printf("%d runs, the slowest %.3f s\n", m_nRuns, m_dSlowest);
    }
    [[nodiscard]] const std::string& AloneGet() const { return m_resAlone.sOut; }

private:
    int m_nRuns = RoundsGet(kRunsFull);
    Words m_asWords;
    ProgramResult m_resAlone;
    double m_dSlowest = 0.0;
};

TEST(TwoPrograms, OnOneRootNeverMixNorFail)
{
    const EngineReal engine;
    Repeated west(CircuitWords("38,-122", "24,-110", "11", "170"));
    Repeated east(CircuitWords("52,13", "-33,151", "6", "20"));
    ASSERT_NE(west.AloneGet(), east.AloneGet());
    {
        const std::jthread thread([&west] { west.Run(); });
        east.Run();
    }
    EXPECT_FALSE(FileExists(EngineRootGet().Path(kEngineLock)));
}

TEST(TwoPrograms, WindowAndConsoleOnOneRootNeverMixNorFail)
{
    RealRig rig(kEngineRec533);
    EngineLimitSet(kEngineLimit);  // the limit of the program itself
    frmMain& frm = WithMapAndDetails(rig.Start());
    Repeated east(CircuitWords("52,13", "-33,151", "6", "20"));
    LatitudeUpdate(frm, "31");
    const QStringList asOdd = RowTexts(frm, kRow);
    LatitudeUpdate(frm, "52");
    const QStringList asEven = RowTexts(frm, kRow);
    ASSERT_NE(asOdd, asEven);
    int nUpdates = 0;
    std::atomic<bool> bDone = false;
    const std::jthread thread([&] {
        east.Run();
        bDone = true;
    });
    while (!bDone && !HasFailure()) {
        const bool bOdd = ++nUpdates % 2 == 1;
        LatitudeUpdate(frm, bOdd ? "31" : "52");
        EXPECT_EQ(RowTexts(frm, kRow), bOdd ? asOdd : asEven);
    }
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    std::printf("%d updates of the window meanwhile\n", nUpdates);
    EXPECT_GE(nUpdates, 2);
}

}  // namespace
