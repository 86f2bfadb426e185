// The built-in engine: 24 hours of a path and an area of 40 x 40 points, as a library and as a
// program beside voacapl.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sched.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "engine/rec533/Day.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

constexpr double kPathLimit = 1500.0;  // microseconds
constexpr double kAreaLimit = 60000.0;
constexpr double kAreaDayLimit = 1.5e6;
constexpr double kWorldDayLimit = 3e6;
constexpr double kTwoCoresShare = 0.58;
constexpr double kPathDayLimit = 750.0;
constexpr double kStationsDayLimit = 100e3;
constexpr int kMonth = 11;
constexpr double kSsn = 170.0;

using Megahertz = std::vector<double>;

// nCount frequencies from 2 MHz on in steps of 2 MHz.
Megahertz MegahertzMake(int nCount)
{
    Megahertz adList;
    for (int i = 0; i < nCount; ++i) adList.push_back(2.0 + 2.0 * i);
    return adList;
}

Circuit CircuitMake(double dTxLat, double dTxLon, double dRxLat, double dRxLon)
{
    Circuit circuit;
    circuit.dTxLat = dTxLat;
    circuit.dTxLon = dTxLon;
    circuit.dRxLat = dRxLat;
    circuit.dRxLon = dRxLon;
    return circuit;
}

// 40 x 40 points around 24 N 110 W, dHalf degrees of longitude to either side.
std::vector<Circuit> AreaMake(double dHalf)
{
    constexpr int kGrid = 40;
    std::vector<Circuit> aCircuits;
    for (int i = 0; i < kGrid * kGrid; ++i)
        aCircuits.push_back(CircuitMake(
            24.0, -110.0, -60.0 + 130.0 * (i / kGrid) / (kGrid - 1),
            std::remainder(-110.0 + dHalf * (2.0 * (i % kGrid) / (kGrid - 1) - 1.0), 360.0)));
    return aCircuits;
}

// A hundred stations over all the world, spread evenly.
std::vector<Circuit> StationsMake()
{
    constexpr int kStations = 100;
    constexpr double kTurn = 137.50776405;  // degrees from one to the next
    std::vector<Circuit> aCircuits;
    for (int i = 0; i < kStations; ++i)
        aCircuits.push_back(CircuitMake(48.0, 11.0,
                                        std::asin((2.0 * i + 1.0) / kStations - 1.0) * kDegrees,
                                        std::remainder(kTurn * i, 360.0)));
    return aCircuits;
}

// The day of circuits on some threads; what is kept of it is the SNR.
void DaysFill(std::vector<float>& afSnr, const Ionosphere& iono,
              const std::vector<Circuit>& aCircuits, const Megahertz& adList, int nThreads)
{
    const Frequencies frequencies(iono, aCircuits.front(), adList);
    const std::size_t nCells = 24 * adList.size();
    std::atomic<std::size_t> nNext{0};
    const auto fnWork = [&] {
        DayWork work;
        std::array<DayHour, 24> aHours;
        std::vector<Prediction> aCells(nCells);
        for (std::size_t i = nNext++; i < aCircuits.size(); i = nNext++) {
            PredictDay(work, iono, frequencies, aCircuits[i], DayParts::Cells, aHours, aCells);
            for (std::size_t k = 0; k < nCells; ++k)
                afSnr[i * nCells + k] = static_cast<float>(aCells[k].dSnr);
        }
    };
    std::vector<std::thread> aThreads;
    for (int i = 1; i < nThreads; ++i) aThreads.emplace_back(fnWork);
    fnWork();
    for (std::thread& thr : aThreads) thr.join();
}

