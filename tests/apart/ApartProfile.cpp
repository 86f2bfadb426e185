#include "apart/ApartProfile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "apart/ApartIni.h"
#include "apart/ApartText.h"

namespace {

constexpr std::size_t kValueMost = 255;

/// One number of the profile, and its default for when the file gives none or one out of range.
struct SingleKey {
    const char* sSection;
    const char* sKey;
    float fDefault;
    double dLeast, dMost;
};

constexpr double kAny = 1e300;
constexpr SingleKey kSingles[] = {
    {"Map Data", "Overlay Min Snr", 20.0F, -kAny, kAny},
    {"Propagation Model", "Layer Adjust E", 1.0F, 0, 9.99},
    {"Propagation Model", "Layer Adjust Es", 0.7F, 0, 9.99},
    {"Propagation Model", "Layer Adjust F1", 1.0F, 0, 9.99},
    {"Propagation Model", "Layer Adjust F2", 1.0F, 0, 9.99},
    {"Propagation Model", "Multipath Delay", 10.0F, 0, 99},
    {"Propagation Model", "Multipath Power", 0.0F, 0, 99},
    {"Propagation Model", "Noise Level", -145.0F, -200, -100},
    {"Propagation Model", "Q Index", 3.0F, 0, 9},
    {"Propagation Model", "Model Reliability", 50.0F, 1, 99},
    {"Propagation Model", "SunSpot Number", 170.0F, 0, 311},
    {"Propagation Model", "Takeoff Angle", 3.0F, 0, 40},
    {"Station Data", "Power", 0.0F, 0, 1000000},
};

struct WholeKey {
    const char* sSection;
    const char* sKey;
    int nDefault;
};

constexpr WholeKey kWholes[] = {
    {"Map Data", "Overlay Grid Size", 40},
    {"Propagation Model", "Antenna Type", 1},
    {"Propagation Model", "Model", 3},
    {"Propagation Model", "Month Number", 11},
    {"Time Data", "Code", 0},
};

struct SwitchKey {
    const char* sKey;
    bool bDefault;
};

constexpr SwitchKey kSwitches[] = {{"Month Option", true},
                                   {"SunSpot Option", true},
                                   {"Maps Option", true},
                                   {"Forecast Option", false}};

class Profile {
public:
    explicit Profile(const std::string& sBytes) : m_ini(sBytes) {}

    [[nodiscard]] std::string Text(const char* sSection, const std::string& sKey) const
    {
        return m_ini.Get(sSection, sKey, kValueMost);
    }
    [[nodiscard]] std::string Text(const char* sSection, const char* sKey,
                                   const char* sDefault) const
    {
        const std::string sText = Text(sSection, sKey);
        return sText.empty() ? sDefault : sText;
    }
    [[nodiscard]] std::optional<float> Single(const char* sSection, const std::string& sKey) const
    {
        return ApartLenientSingle(Text(sSection, sKey));
    }
    [[nodiscard]] std::optional<double> Double(const char* sSection, const std::string& sKey) const
    {
        return ApartLenient(Text(sSection, sKey));
    }
    /// Rounds to the nearest whole number, halves to even; nothing beyond 32 bits.
    [[nodiscard]] std::optional<double> Whole(const char* sSection, const std::string& sKey) const
    {
        constexpr double kLeast = -2147483648.0, kMost = 2147483647.0;
        const auto dValue = Double(sSection, sKey);
        if (!dValue)
            return std::nullopt;
        const double dDown = std::floor(*dValue);
        const double dRest = *dValue - dDown;
        const bool bUp = dRest > 0.5 || (dRest == 0.5 && std::fmod(dDown, 2.0) != 0.0);
        const double dWhole = bUp ? dDown + 1 : dDown;
        return dWhole < kLeast || dWhole > kMost ? std::nullopt : std::optional(dWhole);
    }
    [[nodiscard]] bool Switch(const SwitchKey& key) const
    {
        const std::string sText = ApartTrim(Text("Propagation Model", key.sKey));
        const auto dNumber = ApartLenient(sText);
        if (dNumber)
            return *dNumber != 0.0;
        const std::string sLower = ApartLower(sText);
        return sLower == "true" || (sLower != "false" && key.bDefault);
    }

private:
    ApartIni m_ini;
};

void PositionAdd(const Profile& profile, const char* sSection, double dLatDefault,
                 double dLonDefault, Outcome& to)
{
    const double dLat = profile.Double(sSection, "Latitude").value_or(dLatDefault);
    const double dLon = profile.Double(sSection, "Longitude").value_or(dLonDefault);
    const bool bOnGlobe = std::abs(dLat) <= 90 && std::abs(dLon) <= 180;
    to.Add(sSection, bOnGlobe ? dLat : dLatDefault, 1);
    to.Add(sSection, bOnGlobe ? dLon : dLonDefault, 2);
}

void FrequenciesAdd(const Profile& profile, Outcome& to)
{
    constexpr int kMost = 15;
    // A count outside the limits becomes the nearest limit, however large it is.
    const double dCount = profile.Double("Propagation Data", "Count").value_or(kMost);
    const int nCount =
        static_cast<int>(std::nearbyint(std::min(std::max(dCount, 0.0), double{kMost})));
    to.Add("Count", nCount);
    for (int i = 1; i <= nCount; ++i)
        to.Add("Frequency",
               profile.Single("Propagation Data", "Frequency " + std::to_string(i))
                   .value_or(2000.0F * static_cast<float>(i)),
               i);
}

constexpr std::array kWindowKeys{"Height", "Left", "Top", "Width"};

/// Each key counts on its own; a missing one is -1.
void MainWindowAdd(const Profile& profile, Outcome& to)
{
    for (const char* sKey : kWindowKeys)
        to.Add(sKey, profile.Single("Window Data", sKey).value_or(-1.0F));
}

/// All four or none.
void PlanWindowAdd(const Profile& profile, const std::string& sName, Outcome& to)
{
    std::vector<float> afValue;
    for (const char* sKey : kWindowKeys)
        if (const auto fValue = profile.Single((sName + " Window Data").c_str(), sKey))
            afValue.push_back(*fValue);
    for (const float fValue : afValue)
        if (afValue.size() == kWindowKeys.size())
            to.Add("window", fValue);
}

/// True if all characters are printable Windows-1252 and none is a quotation mark.
bool TextKept(const std::string& sText)
{
    std::string sCharacters;  // those above ASCII
    for (int n = 0x80; n < 0x100; ++n) sCharacters += static_cast<char>(n);
    const std::string sKnown = ApartUtf8(sCharacters);
    for (std::size_t n = 0; n < sText.size();) {
        const auto nFirst = static_cast<unsigned char>(sText[n]);
        const std::size_t nSize = nFirst < 0x80 ? 1 : nFirst < 0xE0 ? 2 : nFirst < 0xF0 ? 3 : 4;
        const std::string sCharacter = sText.substr(n, nSize);
        const bool bKnown =
            nSize == 1 ? nFirst >= ' ' && nFirst != 0x7F && nFirst != '"'
                       : sCharacter != "\uFFFD" && sKnown.find(sCharacter) != std::string::npos;
        if (!bKnown)
            return false;
        n += nSize;
    }
    return true;
}

std::size_t Length(const std::string& sText)
{
    return static_cast<std::size_t>(std::count_if(sText.begin(), sText.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
    }));
}

