/// @file ReachBoard.h
/// The last answer to "Who Can I Reach" with its request, for windows that show the same stations.
/// Once the settings ask for something else it is no answer any more.
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
        m_request = reach.InputGet().base;
        for (const ReachRow& row : reach.RowsGet()) {
            const Place& place = reach.PlacesGet().at(row.iPlace);
            if (row.eState == ReachState::Answered)
                m_aHours[{place.sSystem, place.sKey}] = row.aHours;
        }
        Q_EMIT Renewed();
    }
    /// True if a search with this request would have the same answers. The transmitter does not
    /// count: each station is one in its turn.
    /// @param bList  true if the list of frequencies counts
    [[nodiscard]] bool Answers(Request request, bool bList) const
    {
        request.dTxLat = m_request.dTxLat;
        request.dTxLon = m_request.dTxLon;
        if (!bList) {
            request.nData = m_request.nData;
            request.afFrequency = m_request.afFrequency;
        }
        return RequestKey(request) == RequestKey(m_request);
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
    Request m_request;
    std::map<std::pair<std::string, std::string>, std::array<ReachHour, kReachHours>> m_aHours;
};
