/// The window program: refilling the table, an update from the click to the painted table, another
/// palette, the start, and exports without a window.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

#include "BenchRoot.h"
#include "ui/card/CardPage.h"
#include "ui/common/ElidedLabel.h"
#include "ui/common/GridControl.h"
#include "ui/common/PaletteShown.h"
#include "ui/main/TableView.h"
#include "ui/main/frmMain.h"
#include "ui/map/frmMap.h"
#include "ui/page/PageFile.h"

namespace {

constexpr int kFrequencies = 15;

/// 15 x 24 cells with new values, and the paint that shows them.
void TableRefill(benchmark::State& state, Palette ePalette)
{
    state.counters["limit_us"] = 5000;
    PaletteShow(ePalette);
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
    PaletteShow(Palette::Standard);
}
BENCHMARK_CAPTURE(TableRefill, standard, Palette::Standard)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(TableRefill, night, Palette::Night)->UseRealTime()->Unit(benchmark::kMicrosecond);

/// A card of 15 frequencies as a sheet for the preview.
void CardToSheet(benchmark::State& state)
{
    state.counters["limit_us"] = 150000;
    PropagationTable table(kFrequencies);
    table.request.nData = kFrequencies;
    table.request.afFrequency.resize(kFrequencies + 1);
    table.request.nMonth = 6;
    table.PresentSet(1, kFrequencies, true);
    for (int i = 1; i <= kFrequencies; ++i) {
        table.request.afFrequency[static_cast<std::size_t>(i)] = 2000.0F * static_cast<float>(i);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            table.fSnr(iHour, i) = static_cast<float>((iHour * i) % 80);
            table.fMUF[iHour] = 20000.0F;
        }
    }
    CardInput input;
    input.need = {"E-mail, normal", 40.0F, ""};
    constexpr int kDotsPerInch = 150;
    for (auto _ : state) {
        const QImage img = PageImage(CardPageGet(table, input), {}, kDotsPerInch);
        benchmark::DoNotOptimize(img.constBits());
    }
}
BENCHMARK(CardToSheet)->UseRealTime()->Unit(benchmark::kMicrosecond);

/// A profile with a sunspot number of its own.
QString ProfileMake(const QTemporaryDir& dir)
{
    const QString sProfile = dir.filePath(QStringLiteral("hopcast.ini"));
    QFile file(sProfile);
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write("[Propagation Model]\nSunSpot Option=False\nSunSpot Number=100\n");
    return sProfile;
}

/// The main window after its first prediction, with an engine root and a profile of its own.
class MainWindow {
    const BenchRoot m_root{BENCH_ENGINE};
    const QTemporaryDir m_dir;

public:
    MainWindow()
    {
        qputenv("WINEPREFIX", m_dir.filePath(QStringLiteral("wine")).toLocal8Bit());
        m_frm.m_settings.m_sProfileFile = ProfileMake(m_dir).toStdString();
        m_frm.show();
        while (!m_frm.ActivatedIs()) QApplication::processEvents();
    }
    frmMain m_frm;
};

/// The window program with folders of its own.
class Program {
public:
    Program()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), PathGet(QStringLiteral("data")));
        environment.insert(QStringLiteral("WINEPREFIX"), PathGet(QStringLiteral("wine")));
        environment.remove(QStringLiteral("HOPCAST_ITSHFBC"));
        m_process.setProcessEnvironment(environment);
    }
    [[nodiscard]] QString PathGet(const QString& sName) const { return m_dir.filePath(sName); }
    void Start(const QStringList& asArgument)
    {
        m_process.start(QStringLiteral(HOPCAST_PROGRAM),
                        QStringList{QStringLiteral("--profile"), m_sProfile} + asArgument);
    }
    QProcess m_process;

private:
    const QTemporaryDir m_dir;
    const QString m_sProfile = ProfileMake(m_dir);
};

/// What a user waits for who presses "Update": two runs of the built-in engine, 15 frequencies.
void UpdateToPaintedTable(benchmark::State& state)
{
    state.counters["limit_us"] = 100000;
    MainWindow window;
    frmMain& frm = window.m_frm;
    for (auto _ : state) {
        frm.cmdUpdate->setEnabled(true);
        frm.cmdUpdate->click();
        frm.repaint();
        QApplication::processEvents();
        if (!frm.lblTrouble->text().isEmpty() || frm.TableGet().nData != kFrequencies)
            state.SkipWithError("no table");
    }
}
BENCHMARK(UpdateToPaintedTable)->UseRealTime()->Unit(benchmark::kMicrosecond);

/// What a user waits for who presses Ctrl+Shift+N: the main window and the map in Night, or back.
void PaletteSwitch(benchmark::State& state)
{
    state.counters["limit_us"] = 50000;
    MainWindow window;
    frmMain& frm = window.m_frm;
    frm.cmdRcMap->click();
    bool bNight = false;
    for (auto _ : state) {
        bNight = !bNight;
        PaletteShow(bNight ? Palette::Night : Palette::Standard);
        frm.repaint();
        frm.m_pMap->repaint();
    }
    PaletteShow(Palette::Standard);
}
BENCHMARK(PaletteSwitch)->UseRealTime()->Unit(benchmark::kMicrosecond);

/// A program without a window that writes a file of a prediction, its start included.
void Export(benchmark::State& state, const char* sFile, const QStringList& asMore)
{
    state.counters["limit_us"] = 500000;
    Program program;
    const QString sExport = program.PathGet(QString::fromUtf8(sFile));
    const QStringList asArgument = QStringList{QStringLiteral("--export"), sExport} + asMore;
    for (auto _ : state) {
        program.Start(asArgument);
        program.m_process.waitForFinished();
        if (program.m_process.exitCode() != 0 || !QFile::remove(sExport))
            state.SkipWithError("the program wrote no file");
    }
}
BENCHMARK_CAPTURE(Export, table, "table.pdf", {})
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(1)
    ->Repetitions(11);
BENCHMARK_CAPTURE(Export, area, "area.png",
                  {QStringLiteral("--area"), QStringLiteral("60,-30,30,40"),
                   QStringLiteral("--hour"), QStringLiteral("12"), QStringLiteral("--frequency"),
                   QStringLiteral("14100")})
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(1)
    ->Repetitions(11);

/// The whole program with its built-in engine: from its start until the first table is painted.
void StartToFirstTable(benchmark::State& state)
{
    state.counters["limit_us"] = 400000;
    Program program;
    QProcess& process = program.m_process;
    for (auto _ : state) {
        program.Start({QStringLiteral("--once")});
        process.waitForReadyRead();  // its line comes when the table is painted
        state.PauseTiming();
        process.waitForFinished();
        if (process.exitCode() != 0 || process.readAllStandardOutput().toInt() <= 0)
            state.SkipWithError("the program showed no table");
        state.ResumeTiming();
    }
}
BENCHMARK(StartToFirstTable)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(1)
    ->Repetitions(11);

}  // namespace

int main(int nArguments, char** asArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(nArguments, asArguments);
    benchmark::Initialize(&nArguments, asArguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
