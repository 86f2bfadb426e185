#include "engine/rec533/Modes.h"

namespace rec533 {
namespace {

constexpr double kScreenedMost = 4000.0;    // no screening beyond this, km
constexpr double kFieldOfKilowatt = 136.6;  // dB(uV/m) of 1 kW e.i.r.p. without the loss
constexpr double kLossFree = 32.45;
constexpr double kLossOther = 9.14;   // Lz, the empirical constant of the edition
constexpr double kLossHopSum = 19.0;  // the same in the hop sum
constexpr double kLossGround = 2.0;   // at each reflection on the ground

// The layers whose mean mirror height counts, and the lowest foE of the screening.
struct Screen {
    std::array<MirrorLayer, 3> aLayers;
    std::size_t nLayers = 0;  // 0: no screening at all
    double dFoe = 0.0;
};

Screen ScreenMake(const WayHour& wayHour)
{
    Screen screen;
    const Ionosphere& iono = *wayHour.pWay->pIonosphere;
    const double dKm = wayHour.pWay->way.dKm;
    if (dKm > kScreenedMost || wayHour.nOrderF2 == 0)
        return screen;
    screen.dFoe = wayHour.dFoeScreen;
    const auto fnAdd = [&](const F2Layer& layer) {
        screen.aLayers[screen.nLayers++] = MirrorLayerMake(
            layer.dFof2, layer.dFoe, layer.dM3, iono.dSsnLimited, iono.quirks.bNoMirrorTerm);
    };
    if (dKm > wayHour.dRangeMost)
        fnAdd(wayHour.hopT);
    fnAdd(wayHour.mid);
    if (dKm > wayHour.dRangeMost)
        fnAdd(wayHour.hopR);
    return screen;
}

// The values of a mode that are the same at every frequency.
struct ModeNumbers {
    const Mode* pMode;
    double dHop;                // km
    double dSinHalf, dCosHalf;  // of half the hop's angle
    bool bFar;                  // the path is longer than 3000 km
    double dAbsorption;         // factor of the absorption loss
    double dLoss;               // the part of Lb that does not depend on the frequency
    double dField;              // field without loss, without the frequency's part
    double dHopField;           // the part of the hop field that does not depend on it
    const Crossing* pCrossings;
    int nCrossings;
};

ModeNumbers ModeNumbersGet(const WayHour& wayHour, const Mode& mode)
{
    const WayPath& path = *wayHour.pWay;
    ModeNumbers numbers{};
    numbers.pMode = &mode;
    numbers.dHop = path.way.dKm / mode.nHops;
    numbers.bFar = path.way.dKm > 3000.0;
    numbers.dAbsorption = mode.nHops * (1.0 + 0.0067 * path.pIonosphere->dSsnLimited)
                          / (2 * mode.nHops * mode.dCosIncidence);
    const double dSlant = 20.0 * std::log10(mode.dSlant);
    numbers.dLoss =
        kLossFree + dSlant + mode.dAuroral + kLossGround * (mode.nHops - 1) + kLossOther;
    numbers.dField = kFieldOfKilowatt + path.dPowerDb + mode.dTxGain;
    numbers.dHopField = numbers.dField - kLossFree - dSlant - mode.dAuroral - kLossHopSum;
    return numbers;
}

// Makes a mode's crossings if they do not exist yet.
void ModeCrossingsMake(WayHour& wayHour, Mode& mode)
{
    if (mode.nCrossing >= 0)
        return;
    mode.nCrossing = wayHour.nCrossings;
    wayHour.nCrossings += 2 * mode.nHops;
    CrossingsFill(wayHour.absorption, wayHour.pWay->track, mode.nHops, mode.dElevation,
                  &wayHour.aCrossings[static_cast<std::size_t>(mode.nCrossing)]);
}

// Loss of a mode above its basic MUF, from the root of f/MUF - 1 if that is above 0.
template <class V>
HOPCAST_INLINE V MufLossGet(bool bE, bool bFar, const V& vOver, const V& vRoot)
{
    const V vLoss = bE     ? LaneMin<V>(46.0 * vRoot + 5.0, LaneAll<V>(58.0))
                    : bFar ? LaneMin<V>(70.0 * vOver + 8.0, LaneAll<V>(80.0))
                           : LaneMin<V>(36.0 * vRoot + 5.0, LaneAll<V>(60.0));
    return LaneSelect(vOver > 0.0, vLoss, LaneAll<V>(0.0));
}

// The same for a mode of the hop sum, above the lowest MUF of its hops.
template <class V>
HOPCAST_INLINE V WorstLossGet(const V& vF, double dWorst)
{
    const V vOver = vF / dWorst - 1.0;
    return MufLossGet<V>(false, false, vOver, LaneSqrt<V>(LaneMax<V>(vOver, LaneAll<V>(0.0))));
}

// Screening frequency of an F2 mode. The elevation's cosine comes from its tangent.
template <class V>
HOPCAST_INLINE V ScreeningGet(const Screen& screen, const ModeNumbers& numbers, const V& vF,
                              V& vMirror)
{
    vMirror = V{};
    for (std::size_t i = 0; i < screen.nLayers; ++i)
        vMirror += MirrorHeightLanesGet<V>(screen.aLayers[i], vF, numbers.dHop);
    vMirror = vMirror / static_cast<double>(screen.nLayers);
    const V vTan = (numbers.dCosHalf - kEarthKm / (kEarthKm + vMirror)) / numbers.dSinHalf;
    constexpr double kAtE = kEarthKm / (kEarthKm + kHeightE);
    const V vSin2 = kAtE * kAtE / (1.0 + vTan * vTan);
    return 1.05 * screen.dFoe / LaneSqrt<V>(1.0 - vSin2);
}

// Fills the screening at each frequency; true if any frequency is above it.
template <class V>
HOPCAST_INLINE bool ModeScreeningFill(ModeRows& modeRows, const Screen& screen,
                                      const ModeNumbers& numbers, const FrequencySet& set)
{
    bool bAny = false;
    for (std::size_t i = 0; i < set.nCount; i += kLanes<V>) {
        const V vF = LaneLoad<V>(&set.aMegahertz[i]);
        V vScreening{}, vMirror{};
        if (screen.nLayers > 0 && !numbers.pMode->bE)
            vScreening = ScreeningGet<V>(screen, numbers, vF, vMirror);
        const auto maskUsed = vScreening < vF;
        bAny = bAny || LaneAny(maskUsed);
        LaneStore(&modeRows.aUsed[i], LaneSelect(maskUsed, LaneAll<V>(1.0), LaneAll<V>(0.0)));
        LaneStore(&modeRows.aScreening[i], vScreening);
        LaneStore(&modeRows.aMirror[i], vMirror);
    }
    return bAny;
}

template <class V>
HOPCAST_INLINE void ModeFieldFill(ModeRows& modeRows, const ModeNumbers& numbers,
                                  const FrequencySet& set)
{
    const Mode& mode = *numbers.pMode;
    for (std::size_t i = 0; i < set.nCount; i += kLanes<V>) {
        const V vF = LaneLoad<V>(&set.aMegahertz[i]);
        const V vDb = LaneLoad<V>(&set.aDb[i]);
        const V vSum =
            AbsorptionSumGet<V>(numbers.pCrossings, numbers.nCrossings, vF * mode.dCosIncidence);
        const V vWide = vF + mode.dGyro;
        const V vAbsorption = numbers.dAbsorption * vSum / (vWide * vWide);
        const V vOver = vF / mode.dMuf - 1.0;
        const V vRoot = LaneSqrt<V>(LaneMax<V>(vOver, LaneAll<V>(0.0)));
        const V vLoss =
            numbers.dLoss + vDb + vAbsorption + MufLossGet<V>(mode.bE, numbers.bFar, vOver, vRoot);
        LaneStore<V>(&modeRows.aLoss[i], vLoss);
        LaneStore<V>(&modeRows.aField[i], numbers.dField + vDb - vLoss);
        if (mode.dWorst > 0.0)
            LaneStore<V>(&modeRows.aHopField[i],
                         numbers.dHopField - vAbsorption - WorstLossGet<V>(vF, mode.dWorst));
    }
}

HOPCAST_WIDE bool ModeScreeningWide(ModeRows& modeRows, const Screen& screen,
                                    const ModeNumbers& numbers, const FrequencySet& set)
{
    return ModeScreeningFill<Lanes4>(modeRows, screen, numbers, set);
}

HOPCAST_WIDE void ModeFieldWide(ModeRows& modeRows, const ModeNumbers& numbers,
                                const FrequencySet& set)
{
    ModeFieldFill<Lanes4>(modeRows, numbers, set);
}

}  // namespace

void ModesRowsFill(ModesRows& aRows, WayHour& hour, const FrequencySet& set)
{
    const bool bWide = LanesWideIs();
    const Screen screen = ScreenMake(hour);
    for (std::size_t i = 0; i < static_cast<std::size_t>(hour.nModes); ++i) {
        Mode& mode = hour.aModes[i];
        ModeRows& modeRows = aRows[i];
        ModeNumbers numbers = ModeNumbersGet(hour, mode);
        if (screen.nLayers > 0) {
            numbers.dSinHalf = std::sin(numbers.dHop / (2.0 * kEarthKm));
            numbers.dCosHalf = std::cos(numbers.dHop / (2.0 * kEarthKm));
        }
        const bool bAny = bWide ? ModeScreeningWide(modeRows, screen, numbers, set)
                                : ModeScreeningFill<Lanes2>(modeRows, screen, numbers, set);
        if (!mode.bReaches)
            modeRows.aUsed.fill(0.0);
        if (!bAny || !mode.bReaches)
            continue;
        ModeCrossingsMake(hour, mode);
        numbers.pCrossings = &hour.aCrossings[static_cast<std::size_t>(mode.nCrossing)];
        numbers.nCrossings = 2 * mode.nHops;
        if (bWide)
            ModeFieldWide(modeRows, numbers, set);
        else
            ModeFieldFill<Lanes2>(modeRows, numbers, set);
    }
}

}  // namespace rec533
