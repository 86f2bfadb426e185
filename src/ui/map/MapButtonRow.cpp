#include "ui/map/MapButtonRow.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int kMargin = 10;
constexpr int kGap = 6;  // between buttons
constexpr int kGapMin = 2;
constexpr int kPadding = 10;  // beside a button's content
constexpr int kPaddingMin = 4;

}  // namespace

ButtonRow ButtonRowGet(std::span<const int> aContent, int nRight, int nWidth, int nShift)
{
    const int nCount = static_cast<int>(aContent.size());
    const int nContent = std::accumulate(aContent.begin(), aContent.end(), 0);
    const auto LongGet = [&](int nPadding, int nGap) {
        return nContent + 2 * nPadding * nCount + nGap * (nCount - 1) + 2 * kMargin;
    };
    int nGap = kGap;
    int nPadding = kPadding;
    while (LongGet(nPadding, nGap) > nWidth && (nGap > kGapMin || nPadding > kPaddingMin)) {
        nGap = std::max(nGap - 1, kGapMin);
        nPadding = std::max(nPadding - 1, kPaddingMin);
    }
    ButtonRow row;
    row.nOver = std::max(LongGet(nPadding, nGap) - nWidth, 0);
    int nLeft = kMargin - std::clamp(nShift, 0, row.nOver);
    const int nSpare = std::max(nWidth - LongGet(nPadding, nGap), 0);
    for (int i = 0; i < nCount; ++i) {
        if (i == nCount - nRight)
            nLeft += nSpare;
        const int nButton = aContent[static_cast<std::size_t>(i)] + 2 * nPadding;
        row.aPlaces.push_back({nLeft, nButton});
        nLeft += nButton + nGap;
    }
    return row;
}
