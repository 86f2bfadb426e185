/// @file frmMain.h
/// The main window: owner of the settings, the prediction table and the selected cell, and the only
/// place from which a prediction is started.
///
/// Errors:  a failure is told in a box where it is met; the status line says what to do. No failure
///          ends the program.
/// Threads: one. While a run is under way, commands, menus and the close box wait for its end.
/// Tests:   tests/ui/main/FrmMain*Test.cpp
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "propagation/PropagationTable.h"
#include "settings/Settings.h"
#include "ui/common/MainWindowHost.h"
#include "ui/main/StationMenu.h"
#include "ui/main/StatusText.h"
#include "ui_frmMain.h"

class QTimer;
class frmAbout;
class frmDetails;
class frmMap;
class frmOptions;

class frmMain final : public QMainWindow, public Ui::frmMain, public MainWindowHost {
    Q_OBJECT
public:
    explicit frmMain(QWidget* pParent = nullptr);
    ~frmMain() override;

    void DataSetSelected(int iRow, int iCol) override;
    void Initialize() override;
    bool Update() override;
    [[nodiscard]] std::uint32_t SnrGetColor(float fSnr) const override;
    /// The report of a failed save of the profile.
    /// @param nErrorCode  the system's error code of the failed write
    void ProfileSaveError(int nErrorCode) const;
    [[nodiscard]] float FrequencyGet(int iIndex) const override;
    void FrequencySet(int iIndex, float fValue) override;
    [[nodiscard]] SelectedCell DataGetSelected() const override;

    [[nodiscard]] Settings& SettingsGet() override { return m_settings; }
    [[nodiscard]] Request TableInputGet() const override;
    void OverlayFailedSet(const std::optional<Failure>& failure) override;
    [[nodiscard]] const PropagationTable& TableGet() const { return m_table; }
    /// The first showing is over: profile read, first prediction done.
    [[nodiscard]] bool ActivatedIs() const { return m_bActivated; }

    Settings m_settings;
    StationMenu* mnuTransmitter;
    QTimer* tmrTime;
    QLabel* lblTrouble;  ///< status line: what went wrong last and what to do about it
    QLabel* lblInForce;  ///< status line: engine, month, sunspot number of the table
    // The windows beside this one; null while closed.
    QPointer<frmAbout> m_pAbout;
    QPointer<frmDetails> m_pDetails;
    QPointer<frmMap> m_pMap;
    QPointer<frmOptions> m_pOptions;

Q_SIGNALS:
    void Activated();  ///< after the first showing's prediction

protected:
    void showEvent(QShowEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;

private:
    // frmMain.cpp: construction, start and end
    void ControlsSetUp();
    void SignalsConnect();
    void MenusConnect();
    void CommandConnect(QAction* pAction, void (frmMain::*pfnCommand)());
    void ActivationBegin();
    void ActivationEnd();
    void ProfileRead();
    void ProfileWrite();
    void WindowsUnload();

    // frmMainUpdate.cpp: the road to a prediction
    class RunScope;
    void HourHeaderLayout();
    void FrequencyRowsLayout();
    void CurrentHourSelect(int iRow);
    void PositionsShow();
    bool PredictionRun();
    bool PredictionMake();
    bool TableMake();
    void FailureShow();
    bool TroubleSet(RunTrouble eTrouble, const std::optional<Failure>& failure = {});
    void RangeShow();
    void CellMark(const SelectedCell& cell, bool bMark);
    [[nodiscard]] int HourOffset() const;
    void StatusShow();
    void HintSet(const std::string& sHint);
    void Command(std::function<void()> fnCommand);
    void WaitingRun();

    // frmMainCommands.cpp: what the user does
    void mnuFileDefaultClick();
    void mnuFileOpenClick();
    void mnuFileSaveClick();
    void mnuFileExitClick();
    void mnuViewOpen();
    void mnuViewWorldMapClick();
    void mnuHelpAboutClick();
    void mnuViewDetailDataClick();
    void cmdUpdateClick();
    void cmdRcAirmailClick();
    void cmdTxAirmailClick();
    void StationChoose(const Station& station);
    void grdDataClick(int iRow, int iCol);
    void grdDataMouseDown(int iRow, int iCol, Qt::MouseButton eButton);
    void grdDataMenu(int iRow, int iCol, const QPoint& pntGlobal);
    void grdDataMouseMove(int iRow, int iCol);
    void tmrTimeTick();
    void TransmitterTyped();
    bool PositionTake(LocationField& field, double& dValue);
    void PositionRefuse(LocationField& field, const std::string& sWhy);
    void DetailsRefresh();
    void DetailsFill();
    void OptionsShow(int iTab);
    [[nodiscard]] QString Speech(int iRow, int iCol) const;

    PropagationTable m_table;
    SelectedCell m_marked{-1, -1};     ///< the cell that bears the mark in the grid
    std::optional<QRect> m_rectOuter;  ///< place from the profile, until the frame is known
    int m_iRowChosen = -1;             ///< selected before the run that failed, for the next one
    std::string m_sTrouble;            ///< of the last run, empty when all of it succeeded
    std::string m_sHint;               ///< on the last key or paste, until the next one or a run
    std::string m_sOverlayTrouble;     ///< of the map's overlay since the last run began
    bool m_bOld = false;               ///< the table is that of an earlier run
    std::string m_sNotice;             ///< told once by the status line, after the next run
    bool m_bSunSpotNumber = true;      ///< the last run had a sunspot number
    bool m_bActivated = false;
    bool m_bActivating = false;
    bool m_bPainted = false;
    bool m_bUnloaded = false;
    bool m_bRunning = false;
    bool m_bUpdateWanted = false;
    std::vector<std::function<void()>> m_aWaiting;
};
