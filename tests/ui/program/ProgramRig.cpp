#include "ui/program/ProgramRig.h"

#include <QContextMenuEvent>
#include <QMenuBar>
#include <QMessageBox>

#include "ui/card/frmCard.h"
#include "ui/common/Guide.h"
#include "ui/common/NeedChooser.h"
#include "ui/compare/frmCompare.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/frmDays.h"
#include "ui/details/frmDetails.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmAbout.h"
#include "ui/options/frmForecast.h"
#include "ui/options/frmOptions.h"
#include "ui/places/frmPlaces.h"

namespace {

template <class W>
W* OnlyChild(QWidget& window)
{
    const auto aFound = window.findChildren<W*>();
    return aFound.isEmpty() ? nullptr : aFound.first();
}

}  // namespace

ProgramRig::ProgramRig()
{
    AirmailWrite("System.HAM.ini", kStationsHam);
    AirmailWrite("System.SailMail.ini", kStationsSail);
    OwnPlacesWrite("Home,JN47,7050,by the lake\n");
    m_engine.fnSnr = [](int iHour, int iFrequency) { return iHour + iFrequency - 30; };
}

ProgramRig::~ProgramRig()
{
    for (const QPointer<QWidget>& pKept : m_apKept) delete pKept;
}

QWidget* ProgramRig::Kept(QWidget* pWidget)
{
    m_apKept.emplace_back(pWidget);
    pWidget->show();
    return pWidget;
}

std::vector<ProgramWindow> ProgramRig::WindowsOpen()
{
    frmMain& frm = StartWithEngine();
    std::vector<ProgramWindow> aWindow{{"main", &frm}};
    frm.mnuViewDetailData->trigger();
    frm.mnuViewWorldMap->trigger();
    frm.mnuOptionsModel->trigger();
    frm.mnuHelpAbout->trigger();
    PlanOpen(aWindow);
    aWindow.push_back({"details", frm.m_pDetails});
    aWindow.push_back({"map", frm.m_pMap});
    aWindow.push_back({"options", frm.m_pOptions});
    aWindow.push_back({"about", frm.m_pAbout});
    frm.m_pOptions->cmdForecast->click();
    aWindow.push_back({"forecast", frm.m_pOptions->findChild<frmForecast*>()});
    aWindow.push_back({"guide", Kept(new frmGuide(QString::fromStdString(m_folder.Write(
                                    "guide.html", "<h1>1</h1><p><a href=\"#a\">2</a></p>"))))});
    aWindow.push_back({"box", Kept(new QMessageBox(QMessageBox::Information, QStringLiteral("1"),
                                                   QStringLiteral("2"), QMessageBox::Ok))});
    MenusOpen(aWindow);
    EventsRun();
    return aWindow;
}

void ProgramRig::PlanOpen(std::vector<ProgramWindow>& aWindow)
{
    frmMain& frm = *m_pFrm;
    for (QAction* pAction : {frm.mnuPlanReach, frm.mnuPlanDays, frm.mnuPlanCompare,
                             frm.mnuPlanCurves, frm.mnuPlanPlaces, frm.mnuFilePrintCard})
        pAction->trigger();
    EXPECT_TRUE(QTest::qWaitFor(
        [&frm] {
            return !frm.m_pReach->RunningIs() && !frm.m_pDays->RunningIs()
                   && !frm.m_pCompare->RunningIs();
        },
        30000));
    aWindow.push_back({"reach", frm.m_pReach});
    aWindow.push_back({"days", frm.m_pDays});
    aWindow.push_back({"compare", frm.m_pCompare});
    aWindow.push_back({"curves", frm.m_pCurves});
    aWindow.push_back({"places", frm.m_pPlaces});
    aWindow.push_back({"card", frm.m_pCard});
}

/// Fills the menus outside the menu bar and closes each again, since one popup hides another.
void ProgramRig::MenusOpen(std::vector<ProgramWindow>& aWindow)
{
    frmMain& frm = *m_pFrm;
    frm.mnuTransmitter->ReceiverSet(15.0, -132.0);
    EXPECT_TRUE(frm.mnuTransmitter->Build());
    QMenu* const pNeeds = OnlyChild<NeedChooser>(frm)->menu();
    for (QMenu* pMenu : {static_cast<QMenu*>(frm.mnuTransmitter), pNeeds}) {
        pMenu->popup(frm.pos());
        EventsRun();
        pMenu->close();
    }
    for (const QAction* pAction : frm.menuBar()->actions())
        aWindow.push_back({"menu", pAction->menu()});
    aWindow.push_back({"stations", frm.mnuTransmitter});
    aWindow.push_back({"needs", pNeeds});
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, frm.pos());
    QApplication::sendEvent(frm.txtLat0, &event);
    auto* const pEntry = OnlyChild<QMenu>(*frm.txtLat0);
    EXPECT_NE(pEntry, nullptr);
    aWindow.push_back({"entry", pEntry});
}
