#include <gtest/gtest.h>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QImage>
#include <QScrollBar>
#include <QSignalSpy>

#include "ui/common/GridControl.h"
#include "ui/common/GridPaint.h"
#include "ui/support/UiEvents.h"

namespace {

/// A grid of 4 x 5 cells with its headers, shown.
class GridControlShown : public testing::Test {
protected:
    void SetUp() override
    {
        m_grd.RowsSet(4);
        m_grd.ColsSet(5);
        for (int iCol = 0; iCol < 5; ++iCol) m_grd.ColWidthSet(iCol, 40);
        for (int iRow = 0; iRow < 4; ++iRow)
            for (int iCol = 0; iCol < 5; ++iCol)
                m_grd.TextSet(iRow, iCol, QString::number(10 * iRow + iCol));
        m_grd.resize(400, 300);
        m_grd.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_grd));
    }
    QImage Picture() { return m_grd.grab().toImage(); }
    QRgb PixelAt(GridPlace place, const QPoint& pntOff)
    {
        return Picture().pixel(m_grd.PlaceRect(place).topLeft() + pntOff);
    }

    GridControl m_grd;
};

TEST_F(GridControlShown, RowZeroAndColumnZeroAreHeaders)
{
    EXPECT_EQ(m_grd.model()->rowCount(), 3);
    EXPECT_EQ(m_grd.model()->columnCount(), 4);
    EXPECT_EQ(m_grd.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("2"));
    EXPECT_EQ(m_grd.model()->headerData(1, Qt::Vertical).toString(), QStringLiteral("20"));
    EXPECT_EQ(m_grd.model()->index(2, 3).data().toString(), QStringLiteral("34"));
    EXPECT_EQ(m_grd.TextGet(3, 4), QStringLiteral("34"));
}

TEST_F(GridControlShown, CellsOutsideAreEmptyAndCannotBeSet)
{
    for (const GridPlace place : {GridPlace{4, 1}, GridPlace{1, 5}, GridPlace{-1, -1}}) {
        m_grd.TextSet(place.iRow, place.iCol, QStringLiteral("x"));
        EXPECT_EQ(m_grd.TextGet(place.iRow, place.iCol), QString());
    }
}

TEST_F(GridControlShown, AHatchedCellHasLinesOnItsGround)
{
    const auto Lines = [this](GridPlace place) {
        const QImage img = Picture();
        const QRect rect = m_grd.PlaceRect(place).adjusted(2, 2, -3, -3);
        int nLines = 0;
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            for (int x = rect.left(); x <= rect.right(); ++x)
                nLines += QColor(img.pixel(x, y)) == m_grd.palette().color(QPalette::Base) ? 0 : 1;
        return nLines;
    };
    m_grd.TextSet(2, 2, {});
    EXPECT_EQ(Lines({2, 2}), 0);
    m_grd.HatchSet(2, 2, true);
    EXPECT_TRUE(m_grd.CellGet(2, 2).bHatch);
    EXPECT_GT(Lines({2, 2}), 20);
    m_grd.HatchSet(2, 2, false);
    EXPECT_EQ(Lines({2, 2}), 0);
}

TEST_F(GridControlShown, ACellThatIsEnoughHasACornerInItsTextsColour)
{
    m_grd.TextSet(2, 2, {});
    m_grd.ColorSet(2, 2, Qt::yellow, Qt::red);
    const auto Corner = [this](GridPlace place) {
        const QRect rect = m_grd.PlaceRect(place);
        return QColor(Picture().pixel(rect.topRight() + QPoint(-2, 1)));
    };
    EXPECT_EQ(Corner({2, 2}), QColor(Qt::yellow));
    m_grd.MetSet(2, 2, true);
    EXPECT_EQ(Corner({2, 2}), QColor(Qt::red));
    EXPECT_NE(Corner({2, 3}), QColor(Qt::red));
    EXPECT_NE(QColor(Picture().pixel(m_grd.PlaceRect({2, 2}).bottomLeft() + QPoint(2, -2))),
              QColor(Qt::red));
    m_grd.MetSet(2, 2, false);
    EXPECT_EQ(Corner({2, 2}), QColor(Qt::yellow));
}

