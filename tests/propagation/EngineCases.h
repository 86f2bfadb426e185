/// @file EngineCases.h
/// The captured circuits and areas (data/engines/README.md), the values cut from their outputs
/// (data/expected, made by tools/outputs_cut.py), and the paths of the files.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "propagation/Request.h"

/// The year in the captured decks.
inline constexpr int kCapturedYear = 2026;

struct LayerFactors {
    double dE, dF1, dF2, dEs;
};

struct CircuitCase {
    const char* sName;
    int iModel;
    double dTxLat, dTxLon, dRcLat, dRcLon;
    int nMonth;
    const char* sCoefficients;
    double dSunSpots, dQIndex, dNoise, dTakeoff, dReliability, dMultipathPower, dMultipathDelay;
    LayerFactors layers;
    int iAntenna;
    std::vector<double> adKilohertz;
};

struct AreaCase {
    const char* sName;
    int iModel;
    int nMonth, iHour, nGridSize;
    double dWest, dEast, dSouth, dNorth, dFixedLat, dFixedLon, dMegahertz;
    double dSunSpots, dNoise, dTakeoff, dReliability, dMultipathPower, dMultipathDelay;
    LayerFactors layers;
    int iAntenna;
    const char* sCoefficients;
};

std::ostream& operator<<(std::ostream& stm, const CircuitCase& c);
std::ostream& operator<<(std::ostream& stm, const AreaCase& c);

const std::vector<CircuitCase>& CircuitCases();
const std::vector<AreaCase>& AreaCases();
const CircuitCase& CircuitCaseGet(std::string_view sName);

Request InputMake(const CircuitCase& c);
AreaRequest AreaInputMake(const AreaCase& c);

/// A name with letters, digits and underscores only, as test names need.
std::string CaseName(std::string_view sName);

/// Path of a captured file ("rec533/p2p_01", ".out").
std::string CapturedPath(std::string_view sName, std::string_view sExtension);
std::string AreaDeckExtension(int iModel);
std::string AreaGridExtension(int iModel);

/// The rows of a case's expected values, split at the commas.
std::vector<std::vector<std::string>> ExpectedRows(std::string_view sName);

struct PropagationTable;
/// Compares every value of a table that holds iFirst..iLast with the expected rows of the case.
/// @param bWhole  false: leaves out FOT, reliability and deciles
void TableCompare(const CircuitCase& c, const PropagationTable& table, int iFirst,
                  bool bWhole = true);
