/// @file MapDayRun.h
/// Computes the day of the map's area in the background: the SNR of every point, hour and
/// frequency, so that moving through the day needs no waiting. An engine in this process computes a
/// coarse grid first and then the full one. Any other engine runs hour by hour, and each hour can
/// be shown when it is done. Computed days are kept, even unfinished ones.
///
/// Units:   degrees, kHz; hours 0..23 UTC; frequencies as indices into the list.
/// Errors:  the first failure ends the work; what is computed is kept.
/// Threads: called on the windows' thread, and answers on it.
/// Tests:   tests/ui/map/MapDayRunTest.cpp
#pragma once

#include <QObject>
#include <cstddef>
#include <list>
#include <memory>
#include <optional>
#include <vector>

#include "propagation/AreaBoxes.h"
#include "propagation/Runner.h"
#include "studies/areaday/AreaDays.h"

/// The request for a day.
struct MapDayRequest {
    AreaRequest area;                ///< without hour, frequency and bounds
    std::vector<float> afFrequency;  ///< kHz
    std::vector<AreaBox> aBoxes;
    bool bSpread = false;  ///< also days in ten, which an engine in this process always computes

    bool operator==(const MapDayRequest&) const = default;
};

/// What is wanted first. An engine that runs hour by hour computes no other frequency.
struct MapDayTarget {
    int iHour = 0;
    std::optional<std::size_t> iFrequency = {};  ///< nothing: all of them
};

/// A grid of all boxes.
using MapDayGrid = std::vector<std::shared_ptr<AreaDay>>;

class MapDayRun final : public QObject {
    Q_OBJECT
public:
    /// Approximate limit in bytes of the days that are kept; the one in use is kept whatever its
    /// size.
    static constexpr std::size_t kCacheBytes = Runner::kCacheBytes;

    MapDayRun();
    ~MapDayRun() override;

    /// Makes this the day in use and computes what is missing of the target; a request without boxes
    /// has nothing to show.
    void Ask(const MapDayRequest& request, const std::shared_ptr<const Engine>& pEngine,
             const MapDayTarget& target);
    /// Ends the work; what is computed is kept.
    void Stop();
    [[nodiscard]] bool RunningIs() const { return m_bRunning; }
    /// Pieces done of the present work, and all its pieces.
    [[nodiscard]] std::size_t DoneGet() const { return m_nDone; }
    [[nodiscard]] std::size_t CountGet() const { return m_nCount; }

    /// The finest grid that has an hour of a frequency, or of all frequencies; nullptr if none has.
    [[nodiscard]] const MapDayGrid* GridGet(const MapDayTarget& target) const;
    /// The hours for which all frequencies are computed.
    [[nodiscard]] AreaHours HoursGet() const;
    /// True if days in ten are computed: requested, or always given by the engine.
    [[nodiscard]] bool SpreadIs() const;
    /// The request of the day in use; nothing before the first.
    [[nodiscard]] const MapDayRequest* RequestGet() const;
    [[nodiscard]] std::size_t CacheBytesGet() const;

Q_SIGNALS:
    /// There is more to show, or the work is finished.
    void Renewed();
    /// More pieces are done.
    void Progressed();
    void Failed(const Failure& failure);

private:
    struct Grid;
    struct Entry;
    using EntryPtr = std::shared_ptr<Entry>;

    void EntryUse(const MapDayRequest& request, const Engine& engine);
    bool Prepare(Entry& entry, const std::shared_ptr<const Engine>& pEngine);
    void GridStart(Grid& grid, const MapDayTarget& target, bool bLast);
    void PieceDone(Grid& grid, std::size_t iPiece, const std::optional<Failure>& failure);
    void CacheTrim();

    std::list<EntryPtr> m_apEntries;  // the one in use first
    bool m_bRunning = false;
    std::size_t m_nDone = 0;
    std::size_t m_nCount = 0;
    std::optional<std::size_t> m_iFrequencyRun;  // of the present work; nothing: all
    std::vector<RunnerJob> m_aJobs;
    std::unique_ptr<Runner> m_pRunner;  // created with the first work
};
