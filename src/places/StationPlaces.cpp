#include "places/StationPlaces.h"

#include <string>
#include <utility>

#include "airmail/AirMailStations.h"
#include "geo/GridSquareLib.h"
#include "geo/MathLib.h"
#include "geo/PositionText.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

/// The position of a grid square, which is checked here: GridSquareToPosition takes any characters.
bool GridRead(const std::string& sGrid, double& dLat, double& dLon)
{
    constexpr std::size_t kUsed = 6;  // characters after these are ignored
    std::string sSquare = sGrid;
    return TextTrim(sGrid) == sGrid && GridSquareFromText(sGrid.substr(0, kUsed))
           && GridSquareToPosition(sSquare, dLat, dLon, nullptr) && PositionInRange(dLat, dLon);
}

void EntryAdd(const std::string& sSystem, StationEntry entry, StationPlaces& stations)
{
    Place place;
    const auto Fault = [&](std::string sWhy) {
        stations.aFaults.push_back(
            {sSystem + " " + entry.sKey, std::move(sWhy), PlaceKindOf(sSystem)});
    };
    if (stations.aPlaces.size() >= kStationsMost)
        return Fault("there are " + NumberToText(static_cast<int>(kStationsMost))
                     + " stations before it");
    if (entry.sKey.empty())
        return Fault("it has no name");
    if (!entry.sGrid)
        return Fault("it has no grid square");
    if (!GridRead(*entry.sGrid, place.dLat, place.dLon))
        return Fault("its grid square \"" + *entry.sGrid + "\" cannot be read");
    place.eKind = PlaceKindOf(sSystem);
    place.sSystem = sSystem;
    place.sKey = std::move(entry.sKey);
    place.sDescription = std::move(entry.sDescription);
    place.afFrequency = OwnFrequenciesGet(entry.sRest);
    stations.aPlaces.push_back(std::move(place));
}

}  // namespace

StationPlaces StationPlacesGet(const std::set<PlaceKind>& aWanted)
{
    StationPlaces stations;
    int nCount = 0;
    TextList asSystem;
    AirMailGetSystems(nCount, asSystem, &stations.aMessages);
    std::set<std::string> asSeen;  // System.HAM.ini and System.HAM.old.ini both give HAM
    for (int i = 1; i <= nCount; ++i) {
        std::vector<StationEntry> aEntry;
        if (!aWanted.contains(PlaceKindOf(asSystem[i])) || !asSeen.insert(asSystem[i]).second
            || !AirMailGetEntries(asSystem[i], aEntry, &stations.aMessages))
            continue;
        for (StationEntry& entry : aEntry) EntryAdd(asSystem[i], std::move(entry), stations);
    }
    return stations;
}
