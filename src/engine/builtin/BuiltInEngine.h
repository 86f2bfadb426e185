/// @file BuiltInEngine.h
/// Hopcast's own REC533 engine in this process. It goes through the decks and rounds as their
/// outputs do, so that its values are those of rec533w.exe to the last printed digit; both share
/// the code. The deciles, which the page does not print, are not rounded.
///
/// Errors:  as in the program: a deck that cannot be used is FailureKind::BadInput.
/// Threads: any number of calls at once.
/// Tests:   tests/engine/builtin/BuiltInEngineTest.cpp
#pragma once

#include <memory>
#include <string>

#include "propagation/Engine.h"

class BuiltInEngine final : public Engine {
public:
    /// @param sRoot  host path of the engine root, whose antenna files are read if it has any
    explicit BuiltInEngine(std::string sRoot);
    ~BuiltInEngine() override;

    [[nodiscard]] int ModelGet() const override { return kEngineRec533; }
    [[nodiscard]] std::string NameGet() const override { return "REC533"; }
    [[nodiscard]] std::string VersionGet() const override;
    /// With the root's antenna files.
    [[nodiscard]] std::string IdentityGet() const override;
    [[nodiscard]] EngineLimits LimitsGet() const override;
    [[nodiscard]] std::optional<Failure> ObstacleGet() const override { return {}; }
    [[nodiscard]] Prediction Predict(const Request& request,
                                     const std::stop_token& stop) const override;
    [[nodiscard]] AreaPrediction PredictArea(const AreaRequest& request,
                                             const std::stop_token& stop) const override;
    /// A piece is a row of the grid.
    [[nodiscard]] std::unique_ptr<AreaDayWork> AreaDayPrepare(
        const AreaDayRequest& request, std::optional<Failure>& failure) const override;

private:
    class Shared;
    std::string m_sRoot;
    std::unique_ptr<Shared> m_pShared;
};
