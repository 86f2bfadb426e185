#include "engine/rec533/Luf.h"

namespace rec533 {
namespace {

constexpr int kFirst = 20;      // tenths of a MHz
constexpr int kCoarse = 4;      // tenths
constexpr double kClose = 5.0;  // percent: this near the goal the tenths between are tried
constexpr std::size_t kAtOnce = 4;

// Some frequencies in tenths of a MHz and their reliability, percent.
struct Tenths {
    std::array<int, kAtOnce> aAt{};
    std::array<double, kAtOnce> aReached{};
    std::size_t nCount = 0;
};

void ReachedFill(Tenths& tenths, Hour& hour, PredictionWork& work)
{
    std::array<double, kAtOnce> aFrequencies{};
    for (std::size_t i = 0; i < tenths.nCount; ++i) aFrequencies[i] = tenths.aAt[i] / 10.0;
    FrequencySet set;
    PredictionRows rows;
    FrequencySetFill(set, *hour.pPath->pIonosphere, hour.pPath->circuit,
                     std::span(aFrequencies).first(tenths.nCount), NoiseBlocksOf(hour.noise));
    PredictionRowsFill(rows, work, hour, set);
    for (std::size_t i = 0; i < tenths.nCount; ++i) tenths.aReached[i] = rows.snr.aReliability[i];
}

// The next coarse steps after one, the last of them shortened.
Tenths CoarseMake(int nBefore, int nLast)
{
    Tenths tenths;
    while (nBefore < nLast && tenths.nCount < kAtOnce) {
        nBefore = nBefore < kFirst ? kFirst : std::min(nBefore + kCoarse, nLast);
        if (nBefore > nLast)
            break;
        tenths.aAt[tenths.nCount++] = nBefore;
    }
    return tenths;
}

// The first tenth between two that reaches the goal, 0 if none does.
int FineGet(int nBefore, int nAt, double dGoal, Hour& hour, PredictionWork& work)
{
    Tenths tenths;
    for (int n = nBefore + 1; n < nAt; ++n) tenths.aAt[tenths.nCount++] = n;
    if (tenths.nCount == 0)
        return 0;
    ReachedFill(tenths, hour, work);
    for (std::size_t i = 0; i < tenths.nCount; ++i)
        if (tenths.aReached[i] >= dGoal)
            return tenths.aAt[i];
    return 0;
}

}  // namespace

double LufGet(Hour& hour, PredictionWork& work)
{
    const double dGoal = hour.pPath->circuit.dRequiredReliability;
    const int nLast = static_cast<int>(hour.dMuf * 10.0);
    bool bCloseBefore = false;
    int nBefore = kFirst - 1;
    for (Tenths tenths = CoarseMake(nBefore, nLast); tenths.nCount > 0;
         tenths = CoarseMake(nBefore, nLast)) {
        ReachedFill(tenths, hour, work);
        for (std::size_t i = 0; i < tenths.nCount; ++i) {
            const bool bClose = tenths.aReached[i] >= dGoal - kClose;
            if (bClose || bCloseBefore) {
                const int nFine = FineGet(nBefore, tenths.aAt[i], dGoal, hour, work);
                if (nFine > 0)
                    return nFine / 10.0;
            }
            if (tenths.aReached[i] >= dGoal)
                return tenths.aAt[i] / 10.0;
            bCloseBefore = bClose;
            nBefore = tenths.aAt[i];
        }
    }
    return std::ceil(hour.dMuf * 10.0) / 10.0;
}

}  // namespace rec533
