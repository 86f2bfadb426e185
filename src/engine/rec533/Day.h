/// @file Day.h
/// All hours and frequencies of a path at once.
///
/// Ionosphere and Frequencies are made once a request and shared by all threads; a DayWork is for
/// one thread, and holds nothing that a caller has to keep. An area's day is PredictDay for each
/// point, the points being spread over the cores by the caller.
///
/// Units:   MHz, dB(uV/m), dBW, dB, percent, radians.
/// Domain:  frequencies for which FrequencyUsable holds, any number of them.
/// Tests:   tests/engine/DayTest.cpp
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "engine/rec533/Prediction.h"

namespace rec533 {

/// The frequencies of a request, with the noise that goes with the circuit's category or level.
class Frequencies {
public:
    Frequencies(const Ionosphere& ionosphere, const Circuit& circuit,
                std::span<const double> aMegahertz);
    [[nodiscard]] std::size_t CountGet() const { return m_nCount; }
    [[nodiscard]] std::span<const FrequencySet> SetsGet() const { return m_aSets; }

private:
    std::size_t m_nCount;
    std::vector<FrequencySet> m_aSets;
};

/// An hour of a path apart from its frequencies.
struct DayHour {
    double dMuf = 0.0, dMuf10 = 0.0, dMuf90 = 0.0;  ///< basic MUF: median, 10 %, 90 % of the days
    double dOperational = 0.0, dOperational10 = 0.0;
    double dFot = 0.0;  ///< operational MUF that 90 % of the days exceed
    // With DayParts::Page:
    double dLuf = 0.0;
    bool bAtMuf = false;  ///< the MUF is a frequency that the method takes
    Prediction atMuf;
};

/// The great circle of a path, and its circuit as limited to the method's ranges.
struct DayPath {
    Way way;
    Circuit circuit;
};

/// What is wanted.
enum class DayParts {
    Cells,  ///< predictions and MUFs
    Page,   ///< the lowest usable frequency and the prediction at the MUF too
};

/// What a thread works in.
class DayWork {
public:
    DayWork();
    ~DayWork();
    DayWork(DayWork&&) noexcept;
    DayWork& operator=(DayWork&&) noexcept;

    /// The path that was computed last; a copy, which the next one leaves alone.
    [[nodiscard]] DayPath PathGet() const;

private:
    friend void PredictDay(DayWork&, const Ionosphere&, const Frequencies&, const Circuit&,
                           DayParts, std::span<DayHour, 24>, std::span<Prediction>);
    friend void PredictHour(DayWork&, const Ionosphere&, const Frequencies&, const Circuit&, int,
                            DayHour&, std::span<Prediction>);
    struct Parts;
    std::unique_ptr<Parts> m_pParts;
};

/// A circuit's day. aHours: 0 to 23 UTC. aCells: [hour][frequency], 24 times the frequencies.
/// The circuit's noise is that of the frequencies.
void PredictDay(DayWork& work, const Ionosphere& ionosphere, const Frequencies& frequencies,
                const Circuit& circuit, DayParts eParts, std::span<DayHour, 24> aHours,
                std::span<Prediction> aCells);

/// One hour of it, 0 to 23 UTC (24 counts as 0), without the page's parts.
void PredictHour(DayWork& work, const Ionosphere& ionosphere, const Frequencies& frequencies,
                 const Circuit& circuit, int nHour, DayHour& hour, std::span<Prediction> aCells);

}  // namespace rec533
