// What the map window costs at a map of 1200 x 700 pixels: repaints, outlines, cells, tooltips, and
// the whole way from choosing the overlay to its picture, with the built-in engine.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "BenchRoot.h"
#include "propagation/SnrScale.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "ui/map/MapOverlay.h"
#include "ui/map/MapPaint.h"
#include "ui/map/MapSmooth.h"
#include "ui/map/frmMap.h"

namespace {

constexpr double kRepaintLimit = 25'000.0;  // microseconds
constexpr double kOutlineLimit = 20'000.0;
constexpr double kCellsLimit = 10'000.0;
constexpr double kSmoothLimit = 20'000.0;
constexpr double kOverlayLimit = 250'000.0;
constexpr double kTipLimit = 200.0;
constexpr int kMapWidth = 1200;
constexpr int kMapHeight = 700;

/// The main window as far as the map needs it.
class HostBench final : public MainWindowHost {
public:
    HostBench() { m_settings.m_selected = {7, 19}; }
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

/// A window whose map has the wanted size.
frmMap& MapGet()
{
    static HostBench host;
    static frmMap* pMap = nullptr;
    if (pMap == nullptr) {
        pMap = new frmMap(host);
        pMap->show();
        pMap->resize(pMap->width() + kMapWidth - pMap->m_view.m_nMapWidth,
                     pMap->height() + kMapHeight - pMap->m_view.m_nMapHeight);
        QCoreApplication::processEvents();
    }
    return *pMap;
}

void OverlaySet(benchmark::State& state, bool bShown)
{
    if (MapGet().mnuOverlayDraw->isChecked() != bShown)
        MapGet().mnuOverlayDraw->trigger();
    if (MapGet().mnuOverlayDraw->isChecked() != bShown)
        state.SkipWithError("overlay not switched");
}

void RepaintBench(benchmark::State& state, const LatLon& center, double dSpan)
{
    frmMap& frm = MapGet();
    OverlaySet(state, false);
    const double dScale = dSpan * kImgWidth / 360 / kMapWidth;
    for (auto _ : state) {
        state.PauseTiming();
        frm.m_view.ZoomSet({dScale, center.dLat, center.dLon});
        state.ResumeTiming();
        frm.Update();
    }
    state.counters["limit_us"] = kRepaintLimit;
}

void OutlineBench(benchmark::State& state)
{
    frmMap& frm = MapGet();
    OverlaySet(state, false);
    frm.cmdZoomOff->click();
    for (auto _ : state) {
        state.PauseTiming();
        QImage img = frm.pctMap->m_img.copy();
        state.ResumeTiming();
        ImageOutline(img);
    }
    state.counters["limit_us"] = kOutlineLimit;
}

using CellsFn = void (*)(QImage&, const MapView&, const CellPaint&, std::span<const AreaPoint>);

void CellsTime(benchmark::State& state, CellsFn fnPaint, double dLimit)
{
    constexpr int kSide = 40;
    frmMap& frm = MapGet();
    frm.m_view.ZoomSet(frm.m_view.BoxGetZoom({60, 100, 10, 179}));
    const AreaBox box = OverlayGetBoxes(frm.m_view.m_box).at(0);
    std::vector<AreaPoint> aPoints;
    for (int iLat = 0; iLat < kSide; ++iLat)
        for (int iLon = 0; iLon < kSide; ++iLon)
            aPoints.push_back({box.dBottom + (box.dTop - box.dBottom) * iLat / (kSide - 1),
                               box.dLeft + (box.dRight - box.dLeft) * iLon / (kSide - 1),
                               static_cast<float>(20 + (iLat + iLon) % 60)});
    QImage img = frm.pctMap->m_img.copy();
    for (auto _ : state) fnPaint(img, frm.m_view, {box, box, kSide, 20.0F, SnrGetColor}, aPoints);
    state.counters["limit_us"] = dLimit;
}

void CellsBench(benchmark::State& state) { CellsTime(state, CellsPaint, kCellsLimit); }

void SmoothBench(benchmark::State& state) { CellsTime(state, SmoothPaint, kSmoothLimit); }

void OverlayBench(benchmark::State& state)
{
    frmMap& frm = MapGet();
    for (auto _ : state) {
        OverlaySet(state, false);
        frm.cmdZoomOff->click();
        const auto tmStart = std::chrono::steady_clock::now();
        OverlaySet(state, true);
        benchmark::DoNotOptimize(frm.pctMap->grab());
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - tmStart).count());
        if (!frm.windowTitle().startsWith(QStringLiteral("Snr Overlay")))
            state.SkipWithError("no overlay");
    }
    state.counters["limit_us"] = kOverlayLimit;
}

void TipBench(benchmark::State& state)
{
    frmMap& frm = MapGet();
    OverlaySet(state, true);
    int nX = 0;
    for (auto _ : state) {
        nX = (nX + 7) % kMapWidth;
        QMouseEvent evt(QEvent::MouseMove, QPointF(nX, 300), QPointF(nX, 300), Qt::NoButton,
                        Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(frm.pctMap, &evt);
    }
    if (!frm.pctMap->toolTip().contains(QStringLiteral("Snr")))
        state.SkipWithError("no SNR");
    state.counters["limit_us"] = kTipLimit;
}

BENCHMARK_CAPTURE(RepaintBench, world, LatLon{0, 180}, 600.0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintBench, half, LatLon{30, 90}, 180.0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintBench, europe, LatLon{52, 27}, 50.0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintBench, canada, LatLon{68, 270}, 60.0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintBench, norway, LatLon{62, 7}, 5.0)->Unit(benchmark::kMicrosecond);
BENCHMARK(OutlineBench)->Unit(benchmark::kMicrosecond);
BENCHMARK(CellsBench)->Unit(benchmark::kMicrosecond);
BENCHMARK(SmoothBench)->Unit(benchmark::kMicrosecond);
BENCHMARK(OverlayBench)->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(TipBench)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int nArguments, char** asArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(nArguments, asArguments);
    benchmark::Initialize(&nArguments, asArguments);
    MsgSetHandler(
        [](MsgIcon, const std::string& sText) { std::fprintf(stderr, "%s\n", sText.c_str()); });
    const BenchRoot root(BENCH_ENGINE);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
