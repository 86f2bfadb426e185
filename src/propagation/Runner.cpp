#include "propagation/Runner.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

struct RunnerJob::State {
    std::size_t nTasks = 0;
    std::size_t nNext = 0;     // under the pool's lock
    std::size_t nRunning = 0;  // under the pool's lock
    std::size_t nAtOnce = 1;
    const Engine* pEngine = nullptr;  // nAtOnce limits all its jobs together; nullptr: this job
    Runner::TaskFn fnTask;
    Runner::EndFn fnEnd;
    std::atomic<std::size_t> nDone{0};    // raised before the answer is posted, so that its
                                          // receiver finds it counted
    std::atomic<std::size_t> nPosted{0};  // raised after that: the end is posted after the last
    std::stop_source stop;
};

RunnerJob& RunnerJob::operator=(RunnerJob&& other) noexcept
{
    if (this != &other) {
        Cancel();
        m_pState = std::move(other.m_pState);
    }
    return *this;
}

void RunnerJob::Cancel()
{
    if (m_pState)
        m_pState->stop.request_stop();
}

std::size_t RunnerJob::DoneGet() const { return m_pState ? m_pState->nDone.load() : 0; }
std::size_t RunnerJob::CountGet() const { return m_pState ? m_pState->nTasks : 0; }

bool RunnerJob::IsRunning() const
{
    return m_pState && !m_pState->stop.stop_requested() && m_pState->nPosted < m_pState->nTasks;
}

/// Previous answers by engine and request; the oldest are dropped when there is no space.
class Runner::Cache {
public:
    explicit Cache(std::size_t nBytesMax) : m_nBytesMax(nBytesMax) {}

    [[nodiscard]] std::size_t BytesGet() const
    {
        const std::lock_guard lock(m_mutex);
        return m_nBytes;
    }

    /// The answer from the cache or, if it has none, from the engine.
    static PredictionPtr Answer(Cache& cache, const Engine& engine, const Request& request,
                                const std::stop_token& stop)
    {
        const std::string sKey = engine.IdentityGet() + '\0' + RequestKey(request);
        if (PredictionPtr pKnown = cache.Find(sKey)) {
            if (pKnown->table.request == request)
                return pKnown;
            auto pAnswer = std::make_shared<Prediction>(*pKnown);
            pAnswer->table.request =
                request;  // the same numbers, but the sunspot number's source may differ
            return pAnswer;
        }
        auto pAnswer = std::make_shared<const Prediction>(engine.Predict(request, stop));
        if (pAnswer->bOk && pAnswer->aFailures.empty())
            cache.Keep(sKey, pAnswer);
        return pAnswer;
    }

private:
    [[nodiscard]] PredictionPtr Find(const std::string& sKey) const
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_mapEntries.find(sKey);
        return it == m_mapEntries.end() ? nullptr : it->second->pPrediction;
    }
    void Keep(const std::string& sKey, const PredictionPtr& pPrediction)
    {
        const std::size_t nBytes = TableBytesGet(pPrediction->table) + sKey.size();
        const std::lock_guard lock(m_mutex);
        if (nBytes > m_nBytesMax || m_mapEntries.contains(sKey))
            return;
        m_aEntries.push_back({sKey, pPrediction, nBytes});
        m_mapEntries[sKey] = std::prev(m_aEntries.end());
        m_nBytes += nBytes;
        while (m_nBytes > m_nBytesMax) {
            m_nBytes -= m_aEntries.front().nBytes;
            m_mapEntries.erase(m_aEntries.front().sKey);
            m_aEntries.pop_front();
        }
    }

    struct Entry {
        std::string sKey;
        PredictionPtr pPrediction;
        std::size_t nBytes;
    };
    mutable std::mutex m_mutex;
    std::size_t m_nBytesMax;
    std::size_t m_nBytes = 0;
    std::list<Entry> m_aEntries;
    std::unordered_map<std::string, std::list<Entry>::iterator> m_mapEntries;
};

namespace {

Runner::ThreadFn& ThreadFnGet()
{
    static Runner::ThreadFn fnStart;
    return fnStart;
}

}  // namespace

Runner::ThreadFn Runner::ThreadSetHandler(ThreadFn fnStart)
{
    return std::exchange(ThreadFnGet(), std::move(fnStart));
}

/// The workers and the jobs that wait for them.
class Runner::Pool {
public:
    using StatePtr = std::shared_ptr<RunnerJob::State>;

    Pool(PostFn fnPost, int nWorkers) : m_fnPost(std::move(fnPost))
    {
        if (nWorkers <= 0)
            nWorkers = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
        m_aWorkers.reserve(static_cast<std::size_t>(nWorkers));
        for (int i = 0; i < nWorkers && WorkerAdd(); ++i) {
        }
    }
    ~Pool()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_bEnd = true;
            for (const auto& pJob : m_apJobs) pJob->stop.request_stop();
        }
        m_wake.notify_all();
        for (std::thread& worker : m_aWorkers) worker.join();
    }
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

    void Add(const StatePtr& pJob)
    {
        if (pJob->nTasks == 0) {
            EndPost(pJob);
            return;
        }
        {
            const std::lock_guard lock(m_mutex);
            if (!m_aWorkers.empty() || WorkerAdd()) {
                m_apJobs.push_back(pJob);
                m_wake.notify_all();
                return;
            }
        }
        // No thread can be started at all: the caller's own does the work.
        for (std::size_t i = 0; i < pJob->nTasks; ++i) TaskRun(pJob, i);
    }
    [[nodiscard]] int WorkersGet() const
    {
        const std::lock_guard lock(m_mutex);
        return static_cast<int>(m_aWorkers.size());
    }

