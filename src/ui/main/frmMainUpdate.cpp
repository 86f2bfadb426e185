// The road to a prediction: layout, run, and what becomes of its result.
#include <QApplication>
#include <QRegularExpression>
#include <QTimer>
#include <utility>

#include "propagation/PropagationLib.h"
#include "propagation/SnrScale.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "settings/SunSpotLib.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "ui/details/frmDetails.h"
#include "ui/main/TableView.h"
#include "ui/main/frmMain.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmOptions.h"

namespace {

constexpr int kHours = 24;

QString Formatted(float fValue, const char* sPattern)
{
    return QString::fromStdString(NumberFormat(fValue, sPattern));
}

}  // namespace

/// The time of a run: busy pointer, commands kept waiting.
class frmMain::RunScope {
public:
    explicit RunScope(frmMain& frm) : m_frm(frm)
    {
        m_frm.m_bRunning = true;
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~RunScope()
    {
        QApplication::restoreOverrideCursor();
        m_frm.m_bRunning = false;
        if (m_frm.m_bUpdateWanted || !m_frm.m_aWaiting.empty())
            QTimer::singleShot(0, &m_frm, &frmMain::WaitingRun);
    }
    RunScope(const RunScope&) = delete;
    RunScope& operator=(const RunScope&) = delete;

private:
    frmMain& m_frm;
};

void frmMain::Command(std::function<void()> fnCommand)
{
    if (m_bRunning)
        m_aWaiting.push_back(std::move(fnCommand));
    else
        fnCommand();
}

/// What was asked for during the run, in its order; an update asked for however often is one.
void frmMain::WaitingRun()
{
    if (m_bRunning)
        return;  // the end of that run comes here again
    if (std::exchange(m_bUpdateWanted, false))
        Update();
    for (const auto& fnCommand : std::exchange(m_aWaiting, {}))
        if (!m_bUnloaded)  // nothing opens a window behind an exit
            Command(fnCommand);
}

bool frmMain::Update()
{
    if (m_bRunning) {
        m_bUpdateWanted = true;
        return false;
    }
    const RunScope scope(*this);
    const int iRow = m_settings.m_selected.iFrequency;
    const int iRowChosen = iRow == -1 ? m_iRowChosen : iRow;
    m_sOverlayTrouble.clear();
    m_sHint.clear();
    grdData->RedrawSet(false);
    HourHeaderLayout();
    FrequencyRowsLayout();
    CurrentHourSelect(iRowChosen);
    tmrTimeTick();
    PositionsShow();
    if (m_pMap)
        m_pMap->Update();
    if (m_pOptions)
        m_pOptions->Update();
    const bool bOk = PredictionRun();
    if (bOk) {
        if (m_pDetails && m_pDetails->isVisible())
            DetailsFill();
        const SelectedCell cell = m_settings.m_selected;
        if (cell.iFrequency != -1 && cell.iHour != -1)
            grdData->CurrentSet(cell.iFrequency, cell.iHour);
        cmdUpdate->setEnabled(false);
    } else {
        FailureShow();
    }
    m_iRowChosen = bOk ? -1 : iRowChosen;
    m_bOld = !bOk;
    StatusShow();
    grdData->RedrawSet(true);
    return bOk;
}

int frmMain::HourOffset() const
{
    return m_settings.m_iTimeCode == kTimeLocal
               ? static_cast<int>(HourBoundaries(UtcNow(), LocalNow()))
               : 0;
}

void frmMain::HourHeaderLayout()
{
    grdData->ColsSet(kHours + 1);
    grdData->ColWidthSet(0, fontMetrics().horizontalAdvance(QStringLiteral("-30000-")));
    const int nWidth = fontMetrics().horizontalAdvance(QStringLiteral("---00"));
    const int nOffset = HourOffset();
    for (int iHour = 1; iHour <= kHours; ++iHour) {
        int nLabel = iHour + nOffset - 1;
        if (nLabel < 0)
            nLabel += kHours;
        if (nLabel >= kHours)
            nLabel -= kHours;
        grdData->ColWidthSet(iHour, nWidth);
        grdData->TextSet(0, iHour,
                         QString::fromStdString(NumberFormat(static_cast<double>(nLabel), "00")));
        grdData->AlignmentSet(0, iHour, Qt::AlignCenter);
    }
}

void frmMain::FrequencyRowsLayout()
{
    TableRowsLayout(RequestFromSettings(m_settings), m_table, *grdData);
}

void frmMain::CurrentHourSelect(int iRow) { DataSetSelected(iRow, UtcNow().nHour + 1); }

/// The old table stays in force, under the labels of the list that it was made for.
void frmMain::FailureShow()
{
    DataSetSelected(-1, -1);
    if (m_table.nData > 0) {
        TableRowsLayout(m_table.request, m_table, *grdData);
        TableShow(m_table, *grdData);
    }
    cmdUpdate->setEnabled(true);
}

void frmMain::PositionsShow()
{
    txtLat0->TextSet(LocationToText(LocationKind::Latitude, m_settings.m_dRcLat));
    txtLon0->TextSet(LocationToText(LocationKind::Longitude, m_settings.m_dRcLon));
    txtLat1->TextSet(LocationToText(LocationKind::Latitude, m_settings.m_dTxLat));
    txtLon1->TextSet(LocationToText(LocationKind::Longitude, m_settings.m_dTxLon));
}

bool frmMain::TroubleSet(RunTrouble eTrouble, const std::optional<Failure>& failure)
{
    m_sTrouble = StatusTrouble(eTrouble, m_settings.m_iPropagationModel, failure);
    return false;
}

bool frmMain::PredictionRun()
{
    const QPointer<QWidget> pFocus = QApplication::focusWidget();
    const bool bOk = PredictionMake();
    // Once: repaints and timers. What the user types and clicks waits for the end of the run.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (pFocus && pFocus != QApplication::focusWidget())
        pFocus->setFocus();
    return bOk;
}

bool frmMain::PredictionMake()
{
    m_sTrouble.clear();
    float fSunSpotNumber = 0.0F;
    Messages aMessages;
    const auto resSunSpot = SunSpotNumberGet(m_settings, fSunSpotNumber, &aMessages);
    MsgShow(aMessages);
    if (!resSunSpot)
        MsgBox(MsgIcon::None, "Airmail's sunspot number: " + resSunSpot.TextGet());
    m_bSunSpotNumber = resSunSpot && resSunSpot.ValueGet();
    if (!m_bSunSpotNumber)
        return TroubleSet(RunTrouble::SunSpot);
    if (m_settings.m_bPropagationMonth)
        m_settings.m_iPropagationMonth = UtcNow().nMonth;
    // The list is taken from its labels, so a prediction is for the whole kHz that the user sees.
    for (int i = 1; i <= m_settings.m_nData; ++i)
        if (const auto res = NumberFromTextSingle(grdData->TextGet(i, 0).toStdString()))
            m_settings.FrequencySet(i, res.ValueGet());
    if (FrequenciesInRangeGet(RequestFromSettings(m_settings)).empty())
        return TroubleSet(RunTrouble::Frequencies);
    return TableMake();
}

/// A new table is filled apart, so that a failed run leaves the old one in force.
bool frmMain::TableMake()
{
    PropagationTable table(m_settings.m_nData);
    std::vector<Failure> aFailures;
    const bool bOk = PropagationRun(RequestFromSettings(m_settings), table, aFailures);
    for (const Failure& failure : aFailures) MsgBox(failure.eIcon, failure.sText);
    const auto failureLast =
        aFailures.empty() ? std::nullopt : std::optional<Failure>(aFailures.back());
    if (!bOk)
        return TroubleSet(RunTrouble::Engine, failureLast);
    m_sTrouble = StatusAbsent(table, failureLast);
    m_table = std::move(table);
    RangeShow();
    TableShow(m_table, *grdData);
    return true;
}

void frmMain::RangeShow()
{
    lblRange->setText(QStringLiteral("Range:  ") + Formatted(m_table.fRange, "0"));
    lblRcBearing->setText(QStringLiteral("Bearing Rc:  ") + Formatted(m_table.fAzimuthTxRc, "0"));
    lblTxBearing->setText(QStringLiteral("Bearing Tx:  ") + Formatted(m_table.fAzimuthRcTx, "0"));
}

std::uint32_t frmMain::SnrGetColor(float fSnr) const { return ::SnrGetColor(fSnr); }

void frmMain::CellMark(const SelectedCell& cell, bool bMark)
{
    if (!GridPlace{cell.iFrequency, cell.iHour}.DataIs())
        return;
    grdData->BoldSet(cell.iFrequency, cell.iHour, bMark);
    grdData->FrameSet(cell.iFrequency, cell.iHour, bMark);
}

void frmMain::DataSetSelected(int iRow, int iCol)
{
    CellMark(m_marked, false);
    // A row that the table does not have is none.
    m_settings.m_selected = {iRow >= grdData->RowsGet() ? -1 : iRow, iCol};
    m_marked = m_settings.m_selected;  // the settings may lose theirs behind the grid's back
    CellMark(m_marked, true);
}

void frmMain::StatusShow()
{
    const int iModel = m_settings.m_iPropagationModel;
    QString sInForce = QString::fromStdString(
        m_table.nData > 0 ? StatusInForce(m_table.request, m_table.bBuiltIn, true)
                          : StatusInForce(RequestFromSettings(m_settings), EngineIsHopcasts(iModel),
                                          m_bSunSpotNumber));
    const std::string sNotice = std::exchange(m_sNotice, {});
    const std::string sTrouble = !m_sHint.empty()             ? m_sHint
                                 : !m_sTrouble.empty()        ? m_sTrouble
                                 : !m_sOverlayTrouble.empty() ? m_sOverlayTrouble
                                                              : sNotice;
    lblInForce->setToolTip(sInForce);
    // What went wrong comes first where there is no room for both: what stands in brackets goes.
    static const QRegularExpression kBrackets(QStringLiteral(" \\([^)]*\\)"));
    lblInForce->setText(sTrouble.empty() ? sInForce : sInForce.remove(kBrackets));
    lblTrouble->setText(QString::fromStdString(sTrouble));
    lblTrouble->setVisible(!sTrouble.empty());
    lblTrouble->setToolTip(lblTrouble->text());
    grdData->StaleSet(m_bOld);
    lblOld->setVisible(m_bOld && m_table.nData > 0);
}

void frmMain::HintSet(const std::string& sHint)
{
    if (std::exchange(m_sHint, sHint) != sHint && !m_bRunning)
        StatusShow();
}

void frmMain::OverlayFailedSet(const std::optional<Failure>& failure)
{
    m_sOverlayTrouble =
        failure ? StatusTrouble(RunTrouble::Overlay, m_settings.m_iPropagationModel, failure)
                : std::string();
    if (!m_bRunning)  // the end of the run shows it
        StatusShow();
}

void frmMain::tmrTimeTick()
{
    const bool bZulu = m_settings.m_iTimeCode == kTimeZulu;
    if (!bZulu && m_settings.m_iTimeCode != kTimeLocal)
        return;
    const DateTime dtNow = bZulu ? UtcNow() : LocalNow();
    const std::string sTime = NumberFormat(static_cast<double>(dtNow.nHour), "00") + ":"
                              + NumberFormat(static_cast<double>(dtNow.nMinute), "00");
    lblTime->setText((bZulu ? QStringLiteral("Zulu: ") : QStringLiteral("Local: "))
                     + QString::fromStdString(sTime));
}