TEST_F(GridControlShown, CellsAreKeptWhenRowsComeAndGo)
{
    m_grd.RowsSet(6);
    EXPECT_EQ(m_grd.TextGet(3, 4), QStringLiteral("34"));
    EXPECT_EQ(m_grd.TextGet(5, 1), QString());
    m_grd.RowsSet(3);
    EXPECT_EQ(m_grd.TextGet(2, 4), QStringLiteral("24"));
    EXPECT_EQ(m_grd.model()->rowCount(), 2);
    m_grd.ColsSet(3);
    EXPECT_EQ(m_grd.TextGet(2, 2), QStringLiteral("22"));
    m_grd.RowsSet(4);
    EXPECT_EQ(m_grd.TextGet(3, 1), QString());
}

TEST_F(GridControlShown, WidthZeroHidesAColumn)
{
    m_grd.ColWidthSet(2, 0);
    EXPECT_TRUE(m_grd.isColumnHidden(1));
    EXPECT_EQ(m_grd.ColWidthGet(2), 0);
    EXPECT_EQ(m_grd.ColLeftGet(3), m_grd.frameWidth() + 80);
    m_grd.ColWidthSet(2, 25);
    EXPECT_FALSE(m_grd.isColumnHidden(1));
    EXPECT_EQ(m_grd.ColWidthGet(2), 25);
}

TEST_F(GridControlShown, PaintsTheCellsColours)
{
    m_grd.ColorSet(2, 3, QColor(10, 200, 30), Qt::black);
    m_grd.ColorSet(2, 0, QColor(200, 10, 30), Qt::black);
    EXPECT_EQ(PixelAt({2, 3}, {4, 3}), qRgb(10, 200, 30));
    EXPECT_EQ(PixelAt({2, 0}, {2, 3}), qRgb(200, 10, 30));
    EXPECT_EQ(PixelAt({1, 3}, {4, 3}), m_grd.palette().color(QPalette::Base).rgb());
}

TEST_F(GridControlShown, FrameStandsOutOnAnyColour)
{
    for (const QColor& clrCell : {QColor(Qt::black), QColor(Qt::white), QColor(128, 128, 128)}) {
        m_grd.ColorSet(1, 1, clrCell, TextColorOn(clrCell));
        m_grd.FrameSet(1, 1, true);
        const QRgb nOuter = PixelAt({1, 1}, {0, 5});
        const QRgb nInner = PixelAt({1, 1}, {2, 5});
        EXPECT_NE(nOuter, nInner);
        EXPECT_TRUE(nOuter != clrCell.rgb() || nInner != clrCell.rgb());
    }
}

TEST_F(GridControlShown, OldContentsAreFaded)
{
    m_grd.ColorSet(1, 1, QColor(0, 0, 128), Qt::white);
    m_grd.StaleSet(true);
    EXPECT_NE(PixelAt({1, 1}, {4, 3}), qRgb(0, 0, 128));
    m_grd.StaleSet(false);
    EXPECT_EQ(PixelAt({1, 1}, {4, 3}), qRgb(0, 0, 128));
}

TEST_F(GridControlShown, RedrawOffKeepsViewsSilentUntilOn)
{
    QSignalSpy spyCells(m_grd.model(), &QAbstractItemModel::dataChanged);
    m_grd.RedrawSet(false);
    m_grd.TextSet(1, 1, QStringLiteral("new"));
    m_grd.TextSet(2, 2, QStringLiteral("new"));
    EXPECT_EQ(spyCells.count(), 0);
    m_grd.RedrawSet(true);
    EXPECT_EQ(spyCells.count(), 1);
    m_grd.TextSet(1, 1, QStringLiteral("newer"));
    EXPECT_EQ(spyCells.count(), 2);
}

TEST_F(GridControlShown, RedrawOffPaintsOnlyWhatTheWindowSystemAsksFor)
{
    struct PaintCount : QObject {
        bool eventFilter(QObject* /*pObject*/, QEvent* pEvent) override
        {
            nPaints += pEvent->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int nPaints = 0;
    } count;
    QApplication::processEvents();
    m_grd.viewport()->installEventFilter(&count);
    m_grd.RedrawSet(false);
    m_grd.TextSet(1, 1, QStringLiteral("new"));
    QApplication::processEvents();
    EXPECT_EQ(count.nPaints, 0);
    m_grd.viewport()->repaint();  // as after a box above it has moved
    EXPECT_EQ(count.nPaints, 1);
    m_grd.RedrawSet(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return count.nPaints == 2; }));
}

