/// Small and dense screens: every window fits, and each of its controls is visible or can be
/// scrolled to. The same program runs on several screens; see CMakeLists.txt.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include "places/OwnPlaces.h"
#include "ui/card/frmCard.h"
#include "ui/common/ElidedLabel.h"
#include "ui/common/Guide.h"
#include "ui/compare/frmCompare.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/frmDays.h"
#include "ui/details/frmDetails.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmAbout.h"
#include "ui/options/frmOptions.h"
#include "ui/places/frmPlaces.h"
#include "ui/reach/frmReach.h"
#include "ui/support/MainRig.h"

namespace {

QRect ScreenGet() { return QGuiApplication::primaryScreen()->availableGeometry(); }

std::string NameOf(const QWidget& widget)
{
    return widget.window()->objectName().toStdString() + " " + widget.objectName().toStdString();
}

/// True for what a user looks for: a control with a name, visible and enabled, not a part of
/// another control.
bool ControlIs(const QWidget& widget)
{
    if (!widget.isVisible() || !widget.isEnabled() || widget.objectName().isEmpty()
        || widget.objectName().startsWith(QStringLiteral("qt_")))
        return false;
    if (const auto* pLabel = qobject_cast<const QLabel*>(&widget))
        return !pLabel->text().isEmpty() || !pLabel->pixmap(Qt::ReturnByValue).isNull();
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr
           || qobject_cast<const QLineEdit*>(&widget) != nullptr
           || qobject_cast<const QComboBox*>(&widget) != nullptr
           || qobject_cast<const QMenuBar*>(&widget) != nullptr
           || qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr;
}

/// The range that a scroll bar can bring into an area of nRoom pixels, in the area's present
/// coordinates.
struct Room {
    int nFrom = 0;
    int nTo = 0;
};

Room RoomOf(const QScrollBar& bar, Qt::ScrollBarPolicy ePolicy, int nRoom)
{
    if (ePolicy == Qt::ScrollBarAlwaysOff)
        return {0, nRoom};
    return {bar.minimum() - bar.value(), nRoom + bar.maximum() - bar.value()};
}

bool ScrolledTo(const QAbstractScrollArea& area, const QRect& rect)
{
    const QSize sizeRoom = area.viewport()->size();
    const Room x =
        RoomOf(*area.horizontalScrollBar(), area.horizontalScrollBarPolicy(), sizeRoom.width());
    const Room y =
        RoomOf(*area.verticalScrollBar(), area.verticalScrollBarPolicy(), sizeRoom.height());
    return rect.left() >= x.nFrom && rect.right() < x.nTo && rect.top() >= y.nFrom
           && rect.bottom() < y.nTo;
}

/// True if the control lies within all its parents up to the window, or can be scrolled there.
bool ReachableIs(const QWidget& control)
{
    QRect rect = control.rect();
    for (const QWidget* p = &control; !p->isWindow(); p = p->parentWidget()) {
        rect.translate(p->pos());
        const QWidget* pParent = p->parentWidget();
        const auto* pArea = qobject_cast<const QAbstractScrollArea*>(pParent->parentWidget());
        if (pArea != nullptr && pArea->viewport() == pParent) {
            if (!ScrolledTo(*pArea, rect))
                return false;
            rect = QRect(QPoint(), rect.size().boundedTo(pParent->size()));
        } else if (!pParent->rect().contains(rect)) {
            return false;
        }
    }
    return true;
}

/// True for a one-line label with less room than its text needs. Labels of the status line shorten
/// themselves and show the whole text in their tooltip.
bool CutIs(const QWidget& control)
{
    const auto* pLabel = qobject_cast<const QLabel*>(&control);
    if (const auto* pElided = dynamic_cast<const ElidedLabel*>(&control))
        return pElided->TextShown() != pElided->text() && pElided->toolTip().isEmpty();
    return pLabel != nullptr && !pLabel->wordWrap()
           && (pLabel->width() < pLabel->sizeHint().width()
               || pLabel->height() < pLabel->sizeHint().height());
}

/// Checks every control of a window. @return how many there are
int WindowWalk(QWidget& window)
{
    MainRig::EventsRun();
    EXPECT_TRUE(ScreenGet().contains(window.frameGeometry()))
        << NameOf(window) << " " << window.frameGeometry().width() << "x"
        << window.frameGeometry().height() << " on " << ScreenGet().width() << "x"
        << ScreenGet().height();
    int nControls = 0;
    for (QWidget* pControl : window.findChildren<QWidget*>()) {
        if (pControl->window() != &window || !ControlIs(*pControl))
            continue;
        ++nControls;
        if (pControl->focusPolicy() != Qt::NoFocus)  // a row of buttons scrolls to the focus
            pControl->setFocus();
        MainRig::EventsRun();
        EXPECT_TRUE(ReachableIs(*pControl)) << NameOf(*pControl);
        EXPECT_FALSE(CutIs(*pControl)) << NameOf(*pControl);
    }
    return nControls;
}

TEST(Screen, OfTheMainWindow)
{
    MainRig rig;
    EXPECT_GT(WindowWalk(rig.Start()), 15);
}

TEST(Screen, OfTheMainWindowWithHoursAndMinutes)
{
    MainRig rig;
    rig.ProfileAdd("[Time Data]\nCode=1\n");
    rig.m_dtLocal = {2026, 11, 21, 18, 35, 0};
    EXPECT_GT(WindowWalk(rig.Start()), 15);
}

TEST(Screen, OfTheMenus)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    for (QAction* pAction : frm.menuBar()->actions()) {
        QMenu* pMenu = pAction->menu();
        pMenu->popup(
            frm.menuBar()->mapToGlobal(frm.menuBar()->actionGeometry(pAction).bottomLeft()));
        MainRig::EventsRun();
        EXPECT_TRUE(ScreenGet().contains(pMenu->geometry())) << pAction->text().toStdString();
        pMenu->close();
    }
}

