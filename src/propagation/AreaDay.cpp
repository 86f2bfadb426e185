#include "propagation/AreaDay.h"

#include <algorithm>

AreaDay::AreaDay(const AreaDayRequest& requestOf) : request(requestOf)
{
    const auto nSide = static_cast<std::size_t>(std::max(request.area.nGridSize, 0));
    aPlaces.resize(nSide * nSide);
    m_afSnr.assign(aPlaces.size() * std::size_t{kHourCount} * request.afFrequency.size(),
                   PropagationTable::kNotPrinted);
    if (request.bSpread)
        m_aSpread.resize(m_afSnr.size());
}