TEST_F(GridControlShown, PlaceAtFindsHeadersCellsAndNothing)
{
    for (const GridPlace place :
         {GridPlace{0, 3}, GridPlace{2, 0}, GridPlace{3, 4}, GridPlace{0, 0}})
        EXPECT_EQ(m_grd.PlaceAt(m_grd.PlaceRect(place).center()), place)
            << place.iRow << "," << place.iCol;
    const GridPlace placeRight = m_grd.PlaceAt(m_grd.PlaceRect({1, 4}).center() + QPoint(100, 0));
    EXPECT_EQ(placeRight, (GridPlace{1, -1}));
    EXPECT_EQ(m_grd.PlaceAt({-5, -5}), (GridPlace{-1, -1}));
}

TEST_F(GridControlShown, LeftClickTellsTheCellAndHeadersAreNone)
{
    QSignalSpy spy(&m_grd, &GridControl::CellClicked);
    CellMouse(m_grd, {2, 3});
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toInt(), 2);
    EXPECT_EQ(spy.at(0).at(1).toInt(), 3);
    CellMouse(m_grd, {0, 3});
    CellMouse(m_grd, {2, 0});
    CellMouse(m_grd, {2, 3}, Qt::RightButton);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(GridControlShown, PressTellsCellAndButtonOnHeadersToo)
{
    QSignalSpy spy(&m_grd, &GridControl::CellPressed);
    CellMouse(m_grd, {0, 3}, Qt::RightButton);
    CellMouse(m_grd, {2, 0});
    CellMouse(m_grd, {3, 1}, Qt::RightButton);
    ASSERT_EQ(spy.count(), 3);
    EXPECT_EQ(spy.at(0).at(0).toInt(), 0);
    EXPECT_EQ(spy.at(0).at(1).toInt(), 3);
    EXPECT_EQ(spy.at(0).at(2).value<Qt::MouseButton>(), Qt::RightButton);
    EXPECT_EQ(spy.at(1).at(0).toInt(), 2);
    EXPECT_EQ(spy.at(1).at(1).toInt(), 0);
    EXPECT_EQ(spy.at(2).at(0).toInt(), 3);
}

TEST_F(GridControlShown, MouseMoveIsToldOncePerPosition)
{
    QSignalSpy spy(&m_grd, &GridControl::MouseMoved);
    CellMouseMove(m_grd, {2, 3});
    CellMouseMove(m_grd, {2, 3});
    EXPECT_EQ(spy.count(), 1);
    CellMouseMove(m_grd, {2, 3}, {1, 0});
    CellMouseMove(m_grd, {0, 3});
    CellMouseMove(m_grd, {2, 0});
    ASSERT_EQ(spy.count(), 4);
    EXPECT_EQ(spy.at(2).at(0).toInt(), 0);
    EXPECT_EQ(spy.at(2).at(1).toInt(), 3);
    EXPECT_EQ(spy.at(3).at(0).toInt(), 2);
    EXPECT_EQ(spy.at(3).at(1).toInt(), 0);
}

TEST_F(GridControlShown, ToolTipIsClearedAndSetAnew)
{
    m_grd.ToolTipRenew(QStringLiteral("one"));
    ToolTipRecorder recorder(&m_grd);
    m_grd.ToolTipRenew(QStringLiteral("one"));
    EXPECT_EQ(recorder.m_asText, (QStringList{QString(), QStringLiteral("one")}));
    m_grd.ToolTipRenew({});
    EXPECT_EQ(m_grd.toolTip(), QString());
}

TEST_F(GridControlShown, ArrowsMoveTheCurrentCellAndEnterPicksIt)
{
    QSignalSpy spy(&m_grd, &GridControl::EnterPressed);
    m_grd.CurrentSet(1, 1);
    QTest::keyClick(&m_grd, Qt::Key_Right);
    QTest::keyClick(&m_grd, Qt::Key_Down);
    EXPECT_EQ(m_grd.CurrentGet(), (GridPlace{2, 2}));
    QTest::keyClick(&m_grd, Qt::Key_Return);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toInt(), 2);
    EXPECT_EQ(spy.at(0).at(1).toInt(), 2);
    for (int n = 0; n < 9; ++n) QTest::keyClick(&m_grd, Qt::Key_Left);
    EXPECT_EQ(m_grd.CurrentGet(), (GridPlace{2, 1}));
}

