/// @file SideWindows.h
/// The windows beside the main one: each is opened once and then brought to the front.
///
/// Tests:   tests/ui/main/FrmMainStartTest.cpp, FrmMainSelectionTest.cpp
#pragma once

#include <QPointer>

#include "propagation/PropagationTable.h"
#include "settings/Settings.h"
#include "ui/page/PageFile.h"

class GridControl;
class PlanHost;
class QWidget;
class frmAbout;
class frmCard;
class frmCompare;
class frmCurves;
class frmDays;
class frmDetails;
class frmMap;
class frmOptions;
class frmPlaces;
class frmReach;

class SideWindows {
public:
    /// @param window  the main window, beside which the others open
    SideWindows(QWidget& window, PlanHost& host);

    void AboutShow();
    void CardShow();
    void CurvesShow();
    void MapShow();
    void OptionsShow(int iTab);
    void PlacesShow();
    void ReachShow();
    void DaysShow();
    void CompareShow();
    /// Shows the details of a cell; does not activate a window that is already open.
    void DetailsShow(GridControl& grdMain);
    void DetailsRaise();
    /// The hour shown in the details window; -1 for none.
    [[nodiscard]] int DetailsHourGet() const;
    /// An open details window follows every new table. When no row is selected (after a failed run,
    /// or if a shorter list lacks it) no row is highlighted.
    /// @param cell  hour -1: nothing is filled in
    void DetailsFill(const SelectedCell& cell, const QString& sTime, const PropagationTable& table);
    /// Updates the windows that follow the settings, before a run.
    void Update();
    /// To be called by the owner before its own destruction: closing windows still use the host.
    void Unload();

    // nullptr while closed.
    QPointer<frmAbout> m_pAbout;
    QPointer<frmCard> m_pCard;
    QPointer<frmCurves> m_pCurves;
    QPointer<frmDetails> m_pDetails;
    QPointer<frmMap> m_pMap;
    QPointer<frmOptions> m_pOptions;
    QPointer<frmPlaces> m_pPlaces;
    QPointer<frmDays> m_pDays;
    QPointer<frmCompare> m_pCompare;
    QPointer<frmReach> m_pReach;

private:
    QWidget& m_window;
    PlanHost& m_host;
    PageForm m_formCard;  // the choices made for the last card
};
