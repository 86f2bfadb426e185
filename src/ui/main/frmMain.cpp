#include "ui/main/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QLayout>
#include <QTimer>
#include <utility>

#include "airmail/AirMailLib.h"
#include "propagation/SnrScale.h"
#include "propagation/itshfbc/ProcessEngine.h"
#include "settings/ProfileLib.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "ui/common/BoxOpen.h"
#include "ui/common/NeedChooser.h"
#include "ui/common/Pictures.h"
#include "ui/main/AirmailCommands.h"
#include "ui/main/ClockLine.h"
#include "ui/main/FileCommands.h"
#include "ui/main/PaletteCommands.h"
#include "ui/main/PlanCommands.h"
#include "ui/main/PositionEntry.h"
#include "ui/main/StatusLine.h"
#include "ui/main/TableView.h"

namespace {

void RangeShow(const Ui::frmMain& ui, const PropagationTable& table)
{
    const auto Show = [](QLabel* pLabel, const QString& sWhat, float fValue) {
        pLabel->setText(sWhat.arg(QString::fromStdString(NumberFormat(fValue, "0"))));
    };
    Show(ui.lblRange, frmMain::tr("Range:  %1"), table.fRange);
    Show(ui.lblRcBearing, frmMain::tr("Bearing Rc:  %1"), table.fAzimuthTxRc);
    Show(ui.lblTxBearing, frmMain::tr("Bearing Tx:  %1"), table.fAzimuthRcTx);
}

}  // namespace

void frmMain::Initialize()
{
    m_pFile->DefaultSet();
    m_pEntry->RowsDrop();
}

void frmMain::ProfileSaveError(int nErrorCode) const
{
    MsgShow({::ProfileSaveError(m_settings, nErrorCode)});
}

float frmMain::FrequencyGet(int iIndex) const { return m_settings.FrequencyGet(iIndex); }

void frmMain::FrequencySet(int iIndex, float fValue) { m_settings.FrequencySet(iIndex, fValue); }

SelectedCell frmMain::DataGetSelected() const { return m_settings.m_selected; }

std::uint32_t frmMain::SnrGetColor(float fSnr) const { return ::SnrGetColor(fSnr); }

void frmMain::DataSetSelected(int iRow, int iCol)
{
    m_settings.m_selected = m_table->Mark({iRow, iCol});
    Q_EMIT SettingsSignalGet().CellSelected();
}

void frmMain::showEvent(QShowEvent* pEvent)
{
    QMainWindow::showEvent(pEvent);
    if (!m_bActivating)
        ActivationBegin();
}

/// Prepares the window before it is seen: pictures, settings and place.
void frmMain::ActivationBegin()
{
    m_bActivating = true;
    for (QPushButton* pButton : {cmdRcAirmail, cmdTxAirmail})
        pButton->setIcon(PictureGet(QStringLiteral("Airmail")));
    m_table->HoursLayout();
    RowsLayout();
    const QRect rectScreen = screen()->availableGeometry();
    // The table has just got its columns; the layouts would only learn of it through a later event.
    for (QLayout* pLayout : {pnlMain->layout(), centralwidget->layout(), layout()}) {
        pLayout->invalidate();
        pLayout->activate();
    }
    resize(sizeHint().boundedTo(rectScreen.size()));
    m_pFile->ProfileRead();
    m_pPalette->Take();  // so that in Night nothing bright is shown, even for a moment
    AirMailFoldersFind();
    RowsLayout();
    m_pEntry->Show(m_settings);
    m_pClock->Tick();  // the first run may take a while
    m_pClock->Start();
}

/// The first prediction waits until the window is on the screen; with a slow engine it would seem
/// that the program does not start.
void frmMain::paintEvent(QPaintEvent* pEvent)
{
    QMainWindow::paintEvent(pEvent);
    if (std::exchange(m_bPainted, true))
        return;
    QTimer::singleShot(0, this, &frmMain::ActivationEnd);
}

void frmMain::ActivationEnd()
{
    m_pFile->FrameKnown();
    grdData->RedrawSet(false);
    m_table->HoursLayout();
    if (Update()) {
        CurrentHourSelect(m_settings.m_selected.iFrequency);
        m_pClock->Tick();
    }
    m_bActivated = true;
    Q_EMIT Activated();
}

