// Any text as a grid square.
#include <cmath>

#include "fuzz/FuzzCheck.h"
#include "geo/GridSquareLib.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr double kUntouched = -777.0;
    constexpr double kFarthest = 6000.0;  // degrees: any byte counts as a letter
    Messages aMessages;
    std::string sGrid(FuzzText(pBytes, nBytes));
    double dLat = kUntouched;
    double dLon = kUntouched;
    if (!GridSquareToPosition(sGrid, dLat, dLon, &aMessages)) {
        Check(dLat == kUntouched && dLon == kUntouched);
        return 0;
    }
    Check(std::abs(dLat) < kFarthest && std::abs(dLon) < kFarthest);
    // The normalised form is the same square.
    std::string sAgain = sGrid;
    double dLatAgain = kUntouched;
    double dLonAgain = kUntouched;
    Check(GridSquareToPosition(sAgain, dLatAgain, dLonAgain, nullptr));
    Check(sAgain == sGrid && dLatAgain == dLat && dLonAgain == dLon);
    return 0;
}
