/// @file DeckLayout.h
/// Columns of every card that is written and of every output row that is read: one table per row
/// type. Columns count from 1. The engines read fixed columns, so no number here may change.
///
/// Source:  the card layouts of the ITS HF propagation package, as its programs read them.
/// Tests:   tests/propagation/DeckTest.cpp, tests/propagation/ReaderTest.cpp
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "propagation/deck/FortranFormat.h"

inline constexpr std::string_view kText = "text";      ///< a text field
inline constexpr std::string_view kNumber = "number";  ///< a field that is only read

struct Field {
    int nCol;                  ///< from 1
    int nWidth;                ///< characters
    std::string_view sFormat;  ///< a format of FortranFormat, or kText, or kNumber
};

inline constexpr int kChunkMax = 10;      ///< frequencies that an engine takes in one run
inline constexpr int kHourCount = 24;     ///< hours of a prediction, 1..24
inline constexpr int kCardWidth = 80;     ///< columns of a deck's line
inline constexpr int kOutputWidth = 133;  ///< columns of an output's line

/// nCount equal fields, side by side.
template <std::size_t nCount>
consteval std::array<Field, nCount> FieldRow(Field fldFirst)
{
    std::array<Field, nCount> aFields{};
    for (Field& fld : aFields) {
        fld = fldFirst;
        fldFirst.nCol += fldFirst.nWidth;
    }
    return aFields;
}

/// Field iField (from 0) of a row of equal fields.
constexpr Field FieldAt(const Field& fldFirst, int iField)
{
    return {fldFirst.nCol + iField * fldFirst.nWidth, fldFirst.nWidth, fldFirst.sFormat};
}

/// True when the fields are in order, do not overlap, end by nRowWidth, and are as wide as their
/// formats.
consteval bool LayoutCheck(std::span<const Field> aFields, int nRowWidth)
{
    int nNext = 1;
    for (const Field& fld : aFields) {
        if (fld.nWidth < 1 || fld.nCol < nNext)
            return false;
        if (fld.sFormat != kText && fld.sFormat != kNumber
            && FortranWidth(fld.sFormat) != fld.nWidth)
            return false;
        nNext = fld.nCol + fld.nWidth;
    }
    return nNext - 1 <= nRowWidth;
}

inline constexpr Field kCardLabel{1, 10, kText};  ///< every card begins with its name

