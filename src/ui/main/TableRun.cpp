#include "ui/main/TableRun.h"

#include <utility>
#include <vector>

#include "airmail/AirMailIni.h"
#include "propagation/PropagationLib.h"
#include "propagation/RunValues.h"
#include "propagation/SnrScale.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "ui/common/GridControl.h"

namespace {

/// The name of a file without its folder.
std::string FileNameGet(const std::string& sFile)
{
    const auto nFolder = sFile.find_last_of("/\\");
    return nFolder == std::string::npos ? sFile : sFile.substr(nFolder + 1);
}

/// Airmail's number while the typed one is in force; empty without Airmail.
std::string AirMailNumber(const Settings& settings)
{
    if (settings.m_bPropagationSunSpotNumber)
        return {};
    const auto res = NumberFromTextSingle(AirMailSunSpotNumberGet(nullptr));
    return res ? NumberToText(res.ValueGet()) : std::string();
}

}  // namespace

TableRun::TableRun(Settings& settings, const GridControl& grd) : m_settings(settings), m_grd(grd) {}

Request TableRun::InputGet() const
{
    return TableIs() ? m_table.request : RequestFromSettings(m_settings);
}

std::string TableRun::InForceGet(StatusForm eForm) const
{
    const std::string sProfile = m_settings.m_sProfileFile == ProfileFileDefault()
                                     ? std::string()
                                     : FileNameGet(m_settings.m_sProfileFile);
    if (TableIs())
        return StatusInForce(m_table.request, {m_table.bBuiltIn, true, m_sAirMail, sProfile},
                             eForm);
    return StatusInForce(
        RequestGet(),
        {EngineIsHopcasts(m_settings.m_iPropagationModel), m_bSunSpotNumber, m_sAirMail, sProfile},
        eForm);
}

Request TableRun::RequestGet() const
{
    Request input = RequestFromSettings(m_settings);
    if (!m_settings.m_bPropagationSunSpotNumber && m_settings.m_bPropagationForecast)
        input.eSunSpotSource = m_ssn.eSource;
    return input;
}

std::string TableRun::SunSpotDetailGet() const
{
    return TableIs() && m_table.request.eSunSpotSource != SunSpotSource::Typed ? m_sSunSpotDetail
                                                                               : std::string();
}

int TableRun::BestRowGet(int iHour) const
{
    int iBest = -1;
    float fBest = kSnrLeast;
    for (int i = 1; i <= m_table.nData; ++i)
        if (m_table.PresentIs(i) && m_table.fSnr(iHour, i) > fBest) {
            iBest = i;
            fBest = m_table.fSnr(iHour, i);
        }
    return iBest;
}

bool TableRun::TroubleSet(RunTrouble eTrouble, const std::optional<Failure>& failure)
{
    m_sTrouble = StatusTrouble(eTrouble, m_settings.m_iPropagationModel, failure,
                               StatusInputFault(RequestFromSettings(m_settings)));
    return false;
}

bool TableRun::Make()
{
    m_bOld = true;
    m_sTrouble.clear();
    Messages aMessages;
    m_bSunSpotNumber = RunValuesTake(m_settings, aMessages, &m_ssn);
    MsgShow(aMessages);
    m_sAirMail = AirMailNumber(m_settings);
    if (!m_bSunSpotNumber)
        return TroubleSet(RunTrouble::SunSpot);
    if (!ListTake())
        return TroubleSet(RunTrouble::Frequencies);
    return TableMake();
}

/// The frequencies are read from the labels, so a prediction is for the whole kHz that the user
/// sees.
bool TableRun::ListTake()
{
    for (int i = 1; i <= m_settings.m_nData; ++i)
        if (const auto res = NumberFromTextSingle(m_grd.TextGet(i, 0).toStdString()))
            m_settings.FrequencySet(i, res.ValueGet());
    return !FrequenciesInRangeGet(RequestFromSettings(m_settings)).empty();
}

/// The new table is made separately, so that a failed run leaves the old one in force.
bool TableRun::TableMake()
{
    PropagationTable table(m_settings.m_nData);
    std::vector<Failure> aFailures;
    const bool bOk = PropagationRun(RequestGet(), table, aFailures);
    for (const Failure& failure : aFailures) MsgBox(failure.eIcon, failure.sText);
    const auto failureLast =
        aFailures.empty() ? std::nullopt : std::optional<Failure>(aFailures.back());
    if (!bOk)
        return TroubleSet(RunTrouble::Engine, failureLast);
    m_sTrouble = StatusAbsent(table, failureLast);
    m_sWarning = m_ssn.sWarning;
    m_sSunSpotDetail = m_ssn.sDetail + (m_sWarning.empty() ? "" : "\n" + m_sWarning);
    m_table = std::move(table);
    m_bOld = false;
    return true;
}
