#include "studies/reach/Reach.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>
#include <utility>

#include "geo/BearingLib.h"
#include "geo/Earth.h"
#include "geo/MathLib.h"
#include "propagation/SnrScale.h"

namespace {

int HourAfter(int iFrom, int nHours) { return (iFrom + nHours) % kReachHours; }

const ReachHour& HourGet(const std::array<ReachHour, kReachHours>& aHours, int iHour)
{
    return aHours.at(static_cast<std::size_t>(iHour));
}

std::array<ReachHour, kReachHours> HoursGet(const PropagationTable& table)
{
    std::array<ReachHour, kReachHours> aHours;
    for (int iHour = 0; iHour < kReachHours; ++iHour) {
        ReachHour& hour = aHours.at(static_cast<std::size_t>(iHour));
        for (int i = 1; i <= table.nData; ++i) {
            const float fSnr = table.fSnr(iHour + 1, i);
            if (table.PresentIs(i) && SnrIs(fSnr) && !(fSnr <= hour.fSnr))
                hour = {fSnr, table.request.FrequencyGet(i)};
        }
    }
    return aHours;
}

void RowJudge(const ReachInput& input, ReachRow& row)
{
    row.opening = ReachOpeningGet(row.aHours, input.fNeed, input.iFrom, input.nHours);
    row.fMargin = HourGet(row.aHours, input.iFrom).fSnr - input.fNeed;
}

/// The row of a place before there is a prediction.
ReachRow RowWaiting(const ReachInput& input, const Place& place)
{
    ReachRow row;
    row.dRange = GreatCircleAngle(input.base.dRcLat, input.base.dRcLon, place.dLat, place.dLon)
                 * kEarthKm / kKmPerMile;
    row.dBearing = BearingGet(input.base.dRcLat, input.base.dRcLon, place.dLat, place.dLon);
    return row;
}

std::string FailureTextGet(const Prediction& prediction)
{
    if (!prediction.aFailures.empty())
        return prediction.aFailures.back().sText;
    return "No frequency is within the engine's range.";
}

bool AnyPresent(const PropagationTable& table)
{
    for (int i = 1; i <= table.nData; ++i)
        if (table.PresentIs(i))
            return true;
    return false;
}

/// The best SNR from iFrom on, kSnrLeast if there is none.
float BestGet(const ReachRow& row, int iFrom, int nHours)
{
    float fBest = kSnrLeast;
    for (int n = 0; n < nHours; ++n)
        fBest = std::fmax(fBest, HourGet(row.aHours, HourAfter(iFrom, n)).fSnr);
    return fBest;
}

/// The key by which rows are sorted, lowest first.
std::tuple<int, int, float> RankOf(const ReachInput& input, const ReachRow& row)
{
    enum { kOpen, kOpens, kClosed, kFailed, kWaiting };
    if (row.eState == ReachState::Waiting)
        return {kWaiting, 0, 0.0F};
    if (row.eState == ReachState::Failed)
        return {kFailed, 0, 0.0F};
    if (row.opening.nWait == 0)
        return {kOpen, 0, -row.fMargin};
    if (row.opening.nWait > 0)
        return {kOpens, row.opening.nWait,
                -HourGet(row.aHours, HourAfter(input.iFrom, row.opening.nWait)).fSnr};
    return {kClosed, 0, -BestGet(row, input.iFrom, input.nHours)};
}

}  // namespace

Request ReachRequestGet(const ReachInput& input, const Place& place)
{
    Request request = input.base;
    request.dTxLat = place.dLat;
    request.dTxLon = place.dLon;
    if (input.bOwnFrequencies && !place.afFrequency.empty()) {
        request.nData = static_cast<int>(place.afFrequency.size());
        request.afFrequency.assign(1, 0.0F);
        request.afFrequency.insert(request.afFrequency.end(), place.afFrequency.begin(),
                                   place.afFrequency.end());
    }
    return request;
}

ReachRow ReachRowGet(const ReachInput& input, const Place& place, const Prediction& prediction)
{
    ReachRow row = RowWaiting(input, place);
    // A list in several chunks may fail in one of them: the others can be used.
    if (!AnyPresent(prediction.table)) {
        row.eState = ReachState::Failed;
        row.sFailure = FailureTextGet(prediction);
        return row;
    }
    row.eState = ReachState::Answered;
    row.aHours = HoursGet(prediction.table);
    if (input.bCells)
        row.aCells = ReachCellsGet(prediction);
    row.dRange = prediction.table.fRange;
    row.dBearing = prediction.table.fAzimuthRcTx;
    RowJudge(input, row);
    return row;
}

