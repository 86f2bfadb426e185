#include "engine/ReferenceData.h"

#include <gtest/gtest.h>

#include <array>
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
        rec533::Circuit tbl = CircuitOf(fnNumber("tx_lat"), fnNumber("tx_lon"), fnNumber("rx_lat"),
                                        fnNumber("rx_lon"));
        tbl.bLongWay = m_tblCircuits.TextGet(nRow, "path") == "LONG";
        tbl.dPowerKw = fnNumber("pwr_w") / 1000.0;
        const std::array<std::string, 6> aNoise{"CITY",       "RESIDENTIAL", "RURAL",
                                                "QUIETRURAL", "QUIET",       "NOISY"};
        tbl.dNoiseLevel = fnNumber("noise");
        for (std::size_t i = 0; i < aNoise.size(); ++i)
            if (m_tblCircuits.TextGet(nRow, "noise") == aNoise[i])
                tbl.eNoise = static_cast<rec533::NoiseCategory>(i);
        tbl.dRequiredSnr = fnNumber("req_snr");
        tbl.dRequiredReliability = fnNumber("req_rel");
        IonosphereFill(m_tblIonosphere, m_eBehaviour, m_eMaps,
                       m_tblCircuits.IntegerGet(nRow, "month"), fnNumber("ssn"));
        PathFill(m_tblPath, m_tblIonosphere, tbl);
    }
    if (sId != m_sId || nLabel != m_nLabel)
        HourFill(m_tblHour, m_tblPath, nLabel);
    m_sId = sId;
    m_nLabel = nLabel;
}

rec533::Prediction CircuitRun::PredictionGet(double dFrequency)
{
    rec533::Prediction tbl;
    PredictionFill(tbl, m_tblHour, dFrequency);
    return tbl;
}

std::string ModeName(int nHops, bool bE)
{
    return nHops == 0 ? std::string() : std::to_string(nHops) + (bE ? "E" : "F2");
}

rec533::Circuit CircuitOf(double dTxLat, double dTxLon, double dRxLat, double dRxLon)
{
    rec533::Circuit tbl;
    tbl.dTxLat = dTxLat;
    tbl.dTxLon = dTxLon;
    tbl.dRxLat = dRxLat;
    tbl.dRxLon = dRxLon;
    return tbl;
}
