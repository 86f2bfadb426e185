// What Hopcast itself costs around an engine's run: decks, readers, and a run whose engine takes no
// time; the user's own lists and a forecast.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "BenchRoot.h"
#include "places/OwnPlaces.h"
#include "propagation/PropagationAreaLib.h"
#include "propagation/PropagationLib.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "propagation/reader/ReaderLib.h"
#include "settings/ForecastReader.h"
#include "system/FileLib.h"
#include "system/MsgLib.h"
#include "system/ProcessLib.h"

namespace fs = std::filesystem;

namespace {

const std::string kData = BENCH_DATA "/propagation/data/engines/";

constexpr double kDeckLimit = 50.0;      // microseconds
constexpr double kOutputLimit = 1000.0;  // an output of ten frequencies
constexpr double kGridLimit = 2000.0;    // a grid of 40 x 40 points
constexpr double kRunLimit = 5000.0;     // a run less the engine's process
constexpr double kForecastLimit = 1000.0;
constexpr double kPlacesLimit = 100000.0;

/// A root in which the engines seem to be.
class FullRoot : public BenchRoot {
public:
    FullRoot()
    {
        for (const char* sName : {"voacapw.exe", "rec533w.exe"})
            std::ofstream(PathGet("bin_win") / sName);
    }
};

Request InputMake(int iModel)
{
    Request input = RequestFromSettings(Settings());
    input.iModel = iModel;
    input.nData = kChunkMax;
    return input;
}

void DeckBench(benchmark::State& state, int iModel)
{
    const Request input = InputMake(iModel);
    for (auto _ : state) {
        auto resDeck = iModel == kEngineRec533 ? DeckRec533(input, 1, kChunkMax, 2026)
                                               : DeckIcepacVoacap(input, 1, kChunkMax, 2026);
        if (!resDeck)
            state.SkipWithError("no deck");
        benchmark::DoNotOptimize(resDeck);
    }
    state.counters["limit_us"] = kDeckLimit;
}

void AreaDeckBench(benchmark::State& state, int iModel)
{
    AreaRequest input = AreaRequestFromSettings(Settings());
    input.iModel = iModel;
    for (auto _ : state) {
        auto resDeck = DeckArea(input);
        if (!resDeck)
            state.SkipWithError("no deck");
        benchmark::DoNotOptimize(resDeck);
    }
    state.counters["limit_us"] = kDeckLimit;
}

void ReaderBench(benchmark::State& state, int iModel, const std::string& sOutput)
{
    const Request input = InputMake(iModel);
    for (auto _ : state) {
        PropagationTable table(kChunkMax);
        auto resFile = TextFile::Open(sOutput);
        if (!resFile) {
            state.SkipWithError("no output");
            break;
        }
        const auto resRead = iModel == kEngineRec533
                                 ? ReaderRec533(resFile.ValueGet(), input, 1, kChunkMax, table)
                                 : ReaderIcepacVoacap(resFile.ValueGet(), 1, kChunkMax, table);
        if (!resRead)
            state.SkipWithError("not read");
        benchmark::DoNotOptimize(table);
    }
    state.counters["limit_us"] = kOutputLimit;
}

void GridBench(benchmark::State& state, int iModel, const std::string& sGrid, const char* sName)
{
    const FullRoot root;
    fs::copy_file(sGrid, root.PathGet("areadata") / sName);
    for (auto _ : state) {
        AreaFile file;
        int nPoints = 0;
        int iIndex1 = 0;
        int iIndex2 = 0;
        double dLat = 0.0;
        double dLon = 0.0;
        float fSnr = 0.0F;
        if (!PropagationAreaOpenFile(iModel, file)) {
            for (;; ++nPoints) {
                const auto resRead =
                    PropagationAreaReadPoint(file, iIndex1, iIndex2, dLat, dLon, fSnr);
                if (!resRead || !resRead.ValueGet())
                    break;
                benchmark::DoNotOptimize(fSnr);
            }
        }
        if (nPoints != 1600)
            state.SkipWithError("grid not read");
    }
    state.counters["limit_us"] = kGridLimit;
}

/// The engine's part is a copied output and a process that has ended already; the copy is not
/// timed.
void RunBench(benchmark::State& state, int iModel, const std::string& sOutput)
{
    constexpr int kNoProcess = 999999999;
    const FullRoot root;
    const Request input = InputMake(iModel);
    const auto fnBefore = ProcessSetHandler([&](const ProcessCommand&) -> Result<int> {
        state.PauseTiming();
        fs::copy_file(sOutput, root.PathGet("RUN") / "sound.out");
        state.ResumeTiming();
        return kNoProcess;
    });
    for (auto _ : state) {
        PropagationTable table(kChunkMax);
        std::vector<Failure> aFailures;
        if (!PropagationRun(input, table, aFailures))
            state.SkipWithError("no prediction");
    }
    ProcessSetHandler(fnBefore);
    state.counters["limit_us"] = kRunLimit;
}

/// A forecast read, and a month looked up in it.
void ForecastBench(benchmark::State& state)
{
    const DateTime dtToday{2026, 11, 1, 0, 0, 0};
    auto resText =
        FileRead(std::string(BENCH_DATA) + "/settings/data/noaa_predicted_solar_cycle.json",
                 kForecastTextMost);
    if (!resText) {
        state.SkipWithError("no forecast");
        return;
    }
    for (auto _ : state) {
        auto resForecast = ForecastFromText(resText.ValueGet(), dtToday);
        if (!resForecast || !ForecastValueGet(resForecast.ValueGet(), 2026, 12, dtToday))
            state.SkipWithError("no value");
    }
    state.counters["limit_us"] = kForecastLimit;
}

/// The longest list of places that is read.
void PlacesBench(benchmark::State& state)
{
    std::string sText(kOwnPlacesHead);
    for (std::size_t n = 0; n < kOwnPlacesMost; ++n)
        sText += "\nPlace " + std::to_string(n) + "," + std::to_string(n % 90) + "N "
                 + std::to_string(n % 180) + "E,7060 14300,";
    for (auto _ : state) {
        auto resList = OwnPlacesParse(sText);
        if (!resList || OwnPlacesGet(resList.ValueGet()).size() != kOwnPlacesMost)
            state.SkipWithError("places are missing");
    }
    state.counters["limit_us"] = kPlacesLimit;
}

BENCHMARK(ForecastBench)->Unit(benchmark::kMicrosecond);
BENCHMARK(PlacesBench)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DeckBench, voacap, kEngineVoacap)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(DeckBench, rec533, kEngineRec533)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(AreaDeckBench, voacap, kEngineVoacap)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(AreaDeckBench, rec533, kEngineRec533)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ReaderBench, voacap, kEngineVoacap, kData + "voacap/p2p_03.out")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ReaderBench, rec533, kEngineRec533, kData + "rec533/p2p_03.out")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(GridBench, voacap, kEngineVoacap, kData + "voacap/area_01.vg1", "working.vg1")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(GridBench, rec533, kEngineRec533, kData + "rec533/area_01.rg1", "working.rg1")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RunBench, voacap, kEngineVoacap, kData + "voacap/p2p_03.out")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RunBench, rec533, kEngineRec533, kData + "rec533/p2p_03.out")
    ->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
