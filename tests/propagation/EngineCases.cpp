#include "propagation/EngineCases.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <stdexcept>

#include "propagation/PropagationTable.h"
#include "support/TempFolder.h"

namespace {

// name; model; transmitter, receiver; month; coefficients; sunspot number, Q, noise, takeoff angle,
// reliability, multipath power and delay; layer factors; antenna type; kHz
// clang-format off
const std::vector<CircuitCase> kCircuits{
    {"voacap/p2p_01", kEngineVoacap, 38, -122, 24, -110, 11, "URSI", 170, 3, -145, 3, 50, 0, 10, {1, 1, 1, 0.7}, 1, {2000, 4000, 6000, 8000, 10000, 12000, 14000, 16000, 18000, 20000}},
    {"voacap/p2p_02", kEngineVoacap, 52, 5, 52.5, 6, 1, "CCIR", 20, 0, -155, 0.1, 50, 3, 0.85, {1, 1, 1, 0}, 2, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"voacap/p2p_03", kEngineVoacap, 51.5, -0.13, -33.87, 151.21, 3, "CCIR", 100, 2, -145, 3, 90, 3, 0.1, {1, 1, 1, 0}, 0, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"voacap/p2p_04", kEngineVoacap, 40.71, -74.01, -34.6, -58.38, 6, "URSI", 120, 1, -148, 3, 90, 0, 10, {1, 1, 1, 0.7}, 1, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"voacap/p2p_05", kEngineVoacap, 69.65, 18.96, 64.84, -147.72, 12, "URSI", 10, 5, -163, 3, 50, 0, 10, {1, 1, 1, 0.7}, 2, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"voacap/p2p_06", kEngineVoacap, 25.77, -80.19, -12.05, -77.04, 9, "CCIR", 80, 2.5, -145, 5, 50, 0, 10, {1, 1, 1, 0.7}, 1, {2182, 4125, 6215, 8291, 12290}},
    {"voacap/p2p_07", kEngineVoacap, -18.14, 178.44, -13.83, -171.76, 2, "URSI", 50, 0, -150, 3, 80, 0, 10, {1, 1, 1, 0.7}, 2, {2182, 4125, 6215, 8291, 12290}},
    {"voacap/p2p_08", kEngineVoacap, -33.92, 18.42, -51.7, -57.85, 7, "CCIR", 30, 3, -164, 3, 50, 0, 10, {1, 1, 1, 0.7}, 0, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"voacap/p2p_09", kEngineVoacap, 0, 0, 10, -20, 4, "URSI", 70, 0, -145, 3, 50, 0, 10, {1, 1, 1, 0.7}, 1, {14100}},
    {"voacap/p2p_10", kEngineVoacap, 40.42, -3.7, -41.29, 174.78, 10, "CCIR", 200, 3, -140, 3, 10, 10, 5, {1, 1, 1, 0.7}, 2, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"voacap/p2p_11", kEngineVoacap, 10, 20, 10, 20, 5, "URSI", 150, 3, -145, 3, 50, 0, 10, {1, 1, 1, 0.7}, 1, {2182, 4125, 6215, 8291, 12290}},
    {"voacap/p2p_12", kEngineVoacap, -77.85, 166.67, -90, 0, 8, "CCIR", 0, 9, -155, 3, 50, 0, 10, {0.8, 1.2, 1, 0.5}, 1, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"voacap/p2p_13", kEngineVoacap, 38, -122, 24, -110, 11, "URSI", 170, 3, -145, 3, 50, 0, 10, {1, 1, 1, 0.7}, 3, {500, 14100}},
    {"rec533/p2p_01", kEngineRec533, 38, -122, 24, -110, 11, "URSI", 170, 0, -145, 3, 50, 0, 0, {1, 1, 1, 1}, 1, {2000, 4000, 6000, 8000, 10000, 12000, 14000, 16000, 18000, 20000}},
    {"rec533/p2p_02", kEngineRec533, 52, 5, 52.5, 6, 1, "CCIR", 20, 0, -155, 0.1, 50, 0, 0, {1, 1, 1, 1}, 0, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"rec533/p2p_03", kEngineRec533, 51.5, -0.13, -33.87, 151.21, 3, "CCIR", 100, 0, -145, 3, 90, 0, 0, {1, 1, 1, 1}, 0, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"rec533/p2p_04", kEngineRec533, 40.71, -74.01, -34.6, -58.38, 6, "URSI", 120, 0, -148, 3, 90, 0, 0, {1, 1, 1, 1}, 1, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"rec533/p2p_05", kEngineRec533, 69.65, 18.96, 64.84, -147.72, 12, "URSI", 10, 0, -163, 3, 50, 0, 0, {1, 1, 1, 1}, 1, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"rec533/p2p_06", kEngineRec533, 25.77, -80.19, -12.05, -77.04, 9, "CCIR", 80, 0, -145, 5, 50, 0, 0, {1, 1, 1, 1}, 0, {2182, 4125, 6215, 8291, 12290}},
    {"rec533/p2p_07", kEngineRec533, -18.14, 178.44, -13.83, -171.76, 2, "URSI", 50, 0, -150, 3, 80, 0, 0, {1, 1, 1, 1}, 1, {2182, 4125, 6215, 8291, 12290}},
    {"rec533/p2p_08", kEngineRec533, -33.92, 18.42, -51.7, -57.85, 7, "CCIR", 30, 0, -164, 3, 50, 0, 0, {1, 1, 1, 1}, 0, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"rec533/p2p_09", kEngineRec533, 0, 0, 10, -20, 4, "URSI", 70, 0, -145, 3, 50, 0, 0, {1, 1, 1, 1}, 1, {14100}},
    {"rec533/p2p_10", kEngineRec533, 40.42, -3.7, -41.29, 174.78, 10, "CCIR", 200, 0, -140, 3, 10, 0, 0, {1, 1, 1, 1}, 1, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"rec533/p2p_11", kEngineRec533, 10, 20, 10, 20, 5, "URSI", 150, 0, -145, 3, 50, 0, 0, {1, 1, 1, 1}, 0, {2182, 4125, 6215, 8291, 12290}},
    {"rec533/p2p_12", kEngineRec533, -77.85, 166.67, -90, 0, 8, "CCIR", 0, 0, -155, 3, 50, 0, 0, {1, 1, 1, 1}, 1, {1850, 3600, 5350, 7100, 10125, 14100, 18100, 21200, 24900, 28300}},
    {"rec533/p2p_13", kEngineRec533, 38, -122, 24, -110, 11, "URSI", 170, 0, -145, 3, 50, 0, 0, {1, 1, 1, 1}, 2, {500, 14100}},
};

// name; model; month, hour, grid; west, east, south, north; fixed end; MHz; sunspot number, noise,
// takeoff angle, reliability, multipath power and delay; layer factors; antenna type; coefficients
const std::vector<AreaCase> kAreas{
    {"voacap/area_01", kEngineVoacap, 11, 12, 40, -130, -60, 10, 60, 24, -110, 14.0, 170, 145, 3, 50, 0, 10, {1, 1, 1, 0.7}, 1, "URSI"},
    {"voacap/area_02", kEngineVoacap, 6, 6, 11, 0, 10, 40, 50, 45, 5, 3.6, 20, 145, 3, 50, 0, 10, {1, 1, 1, 0.7}, 0, "CCIR"},
    {"voacap/area_03", kEngineVoacap, 12, 22, 40, -30, 90, 55, 89.9, 69.65, 18.96, 7.1, 60, 155, 3, 90, 0, 10, {1, 1, 1, 0.7}, 0, "URSI"},
    {"voacap/area_04", kEngineVoacap, 3, 0, 11, -180, 180, -89.9, 89.9, 0, 0, 21.2, 200, 145, 3, 50, 0, 10, {1, 1, 1, 0}, 1, "CCIR"},
    {"voacap/area_05", kEngineVoacap, 6, 12, 40, -20, 60, -35, 70, 50, 10, 1.9, 150, 145, 3, 50, 0, 10, {1, 1, 1, 0.7}, 0, "URSI"},
    {"rec533/area_01", kEngineRec533, 11, 12, 40, -130, -60, 10, 60, 24, -110, 14.0, 170, 145, 3, 50, 0, 0, {1, 1, 1, 1}, 1, "URSI"},
    {"rec533/area_02", kEngineRec533, 6, 6, 11, 0, 10, 40, 50, 45, 5, 3.6, 20, 145, 3, 50, 0, 0, {1, 1, 1, 1}, 0, "CCIR"},
    {"rec533/area_03", kEngineRec533, 12, 22, 40, -30, 90, 55, 89.9, 69.65, 18.96, 7.1, 60, 155, 3, 90, 0, 0, {1, 1, 1, 1}, 0, "URSI"},
    {"rec533/area_04", kEngineRec533, 3, 0, 11, -180, 180, -89.9, 89.9, 0, 0, 21.2, 200, 145, 3, 50, 0, 0, {1, 1, 1, 1}, 1, "CCIR"},
    {"rec533/area_05", kEngineRec533, 6, 12, 40, -20, 60, -35, 70, 50, 10, 1.9, 150, 145, 3, 50, 0, 0, {1, 1, 1, 1}, 0, "URSI"},
};
// clang-format on

template <class Case>
void ModelFill(const Case& c, RequestModel& model)
{
    model.iModel = c.iModel;
    model.nMonth = c.nMonth;
    model.sIonCoefficients = c.sCoefficients;
    model.fSunSpotNumber = static_cast<float>(c.dSunSpots);
    model.fNoiseLevel = static_cast<float>(c.dNoise);
    model.fTakeoffAngle = static_cast<float>(c.dTakeoff);
    model.fReliability = static_cast<float>(c.dReliability);
    model.fMultipathPower = static_cast<float>(c.dMultipathPower);
    model.fMultipathDelay = static_cast<float>(c.dMultipathDelay);
    model.fLayerAdjustE = static_cast<float>(c.layers.dE);
    model.fLayerAdjustF1 = static_cast<float>(c.layers.dF1);
    model.fLayerAdjustF2 = static_cast<float>(c.layers.dF2);
    model.fLayerAdjustEs = static_cast<float>(c.layers.dEs);
    model.iAntennaType = c.iAntenna;
}

std::string ExpectedPath(std::string_view sName)
{
    return std::string(TEST_DATA "/expected/") + CaseName(sName) + ".csv";
}

float Single(const std::string& sText) { return std::stof(sText); }

/// A frequency in MHz, as kHz.
float Kilohertz(const std::string& sText) { return static_cast<float>(std::stod(sText) * 1000.0); }

void CellCompareVoacap(const std::vector<std::string>& asRow, const PropagationTable& table,
                       int iHour, int j, bool bWhole)
{
    EXPECT_EQ(table.fTakeoffAngle(iHour, j), Single(asRow.at(4)));
    EXPECT_EQ(table.fTimeDelay(iHour, j), Single(asRow.at(5)));
    EXPECT_EQ(table.fVirtualHeight(iHour, j), Single(asRow.at(6)));
    EXPECT_EQ(table.fSdBW(iHour, j), Single(asRow.at(7)));
    EXPECT_EQ(table.fNdBW(iHour, j), Single(asRow.at(8)));
    EXPECT_EQ(table.fSnr(iHour, j), Single(asRow.at(9)));
    if (!bWhole)
        return;
    EXPECT_EQ(table.fReliability(iHour, j), Single(asRow.at(10)));
    EXPECT_EQ(table.fSnrLower(iHour, j), Single(asRow.at(11)));
    EXPECT_EQ(table.fSnrUpper(iHour, j), Single(asRow.at(12)));
}

void CellCompareRec533(const std::vector<std::string>& asRow, const PropagationTable& table,
                       int iHour, int j, double dKilohertz, bool bWhole)
{
    EXPECT_EQ(table.fTakeoffAngle(iHour, j), asRow.at(4) == "-" ? 0.0F : Single(asRow.at(4)));
    EXPECT_EQ(table.fTimeDelay(iHour, j), -1.0F);
    EXPECT_EQ(table.fVirtualHeight(iHour, j), -1.0F);
    const double dSignal = std::stod(asRow.at(5)) - 137.0 - 20.0 * std::log10(dKilohertz / 20000.0);
    EXPECT_NEAR(table.fSdBW(iHour, j), dSignal, 5e-4);
    EXPECT_NEAR(table.fNdBW(iHour, j), dSignal - std::stod(asRow.at(6)), 1e-3);
    EXPECT_EQ(table.fSnr(iHour, j), Single(asRow.at(7)));
    if (!bWhole)
        return;
    EXPECT_EQ(table.fReliability(iHour, j), Single(asRow.at(8)));
    EXPECT_TRUE(std::isnan(table.fSnrLower(iHour, j)) && std::isnan(table.fSnrUpper(iHour, j)));
}

}  // namespace

