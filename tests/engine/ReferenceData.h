/// @file ReferenceData.h
/// The tables of tests/engine/data as rows of named cells, and circuits made from them.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "engine/rec533/Prediction.h"

/// Rows of a comma-separated table by column name.
class DataTable {
public:
    explicit DataTable(const std::string& sName);
    [[nodiscard]] std::size_t CountGet() const { return m_aRows.size(); }
    [[nodiscard]] const std::string& TextGet(std::size_t nRow, const std::string& sColumn) const;
    [[nodiscard]] bool Empty(std::size_t nRow, const std::string& sColumn) const
    {
        return TextGet(nRow, sColumn).empty();
    }
    [[nodiscard]] double NumberGet(std::size_t nRow, const std::string& sColumn) const;
    [[nodiscard]] int IntegerGet(std::size_t nRow, const std::string& sColumn) const;

private:
    std::map<std::string, std::size_t> m_mapColumns;
    std::vector<std::vector<std::string>> m_aRows;
};

/// A circuit of the tables with its ionosphere, path and current hour.
class CircuitRun {
public:
    CircuitRun(rec533::Behaviour eBehaviour, rec533::MapSet eMaps);
    /// Recomputes what differs from the previous row: the circuit (by id) and the hour.
    void Go(const std::string& sId, int nLabel);
    [[nodiscard]] rec533::Prediction PredictionGet(double dFrequency);

    rec533::Ionosphere m_tblIonosphere;
    rec533::Path m_tblPath;
    rec533::Hour m_tblHour;

private:
    DataTable m_tblCircuits;
    rec533::Behaviour m_eBehaviour;
    rec533::MapSet m_eMaps;
    std::string m_sId;
    int m_nLabel = 0;
};

/// "2F2", "1E"; empty if there is no mode.
[[nodiscard]] std::string ModeName(int nHops, bool bE);

/// A circuit between two places (degrees), with defaults for everything else.
[[nodiscard]] rec533::Circuit CircuitOf(double dTxLat, double dTxLon, double dRxLat, double dRxLon);
/// The circuit with its receiver at this bearing and distance from the transmitter; beyond half the
/// circumference the way is the long one.
/// @param dBearing  degrees
[[nodiscard]] rec533::Circuit CircuitEndAt(rec533::Circuit circuit, double dBearing, double dKm);
