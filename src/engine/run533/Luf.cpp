#include "engine/run533/Luf.h"

namespace run533 {
namespace {

constexpr int kFirst = 20;      // tenths of a MHz
constexpr int kCoarse = 4;      // tenths
constexpr double kClose = 5.0;  // percent: so near the goal the tenths between are looked at

double ReliabilityGet(rec533::Hour& tblHour, int nTenths)
{
    rec533::Prediction tbl;
    PredictionFill(tbl, tblHour, nTenths / 10.0);
    return tbl.tblSnr.dReliability;
}

}  // namespace

double LufGet(rec533::Hour& tblHour)
{
    const double dGoal = tblHour.pPath->tblCircuit.dRequiredReliability;
    const int nLast = static_cast<int>(tblHour.dMuf * 10.0);
    bool bCloseBefore = false;
    for (int nBefore = kFirst - 1; nBefore < nLast;) {
        const int nAt = nBefore < kFirst ? kFirst : std::min(nBefore + kCoarse, nLast);
        if (nAt > nLast)
            break;
        const double dReached = ReliabilityGet(tblHour, nAt);
        const bool bClose = dReached >= dGoal - kClose;
        for (int n = nBefore + 1; n < nAt && (bClose || bCloseBefore); ++n)
            if (ReliabilityGet(tblHour, n) >= dGoal)
                return n / 10.0;
        if (dReached >= dGoal)
            return nAt / 10.0;
        bCloseBefore = bClose;
        nBefore = nAt;
    }
    return std::ceil(tblHour.dMuf * 10.0) / 10.0;
}

}  // namespace run533
