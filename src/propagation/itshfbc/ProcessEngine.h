/// @file ProcessEngine.h
/// An engine of the ITS package, or the launcher that replaces it, as an Engine: a program, decks
/// and outputs.
///
/// Tests:   tests/propagation/ProcessEngineTest.cpp
#pragma once

#include "propagation/Engine.h"

class ProcessEngine final : public Engine {
public:
    /// @param iModel  EngineModel; any other number is an engine that is never installed
    explicit ProcessEngine(int iModel);

    [[nodiscard]] int ModelGet() const override { return m_iModel; }
    [[nodiscard]] std::string NameGet() const override;
    [[nodiscard]] std::string VersionGet() const override { return {}; }
    /// The name with path, size and time of the program's file and of the root's antenna files:
    /// another program of that name, or the same with other antennas, is another engine.
    [[nodiscard]] std::string IdentityGet() const override;
    /// Hopcast's launcher for VOACAP, which reads only deck and antennas from its root, runs in
    /// separate folders, as many at once as there are cores. Any other engine takes turns in the
    /// root.
    [[nodiscard]] EngineLimits LimitsGet() const override;
    [[nodiscard]] std::optional<Failure> ObstacleGet() const override;
    [[nodiscard]] Prediction Predict(const Request& request,
                                     const std::stop_token& stop) const override;
    [[nodiscard]] AreaPrediction PredictArea(const AreaRequest& request,
                                             const std::stop_token& stop) const override;

private:
    [[nodiscard]] bool RunsInOwnFolder() const;

    int m_iModel;
};
