#include "engine/ReferenceData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>

namespace {

std::vector<std::string> CellsSplit(const std::string& sLine)
{
    std::vector<std::string> aCells(1);
    for (const char c : sLine) {
        if (c == ',')
            aCells.emplace_back();
        else if (c != '\r')
            aCells.back() += c;
    }
    return aCells;
}

}  // namespace

DataTable::DataTable(const std::string& sName)
{
    std::ifstream stm(std::string(TEST_DATA) + "/" + sName);
    EXPECT_TRUE(stm.is_open()) << sName;
    std::string sLine;
    std::getline(stm, sLine);
    const auto aHead = CellsSplit(sLine);
    for (std::size_t i = 0; i < aHead.size(); ++i) m_mapColumns[aHead[i]] = i;
    while (std::getline(stm, sLine)) m_aRows.push_back(CellsSplit(sLine));
    EXPECT_FALSE(m_aRows.empty()) << sName;
}

const std::string& DataTable::TextGet(std::size_t nRow, const std::string& sColumn) const
{
    return m_aRows.at(nRow).at(m_mapColumns.at(sColumn));
}

double DataTable::NumberGet(std::size_t nRow, const std::string& sColumn) const
{
    return std::strtod(TextGet(nRow, sColumn).c_str(), nullptr);
}

int DataTable::IntegerGet(std::size_t nRow, const std::string& sColumn) const
{
    return static_cast<int>(NumberGet(nRow, sColumn));
}

CircuitRun::CircuitRun(rec533::Behaviour eBehaviour, rec533::MapSet eMaps)
    : m_tblCircuits("p533_circuits.csv"), m_eBehaviour(eBehaviour), m_eMaps(eMaps)
{
}

void CircuitRun::Go(const std::string& sId, int nLabel)
{
    if (sId != m_sId) {
        std::size_t nRow = 0;
        while (m_tblCircuits.TextGet(nRow, "id") != sId) ++nRow;
        const auto fnNumber = [&](const char* sName) {
            return m_tblCircuits.NumberGet(nRow, sName);
        };
        rec533::Circuit circuit = CircuitOf(fnNumber("tx_lat"), fnNumber("tx_lon"),
                                            fnNumber("rx_lat"), fnNumber("rx_lon"));
        circuit.bLongWay = m_tblCircuits.TextGet(nRow, "path") == "LONG";
        circuit.dPowerKw = fnNumber("pwr_w") / 1000.0;
        const std::array<std::string, 6> aNoise{"CITY",       "RESIDENTIAL", "RURAL",
                                                "QUIETRURAL", "QUIET",       "NOISY"};
        circuit.dNoiseLevel = fnNumber("noise");
        for (std::size_t i = 0; i < aNoise.size(); ++i)
            if (m_tblCircuits.TextGet(nRow, "noise") == aNoise[i])
                circuit.eNoise = static_cast<rec533::NoiseCategory>(i);
        circuit.dRequiredSnr = fnNumber("req_snr");
        circuit.dRequiredReliability = fnNumber("req_rel");
        IonosphereFill(m_tblIonosphere, m_eBehaviour, m_eMaps,
                       m_tblCircuits.IntegerGet(nRow, "month"), fnNumber("ssn"));
        PathFill(m_tblPath, m_tblIonosphere, circuit);
    }
    if (sId != m_sId || nLabel != m_nLabel)
        HourFill(m_tblHour, m_tblPath, nLabel);
    m_sId = sId;
    m_nLabel = nLabel;
}

rec533::Prediction CircuitRun::PredictionGet(double dFrequency)
{
    rec533::Prediction prediction;
    PredictionFill(prediction, m_tblHour, dFrequency);
    return prediction;
}

std::string ModeName(int nHops, bool bE)
{
    return nHops == 0 ? std::string() : std::to_string(nHops) + (bE ? "E" : "F2");
}

rec533::Circuit CircuitOf(double dTxLat, double dTxLon, double dRxLat, double dRxLon)
{
    rec533::Circuit circuit;
    circuit.dTxLat = dTxLat;
    circuit.dTxLon = dTxLon;
    circuit.dRxLat = dRxLat;
    circuit.dRxLon = dRxLon;
    return circuit;
}

rec533::Circuit CircuitEndAt(rec533::Circuit circuit, double dBearing, double dKm)
{
    const double dLat = circuit.dTxLat * rec533::kRadians;
    const double dB = dBearing * rec533::kRadians;
    const double dA = dKm / rec533::kEarthKm;
    const double dSin =
        std::sin(dLat) * std::cos(dA) + std::cos(dLat) * std::sin(dA) * std::cos(dB);
    const double dEnd = std::asin(std::clamp(dSin, -1.0, 1.0));
    const double dTurn = std::atan2(std::sin(dB) * std::sin(dA) * std::cos(dLat),
                                    std::cos(dA) - std::sin(dLat) * std::sin(dEnd));
    circuit.dRxLat = dEnd * rec533::kDegrees;
    circuit.dRxLon = std::remainder(circuit.dTxLon + dTurn * rec533::kDegrees, 360.0);
    circuit.bLongWay = dKm > rec533::kPi * rec533::kEarthKm;
    return circuit;
}
