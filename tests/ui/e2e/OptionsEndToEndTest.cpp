// The options dialog as the main window opens it.
#include <gtest/gtest.h>

#include "support/NeedVoacapl.h"
#include "ui/e2e/RealRig.h"
#include "ui/options/OptionsDrive.h"
#include "ui/options/frmAbout.h"

namespace {

frmOptions& OptionsOpen(const frmMain& frm, QAction* pCommand)
{
    pCommand->trigger();
    EXPECT_TRUE(QTest::qWaitForWindowActive(frm.m_pOptions));
    return *frm.m_pOptions;
}

TEST(OptionsEndToEnd, AnotherEngineAndTwoFrequenciesChangeTheMainTable)
{
    NEED_VOACAPL();
    RealRig rig(kEngineRec533);
    frmMain& frm = rig.Start();
    ASSERT_EQ(frm.grdData->TextGet(7, 0), QStringLiteral("14000"));
    const QStringList asRec533 = RowTexts(frm, 7);
    ASSERT_TRUE(frm.lblInForce->text().startsWith(QStringLiteral("REC533")));

    frmOptions& options = OptionsOpen(frm, frm.mnuOptionsModel);
    ASSERT_TRUE(options.optPropagationModel3->isChecked());
    Press(options.optPropagationModel2);
    FrequenciesType(options, QStringLiteral("7000\n14000"));
    EXPECT_EQ(RowTexts(frm, 7), asRec533);  // nothing changes before Apply
    Press(options.cmdApply);
    MainRig::EventsRun();

    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    EXPECT_TRUE(frm.m_pOptions);
    ASSERT_EQ(frm.grdData->RowsGet(), 3);
    EXPECT_EQ(frm.grdData->TextGet(1, 0), QStringLiteral("7000"));
    EXPECT_EQ(frm.grdData->TextGet(2, 0), QStringLiteral("14000"));
    const QStringList asVoacap = RowTexts(frm, 2);
    EXPECT_NE(asVoacap, asRec533);
    for (const QString& sSnr : asVoacap + RowTexts(frm, 1)) {
        bool bNumber = false;
        (void)sSnr.toInt(&bNumber);
        EXPECT_TRUE(bNumber) << sSnr.toStdString();
    }
    EXPECT_TRUE(frm.lblInForce->text().startsWith(QStringLiteral("VOACAP")));
    EXPECT_TRUE(frm.lblTrouble->text().isEmpty());

    // And back with OK: the same table as before.
    Press(options.optPropagationModel3);
    options.TabShow(kTabModel);
    Press(options.optPropagationModel3);
    Press(options.cmdOk);
    MainRig::EventsRun();
    EXPECT_FALSE(frm.m_pOptions);
    EXPECT_EQ(RowTexts(frm, 2), asRec533);
}

TEST(OptionsEndToEnd, EverySettingOutlivesARestartOfTheProgram)
{
    MainRig rig;
    {
        frmMain& frm = rig.Start();
        frmOptions& options = OptionsOpen(frm, frm.mnuOptionsModel);
        EveryControlChange(options);
        rig.m_engine.nStarts = 0;
        rig.m_engine.nChunks = 1;  // for three frequencies
        Press(options.cmdOk);
        MainRig::EventsRun();
        EXPECT_FALSE(frm.m_pOptions);
        EXPECT_TRUE(frm.lblTrouble->text().isEmpty()) << frm.lblTrouble->text().toStdString();
        EXPECT_TRUE(frm.close());
        MainRig::EventsRun();
        rig.m_pFrm.reset();
    }
    frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->RowsGet(), 4);
    EXPECT_EQ(frm.grdData->TextGet(3, 0), QStringLiteral("14300"));
    EveryControlIsRestored(OptionsOpen(frm, frm.mnuOptionsModel));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(OptionsEndToEnd, SecondCommandBringsTheSameDialogToItsTab)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const frmOptions* pFirst = &OptionsOpen(frm, frm.mnuOptionsAirMail);
    Type(frm.m_pOptions->txtPropagationNoiseLevel, QStringLiteral("-163"));
    const frmOptions* pSecond = &OptionsOpen(frm, frm.mnuOptionsTime);
    EXPECT_EQ(pSecond, pFirst);
    EXPECT_EQ(pSecond->SSTab->currentIndex(), kTabTime);
    EXPECT_EQ(pSecond->txtPropagationNoiseLevel->text(), QStringLiteral("-163"));  // not lost
    EXPECT_FALSE(pSecond->isModal());
}

TEST(OptionsEndToEnd, PicturesOfEveryTabAndOfAbout)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    struct TabCase {
        QAction* pCommand;
        int iTab;
        const char* sCaption;
        const char* sPicture;
    };
    for (const TabCase& c :
         {TabCase{frm.mnuOptionsAirMail, kTabAirmail, "Airmail", "options_airmail.png"},
          TabCase{frm.mnuOptionsModel, kTabModel, "Model", "options_model.png"},
          TabCase{frm.mnuOptionsFrequency, kTabFrequency, "Frequency", "options_frequency.png"},
          TabCase{frm.mnuOptionsTime, kTabTime, "Time", "options_time.png"},
          TabCase{frm.mnuOptionsMap, kTabMap, "Map", "options_map.png"}}) {
        frmOptions& options = OptionsOpen(frm, c.pCommand);
        EXPECT_EQ(options.SSTab->currentIndex(), c.iTab);
        EXPECT_EQ(options.SSTab->tabText(c.iTab).remove(u'&'), QLatin1String(c.sCaption));
        PictureSave(options, c.sPicture);
        // Nothing is cut off: every visible control has at least its minimum size.
        for (const QWidget* pWidget : options.findChildren<QWidget*>()) {
            if (!pWidget->isVisible() || pWidget->objectName().startsWith(QStringLiteral("qt_")))
                continue;
            EXPECT_GE(pWidget->width(), pWidget->minimumSizeHint().width())
                << pWidget->objectName().toStdString();
        }
    }
    frm.mnuHelpAbout->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frm.m_pAbout));
    PictureSave(*frm.m_pAbout, "about.png");
}

}  // namespace