// Microseconds that the same values take one by one, everything set up for each: every nStep-th
// circuit is taken for all.
double LoopTimeGet(const Ionosphere& iono, const std::vector<Circuit>& aCircuits,
                   const Megahertz& adList, std::size_t nStep)
{
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    std::size_t nTaken = 0;
    const auto tStart = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < aCircuits.size(); i += nStep, ++nTaken) {
        for (int nLabel = 1; nLabel <= 24; ++nLabel) {
            for (const double dMegahertz : adList) {
                PathFill(*pPath, iono, aCircuits[i]);
                HourFill(*pHour, *pPath, nLabel);
                Prediction prediction;
                PredictionFill(prediction, *pHour, dMegahertz);
                benchmark::DoNotOptimize(prediction.dSnr);
            }
        }
    }
    const std::chrono::duration<double, std::micro> tTaken =
        std::chrono::steady_clock::now() - tStart;
    return tTaken.count() * static_cast<double>(aCircuits.size()) / static_cast<double>(nTaken);
}

// The same counters in each benchmark, or the CSV report ends.
void CountersSet(benchmark::State& state, double dBesideUs, double dLimitUs)
{
    state.counters["beside_us"] = dBesideUs;
    state.counters["limit_us"] = dLimitUs;
}

// Argument: the receiver's longitude at 24 N; the transmitter stands at 38 N 122 W.
void PointToPoint(benchmark::State& state)
{
    const auto pIono = std::make_unique<Ionosphere>();
    const std::vector<Circuit> aCircuits{
        CircuitMake(38.0, -122.0, 24.0, static_cast<double>(state.range(0)))};
    const Megahertz adList = MegahertzMake(10);
    std::vector<float> afSnr(24 * adList.size());
    for (auto _ : state) {
        IonosphereFill(*pIono, Behaviour::Best, MapSet::Ursi, kMonth, kSsn);
        DaysFill(afSnr, *pIono, aCircuits, adList, 1);
        benchmark::DoNotOptimize(afSnr.data());
    }
    CountersSet(state, 0.0, kPathLimit);
}
BENCHMARK(PointToPoint)
    ->Arg(-110)
    ->Arg(-40)
    ->Arg(30)
    ->ArgName("lon")
    ->Unit(benchmark::kMicrosecond);

// Argument: half the width of the area in degrees of longitude.
void Area(benchmark::State& state)
{
    const auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Ursi, kMonth, kSsn);
    const std::vector<Circuit> aCircuits = AreaMake(static_cast<double>(state.range(0)));
    const Frequencies frequencies(*pIono, aCircuits.front(), std::array{14.0});
    DayWork work;
    for (auto _ : state) {
        for (const Circuit& circuit : aCircuits) {
            DayHour hour;
            Prediction prediction;
            PredictHour(work, *pIono, frequencies, circuit, 12, hour, {&prediction, 1});
            benchmark::DoNotOptimize(prediction.dField);
        }
    }
    CountersSet(state, 0.0, kAreaLimit);
}
BENCHMARK(Area)->Arg(30)->Arg(180)->ArgName("half_width")->Unit(benchmark::kMicrosecond);

// Times a day of circuits beside the loop over single values in the same run.
void DaysTime(benchmark::State& state, const std::vector<Circuit>& aCircuits, int nThreads,
              std::size_t nStep, double dLimitUs)
{
    const auto pIono = std::make_unique<Ionosphere>();
    const Megahertz adList = MegahertzMake(15);
    std::vector<float> afSnr(aCircuits.size() * 24 * adList.size());
    for (auto _ : state) {
        IonosphereFill(*pIono, Behaviour::Best, MapSet::Ursi, kMonth, kSsn);
        DaysFill(afSnr, *pIono, aCircuits, adList, nThreads);
        benchmark::DoNotOptimize(afSnr.data());
    }
    CountersSet(state, LoopTimeGet(*pIono, aCircuits, adList, nStep), dLimitUs);
}

long MemoryMostGet()
{
    rusage usageNow{};
    getrusage(RUSAGE_SELF, &usageNow);
    return usageNow.ru_maxrss;
}

constexpr long kMemoryKb = 16 * 1024;

