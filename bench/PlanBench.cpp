/// The planning windows: from the key to the first and to the last row of a search for stations,
/// and from the key until another window shows all its answers.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>
#include <fstream>
#include <string>

#include "BenchRoot.h"
#include "engine/builtin/BuiltInEngine.h"
#include "places/OwnPlaces.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "ui/compare/frmCompare.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/frmDays.h"
#include "ui/main/frmMain.h"
#include "ui/places/frmPlaces.h"
#include "ui/reach/frmReach.h"

namespace {

/// Stations with a square each, spread over the world.
std::string StationsMake(int nStations)
{
    std::string sText = "[Station Info]\n";
    for (int n = 0; n < nStations; ++n) {
        const int nAt = n * 97;
        sText += "S" + std::to_string(n) + "=";
        sText += static_cast<char>('A' + nAt % 18);
        sText += static_cast<char>('B' + nAt / 18 % 16);
        sText += static_cast<char>('0' + nAt / 324 % 10);
        sText += static_cast<char>('0' + nAt / 3240 % 10);
        sText += ":Station\n";
    }
    return sText;
}

/// A main window with a list of so many stations and 15 frequencies.
class World {
    const BenchRoot m_root{BENCH_ENGINE};
    const QTemporaryDir m_dir;

public:
    explicit World(int nStations)
    {
        qputenv("WINEPREFIX", m_dir.filePath(QStringLiteral("wine")).toLocal8Bit());
        const std::string sProfile = m_dir.filePath(QStringLiteral("hopcast.ini")).toStdString();
        std::ofstream(m_dir.filePath(QStringLiteral("System.HAM.ini")).toStdString())
            << StationsMake(nStations);
        std::ofstream(sProfile) << "[AirMail Data]\nDirectory Data=" << m_dir.path().toStdString()
                                << "\n[Propagation Model]\nSunSpot Option=False\nSunSpot "
                                   "Number=100\n";
        m_frm.EnginesSet(
            [](int) { return std::make_shared<BuiltInEngine>(EngineRootGet().sFolder); });
        m_frm.m_settings.m_sProfileFile = sProfile;
        m_frm.show();
        while (!m_frm.ActivatedIs()) QApplication::processEvents();
    }
    /// @param bAll  until the last row, else until the first
    void Search(bool bAll)
    {
        m_frm.mnuPlanReach->trigger();
        const frmReach& frm = *m_frm.m_pReach;
        while (bAll ? frm.RunningIs() : frm.ReachGet()->DoneGet() == 0)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        frm.grdReach->repaint();
    }
    void Close()
    {
        m_frm.m_pReach->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Fills My Places with so many rows.
    void PlacesPut(int nPlaces)
    {
        std::ofstream file(OwnPlacesPath(m_frm.m_settings.m_sProfileFile));
        file << kOwnPlacesHead << '\n';
        for (int n = 0; n < nPlaces; ++n)
            file << "Place " << n << ',' << n % 90 << "N " << n % 180 << "E,7060 14300,\n";
    }
    frmMain m_frm;
};

void Search(benchmark::State& state, int nStations, bool bAll, double dLimit)
{
    state.counters["limit_us"] = dLimit;
    World world(nStations);
    for (auto _ : state) {
        world.Search(bAll);
        state.PauseTiming();
        world.Close();
        state.ResumeTiming();
    }
}

void ReachFirstRow(benchmark::State& state) { Search(state, 84, false, 100000); }
void ReachAllRows(benchmark::State& state) { Search(state, 84, true, 150000); }
void ReachFiveThousand(benchmark::State& state) { Search(state, 5000, true, 5000000); }

/// From a menu until the window that it opens has its answers and is painted.
template <typename Window>
void WindowShow(benchmark::State& state, double dLimit, QAction* mnuWindow,
                const QPointer<Window>& pWindow)
{
    state.counters["limit_us"] = dLimit;
    for (auto _ : state) {
        mnuWindow->trigger();
        if constexpr (requires { pWindow->RunningIs(); })
            while (pWindow->RunningIs()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QApplication::processEvents();
        pWindow->repaint();
        state.PauseTiming();
        if (!pWindow->isVisible())
            state.SkipWithError("no window");
        pWindow->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}

void DaysWindow(benchmark::State& state)
{
    World world(0);
    WindowShow(state, 100000, world.m_frm.mnuPlanDays, world.m_frm.m_pDays);
}
void CompareWindow(benchmark::State& state)
{
    World world(0);
    WindowShow(state, 100000, world.m_frm.mnuPlanCompare, world.m_frm.m_pCompare);
}
void CurvesWindow(benchmark::State& state)
{
    World world(0);
    WindowShow(state, 50000, world.m_frm.mnuPlanCurves, world.m_frm.m_pCurves);
}
void PlacesWindow(benchmark::State& state)
{
    World world(0);
    world.PlacesPut(1000);
    WindowShow(state, 50000, world.m_frm.mnuPlanPlaces, world.m_frm.m_pPlaces);
}
BENCHMARK(ReachFirstRow)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(ReachAllRows)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(ReachFiveThousand)->UseRealTime()->Unit(benchmark::kMicrosecond)->Iterations(1);
BENCHMARK(DaysWindow)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(CompareWindow)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(CurvesWindow)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(PlacesWindow)->UseRealTime()->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int nArguments, char** apArgument)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(nArguments, apArgument);
    benchmark::Initialize(&nArguments, apArgument);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
