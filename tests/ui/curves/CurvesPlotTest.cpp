#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
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

/// A point in a cell that no curve or grid line crosses.
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
    // 30 dB at midnight misses a need of 40 dB; 76 dB at 23 h meets it.
    EXPECT_EQ(painted.At(CornerGet(painted.plot.CellRect({0, 0}))), QColor(Qt::white));
    EXPECT_EQ(painted.At(CornerGet(painted.plot.CellRect({23, 0}))), QColor(Qt::black));
}

TEST(CurvesPlot, TheSunIsABarForEachEnd)
{
    const DayCurves day = DayMake();
    const CurvesView view = ViewMake();
    const Painted painted(day, view);
    // The receiver has night at 0 and day at 20, the transmitter the other way round.
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

std::vector<float> CloseFrequencies()
{
    std::vector<float> afFrequency;
    for (int i = 0; i < 15; ++i) afFrequency.push_back(14000.0F + 5.0F * static_cast<float>(i));
    return afFrequency;
}

TEST(CurvesPlot, RibbonsOfFrequenciesCloseTogetherCoverNoneAndKeepTheirOrder)
{
    const DayCurves day = DayMake(CloseFrequencies());
    const CurvesView view = ViewMake();
    for (const QSize size : {QSize(380, 190), QSize(900, 500), QSize(3800, 2000)}) {
        const Painted painted(day, view, size);
        for (int i = 1; i < 15; ++i)
            EXPECT_LT(painted.plot.CellRect({3, i}).bottom(),
                      painted.plot.CellRect({3, i - 1}).top())
                << i;
        for (int i = 0; i < 15; ++i) {
            EXPECT_GE(painted.plot.CellRect({3, i}).height(), 3.0);
            EXPECT_EQ(painted.plot.CellAt(painted.plot.CellRect({3, i}).center()),
                      (CurvesCell{3, i}));
        }
    }
}

TEST(CurvesPlot, ARibbonThatIsAloneStandsAtItsFrequency)
{
    const DayCurves day = DayMake();
    const CurvesView view = ViewMake();
    const Painted painted(day, view);
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(painted.plot.CellRect({0, i}).center().y(),
                    painted.plot.YGet(day.aRibbons[static_cast<std::size_t>(i)].fFrequency), 0.01);
}

TEST(CurvesPlot, TextsOfFrequenciesStandApartAndThatOfTheSelectedOneIsNeverLeftOut)
{
    const DayCurves day = DayMake(CloseFrequencies());
    CurvesView view = ViewMake();
    for (const QSize size : {QSize(380, 190), QSize(900, 500)}) {
        for (view.iRibbon = -1; view.iRibbon < 15; ++view.iRibbon) {
            const Painted painted(day, view, size);
            const auto aLabel = painted.plot.LabelsGet();
            EXPECT_EQ(aLabel.size() < 15, size.height() < 200);
            for (std::size_t i = 1; i < aLabel.size(); ++i) {
                EXPECT_GE(aLabel[i].dY - aLabel[i - 1].dY,
                          QFontMetricsF(FontGet()).height() - 0.01);
                EXPECT_LT(aLabel[i].iRibbon, aLabel[i - 1].iRibbon) << "the highest is on top";
            }
            EXPECT_EQ(std::count_if(aLabel.begin(), aLabel.end(),
                                    [&view](const CurvesPlot::Label& label) {
                                        return label.iRibbon == view.iRibbon;
                                    }),
                      view.iRibbon < 0 ? 0 : 1);
        }
    }
}

/// The widest group of columns with ink in the row of hours.
int WidestText(const Painted& painted, double dFrom)
{
    const double dBottom = painted.plot.YGet(0) + 3;
    int nWidest = 0;
    int nRun = 0;
    int nBlank = 0;
    for (int x = static_cast<int>(dFrom); x < painted.image.width(); ++x) {
        bool bInk = false;
        for (int y = static_cast<int>(dBottom); y < static_cast<int>(dBottom) + 8; ++y)
            bInk = bInk || painted.image.pixelColor(x, y) != QColor(Qt::white);
        nBlank = bInk ? 0 : nBlank + 1;
        nRun = nBlank > 3 ? 0 : nRun + 1;
        nWidest = std::max(nWidest, nRun);
    }
    return nWidest;
}

TEST(CurvesPlot, HoursWithMinutesDoNotRunIntoEachOther)
{
    DayCurves day = DayMake({});
    day.afMuf.fill(500.0F);
    CurvesView view = ViewMake();
    for (QString& sHour : view.asHour) sHour += QStringLiteral(":30");
    const double dText = QFontMetricsF(FontGet()).horizontalAdvance(QStringLiteral("00:30"));
    for (const int nWidth : {260, 300, 400, 500, 700, 900, 1200, 2000}) {
        const Painted painted(day, view, {nWidth, 300});
        EXPECT_LE(WidestText(painted, painted.rct.left()), dText + 4) << nWidth;
        EXPECT_GE(WidestText(painted, painted.rct.left()), dText / 2) << nWidth;
    }
}

TEST(CurvesPlot, OldRibbonsAreFaded)
{
    const DayCurves day = DayMake();
    CurvesView view = ViewMake();
    const Painted fresh(day, view);
    view.bOld = true;
    const Painted old(day, view);
    const QPointF pnt = CornerGet(old.plot.CellRect({20, 0}));
    EXPECT_GT(old.At(pnt).lightness(), fresh.At(pnt).lightness());
}

/// Counts the ink right of the field, within nAround lines of a frequency.
int InkBeside(const Painted& painted, double dFrequency, int nAround)
{
    int nInk = 0;
    const int yMiddle = static_cast<int>(painted.plot.YGet(dFrequency));
    for (int y = yMiddle - nAround; y <= yMiddle + nAround; ++y)
        for (int x = static_cast<int>(painted.plot.XGet(24)) + 2; x < painted.image.width(); ++x)
            nInk += painted.image.pixelColor(x, y).lightness() < 128 ? 1 : 0;
    return nInk;
}

TEST(CurvesPlot, TheScaleIsWrittenBesideItsLinesWhereNoNameStands)
{
    DayCurves day = DayMake({});
    day.afMuf.fill(20000.0F);
    day.afFot.fill(kNone);
    const CurvesView view = ViewMake();
    const Painted painted(day, view);
    EXPECT_GT(InkBeside(painted, 21000, 4), 5);
    EXPECT_EQ(InkBeside(painted, 20500, 2), 0);
    const QFontMetricsF metrics(FontGet());
    for (int y = 0; y < 5; ++y)  // right of the name, as far as a number would reach
        for (double x = metrics.horizontalAdvance(QStringLiteral("MUF")) + 6; x < 40; x += 1)
            EXPECT_EQ(painted.At({painted.plot.XGet(24) + x, painted.plot.YGet(20000) + y - 2}),
                      QColor(Qt::white))
                << x;
}

TEST(CurvesPlot, NamesOfCurvesThatEndTogetherStandApart)
{
    DayCurves day = DayMake({7100});
    day.afMuf.fill(16000.0F);
    day.afFot.fill(kNone);
    day.afLuf.fill(kNone);
    const CurvesView view = ViewMake();
    const int nOne = InkBeside(Painted(day, view), 16000, 5);
    day.afFot.fill(15990.0F);
    day.afLuf.fill(15980.0F);
    EXPECT_GT(nOne, 5);
    const Painted three(day, view);
    const double dLetters = QFontMetricsF(FontGet()).height();
    const auto nLines = static_cast<int>(dLetters * 1.5);
    EXPECT_GT(InkBeside(three, 15990, nLines), 2 * nOne) << "one upon another they share their ink";
}

}  // namespace