// Arguments: half the width of the area, threads; 24 hours, 15 frequencies.
void AreaDay(benchmark::State& state)
{
    constexpr std::size_t kStep = 17;
    const bool bAround = state.range(0) > 90;
    const double dLimit = bAround ? kWorldDayLimit : kAreaDayLimit;
    DaysTime(state, AreaMake(static_cast<double>(state.range(0))), static_cast<int>(state.range(1)),
             kStep, state.range(1) == 1 ? dLimit : dLimit * kTwoCoresShare);
    if (MemoryMostGet() >= kMemoryKb)
        state.SkipWithError("the area's day holds too much memory");
}
BENCHMARK(AreaDay)
    ->Args({30, 1})
    ->Args({30, 2})
    ->Args({180, 1})
    ->ArgNames({"half_width", "threads"})
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);

// A path of 6000 km, everything made anew.
void PathDay(benchmark::State& state)
{
    DaysTime(state, {CircuitMake(38.0, -122.0, 24.0, -60.0)}, 1, 1, kPathDayLimit);
}
BENCHMARK(PathDay)->Unit(benchmark::kMicrosecond);

void StationsDay(benchmark::State& state)
{
    DaysTime(state, StationsMake(), 1, 9, kStationsDayLimit);
}
BENCHMARK(StationsDay)->Unit(benchmark::kMicrosecond);

// The programs, start included: what a user waits for. voacapl is timed in the same run; the
// built-in engine may take its share of that time.
namespace fs = std::filesystem;

constexpr double kPathShare = 0.6;
constexpr double kAreaShare = 0.35;
constexpr double kVoacaplPathUs = 8000.0;  // where voacapl is not installed: what it took elsewhere
constexpr double kVoacaplAreaUs = 50000.0;
constexpr const char* kVoacapl = "/usr/bin/voacapl";
constexpr const char* kVoacaplData = "/usr/share/voacapl/itshfbc";
constexpr const char* kDecks = BENCH_DATA "/propagation/data/engines/";

using Words = std::vector<std::string>;

