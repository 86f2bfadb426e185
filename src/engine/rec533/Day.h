/// @file Day.h
/// All hours and frequencies of a path at once.
///
/// Ionosphere and Frequencies are made once per request and shared by all threads; a DayWork is for
/// one thread, and contains nothing that a caller has to keep. An area's day is PredictDay for each
/// point; the caller distributes the points over the cores.
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

/// The frequencies of a request, with the noise for the circuit's category or level.
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

/// The values of a path's hour that do not depend on its frequencies.
struct DayHour {
    double dMuf = 0.0, dMuf10 = 0.0, dMuf90 = 0.0;  ///< basic MUF: median, 10 %, 90 % of the days
    double dOperational = 0.0, dOperational10 = 0.0;
    double dFot = 0.0;  ///< operational MUF that 90 % of the days exceed
    // With DayParts::Page:
    double dLuf = 0.0;
    bool bAtMuf = false;  ///< the MUF is within the method's range of frequencies
    Prediction atMuf;
};

/// The great circle of a path, and its circuit limited to the method's ranges.
struct DayPath {
    Way way;
    Circuit circuit;
};

/// The results that are needed.
enum class DayParts {
    Cells,  ///< predictions and MUFs
    Page,   ///< also the lowest usable frequency and the prediction at the MUF
};

/// Working memory for one call at a time.
class DayWork {
public:
    DayWork();
    ~DayWork();
    DayWork(DayWork&&) noexcept;
    DayWork& operator=(DayWork&&) noexcept;

    /// A copy of the path that was computed last.
    [[nodiscard]] DayPath PathGet() const;

private:
    friend void PredictDay(DayWork&, const Ionosphere&, const Frequencies&, const Circuit&,
                           DayParts, std::span<DayHour, 24>, std::span<Prediction>);
    friend void PredictHour(DayWork&, const Ionosphere&, const Frequencies&, const Circuit&, int,
                            DayHour&, std::span<Prediction>);
    struct Parts;
    std::unique_ptr<Parts> m_pParts;
};

/// Predicts a circuit's day. aHours: 0 to 23 UTC. aCells: [hour][frequency], 24 times the
/// frequencies. The noise is that of the Frequencies.
void PredictDay(DayWork& work, const Ionosphere& ionosphere, const Frequencies& frequencies,
                const Circuit& circuit, DayParts eParts, std::span<DayHour, 24> aHours,
                std::span<Prediction> aCells);

/// Predicts one hour, 0 to 23 UTC (24 counts as 0), without the parts for the page.
void PredictHour(DayWork& work, const Ionosphere& ionosphere, const Frequencies& frequencies,
                 const Circuit& circuit, int nHour, DayHour& hour, std::span<Prediction> aCells);

}  // namespace rec533
