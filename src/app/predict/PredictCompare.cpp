#include "app/predict/PredictCompare.h"

#include <cmath>

#include "app/engines/EngineList.h"
#include "app/predict/PredictPrint.h"
#include "propagation/RequestText.h"
#include "studies/compare/Compare.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"

namespace {

/// One engine's table, with its failures shown; nothing if it has no value at all.
std::optional<PropagationTable> TableGet(const Request& request, bool& bWhole)
{
    const auto pEngine = EngineMake(request.iModel);
    if (const auto failure = pEngine->ObstacleGet()) {
        MsgBox(failure->eIcon, failure->sText);
        return std::nullopt;
    }
    const Prediction prediction = pEngine->Predict(request, {});
    for (const Failure& failure : prediction.aFailures) MsgBox(failure.eIcon, failure.sText);
    bool bAny = false;
    for (int i = 1; i <= request.nData; ++i) bAny = bAny || prediction.table.PresentIs(i);
    const std::string sAbsent = PropagationAbsentText(prediction.table);
    if (bAny && !sAbsent.empty())
        MsgBox(MsgIcon::Exclamation,
               RequestEngineText(request.iModel) + ": no values for " + sAbsent + " kHz.");
    bWhole = bWhole && sAbsent.empty();
    return bAny ? std::optional(prediction.table) : std::nullopt;
}

std::string SnrText(const PropagationTable& table, int iHour, int iFrequency)
{
    return table.PresentIs(iFrequency) ? NumberToText(table.fSnr(iHour, iFrequency)) : "";
}

std::string CsvGet(const PropagationTable& tableA, const PropagationTable& tableB,
                   const CompareTable& compare)
{
    std::string sText = "utc,khz,snr_db_A,snr_db_B,difference_db\n";
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        for (int i = 1; i <= tableA.nData; ++i) {
            const bool bBoth = !std::isnan(compare.fDifference(iHour, i));
            sText += NumberToText(iHour - 1) + "," + NumberToText(tableA.request.FrequencyGet(i))
                     + "," + SnrText(tableA, iHour, i) + "," + SnrText(tableB, iHour, i) + ","
                     + (bBoth ? PredictMarginText(tableA.fSnr(iHour, i),
                                                  Need{{}, tableB.fSnr(iHour, i), {}})
                              : "")
                     + "\n";
        }
    }
    return sText;
}

}  // namespace

std::optional<PredictOutput> PredictCompareGet(const PredictOptions& options,
                                               const Settings& settings,
                                               SunSpotSource eSunSpotSource)
{
    if (settings.m_nData < 1) {
        MsgBox(MsgIcon::Exclamation, "The frequency list is empty; give --frequencies.");
        return std::nullopt;
    }
    const Request requestA =
        CompareRequestGet(settings, eSunSpotSource, settings.m_iPropagationModel);
    const Request requestB = CompareRequestGet(settings, eSunSpotSource, options.iCompare);
    bool bWhole = true;
    const auto tableA = TableGet(requestA, bWhole);
    const auto tableB = tableA ? TableGet(requestB, bWhole) : std::nullopt;
    if (!tableA || !tableB)
        return std::nullopt;
    const Need need =
        options.need ? *options.need : NeedInForce(settings.m_aNeed, settings.m_sNeedSelected);
    const CompareTable compare = CompareGet(*tableA, *tableB, need.fSnr);
    const std::string sA = RequestEngineText(requestA.iModel);
    const std::string sB = RequestEngineText(requestB.iModel);
    MsgBox(MsgIcon::Info, sA + " (A) and " + sB + " (B), " + RequestPowerText(requestA)
                              + ", open for " + PredictNeedText(need) + ": "
                              + CompareText(compare.figures, sA, sB));
    return PredictOutput{CsvGet(*tableA, *tableB, compare), bWhole};
}
