#include "geo/GridSquareLib.h"

#include "system/TextLib.h"

namespace {

constexpr std::size_t kSquareLength = 4;
constexpr std::size_t kSubSquareLength = 6;
constexpr const char* kSquareMiddle = "MM";
constexpr double kMinutesOfX = 59.0;  // A is minute 0, X (the 24th letter) is minute 59
constexpr double kLettersToX = 23.0;

// Degrees of latitude; twice as many of longitude.
double DegreesGet(char chrField, char chrSquare, char chrSubSquare)
{
    const auto CodeGet = [](char chr) { return static_cast<int>(static_cast<unsigned char>(chr)); };
    const double dMinutes = (CodeGet(chrSubSquare) - 'A') * kMinutesOfX / kLettersToX;
    return (CodeGet(chrField) - 'J') * 10.0 + (CodeGet(chrSquare) - '0') + dMinutes / 60.0;
}

}  // namespace

bool GridSquareToPosition(std::string& sGrid, double& dLatitude, double& dLongitude,
                          Messages* paMessages)
{
    sGrid = TextUpper(sGrid);
    // One byte per character, as in the station file.
    std::string sCodes = Windows1252FromUtf8(sGrid);
    if (sCodes.size() == kSquareLength) {
        sGrid += kSquareMiddle;
        sCodes += kSquareMiddle;
    }
    if (sCodes.size() < kSubSquareLength)
        return MessageFail(paMessages, MsgIcon::None,
                           "Unable to Convert Grid " + TextForMessage(sGrid) + " to Lat/Lon");
    dLatitude = DegreesGet(sCodes[1], sCodes[3], sCodes[5]);
    dLongitude = 2.0 * DegreesGet(sCodes[0], sCodes[2], sCodes[4]);
    return true;
}
