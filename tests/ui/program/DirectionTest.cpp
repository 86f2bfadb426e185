/// Right-to-left windows: signs come before their numbers, and pictures and pages stay the same.
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSpinBox>
#include <QTreeWidget>
#include <algorithm>

#include "ui/card/CardPage.h"
#include "ui/common/ElidedLabel.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/DaysBand.h"
#include "ui/details/frmDetails.h"
#include "ui/options/StationPage.h"
#include "ui/page/PageFile.h"
#include "ui/program/ProgramRig.h"

namespace {

/// Mirrors every window while the object exists.
class RightToLeft {
public:
    RightToLeft() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    ~RightToLeft() { QApplication::setLayoutDirection(Qt::LeftToRight); }
    RightToLeft(const RightToLeft&) = delete;
    RightToLeft& operator=(const RightToLeft&) = delete;
};

/// The number of dark pixels in each column of a picture, from the first to the last column that
/// has any.
std::vector<int> InkOf(const QImage& img)
{
    std::vector<int> anInk;
    for (int x = 0; x < img.width(); ++x) {
        int nInk = 0;
        for (int y = 0; y < img.height(); ++y)
            nInk += qGray(img.pixel(x, y)) < qGray(img.pixel(0, 0)) - 100 ? 1 : 0;
        if (nInk > 0 || !anInk.empty())
            anInk.push_back(nInk);
    }
    while (!anInk.empty() && anInk.back() == 0) anInk.pop_back();
    return anInk;
}

/// Expects a sign first: its columns have fewer pixels than a figure's.
void SignIsFirst(const QImage& img, const std::string& sWhat)
{
    const std::vector<int> anInk = InkOf(img);
    ASSERT_GT(anInk.size(), 8U) << sWhat;
    const int nFirst = *std::max_element(anInk.begin(), anInk.begin() + 3);
    const int nLast = *std::max_element(anInk.end() - 4, anInk.end());
    EXPECT_LT(2 * nFirst, nLast) << sWhat;
}

/// A widget's picture, black on white with large letters.
QImage ImageOf(QWidget& widget)
{
    QPalette palette;
    for (const auto eRole : {QPalette::Base, QPalette::Window, QPalette::Button})
        palette.setColor(eRole, Qt::white);
    for (const auto eRole : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(eRole, Qt::black);
    widget.setPalette(palette);
    QFont fnt = widget.font();
    fnt.setPixelSize(40);
    widget.setFont(fnt);
    widget.resize(400, 160);
    widget.show();
    MainRig::EventsRun();
    return widget.grab().toImage();
}

TEST(Direction, OfASignInACellAndInAHeader)
{
    const RightToLeft mirrored;
    for (const Qt::Alignment eAlignment : {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight}) {
        GridControl grd;
        grd.ColsSet(2);
        grd.RowsSet(2);
        grd.ColWidthSet(0, 0);
        grd.ColWidthSet(1, 200);
        grd.AlignmentSet(1, 1, eAlignment);
        grd.AlignmentSet(0, 1, eAlignment);
        for (const char* sText : {"-8", "+5"}) {
            grd.TextSet(0, 1, {});
            grd.TextSet(1, 1, QLatin1String(sText));
            const QImage img = ImageOf(grd);
            const QRect rect = grd.PlaceRect({1, 1}).adjusted(2, 4, -2, -4);
            SignIsFirst(img.copy(rect), sText);
        }
        grd.TextSet(0, 1, QStringLiteral("-8"));
        SignIsFirst(ImageOf(grd).copy(grd.PlaceRect({0, 1}).adjusted(4, 4, -4, -4)), "header");
    }
}

TEST(Direction, OfTheLabelsOfRowsIsTheRightSide)
{
    const RightToLeft mirrored;
    GridControl grd;
    grd.ColsSet(3);
    grd.RowsSet(3);
    grd.ColWidthSet(0, 60);
    ImageOf(grd);
    for (const GridPlace place : {GridPlace{0, 1}, GridPlace{1, 0}, GridPlace{2, 2}})
        EXPECT_EQ(grd.PlaceAt(grd.PlaceRect(place).center()), place);
    EXPECT_GT(grd.PlaceRect({1, 0}).left(), grd.PlaceRect({1, 1}).left());
}

TEST(Direction, OfASignInALabelAndInAnEntryField)
{
    const RightToLeft mirrored;
    QLabel label(QStringLiteral("-8"));
    SignIsFirst(ImageOf(label), "label");
    ElidedLabel elided(nullptr);
    elided.setText(QStringLiteral("-8"));
    SignIsFirst(ImageOf(elided), "status line");
    QLineEdit entry(QStringLiteral("-8"));
    entry.setFrame(false);
    SignIsFirst(ImageOf(entry).copy(8, 12, 384, 136), "entry field");
}

TEST(Direction, OfTheFiguresInTheListOfNeeds)
{
    const RightToLeft mirrored;
    StationPage page(nullptr);
    Settings settings;
    settings.m_aNeed = {{"1", -8.0F, "1"}};
    page.Load(settings);
    page.lstNeeds->setCurrentItem(nullptr);
    ImageOf(*page.lstNeeds);
    page.lstNeeds->header()->setStretchLastSection(true);
    MainRig::EventsRun();
    const QRect rect =
        page.lstNeeds->visualRect(page.lstNeeds->indexFromItem(page.lstNeeds->topLevelItem(0), 1));
    SignIsFirst(page.lstNeeds->viewport()->grab(rect).toImage(), "need");
}

/// Uses the real windows: cells of a mirrored grid look the same as without mirroring.
TEST(Direction, OfTheTablesIsThatOfTheirTextsAlone)
{
    const auto CellsOf = [](bool bMirrored) {
        QApplication::setLayoutDirection(bMirrored ? Qt::RightToLeft : Qt::LeftToRight);
        ProgramRig rig;
        frmMain& frm = rig.StartWithEngine();
        frm.mnuViewDetailData->trigger();
        MainRig::EventsRun();
        std::vector<QImage> aCell;
        for (GridControl* pGrid : {frm.grdData, frm.m_pDetails->grdData})
            for (int iRow = 0; iRow < std::min(4, pGrid->RowsGet()); ++iRow) {
                pGrid->CurrentSet(-1, -1);
                const QRect rect = pGrid->PlaceRect({iRow, 8}).adjusted(2, 2, -2, -2);
                aCell.push_back(pGrid->grab(rect).toImage());
            }
        QApplication::setLayoutDirection(Qt::LeftToRight);
        return aCell;
    };
    const auto aPlain = CellsOf(false);
    const auto aMirrored = CellsOf(true);
    ASSERT_EQ(aPlain.size(), aMirrored.size());
    for (std::size_t n = 0; n < aPlain.size(); ++n) {
        const auto anPlain = InkOf(aPlain[n]);
        EXPECT_EQ(anPlain, InkOf(aMirrored[n])) << n;
    }
}

/// Hours run from left to right for everyone.
TEST(Direction, OfCurvesAndBandsIsNeverMirrored)
{
    const auto PicturesOf = [](bool bMirrored) {
        QApplication::setLayoutDirection(bMirrored ? Qt::RightToLeft : Qt::LeftToRight);
        DaysBandView band(nullptr);
        DaysBand day;
        day.asHour = HourLabelsGet(kTimeZulu);
        day.fNeed = -8.0F;
        for (DaysCell& cell : day.aHours) {
            cell.fBad = -28.0F;
            cell.fMedian = -18.0F;
            cell.fGood = 2.0F;
        }
        band.Show(day);
        const QImage imgBand = ImageOf(band);
        ProgramRig rig;
        frmMain& frm = rig.StartWithEngine();
        frmCurves& curves = rig.WindowOpen(Qt::Key_D, frm.m_pCurves);
        curves.pctCurves->clearFocus();
        const QImage imgCurves = curves.pctCurves->grab().toImage();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        return std::pair(imgBand, imgCurves);
    };
    const auto [imgBand, imgCurves] = PicturesOf(false);
    const auto [imgBandMirrored, imgCurvesMirrored] = PicturesOf(true);
    EXPECT_EQ(imgBand, imgBandMirrored);
    EXPECT_EQ(imgCurves, imgCurvesMirrored);
}

/// A page on paper, with its table, curves and band, ignores the direction of windows.
TEST(Direction, OfPagesIsNeverMirrored)
{
    ProgramRig rig;
    frmMain& frm = rig.StartWithEngine();
    CardInput input;
    input.asShip = HourLabelsGet(kTimeLocal);
    input.need = {"1", -8.0F, "1"};
    input.nYear = 2026;
    DaysBand band;
    band.asHour = input.asShip;
    band.fNeed = -8.0F;
    for (DaysCell& cell : band.aHours) {
        cell.fBad = -28.0F;
        cell.fMedian = -18.0F;
        cell.fGood = 2.0F;
    }
    Page page = CardPageGet(frm.TableGet(), input);
    PagePicture picture;
    picture.fnPaint = [&band](QPainter& painter, const QRectF& rct, PageLook eLook) {
        DaysBandPaint(painter, rct, band, Qt::black, eLook);
    };
    page.aBlock.push_back({QStringLiteral("-8"), std::move(picture)});
    constexpr int kDotsPerInch = 60;
    const QImage imgPlain = PageImage(page, {}, kDotsPerInch);
    const RightToLeft mirrored;
    EXPECT_EQ(PageImage(page, {}, kDotsPerInch), imgPlain);
}

}  // namespace
