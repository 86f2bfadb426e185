/// @file Engine.h
/// A prediction engine as an object: it answers a Request.
///
/// Errors:  returned in the answer, never shown in a message box.
/// Threads: all procedures may be called from several threads at once. If runs need a shared
///          folder, the engine itself lets them take turns.
/// Tests:   tests/propagation/RunnerTest.cpp, tests/propagation/ProcessEngineTest.cpp
#pragma once

#include <memory>
#include <optional>
#include <stop_token>
#include <string>

#include "propagation/AreaDay.h"
#include "propagation/Prediction.h"

struct EngineLimits {
    int nFrequencies = 10;  ///< frequencies per run
    int nAtOnce = 1;        ///< useful number of runs at the same time
};

class Engine {
public:
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    virtual ~Engine() = default;

    [[nodiscard]] virtual int ModelGet() const = 0;            ///< EngineModel
    [[nodiscard]] virtual std::string NameGet() const = 0;     ///< "REC533"
    [[nodiscard]] virtual std::string VersionGet() const = 0;  ///< empty if it reports none
    /// Changes when the engine's answers may change; for the key of a cache.
    [[nodiscard]] virtual std::string IdentityGet() const
    {
        return NameGet() + '\0' + VersionGet();
    }
    [[nodiscard]] virtual EngineLimits LimitsGet() const = 0;
    /// Nothing if the engine can run; else why it cannot (FailureKind::NotInstalled).
    [[nodiscard]] virtual std::optional<Failure> ObstacleGet() const = 0;

    /// Answers the request. @param stop  ends the run early with FailureKind::Cancelled.
    [[nodiscard]] virtual Prediction Predict(const Request& request,
                                             const std::stop_token& stop) const = 0;
    [[nodiscard]] virtual AreaPrediction PredictArea(const AreaRequest& request,
                                                     const std::stop_token& stop) const = 0;
    /// Prepares an area's day: the numbers are those of PredictArea, hour by hour and frequency by
    /// frequency. The engine must outlive the work.
    /// @param failure  gets the reason when nullptr is returned
    [[nodiscard]] virtual std::unique_ptr<AreaDayWork> AreaDayPrepare(
        const AreaDayRequest& request, std::optional<Failure>& failure) const;
};
