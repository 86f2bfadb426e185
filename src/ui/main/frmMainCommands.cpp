// What the user does: menus, buttons, the grid.
#include <QApplication>
#include <QCursor>

#include "airmail/AirMailLib.h"
#include "geo/MathLib.h"
#include "settings/SettingsRange.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"
#include "ui/common/FileDialog.h"
#include "ui/details/frmDetails.h"
#include "ui/main/WindowPlace.h"
#include "ui/main/frmMain.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmAbout.h"
#include "ui/options/frmOptions.h"

namespace {

constexpr const char* kProfileFilter = "File (*.ini)|*.ini";

QString ProfileAsk(QWidget* pParent, FileDialogKind eKind, const std::string& sFile)
{
    return FileDialogShow(
        pParent, {eKind, QString::fromStdString(sFile), QString::fromLatin1(kProfileFilter)});
}

/// Shows a window, or brings the one that is there to the front.
void WindowRaise(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

}  // namespace

void frmMain::mnuFileDefaultClick()
{
    Initialize();
    Update();
}

void frmMain::mnuFileOpenClick()
{
    const QString sFile = ProfileAsk(this, FileDialogKind::Open, m_settings.m_sProfileFile);
    if (sFile.isEmpty())
        return;
    m_settings.m_sProfileFile = sFile.toStdString();
    ProfileRead();
    Update();
}

void frmMain::mnuFileSaveClick()
{
    const QString sFile = ProfileAsk(this, FileDialogKind::Save, m_settings.m_sProfileFile);
    if (sFile.isEmpty())
        return;
    m_settings.m_sProfileFile = sFile.toStdString();
    ProfileWrite();
}

void frmMain::mnuFileExitClick() { close(); }

void frmMain::mnuViewOpen()
{
    const SelectedCell cell = m_settings.m_selected;
    mnuViewDetailData->setEnabled(cell.iFrequency != -1 && cell.iHour != -1);
}

void frmMain::mnuViewDetailDataClick()
{
    DetailsRefresh();
    if (m_pDetails)
        WindowRaise(*m_pDetails);
}

void frmMain::mnuViewWorldMapClick()
{
    if (!m_pMap) {
        m_pMap = new frmMap(*this);
        WindowFit(*m_pMap, *this);
        connect(m_pMap, &QObject::destroyed, this, [this] { OverlayFailedSet({}); });
    }
    WindowRaise(*m_pMap);
}

void frmMain::mnuHelpAboutClick()
{
    if (!m_pAbout)
        m_pAbout = new frmAbout;
    WindowRaise(*m_pAbout);
}

void frmMain::OptionsShow(int iTab)
{
    if (!m_pOptions)
        m_pOptions = new frmOptions(*this);
    WindowRaise(*m_pOptions);
    m_pOptions->TabShow(iTab);
}

void frmMain::cmdUpdateClick()
{
    // One after the other: what was decoded before a text that cannot be is kept.
    Settings& settings = m_settings;
    const bool bOk =
        PositionTake(*txtLat0, settings.m_dRcLat) && PositionTake(*txtLon0, settings.m_dRcLon)
        && PositionTake(*txtLat1, settings.m_dTxLat) && PositionTake(*txtLon1, settings.m_dTxLon);
    if (bOk)
        Update();
}

/// A field's text as a number. One that is none is told by a box, one out of range at the field and
/// in the status line.
bool frmMain::PositionTake(LocationField& field, double& dValue)
{
    const std::string sText = field.text().toStdString();
    const bool bLat = &field == txtLat0 || &field == txtLat1;
    double dTaken = 0.0;
    Messages aMessages;
    if (!(bLat ? TextToLatitude(sText, dTaken, &aMessages)
               : TextToLongitude(sText, dTaken, &aMessages)))
        return MsgShow(aMessages);
    const NumberRange& range = bLat ? kRangeLatitude : kRangeLongitude;
    if (!range.Holds(dTaken)) {
        PositionRefuse(field, sText + " lies beyond " + NumberToText(range.dMost) + "°");
        return false;
    }
    dValue = dTaken;
    return true;
}

void frmMain::PositionRefuse(LocationField& field, const std::string& sWhy)
{
    field.MarkSet(QString::fromStdString(sWhy));
    m_sTrouble = "No prediction: " + field.accessibleName().toStdString() + " " + sWhy
                 + ". Correct it, then Update";
    m_sHint.clear();
    StatusShow();
}

void frmMain::cmdRcAirmailClick()
{
    double dLat = 0.0;
    double dLon = 0.0;
    DateTime dtTime;
    Messages aMessages;
    const auto res = AirMailPositionGet(dLat, dLon, dtTime, &aMessages);
    MsgShow(aMessages);
    if (!res)
        MsgBox(MsgIcon::None, "Airmail's position: " + res.TextGet());
    if (!res || !res.ValueGet())
        return;
    m_settings.m_dRcLat = dLat;
    m_settings.m_dRcLon = dLon;
    Update();
}

void frmMain::cmdTxAirmailClick()
{
    mnuTransmitter->ReceiverSet(m_settings.m_dRcLat, m_settings.m_dRcLon);
    if (mnuTransmitter->Build())
        mnuTransmitter->popup(QCursor::pos());
}

void frmMain::StationChoose(const Station& station)
{
    double dLat = 0.0;
    double dLon = 0.0;
    Messages aMessages;
    const auto res =
        AirMailStationPosition(station.sSystem, station.sKey, dLat, dLon, true, aMessages);
    MsgShow(aMessages);
    if (!res)
        MsgBox(MsgIcon::None,
               "Airmail's station " + TextForMessage(station.sKey) + ": " + res.TextGet());
    if (!res || !res.ValueGet())
        return;
    m_settings.m_dTxLat = dLat;
    m_settings.m_dTxLon = dLon;
    Update();
    setWindowTitle(QApplication::applicationDisplayName() + QStringLiteral(" - ")
                   + QString::fromStdString(TextForMessage(station.sKey + " - " + station.sName)));
}

void frmMain::TransmitterTyped() { setWindowTitle(QApplication::applicationDisplayName()); }

void frmMain::grdDataClick(int iRow, int iCol)
{
    DataSetSelected(iRow, iCol);
    DetailsRefresh();
    grdData->CurrentSet(iRow, iCol);
}

void frmMain::grdDataMouseDown(int iRow, int iCol, Qt::MouseButton eButton)
{
    if (eButton == Qt::RightButton && GridPlace{iRow, iCol}.DataIs())
        grdDataMenu(iRow, iCol, QCursor::pos());
}

void frmMain::grdDataMenu(int iRow, int iCol, const QPoint& pntGlobal)
{
    Command([this, iRow, iCol, pntGlobal] {
        DataSetSelected(iRow, iCol);
        mnuView->popup(pntGlobal);
    });
}

void frmMain::grdDataMouseMove(int iRow, int iCol)
{
    QString sText;
    if (iRow == 0 && iCol >= 1) {
        // Under a time code that is neither, the text stays as it is.
        if (m_settings.m_iTimeCode == kTimeZulu)
            sText = QStringLiteral("Zulu Time (hh)");
        else if (m_settings.m_iTimeCode == kTimeLocal)
            sText = QStringLiteral("Local Time (hh)");
        else
            sText = grdData->toolTip();
    } else if (iRow >= 1 && iCol == 0) {
        sText = QStringLiteral("Frequency (kHz)");
    } else if (iRow >= 1 && iCol >= 1) {
        sText = QStringLiteral("Signal-to-Noise (dB)");
    }
    grdData->ToolTipRenew(sText);
}

void frmMain::DetailsRefresh()
{
    const SelectedCell cell = m_settings.m_selected;
    if (cell.iFrequency == -1 || cell.iHour == -1)
        return;
    if (!m_pDetails) {
        m_pDetails = new frmDetails(*this, *grdData);
        WindowPutBeside(*m_pDetails, *this);
    }
    if (!m_pDetails->isVisible())
        m_pDetails->show();
    DetailsFill();
}

/// An open window follows every new table, also when no row is selected (one that a shorter list
/// lacks, or after a failed run): then it highlights none.
void frmMain::DetailsFill()
{
    const SelectedCell cell = m_settings.m_selected;
    if (cell.iHour == -1)
        return;
    const QString sTime = grdData->TextGet(0, cell.iHour) + QStringLiteral(":00");
    m_pDetails->Update(cell.iFrequency, cell.iHour, sTime, m_table);
}

QString frmMain::Speech(int iRow, int iCol) const
{
    const QString sZone =
        m_settings.m_iTimeCode == kTimeLocal ? QStringLiteral("Local") : QStringLiteral("Zulu");
    const QString sValue = grdData->TextGet(iRow, iCol);
    return QStringLiteral("%1 kHz, %2 %3, %4")
        .arg(grdData->TextGet(iRow, 0), grdData->TextGet(0, iCol), sZone,
             sValue.isEmpty() ? tr("no value") : sValue + QStringLiteral(" dB"));
}