// True when it ended well. nKb: the most memory that it held.
bool ProgramRun(const Words& aWords, long& nKb)
{
    std::vector<char*> aArguments;
    for (const std::string& sWord : aWords) aArguments.push_back(const_cast<char*>(sWord.c_str()));
    aArguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t nProcess = 0;
    const int nError =
        posix_spawn(&nProcess, aArguments[0], &actions, nullptr, aArguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int nStatus = -1;
    rusage usageNow{};
    const bool bEnded = nError == 0 && wait4(nProcess, &nStatus, 0, &usageNow) == nProcess;
    nKb = usageNow.ru_maxrss;
    return bEnded && nStatus == 0;
}

// Median of some runs, microseconds; 0 when one fails.
double MedianGet(const Words& aWords, int nRuns)
{
    std::vector<double> adTaken;
    long nKb = 0;
    for (int i = 0; i < nRuns; ++i) {
        const auto tStart = std::chrono::steady_clock::now();
        if (!ProgramRun(aWords, nKb))
            return 0.0;
        const std::chrono::duration<double, std::micro> tTaken =
            std::chrono::steady_clock::now() - tStart;
        adTaken.push_back(tTaken.count());
    }
    std::sort(adTaken.begin(), adTaken.end());
    return adTaken[adTaken.size() / 2];
}

std::string DeckRead(const std::string& sName)
{
    std::ifstream stm(kDecks + sName, std::ios::binary);
    return {std::istreambuf_iterator<char>(stm), {}};
}

void FileWrite(const fs::path& path, const std::string& sText)
{
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << sText;
}

void Replace(std::string& sText, const std::string& sOld, const std::string& sNew)
{
    for (std::size_t n = sText.find(sOld); n != std::string::npos;
         n = sText.find(sOld, n + sNew.size()))
        sText.replace(n, sOld.size(), sNew);
}

// A folder with both engines' roots, gone at the end.
class Roots {
public:
    Roots()
        : m_pathFolder(fs::temp_directory_path() / ("hopcast-bench-" + std::to_string(getpid())))
    {
        FileWrite(Own() / "RUN/sound.dat", DeckRead("rec533/p2p_01.dat"));
        FileWrite(Own() / "areadata/working.rec", DeckRead("rec533/area_01.rec"));
        if (!fs::exists(kVoacapl))
            return;
        std::string sPath = DeckRead("voacap/p2p_01.dat");
        Replace(sPath, "\r\n", "\n");
        Replace(sPath, "\n\n", "\n");
        FileWrite(Voacapl() / "run/sound.dat", sPath);
        std::string sArea = DeckRead("voacap/area_01.voa");
        Replace(sArea, "\r\n", "\n");
        Replace(sArea, "PCenter  :", "Pcenter  :");
        Replace(sArea, "Sssns    :", "Ssns     :");
        Replace(sArea, "Qindexs  :   0.00\n", "");
        FileWrite(Voacapl() / "areadata/default/working.voa", sArea);
        for (const char* sFolder : {"coeffs", "database"})
            fs::create_directory_symlink(fs::path(kVoacaplData) / sFolder, Voacapl() / sFolder);
        const fs::path pathAntennas = Voacapl() / "antennas";
        fs::create_directories(pathAntennas / "DEFAULT");
        for (const char* sName : {"CONST17.VOA", "SWWHIP.VOA"}) {
            const fs::path pathSource = fs::path(kVoacaplData) / "antennas/default"
                                        / (sName[0] == 'C' ? "const17.voa" : "swwhip.voa");
            fs::create_symlink(pathSource, pathAntennas / "DEFAULT" / sName);
            fs::create_symlink(pathSource, pathAntennas / (std::string("DEFAULT\\") + sName));
        }
    }
    ~Roots() { fs::remove_all(m_pathFolder); }
    Roots(const Roots&) = delete;
    Roots& operator=(const Roots&) = delete;

    [[nodiscard]] fs::path Own() const { return m_pathFolder / "own"; }
    [[nodiscard]] fs::path Voacapl() const { return m_pathFolder / "voacapl"; }

private:
    fs::path m_pathFolder;
};

std::string OwnProgramGet()
{
    return (fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "rec533w.exe")
        .string();
}

void ProgramsCompare(benchmark::State& state, const Words& aOwn, const Words& aVoacapl,
                     double dShare, double dVoacaplUs)
{
    if (fs::exists(kVoacapl)) {
        constexpr int kRuns = 11;
        dVoacaplUs = MedianGet(aVoacapl, kRuns);
        if (dVoacaplUs == 0.0) {
            state.SkipWithError("voacapl failed");
            return;
        }
    }
    long nKb = 0;
    for (auto _ : state)
        if (!ProgramRun(aOwn, nKb))
            state.SkipWithError("rec533w.exe failed");
    if (nKb >= kMemoryKb)
        state.SkipWithError("rec533w.exe holds too much memory");
    CountersSet(state, dVoacaplUs, dShare * dVoacaplUs);
}

void ProgramPointToPoint(benchmark::State& state)
{
    const Roots roots;
    ProgramsCompare(state, {OwnProgramGet(), roots.Own().string(), "sound.dat", "sound.out"},
                    {kVoacapl, "-s", roots.Voacapl().string(), "sound.dat", "sound.out"},
                    kPathShare, kVoacaplPathUs);
}
BENCHMARK(ProgramPointToPoint)->UseRealTime()->Unit(benchmark::kMicrosecond);

// On one core, for both.
void ProgramArea(benchmark::State& state)
{
    cpu_set_t setBefore, setOne;
    sched_getaffinity(0, sizeof setBefore, &setBefore);
    CPU_ZERO(&setOne);
    CPU_SET(sched_getcpu(), &setOne);
    sched_setaffinity(0, sizeof setOne, &setOne);
    const Roots roots;
    ProgramsCompare(
        state, {OwnProgramGet(), roots.Own().string(), "AREA", "CALC", "working.rec"},
        {kVoacapl, "-s", roots.Voacapl().string(), "area", "calc", "default/working.voa"},
        kAreaShare, kVoacaplAreaUs);
    sched_setaffinity(0, sizeof setBefore, &setBefore);
}
BENCHMARK(ProgramArea)->UseRealTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
