// The launcher against fake voacapl programs.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <vector>

#include "engine/voacap/VoacapLauncher.h"
#include "engine/voacap/VoacapSample.h"
#include "support/Faults.h"

namespace fs = std::filesystem;

namespace {

class VoacapLauncher : public testing::Test {
protected:
    VoacapLauncher()
    {
        m_root.Write("RUN/sound.dat", Sample("p2p_01.dat"));
        m_root.Write("RUN/sound.out", "old");
        m_root.Write("areadata/working.voa", Sample("area_02.voa"));
        m_root.Write("areadata/working.vg1", "old");
        for (const char* pszFile : {"const17.voa", "swwhip.voa"})
            m_data.Write(std::string("itshfbc/antennas/default/") + pszFile, pszFile);
        m_data.Write("itshfbc/coeffs/coeff01w.bin", "maps");
        m_data.Write("itshfbc/database/version.w32", "version");
        m_places.sDataFolder = m_data.Path("itshfbc");
    }

    /// Makes the fake, whose script finds complete outputs in $POINT and $GRID.
    void FakeMake(const std::string& sScript)
    {
        m_places.sProgram = m_data.Write("voacapl", "#!/bin/sh\nPOINT=" ENGINE_DATA
                                                    "/voacap/p2p_01.out\n"
                                                    "GRID=" ENGINE_DATA "/voacap/area_02.vg1\n"
                                                        + sScript + "\n");
        fs::permissions(m_places.sProgram, fs::perms::owner_all);
    }
    VoacapOutcome PointRun() { return Run({m_root.Path(), "sound.dat", "sound.out"}); }
    VoacapOutcome AreaRun() { return Run({m_root.Path(), "AREA", "CALC", "working.voa"}); }
    VoacapOutcome Run(const std::vector<std::string>& asArguments) const
    {
        return VoacapLaunch(asArguments, m_places);
    }
    /// Names below the root, to see that nothing is left behind.
    [[nodiscard]] std::vector<std::string> RootNames() const
    {
        std::vector<std::string> asNames;
        for (const auto& entry : fs::recursive_directory_iterator(m_root.Path()))
            if (!entry.is_directory())
                asNames.push_back(fs::relative(entry.path(), m_root.Path()).string());
            else if (fs::is_empty(entry.path()) || entry.path().parent_path() != m_root.Path())
                asNames.push_back(fs::relative(entry.path(), m_root.Path()).string() + "/");
        std::sort(asNames.begin(), asNames.end());
        return asNames;
    }
    void PointFails(const std::string& sText)
    {
        const VoacapOutcome outcome = PointRun();
        EXPECT_EQ(outcome.nStatus, 1);
        EXPECT_EQ(outcome.sText, sText);
        EXPECT_EQ(RootNames(), (std::vector<std::string>{"RUN/sound.dat", "areadata/working.vg1",
                                                         "areadata/working.voa"}));
    }

