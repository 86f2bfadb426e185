/// @file Reach.h
/// Which of many places can be heard here, when, and on which frequency: makes a row from one
/// prediction for each place, and sorts the rows by use. Here is the receiver and the places are
/// transmitters, as when a station is chosen for the main table, so a row agrees with the single
/// prediction of its circuit to the digit.
///
/// Units:   degrees, nautical miles, kHz, dB in 1 Hz; hours of UTC, 0 to 23.
/// Errors:  a place without a prediction has a row that says why; the others go on.
/// Threads: it starts none; ReachStart's answers come on the thread that the runner posts to.
/// Tests:   tests/studies/ReachTest.cpp, ReachEnginesTest.cpp
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "places/Place.h"
#include "propagation/Runner.h"

inline constexpr int kReachHours = 24;

/// The inputs that are the same for all places.
struct ReachInput {
    Request base;  ///< engine, month, power and model; its receiver is here, its frequencies are
                   ///< the user's; the transmitter is not used
    bool bOwnFrequencies = false;  ///< use a place's own frequencies if it has any
    float fNeed = 40.0F;           ///< required SNR
    int iFrom = 0;                 ///< the hour that counts as now
    int nHours = kReachHours;      ///< hours that count for the order, from iFrom on; 1 to 24
    bool bCells = false;           ///< keep every hour and frequency in the rows
};

/// An hour's best frequency.
struct ReachHour {
    float fSnr = std::numeric_limits<float>::quiet_NaN();  ///< not-a-number: no value
    float fFrequency = 0.0F;                               ///< 0: none

    [[nodiscard]] bool OpenIs(float fNeed) const { return fSnr >= fNeed; }
};

/// When a place is next open, also across midnight.
struct ReachOpening {
    int nWait = -1;   ///< hours from now to its beginning; 0: open now; -1: not within the hours
    int nLength = 0;  ///< its hours, up to 24; it may go on after the hours that count
};

/// A place's SNR at one hour and frequency, for complete lists.
struct ReachCell {
    int iHour = 0;
    float fFrequency = 0.0F;
    float fSnr = 0.0F;
};

enum class ReachState { Waiting, Failed, Answered };

struct ReachRow {
    std::size_t iPlace = 0;  ///< index into the places
    ReachState eState = ReachState::Waiting;
    std::string sFailure;  ///< why its prediction failed
    std::array<ReachHour, kReachHours> aHours;
    std::vector<ReachCell> aCells;  ///< only with ReachInput::bCells
    ReachOpening opening;
    float fMargin = std::numeric_limits<float>::quiet_NaN();  ///< now: best SNR less the need
    double dRange = 0.0;    ///< nautical miles; from the prediction once there is one
    double dBearing = 0.0;  ///< of the place from here, [0, 360); likewise
};

/// The request of a place: the base with the place as transmitter.
[[nodiscard]] Request ReachRequestGet(const ReachInput& input, const Place& place);

/// A place's row, made from its prediction; the caller sets only its index.
[[nodiscard]] ReachRow ReachRowGet(const ReachInput& input, const Place& place,
                                   const Prediction& prediction);

/// Every hour and frequency of a prediction, hour by hour; frequencies without values are left out.
[[nodiscard]] std::vector<ReachCell> ReachCellsGet(const Prediction& prediction);

/// The next opening in 24 hours.
[[nodiscard]] ReachOpening ReachOpeningGet(const std::array<ReachHour, kReachHours>& aHours,
                                           float fNeed, int iFrom, int nHours);

/// "now-02" (the last open hour), "from 18", "all day", or "-".
/// @param fnHour  gives the label of a UTC hour by the time setting
[[nodiscard]] std::string ReachOpeningText(const ReachOpening& opening, int iFrom,
                                           const std::function<std::string(int)>& fnHour);

/// The rows of all places while the predictions come in.
class Reach {
public:
    Reach(ReachInput input, std::vector<Place> aPlaces);

    [[nodiscard]] const ReachInput& InputGet() const { return m_input; }
    [[nodiscard]] const std::vector<Place>& PlacesGet() const { return m_aPlaces; }
    /// A row for each place, in the places' order.
    [[nodiscard]] const std::vector<ReachRow>& RowsGet() const { return m_aRows; }
    [[nodiscard]] std::size_t DoneGet() const { return m_nDone; }

    /// The requests of all places, in their order.
    [[nodiscard]] std::vector<Request> RequestsGet() const;
    /// Takes a place's prediction; a second one for the same place replaces the first.
    void Add(std::size_t iPlace, const Prediction& prediction);
    /// For another need or other hours: evaluates the rows again without predicting.
    void Judge(float fNeed, int iFrom, int nHours);

    /// The rows by use: those open now by margin, the others by their next opening, then those that
    /// stay closed by their best SNR within the hours, then failed ones, then waiting ones; equal
    /// ones in the places' order. @return indices into RowsGet
    [[nodiscard]] std::vector<std::size_t> RankingGet() const;

private:
    ReachInput m_input;
    std::vector<Place> m_aPlaces;
    std::vector<ReachRow> m_aRows;
    std::size_t m_nDone = 0;
};

/// Requests a prediction for every place. Each answer is added to the rows, then fnRow is called
/// with the place's index; fnEnd is called after the last one. The rows must outlive the job.
[[nodiscard]] RunnerJob ReachStart(Runner& runner, std::shared_ptr<const Engine> pEngine,
                                   Reach& reach, std::function<void(std::size_t iPlace)> fnRow,
                                   Runner::EndFn fnEnd = {});
