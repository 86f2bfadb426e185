// Any text as a need on the command line (a name from the list, or a number), and as a new need's
// name.
#include <cmath>

#include "fuzz/FuzzCheck.h"
#include "settings/Need.h"
#include "settings/SettingsRange.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    const std::string_view sText = FuzzText(pBytes, nBytes);
    NeedList needs = NeedsShipped();
    const auto res = NeedFromText(needs, sText);
    Check(res ? kRangeNeed.Holds(res.ValueGet().fSnr) : !res.TextGet().empty());
    Check(!NeedInForce(needs, sText).sName.empty());
    if (!NeedAdd(needs, {std::string(sText), 1.0F, ""})) {
        Check(needs == NeedsShipped());
        return 0;
    }
    // A need that was added is found by its name alone.
    const auto resAdded = NeedFromText(needs, sText);
    Check(resAdded && resAdded.ValueGet() == needs.back());
    Check(!NeedAdd(needs, needs.back()));
    Check(NeedRemove(needs, sText) && needs == NeedsShipped());
    return 0;
}