std::ostream& operator<<(std::ostream& stm, const CircuitCase& c) { return stm << c.sName; }

std::ostream& operator<<(std::ostream& stm, const AreaCase& c) { return stm << c.sName; }

const std::vector<CircuitCase>& CircuitCases() { return kCircuits; }

const std::vector<AreaCase>& AreaCases() { return kAreas; }

const CircuitCase& CircuitCaseGet(std::string_view sName)
{
    for (const CircuitCase& c : kCircuits)
        if (c.sName == sName)
            return c;
    throw std::logic_error("no such circuit");
}

Request InputMake(const CircuitCase& c)
{
    Request input;
    ModelFill(c, input);
    input.fQIndex = static_cast<float>(c.dQIndex);
    input.dTxLat = c.dTxLat;
    input.dTxLon = c.dTxLon;
    input.dRcLat = c.dRcLat;
    input.dRcLon = c.dRcLon;
    input.nData = static_cast<int>(c.adKilohertz.size());
    for (const double dKilohertz : c.adKilohertz)
        input.afFrequency.push_back(static_cast<float>(dKilohertz));
    return input;
}

AreaRequest AreaInputMake(const AreaCase& c)
{
    AreaRequest input;
    ModelFill(c, input);
    input.iHour = c.iHour;
    input.nGridSize = c.nGridSize;
    input.dWest = c.dWest;
    input.dEast = c.dEast;
    input.dSouth = c.dSouth;
    input.dNorth = c.dNorth;
    input.dFixedLat = c.dFixedLat;
    input.dFixedLon = c.dFixedLon;
    input.fFrequency = static_cast<float>(c.dMegahertz);
    return input;
}