void frmMain::closeEvent(QCloseEvent* pEvent)
{
    if (m_pCommands->RunningIs()) {
        m_pCommands->Do([this] { close(); });
        pEvent->ignore();
        return;
    }
    // An open box's caller may belong to the windows that would be destroyed here. A program that
    // is ended by a signal calls this again.
    if (BoxOpen::Exists()) {
        pEvent->ignore();
        return;
    }
    m_windows.Unload();
    if (!std::exchange(m_bUnloaded, true)) {
        m_pEntry->WaitingTake(m_settings);
        m_pFile->ProfileWrite();
    }
    m_pCommands->End();
    pEvent->accept();
}

bool frmMain::Update()
{
    if (m_pCommands->RunningIs()) {
        m_pCommands->UpdateRequest();
        return false;
    }
    const CommandQueue::Run run(*m_pCommands);
    const int iRow = m_settings.m_selected.iFrequency;
    const int iRowChosen = iRow == -1 ? m_iRowChosen : iRow;
    m_pEntry->WaitingTake(m_settings);
    m_pStatus->RunBegin();
    grdData->RedrawSet(false);
    LayoutRenew(iRowChosen);
    m_windows.Update();
    const bool bOk = PredictionRun();
    if (bOk)
        SuccessShow();
    else
        FailureShow();
    m_iRowChosen = bOk ? -1 : iRowChosen;
    m_pStatus->TroubleSet(m_run->TroubleGet());
    m_pStatus->WarningSet(m_run->WarningGet());
    StatusShow();
    grdData->RedrawSet(true);
    Q_EMIT SettingsSignalGet().TableRenewed();
    return bOk;
}

/// Shows what depends on the settings alone, before the run.
void frmMain::LayoutRenew(int iRow)
{
    m_table->HoursLayout();
    RowsLayout();
    CurrentHourSelect(iRow);
    m_pClock->Tick();
    m_pEntry->Show(m_settings);
}

void frmMain::RowsLayout()
{
    TableRowsLayout(RequestFromSettings(m_settings), m_run->TableGet(), *grdData);
}

void frmMain::CurrentHourSelect(int iRow) { DataSetSelected(iRow, UtcNow().nHour + 1); }

bool frmMain::PredictionRun()
{
    const QPointer<QWidget> pFocus = QApplication::focusWidget();
    const bool bOk = m_run->Make();
    if (bOk) {
        RangeShow(*this, m_run->TableGet());
        TableShow(m_run->TableGet(), *grdData);
    }
    // Once, for repaints and timers. The user's keys and clicks wait until the run ends.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (pFocus && pFocus != QApplication::focusWidget())
        pFocus->setFocus();
    return bOk;
}

void frmMain::SuccessShow()
{
    DetailsFill();
    const SelectedCell cell = m_settings.m_selected;
    if (cell.iFrequency != -1 && cell.iHour != -1)
        grdData->CurrentSet(cell.iFrequency, cell.iHour);
    cmdUpdate->setEnabled(false);
}

/// The old table stays in force, under the labels of its own list.
void frmMain::FailureShow()
{
    DataSetSelected(-1, -1);
    if (m_run->TableIs()) {
        TableRowsLayout(m_run->TableGet().request, m_run->TableGet(), *grdData);
        TableShow(m_run->TableGet(), *grdData);
    }
    DetailsFill();
    cmdUpdate->setEnabled(true);
}

void frmMain::StatusShow()
{
    BestShow();
    m_pNeed->Show();  // before the status line shares out the remaining room
    m_pStatus->Show(m_run->InForceGet(StatusForm::Long), m_run->InForceGet(StatusForm::Short),
                    m_run->SunSpotDetailGet());
    TableNeedShow(m_run->TableGet(), m_pNeed->NeedGet(), *grdData);
    const bool bOld = TableOldIs();
    grdData->StaleSet(bOld);
    lblOld->setVisible(bOld && m_run->TableIs());
    Q_EMIT SettingsSignalGet().TableMarked();
}

bool frmMain::TableOldIs() const { return m_run->OldIs() || m_pEntry->WaitingIs(); }

/// The hour changes while the table stays.
void frmMain::BestShow()
{
    const int iHour = UtcNow().nHour + 1;
    const int iRow = TableOldIs() ? -1 : m_run->BestRowGet(iHour);
    m_pStatus->BestSet(StatusBest(m_run->TableGet(), iRow, iHour));
}

