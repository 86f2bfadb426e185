#include "ui/main/FileCommands.h"

#include <QScreen>
#include <QWidget>

#include "places/OwnPlaces.h"
#include "settings/ForecastFile.h"
#include "settings/ProfileLib.h"
#include "system/FileLib.h"
#include "system/MsgLib.h"
#include "ui/common/FileDialog.h"
#include "ui/common/MainWindowHost.h"
#include "ui/common/WindowPlace.h"
#include "ui/common/Words.h"
#include "ui/main/StatusText.h"

namespace {

/// Asks for the profile's file.
/// @return false when the user cancels
bool ProfileAsk(QWidget& window, FileDialogKind eKind, std::string& sFile)
{
    const QString sChosen =
        FileDialogShow(&window, {eKind, QString::fromStdString(sFile),
                                 QObject::tr("File (*.ini)") + QStringLiteral("|*.ini")});
    if (!sChosen.isEmpty())
        sFile = sChosen.toStdString();
    return !sChosen.isEmpty();
}

/// Under a new name the settings keep the forecast and the places that stand beside their profile,
/// or the next prediction would have another sunspot number. A profile's own stay.
void BesideCarry(const std::string& sFrom, const std::string& sTo)
{
    if (!FileExists(sTo))
        return;  // it could not be saved, which has been told
    for (const auto& fnPath : {ForecastFilePath, OwnPlacesPath}) {
        const std::string sNew = fnPath(sTo);
        if (!FileExists(fnPath(sFrom)) || FileExists(sNew))
            continue;
        const auto resBytes = FileRead(fnPath(sFrom), kOwnPlacesBytesMost);
        const auto resKept =
            resBytes ? FileReplace(sNew, resBytes.ValueGet()) : Result<void>(resBytes.ErrorGet());
        if (!resKept)
            MsgBox(MsgIcon::Info,
                   WordsPut(QObject::tr("Cannot keep %1: %2"), sNew, resKept.TextGet()));
    }
}

}  // namespace

FileCommands::FileCommands(QWidget& window, MainWindowHost& host, QObject* pParent)
    : QObject(pParent), m_window(window), m_host(host)
{
}

void FileCommands::Default()
{
    m_host.Initialize();
    m_host.Update();
}

void FileCommands::DefaultSet() { m_undo.DefaultSet(m_host.SettingsGet()); }

void FileCommands::UndoDefault()
{
    if (m_undo.TakeBack(m_host.SettingsGet()))
        m_host.Update();
}

bool FileCommands::UndoPossible() const { return m_undo.Possible(m_host.SettingsGet()); }

void FileCommands::Open()
{
    if (!ProfileAsk(m_window, FileDialogKind::Open, m_host.SettingsGet().m_sProfileFile))
        return;
    if (ProfileRead())
        Q_EMIT PositionsRead();
    m_host.Update();
}

void FileCommands::Save()
{
    const std::string sBefore = m_host.SettingsGet().m_sProfileFile;
    if (!ProfileAsk(m_window, FileDialogKind::Save, m_host.SettingsGet().m_sProfileFile))
        return;
    ProfileWrite();
    BesideCarry(sBefore, m_host.SettingsGet().m_sProfileFile);
    Q_EMIT m_host.SettingsSignalGet().PlacesChanged();
}

bool FileCommands::ProfileRead()
{
    QRect rectOuter = m_rectOuter.value_or(m_window.frameGeometry());
    bool bPlaced = false;
    const auto resDropped = ProfileLoad(m_host.SettingsGet(), [&](WindowKey eKey, float fTwips) {
        WindowKeyApply(rectOuter, eKey, fTwips);
        bPlaced = true;
    });
    Q_EMIT Noticed(StatusProfile(resDropped));
    if (!resDropped)
        return false;
    m_undo.Forget();
    if (bPlaced) {
        WindowOuterSet(m_window, rectOuter);
        if (!m_bFrameKnown)
            m_rectOuter = rectOuter;
    }
    return true;
}

void FileCommands::ProfileWrite()
{
    Messages aMessages;
    ProfileSave(m_host.SettingsGet(), WindowDataGet(m_window), &aMessages);
    MsgShow(aMessages);
}

void FileCommands::FrameKnown()
{
    m_bFrameKnown = true;
    // Without a place in the profile, the first size did not allow for the frame.
    if (m_rectOuter || !m_window.screen()->availableGeometry().contains(m_window.frameGeometry()))
        WindowOuterSet(m_window, m_rectOuter.value_or(m_window.frameGeometry()));
    m_rectOuter.reset();
}
