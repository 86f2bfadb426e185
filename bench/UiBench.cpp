/// The window program: refilling the table, and the time from its start to the first table.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

#include "ui/common/GridControl.h"
#include "ui/main/TableView.h"

namespace {

constexpr int kFrequencies = 15;

/// 15 x 24 cells with new values, and the paint that shows them.
void TableRefill(benchmark::State& state)
{
    state.counters["limit_us"] = 5000;
    GridControl grd;
    grd.RowsSet(kFrequencies + 1);
    grd.ColsSet(kHourCount + 1);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) grd.ColWidthSet(iHour, 28);
    grd.resize(grd.sizeHint());
    grd.show();
    QApplication::processEvents();
    PropagationTable table(kFrequencies);
    float fSnr = 0.0F;
    for (auto _ : state) {
        for (int i = 1; i <= kFrequencies; ++i)
            for (int iHour = 1; iHour <= kHourCount; ++iHour)
                table.fSnr(iHour, i) = fSnr = fSnr > 80.0F ? -20.0F : fSnr + 0.7F;
        grd.RedrawSet(false);
        TableShow(table, grd);
        grd.RedrawSet(true);
        grd.repaint();
    }
}
BENCHMARK(TableRefill)->UseRealTime()->Unit(benchmark::kMicrosecond);

/// The whole program with its built-in engine: from its start until the first table is painted.
void StartToFirstTable(benchmark::State& state)
{
    state.counters["limit_us"] = 400000;
    const QTemporaryDir dir;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dir.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("WINEPREFIX"), dir.filePath(QStringLiteral("wine")));
    environment.remove(QStringLiteral("HOPCAST_ITSHFBC"));
    process.setProcessEnvironment(environment);
    const QString sProfile = dir.filePath(QStringLiteral("hopcast.ini"));
    QFile file(sProfile);
    if (!file.open(QIODevice::WriteOnly))
        return state.SkipWithError("no profile");
    file.write("[Propagation Model]\nSunSpot Option=False\nSunSpot Number=100\n");
    file.close();
    for (auto _ : state) {
        process.start(QStringLiteral(HOPCAST_PROGRAM),
                      {QStringLiteral("--once"), QStringLiteral("--profile"), sProfile});
        process.waitForReadyRead();  // its line comes when the table is painted
        state.PauseTiming();
        process.waitForFinished();
        if (process.exitCode() != 0 || process.readAllStandardOutput().toInt() <= 0)
            state.SkipWithError("the program showed no table");
        state.ResumeTiming();
    }
}
BENCHMARK(StartToFirstTable)->UseRealTime()->Unit(benchmark::kMicrosecond)->Iterations(5);

}  // namespace

int main(int nArguments, char** asArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(nArguments, asArguments);
    benchmark::Initialize(&nArguments, asArguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
