#include "ui/map/MapDayRun.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <string>
#include <utility>

#include "settings/SettingsRange.h"
#include "ui/common/RunnerPost.h"

namespace {

constexpr int kCoarseGrid = 10;  // points per side: a sixteenth of the work for the default grid

using WorkPtr = std::shared_ptr<AreaDayWork>;

/// @return nullptr where there is no memory for it
std::shared_ptr<AreaDay> DayMake(const AreaDayRequest& request)
{
    try {
        return std::make_shared<AreaDay>(request);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace

/// All boxes with one grid size. The pieces of the first box come first, then those of the next.
struct MapDayRun::Grid {
    MapDayGrid apDays;
    std::vector<WorkPtr> apWorks;
    std::vector<bool> abDone;  // by piece
    std::size_t nMissing = 0;  // pieces
    /// By piece. A piece that was stopped may still be ending when it is started again.
    std::vector<std::mutex> aBusy;

    [[nodiscard]] std::size_t BoxPiecesGet() const { return apWorks.at(0)->PiecesGet(); }
    [[nodiscard]] std::optional<AreaDayPart> PartGet(std::size_t iPiece) const
    {
        return apWorks.at(0)->PartGet(iPiece % BoxPiecesGet());
    }
    /// True if an hour of a frequency, or of all frequencies, is done in every box.
    [[nodiscard]] bool TargetIsDone(const MapDayTarget& target) const
    {
        if (nMissing == 0)
            return true;
        for (std::size_t i = 0; i < abDone.size(); ++i) {
            const auto part = PartGet(i);
            const bool bWanted =
                !part
                || (part->iHour == target.iHour
                    && (!target.iFrequency || *target.iFrequency == part->iFrequency));
            if (bWanted && !abDone[i])
                return false;
        }
        return true;
    }
    [[nodiscard]] std::size_t BytesGet() const
    {
        std::size_t nBytes = 0;
        for (const auto& pDay : apDays) nBytes += pDay->BytesGet();
        return nBytes;
    }
    /// Missing pieces, those of the wanted hour first.
    [[nodiscard]] std::vector<std::size_t> PiecesMissing(const MapDayTarget& target) const
    {
        std::vector<std::size_t> aiPiece;
        for (std::size_t i = 0; i < abDone.size(); ++i) {
            const auto part = PartGet(i);
            const bool bWanted =
                !part || !target.iFrequency || *target.iFrequency == part->iFrequency;
            if (bWanted && !abDone[i])
                aiPiece.push_back(i);
        }
        const auto WaitOf = [&](std::size_t iPiece) {
            const auto part = PartGet(iPiece);
            return part ? (part->iHour - target.iHour + kHourCount) % kHourCount : 0;
        };
        std::stable_sort(aiPiece.begin(), aiPiece.end(), [&](std::size_t iOne, std::size_t iOther) {
            return WaitOf(iOne) < WaitOf(iOther);
        });
        return aiPiece;
    }
};

struct MapDayRun::Entry {
    MapDayRequest request;
    std::string sEngine;
    std::shared_ptr<const Engine> pEngine;  // kept alive for its work
    bool bSpread = false;
    bool bRows = false;   // all hours at once, with their deciles
    bool bReady = false;  // all grids are prepared
    std::optional<Grid> coarse;
    Grid full;

    [[nodiscard]] bool Serves(MapDayRequest wanted, const std::string& sEngineOf) const
    {
        if (bRows)
            wanted.bSpread = request.bSpread;
        return request == wanted && sEngine == sEngineOf;
    }
};

MapDayRun::MapDayRun() = default;

MapDayRun::~MapDayRun()
{
    for (RunnerJob& job : m_aJobs) job.Cancel();
}

/// Moves the entry to the front of the list, or adds a new one.
void MapDayRun::EntryUse(const MapDayRequest& request, const Engine& engine)
{
    const std::string sEngine = engine.IdentityGet();
    const auto it = std::find_if(m_apEntries.begin(), m_apEntries.end(),
                                 [&](const EntryPtr& p) { return p->Serves(request, sEngine); });
    if (it != m_apEntries.end() && (*it)->bReady) {
        m_apEntries.splice(m_apEntries.begin(), m_apEntries, it);
        return;
    }
    if (it != m_apEntries.end())
        m_apEntries.erase(it);
    auto pEntry = std::make_shared<Entry>();
    pEntry->request = request;
    pEntry->sEngine = sEngine;
    m_apEntries.push_front(std::move(pEntry));
}

/// Prepares the entry's memory and work. A coarse grid is started at once, so that its picture does
/// not wait for the memory of the full one.
/// @return false if the engine cannot do it
bool MapDayRun::Prepare(Entry& entry, const std::shared_ptr<const Engine>& pEngine)
{
    const auto GridMake = [&](Grid& grid, int nGridSize, std::size_t nBoxes, bool bSpread) {
        AreaDayRequest request{entry.request.area, entry.request.afFrequency, bSpread};
        request.area.nGridSize = nGridSize;
        for (std::size_t n = 0; n < nBoxes; ++n) {
            const AreaBox& box = entry.request.aBoxes[n];
            request.area.dSouth = box.dBottom;
            request.area.dNorth = box.dTop;
            request.area.dWest = box.dLeft;
            request.area.dEast = box.dRight;
            std::optional<Failure> failure;
            WorkPtr pWork = pEngine->AreaDayPrepare(request, failure);
            auto pDay = pWork != nullptr ? DayMake(request) : nullptr;
            if (pDay == nullptr) {
                if (pWork != nullptr)
                    failure = Failure{FailureKind::BadInput,
                                      tr("Out of memory. Choose a smaller grid or fewer "
                                         "frequencies.")
                                          .toStdString()};
                Stop();
                Q_EMIT Failed(failure.value_or(Failure()));
                return false;
            }
            grid.apWorks.push_back(std::move(pWork));
            grid.apDays.push_back(std::move(pDay));
        }
        grid.abDone.assign(grid.apWorks.size() * grid.BoxPiecesGet(), false);
        grid.nMissing = grid.abDone.size();
        grid.aBusy = std::vector<std::mutex>(grid.nMissing);
        return true;
    };
    const int nGridSize = entry.request.area.nGridSize;
    const std::size_t nBoxes = entry.request.aBoxes.size();
    Grid trial;
    if (!GridMake(trial, kGridSizeMin, 1, false))
        return false;
    entry.pEngine = pEngine;
    entry.bRows = !trial.PartGet(0);
    entry.bSpread = entry.bRows || entry.request.bSpread;  // here they cost nothing
    if (entry.bRows && nGridSize > kCoarseGrid) {
        if (!GridMake(entry.coarse.emplace(), kCoarseGrid, nBoxes, true))
            return false;
        GridStart(*entry.coarse, {}, false);
    }
    entry.bReady = GridMake(entry.full, nGridSize, nBoxes, entry.bSpread);
    return entry.bReady;
}

void MapDayRun::Ask(const MapDayRequest& request, const std::shared_ptr<const Engine>& pEngine,
                    const MapDayTarget& target)
{
    const bool bSame =
        !m_apEntries.empty() && m_apEntries.front()->Serves(request, pEngine->IdentityGet());
    if (bSame && m_bRunning && (!m_iFrequencyRun || m_iFrequencyRun == target.iFrequency))
        return;
    Stop();
    m_nDone = 0;
    m_nCount = 0;
    if (m_pRunner == nullptr)
        m_pRunner = std::make_unique<Runner>(RunnerPostTo(*this), 0, 0);
    EntryUse(request, *pEngine);
    Entry& entry = *m_apEntries.front();
    if (entry.bReady) {
        if (entry.coarse && entry.coarse->nMissing > 0)
            GridStart(*entry.coarse, {}, false);
    } else if (request.aBoxes.empty() || !Prepare(entry, pEngine)) {
        return;
    }
    CacheTrim();
    if (entry.full.PiecesMissing(target).empty())
        return;
    m_bRunning = true;
    m_iFrequencyRun = entry.bRows ? std::nullopt : target.iFrequency;
    GridStart(entry.full, target, true);
}

void MapDayRun::GridStart(Grid& grid, const MapDayTarget& target, bool bLast)
{
    const EntryPtr pEntry = m_apEntries.front();  // lives as long as its work
    auto aiPiece = grid.PiecesMissing(target);
    m_nCount += aiPiece.size();
    const std::size_t nTasks = aiPiece.size();
    const int nAtOnce =
        grid.PartGet(0) ? pEntry->pEngine->LimitsGet().nAtOnce : m_pRunner->WorkersGet();
    m_aJobs.push_back(m_pRunner->Start(
        nTasks, nAtOnce,
        [this, pEntry, &grid, aiPiece = std::move(aiPiece)](
            std::size_t iTask, const std::stop_token& stop) -> std::function<void()> {
            const std::size_t iPiece = aiPiece[iTask];
            const std::size_t iBox = iPiece / grid.BoxPiecesGet();
            const std::lock_guard lock(grid.aBusy[iPiece]);
            auto failure =
                grid.apWorks[iBox]->Run(iPiece % grid.BoxPiecesGet(), *grid.apDays[iBox], stop);
            return [this, pEntry, &grid, iPiece, failure = std::move(failure)] {
                PieceDone(grid, iPiece, failure);
            };
        },
        [this, bLast] {
            m_bRunning = m_bRunning && !bLast;
            Q_EMIT Renewed();
        }));
}

void MapDayRun::PieceDone(Grid& grid, std::size_t iPiece, const std::optional<Failure>& failure)
{
    if (failure) {
        Stop();
        Q_EMIT Failed(*failure);
        return;
    }
    ++m_nDone;
    grid.abDone[iPiece] = true;
    --grid.nMissing;
    Q_EMIT Progressed();
    // With all hours at once nothing can be shown before the last piece, which ends the job.
    const auto part = grid.PartGet(iPiece);
    if (part && grid.TargetIsDone({part->iHour, part->iFrequency}))
        Q_EMIT Renewed();
}

void MapDayRun::Stop()
{
    for (RunnerJob& job : m_aJobs) job.Cancel();
    m_aJobs.clear();
    m_bRunning = false;
}

const MapDayRequest* MapDayRun::RequestGet() const
{
    return m_apEntries.empty() ? nullptr : &m_apEntries.front()->request;
}

const MapDayGrid* MapDayRun::GridGet(const MapDayTarget& target) const
{
    if (m_apEntries.empty() || !m_apEntries.front()->bReady)
        return nullptr;
    const Entry& entry = *m_apEntries.front();
    if (entry.full.TargetIsDone(target))
        return &entry.full.apDays;
    return entry.coarse && entry.coarse->nMissing == 0 ? &entry.coarse->apDays : nullptr;
}

AreaHours MapDayRun::HoursGet() const
{
    AreaHours hours;
    for (int iHour = 0; iHour < kHourCount; ++iHour)
        hours.set(static_cast<std::size_t>(iHour), GridGet({iHour, {}}) != nullptr);
    return hours;
}

bool MapDayRun::SpreadIs() const { return !m_apEntries.empty() && m_apEntries.front()->bSpread; }

std::size_t MapDayRun::CacheBytesGet() const
{
    std::size_t nBytes = 0;
    for (const EntryPtr& pEntry : m_apEntries)
        nBytes += pEntry->full.BytesGet() + (pEntry->coarse ? pEntry->coarse->BytesGet() : 0);
    return nBytes;
}

void MapDayRun::CacheTrim()
{
    while (m_apEntries.size() > 1 && CacheBytesGet() > kCacheBytes) m_apEntries.pop_back();
}
