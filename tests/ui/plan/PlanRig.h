/// @file PlanRig.h
/// The real main window with the built-in engine for its planning windows, and the Airmail lists
/// they use.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <vector>

#include "engine/builtin/BuiltInEngine.h"
#include "places/OwnPlaces.h"
#include "support/TempFolder.h"
#include "ui/reach/frmReach.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

/// An engine that holds each prediction until it is released or stopped.
class HeldEngine final : public Engine {
public:
    explicit HeldEngine(std::shared_ptr<const Engine> pEngine) : m_pEngine(std::move(pEngine)) {}
    [[nodiscard]] int ModelGet() const override { return m_pEngine->ModelGet(); }
    [[nodiscard]] std::string NameGet() const override { return m_pEngine->NameGet(); }
    [[nodiscard]] std::string VersionGet() const override { return m_pEngine->VersionGet(); }
    [[nodiscard]] EngineLimits LimitsGet() const override { return m_pEngine->LimitsGet(); }
    [[nodiscard]] std::optional<Failure> ObstacleGet() const override { return m_obstacle; }
    [[nodiscard]] Prediction Predict(const Request& request,
                                     const std::stop_token& stop) const override
    {
        std::unique_lock lock(m_mutex);
        m_wake.wait(lock, stop, [this] { return m_nLeft > 0; });
        if (!stop.stop_requested())
            --m_nLeft;
        lock.unlock();
        return m_pEngine->Predict(request, stop);
    }
    [[nodiscard]] AreaPrediction PredictArea(const AreaRequest& request,
                                             const std::stop_token& stop) const override
    {
        return m_pEngine->PredictArea(request, stop);
    }
    /// Releases nPredictions predictions.
    void Release(int nPredictions) const
    {
        const std::lock_guard lock(m_mutex);
        m_nLeft += nPredictions;
        m_wake.notify_all();
    }
    std::optional<Failure> m_obstacle;

private:
    std::shared_ptr<const Engine> m_pEngine;
    mutable std::mutex m_mutex;
    mutable std::condition_variable_any m_wake;
    mutable int m_nLeft = 0;
};

/// Returns the built-in engine's predictions, changed, under another engine's number.
class ChangedEngine final : public Engine {
public:
    using ChangeFn = std::function<void(Prediction& prediction)>;
    ChangedEngine(int iModel, std::shared_ptr<const Engine> pEngine, ChangeFn fnChange)
        : m_iModel(iModel), m_pEngine(std::move(pEngine)), m_fnChange(std::move(fnChange))
    {
    }
    [[nodiscard]] int ModelGet() const override { return m_iModel; }
    [[nodiscard]] std::string NameGet() const override
    {
        return "changed " + std::to_string(m_iModel);
    }
    [[nodiscard]] std::string VersionGet() const override { return {}; }
    [[nodiscard]] EngineLimits LimitsGet() const override { return m_pEngine->LimitsGet(); }
    [[nodiscard]] std::optional<Failure> ObstacleGet() const override { return {}; }
    [[nodiscard]] Prediction Predict(const Request& request,
                                     const std::stop_token& stop) const override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_aAsked.push_back(request);
        }
        Prediction prediction = m_pEngine->Predict(request, stop);
        prediction.table.bBuiltIn = false;
        m_fnChange(prediction);
        return prediction;
    }
    [[nodiscard]] AreaPrediction PredictArea(const AreaRequest& request,
                                             const std::stop_token& stop) const override
    {
        return m_pEngine->PredictArea(request, stop);
    }
    [[nodiscard]] std::vector<Request> RequestsGet() const
    {
        const std::lock_guard lock(m_mutex);
        return m_aAsked;
    }

private:
    int m_iModel;
    std::shared_ptr<const Engine> m_pEngine;
    ChangeFn m_fnChange;
    mutable std::mutex m_mutex;
    mutable std::vector<Request> m_aAsked;
};

class PlanRig : public MainRig {
public:
    PlanRig() : MainRig(kEngineRec533)
    {
        m_pEngine = std::make_shared<BuiltInEngine>(m_folder.Path("root"));
        ProfileAdd("[Receiver Data]\nLatitude=15.375\nLongitude=-132.6875\n");
    }
    frmMain& StartWithEngine()
    {
        frmMain& frm = Make();
        frm.EnginesSet([this](int iModel) {
            const auto it = m_aEngine.find(iModel);
            return it != m_aEngine.end() ? it->second : m_pEngine;
        });
        return Start();
    }
    /// Opens the window of stations with its key and waits for its rows.
    frmReach& ReachOpen()
    {
        ReachOpenSoon();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_pFrm->m_pReach->RunningIs(); }, 20000));
        return *m_pFrm->m_pReach;
    }
    frmReach& ReachOpenSoon()
    {
        m_pFrm->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_pFrm.get()));
        QTest::keyClick(m_pFrm.get(), Qt::Key_R, Qt::ControlModifier);
        EXPECT_TRUE(QTest::qWaitFor([this] { return bool(m_pFrm->m_pReach); }));
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_pFrm->m_pReach.data()));
        return *m_pFrm->m_pReach;
    }
    void OwnPlacesWrite(const std::string& sRows)
    {
        m_folder.Write("hopcast.places.csv", std::string(kOwnPlacesHead) + "\n" + sRows);
    }

    /// Presses a key of the Plan menu and waits for its window.
    template <class Window>
    Window& WindowOpen(Qt::Key eKey, const QPointer<Window>& pWindow)
    {
        m_pFrm->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_pFrm.get()));
        QTest::keyClick(m_pFrm.get(), eKey, Qt::ControlModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return bool(pWindow); }));
        EXPECT_TRUE(QTest::qWaitForWindowActive(pWindow.data()));
        return *pWindow;
    }

    std::shared_ptr<const Engine> m_pEngine;  ///< for every model not in m_aEngine
    std::map<int, std::shared_ptr<const Engine>> m_aEngine;
};

inline constexpr const char* kStationsHam =
    "[Station Info]\n"
    "KQ6XA=CM87:San Luis Obispo; 7103.0 10142.5 14105.5\n"
    "VK4YEH=QG62:Brisbane\n"
    "DL0XYZ=JN58:M\xFCnchen\n";
inline constexpr const char* kStationsSail =
    "[Station Info]\n"
    "WHV382=CN88:Friday Harbor; 5881.4, 7971.4/13992.5\n"
    "KQ6XA=DM13:The same name elsewhere\n"
    "BAD1=12:No square\n";
