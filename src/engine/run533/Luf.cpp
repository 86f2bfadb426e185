#include "engine/run533/Luf.h"

namespace run533 {
namespace {

constexpr int kFirst = 20;    // tenths of a MHz
constexpr int kCoarse = 5;

bool ReachedIs(rec533::Hour& tblHour, int nTenths)
{
    rec533::Prediction tbl;
    PredictionFill(tbl, tblHour, nTenths / 10.0);
    return tbl.tblSnr.dReliability >= tblHour.pPath->tblCircuit.dRequiredReliability;
}

}  // namespace

double LufGet(rec533::Hour& tblHour)
{
    const double dMufTenths = tblHour.dMuf * 10.0;
    const int nLast = static_cast<int>(dMufTenths);
    for (int nCoarse = kFirst; nCoarse < nLast + kCoarse; nCoarse += kCoarse) {
        if (!ReachedIs(tblHour, std::min(nCoarse, nLast)) || nLast < kFirst)
            continue;
        for (int n = std::max(nCoarse - kCoarse + 1, kFirst); n < std::min(nCoarse, nLast); ++n)
            if (ReachedIs(tblHour, n))
                return n / 10.0;
        return std::min(nCoarse, nLast) / 10.0;
    }
    return std::ceil(dMufTenths) / 10.0;
}

}  // namespace run533
