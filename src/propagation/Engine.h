/// @file Engine.h
/// A prediction engine as an object: something that answers a Request.
///
/// Errors:  told in the answer, never by a message box.
/// Threads: all procedures may be called from several threads at once. Where a run needs a folder
///          that others share, the engine itself takes turns.
/// Tests:   tests/propagation/RunnerTest.cpp, tests/propagation/ProcessEngineTest.cpp
#pragma once

#include <memory>
#include <optional>
#include <stop_token>
#include <string>

#include "propagation/AreaDay.h"
#include "propagation/Prediction.h"

struct EngineLimits {
    int nFrequencies = 10;  ///< frequencies a run
    int nAtOnce = 1;        ///< runs that make sense at the same time
};

class Engine {
public:
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    virtual ~Engine() = default;

    [[nodiscard]] virtual int ModelGet() const = 0;            ///< EngineModel
    [[nodiscard]] virtual std::string NameGet() const = 0;     ///< "REC533"
    [[nodiscard]] virtual std::string VersionGet() const = 0;  ///< empty where it tells none
    /// The same text as long as the engine answers a request alike; for the key of a cache.
    [[nodiscard]] virtual std::string IdentityGet() const
    {
        return NameGet() + '\0' + VersionGet();
    }
    [[nodiscard]] virtual EngineLimits LimitsGet() const = 0;
    /// Nothing when the engine can run; else why it cannot (FailureKind::NotInstalled).
    [[nodiscard]] virtual std::optional<Failure> ObstacleGet() const = 0;

    /// Answers the request. @param stop  ends the run early with FailureKind::Cancelled.
    [[nodiscard]] virtual Prediction Predict(const Request& request,
                                             const std::stop_token& stop) const = 0;
    [[nodiscard]] virtual AreaPrediction PredictArea(const AreaRequest& request,
                                                     const std::stop_token& stop) const = 0;
    /// Prepares an area's day: the numbers are those of PredictArea, hour by hour and frequency by
    /// frequency. The engine must outlive the work.
    /// @param failure  gets why there is none
    [[nodiscard]] virtual std::unique_ptr<AreaDayWork> AreaDayPrepare(
        const AreaDayRequest& request, std::optional<Failure>& failure) const;
};
