/// @file SideWindows.h
/// The windows beside the main one: opened once, brought to the front after that.
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
    /// @param window  the main window, as host and as the place beside which the others appear
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
    /// Shows the details of a cell; without activating a window that is there.
    void DetailsShow(GridControl& grdMain);
    void DetailsRaise();
    /// The hour that open details show; -1 for none.
    [[nodiscard]] int DetailsHourGet() const;
    /// An open details window follows every new table, also when no row is selected (one that a
    /// shorter list lacks, or after a failed run): then it highlights none.
    /// @param cell  hour -1: nothing is filled
    void DetailsFill(const SelectedCell& cell, const QString& sTime, const PropagationTable& table);
    /// What follows the settings, before a run.
    void Update();
    /// The owner calls it before its own end: a closing window still asks the host.
    void Unload();

    // Null while closed.
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
    PageForm m_formCard;  // how the last card was wanted
};
