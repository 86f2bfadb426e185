#include "MapFakes.h"

namespace {

class frmMapOverlayMenu : public MapWindow {
protected:
    EngineFake m_engine;
};

TEST_F(frmMapOverlayMenu, MenuListsFrequenciesAndHoursAnewEachTime)
{
    m_host.m_settings.m_nData = 6;
    m_host.m_settings.m_selected = {5, 9};
    for (int i = 0; i < 2; ++i) {
        QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
        ASSERT_EQ(m_pMap->mnuOverlayFrequencyData.size(), 6u);
        ASSERT_EQ(m_pMap->mnuOverlayTimeData.size(), 24u);
        EXPECT_EQ(m_pMap->mnuOverlayFrequency->actions().size(), 6);
        EXPECT_EQ(m_pMap->mnuOverlayTime->actions().size(), 24);
        m_pMap->mnuOverlay->close();
    }
    EXPECT_EQ(Find<QAction>("mnuOverlayFrequencyData0")->text(), QStringLiteral("2000  "));
    EXPECT_EQ(Find<QAction>("mnuOverlayFrequencyData4")->text(), QStringLiteral("10000"));
    EXPECT_EQ(Find<QAction>("mnuOverlayTimeData9")->text(), QStringLiteral("09:00"));
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(m_pMap->mnuOverlayFrequencyData[std::size_t(i)]->isChecked(), i == 4);
    for (int i = 0; i < 24; ++i)
        EXPECT_EQ(m_pMap->mnuOverlayTimeData[std::size_t(i)]->isChecked(), i == 8);
    EXPECT_EQ(m_pMap->mnuOverlayDraw->text(), QStringLiteral("Display, 10000 Khz, @ 08:00"));
    EXPECT_EQ(m_pMap->mnuOverlayFrequency->title(), QStringLiteral("Select Frequency"));
    EXPECT_EQ(m_pMap->mnuOverlayTime->title(), QStringLiteral("Select Time"));
}

TEST_F(frmMapOverlayMenu, MenuListsTheFrequenciesOfTheTableThatIsShown)
{
    Request input;
    input.nData = 2;
    input.afFrequency = {0.0F, 7051.0F, 18100.0F};
    m_host.m_inputTable = input;  // a failed run has left it, and the settings have 15 others
    m_host.m_settings.m_selected = {2, 4};
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    ASSERT_EQ(m_pMap->mnuOverlayFrequencyData.size(), 2u);
    EXPECT_EQ(m_pMap->mnuOverlayFrequencyData[0]->text(), QStringLiteral("7051  "));
    EXPECT_EQ(m_pMap->mnuOverlayFrequencyData[1]->text(), QStringLiteral("18100"));
    EXPECT_TRUE(m_pMap->mnuOverlayFrequencyData[1]->isChecked());
    EXPECT_EQ(m_pMap->mnuOverlayDraw->text(), QStringLiteral("Display, 18100 Khz, @ 03:00"));
    m_pMap->mnuOverlay->close();
    m_pMap->mnuOverlayFrequencyData[0]->trigger();
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    EXPECT_EQ(m_pMap->mnuOverlayDraw->text(), QStringLiteral("Display, 7051 Khz, @ 03:00"));
    m_pMap->mnuOverlay->close();
}

TEST_F(frmMapOverlayMenu, WithoutSelectionTheFirstFrequencyAndTheCurrentHour)
{
    m_host.m_settings.m_selected = {-1, -1};
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    EXPECT_EQ(m_pMap->mnuOverlayDraw->text(), QStringLiteral("Display, 2000 Khz, @ 10:00"));
    m_pMap->mnuOverlay->close();
}

TEST_F(frmMapOverlayMenu, EmptyFrequencyListIsNoCrash)
{
    m_host.m_settings.m_nData = 0;
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    EXPECT_FALSE(m_pMap->mnuOverlayFrequency->isEnabled());
    m_pMap->mnuOverlay->close();
}

TEST_F(frmMapOverlayMenu, ChoiceHoldsAndMovesTheMainWindowsSelection)
{
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    m_pMap->mnuOverlay->close();
    m_pMap->mnuOverlayFrequencyData[6]->trigger();
    m_pMap->mnuOverlayTimeData[23]->trigger();
    EXPECT_EQ(m_host.m_settings.m_selected.iFrequency, 7);
    EXPECT_EQ(m_host.m_settings.m_selected.iHour, 24);
    EXPECT_FALSE(m_pMap->mnuOverlayDraw->isChecked());
    EXPECT_TRUE(m_engine.m_aRuns.empty());
    m_host.m_settings.m_selected = {1, 1};
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    EXPECT_EQ(m_pMap->mnuOverlayDraw->text(), QStringLiteral("Display, 14000 Khz, @ 23:00"));
    m_pMap->mnuOverlay->close();
}

}  // namespace