TEST(Screen, OfTheDetails)
{
    for (const int iModel : {kEngineVoacap, kEngineRec533}) {
        MainRig rig(iModel);
        frmMain& frm = rig.Start();
        frm.mnuViewDetailData->trigger();
        ASSERT_NE(frm.m_pDetails, nullptr);
        EXPECT_GE(WindowWalk(*frm.m_pDetails), 2);
    }
}

TEST(Screen, OfTheMap)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuViewWorldMap->trigger();
    ASSERT_NE(frm.m_pMap, nullptr);
    EXPECT_GT(WindowWalk(*frm.m_pMap), 10);
}

TEST(Screen, OfEveryTabOfTheOptions)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuOptionsModel->trigger();
    ASSERT_NE(frm.m_pOptions, nullptr);
    for (int i = 0; i < frm.m_pOptions->SSTab->count(); ++i) {
        frm.m_pOptions->TabShow(i);
        EXPECT_GT(WindowWalk(*frm.m_pOptions), 5)
            << frm.m_pOptions->SSTab->tabText(i).toStdString();
    }
}

TEST(Screen, OfTheOptionsInAWindowSmallerThanTheirPages)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuOptionsModel->trigger();
    ASSERT_NE(frm.m_pOptions, nullptr);
    const int nWhole = frm.m_pOptions->height();
    frm.m_pOptions->resize(1, 1);
    EXPECT_LT(frm.m_pOptions->height(), nWhole / 2 + 1);
    for (int i = 0; i < frm.m_pOptions->SSTab->count(); ++i) {
        frm.m_pOptions->TabShow(i);
        EXPECT_GT(WindowWalk(*frm.m_pOptions), 5);
    }
}

TEST(Screen, OfAbout)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuHelpAbout->trigger();
    ASSERT_NE(frm.m_pAbout, nullptr);
    EXPECT_GE(WindowWalk(*frm.m_pAbout), 3);
}

/// Writes lists with one usable station and one own place.
void PlacesWrite(MainRig& rig)
{
    rig.AirmailWrite("System.HAM.ini", "[Station Info]\nKQ6XA=CM87:San Luis; 7103.0\nBAD=1:x\n");
    rig.m_folder.Write("hopcast.places.csv", std::string(kOwnPlacesHead) + "\nHome,JN47,,\n");
}

TEST(Screen, OfWhoCanIReach)
{
    MainRig rig;
    PlacesWrite(rig);
    frmMain& frm = rig.Start();
    frm.mnuPlanReach->trigger();
    ASSERT_NE(frm.m_pReach, nullptr);
    EXPECT_GT(WindowWalk(*frm.m_pReach), 12);
}

TEST(Screen, OfDayCurves)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuPlanCurves->trigger();
    ASSERT_NE(frm.m_pCurves, nullptr);
    EXPECT_GE(WindowWalk(*frm.m_pCurves), 4);
}

TEST(Screen, OfMyPlaces)
{
    MainRig rig;
    PlacesWrite(rig);
    frmMain& frm = rig.Start();
    frm.mnuPlanPlaces->trigger();
    ASSERT_NE(frm.m_pPlaces, nullptr);
    EXPECT_GT(WindowWalk(*frm.m_pPlaces), 10);
}

TEST(Screen, OfGoodAndBadDays)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuPlanDays->trigger();
    ASSERT_NE(frm.m_pDays, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !frm.m_pDays->RunningIs(); }, 20000));
    EXPECT_GE(WindowWalk(*frm.m_pDays), 6);
}

TEST(Screen, OfCompareEngines)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuPlanCompare->trigger();
    ASSERT_NE(frm.m_pCompare, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !frm.m_pCompare->RunningIs(); }, 20000));
    EXPECT_GE(WindowWalk(*frm.m_pCompare), 8);
}

TEST(Screen, OfPrintCard)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuFilePrintCard->trigger();
    ASSERT_NE(frm.m_pCard, nullptr);
    EXPECT_GT(WindowWalk(*frm.m_pCard), 8);
}

TEST(Screen, OfTheGuide)
{
    const TempFolder folder;
    std::string sPage = "<h1>Guide</h1>";
    for (int i = 0; i < 200; ++i) sPage += "<p>Bigger is better.</p>";
    frmGuide frm(QString::fromStdString(folder.Write("guide.html", sPage)));
    frm.setAttribute(Qt::WA_DeleteOnClose, false);
    frm.show();
    frm.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frm));
    WindowWalk(frm);
    const QScrollBar& bar = *frm.verticalScrollBar();
    ASSERT_GT(bar.maximum(), frm.viewport()->height());
    QTest::keyClick(frm.windowHandle(), Qt::Key_PageDown);
    EXPECT_GT(bar.value(), frm.viewport()->height() / 2);
    QTest::keyClick(frm.windowHandle(), Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    QTest::keyClick(frm.windowHandle(), Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
}

}  // namespace
