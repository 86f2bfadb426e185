// Any bytes as the user's own list of places: what is read is written and read again.
#include <algorithm>

#include "fuzz/FuzzCheck.h"
#include "geo/MathLib.h"
#include "places/OwnPlaces.h"

namespace {

void RowCheck(const OwnPlace& row)
{
    if (!row.sFault.empty()) {
        Check(row.texts == OwnPlaceTexts() && row.nLine > 0);
        return;
    }
    Check(!row.place.sKey.empty() && PositionInRange(row.place.dLat, row.place.dLon));
    Check(row.place.afFrequency.size() <= kOwnFrequenciesMost);
    const auto resAgain = OwnPlaceMake(row.texts);
    Check(resAgain && resAgain.ValueGet().place == row.place);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    const std::string_view sText = FuzzText(pBytes, nBytes);
    if (const auto resPaste = OwnPlacesFromPaste(sText))
        for (const OwnPlace& row : resPaste.ValueGet().aRows) RowCheck(row);
    const auto res = OwnPlacesParse(sText);
    if (!res)
        return 0;
    const OwnPlaceList& list = res.ValueGet();
    for (const OwnPlace& row : list.aRows) RowCheck(row);
    const auto resText = OwnPlacesText(list);
    if (!resText)
        return 0;  // it would not be read back the same
    const auto resAgain = OwnPlacesParse(resText.ValueGet());
    Check(static_cast<bool>(resAgain));
    Check(OwnPlacesGet(resAgain.ValueGet()) == OwnPlacesGet(list));
    const auto resTwice = OwnPlacesText(resAgain.ValueGet());
    Check(resTwice && resTwice.ValueGet() == resText.ValueGet());
    return 0;
}
