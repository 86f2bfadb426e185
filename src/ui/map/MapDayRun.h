/// @file MapDayRun.h
/// The day of the area that a map shows, computed in the background: the SNR of every point, hour
/// and frequency, for scrubbing without waiting. An engine in this process answers for a coarse
/// grid first, then for the full one; any other engine hour by hour, of which each can be shown as
/// soon as it is there. Days that were computed are kept, also those that were stopped half-way.
///
/// Units:   degrees, kHz; hours 0..23 of UTC; frequencies by their index into the list.
/// Errors:  the first failure ends the work; what is there stays.
/// Threads: called on the thread of the windows, answers on it.
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

/// What a day is asked for.
struct MapDayAsked {
    AreaRequest area;                ///< without hour, frequency and bounds
    std::vector<float> afFrequency;  ///< kHz
    std::vector<AreaBox> aBoxes;
    bool bSpread = false;  ///< days in ten, too; an engine in this process tells them in any case

    bool operator==(const MapDayAsked&) const = default;
};

/// What is wanted of it first; of engines that run hour by hour no other frequency is asked for.
struct MapDayWant {
    int iHour = 0;
    std::optional<std::size_t> iFrequency = {};  ///< nothing: all of them
};

/// A grid of all boxes.
using MapDayGrid = std::vector<std::shared_ptr<AreaDay>>;

class MapDayRun final : public QObject {
    Q_OBJECT
public:
    /// Bytes of the days that are kept, about; the one in use is kept whatever it takes.
    static constexpr std::size_t kCacheBytes = Runner::kCacheBytes;

    MapDayRun();
    ~MapDayRun() override;

    /// Makes this the day in use and computes what is missing of what is wanted.
    void Ask(const MapDayAsked& asked, const std::shared_ptr<const Engine>& pEngine,
             const MapDayWant& want);
    /// Ends the work; what is there stays.
    void Stop();
    [[nodiscard]] bool RunningIs() const { return m_bRunning; }
    /// Pieces done of the work under way, and all of them.
    [[nodiscard]] std::size_t DoneGet() const { return m_nDone; }
    [[nodiscard]] std::size_t CountGet() const { return m_nCount; }

    /// The finest grid with an hour of a frequency, or of all frequencies; nothing where there is
    /// none yet.
    [[nodiscard]] const MapDayGrid* GridGet(const MapDayWant& want) const;
    /// The hours of which all frequencies are there.
    [[nodiscard]] AreaHours HoursGet() const;
    /// The days are told: the request had them, or the engine tells them in any case.
    [[nodiscard]] bool SpreadIs() const;
    /// What the day in use is for; nothing before the first.
    [[nodiscard]] const MapDayAsked* AskedGet() const;
    [[nodiscard]] std::size_t CacheBytesGet() const;

Q_SIGNALS:
    /// There is more to show, or the work is over.
    void Renewed();
    /// More is done.
    void Progressed();
    void Failed(const Failure& failure);

private:
    struct Grid;
    struct Entry;
    using EntryPtr = std::shared_ptr<Entry>;

    void EntryUse(const MapDayAsked& asked, const Engine& engine);
    bool Prepare(Entry& entry, const std::shared_ptr<const Engine>& pEngine);
    void GridStart(Grid& grid, const MapDayWant& want, bool bLast);
    void PieceDone(Grid& grid, std::size_t iPiece, const std::optional<Failure>& failure);
    void CacheTrim();

    std::list<EntryPtr> m_apEntries;  // that in use first
    bool m_bRunning = false;
    std::size_t m_nDone = 0;
    std::size_t m_nCount = 0;
    std::optional<std::size_t> m_iFrequencyRun;  // that the work under way is for; nothing: all
    std::vector<RunnerJob> m_aJobs;
    std::unique_ptr<Runner> m_pRunner;  // from the first work on
};