private:
    /// Adds a worker. @return false if the system has no thread for it.
    bool WorkerAdd()
    {
        try {
            const auto fnWork = [this] { Work(); };
            const ThreadFn& fnStart = ThreadFnGet();
            m_aWorkers.push_back(fnStart ? fnStart(fnWork) : std::thread(fnWork));
        } catch (const std::system_error&) {
            return false;
        }
        return true;
    }
    /// Removes finished jobs from the queue. Destroying them may call anything, also the runner, so
    /// the caller does it without the lock. REQUIRES: m_mutex.
    std::vector<StatePtr> JobsOverTake()
    {
        const auto itOver =
            std::stable_partition(m_apJobs.begin(), m_apJobs.end(), [](const StatePtr& pJob) {
                return pJob->nRunning > 0
                       || (pJob->nNext < pJob->nTasks && !pJob->stop.stop_requested());
            });
        std::vector<StatePtr> apOver(std::make_move_iterator(itOver),
                                     std::make_move_iterator(m_apJobs.end()));
        m_apJobs.erase(itOver, m_apJobs.end());
        return apOver;
    }
    /// A job that may run another task now; nullptr when all must wait. REQUIRES: m_mutex.
    StatePtr JobNext()
    {
        for (const StatePtr& pJob : m_apJobs) {
            if (pJob->nNext == pJob->nTasks || pJob->stop.stop_requested())
                continue;
            std::size_t nRunning = 0;
            for (const StatePtr& pOther : m_apJobs)
                if (pOther == pJob
                    || (pJob->pEngine != nullptr && pOther->pEngine == pJob->pEngine))
                    nRunning += pOther->nRunning;
            if (nRunning < pJob->nAtOnce)
                return pJob;
        }
        return nullptr;
    }
    void Work()
    {
        std::unique_lock lock(m_mutex);
        for (;;) {
            if (std::vector<StatePtr> apOver = JobsOverTake(); !apOver.empty()) {
                lock.unlock();
                apOver.clear();
                lock.lock();
                continue;
            }
            StatePtr pJob = m_bEnd ? nullptr : JobNext();
            if (pJob == nullptr) {
                if (m_bEnd)
                    return;
                m_wake.wait(lock);
                continue;
            }
            const std::size_t iTask = pJob->nNext++;
            ++pJob->nRunning;
            lock.unlock();
            TaskRun(pJob, iTask);
            lock.lock();
            --pJob->nRunning;
            m_wake.notify_all();
        }
    }
    void TaskRun(const StatePtr& pJob, std::size_t iTask)
    {
        if (pJob->stop.stop_requested())
            return;
        std::function<void()> fnAnswer = pJob->fnTask(iTask, pJob->stop.get_token());
        if (pJob->stop.stop_requested())
            return;
        ++pJob->nDone;
        m_fnPost([pJob, fnAnswer = std::move(fnAnswer)] {
            if (!pJob->stop.stop_requested() && fnAnswer)
                fnAnswer();
        });
        if (++pJob->nPosted == pJob->nTasks)
            EndPost(pJob);
    }
    void EndPost(const StatePtr& pJob)
    {
        m_fnPost([pJob] {
            if (!pJob->stop.stop_requested() && pJob->fnEnd)
                pJob->fnEnd();
        });
    }

    PostFn m_fnPost;
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<StatePtr> m_apJobs;
    bool m_bEnd = false;
    std::vector<std::thread> m_aWorkers;
};

Runner::Runner(PostFn fnPost, int nWorkers, std::size_t nCacheBytes)
    : m_pCache(std::make_shared<Cache>(nCacheBytes)),
      m_pPool(std::make_unique<Pool>(std::move(fnPost), nWorkers))
{
}

Runner::~Runner() = default;

RunnerJob Runner::Start(std::shared_ptr<const Engine> pEngine, std::vector<Request> aRequests,
                        AnswerFn fnAnswer, EndFn fnEnd)
{
    auto pJob = std::make_shared<RunnerJob::State>();
    pJob->nTasks = aRequests.size();
    pJob->nAtOnce = static_cast<std::size_t>(std::max(1, pEngine->LimitsGet().nAtOnce));
    pJob->pEngine = pEngine.get();
    pJob->fnEnd = std::move(fnEnd);
    pJob->fnTask = [pCache = m_pCache, pEngine = std::move(pEngine),
                    aRequests = std::move(aRequests), fnAnswer = std::move(fnAnswer)](
                       std::size_t iTask, const std::stop_token& stop) {
        const PredictionPtr pPrediction = Cache::Answer(*pCache, *pEngine, aRequests[iTask], stop);
        return [iTask, pPrediction, fnAnswer] { fnAnswer(iTask, pPrediction); };
    };
    m_pPool->Add(pJob);
    return RunnerJob(pJob);
}

RunnerJob Runner::Start(std::size_t nTasks, int nAtOnce, TaskFn fnTask, EndFn fnEnd)
{
    auto pJob = std::make_shared<RunnerJob::State>();
    pJob->nTasks = nTasks;
    pJob->nAtOnce = static_cast<std::size_t>(std::max(1, nAtOnce));
    pJob->fnTask = std::move(fnTask);
    pJob->fnEnd = std::move(fnEnd);
    m_pPool->Add(pJob);
    return RunnerJob(pJob);
}

int Runner::WorkersGet() const { return m_pPool->WorkersGet(); }
std::size_t Runner::CacheBytesGet() const { return m_pCache->BytesGet(); }
