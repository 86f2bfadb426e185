#include "engine/rec533/Luf.h"

namespace rec533 {
namespace {

constexpr int kFirst = 20;      // tenths of a MHz
constexpr int kCoarse = 4;      // tenths
constexpr double kClose = 5.0;  // percent: so near the goal the tenths between are looked at
constexpr std::size_t kAtOnce = 4;

// Some frequencies in tenths of a MHz and their reliability, percent.
struct Tenths {
    std::array<int, kAtOnce> aAt{};
    std::array<double, kAtOnce> aReached{};
    std::size_t nCount = 0;
};

void ReachedFill(Tenths& tbl, Hour& hour, PredictionWork& work)
{
    std::array<double, kAtOnce> aFrequencies{};
    for (std::size_t i = 0; i < tbl.nCount; ++i) aFrequencies[i] = tbl.aAt[i] / 10.0;
    FrequencySet set;
    PredictionRows rows;
    FrequencySetFill(set, *hour.pPath->pIonosphere, hour.pPath->circuit,
                     std::span(aFrequencies).first(tbl.nCount), NoiseBlocksOf(hour.noise));
    PredictionRowsFill(rows, work, hour, set);
    for (std::size_t i = 0; i < tbl.nCount; ++i) tbl.aReached[i] = rows.snr.aReliability[i];
}

// The coarse steps behind one, the last of them shortened.
Tenths CoarseMake(int nBefore, int nLast)
{
    Tenths tbl;
    while (nBefore < nLast && tbl.nCount < kAtOnce) {
        nBefore = nBefore < kFirst ? kFirst : std::min(nBefore + kCoarse, nLast);
        if (nBefore > nLast)
            break;
        tbl.aAt[tbl.nCount++] = nBefore;
    }
    return tbl;
}

// The first of the tenths between two that reaches the goal, 0 when none does.
int FineGet(int nBefore, int nAt, double dGoal, Hour& hour, PredictionWork& work)
{
    Tenths tbl;
    for (int n = nBefore + 1; n < nAt; ++n) tbl.aAt[tbl.nCount++] = n;
    if (tbl.nCount == 0)
        return 0;
    ReachedFill(tbl, hour, work);
    for (std::size_t i = 0; i < tbl.nCount; ++i)
        if (tbl.aReached[i] >= dGoal)
            return tbl.aAt[i];
    return 0;
}

}  // namespace

double LufGet(Hour& hour, PredictionWork& work)
{
    const double dGoal = hour.pPath->circuit.dRequiredReliability;
    const int nLast = static_cast<int>(hour.dMuf * 10.0);
    bool bCloseBefore = false;
    int nBefore = kFirst - 1;
    for (Tenths tbl = CoarseMake(nBefore, nLast); tbl.nCount > 0;
         tbl = CoarseMake(nBefore, nLast)) {
        ReachedFill(tbl, hour, work);
        for (std::size_t i = 0; i < tbl.nCount; ++i) {
            const bool bClose = tbl.aReached[i] >= dGoal - kClose;
            if (bClose || bCloseBefore) {
                const int nFine = FineGet(nBefore, tbl.aAt[i], dGoal, hour, work);
                if (nFine > 0)
                    return nFine / 10.0;
            }
            if (tbl.aReached[i] >= dGoal)
                return tbl.aAt[i] / 10.0;
            bCloseBefore = bClose;
            nBefore = tbl.aAt[i];
        }
    }
    return std::ceil(hour.dMuf * 10.0) / 10.0;
}

}  // namespace rec533
