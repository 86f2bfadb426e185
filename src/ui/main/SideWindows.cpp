#include "ui/main/SideWindows.h"

#include "ui/card/frmCard.h"
#include "ui/common/WindowPlace.h"
#include "ui/compare/frmCompare.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/frmDays.h"
#include "ui/details/frmDetails.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmAbout.h"
#include "ui/options/frmOptions.h"
#include "ui/places/frmPlaces.h"
#include "ui/reach/frmReach.h"

namespace {

/// Shows a window, or brings it to the front if it is already open.
void WindowRaise(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

}  // namespace

SideWindows::SideWindows(QWidget& window, PlanHost& host) : m_window(window), m_host(host) {}

void SideWindows::AboutShow()
{
    if (!m_pAbout)
        m_pAbout = new frmAbout;
    WindowRaise(*m_pAbout);
}

void SideWindows::CardShow()
{
    if (!m_pCard) {
        m_pCard = new frmCard(m_host, m_formCard);
        WindowFit(*m_pCard, m_window);
    }
    WindowRaise(*m_pCard);
}

void SideWindows::CurvesShow()
{
    if (!m_pCurves) {
        m_pCurves = new frmCurves(m_host);
        WindowFit(*m_pCurves, m_window);
    }
    WindowRaise(*m_pCurves);
}

void SideWindows::MapShow()
{
    if (!m_pMap) {
        m_pMap = new frmMap(m_host, [this](int iModel) { return m_host.EngineGet(iModel); });
        WindowFit(*m_pMap, m_window);
        QObject::connect(m_pMap, &QObject::destroyed, &m_window,
                         [this] { m_host.OverlayFailedSet({}); });
    }
    WindowRaise(*m_pMap);
}

void SideWindows::OptionsShow(int iTab)
{
    if (!m_pOptions) {
        m_pOptions = new frmOptions(m_host);
        WindowFit(*m_pOptions, m_window);
    }
    WindowRaise(*m_pOptions);
    m_pOptions->TabShow(iTab);
}

void SideWindows::PlacesShow()
{
    if (!m_pPlaces) {
        m_pPlaces = new frmPlaces(m_host);
        WindowFit(*m_pPlaces, m_window);
    }
    WindowRaise(*m_pPlaces);
}

void SideWindows::ReachShow()
{
    const bool bNew = !m_pReach;
    if (bNew) {
        m_pReach = new frmReach(m_host);
        WindowFit(*m_pReach, m_window);
    }
    WindowRaise(*m_pReach);
    if (bNew)
        m_pReach->Search();
}

void SideWindows::DaysShow()
{
    if (!m_pDays) {
        m_pDays = new frmDays(m_host);
        WindowFit(*m_pDays, m_window);
    }
    WindowRaise(*m_pDays);
}

void SideWindows::CompareShow()
{
    if (!m_pCompare) {
        m_pCompare = new frmCompare(m_host);
        WindowFit(*m_pCompare, m_window);
    }
    WindowRaise(*m_pCompare);
}

void SideWindows::DetailsShow(GridControl& grdMain)
{
    if (!m_pDetails) {
        m_pDetails = new frmDetails(m_host, grdMain);
        WindowPutBeside(*m_pDetails, m_window);
    }
    m_pDetails->setWindowState(m_pDetails->windowState() & ~Qt::WindowMinimized);
    m_pDetails->show();
}

void SideWindows::DetailsRaise()
{
    if (m_pDetails)
        WindowRaise(*m_pDetails);
}

int SideWindows::DetailsHourGet() const { return m_pDetails ? m_pDetails->m_iHour : -1; }

void SideWindows::DetailsFill(const SelectedCell& cell, const QString& sTime,
                              const PropagationTable& table)
{
    if (m_pDetails && m_pDetails->isVisible() && cell.iHour != -1)
        m_pDetails->Update(cell.iFrequency, cell.iHour, sTime, table);
}

void SideWindows::Update()
{
    if (m_pMap)
        m_pMap->Update();
    Q_EMIT m_host.SettingsSignalGet().Changed();
}

void SideWindows::Unload()
{
    for (const QPointer<PlanWindow>& pPlan :
         {QPointer<PlanWindow>(m_pCard), QPointer<PlanWindow>(m_pReach),
          QPointer<PlanWindow>(m_pCurves), QPointer<PlanWindow>(m_pPlaces),
          QPointer<PlanWindow>(m_pDays), QPointer<PlanWindow>(m_pCompare)}) {
        if (pPlan)
            pPlan->close();  // saves its place
        delete pPlan;
    }
    delete m_pAbout;
    delete m_pDetails;
    delete m_pMap;
    delete m_pOptions;
}
