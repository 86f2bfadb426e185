#include <gtest/gtest.h>

#include <QScreen>
#include <QWidget>
#include <limits>

#include "ui/common/WindowPlace.h"

namespace {

const QRect kScreen(0, 0, 1280, 800);
const QRect kScreenRight(1280, 0, 1024, 700);
const QSize kLeast(300, 200);

QRect OnScreens(const QRect& rect) { return RectOnScreen(rect, kLeast, {kScreen, kScreenRight}); }

TEST(RectOnScreen, LeavesAVisibleWindowAlone)
{
    EXPECT_EQ(OnScreens({10, 20, 700, 500}), QRect(10, 20, 700, 500));
    EXPECT_EQ(OnScreens({1400, 20, 700, 500}), QRect(1400, 20, 700, 500));
}

TEST(RectOnScreen, BringsAWindowOffEveryScreenBack)
{
    for (const QPoint& pnt : {QPoint(-5000, -5000), QPoint(100000, 100000), QPoint(-100000, 30)}) {
        const QRect rect = OnScreens(QRect(pnt, QSize(700, 500)));
        EXPECT_TRUE(kScreen.contains(rect) || kScreenRight.contains(rect)) << pnt.x();
        EXPECT_EQ(rect.size(), QSize(700, 500));
    }
}

TEST(RectOnScreen, MovesAPartlyHiddenWindowOntoTheScreenItIsMostlyOn)
{
    EXPECT_EQ(OnScreens({-100, -50, 700, 500}), QRect(0, 0, 700, 500));
    EXPECT_EQ(OnScreens({1200, 100, 700, 500}), QRect(1280, 100, 700, 500));
}

TEST(RectOnScreen, CutsAWindowThatIsTooLargeAndRaisesOneThatIsTooSmall)
{
    EXPECT_EQ(OnScreens({0, 0, 90000, 90000}), kScreen);
    EXPECT_EQ(OnScreens({10, 10, -5, 0}), QRect(10, 10, 300, 200));
}

TEST(RectOnScreen, WithoutScreensNothingIsChanged)
{
    EXPECT_EQ(RectOnScreen({-9, -9, 1, 1}, kLeast, {}), QRect(-9, -9, 1, 1));
}

struct BesideCase {
    const char* sName;
    QRect rectOther;
    QRect rectExpected;
};
std::ostream& operator<<(std::ostream& stm, const BesideCase& c) { return stm << c.sName; }

class RectBesideFor : public testing::TestWithParam<BesideCase> {};

TEST_P(RectBesideFor, HidesAsLittleAsItCan)
{
    EXPECT_EQ(RectBeside({400, 300}, GetParam().rectOther, kScreen), GetParam().rectExpected);
}

INSTANTIATE_TEST_SUITE_P(
    Places, RectBesideFor,
    testing::Values(BesideCase{"right", {100, 50, 700, 500}, {800, 50, 400, 300}},
                    BesideCase{"below", {200, 0, 1000, 500}, {880, 500, 400, 300}},
                    BesideCase{"left", {500, 200, 700, 500}, {100, 200, 400, 300}},
                    BesideCase{"above", {200, 310, 1000, 490}, {880, 10, 400, 300}},
                    BesideCase{"nowhere_free", {0, 0, 1280, 600}, {880, 500, 400, 300}},
                    BesideCase{"no_place_at_all", kScreen, {880, 0, 400, 300}}));

TEST(RectBeside, StaysOnTheScreenWithAWindowThatIsTooLarge)
{
    EXPECT_EQ(RectBeside({3000, 3000}, {0, 0, 600, 500}, kScreenRight), kScreenRight);
}

TEST(WindowFit, CutsAWindowToTheScreenAndLeavesASmallOneAlone)
{
    QWidget windowOther;
    windowOther.show();
    QWidget window;
    window.resize(9000, 300);
    WindowFit(window, windowOther);
    EXPECT_LE(window.width(), windowOther.screen()->availableSize().width());
    EXPECT_GT(window.width(), 600);
    EXPECT_EQ(window.height(), 300);
}

TEST(WindowKeyApply, TakesTwipsAsFifteenthsOfAPixel)
{
    QRect rect(1, 2, 3, 4);
    WindowKeyApply(rect, WindowKey::Height, 9000.0F);
    WindowKeyApply(rect, WindowKey::Left, 150.0F);
    WindowKeyApply(rect, WindowKey::Top, -300.0F);
    WindowKeyApply(rect, WindowKey::Width, 12000.0F);
    EXPECT_EQ(rect, QRect(10, -20, 800, 600));
}

TEST(WindowKeyApply, RoundsHalfPixelsToEven)
{
    QRect rect;
    WindowKeyApply(rect, WindowKey::Left, 37.5F);  // 2.5 pixels
    EXPECT_EQ(rect.left(), 2);
    WindowKeyApply(rect, WindowKey::Left, 52.5F);  // 3.5 pixels
    EXPECT_EQ(rect.left(), 4);
}

TEST(WindowKeyApply, CutsValuesBeyondAnyScreen)
{
    QRect rect;
    WindowKeyApply(rect, WindowKey::Width, std::numeric_limits<float>::max());
    WindowKeyApply(rect, WindowKey::Left, -std::numeric_limits<float>::max());
    EXPECT_EQ(rect.width(), 100000);
    EXPECT_EQ(rect.left(), -100000);
}

TEST(WindowDataGet, IsTheOuterFrameInTwipsAndNothingUnlessNormal)
{
    QWidget window;
    window.setGeometry(20, 30, 400, 300);
    window.show();
    const auto data = WindowDataGet(window);
    ASSERT_TRUE(data.has_value());
    EXPECT_EQ(data->fWidth, static_cast<float>(window.frameGeometry().width() * 15));
    EXPECT_EQ(data->fHeight, static_cast<float>(window.frameGeometry().height() * 15));
    EXPECT_EQ(data->fLeft, static_cast<float>(window.frameGeometry().left() * 15));
    EXPECT_EQ(data->fTop, static_cast<float>(window.frameGeometry().top() * 15));
    window.setWindowState(Qt::WindowMaximized);
    EXPECT_FALSE(WindowDataGet(window).has_value());
    window.setWindowState(Qt::WindowMinimized);
    EXPECT_FALSE(WindowDataGet(window).has_value());
}

}  // namespace