/// @return the names in lower case; none if the file has no list
std::vector<std::string> NeedsAdd(const Profile& profile, Outcome& to)
{
    constexpr int kMost = 50;
    constexpr std::size_t kNameMost = 40, kSourceMost = 120;
    constexpr float kLeastDb = -50.0F, kMostDb = 150.0F;
    const auto fCount = profile.Single("Need Data", "Count");
    if (!fCount) {
        to.Add("needs", std::string("as they were"));
        return {};
    }
    const int nCount = static_cast<int>(
        std::nearbyint(std::min(std::max(*fCount, 0.0F), static_cast<float>(kMost))));
    std::vector<std::string> asTaken;
    for (int i = 1; i <= nCount; ++i) {
        const std::string sIndex = " " + std::to_string(i);
        const std::string sName = ApartTrim(profile.Text("Need Data", "Name" + sIndex));
        const std::string sSource = ApartTrim(profile.Text("Need Data", "Source" + sIndex));
        const auto fDb = profile.Single("Need Data", "Snr" + sIndex);
        const bool bThere =
            std::find(asTaken.begin(), asTaken.end(), ApartLower(sName)) != asTaken.end();
        if (sName.empty() || bThere || !fDb || *fDb < kLeastDb || *fDb > kMostDb
            || Length(sName) > kNameMost || Length(sSource) > kSourceMost || !TextKept(sName)
            || !TextKept(sSource) || ApartNumber(sName))
            continue;
        asTaken.push_back(ApartLower(sName));
        to.Add("need", sName);
        to.Add("its source", sSource);
        to.Add("its ratio", *fDb);
    }
    return asTaken;
}

}  // namespace

Outcome ApartProfile(const std::string& sBytes)
{
    const Profile profile(sBytes);
    Outcome outcome;
    constexpr const char* kFolder = "C:\\Program Files\\AirMail";
    outcome.Add("Directory Data", profile.Text("AirMail Data", "Directory Data", kFolder));
    outcome.Add("Directory Program", profile.Text("AirMail Data", "Directory Program", kFolder));
    for (const SingleKey& key : kSingles) {
        const auto fValue = profile.Single(key.sSection, key.sKey);
        const bool bTaken = fValue && *fValue >= key.dLeast && *fValue <= key.dMost;
        outcome.Add(key.sKey, bTaken ? *fValue : key.fDefault);
    }
    for (const WholeKey& key : kWholes)
        outcome.Add(key.sKey, profile.Whole(key.sSection, key.sKey).value_or(key.nDefault));
    for (const SwitchKey& key : kSwitches) outcome.Add(key.sKey, profile.Switch(key));
    outcome.Add("Ion Coeficients", profile.Text("Propagation Model", "Ion Coeficients", "URSI"));
    outcome.Add("World Begins", profile.Whole("Map Data", "World Begins").value_or(0) == -180);
    const std::string sPalette = ApartLower(ApartTrim(profile.Text("Colour Data", "Palette")));
    const bool bPalette = sPalette == "safe" || sPalette == "night" || sPalette == "print";
    outcome.Add("Palette", bPalette ? sPalette : "standard");
    FrequenciesAdd(profile, outcome);
    PositionAdd(profile, "Receiver Data", 24, -110, outcome);
    PositionAdd(profile, "Transmitter Data", 38, -122, outcome);
    MainWindowAdd(profile, outcome);
    for (const char* sName : {"Reach", "Curves", "Days", "Compare", "Card", "Places"})
        PlanWindowAdd(profile, sName, outcome);
    const auto asNeed = NeedsAdd(profile, outcome);
    const std::string sSelected = profile.Text("Need Data", "Selected");
    const bool bThere =
        std::find(asNeed.begin(), asNeed.end(), ApartLower(ApartTrim(sSelected))) != asNeed.end();
    outcome.Add("Selected", bThere ? sSelected : std::string());
    return outcome;
}
