#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QtTest/QtTest>

#include "support/ClockSet.h"
#include "ui/map/HourBar.h"

namespace {

class HourBarShown : public testing::Test {
protected:
    HourBarShown()
    {
        m_bar.resize(900, m_bar.sizeHint().height());
        m_bar.HourShow(6, kTimeZulu);
        m_bar.FrequenciesShow({7000.0F, 10100.0F, 14000.0F}, 1);
        m_bar.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_bar));
    }
    void Key(Qt::Key eKey) { QTest::keyClick(m_bar.hscHour, eKey); }
    [[nodiscard]] QPoint HourPoint(int iHour) const
    {
        return {(2 * iHour + 1) * m_bar.hscHour->width() / 48, m_bar.hscHour->height() / 2};
    }
    ClockSet m_clock{DateTime{2026, 6, 15, 10, 30, 0}, DateTime{2026, 6, 15, 16, 0, 0}};
    HourBar m_bar{nullptr};
    QSignalSpy m_spyHour{&m_bar, &HourBar::HourChosen};
    QSignalSpy m_spyFrequency{&m_bar, &HourBar::FrequencyChosen};
    QSignalSpy m_spyPlay{&m_bar, &HourBar::PlayRequested};
};

TEST_F(HourBarShown, ArrowsStepTheHourOverMidnight)
{
    Key(Qt::Key_Right);
    EXPECT_EQ(m_spyHour.takeFirst().at(0).toInt(), 7);
    Key(Qt::Key_Home);
    EXPECT_EQ(m_spyHour.takeFirst().at(0).toInt(), 0);
    Key(Qt::Key_Left);
    EXPECT_EQ(m_spyHour.takeFirst().at(0).toInt(), 23);
    Key(Qt::Key_Right);
    EXPECT_EQ(m_spyHour.takeFirst().at(0).toInt(), 0);
    Key(Qt::Key_End);
    EXPECT_EQ(m_spyHour.takeFirst().at(0).toInt(), 23);
}

TEST_F(HourBarShown, UpAndDownChooseTheFrequencyAndEndAtTheListsEnds)
{
    Key(Qt::Key_Up);
    ASSERT_EQ(m_spyFrequency.size(), 1);
    EXPECT_EQ(m_bar.cmbFrequency->currentText(), QStringLiteral("14000 kHz"));
    Key(Qt::Key_Up);
    EXPECT_EQ(m_spyFrequency.size(), 1);
    Key(Qt::Key_Down);
    EXPECT_EQ(m_bar.cmbFrequency->currentText(), QStringLiteral("10100 kHz"));
    m_bar.FrequencyEnable(false);
    Key(Qt::Key_Down);
    EXPECT_EQ(m_spyFrequency.size(), 2);
}

TEST_F(HourBarShown, SpaceAndTheButtonPlay)
{
    Key(Qt::Key_Space);
    EXPECT_EQ(m_spyPlay.size(), 1);
    QTest::mouseClick(m_bar.cmdPlay, Qt::LeftButton);
    EXPECT_EQ(m_spyPlay.size(), 2);
    EXPECT_EQ(m_bar.cmdPlay->accessibleName(), QStringLiteral("Play"));
    m_bar.PlayShow(true);
    EXPECT_EQ(m_bar.cmdPlay->accessibleName(), QStringLiteral("Pause"));
    EXPECT_EQ(m_spyHour.size(), 0);
}

TEST_F(HourBarShown, AClickAndADragChooseTheHourUnderThePointer)
{
    for (int iHour = 0; iHour < 24; iHour += 5) {
        QTest::mouseClick(m_bar.hscHour, Qt::LeftButton, {}, HourPoint(iHour));
        EXPECT_EQ(m_bar.hscHour->value(), iHour);
    }
    QMouseEvent evt(QEvent::MouseMove, HourPoint(3), m_bar.hscHour->mapToGlobal(HourPoint(3)),
                    Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_bar.hscHour, &evt);
    EXPECT_EQ(m_bar.hscHour->value(), 3);
    QTest::mouseClick(m_bar.hscHour, Qt::RightButton, {}, HourPoint(9));
    EXPECT_EQ(m_bar.hscHour->value(), 3);
}

TEST_F(HourBarShown, ANotchOfTheWheelIsAnHour)
{
    for (const auto& [nBy, iHour] : {std::pair(-120, 7), std::pair(60, 7), std::pair(60, 6)}) {
        QWheelEvent evt(HourPoint(6), m_bar.hscHour->mapToGlobal(HourPoint(6)), {}, {0, nBy},
                        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_bar.hscHour, &evt);
        EXPECT_EQ(m_bar.hscHour->value(), iHour);
    }
}

TEST_F(HourBarShown, ShowingAnHourOrAFrequencyChoosesNone)
{
    m_bar.HourShow(17, kTimeZulu);
    m_bar.FrequenciesShow({7000.0F, 14000.0F}, 0);
    EXPECT_EQ(m_bar.hscHour->value(), 17);
    EXPECT_EQ(m_bar.cmbFrequency->count(), 2);
    EXPECT_EQ(m_spyHour.size() + m_spyFrequency.size(), 0);
}

TEST_F(HourBarShown, LabelsFollowTheTimeSetting)
{
    EXPECT_EQ(m_bar.lblHour->text(), QStringLiteral("06:00 Zulu"));
    m_bar.HourShow(6, kTimeLocal);
    EXPECT_EQ(m_bar.lblHour->text(), QStringLiteral("11:30 Local"));
    EXPECT_EQ(m_bar.hscHour->accessibleDescription(), m_bar.lblHour->text());
}

TEST_F(HourBarShown, HoursThatAreNotThereAreHatchedAndTheChosenOneStandsOut)
{
    const auto Grab = [this](int iHour) {
        const QPoint pt = HourPoint(iHour);
        return m_bar.hscHour->grab(QRect(pt.x() - 8, 2, 16, 6)).toImage();
    };
    m_bar.hscHour->ComputedSet(AreaHours().set());
    const QImage imgThere = Grab(12);
    AreaHours hours;
    hours.set(6);
    m_bar.hscHour->ComputedSet(hours);
    EXPECT_NE(Grab(12), imgThere);
    const QImage imgNot = Grab(12);
    m_bar.HourShow(12, kTimeZulu);
    EXPECT_NE(Grab(12), imgNot);
}

TEST_F(HourBarShown, IsNarrowEnoughForSmallWindows)
{
    m_bar.HourShow(6, kTimeLocal);
    m_bar.WorkShow(QStringLiteral("1080 of 1080"));
    EXPECT_LE(m_bar.minimumSizeHint().width(), 620);
    EXPECT_TRUE(m_bar.lblWork->isVisible());
    m_bar.WorkShow({});
    EXPECT_FALSE(m_bar.lblWork->isVisible());
}

}  // namespace
