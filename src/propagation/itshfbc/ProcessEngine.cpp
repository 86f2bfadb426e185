#include "propagation/itshfbc/ProcessEngine.h"

#include <algorithm>
#include <thread>

#include "propagation/PropagationAreaLib.h"
#include "propagation/PropagationLib.h"
#include "system/RunErrorText.h"

ProcessEngine::ProcessEngine(int iModel) : m_iModel(iModel) {}

std::string ProcessEngine::NameGet() const
{
    const EngineProgram* pEngine = EngineFind(m_iModel);
    return pEngine != nullptr ? std::string(pEngine->sName) : std::string();
}

std::string ProcessEngine::IdentityGet() const
{
    const EngineRoot root = EngineRootGet();
    return NameGet() + '\0' + EngineFileStamp(root.Path(EngineProgramPath(m_iModel)))
           + AntennaStamps(root.sFolder);
}

bool ProcessEngine::RunsInOwnFolder() const
{
    return m_iModel == kEngineVoacap
           && EngineIsBuiltIn(std::string(EngineFind(m_iModel)->sProgram));
}

EngineLimits ProcessEngine::LimitsGet() const
{
    const int nCores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    return {kChunkMax, RunsInOwnFolder() ? nCores : 1};
}

std::optional<Failure> ProcessEngine::ObstacleGet() const
{
    Messages aMissing;
    if (EngineFind(m_iModel) != nullptr && EngineCheckInstalled(m_iModel, &aMissing))
        return {};
    return Failure{FailureKind::NotInstalled, aMissing.empty() ? "" : aMissing.front().sText};
}

Prediction ProcessEngine::Predict(const Request& request, const std::stop_token& stop) const
{
    Prediction prediction;
    prediction.sEngine = NameGet();
    prediction.table = PropagationTable(request.nData);
    prediction.bOk =
        PropagationRun(request, prediction.table, prediction.aFailures, {stop, RunsInOwnFolder()});
    if (EngineFind(m_iModel) == nullptr)  // the run reports nothing for an unknown engine
        prediction.aFailures.push_back(*ObstacleGet());
    return prediction;
}

AreaPrediction ProcessEngine::PredictArea(const AreaRequest& request,
                                          const std::stop_token& stop) const
{
    AreaPrediction prediction;
    prediction.request = request;
    prediction.sEngine = NameGet();
    prediction.aFailures = AreaPointsRead(request, prediction.aPoints, {stop, RunsInOwnFolder()});
    prediction.bOk = prediction.aFailures.empty();
    return prediction;
}
