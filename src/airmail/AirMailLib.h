/// @file AirMailLib.h
/// Everything of Airmail at once: its folders, its initialisation file, position, stations and grid
/// squares.
#pragma once

#include "airmail/AirMailFolders.h"   // IWYU pragma: export
#include "airmail/AirMailIni.h"       // IWYU pragma: export
#include "airmail/AirMailPosition.h"  // IWYU pragma: export
#include "airmail/AirMailStations.h"  // IWYU pragma: export
#include "geo/GridSquareLib.h"        // IWYU pragma: export
