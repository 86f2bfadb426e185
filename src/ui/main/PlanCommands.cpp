#include "ui/main/PlanCommands.h"

#include <algorithm>
#include <cmath>
#include <utility>

PlanCommands::PlanCommands(PlanHost& host, QObject* pParent) : QObject(pParent), m_host(host)
{
    connect(&host.SettingsSignalGet(), &SettingsSignal::Changed, this,
            &PlanCommands::SettingsFollow);
}

PlanCommands::Circuit PlanCommands::CircuitGet() const
{
    const Settings& settings = m_host.SettingsGet();
    Circuit circuit{settings.m_dTxLat, settings.m_dTxLon, settings.m_dRcLat, settings.m_dRcLon, {}};
    for (int i = 1; i <= settings.m_nData; ++i)
        circuit.afFrequency.push_back(settings.FrequencyGet(i));
    return circuit;
}

void PlanCommands::FrequenciesSet(const std::vector<float>& afFrequency)
{
    Settings& settings = m_host.SettingsGet();
    settings.m_nData = std::min(static_cast<int>(afFrequency.size()), kFrequencyMax);
    for (int i = 1; i <= settings.m_nData; ++i)
        settings.FrequencySet(i, afFrequency[static_cast<std::size_t>(i) - 1]);
}

/// Takes as many frequencies as the table holds; the one to be selected is always among them.
void PlanCommands::FrequenciesTake(const PlanChoice& choice)
{
    if (choice.afFrequency.empty())
        return;
    std::vector<float> afFrequency = choice.afFrequency;
    constexpr auto kMost = static_cast<std::size_t>(kFrequencyMax);
    const auto it = std::find(afFrequency.begin(), afFrequency.end(), choice.fFrequency);
    if (it != afFrequency.end() && static_cast<std::size_t>(it - afFrequency.begin()) >= kMost)
        afFrequency[kMost - 1] = choice.fFrequency;
    FrequenciesSet(afFrequency);
}

/// The row of a frequency; the table has frequencies in whole kHz.
int PlanCommands::RowOf(float fFrequency) const
{
    const Settings& settings = m_host.SettingsGet();
    int iNearest = settings.m_selected.iFrequency;
    float fLeast = 1.0F;
    for (int i = 1; i <= settings.m_nData; ++i) {
        const float fAway = std::abs(settings.FrequencyGet(i) - fFrequency);
        if (fAway < fLeast) {
            fLeast = fAway;
            iNearest = i;
        }
    }
    return iNearest;
}

void PlanCommands::Take(const PlanChoice& choice)
{
    Step step{CircuitGet(), m_host.SettingsGet().m_selected, m_host.TransmitterNameGet()};
    m_bOwn = true;
    Q_EMIT RowTaken(1);
    Settings& settings = m_host.SettingsGet();
    settings.m_dTxLat = choice.dTxLat;
    settings.m_dTxLon = choice.dTxLon;
    FrequenciesTake(choice);
    m_host.Update();
    Q_EMIT TitleTaken(choice.sTitle);
    if (choice.fFrequency > 0.0F)
        Q_EMIT CellTaken(RowOf(choice.fFrequency), choice.iHour);
    m_taken = CircuitGet();
    m_back = std::move(step);
    m_bOwn = false;
    Q_EMIT BackPossible(true);
}

void PlanCommands::Back()
{
    if (!m_back)
        return;
    const Step step = *std::exchange(m_back, std::nullopt);
    Q_EMIT BackPossible(false);
    for (const int iRow : {0, 1}) Q_EMIT RowTaken(iRow);
    Settings& settings = m_host.SettingsGet();
    settings.m_dTxLat = step.circuit.dTxLat;
    settings.m_dTxLon = step.circuit.dTxLon;
    settings.m_dRcLat = step.circuit.dRcLat;
    settings.m_dRcLon = step.circuit.dRcLon;
    FrequenciesSet(step.circuit.afFrequency);
    m_host.Update();
    Q_EMIT TitleTaken(step.sTitle);
    if (step.cell.iFrequency != -1 && step.cell.iHour != -1)
        Q_EMIT CellTaken(step.cell.iFrequency, step.cell.iHour);
}

/// Clears the title: the transmitter is no longer the station that it names.
void PlanCommands::Exchange()
{
    for (const int iRow : {0, 1}) Q_EMIT RowTaken(iRow);
    Settings& settings = m_host.SettingsGet();
    std::swap(settings.m_dTxLat, settings.m_dRcLat);
    std::swap(settings.m_dTxLon, settings.m_dRcLon);
    m_host.Update();
    Q_EMIT TitleTaken({});
}

void PlanCommands::SettingsFollow()
{
    if (m_bOwn || !m_back || CircuitGet() == m_taken)
        return;
    m_back.reset();
    Q_EMIT BackPossible(false);
}
