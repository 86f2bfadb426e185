// What the map's day costs in the window, at a map of 1200 x 700 pixels, 40 x 40 points and 15
// frequencies on the built-in engine: the first picture, the whole day, then any hour, frequency or
// layer.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <chrono>
#include <memory>
#include <string>

#include "BenchRoot.h"
#include "engine/builtin/BuiltInEngine.h"
#include "propagation/SnrScale.h"
#include "ui/map/HourBar.h"
#include "ui/map/frmMap.h"

namespace {

constexpr double kFirstLimit = 150'000.0;  // microseconds
constexpr double kRegionLimit = 500'000.0;
constexpr double kWorldLimit = 900'000.0;
constexpr double kStepLimit = 20'000.0;
constexpr int kMapWidth = 1200;
constexpr int kMapHeight = 700;
constexpr MapBox kWorld{80, 0, -80, 360};
constexpr MapBox kRegion{60, 250, 10, 320};

/// The main window as far as the map needs it.
class HostBench final : public MainWindowHost {
public:
    HostBench()
    {
        m_settings.m_selected = {7, 19};
        m_settings.m_iMapOverlayGridSize = 40;
        m_settings.m_fPropagationSunSpotNumber = 100;
        m_settings.m_dRcLat = 38;
        m_settings.m_dRcLon = -122;
        m_settings.m_nData = 15;
        for (int i = 1; i <= 15; ++i) m_settings.FrequencySet(i, 2000.0F * static_cast<float>(i));
    }
    Settings& SettingsGet() override { return m_settings; }
    void Initialize() override {}
    bool Update() override { return true; }
    void DataSetSelected(int iRow, int iColumn) override
    {
        m_settings.m_selected = {iRow, iColumn};
    }
    [[nodiscard]] SelectedCell DataGetSelected() const override { return m_settings.m_selected; }
    [[nodiscard]] std::uint32_t SnrGetColor(float fSnr) const override
    {
        return ::SnrGetColor(fSnr);
    }
    [[nodiscard]] float FrequencyGet(int iIndex) const override
    {
        return m_settings.FrequencyGet(iIndex);
    }
    void FrequencySet(int iIndex, float fKhz) override { m_settings.FrequencySet(iIndex, fKhz); }
    [[nodiscard]] Request TableInputGet() const override { return RequestFromSettings(m_settings); }
    [[nodiscard]] bool TakenIs() const override { return false; }
    void OverlayFailedSet(const std::optional<Failure>& /*failure*/) override {}

private:
    Settings m_settings;
};

class Window {
public:
    Window()
        : m_pEngine(std::make_shared<BuiltInEngine>(std::string())),
          m_map(m_host, [this](int) { return m_pEngine; })
    {
        m_map.setAttribute(Qt::WA_DeleteOnClose, false);
        m_map.show();
        m_map.resize(m_map.width() + kMapWidth - m_map.m_view.m_nMapWidth,
                     m_map.height() + kMapHeight - m_map.m_view.m_nMapHeight);
        QCoreApplication::processEvents();
    }
    void Layer(int iLayer)
    {
        m_map.findChild<QAction*>(QStringLiteral("mnuOverlayLayer%1").arg(iLayer))->trigger();
    }
    void HourSet(int iHour) { m_map.barHour->hscHour->setValue(iHour); }
    void FrequencySet(int iFrequency) { m_map.barHour->cmbFrequency->setCurrentIndex(iFrequency); }
    [[nodiscard]] MapDayControl& Day() const { return *m_map.findChild<MapDayControl*>(); }
    /// A day that nothing is kept of yet.
    void Begin(const MapBox& box)
    {
        if (m_map.mnuOverlayDraw->isChecked())
            m_map.mnuOverlayDraw->trigger();
        Settings& settings = m_host.SettingsGet();
        settings.m_fPropagationSunSpotNumber += 0.5F;
        m_map.m_view.ZoomSet(m_map.m_view.BoxGetZoom(box));
        Layer(1);
    }
    void Await(bool bWhole)
    {
        while (bWhole ? Day().RunGet().RunningIs() : !Day().HasCells())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        Paint();
    }
    void Paint() { benchmark::DoNotOptimize(m_map.pctMap->grab()); }

private:
    HostBench m_host;
    std::shared_ptr<BuiltInEngine> m_pEngine;
    frmMap m_map;
};

Window& WindowGet()
{
    static auto* pWindow = new Window;  // as long as the program
    return *pWindow;
}

void MapDayBench(benchmark::State& state, const MapBox& box, bool bWhole, double dLimit)
{
    Window& window = WindowGet();
    for (auto _ : state) {
        const auto tmStart = std::chrono::steady_clock::now();
        window.Begin(box);
        window.Await(bWhole);
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - tmStart).count());
        window.Await(true);  // nothing of it is left to the next round
    }
    if (!window.Day().HasCells())
        state.SkipWithError("no picture");
    state.counters["limit_us"] = dLimit;
}

enum class Step { Hour, Frequency, Layer };

void MapStepBench(benchmark::State& state, Step eStep)
{
    Window& window = WindowGet();
    window.Begin(kWorld);
    window.Await(true);
    window.Layer(0);
    int n = 0;
    for (auto _ : state) {
        ++n;
        if (eStep == Step::Hour)
            window.HourSet(n % 24);
        else if (eStep == Step::Frequency)
            window.FrequencySet(n % 15);
        else
            window.Layer(n % kMapDayLayers);
        window.Paint();
        if (!window.Day().HasCells())
            state.SkipWithError("no picture");
    }
    state.counters["limit_us"] = kStepLimit;
}

BENCHMARK_CAPTURE(MapDayBench, world_first, kWorld, false, kFirstLimit)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(MapDayBench, region_whole, kRegion, true, kRegionLimit)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(MapDayBench, world_whole, kWorld, true, kWorldLimit)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(MapStepBench, hour, Step::Hour)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MapStepBench, frequency, Step::Frequency)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MapStepBench, layer, Step::Layer)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int nArguments, char** asArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(nArguments, asArguments);
    benchmark::Initialize(&nArguments, asArguments);
    const BenchRoot root;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
