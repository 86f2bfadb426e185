#include "MapDayFakes.h"

namespace {

class MapDayMenuShown : public MapDayWindow {
protected:
    [[nodiscard]] QStringList ItemsGet() const
    {
        QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
        QStringList asItem;
        for (const QAction* pItem : m_pMap->mnuOverlay->actions())
            asItem.append((pItem->isChecked() ? QStringLiteral("*") : QString()) + pItem->text());
        m_pMap->mnuOverlay->close();
        return asItem;
    }
};

TEST_F(MapDayMenuShown, LayersStandBelowTheRequiredItemsAndNameTheNeed)
{
    EXPECT_EQ(ItemsGet().join(u'|'),
              QStringLiteral("Select Frequency|Select Time||Display, 10000 Khz, @ 06:00||Smooth||"
                             "Snr of the Frequency|Best Frequency of the List|"
                             "Days in Ten for E-mail, normal|Hours Open a Day for E-mail, normal"));
    m_host.m_settings.m_aNeed.push_back({"Q & A", 33.0F, "test"});
    m_host.m_settings.m_sNeedSelected = "Q & A";
    EXPECT_EQ(ItemsGet().at(9), QStringLiteral("Days in Ten for Q && A"));
}

TEST_F(MapDayMenuShown, TheLayerThatIsShownIsChecked)
{
    EXPECT_EQ(ItemsGet().filter(QStringLiteral("*")).size(), 0) << "hidden";
    OverlayShow();
    EXPECT_EQ(ItemsGet().filter(QStringLiteral("*")),
              (QStringList{QStringLiteral("*Display, 10000 Khz, @ 06:00"),
                           QStringLiteral("*Snr of the Frequency")}));
    LayerChoose(3);
    EXPECT_EQ(ItemsGet().at(10), QStringLiteral("*Hours Open a Day for E-mail, normal"));
    EXPECT_EQ(ItemsGet().filter(QStringLiteral("*")).size(), 2);
}

TEST_F(MapDayMenuShown, SnrOfTheFrequencyIsTheRequiredPictureUntilTheDayHasBegun)
{
    LayerChoose(0);
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Snr Overlay, 10000.0KHz @ 06:00"));
    EXPECT_TRUE(TipAt({300, 200}).contains(QStringLiteral("Snr 52.0 dB"))) << "of the program";
    EXPECT_EQ(m_program.m_aRuns.size(), 1u);
    LayerChoose(0);
    EXPECT_TRUE(m_pMap->mnuOverlayDraw->isChecked());
    EXPECT_EQ(m_program.m_aRuns.size(), 1u);
    m_pEngine->Let(1000);
    LayerChoose(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    LayerChoose(0);
    EXPECT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 10000.0KHz @ 06:00")));
    EXPECT_FALSE(TipAt({300, 200}).contains(QStringLiteral("Snr 52.0 dB"))) << "of the day";
}

TEST_F(MapDayMenuShown, ItemsAreChosenByKeys)
{
    m_pEngine->Let(1000);
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    QTest::keyClick(m_pMap->mnuOverlay, Qt::Key_Up);  // to the last item
    QTest::keyClick(m_pMap->mnuOverlay, Qt::Key_Return);
    EXPECT_TRUE(TitleBecomes(QStringLiteral("Hours Open a Day")));
}

}  // namespace
