/// @file PropagationTable.h
/// The prediction table: parallel arrays by hour and frequency, which the readers fill and the
/// windows show, and the request that they answer.
///
/// Units:   with each array.
/// Domain:  hours 0..24 and frequency indices 0..nData; index 0 of both is unused.
/// Tests:   tests/propagation/PropagationTableTest.cpp
#pragma once

#include <cassert>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "propagation/Request.h"
#include "propagation/deck/DeckLayout.h"

/// One value per hour, index 0..24.
template <class T>
class HourArray {
public:
    explicit HourArray(T value = {}) : m_aCells(kHourCount + 1, value) {}
    T& operator[](int iHour) { return m_aCells[Index(iHour)]; }
    const T& operator[](int iHour) const { return m_aCells[Index(iHour)]; }

private:
    static std::size_t Index(int iHour)
    {
        assert(iHour >= 0 && iHour <= kHourCount);
        return static_cast<std::size_t>(iHour);
    }
    std::vector<T> m_aCells;
};

/// One value per hour and frequency, called as fSnr(iHour, iFrequency).
template <class T>
class CellArray {
public:
    explicit CellArray(int nData, const T& value = {})
        : m_nData(nData),
          m_aCells(std::size_t{kHourCount + 1} * (static_cast<std::size_t>(nData) + 1), value)
    {
    }
    T& operator()(int iHour, int iFrequency) { return m_aCells[Index(iHour, iFrequency)]; }
    const T& operator()(int iHour, int iFrequency) const
    {
        return m_aCells[Index(iHour, iFrequency)];
    }

private:
    [[nodiscard]] std::size_t Index(int iHour, int iFrequency) const
    {
        assert(iHour >= 0 && iHour <= kHourCount && iFrequency >= 0 && iFrequency <= m_nData);
        return static_cast<std::size_t>(iHour) * (static_cast<std::size_t>(m_nData) + 1)
               + static_cast<std::size_t>(iFrequency);
    }
    int m_nData;
    std::vector<T> m_aCells;
};

struct PropagationTable {
    /// The value of a cell for which the engine prints nothing.
    static constexpr float kNotPrinted = std::numeric_limits<float>::quiet_NaN();

    /// Every cell is zero or empty, or kNotPrinted if not every engine prints it; no frequency is
    /// present. A negative count gives an empty table.
    explicit PropagationTable(int nFrequencies = 0) : nData(nFrequencies < 0 ? 0 : nFrequencies) {}

    /// False for a frequency without values (its run failed), and outside 1..nData. Its cells may
    /// have leftovers, which are not a prediction: it is shown empty.
    [[nodiscard]] bool PresentIs(int iFrequency) const;
    /// Indices outside 1..nData are ignored.
    void PresentSet(int iFirst, int iLast, bool bPresent);

    Request request;                         ///< what the values are for; set by PropagationRun
    bool bBuiltIn = false;                   ///< made by Hopcast's own engine
    int nData;                               ///< highest frequency index
    HourArray<float> fMUF;                   ///< kHz
    HourArray<float> fLUF;                   ///< kHz
    CellArray<std::string> sLayer{nData};    ///< the engine's mode text, as it is in its field
    CellArray<float> fTakeoffAngle{nData};   ///< degrees
    CellArray<float> fTimeDelay{nData};      ///< ms; -1 from REC533
    CellArray<float> fVirtualHeight{nData};  ///< km; -1 from REC533
    CellArray<float> fSdBW{nData};           ///< signal, dBW
    CellArray<float> fNdBW{nData};           ///< noise, dBW
    CellArray<float> fSnr{nData};            ///< dB
    HourArray<float> fFOT{kNotPrinted};      ///< kHz, optimum working frequency; or kNotPrinted
    /// Fraction of the days with the deck's required SNR, 0 to 1; or kNotPrinted.
    CellArray<float> fReliability{nData, kNotPrinted};
    /// From the median SNR to the one exceeded on 90 % and on 10 % of the days, dB, both positive;
    /// or kNotPrinted.
    CellArray<float> fSnrLower{nData, kNotPrinted};
    CellArray<float> fSnrUpper{nData, kNotPrinted};
    /// The median SNR before rounding to whole dB, if the engine gives it; or kNotPrinted: fSdBW
    /// less fNdBW is the printed one.
    CellArray<float> fSnrMedian{nData, kNotPrinted};
    float fAzimuthTxRc = 0.0F;  ///< degrees
    float fAzimuthRcTx = 0.0F;  ///< degrees
    float fRange = 0.0F;        ///< path length, nautical miles

private:
    std::vector<bool> m_abPresent = std::vector<bool>(static_cast<std::size_t>(nData) + 1);
};

/// The request's frequencies without values, in whole kHz: "2000, 4000"; empty when there is none.
[[nodiscard]] std::string PropagationAbsentText(const PropagationTable& table);

/// Approximate memory of a table, bytes.
[[nodiscard]] std::size_t TableBytesGet(const PropagationTable& table);

/// One cell of the table, as the details show a row.
struct PropagationRecord {
    std::string sTime;        ///< the hour's label
    float fFrequency = 0.0F;  ///< kHz
    float fMUF = 0.0F;
    float fLUF = 0.0F;
    std::string sLayer;
    float fTakeoffAngle = 0.0F;
    float fTimeDelay = 0.0F;
    float fVirtualHeight = 0.0F;
    float fSdBW = 0.0F;
    float fNdBW = 0.0F;
    float fSnr = 0.0F;
};

/// The record of a cell; label and frequency are the caller's.
/// REQUIRES: iHour in 0..24, iFrequency in 0..nData.
[[nodiscard]] PropagationRecord PropagationRecordGet(const PropagationTable& table, int iHour,
                                                     int iFrequency, std::string sTime,
                                                     float fFrequency);
