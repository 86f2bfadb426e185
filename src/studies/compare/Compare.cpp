#include "studies/compare/Compare.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <optional>

#include "propagation/PowerTable.h"
#include "propagation/SnrScale.h"
#include "system/NumberLib.h"

namespace {

/// A cell's SNR; nothing if it shows the lowest value that there is.
std::optional<float> SnrGet(const PropagationTable& table, int iHour, int iFrequency)
{
    const float fSnr = table.fSnr(iHour, iFrequency);
    if (!table.PresentIs(iFrequency) || !SnrIs(fSnr))
        return {};
    return fSnr;
}

/// Another engine's antenna choice that is nearest to this engine's. For VOACAP and ICEPAC 0 is
/// station with gain, ideal boat; 1 station with gain, boat with whip; 2 whips; any other plain
/// antennas. For REC533 0 is station with gain, boat with whip; 1 whips; 2 plain antennas.
int AntennaOf(int iAntenna, int iModelFrom, int iModelTo)
{
    const bool bFrom = iModelFrom == kEngineRec533;
    const bool bTo = iModelTo == kEngineRec533;
    if (bFrom == bTo)
        return iAntenna;
    return bTo ? std::clamp(iAntenna - 1, 0, 2) : iAntenna + 1;
}

/// Adds one cell to the figures; mean and rms are sums until the end.
void CellCount(CompareFigures& figures, const std::optional<float>& fA,
               const std::optional<float>& fB, float fNeed)
{
    const bool bOpenA = fA && *fA >= fNeed;
    const bool bOpenB = fB && *fB >= fNeed;
    if (!bOpenA && !bOpenB)
        return;
    ++figures.nOpenEither;
    figures.nOpenOnlyA += bOpenB ? 0 : 1;
    figures.nOpenOnlyB += bOpenA ? 0 : 1;
    if (!fA || !fB)
        return;
    const double dDifference = double{*fA} - double{*fB};
    ++figures.nBoth;
    figures.nAgree += std::abs(dDifference) <= kAgreement ? 1 : 0;
    figures.dMean += dDifference;
    figures.dRms += dDifference * dDifference;
}

}  // namespace

Request CompareRequestGet(const Settings& settings, SunSpotSource eSunSpotSource, int iModel)
{
    Settings other = settings;
    other.m_iPropagationModel = iModel;
    Request request = RequestFromSettings(other);
    request.iAntennaType =
        AntennaOf(settings.m_iPropagationAntennaType, settings.m_iPropagationModel, iModel);
    request.eSunSpotSource = eSunSpotSource;
    request.fPower = static_cast<float>(
        PowerInForceGet(settings.m_fStationPower, settings.m_iPropagationModel,
                        settings.m_iPropagationAntennaType, DeckKind::PointToPoint));
    return request;
}

CompareTable CompareGet(const PropagationTable& tableA, const PropagationTable& tableB, float fNeed)
{
    assert(tableA.nData == tableB.nData);
    CompareTable compare{CellArray<float>(tableA.nData, PropagationTable::kNotPrinted), {}};
    CompareFigures& figures = compare.figures;
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        for (int i = 1; i <= tableA.nData; ++i) {
            const auto fA = SnrGet(tableA, iHour, i);
            const auto fB = SnrGet(tableB, iHour, i);
            if (fA && fB)
                compare.fDifference(iHour, i) = *fA - *fB;
            CellCount(figures, fA, fB, fNeed);
        }
    }
    if (figures.nBoth > 0) {
        figures.dMean /= figures.nBoth;
        figures.dRms = std::sqrt(figures.dRms / figures.nBoth);
    }
    return compare;
}

std::string CompareText(const CompareFigures& figures, const std::string& sEngineA,
                        const std::string& sEngineB)
{
    if (figures.nOpenEither == 0)
        return "no cell is open";
    std::string sText;
    constexpr double kPercent = 100.0;
    if (figures.nBoth > 0)
        sText = "within " + NumberToText(kAgreement) + " dB in "
                + NumberFormat(figures.AgreementGet() * kPercent, "0") + " %";
    const auto Only = [&sText](const std::string& sEngine, int nOpen) {
        if (nOpen > 0)
            sText +=
                (sText.empty() ? "" : "; ") + ("only " + sEngine) + " open: " + NumberToText(nOpen);
    };
    Only(sEngineA, figures.nOpenOnlyA);
    Only(sEngineB, figures.nOpenOnlyB);
    return sText;
}
