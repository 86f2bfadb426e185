#include "engine/rec533/Modes.h"

namespace rec533 {
namespace {

constexpr double kScreenedMost = 4000.0;    // no screening beyond, km
constexpr double kFieldOfKilowatt = 136.6;  // dB(uV/m) of 1 kW e.i.r.p. without the loss
constexpr double kLossFree = 32.45;
constexpr double kLossOther = 9.14;   // Lz, the empirical constant of the edition
constexpr double kLossHopSum = 20.0;  // the same in the hop sum
constexpr double kLossGround = 2.0;   // at each reflection on the ground

// Loss of a mode above its basic MUF.
double MufLossGet(bool bE, bool bFar, double dFrequencyToMuf)
{
    if (dFrequencyToMuf <= 1.0)
        return 0.0;
    const double dR = dFrequencyToMuf - 1.0;
    if (bE)
        return std::min(46.0 * std::sqrt(dR) + 5.0, 58.0);
    return bFar ? std::min(70.0 * dR + 8.0, 80.0) : std::min(36.0 * std::sqrt(dR) + 5.0, 60.0);
}

double MirrorHeightOf(const Hour& tbl, double dFrequency, double dHop)
{
    const auto fnHeight = [&](const F2Layer& tblLayer) {
        return MirrorHeightGet({dFrequency, dHop, tblLayer.dFof2, tblLayer.dFoe, tblLayer.dM3,
                                tbl.pPath->pIonosphere->dSsnLimited,
                                tbl.pPath->pIonosphere->bReference});
    };
    if (tbl.pPath->tblWay.dKm <= tbl.dRangeMost)
        return fnHeight(tbl.tblMid);
    return (fnHeight(tbl.tblHopT) + fnHeight(tbl.tblMid) + fnHeight(tbl.tblHopR)) / 3.0;
}

void ScreeningFill(ModeField& tblField, const Hour& tbl, const Mode& tblMode, double dFrequency)
{
    const double dHop = tbl.pPath->tblWay.dKm / tblMode.nHops;
    tblField.dMirror = MirrorHeightOf(tbl, dFrequency, dHop);
    tblField.dScreening =
        1.05 * tbl.dFoeScreen / IncidenceCosGet(ElevationGet(dHop, tblField.dMirror), kHeightE);
}

double AbsorptionOf(Hour& tbl, Mode& tblMode, double dFrequency)
{
    const int nCount = 2 * tblMode.nHops;
    if (tblMode.nCrossing < 0) {
        tblMode.nCrossing = tbl.nCrossings;
        tbl.nCrossings += nCount;
        CrossingsFill({tbl.pPath->pIonosphere, tbl.tblFoe}, tbl.pPath->tblWay, tblMode.nHops,
                      tblMode.dElevation,
                      &tbl.aCrossings[static_cast<std::size_t>(tblMode.nCrossing)]);
    }
    const double dFactor =
        AbsorptionFactorGet(&tbl.aCrossings[static_cast<std::size_t>(tblMode.nCrossing)], nCount,
                            dFrequency * tblMode.dCosIncidence);
    return AbsorptionLossGet(dFactor, tblMode.nHops, tbl.pPath->pIonosphere->dSsnLimited,
                             dFrequency, tblMode.dGyro, tblMode.dCosIncidence);
}

}  // namespace

void ModeFieldsFill(ModeFields& aFields, Hour& tblHour, double dFrequency)
{
    const Path& tblPath = *tblHour.pPath;
    const double dKm = tblPath.tblWay.dKm;
    const double dLogF = 20.0 * std::log10(dFrequency);
    for (std::size_t i = 0; i < static_cast<std::size_t>(tblHour.nModes); ++i) {
        Mode& tblMode = tblHour.aModes[i];
        ModeField& tblField = aFields[i];
        tblField = ModeField{};
        if (!tblMode.bE && dKm <= kScreenedMost)
            ScreeningFill(tblField, tblHour, tblMode, dFrequency);
        tblField.bUsed = tblMode.bReaches && tblField.dScreening < dFrequency;
        if (!tblField.bUsed)
            continue;
        const double dRatio = dFrequency / tblMode.dMuf;
        const double dSlant = 20.0 * std::log10(tblMode.dSlant);
        const double dCommon = AbsorptionOf(tblHour, tblMode, dFrequency) + tblMode.dAuroral;
        tblField.dLoss = kLossFree + dLogF + dSlant + dCommon
                         + MufLossGet(tblMode.bE, dKm > 3000.0, dRatio)
                         + kLossGround * (tblMode.nHops - 1) + kLossOther;
        tblField.dField =
            kFieldOfKilowatt + tblPath.dPowerDb + tblMode.dTxGain + dLogF - tblField.dLoss;
        tblField.dHopField = kFieldOfKilowatt - kLossFree + tblPath.dPowerDb + tblMode.dTxGain
                             - dSlant - dCommon - MufLossGet(false, false, dRatio) - kLossHopSum;
    }
}

}  // namespace rec533