std::vector<ReachCell> ReachCellsGet(const Prediction& prediction)
{
    const PropagationTable& table = prediction.table;
    std::vector<ReachCell> aCells;
    for (int iHour = 0; iHour < kReachHours; ++iHour)
        for (int i = 1; i <= table.nData; ++i)
            if (table.PresentIs(i))
                aCells.push_back({iHour, table.request.FrequencyGet(i), table.fSnr(iHour + 1, i)});
    return aCells;
}

ReachOpening ReachOpeningGet(const std::array<ReachHour, kReachHours>& aHours, float fNeed,
                             int iFrom, int nHours)
{
    const auto OpenIs = [&](int n) { return HourGet(aHours, HourAfter(iFrom, n)).OpenIs(fNeed); };
    ReachOpening opening;
    for (int n = 0; n < nHours && opening.nWait < 0; ++n)
        if (OpenIs(n))
            opening.nWait = n;
    if (opening.nWait < 0)
        return opening;
    while (opening.nLength < kReachHours && OpenIs(opening.nWait + opening.nLength))
        ++opening.nLength;
    return opening;
}

std::string ReachOpeningText(const ReachOpening& opening, int iFrom,
                             const std::function<std::string(int)>& fnHour)
{
    if (opening.nWait < 0)
        return "-";
    if (opening.nLength == kReachHours)
        return "all day";
    if (opening.nWait > 0)
        return "from " + fnHour(HourAfter(iFrom, opening.nWait));
    return "now-" + fnHour(HourAfter(iFrom, opening.nLength - 1));
}

Reach::Reach(ReachInput input, std::vector<Place> aPlaces)
    : m_input(std::move(input)), m_aPlaces(std::move(aPlaces))
{
    m_aRows.reserve(m_aPlaces.size());
    for (const Place& place : m_aPlaces) {
        m_aRows.push_back(RowWaiting(m_input, place));
        m_aRows.back().iPlace = m_aRows.size() - 1;
    }
}

std::vector<Request> Reach::RequestsGet() const
{
    std::vector<Request> aRequests;
    aRequests.reserve(m_aPlaces.size());
    for (const Place& place : m_aPlaces) aRequests.push_back(ReachRequestGet(m_input, place));
    return aRequests;
}

void Reach::Add(std::size_t iPlace, const Prediction& prediction)
{
    ReachRow& row = m_aRows.at(iPlace);
    if (row.eState == ReachState::Waiting)
        ++m_nDone;
    row = ReachRowGet(m_input, m_aPlaces[iPlace], prediction);
    row.iPlace = iPlace;
}

void Reach::Judge(float fNeed, int iFrom, int nHours)
{
    m_input.fNeed = fNeed;
    m_input.iFrom = iFrom;
    m_input.nHours = nHours;
    for (ReachRow& row : m_aRows)
        if (row.eState == ReachState::Answered)
            RowJudge(m_input, row);
}

std::vector<std::size_t> Reach::RankingGet() const
{
    std::vector<std::tuple<int, int, float>> aRank;
    aRank.reserve(m_aRows.size());
    for (const ReachRow& row : m_aRows) aRank.push_back(RankOf(m_input, row));
    std::vector<std::size_t> aiRow(m_aRows.size());
    std::iota(aiRow.begin(), aiRow.end(), std::size_t{0});
    std::ranges::stable_sort(aiRow,
                             [&](std::size_t a, std::size_t b) { return aRank[a] < aRank[b]; });
    return aiRow;
}

RunnerJob ReachStart(Runner& runner, std::shared_ptr<const Engine> pEngine, Reach& reach,
                     std::function<void(std::size_t iPlace)> fnRow, Runner::EndFn fnEnd)
{
    return runner.Start(
        std::move(pEngine), reach.RequestsGet(),
        [&reach, fnRow = std::move(fnRow)](std::size_t i, const Runner::PredictionPtr& p) {
            reach.Add(i, *p);
            fnRow(i);
        },
        std::move(fnEnd));
}
