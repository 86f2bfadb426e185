#include "ui/curves/Spread.h"

#include <algorithm>
#include <cstddef>

// Positions that are too close form a group round their common middle: least squares that keep the
// order, "pool adjacent violators".
std::vector<double> Spread(const std::vector<double>& aWanted, double dApart, double dTop,
                           double dBottom)
{
    struct Group {
        double dSum;  // of the positions that the members want for the group's first one
        int nMembers;
        [[nodiscard]] double First() const { return dSum / nMembers; }
    };
    std::vector<Group> aGroup;
    for (const double dWanted : aWanted) {
        aGroup.push_back({dWanted, 1});
        while (aGroup.size() > 1) {
            const Group last = aGroup.back();
            Group& before = aGroup[aGroup.size() - 2];
            if (before.First() + before.nMembers * dApart <= last.First())
                break;
            before.dSum += last.dSum - last.nMembers * before.nMembers * dApart;
            before.nMembers += last.nMembers;
            aGroup.pop_back();
        }
    }
    std::vector<double> aPlace;
    for (const Group& group : aGroup)
        for (int i = 0; i < group.nMembers; ++i) aPlace.push_back(group.First() + i * dApart);
    const auto nPlaces = static_cast<double>(aPlace.size());
    for (std::size_t i = 0; i < aPlace.size(); ++i) {
        const auto n = static_cast<double>(i);
        aPlace[i] = std::min(aPlace[i], dBottom - (nPlaces - 1 - n) * dApart);
        aPlace[i] = std::max(aPlace[i], dTop + n * dApart);
    }
    return aPlace;
}