    TempFolder m_root;
    TempFolder m_data;
    VoacapPlaces m_places;
};

TEST_F(VoacapLauncher, MovesACompletePointOutputIntoPlace)
{
    FakeMake("cp $POINT run/sound.out");
    EXPECT_EQ(PointRun().nStatus, 0);
    EXPECT_EQ(BytesRead(m_root.Path("RUN/sound.out")), Sample("p2p_01.out"));
    EXPECT_EQ(RootNames(),
              (std::vector<std::string>{"RUN/sound.dat", "RUN/sound.out", "areadata/working.vg1",
                                        "areadata/working.voa"}));
}

TEST_F(VoacapLauncher, MovesACompleteGridIntoPlace)
{
    FakeMake("cp $GRID run/working.vg1");
    EXPECT_EQ(AreaRun().nStatus, 0);
    EXPECT_EQ(BytesRead(m_root.Path("areadata/working.vg1")), Sample("area_02.vg1"));
    EXPECT_EQ(RootNames(),
              (std::vector<std::string>{"RUN/sound.dat", "RUN/sound.out", "areadata/working.vg1",
                                        "areadata/working.voa"}));
}

TEST_F(VoacapLauncher, HandsVoacaplItsWordsItsFolderAndNoInput)
{
    const std::string sSeen = m_data.Path("seen.txt");
    FakeMake(
        "{ echo \"$@\"; cat; cat run/sound.dat; cat coeffs/coeff01w.bin database/version.w32; "
        "cat 'antennas/DEFAULT\\CONST17.VOA' antennas/DEFAULT/SWWHIP.VOA; } >"
        + sSeen + "; cp $POINT run/sound.out");
    EXPECT_EQ(PointRun().nStatus, 0);
    const std::string sBytes = BytesRead(sSeen);
    EXPECT_TRUE(sBytes.starts_with("--run-dir=run -s . sound.dat sound.out\nLINEMAX      55\n"))
        << sBytes;
    EXPECT_TRUE(
        sBytes.ends_with("20.0\nMETHOD       20    0\nEXECUTE\nQUIT\n"
                         "mapsversionconst17.voaswwhip.voa"))
        << sBytes;

    FakeMake("echo \"$@\" >" + sSeen + "; cat 'antennas/DEFAULT/CONST17.VOA' >>" + sSeen
             + "; grep -c Pcenter run/working.voa >>" + sSeen + "; cp $GRID run/working.vg1");
    EXPECT_EQ(AreaRun().nStatus, 0);
    EXPECT_EQ(BytesRead(sSeen), "--run-dir=run -s . area calc working.voa\nconst17.voa1\n");
}

TEST_F(VoacapLauncher, PrefersAnAntennaOfTheRoot)
{
    m_root.Write("antennas/default/Const17.VOA", "my own");
    FakeMake("cat 'antennas/DEFAULT\\CONST17.VOA' >" + m_data.Path("seen.txt")
             + "; cp $POINT run/sound.out");
    EXPECT_EQ(PointRun().nStatus, 0);
    EXPECT_EQ(BytesRead(m_data.Path("seen.txt")), "my own");
}

TEST_F(VoacapLauncher, FindsTheFoldersWithoutRegardToCase)
{
    fs::rename(m_root.Path() + "/RUN", m_root.Path() + "/run");
    fs::rename(m_root.Path() + "/areadata", m_root.Path() + "/AREADATA");
    FakeMake("cp $POINT run/sound.out; cp $GRID run/working.vg1");
    EXPECT_EQ(PointRun().nStatus, 0);
    EXPECT_EQ(Run({m_root.Path(), "area", "calc", "working.voa"}).nStatus, 0);
    EXPECT_EQ(BytesRead(m_root.Path("run/sound.out")), Sample("p2p_01.out"));
    EXPECT_EQ(BytesRead(m_root.Path("AREADATA/working.vg1")), Sample("area_02.vg1"));
}

TEST_F(VoacapLauncher, RefusesAWrongCommandLine)
{
    FakeMake("cp $POINT run/sound.out");
    const std::string sRoot = m_root.Path();
    const std::vector<std::vector<std::string>> aWrong = {
        {},
        {sRoot},
        {sRoot, "sound.dat"},
        {sRoot, "AREA", "SHOW", "working.voa"},
        {sRoot, "INV", "CALC", "working.voa"},
        {sRoot, "AREA", "CALC", "working.voa", "more"}};
    for (const auto& asArguments : aWrong) {
        const VoacapOutcome outcome = Run(asArguments);
        EXPECT_EQ(outcome.nStatus, 2);
        EXPECT_EQ(outcome.sText,
                  "usage: voacapw.exe ROOT DECK OUTPUT, or voacapw.exe ROOT AREA CALC DECK");
    }
    EXPECT_EQ(BytesRead(m_root.Path("RUN/sound.out")), "old");
}

TEST_F(VoacapLauncher, RefusesAWrongDeckBeforeAnythingIsRun)
{
    FakeMake("touch " + m_data.Path("ran"));
    const std::string sDeck = "deck " + m_root.Path("RUN/sound.dat") + ": ";
    m_root.Write("RUN/sound.dat", "LABEL\n");
    EXPECT_EQ(PointRun().nStatus, 2);
    EXPECT_EQ(PointRun().sText, sDeck + "no FREQUENCY card");
    m_root.Write("RUN/sound.dat", std::string(100000, 'x'));
    EXPECT_EQ(PointRun().nStatus, 2);
    EXPECT_EQ(PointRun().sText, sDeck + "Overflow");
    fs::remove(m_root.Path("RUN/sound.dat"));
    EXPECT_EQ(PointRun().nStatus, 2);
    EXPECT_EQ(PointRun().sText, sDeck + "File not found");
    m_root.Write("areadata/working.voa", "Model    :VOACAP\n");
    EXPECT_EQ(AreaRun().nStatus, 2);
    EXPECT_EQ(AreaRun().sText,
              "deck " + m_root.Path("areadata/working.voa") + ": no Gridsize card");
    EXPECT_FALSE(fs::exists(m_data.Path("ran")));
    EXPECT_FALSE(fs::exists(m_root.Path("RUN/sound.out")));
    EXPECT_FALSE(fs::exists(m_root.Path("areadata/working.vg1")));
}

TEST_F(VoacapLauncher, KeepsADeckThatIsNamedAsTheOutputToo)
{
    FakeMake("cp $POINT run/sound.out; cp $GRID run/working.vg1");
    m_root.Write("areadata/working.vg1", Sample("area_02.voa"));
    const VoacapOutcome outcome = Run({m_root.Path(), "sound.dat", "sound.dat"});
    EXPECT_EQ(outcome.nStatus, 2);
    EXPECT_EQ(outcome.sText, "deck " + m_root.Path("RUN/sound.dat") + ": named as the output too");
    EXPECT_EQ(Run({m_root.Path(), "AREA", "CALC", "working.vg1"}).nStatus, 2);
    EXPECT_EQ(BytesRead(m_root.Path("RUN/sound.dat")), Sample("p2p_01.dat"));
    EXPECT_EQ(BytesRead(m_root.Path("areadata/working.vg1")), Sample("area_02.voa"));
}

TEST_F(VoacapLauncher, TellsAMissingProgram)
{
    m_places.sProgram = m_data.Path("nowhere");
    PointFails(m_places.sProgram + " cannot be started: File not found");
}

TEST_F(VoacapLauncher, TellsAProgramThatMayNotBeRun)
{
    FakeMake("cp $POINT run/sound.out");
    fs::permissions(m_places.sProgram, fs::perms::owner_read);
    PointFails(m_places.sProgram + " cannot be started: Permission denied");
}

TEST_F(VoacapLauncher, TellsAMissingDataFolder)
{
    FakeMake("cp $POINT run/sound.out");
    m_places.sDataFolder = m_data.Path("none");
    PointFails("no data folder " + m_places.sDataFolder + " (package voacapl-data)");
}

TEST_F(VoacapLauncher, TellsAMissingAntennaFile)
{
    FakeMake("cp $POINT run/sound.out");
    fs::remove(m_data.Path("itshfbc/antennas/default/const17.voa"));
    PointFails("no antenna file DEFAULT\\CONST17.VOA");
}

TEST_F(VoacapLauncher, TellsAFailureWithWhatVoacaplSaid)
{
    FakeMake("echo At line 58; echo Fortran runtime error: Bad value; echo Backtrace; exit 2");
    PointFails("VOACAP failed: Fortran runtime error: Bad value");
}

TEST_F(VoacapLauncher, TellsACrash)
{
    FakeMake("cp $POINT run/sound.out; kill -SEGV $$");
    PointFails("VOACAP crashed");
}

TEST_F(VoacapLauncher, DoesNotBelieveAnExitStatusOfZero)
{
    FakeMake("echo STOP EOF read in monitr");
    PointFails("VOACAP's output is not complete (no output file): STOP EOF read in monitr");
    FakeMake("touch run/sound.out");
    PointFails("VOACAP's output is not complete (0 of 24 hour blocks)");
    FakeMake("head -c 20000 $POINT >run/sound.out");
    PointFails("VOACAP's output is not complete (8 of 24 hour blocks)");
    FakeMake("head -c 8000000 /dev/urandom >run/sound.out");
    PointFails("VOACAP's output is not complete (0 of 24 hour blocks)");
    FakeMake("mkdir run/sound.out");
    PointFails("VOACAP's output is not complete (no output file)");
}

TEST_F(VoacapLauncher, DoesNotTakeAnOutputForOtherFrequencies)
{
    FakeMake("cp " ENGINE_DATA "/voacap/p2p_02.out run/sound.out");
    PointFails("VOACAP's output is not complete (2 MHz is missing)");
}

TEST_F(VoacapLauncher, DoesNotTakeACutGrid)
{
    FakeMake("head -c 15000 $GRID >run/working.vg1");
    const VoacapOutcome outcome = AreaRun();
    EXPECT_EQ(outcome.nStatus, 1);
    EXPECT_EQ(outcome.sText, "VOACAP's output is not complete (grid point 87 is not as expected)");
    EXPECT_FALSE(fs::exists(m_root.Path("areadata/working.vg1")));
}

TEST_F(VoacapLauncher, EndsARunThatNeverEnds)
{
    m_places.dSeconds = 0.3;
    FakeMake("cp $POINT run/sound.out; exec sleep 60");
    const auto tStart = std::chrono::steady_clock::now();
    PointFails("VOACAP did not finish in time");
    EXPECT_LT(std::chrono::steady_clock::now() - tStart, std::chrono::seconds(3));
}

TEST_F(VoacapLauncher, ReportsARequestToEndAndCleansUp)
{
    FakeMake("exec sleep 60");
    std::stop_source stop;
    stop.request_stop();
    m_places.stop = stop.get_token();
    PointFails("interrupted");
}

TEST_F(VoacapLauncher, TakesADeathBySignalForACrashOnlyWhereNobodyAskedToEnd)
{
    const std::string sConsole = m_root.Write("console.txt", "Program received signal SIGTERM\n");
    const ChildResult killed{ChildEnd::Killed, 15};
    EXPECT_EQ(VoacaplEndCheck(killed, true, sConsole).TextGet(), "interrupted");
    EXPECT_EQ(VoacaplEndCheck(killed, false, sConsole).TextGet(),
              "VOACAP crashed: Program received signal SIGTERM");
    EXPECT_TRUE(VoacaplEndCheck({ChildEnd::Exited, 0}, true, sConsole)) << "it was done before";
}

TEST_F(VoacapLauncher, KeepsOneLineWhateverIsInIt)
{
    FakeMake("printf 'an error \\033[31m\\001 here\\n'; exit 1");
    PointFails("VOACAP failed: an error  [31m  here");
}

TEST_F(VoacapLauncher, LeavesAFolderInTheOutputsPlaceAlone)
{
    FakeMake("cp $POINT run/sound.out");
    fs::remove(m_root.Path("RUN/sound.out"));
    m_root.Write("RUN/sound.out/kept.txt", "kept");
    const VoacapOutcome outcome = PointRun();
    EXPECT_EQ(outcome.nStatus, 1);
    EXPECT_EQ(outcome.sText, m_root.Path("RUN/sound.out") + ": Path/File access error");
    EXPECT_EQ(BytesRead(m_root.Path("RUN/sound.out/kept.txt")), "kept");
}

TEST_F(VoacapLauncher, AReadOnlyRunFolderIsAFailure)
{
    FakeMake("cp $POINT run/sound.out");
    fs::permissions(m_root.Path("RUN"), fs::perms(0555));
    AsUnprivileged([&] {
        const VoacapOutcome outcome = PointRun();
        EXPECT_EQ(outcome.nStatus, 1);
        EXPECT_EQ(outcome.sText, "no run folder in " + m_root.Path("RUN") + ": Permission denied");
    });
    fs::permissions(m_root.Path("RUN"), fs::perms(0755));
}

}  // namespace
