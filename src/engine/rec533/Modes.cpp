#include "engine/rec533/Modes.h"

namespace rec533 {
namespace {

constexpr double kScreenedMost = 4000.0;    // no screening beyond, km
constexpr double kFieldOfKilowatt = 136.6;  // dB(uV/m) of 1 kW e.i.r.p. without the loss
constexpr double kLossFree = 32.45;
constexpr double kLossOther = 9.14;   // Lz, the empirical constant of the edition
constexpr double kLossHopSum = 19.0;  // the same in the hop sum
constexpr double kLossGround = 2.0;   // at each reflection on the ground

// The layers whose mean mirror height counts, and the least foE of the screening.
struct Screen {
    std::array<MirrorLayer, 3> aLayers;
    std::size_t nLayers = 0;  // 0: no screening at all
    double dFoe = 0.0;
};

Screen ScreenMake(const WayHour& tbl)
{
    Screen tblScreen;
    const Ionosphere& tblIono = *tbl.pWay->pIonosphere;
    const double dKm = tbl.pWay->tblWay.dKm;
    if (dKm > kScreenedMost || tbl.nOrderF2 == 0)
        return tblScreen;
    tblScreen.dFoe = tbl.dFoeScreen;
    const auto fnAdd = [&](const F2Layer& tblLayer) {
        tblScreen.aLayers[tblScreen.nLayers++] =
            MirrorLayerMake(tblLayer.dFof2, tblLayer.dFoe, tblLayer.dM3, tblIono.dSsnLimited,
                            tblIono.quirks.bNoMirrorTerm);
    };
    if (dKm > tbl.dRangeMost)
        fnAdd(tbl.tblHopT);
    fnAdd(tbl.tblMid);
    if (dKm > tbl.dRangeMost)
        fnAdd(tbl.tblHopR);
    return tblScreen;
}

// What a mode has at every frequency.
struct ModeNumbers {
    const Mode* pMode;
    double dHop;                // km
    double dSinHalf, dCosHalf;  // of half the hop's angle
    bool bFar;                  // the path is longer than 3000 km
    double dAbsorption;         // factor of the absorption loss
    double dLoss;               // all of Lb that does not change with the frequency
    double dField;              // field of no loss, without the frequency's own share
    double dHopField;           // all of the hop field that does not change
    const Crossing* pCrossings;
    int nCrossings;
};

ModeNumbers ModeNumbersGet(const WayHour& tbl, const Mode& tblMode)
{
    const WayPath& tblPath = *tbl.pWay;
    ModeNumbers tblN{};
    tblN.pMode = &tblMode;
    tblN.dHop = tblPath.tblWay.dKm / tblMode.nHops;
    tblN.bFar = tblPath.tblWay.dKm > 3000.0;
    tblN.dAbsorption = tblMode.nHops * (1.0 + 0.0067 * tblPath.pIonosphere->dSsnLimited)
                       / (2 * tblMode.nHops * tblMode.dCosIncidence);
    const double dSlant = 20.0 * std::log10(tblMode.dSlant);
    tblN.dLoss =
        kLossFree + dSlant + tblMode.dAuroral + kLossGround * (tblMode.nHops - 1) + kLossOther;
    tblN.dField = kFieldOfKilowatt + tblPath.dPowerDb + tblMode.dTxGain;
    tblN.dHopField = tblN.dField - kLossFree - dSlant - tblMode.dAuroral - kLossHopSum;
    return tblN;
}

// Makes a mode's crossings, if they are not there.
void ModeCrossingsMake(WayHour& tbl, Mode& tblMode)
{
    if (tblMode.nCrossing >= 0)
        return;
    tblMode.nCrossing = tbl.nCrossings;
    tbl.nCrossings += 2 * tblMode.nHops;
    CrossingsFill(tbl.tblAbsorption, tbl.pWay->tblTrack, tblMode.nHops, tblMode.dElevation,
                  &tbl.aCrossings[static_cast<std::size_t>(tblMode.nCrossing)]);
}

// Loss of a mode above its basic MUF, from the root of f/MUF - 1 where that is above 0.
template <class V>
HOPCAST_INLINE V MufLossGet(bool bE, bool bFar, const V& vOver, const V& vRoot)
{
    const V vLoss = bE     ? LaneMin<V>(46.0 * vRoot + 5.0, LaneAll<V>(58.0))
                    : bFar ? LaneMin<V>(70.0 * vOver + 8.0, LaneAll<V>(80.0))
                           : LaneMin<V>(36.0 * vRoot + 5.0, LaneAll<V>(60.0));
    return LaneSelect(vOver > 0.0, vLoss, LaneAll<V>(0.0));
}

// The same of a mode of the hop sum, above the lowest MUF of its hops.
template <class V>
HOPCAST_INLINE V WorstLossGet(const V& vF, double dWorst)
{
    const V vOver = vF / dWorst - 1.0;
    return MufLossGet<V>(false, false, vOver, LaneSqrt<V>(LaneMax<V>(vOver, LaneAll<V>(0.0))));
}

// Screening frequency of an F2 mode. The elevation's cosine comes from its tangent.
template <class V>
HOPCAST_INLINE V ScreeningGet(const Screen& tbl, const ModeNumbers& tblN, const V& vF, V& vMirror)
{
    vMirror = V{};
    for (std::size_t i = 0; i < tbl.nLayers; ++i)
        vMirror += MirrorHeightLanesGet<V>(tbl.aLayers[i], vF, tblN.dHop);
    vMirror = vMirror / static_cast<double>(tbl.nLayers);
    const V vTan = (tblN.dCosHalf - kEarthKm / (kEarthKm + vMirror)) / tblN.dSinHalf;
    constexpr double kAtE = kEarthKm / (kEarthKm + kHeightE);
    const V vSin2 = kAtE * kAtE / (1.0 + vTan * vTan);
    return 1.05 * tbl.dFoe / LaneSqrt<V>(1.0 - vSin2);
}

// First frequencies, whether any is above the screening.
template <class V>
HOPCAST_INLINE bool ModeScreeningFill(ModeRows& tbl, const Screen& tblScreen,
                                      const ModeNumbers& tblN, const FrequencySet& tblSet)
{
    bool bAny = false;
    for (std::size_t i = 0; i < tblSet.nCount; i += kLanes<V>) {
        const V vF = LaneLoad<V>(&tblSet.aMegahertz[i]);
        V vScreening{}, vMirror{};
        if (tblScreen.nLayers > 0 && !tblN.pMode->bE)
            vScreening = ScreeningGet<V>(tblScreen, tblN, vF, vMirror);
        const auto maskUsed = vScreening < vF;
        bAny = bAny || LaneAny(maskUsed);
        LaneStore(&tbl.aUsed[i], LaneSelect(maskUsed, LaneAll<V>(1.0), LaneAll<V>(0.0)));
        LaneStore(&tbl.aScreening[i], vScreening);
        LaneStore(&tbl.aMirror[i], vMirror);
    }
    return bAny;
}

template <class V>
HOPCAST_INLINE void ModeFieldFill(ModeRows& tbl, const ModeNumbers& tblN,
                                  const FrequencySet& tblSet)
{
    const Mode& tblMode = *tblN.pMode;
    for (std::size_t i = 0; i < tblSet.nCount; i += kLanes<V>) {
        const V vF = LaneLoad<V>(&tblSet.aMegahertz[i]);
        const V vDb = LaneLoad<V>(&tblSet.aDb[i]);
        const V vSum =
            AbsorptionSumGet<V>(tblN.pCrossings, tblN.nCrossings, vF * tblMode.dCosIncidence);
        const V vWide = vF + tblMode.dGyro;
        const V vAbsorption = tblN.dAbsorption * vSum / (vWide * vWide);
        const V vOver = vF / tblMode.dMuf - 1.0;
        const V vRoot = LaneSqrt<V>(LaneMax<V>(vOver, LaneAll<V>(0.0)));
        const V vLoss =
            tblN.dLoss + vDb + vAbsorption + MufLossGet<V>(tblMode.bE, tblN.bFar, vOver, vRoot);
        LaneStore<V>(&tbl.aLoss[i], vLoss);
        LaneStore<V>(&tbl.aField[i], tblN.dField + vDb - vLoss);
        if (tblMode.dWorst > 0.0)
            LaneStore<V>(&tbl.aHopField[i],
                         tblN.dHopField - vAbsorption - WorstLossGet<V>(vF, tblMode.dWorst));
    }
}

HOPCAST_WIDE bool ModeScreeningWide(ModeRows& tbl, const Screen& tblScreen, const ModeNumbers& tblN,
                                    const FrequencySet& tblSet)
{
    return ModeScreeningFill<Lanes4>(tbl, tblScreen, tblN, tblSet);
}

HOPCAST_WIDE void ModeFieldWide(ModeRows& tbl, const ModeNumbers& tblN, const FrequencySet& tblSet)
{
    ModeFieldFill<Lanes4>(tbl, tblN, tblSet);
}

}  // namespace

void ModesRowsFill(ModesRows& aRows, WayHour& tblHour, const FrequencySet& tblSet)
{
    const bool bWide = LanesWideIs();
    const Screen tblScreen = ScreenMake(tblHour);
    for (std::size_t i = 0; i < static_cast<std::size_t>(tblHour.nModes); ++i) {
        Mode& tblMode = tblHour.aModes[i];
        ModeRows& tbl = aRows[i];
        ModeNumbers tblN = ModeNumbersGet(tblHour, tblMode);
        if (tblScreen.nLayers > 0) {
            tblN.dSinHalf = std::sin(tblN.dHop / (2.0 * kEarthKm));
            tblN.dCosHalf = std::cos(tblN.dHop / (2.0 * kEarthKm));
        }
        const bool bAny = bWide ? ModeScreeningWide(tbl, tblScreen, tblN, tblSet)
                                : ModeScreeningFill<Lanes2>(tbl, tblScreen, tblN, tblSet);
        if (!tblMode.bReaches)
            tbl.aUsed.fill(0.0);
        if (!bAny || !tblMode.bReaches)
            continue;
        ModeCrossingsMake(tblHour, tblMode);
        tblN.pCrossings = &tblHour.aCrossings[static_cast<std::size_t>(tblMode.nCrossing)];
        tblN.nCrossings = 2 * tblMode.nHops;
        if (bWide)
            ModeFieldWide(tbl, tblN, tblSet);
        else
            ModeFieldFill<Lanes2>(tbl, tblN, tblSet);
    }
}

}  // namespace rec533
