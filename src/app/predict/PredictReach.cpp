#include "app/predict/PredictReach.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

#include "app/engines/EngineList.h"
#include "app/predict/PredictPrint.h"
#include "places/OwnPlaces.h"
#include "places/StationPlaces.h"
#include "studies/reach/Reach.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"

namespace {

struct PlacesFound {
    std::vector<Place> aPlaces;
    std::vector<PlaceFault> aFaults;
};

void OwnPlacesAppend(const std::string& sProfileFile, PlacesFound& found)
{
    const auto resList = OwnPlacesLoad(sProfileFile);
    if (!resList) {
        MsgBox(MsgIcon::Exclamation, resList.TextGet());
        return;
    }
    for (Place& place : OwnPlacesGet(resList.ValueGet())) found.aPlaces.push_back(std::move(place));
    for (PlaceFault& fault : OwnPlaceFaultsGet(resList.ValueGet()))
        found.aFaults.push_back(std::move(fault));
}

/// The places of the lists. Boxes say which list cannot be read.
PlacesFound PlacesFind(const std::set<PlaceKind>& aLists, const std::string& sProfileFile)
{
    PlacesFound found;
    if (aLists.size() > aLists.count(PlaceKind::Own)) {
        StationPlaces stations = StationPlacesGet(aLists);
        MsgShow(stations.aMessages);
        found.aPlaces = std::move(stations.aPlaces);
        found.aFaults = std::move(stations.aFaults);
    }
    if (aLists.contains(PlaceKind::Own))
        OwnPlacesAppend(sProfileFile, found);
    return found;
}

void FaultsShow(const std::vector<PlaceFault>& aFaults)
{
    if (!aFaults.empty())
        MsgBox(MsgIcon::Info, PlaceFaultsText(aFaults));
}

/// The workers' calls, made one after the other on this thread.
class CallQueue {
public:
    void Post(std::function<void()> fnCall)
    {
        const std::lock_guard lock(m_mutex);
        m_aCalls.push_back(std::move(fnCall));
        m_wake.notify_one();
    }
    /// @param bEnd  set by one of the calls
    void RunUntil(const bool& bEnd)
    {
        while (!bEnd) {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return !m_aCalls.empty(); });
            const std::function<void()> fnCall = std::move(m_aCalls.front());
            m_aCalls.pop_front();
            lock.unlock();
            fnCall();
        }
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<std::function<void()>> m_aCalls;
};

void PlacesPredict(const std::shared_ptr<const Engine>& pEngine, Reach& reach)
{
    CallQueue queue;
    bool bEnd = false;
    Runner runner([&](std::function<void()> fnCall) { queue.Post(std::move(fnCall)); });
    const RunnerJob job = ReachStart(
        runner, pEngine, reach, [](std::size_t) {}, [&] { bEnd = true; });
    queue.RunUntil(bEnd);
}

/// The columns that are the same in all rows of a place.
std::string RowHead(const Place& place, const ReachRow& row)
{
    return PredictCsvText(place.sSystem) + "," + PredictCsvText(place.sKey) + ","
           + NumberToText(place.dLat) + "," + NumberToText(place.dLon) + ","
           + NumberToText(static_cast<float>(row.dRange)) + ","
           + NumberToText(static_cast<float>(row.dBearing)) + ",";
}

std::string CellText(float fFrequency, float fSnr, const Need& need)
{
    return NumberToText(fFrequency) + "," + NumberToText(fSnr) + ","
           + PredictMarginText(fSnr, need);
}

/// A place's rows for one hour: one for its best frequency, or one for each of its cells.
std::string HourRows(const std::string& sHead, int iHour, const ReachRow& row, bool bCells,
                     const Need& need)
{
    const std::string sStart = sHead + NumberToText(iHour) + ",";
    const ReachHour& hour = row.aHours.at(static_cast<std::size_t>(iHour));
    if (!bCells)
        return sStart + (hour.fFrequency > 0.0F ? CellText(hour.fFrequency, hour.fSnr, need) : ",,")
               + "\n";
    std::string sRows;
    for (const ReachCell& cell : row.aCells)
        if (cell.iHour == iHour)
            sRows += sStart + CellText(cell.fFrequency, cell.fSnr, need) + "\n";
    return sRows;
}

