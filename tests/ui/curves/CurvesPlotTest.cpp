#include <gtest/gtest.h>

#include <QImage>
#include <cmath>
#include <limits>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/curves/CurvesPlot.h"

namespace {

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
constexpr int kAround = 40;

DayCurves DayMake(const std::vector<float>& afFrequency = {3500, 7100, 14200, 21200})
{
    DayCurves day;
    for (std::size_t i = 0; i < kHourCount; ++i) {
        day.afMuf[i] = 18000.0F + 4000.0F * std::sin(static_cast<float>(i) / 4);
        day.afFot[i] = day.afMuf[i] * 0.85F;
        day.afLuf[i] = kNone;
    }
    for (std::size_t n = 0; n < day.afSunRc.size(); ++n) {
        const float fHours = static_cast<float>(n) / kSunStepsAnHour;
        day.afSunRc[n] = fHours * 5 - 60;
        day.afSunTx[n] = 60 - fHours * 5;
    }
    for (std::size_t n = 0; n < afFrequency.size(); ++n) {
        CurveRibbon ribbon{static_cast<int>(n) + 1, afFrequency[n], {}};
        for (std::size_t i = 0; i < kHourCount; ++i)
            ribbon.afSnr[i] = static_cast<float>(30 + 2 * i + n);
        day.aRibbons.push_back(ribbon);
    }
    return day;
}

CurvesView ViewMake()
{
    CurvesView view;
    for (std::size_t i = 0; i < kHourCount; ++i)
        view.asHour[i] = QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0'));
    return view;
}

QFont FontGet()
{
    QFont font;
    font.setPixelSize(12);
    return font;
}

struct Painted {
    Painted(const DayCurves& day, const CurvesView& view, QSize size = {900, 500})
        : image(size + QSize(2 * kAround, 2 * kAround), QImage::Format_RGB32),
          rct(QPointF(kAround, kAround), QSizeF(size)),
          plot(rct, QFontMetricsF(FontGet()), day, view)
    {
        image.fill(view.clrPaper);
        QPainter painter(&image);
        painter.setFont(FontGet());
        plot.Paint(painter);
    }
    [[nodiscard]] QColor At(const QPointF& pnt) const { return image.pixelColor(pnt.toPoint()); }
    QImage image;
    QRectF rct;
    CurvesPlot plot;
};

/// A point of a cell that no curve or grid line crosses.
QPointF CornerGet(const QRectF& rct)
{
    return {rct.left() + rct.width() * 0.2, rct.top() + rct.height() * 0.7};
}

TEST(CurvesPlot, EachRibbonHasTheColoursOfItsHours)
{
    DayCurves day = DayMake();
    day.afMuf.fill(kNone);
    day.afFot.fill(kNone);
    const CurvesView view = ViewMake();
    const Painted painted(day, view);
    for (int iRibbon = 0; iRibbon < 4; ++iRibbon) {
        for (int iHour = 0; iHour < kHourCount; ++iHour) {
            const float fSnr = day.aRibbons[static_cast<std::size_t>(iRibbon)]
                                   .afSnr[static_cast<std::size_t>(iHour)];
            EXPECT_EQ(painted.At(CornerGet(painted.plot.CellRect({iHour, iRibbon}))),
                      ColorFromBgr(SnrGetColor(fSnr)))
                << iRibbon << " at " << iHour;
        }
    }
}

TEST(CurvesPlot, APointOfACellLeadsBackToIt)
{
    const DayCurves day = DayMake();
    const CurvesView view = ViewMake();
    const Painted painted(day, view);
    for (int iRibbon = 0; iRibbon < 4; ++iRibbon)
        for (int iHour = 0; iHour < kHourCount; ++iHour)
            EXPECT_EQ(painted.plot.CellAt(painted.plot.CellRect({iHour, iRibbon}).center()),
                      (CurvesCell{iHour, iRibbon}));
    EXPECT_FALSE(painted.plot.CellAt({1, 1}));
    const DayCurves dayEmpty = DayMake({});
    const Painted paintedEmpty(dayEmpty, view);
    EXPECT_FALSE(paintedEmpty.plot.CellAt({500, 200}));
}

TEST(CurvesPlot, AnHourWithoutAValueIsPaper)
{
    DayCurves day = DayMake({7100});
    day.aRibbons[0].afSnr[5] = kNone;
    const CurvesView view = ViewMake();
    const Painted painted(day, view);
    EXPECT_EQ(painted.At(CornerGet(painted.plot.CellRect({5, 0}))), QColor(Qt::white));
    EXPECT_NE(painted.At(CornerGet(painted.plot.CellRect({6, 0}))), QColor(Qt::white));
}

TEST(CurvesPlot, TheHighestUsableFrequencyIsALineAtItsHeight)
{
    DayCurves day = DayMake({7100});
    day.afFot.fill(kNone);
    day.afMuf.fill(16500.0F);
    const CurvesView view = ViewMake();
    const Painted painted(day, view);
    for (const double dHour : {1.7, 12.2, 22.4})
        EXPECT_LT(painted.At({painted.plot.XGet(dHour), painted.plot.YGet(16500)}).lightness(), 200)
            << dHour;
    EXPECT_EQ(painted.At({painted.plot.XGet(1.7), painted.plot.YGet(15600)}), QColor(Qt::white));
}

TEST(CurvesPlot, TheSelectedCellIsFramedAndNowIsALine)
{
    const DayCurves day = DayMake();
    CurvesView view = ViewMake();
    const Painted bare(day, view);
    view.iHour = 4;
    view.iRibbon = 0;
    const Painted framed(day, view);
    const QRectF rct = bare.plot.CellRect({4, 0});
    EXPECT_NE(bare.At({rct.left() + 4, rct.top()}), framed.At({rct.left() + 4, rct.top()}));
    EXPECT_EQ(framed.At({rct.left() + 4, rct.top()}), QColor(Qt::black));
    EXPECT_EQ(bare.image.pixelColor(framed.plot.CellRect({9, 2}).center().toPoint()),
              framed.image.pixelColor(framed.plot.CellRect({9, 2}).center().toPoint()));
    view.dNow = 13.5;
    const Painted now(day, view);
    const QPointF pnt(now.plot.XGet(13.5), now.plot.YGet(9400));
    EXPECT_EQ(framed.At(pnt), QColor(Qt::white));
    EXPECT_LT(now.At(pnt).lightness(), 200);
}

TEST(CurvesPlot, NothingIsPaintedOutsideAtAnySize)
{
    const DayCurves day = DayMake({1800, 3500, 3550, 3600, 5300, 7050, 7100, 10100, 14000, 14100,
                                   18100, 21000, 24900, 28000, 29000});
    const CurvesView view = ViewMake();
    for (const QSize size : {QSize(400, 300), QSize(900, 500), QSize(3800, 2000)}) {
        const Painted painted(day, view, size);
        const QRectF rctAllowed = painted.rct.adjusted(-1, -1, 1, 1);
        for (int y = 0; y < painted.image.height(); ++y) {
            for (int x = 0; x < painted.image.width(); ++x) {
                if (!rctAllowed.contains(QPointF(x, y))
                    && painted.image.pixelColor(x, y) != QColor(Qt::white)) {
                    ADD_FAILURE() << size.width() << ": " << x << ", " << y;
                    return;
                }
            }
        }
    }
}

TEST(CurvesPlot, BlackAndWhiteHasNoColour)
{
    const DayCurves day = DayMake();
    CurvesView view = ViewMake();
    view.eLook = PageLook::BlackWhite;
    const Painted painted(day, view);
    for (int y = 0; y < painted.image.height(); ++y) {
        for (int x = 0; x < painted.image.width(); ++x) {
            const QColor clr = painted.image.pixelColor(x, y);
            ASSERT_EQ(clr.red(), clr.green()) << x << ", " << y;
            ASSERT_EQ(clr.red(), clr.blue()) << x << ", " << y;
        }
    }
    // 30 dB at midnight misses a need of 40, 76 dB at 23 meets it.
    EXPECT_EQ(painted.At(CornerGet(painted.plot.CellRect({0, 0}))), QColor(Qt::white));
    EXPECT_EQ(painted.At(CornerGet(painted.plot.CellRect({23, 0}))), QColor(Qt::black));
}

TEST(CurvesPlot, TheSunIsABarForEachEnd)
{
    const DayCurves day = DayMake();
    const CurvesView view = ViewMake();
    const Painted painted(day, view);
    // Night at the receiver at 0 and day at 20; the other way round at the transmitter.
    const auto CountGet = [&painted](double dHour, const QColor& clr) {
        int nPixels = 0;
        const int x = static_cast<int>(painted.plot.XGet(dHour + 0.3));
        for (int y = 0; y < painted.image.height(); ++y)
            nPixels += painted.image.pixelColor(x, y) == clr ? 1 : 0;
        return nPixels;
    };
    for (const int iHour : {0, 20}) {
        EXPECT_GT(CountGet(iHour, QColor(0xFFD84D)), 5) << iHour;
        EXPECT_GT(CountGet(iHour, QColor(0x24304F)), 5) << iHour;
    }
}

}  // namespace
