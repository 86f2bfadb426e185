/// @file frmMain.h
/// The main window: owns the settings, the prediction table and the selected cell, and is the only
/// place from which a prediction is started. Each of its parts does the work of one subject; this
/// class connects them.
///
/// Errors:  a failure is shown in a message box where it occurs; the status line says what to do.
///          No failure ends the program.
/// Threads: one. During a run, commands, menus and the close box wait until it ends.
/// Tests:   tests/ui/main/FrmMain*Test.cpp
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "settings/Settings.h"
#include "ui/main/CommandQueue.h"
#include "ui/main/MainTable.h"
#include "ui/main/SideWindows.h"
#include "ui/main/StationMenu.h"
#include "ui/main/TableRun.h"
#include "ui/plan/PlanHost.h"
#include "ui_frmMain.h"

class AirmailCommands;
class ClockLine;
class FileCommands;
class PaletteCommands;
class PlanCommands;
class PositionEntry;
class QTimer;
class NeedChooser;
class StatusLine;
class TableOutput;

class frmMain final : public QMainWindow, public Ui::frmMain, public PlanHost {
    Q_OBJECT
public:
    explicit frmMain(QWidget* pParent = nullptr);
    ~frmMain() override;

    void DataSetSelected(int iRow, int iCol) override;
    void Initialize() override;
    bool Update() override;
    [[nodiscard]] std::uint32_t SnrGetColor(float fSnr) const override;
    /// Reports a failed save of the profile.
    /// @param nErrorCode  the system's error code for the failed write
    void ProfileSaveError(int nErrorCode) const;
    [[nodiscard]] float FrequencyGet(int iIndex) const override;
    void FrequencySet(int iIndex, float fValue) override;
    [[nodiscard]] SelectedCell DataGetSelected() const override;

    [[nodiscard]] Settings& SettingsGet() override { return m_settings; }
    [[nodiscard]] Request TableInputGet() const override { return m_run->InputGet(); }
    void OverlayFailedSet(const std::optional<Failure>& failure) override;
    [[nodiscard]] const PropagationTable& TableGet() const override { return m_run->TableGet(); }
    [[nodiscard]] Request RequestGet() const override { return m_run->RequestGet(); }
    [[nodiscard]] std::shared_ptr<const Engine> EngineGet(int iModel) const override;
    [[nodiscard]] bool TableOldIs() const override;
    void CellTake(int iFrequency, int iHour) override;
    void MainWindowRaise() override;
    void PlanApply(const PlanChoice& choice) override;
    [[nodiscard]] bool TakenIs() const override;
    [[nodiscard]] QString TransmitterNameGet() const override;
    /// Makes the engines for many predictions; by default they run their programs.
    using EngineFn = std::function<std::shared_ptr<const Engine>(int iModel)>;
    void EnginesSet(EngineFn fnEngine) { m_fnEngine = std::move(fnEngine); }
    /// True once the first showing is complete: profile read, first prediction done.
    [[nodiscard]] bool ActivatedIs() const { return m_bActivated; }

    Settings m_settings;
    StationMenu* mnuTransmitter;
    QTimer* tmrTime;
    QLabel* lblTrouble;  ///< status line: what last went wrong and what to do about it
    QLabel* lblBest;     ///< status line: the best frequency of this hour
    QLabel* lblInForce;  ///< status line: engine, month, sunspot number, power of the table

private:
    SideWindows m_windows{*this, *this};

public:
    // The windows beside this one; nullptr while closed.
    const QPointer<frmAbout>& m_pAbout = m_windows.m_pAbout;
    const QPointer<frmCard>& m_pCard = m_windows.m_pCard;
    const QPointer<frmCurves>& m_pCurves = m_windows.m_pCurves;
    const QPointer<frmDetails>& m_pDetails = m_windows.m_pDetails;
    const QPointer<frmMap>& m_pMap = m_windows.m_pMap;
    const QPointer<frmOptions>& m_pOptions = m_windows.m_pOptions;
    const QPointer<frmDays>& m_pDays = m_windows.m_pDays;
    const QPointer<frmCompare>& m_pCompare = m_windows.m_pCompare;
    const QPointer<frmPlaces>& m_pPlaces = m_windows.m_pPlaces;
    const QPointer<frmReach>& m_pReach = m_windows.m_pReach;

Q_SIGNALS:
    void Activated();  ///< after the first prediction

protected:
    void showEvent(QShowEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;

private:
    void PartsMake();
    void EntryConnect();
    void TableConnect();
    void ButtonsConnect();
    void MenusConnect();
    void PlanConnect();
    void CommandConnect(QAction* pAction, std::function<void()> fnCommand);
    void CommandConnect(QPushButton* pButton, std::function<void()> fnCommand);
    void ActivationBegin();
    void ActivationEnd();

    // The steps of an update.
    void LayoutRenew(int iRow);
    bool PredictionRun();
    void SuccessShow();
    void FailureShow();
    void RowsLayout();
    void CurrentHourSelect(int iRow);
    void StatusShow();
    void BestShow();
    void BestGo();
    void HintSet(const QString& sHint);

    void cmdUpdateClick();
    void grdDataClick(int iRow, int iCol);
    void grdDataMove(int iRow, int iCol);
    void grdDataMouseDown(int iRow, int iCol, Qt::MouseButton eButton);
    void grdDataMenu(int iRow, int iCol, const QPoint& pntGlobal);
    void mnuViewOpen();
    void mnuViewDetailDataClick();
    bool DetailsShow();
    void DetailsFill();
    void PositionRefused(const QString& sWhy);
    void TitleSet(const QString& sStation);
    void WaitingUpdate();

    CommandQueue* m_pCommands = nullptr;
    PositionEntry* m_pEntry = nullptr;
    StatusLine* m_pStatus = nullptr;
    NeedChooser* m_pNeed = nullptr;
    PaletteCommands* m_pPalette = nullptr;
    PlanCommands* m_pPlan = nullptr;
    ClockLine* m_pClock = nullptr;
    FileCommands* m_pFile = nullptr;
    AirmailCommands* m_pAirmail = nullptr;
    TableOutput* m_pOutput = nullptr;
    std::optional<MainTable> m_table;
    std::optional<TableRun> m_run;
    EngineFn m_fnEngine;
    int m_iRowChosen = -1;  ///< selected before a failed run, to be selected again by the next
    bool m_bActivated = false;
    bool m_bActivating = false;
    bool m_bPainted = false;
    bool m_bUnloaded = false;
};
