// Any bytes as the grid of an area run: header and points.
#include <cmath>

#include "fuzz/FuzzPrefix.h"
#include "propagation/PropagationAreaLib.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr double kFieldMost = 1e10;  // columns of the widest field
    constexpr int kUntouched = -7;
    static const FuzzPrefix prefix;
    prefix.Write("drive_c/itshfbc/areadata/working.rg1", pBytes, nBytes);
    AreaFile file;
    Check(!PropagationAreaOpenFile(kEngineRec533, file));
    for (std::size_t nPoints = 0;; ++nPoints) {
        Check(nPoints <= nBytes);  // each point takes a line
        int iIndex1 = kUntouched, iIndex2 = kUntouched;
        double dLat = kUntouched, dLon = kUntouched;
        float fSnr = kUntouched;
        const auto res = PropagationAreaReadPoint(file, iIndex1, iIndex2, dLat, dLon, fSnr);
        if (!res || !res.ValueGet()) {
            Check(iIndex1 == kUntouched && iIndex2 == kUntouched && dLat == kUntouched
                  && dLon == kUntouched && fSnr == kUntouched);
            if (!res && !res.TextGet().empty() && nPoints < nBytes)
                continue;  // the next line may be a valid point
            break;
        }
        Check(std::abs(iIndex1) < 1000 && std::abs(iIndex2) < 1000);
        Check(std::abs(dLat) < kFieldMost && std::abs(dLon) < kFieldMost
              && std::abs(fSnr) < kFieldMost);
    }
    return 0;
}