std::string CsvGet(const Reach& reach, const Need& need)
{
    std::string sText = "system,key,lat,lon,range_nmi,bearing_deg,utc,khz,snr_db,margin_db\n";
    for (const std::size_t iRow : reach.RankingGet()) {
        const ReachRow& row = reach.RowsGet()[iRow];
        if (row.eState != ReachState::Answered)
            continue;
        const std::string sHead = RowHead(reach.PlacesGet()[iRow], row);
        for (int n = 0; n < reach.InputGet().nHours; ++n) {
            const int iHour = (reach.InputGet().iFrom + n) % kReachHours;
            sText += HourRows(sHead, iHour, row, reach.InputGet().bCells, need);
        }
    }
    return sText;
}

ReachInput InputGet(const PredictOptions& options, const Settings& settings,
                    SunSpotSource eSunSpotSource, const Need& need)
{
    ReachInput input;
    input.base = RequestFromSettings(settings);
    input.base.eSunSpotSource = eSunSpotSource;
    input.bOwnFrequencies = !options.reach.bFrequencies;
    input.fNeed = need.fSnr;
    input.iFrom = options.reach.iFrom >= 0 ? options.reach.iFrom : UtcNow().nHour;
    input.nHours = options.reach.nHours;
    input.bCells = options.reach.bAll;
    return input;
}

std::optional<std::string> NoneLeft()
{
    MsgBox(MsgIcon::Exclamation, "The lists have no place that can be used.");
    return std::nullopt;
}

}  // namespace

std::optional<std::string> PredictStationsGet(const PredictOptions& options)
{
    const PlacesFound found =
        PlacesFind({PlaceKind::Ham, PlaceKind::SailMail, PlaceKind::Other, PlaceKind::Own},
                   options.settings.m_sProfileFile);
    FaultsShow(found.aFaults);
    if (found.aPlaces.empty())
        return NoneLeft();
    std::string sText = "system,key,description,lat,lon,khz\n";
    for (const Place& place : found.aPlaces) {
        sText += PredictCsvText(place.sSystem) + "," + PredictCsvText(place.sKey) + ","
                 + PredictCsvText(place.sDescription) + "," + NumberToText(place.dLat) + ","
                 + NumberToText(place.dLon) + ",";
        const char* sBetween = "";
        for (const float fFrequency : place.afFrequency)
            sText += std::exchange(sBetween, " ") + NumberToText(fFrequency);
        sText += "\n";
    }
    return sText;
}

std::optional<std::string> PredictReachGet(const PredictOptions& options, const Settings& settings,
                                           SunSpotSource eSunSpotSource)
{
    const auto pEngine = EngineMake(settings.m_iPropagationModel);
    if (const auto failure = pEngine->ObstacleGet()) {
        MsgBox(failure->eIcon, failure->sText);
        return std::nullopt;
    }
    PlacesFound found = PlacesFind(options.reach.aLists, settings.m_sProfileFile);
    const Need need =
        options.need ? *options.need : NeedInForce(settings.m_aNeed, settings.m_sNeedSelected);
    if (!options.need && !found.aPlaces.empty())
        MsgBox(MsgIcon::Info, "No need is given; using " + PredictNeedText(need));
    Reach reach(InputGet(options, settings, eSunSpotSource, need), std::move(found.aPlaces));
    if (!reach.PlacesGet().empty())
        PlacesPredict(pEngine, reach);
    bool bAny = false;
    for (const ReachRow& row : reach.RowsGet()) {
        const Place& place = reach.PlacesGet()[row.iPlace];
        bAny = bAny || row.eState == ReachState::Answered;
        if (row.eState == ReachState::Failed)
            found.aFaults.push_back({place.sSystem + " " + place.sKey, row.sFailure, place.eKind});
    }
    FaultsShow(found.aFaults);
    return bAny ? std::optional(CsvGet(reach, need)) : NoneLeft();
}
