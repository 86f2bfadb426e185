#include "settings/Need.h"

#include <algorithm>

std::vector<Need> NeedsShipped()
{
    // The decoding limits are told in a bandwidth of 2500 Hz, 34 dB wider than 1 Hz.
    return {
        {"WSPR", 3.0F, "decoding limit -31 dB in 2500 Hz, its authors' guide"},
        {"JS8 normal", 10.0F, "-24 dB in 2500 Hz, its authors"},
        {"FT8", 13.0F, "-21 dB in 2500 Hz, its authors' guide"},
        {"CW by ear", 27.0F, "estimate"},
        {"PSK31", 24.0F, "estimate, -10 dB in 2500 Hz"},
        {"RTTY", 34.0F, "estimate"},
        {"E-mail, robust", 30.0F, "estimate"},
        {"E-mail, normal", 40.0F, "estimate; below it the standard colours turn grey"},
        {"E-mail, fast", 55.0F, "estimate"},
        {"SSB, weak", 44.0F, "estimate"},
        {"SSB, clear", 55.0F, "estimate"},
        {"AM broadcast", 62.0F, "estimate"},
    };
}

const Need* NeedFind(const std::vector<Need>& aNeed, std::string_view sName)
{
    const auto it = std::find_if(aNeed.begin(), aNeed.end(),
                                 [&](const Need& need) { return need.sName == sName; });
    return it == aNeed.end() ? nullptr : &*it;
}
