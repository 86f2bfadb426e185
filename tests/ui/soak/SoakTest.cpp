// The window program for hours on end.
#include <gtest/gtest.h>

#include <filesystem>

#include "ui/options/frmOptions.h"
#include "ui/soak/SoakDrive.h"
#include "ui/soak/SoakWatch.h"

namespace fs = std::filesystem;

namespace {

/// An engine root whose REC533 takes no time and returns the output set here.
class InstantRig : public MainRig {
public:
    InstantRig() : MainRig(kEngineRec533)
    {
        ProcessSetHandler({});
        const fs::path pthEngine = m_folder.Path("root/bin_win/rec533w.exe");
        fs::remove(pthEngine);
        fs::create_symlink(INSTANT_ENGINE, pthEngine);
        OutputSet("p2p_03");
    }
    void OutputSet(const std::string& sName) const
    {
        fs::copy_file(CAPTURED_FOLDER "/rec533/" + sName + ".out",
                      m_folder.Path("root/captured.out"), fs::copy_options::overwrite_existing);
    }
};

TEST(Soak, UpdatesThroughAnInstantEngine)
{
    const SoakWatch watch;
    InstantRig rig;
    frmMain& frm = WithMapAndDetails(rig.Start());
    const QStringList asFirst = RowTexts(frm, 7);
    QStringList asSecond;
    watch.Rounds(RoundsGet(2000), [&](int nRound) {
        const bool bOdd = nRound % 2 == 1;
        rig.OutputSet(bOdd ? "p2p_04" : "p2p_03");
        LatitudeUpdate(frm, bOdd ? "31" : "32");
        if (nRound == 1)
            asSecond = RowTexts(frm, 7);
        ASSERT_EQ(RowTexts(frm, 7), bOdd ? asSecond : asFirst);
        ASSERT_EQ(frm.m_pDetails->grdData->TextGet(7, 8), frm.grdData->TextGet(7, 14));
    });
    EXPECT_NE(asFirst, asSecond);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(Soak, UpdatesThroughTheBuiltInEngine)
{
    const SoakWatch watch;
    RealRig rig(kEngineRec533);
    frmMain& frm = WithMapAndDetails(rig.Start());
    frm.m_pMap->mnuOverlayDraw->trigger();
    QStringList asOdd;
    QStringList asEven;
    watch.Rounds(RoundsGet(200), [&](int nRound) {
        const bool bOdd = nRound % 2 == 1;
        LatitudeUpdate(frm, bOdd ? "31" : "52");
        QStringList& asBefore = bOdd ? asOdd : asEven;
        if (nRound <= 2)
            asBefore = RowTexts(frm, 7);
        ASSERT_EQ(RowTexts(frm, 7), asBefore);
        ASSERT_NE(asOdd, asEven);
        ASSERT_TRUE(frm.m_pMap->windowTitle().startsWith(QStringLiteral("Snr Overlay")));
    });
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(Soak, OpeningsOfMapAndOptions)
{
    const SoakWatch watch;
    InstantRig rig;
    frmMain& frm = rig.Start();
    watch.Rounds(RoundsGet(500), [&](int) {
        frm.mnuViewWorldMap->trigger();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(frm.m_pMap));
        frm.mnuOptionsModel->trigger();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(frm.m_pOptions));
        MainRig::EventsRun();
        frm.m_pMap->close();
        frm.m_pOptions->close();
        MainRig::EventsRun();
        ASSERT_FALSE(frm.m_pMap);
        ASSERT_FALSE(frm.m_pOptions);
    });
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

}  // namespace
