// The built-in engine without its process: 24 hours of a path, and an area of 40 x 40 points.

#include <benchmark/benchmark.h>

#include <memory>

#include "engine/rec533/Prediction.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

constexpr int kMonth = 11;
constexpr double kSsn = 170.0;

// Argument: the receiver's longitude at 24 N; the transmitter stands at 38 N 122 W.
void PointToPoint(benchmark::State& state)
{
    const auto pIono = std::make_unique<Ionosphere>();
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    Circuit tbl;
    tbl.dTxLat = 38.0;
    tbl.dTxLon = -122.0;
    tbl.dRxLat = 24.0;
    tbl.dRxLon = static_cast<double>(state.range(0));
    for (auto _ : state) {
        IonosphereFill(*pIono, Behaviour::Best, MapSet::Ursi, kMonth, kSsn);
        PathFill(*pPath, *pIono, tbl);
        for (int nLabel = 1; nLabel <= 24; ++nLabel) {
            HourFill(*pHour, *pPath, nLabel);
            for (int n = 0; n < 10; ++n) {
                Prediction tblPrediction;
                PredictionFill(tblPrediction, *pHour, 2.0 + 2.0 * n);
                benchmark::DoNotOptimize(tblPrediction.dField);
            }
        }
    }
}
BENCHMARK(PointToPoint)
    ->Arg(-110)
    ->Arg(-40)
    ->Arg(30)
    ->ArgName("lon")
    ->Unit(benchmark::kMillisecond);

// Argument: half the width of the area in degrees of longitude around 24 N 110 W.
void Area(benchmark::State& state)
{
    constexpr int kGrid = 40;
    const auto pIono = std::make_unique<Ionosphere>();
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    const double dHalf = static_cast<double>(state.range(0));
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Ursi, kMonth, kSsn);
    Circuit tbl;
    tbl.dTxLat = 24.0;
    tbl.dTxLon = -110.0;
    for (auto _ : state) {
        for (int i = 0; i < kGrid * kGrid; ++i) {
            tbl.dRxLat = -60.0 + 130.0 * (i / kGrid) / (kGrid - 1);
            tbl.dRxLon =
                std::remainder(-110.0 + dHalf * (2.0 * (i % kGrid) / (kGrid - 1) - 1.0), 360.0);
            PathFill(*pPath, *pIono, tbl);
            HourFill(*pHour, *pPath, 12);
            Prediction tblPrediction;
            PredictionFill(tblPrediction, *pHour, 14.0);
            benchmark::DoNotOptimize(tblPrediction.dField);
        }
    }
    state.SetItemsProcessed(state.iterations() * kGrid * kGrid);
}
BENCHMARK(Area)->Arg(30)->Arg(180)->ArgName("half_width")->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