TEST_F(GridControlShown, EnterWithoutCurrentCellPicksNothing)
{
    QSignalSpy spy(&m_grd, &GridControl::EnterPressed);
    m_grd.CurrentSet(-1, -1);
    QTest::keyClick(&m_grd, Qt::Key_Return);
    EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(m_grd.CurrentGet(), GridPlace{});
}

TEST_F(GridControlShown, MenuKeyTellsTheCurrentCell)
{
    QSignalSpy spy(&m_grd, &GridControl::CellMenu);
    m_grd.CurrentSet(3, 2);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(m_grd.viewport(), &event);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toInt(), 3);
    EXPECT_EQ(spy.at(0).at(1).toInt(), 2);
    QContextMenuEvent eventMouse(QContextMenuEvent::Mouse, {}, {});
    QApplication::sendEvent(m_grd.viewport(), &eventMouse);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(GridControlShown, SpeaksItsCellsToScreenReaders)
{
    m_grd.SpeechSet([](int iRow, int iCol) { return QStringLiteral("%1/%2").arg(iRow).arg(iCol); });
    QAccessibleInterface* pGrid = QAccessible::queryAccessibleInterface(&m_grd);
    ASSERT_NE(pGrid, nullptr);
    ASSERT_NE(pGrid->tableInterface(), nullptr);
    QAccessibleInterface* pCell = pGrid->tableInterface()->cellAt(1, 2);
    ASSERT_NE(pCell, nullptr);
    EXPECT_EQ(pCell->text(QAccessible::Name), QStringLiteral("2/3"));
}

TEST_F(GridControlShown, HeadersStayWhileCellsScroll)
{
    m_grd.resize(140, 70);
    m_grd.horizontalScrollBar()->setValue(m_grd.horizontalScrollBar()->maximum());
    m_grd.verticalScrollBar()->setValue(m_grd.verticalScrollBar()->maximum());
    EXPECT_GT(m_grd.horizontalScrollBar()->value(), 0);
    EXPECT_EQ(m_grd.PlaceRect({0, 4}).top(), m_grd.frameWidth());
    EXPECT_EQ(m_grd.PlaceRect({3, 0}).left(), m_grd.frameWidth());
}

TEST_F(GridControlShown, HuggingGridIsNoWiderThanItsColumns)
{
    m_grd.ContentLimitSet(true);
    EXPECT_EQ(m_grd.maximumWidth(), 5 * 40 + 2 * m_grd.frameWidth());
}

TEST_F(GridControlShown, RowsMakeRoomForTheBarOfTheColumns)
{
    m_grd.resize(140, 300);  // rows fit, columns do not
    QApplication::processEvents();
    EXPECT_TRUE(m_grd.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(m_grd.verticalScrollBar()->isVisible());
    const int nCompact = m_grd.sizeHint().height();
    m_grd.resize(400, nCompact);  // the rows share little room
    QApplication::processEvents();
    EXPECT_FALSE(m_grd.verticalScrollBar()->isVisible());
    m_grd.ColWidthSet(4, 400);  // now the scroll bar takes some of it
    m_grd.resize(400, nCompact + m_grd.horizontalScrollBar()->sizeHint().height());
    QApplication::processEvents();
    EXPECT_TRUE(m_grd.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(m_grd.verticalScrollBar()->isVisible());
}

TEST_F(GridControlShown, ALabelThatIsTooLongEndsInAnEllipsis)
{
    m_grd.TextSet(1, 0, QStringLiteral("WWWWWWWWWWWW"));
    const auto LabelPicture = [this] { return Picture().copy(m_grd.PlaceRect({1, 0})); };
    const QImage imgLong = LabelPicture();
    m_grd.TextSet(1, 0,
                  m_grd.fontMetrics().elidedText(QStringLiteral("WWWWWWWWWWWW"), Qt::ElideRight,
                                                 40 - kGridPadding));
    EXPECT_EQ(imgLong, LabelPicture());
    m_grd.TextSet(1, 0, QStringLiteral("WWW"));
    EXPECT_NE(imgLong, LabelPicture());
}

}  // namespace
