/// @file Runner.h
/// Many predictions at once: a few worker threads, progress, cancel, and a cache of answers.
///
/// Units:   bytes, if a procedure says so.
/// Errors:  an engine's failure is part of its answer; nothing else fails. If the system has no
///          thread for a worker there are fewer workers, and if it has none at all Start does the
///          work itself.
/// Threads: every procedure may be called from any thread. The caller's answer and end functions
///          are called on the thread that its PostFn leads to.
/// Tests:   tests/propagation/RunnerTest.cpp
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <stop_token>
#include <thread>
#include <vector>

#include "propagation/Engine.h"

/// A running job. Destroying the handle cancels it.
class RunnerJob {
public:
    struct State;
    RunnerJob() = default;
    explicit RunnerJob(std::shared_ptr<State> pState) : m_pState(std::move(pState)) {}
    RunnerJob(RunnerJob&&) noexcept = default;
    RunnerJob& operator=(RunnerJob&& other) noexcept;
    RunnerJob(const RunnerJob&) = delete;
    RunnerJob& operator=(const RunnerJob&) = delete;
    ~RunnerJob() { Cancel(); }

    /// Cancels the job. If called on the thread that answers are posted to, no answer comes after
    /// it has returned. Earlier answers stay valid.
    void Cancel();
    /// Tasks answered so far, and all of them. 0 of 0 for an empty handle.
    [[nodiscard]] std::size_t DoneGet() const;
    [[nodiscard]] std::size_t CountGet() const;
    /// False once every answer has been posted or the work was cancelled.
    [[nodiscard]] bool IsRunning() const;

private:
    std::shared_ptr<State> m_pState;
};

class Runner {
public:
    /// Passes a call on to the thread that wants the answers. Calls must be run in their order.
    using PostFn = std::function<void(std::function<void()>)>;
    using PredictionPtr = std::shared_ptr<const Prediction>;
    /// @param iRequest  index into the requests
    using AnswerFn = std::function<void(std::size_t iRequest, const PredictionPtr& pPrediction)>;
    using EndFn = std::function<void()>;
    /// One piece of a job, called by a worker. @return the call to post when it is done.
    using TaskFn = std::function<std::function<void()>(std::size_t iTask, const std::stop_token&)>;

    static constexpr std::size_t kCacheBytes = std::size_t{64} << 20;

    /// @param nWorkers  0: one per core
    explicit Runner(PostFn fnPost, int nWorkers = 0, std::size_t nCacheBytes = kCacheBytes);
    /// Cancels everything and waits for the workers.
    ~Runner();
    Runner(const Runner&) = delete;
    Runner& operator=(const Runner&) = delete;

    /// Requests several predictions from an engine. Each answer is posted as it comes, cached ones
    /// at once; fnEnd is posted after the last one, but not after a cancel.
    [[nodiscard]] RunnerJob Start(std::shared_ptr<const Engine> pEngine,
                                  std::vector<Request> aRequests, AnswerFn fnAnswer,
                                  EndFn fnEnd = {});
    /// Any work in nTasks pieces, of which nAtOnce may run at the same time.
    [[nodiscard]] RunnerJob Start(std::size_t nTasks, int nAtOnce, TaskFn fnTask, EndFn fnEnd = {});

    [[nodiscard]] int WorkersGet() const;

    /// For tests: starts a worker's thread in place of std::thread; an empty function restores
    /// that.
    using ThreadFn = std::function<std::thread(std::function<void()>)>;
    static ThreadFn ThreadSetHandler(ThreadFn fnStart);
    /// Approximate memory of the cached answers, bytes.
    [[nodiscard]] std::size_t CacheBytesGet() const;

private:
    class Pool;
    class Cache;
    std::shared_ptr<Cache> m_pCache;
    std::unique_ptr<Pool> m_pPool;
};