namespace coeffs_row {  // COEFFS and the area deck's Coeffs
inline constexpr Field kMaps{11, 6, kText};
inline constexpr std::array kAll{kCardLabel, kMaps};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace coeffs_row

namespace time_row {  // TIME; REC533 has no universal-time switch
inline constexpr Field kFirst{11, 5, "I5"};
inline constexpr Field kLast{16, 5, "I5"};
inline constexpr Field kStep{21, 5, "I5"};
inline constexpr Field kUniversal{26, 5, "I5"};
inline constexpr std::array kAll{kCardLabel, kFirst, kLast, kStep, kUniversal};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace time_row

namespace month_row {  // MONTH
inline constexpr Field kYear{11, 5, "I5"};
inline constexpr Field kMonth{16, 5, "I5"};
inline constexpr std::array kAll{kCardLabel, kYear, kMonth};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace month_row

namespace sunspot_row {  // SUNSPOT; REC533 has no Q index
inline constexpr Field kSunSpot{11, 5, "F5.1"};
inline constexpr Field kQIndex{16, 5, "F5.1"};
inline constexpr std::array kAll{kCardLabel, kSunSpot, kQIndex};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace sunspot_row

namespace circuit_row {  // CIRCUIT; its first field begins inside the label's ten columns
inline constexpr Field kLabel{1, 9, kText};
inline constexpr Field kTxLat{10, 6, "F6.2"};
inline constexpr Field kTxLatLetter{16, 1, kText};
inline constexpr Field kTxLon{20, 6, "F6.2"};
inline constexpr Field kTxLonLetter{26, 1, kText};
inline constexpr Field kRcLat{30, 6, "F6.2"};
inline constexpr Field kRcLatLetter{36, 1, kText};
inline constexpr Field kRcLon{40, 6, "F6.2"};
inline constexpr Field kRcLonLetter{46, 1, kText};
inline constexpr Field kLongPath{51, 5, "I5"};
inline constexpr std::array kAll{kLabel, kTxLat,       kTxLatLetter, kTxLon,       kTxLonLetter,
                                 kRcLat, kRcLatLetter, kRcLon,       kRcLonLetter, kLongPath};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace circuit_row

namespace system_row {  // SYSTEM
inline constexpr Field kPower{11, 5, "F5.1"};
inline constexpr Field kNoise{16, 5, "F5.0"};  // -dBW
inline constexpr Field kTakeoff{21, 5, "F5.1"};
inline constexpr Field kReliability{26, 5, "F5.1"};
inline constexpr Field kRequiredSnr{31, 5, "F5.1"};
inline constexpr Field kMultipathPower{36, 5, "F5.1"};
inline constexpr Field kMultipathDelay{41, 5, "F5.1"};
inline constexpr std::array kAll{kCardLabel,   kPower,       kNoise,          kTakeoff,
                                 kReliability, kRequiredSnr, kMultipathPower, kMultipathDelay};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace system_row

namespace fprob_row {  // FPROB and the area deck's Fprob
inline constexpr Field kE{11, 5, "F5.2"};
inline constexpr Field kF1{16, 5, "F5.2"};
inline constexpr Field kF2{21, 5, "F5.2"};
inline constexpr Field kEs{26, 5, "F5.2"};
inline constexpr std::array kAll{kCardLabel, kE, kF1, kF2, kEs};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace fprob_row

namespace frequency_row {  // FREQUENCY, MHz
inline constexpr Field kFirst{11, 5, "F5.1"};
inline constexpr auto kAll = FieldRow<kChunkMax>(kFirst);
static_assert(LayoutCheck(kAll, 60));
}  // namespace frequency_row

namespace station_row {  // TRANS and RECVR of REC533
inline constexpr Field kName{11, 20, kText};
inline constexpr Field kLat{32, 6, "F6.2"};
inline constexpr Field kLatLetter{38, 1, kText};
inline constexpr Field kLon{43, 6, "F6.2"};
inline constexpr Field kLonLetter{49, 1, kText};
inline constexpr Field kTail{50, 9, kText};
inline constexpr Field kWay{50, 3, kText};  // in the tail: S or L for the short or the long path
inline constexpr std::array kAll{kCardLabel, kName, kLat, kLatLetter, kLon, kLonLetter, kTail};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace station_row

namespace syst_row {  // SYST of REC533
inline constexpr Field kPower{11, 11, kText};
inline constexpr Field kTakeoff{22, 5, "F5.2"};
inline constexpr Field kTail{27, 10, kText};
inline constexpr std::array kAll{kCardLabel, kPower, kTakeoff, kTail};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace syst_row

namespace nois_row {                         // NOIS of REC533
inline constexpr Field kNoise{11, 5, "I5"};  // dBW, negative
inline constexpr Field kBandwidth{16, 5, "I5"};
inline constexpr Field kRequiredSnr{21, 5, "I5"};
inline constexpr Field kReliability{26, 5, "I5"};
inline constexpr std::array kAll{kCardLabel, kNoise, kBandwidth, kRequiredSnr, kReliability};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace nois_row

namespace freq_row {  // FREQ of REC533, MHz
inline constexpr Field kFirst{11, 7, "F7.1"};
inline constexpr auto kAll = FieldRow<kChunkMax>(kFirst);
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace freq_row

namespace antenna_row {                     // ANTENNA; the brackets are beside the name
inline constexpr Field kSide{11, 5, "I5"};  // 1 the transmitter's, 2 the receiver's
inline constexpr Field kName{42, 21, kText};
inline constexpr Field kTurn{64, 5, kNumber};    // degrees from north
inline constexpr Field kPower{69, 10, kNumber};  // kW
inline constexpr std::array kAll{kCardLabel, kSide, kName, kTurn, kPower};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace antenna_row

namespace area_model_row {  // Model
inline constexpr Field kModel{11, 10, kText};
inline constexpr std::array kAll{kCardLabel, kModel};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace area_model_row

namespace area_antenna_row {  // Tx Ants and Rec Ants; only the transmitter has turn and power
inline constexpr Field kName{12, 21, kText};
inline constexpr Field kTurn{41, 6, kNumber};    // degrees from north
inline constexpr Field kPower{47, 11, kNumber};  // kW
inline constexpr std::array kAll{kCardLabel, kName, kTurn, kPower};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace area_antenna_row

namespace area_place_row {  // Transmit and PCenter
inline constexpr Field kLat{11, 6, "F6.2"};
inline constexpr Field kLatLetter{17, 1, kText};
inline constexpr Field kLon{21, 6, "F6.2"};
inline constexpr Field kLonLetter{27, 1, kText};
inline constexpr Field kName{31, 26, kText};
inline constexpr Field kStation{31, 20, kText};  // in the name's columns: the station's own
inline constexpr Field kWay{52, 8, kText};       // Short or Long, begun in the name's columns
inline constexpr std::array kAll{kCardLabel, kLat, kLatLetter, kLon, kLonLetter, kName};
static_assert(LayoutCheck(kAll, kCardWidth));
static_assert(LayoutCheck(std::array{kStation, kWay}, kCardWidth));
}  // namespace area_place_row

namespace area_bounds_row {  // Area
inline constexpr Field kWest{11, 10, "F10.2"};
inline constexpr Field kEast{21, 10, "F10.2"};
inline constexpr Field kSouth{31, 10, "F10.2"};
inline constexpr Field kNorth{41, 10, "F10.2"};
inline constexpr std::array kAll{kCardLabel, kWest, kEast, kSouth, kNorth};
static_assert(LayoutCheck(kAll, kCardWidth));
}  // namespace area_bounds_row

namespace area_value_row {  // rows with one or two numbers
inline constexpr Field kGridSize{11, 5, "I5"};
inline constexpr Field kGridKind{16, 5, "I5"};
inline constexpr Field kMonth{11, 7, "F7.2"};
inline constexpr Field kSunSpot{11, 7, "I7"};
inline constexpr Field kHour{11, 7, "I7"};
inline constexpr Field kFrequency{11, 7, "F7.3"};  // MHz
inline constexpr std::array kGrid{kCardLabel, kGridSize, kGridKind};
static_assert(LayoutCheck(kGrid, kCardWidth));
static_assert(LayoutCheck(std::array{kCardLabel, kMonth}, kCardWidth));
static_assert(LayoutCheck(std::array{kCardLabel, kSunSpot}, kCardWidth));
static_assert(LayoutCheck(std::array{kCardLabel, kHour}, kCardWidth));
static_assert(LayoutCheck(std::array{kCardLabel, kFrequency}, kCardWidth));
}  // namespace area_value_row

namespace area_system_row {  // System; REC533 has one integer where the others have the multipath
                             // pair
inline constexpr Field kNoise{11, 5, "I5"};  // -dBW
inline constexpr Field kTakeoff{16, 10, "F10.2"};
inline constexpr Field kReliability{26, 5, "I5"};
inline constexpr Field kRequiredSnr{31, 5, "I5"};
inline constexpr Field kMultipathPower{36, 10, "F10.3"};
inline constexpr Field kMultipathDelay{46, 10, "F10.3"};
inline constexpr Field kBandwidth{36, 10, "I10"};
inline constexpr std::array kAll{kCardLabel,   kNoise,          kTakeoff,       kReliability,
                                 kRequiredSnr, kMultipathPower, kMultipathDelay};
inline constexpr std::array kRec533{kCardLabel,   kNoise,       kTakeoff,
                                    kReliability, kRequiredSnr, kBandwidth};
static_assert(LayoutCheck(kAll, kCardWidth));
static_assert(LayoutCheck(kRec533, kCardWidth));
}  // namespace area_system_row

namespace muf_row {  // the MUF/LUF table of ICEPAC and VOACAP, MHz
inline constexpr Field kFot{18, 5, kNumber};
inline constexpr Field kMuf{39, 5, kNumber};
inline constexpr Field kLuf{46, 5, kNumber};
inline constexpr std::array kAll{kFot, kMuf, kLuf};
static_assert(LayoutCheck(kAll, kOutputWidth));
}  // namespace muf_row

/// The line under AZIMUTHS. VOACAP prints it one column further right than REC533; with these
/// columns its azimuths lose a digit and its path length ends in a bare point, which is kept as the
/// users of the classic program know it.
namespace azimuth_row {
inline constexpr Field kTxRc{43, 6, kNumber};   // degrees
inline constexpr Field kRcTx{51, 6, kNumber};   // degrees
inline constexpr Field kRange{60, 7, kNumber};  // nautical miles
inline constexpr std::array kAll{kTxRc, kRcTx, kRange};
static_assert(LayoutCheck(kAll, kOutputWidth));
}  // namespace azimuth_row

namespace hour_row {  // rows of an hour's block of ICEPAC and VOACAP
inline constexpr Field kFirst{12, 5, kNumber};
inline constexpr auto kAll = FieldRow<kChunkMax>(kFirst);
static_assert(LayoutCheck(kAll, kOutputWidth));
}  // namespace hour_row

namespace hour_row_rec533 {  // rows of an hour's block of REC533; MUF and LUF are in the first
inline constexpr Field kMuf{5, 4, kNumber};  // MHz
inline constexpr Field kFirst{9, 5, kNumber};
inline constexpr Field kLuf{65, 4, kNumber};  // MHz
inline constexpr Field kFot{69, 5, kNumber};  // MHz
inline constexpr auto kAll = FieldRow<kChunkMax>(kFirst);
static_assert(LayoutCheck(kAll, kLuf.nCol - 1));
static_assert(LayoutCheck(std::array{kMuf, kFirst, kLuf, kFot}, kOutputWidth));
}  // namespace hour_row_rec533

namespace grid_row {  // a point of an area grid; the SNR is where the head line says
inline constexpr Field kIndex2{1, 3, kNumber};
inline constexpr Field kIndex1{4, 3, kNumber};
inline constexpr Field kLat{7, 10, kNumber};
inline constexpr Field kLon{17, 10, kNumber};
inline constexpr int kSnrWidth = 6;
inline constexpr std::array kAll{kIndex2, kIndex1, kLat, kLon};
static_assert(LayoutCheck(kAll, kOutputWidth));
}  // namespace grid_row