std::string CaseName(std::string_view sName)
{
    std::string sResult(sName);
    for (char& cLetter : sResult)
        if (cLetter == '/')
            cLetter = '_';
    return sResult;
}

std::string CapturedPath(std::string_view sName, std::string_view sExtension)
{
    return std::string(TEST_DATA "/engines/") + std::string(sName) + std::string(sExtension);
}

std::string AreaDeckExtension(int iModel) { return iModel == kEngineVoacap ? ".voa" : ".rec"; }

std::string AreaGridExtension(int iModel) { return iModel == kEngineVoacap ? ".vg1" : ".rg1"; }

std::vector<std::vector<std::string>> ExpectedRows(std::string_view sName)
{
    std::vector<std::vector<std::string>> aRows(1, std::vector<std::string>(1));
    for (const char cByte : BytesRead(ExpectedPath(sName))) {
        if (cByte == ',')
            aRows.back().emplace_back();
        else if (cByte == '\n')
            aRows.emplace_back(1);
        else
            aRows.back().back() += cByte;
    }
    aRows.pop_back();  // after the last line end
    return aRows;
}

void TableCompare(const CircuitCase& c, const PropagationTable& table, int iFirst, bool bWhole)
{
    std::size_t nCells = 0;
    std::size_t nHours = 0;
    for (const auto& asRow : ExpectedRows(c.sName)) {
        if (asRow.at(0) == "path") {
            EXPECT_EQ(table.fAzimuthTxRc, Single(asRow.at(1)));
            EXPECT_EQ(table.fAzimuthRcTx, Single(asRow.at(2)));
            EXPECT_EQ(table.fRange, Single(asRow.at(3)));
            continue;
        }
        const int iHour = std::stoi(asRow.at(1));
        if (asRow.at(0) == "hour") {
            ++nHours;
            EXPECT_EQ(table.fMUF[iHour], Kilohertz(asRow.at(2))) << "hour " << iHour;
            EXPECT_EQ(table.fLUF[iHour], Kilohertz(asRow.at(3))) << "hour " << iHour;
            if (bWhole) {
                EXPECT_EQ(table.fFOT[iHour], Kilohertz(asRow.at(4))) << "hour " << iHour;
            }
            continue;
        }
        ++nCells;
        const int nIndex = std::stoi(asRow.at(2));
        const int j = iFirst + nIndex - 1;
        SCOPED_TRACE("hour " + asRow.at(1) + ", frequency " + asRow.at(2));
        EXPECT_EQ(table.sLayer(iHour, j), asRow.at(3));
        if (c.iModel == kEngineRec533)
            CellCompareRec533(asRow, table, iHour, j,
                              c.adKilohertz.at(static_cast<std::size_t>(nIndex - 1)), bWhole);
        else
            CellCompareVoacap(asRow, table, iHour, j, bWhole);
    }
    EXPECT_EQ(nHours, 24U);
    EXPECT_EQ(nCells, 24U * c.adKilohertz.size());
}
