/// @file ReachBoard.h
/// The last answer to "Who Can I Reach", for windows that show the same stations.
///
/// Tests:   tests/ui/map/MapReachTest.cpp
#pragma once

#include <QObject>
#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "studies/reach/Reach.h"

class ReachBoard final : public QObject {
    Q_OBJECT
public:
    /// Replaces the former rows by the answered rows of a search.
    void Set(const Reach& reach)
    {
        m_aHours.clear();
        for (const ReachRow& row : reach.RowsGet()) {
            const Place& place = reach.PlacesGet().at(row.iPlace);
            if (row.eState == ReachState::Answered)
                m_aHours[{place.sSystem, place.sKey}] = row.aHours;
        }
        Q_EMIT Renewed();
    }
    /// A station's best frequency at an hour.
    /// @param iHour  UTC, 0 to 23
    [[nodiscard]] std::optional<ReachHour> HourGet(const std::string& sSystem,
                                                   const std::string& sKey, int iHour) const
    {
        const auto it = m_aHours.find({sSystem, sKey});
        if (it == m_aHours.end())
            return {};
        return it->second.at(static_cast<std::size_t>(iHour));
    }

Q_SIGNALS:
    void Renewed();

private:
    std::map<std::pair<std::string, std::string>, std::array<ReachHour, kReachHours>> m_aHours;
};