void frmMain::BestGo()
{
    const int iHour = UtcNow().nHour + 1;
    const int iRow = m_run->BestRowGet(iHour);
    if (iRow != -1)
        grdDataMove(iRow, iHour);
}

void frmMain::HintSet(const QString& sHint)
{
    if (m_pStatus->HintSet(sHint.toStdString()) && !m_pCommands->RunningIs())
        StatusShow();
}

void frmMain::OverlayFailedSet(const std::optional<Failure>& failure)
{
    m_pStatus->OverlayTroubleSet(
        failure ? StatusTrouble(RunTrouble::Overlay, m_settings.m_iPropagationModel, failure)
                : std::string());
    if (!m_pCommands->RunningIs())  // otherwise the end of the run shows it
        StatusShow();
}

std::shared_ptr<const Engine> frmMain::EngineGet(int iModel) const
{
    return m_fnEngine ? m_fnEngine(iModel) : std::make_shared<ProcessEngine>(iModel);
}

void frmMain::PlanApply(const PlanChoice& choice)
{
    m_pCommands->Do([this, choice] {
        m_pPlan->Take(choice);
        MainWindowRaise();
    });
}

void frmMain::CellTake(int iFrequency, int iHour)
{
    m_pCommands->Do([this, iFrequency, iHour] { grdDataMove(iFrequency, iHour); });
}

void frmMain::MainWindowRaise()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    activateWindow();
    raise();
}

bool frmMain::TakenIs() const { return m_pPlan->TakenIs(); }

/// It follows the program's name.
QString frmMain::TransmitterNameGet() const
{
    return windowTitle().section(QStringLiteral(" - "), 1);
}

/// A planning window asks about what the user sees, so typed positions come into force first.
void frmMain::WaitingUpdate()
{
    if (m_pEntry->WaitingIs())
        Update();
}

void frmMain::cmdUpdateClick()
{
    if (m_pEntry->Take(m_settings))
        Update();
}

void frmMain::PositionRefused(const QString& sWhy)
{
    m_pStatus->RefusedSet(tr("%1. Correct it, then Update").arg(sWhy).toStdString());
    m_pStatus->HintSet({});
    StatusShow();
}

void frmMain::TitleSet(const QString& sStation)
{
    const QString sTitle = QApplication::applicationDisplayName();
    setWindowTitle(sStation.isEmpty() ? sTitle : sTitle + QStringLiteral(" - ") + sStation);
}

void frmMain::grdDataClick(int iRow, int iCol)
{
    DataSetSelected(iRow, iCol);
    DetailsShow();
    grdData->CurrentSet(iRow, iCol);
}

/// Like a click, but closed details stay closed, so that the keys stay in the table.
void frmMain::grdDataMove(int iRow, int iCol)
{
    DataSetSelected(iRow, iCol);
    DetailsFill();
    grdData->CurrentSet(iRow, iCol);
}

void frmMain::grdDataMouseDown(int iRow, int iCol, Qt::MouseButton eButton)
{
    if (eButton == Qt::RightButton && GridPlace{iRow, iCol}.DataIs())
        grdDataMenu(iRow, iCol, QCursor::pos());
}

void frmMain::grdDataMenu(int iRow, int iCol, const QPoint& pntGlobal)
{
    m_pCommands->Do([this, iRow, iCol, pntGlobal] {
        DataSetSelected(iRow, iCol);
        mnuView->popup(pntGlobal);
    });
}

void frmMain::mnuViewOpen()
{
    const SelectedCell cell = m_settings.m_selected;
    mnuViewDetailData->setEnabled(cell.iFrequency != -1 && cell.iHour != -1);
}

void frmMain::mnuViewDetailDataClick()
{
    if (DetailsShow())
        m_windows.DetailsRaise();
}

/// Shows the details of the selected cell.
/// @return false if none is selected
bool frmMain::DetailsShow()
{
    const SelectedCell cell = m_settings.m_selected;
    if (cell.iFrequency == -1 || cell.iHour == -1)
        return false;
    m_windows.DetailsShow(*grdData);
    DetailsFill();
    return true;
}

void frmMain::DetailsFill()
{
    SelectedCell cell = m_settings.m_selected;
    if (cell.iHour == -1)
        cell.iHour = m_windows.DetailsHourGet();  // without a selection they keep their hour
    m_windows.DetailsFill(cell, m_table->TimeGet(cell.iHour), m_run->TableGet());
}
