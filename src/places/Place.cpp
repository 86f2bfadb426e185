#include "places/Place.h"

#include <algorithm>

#include "system/NumberLib.h"
#include "system/TextLib.h"

std::string_view PlaceKindName(PlaceKind eKind)
{
    switch (eKind) {
        case PlaceKind::Ham:
            return "Ham";
        case PlaceKind::SailMail:
            return "SailMail";
        case PlaceKind::Other:
            return "Other";
        case PlaceKind::Own:
            return "My places";
    }
    return "";
}

PlaceKind PlaceKindOf(std::string_view sSystem)
{
    if (TextEqualNoCase(sSystem, "HAM"))
        return PlaceKind::Ham;
    return TextEqualNoCase(sSystem, "SAILMAIL") ? PlaceKind::SailMail : PlaceKind::Other;
}

std::string PlaceFaultsText(const std::vector<PlaceFault>& aFaults)
{
    constexpr std::size_t kNamed = 5;
    if (aFaults.empty())
        return {};
    const auto nFaults = static_cast<int>(aFaults.size());
    std::string sText =
        NumberToText(nFaults) + (nFaults == 1 ? " place" : " places") + " cannot be used: ";
    for (std::size_t n = 0; n < std::min(aFaults.size(), kNamed); ++n)
        sText += (n == 0 ? "" : ", ") + TextForMessage(aFaults[n].sWhere) + " ("
                 + TextForMessage(aFaults[n].sWhy) + ")";
    if (aFaults.size() > kNamed)
        sText += " and " + NumberToText(nFaults - static_cast<int>(kNamed)) + " more";
    return sText;
}

std::vector<float> OwnFrequenciesGet(std::string_view sText, std::string* psLeftOut)
{
    constexpr std::string_view kSeparators = " \t,/;";
    std::vector<float> afFrequency;
    bool bLeftOut = false;
    for (std::size_t n = 0; n < sText.size();) {
        const std::size_t nEnd = std::min(sText.find_first_of(kSeparators, n), sText.size());
        const std::string_view sPart = sText.substr(n, nEnd - n);
        n = nEnd + 1;
        if (sPart.empty())
            continue;
        const auto res = NumberFromTextSingle(sPart);
        if (res && res.ValueGet() >= kOwnFrequencyLeast && res.ValueGet() <= kOwnFrequencyMost) {
            if (std::ranges::find(afFrequency, res.ValueGet()) == afFrequency.end())
                afFrequency.push_back(res.ValueGet());
        } else if (psLeftOut != nullptr && !bLeftOut) {
            *psLeftOut = sPart;
            bLeftOut = true;
        }
    }
    return afFrequency;
}
