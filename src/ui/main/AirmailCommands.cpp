#include "ui/main/AirmailCommands.h"

#include <QCursor>
#include <QWidget>

#include "airmail/AirMailLib.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/TextLib.h"
#include "ui/common/MainWindowHost.h"
#include "ui/common/Words.h"
#include "ui/main/StatusText.h"

namespace {

/// Reports the messages and failure of Airmail's reader.
/// @return true if it found what was asked for
bool AnswerReport(const Messages& aMessages, const Result<bool>& res, const QString& sWhat)
{
    MsgShow(aMessages);
    if (!res)
        MsgBox(MsgIcon::None, WordsPut(QObject::tr("%1: %2"), sWhat, res.TextGet()));
    return res && res.ValueGet();
}

}  // namespace

AirmailCommands::AirmailCommands(MainWindowHost& host, StationMenu& menu, QObject* pParent)
    : QObject(pParent), m_host(host), m_menu(menu)
{
}

void AirmailCommands::ReceiverTake()
{
    double dLat = 0.0;
    double dLon = 0.0;
    DateTime dtTime;
    Messages aMessages;
    const auto res = AirMailPositionGet(dLat, dLon, dtTime, &aMessages);
    if (!AnswerReport(aMessages, res, tr("Airmail's position")))
        return;
    Q_EMIT Noticed(StatusPosition(dtTime, UtcNow()));
    Q_EMIT RowTaken(0);
    m_host.SettingsGet().m_dRcLat = dLat;
    m_host.SettingsGet().m_dRcLon = dLon;
    m_host.Update();
}

void AirmailCommands::StationsShow(const QWidget& button)
{
    m_menu.ReceiverSet(m_host.SettingsGet().m_dRcLat, m_host.SettingsGet().m_dRcLon);
    if (!m_menu.Build())
        return;
    // When a key was pressed, the pointer may be anywhere.
    const QPoint pnt = button.mapFromGlobal(QCursor::pos());
    m_menu.popup(button.rect().contains(pnt) ? QCursor::pos()
                                             : button.mapToGlobal(button.rect().bottomLeft()));
}

void AirmailCommands::StationTake(const Station& station)
{
    double dLat = 0.0;
    double dLon = 0.0;
    Messages aMessages;
    const auto res =
        AirMailStationPosition(station.sSystem, station.sKey, dLat, dLon, true, aMessages);
    if (!AnswerReport(
            aMessages, res,
            tr("Airmail's station %1").arg(QString::fromStdString(TextForMessage(station.sKey)))))
        return;
    Q_EMIT RowTaken(1);
    m_host.SettingsGet().m_dTxLat = dLat;
    m_host.SettingsGet().m_dTxLon = dLon;
    m_host.Update();
    Q_EMIT StationTaken(
        QString::fromStdString(TextForMessage(station.sKey + " - " + station.sName)));
}
