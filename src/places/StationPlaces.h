/// @file StationPlaces.h
/// The stations of Airmail's lists as data.
///
/// Domain:  positions by the station lists' scale of grid squares (geo/GridSquareLib.h), and only
///          valid Maidenhead squares; at most 20000 stations in all.
/// Errors:  a list that cannot be read gives a message, an entry that cannot be used a fault; the
///          others are used all the same.
/// Tests:   tests/places/StationPlacesTest.cpp, tests/fuzz/fuzz_stations.cpp
#pragma once

#include <set>
#include <vector>

#include "places/Place.h"
#include "system/Message.h"

inline constexpr std::size_t kStationsMost = 20000;

struct StationPlaces {
    std::vector<Place> aPlaces;       ///< list by list, each in its file's order
    std::vector<PlaceFault> aFaults;  ///< entries that cannot be used
    Messages aMessages;               ///< lists that cannot be read, or that there is none
};

/// Every station in the lists of these kinds; other lists are not read. Two stations with the same
/// name are two places.
[[nodiscard]] StationPlaces StationPlacesGet(const std::set<PlaceKind>& aWanted = {
                                                 PlaceKind::Ham, PlaceKind::SailMail,
                                                 PlaceKind::Other});
