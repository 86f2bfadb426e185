#include "ui/main/TableRun.h"

#include <utility>
#include <vector>

#include "propagation/PropagationLib.h"
#include "propagation/RunValues.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "ui/common/GridControl.h"

TableRun::TableRun(Settings& settings, const GridControl& grd) : m_settings(settings), m_grd(grd) {}

Request TableRun::InputGet() const
{
    return TableIs() ? m_table.request : RequestFromSettings(m_settings);
}

std::string TableRun::InForceGet() const
{
    if (TableIs())
        return StatusInForce(m_table.request, m_table.bBuiltIn, true);
    return StatusInForce(RequestFromSettings(m_settings),
                         EngineIsHopcasts(m_settings.m_iPropagationModel), m_bSunSpotNumber);
}

bool TableRun::TroubleSet(RunTrouble eTrouble, const std::optional<Failure>& failure)
{
    m_sTrouble = StatusTrouble(eTrouble, m_settings.m_iPropagationModel, failure);
    return false;
}

bool TableRun::Make()
{
    m_bOld = true;
    m_sTrouble.clear();
    Messages aMessages;
    m_bSunSpotNumber = RunValuesTake(m_settings, aMessages);
    MsgShow(aMessages);
    if (!m_bSunSpotNumber)
        return TroubleSet(RunTrouble::SunSpot);
    if (!ListTake())
        return TroubleSet(RunTrouble::Frequencies);
    return TableMake();
}

/// The list is taken from its labels, so a prediction is for the whole kHz that the user sees.
bool TableRun::ListTake()
{
    for (int i = 1; i <= m_settings.m_nData; ++i)
        if (const auto res = NumberFromTextSingle(m_grd.TextGet(i, 0).toStdString()))
            m_settings.FrequencySet(i, res.ValueGet());
    return !FrequenciesInRangeGet(RequestFromSettings(m_settings)).empty();
}

/// A new table is filled apart, so that a failed run leaves the old one in force.
bool TableRun::TableMake()
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
    m_bOld = false;
    return true;
}
