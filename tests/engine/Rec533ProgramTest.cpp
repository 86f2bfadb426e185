// The program files as Hopcast starts them.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "engine/DeckSample.h"
#include "support/Faults.h"
#include "support/ProgramRun.h"

namespace {

namespace fs = std::filesystem;

// @param sBefore  shell commands that run first
ProgramResult EngineRun(const std::string& sProgram, const std::string& sArguments,
                        const std::string& sBefore = {})
{
    return ProgramRun({"sh", "-c", sBefore + "'" TEST_BIN "/" + sProgram + "' " + sArguments});
}

std::size_t FilesBelow(const std::string& sFolder)
{
    std::size_t nFiles = 0;
    for (const auto& entry : fs::directory_iterator(sFolder))
        nFiles += entry.is_regular_file() ? 1 : 0;
    return nFiles;
}

TEST(Rec533Program, RunsEveryPointToPointDeck)
{
    TempFolder tmp;
    for (int n = 1; n <= 13; ++n) {
        tmp.Write("RUN/sound.dat", PointDeckOf(n));
        fs::remove(tmp.Path("RUN/sound.out"));
        const ProgramResult programResult =
            EngineRun("rec533w.exe", "'" + tmp.Path() + "' sound.dat sound.out");
        EXPECT_EQ(programResult.nStatus, 0) << n;
        EXPECT_EQ(programResult.sError, "");
        EXPECT_NE(BytesRead(tmp.Path("RUN/sound.out")).find("\n End-of-Run\n"), std::string::npos)
            << n;
        EXPECT_EQ(FilesBelow(tmp.Path("RUN")), 2u);
    }
}

TEST(Rec533Program, RunsEveryAreaDeck)
{
    TempFolder tmp;
    for (int n = 1; n <= 5; ++n) {
        tmp.Write("areadata/working.rec", DeckOf("area_0" + std::to_string(n) + ".rec"));
        fs::remove(tmp.Path("areadata/working.rg1"));
        const ProgramResult programResult =
            EngineRun("rec533w.exe", "'" + tmp.Path() + "' AREA CALC working.rec");
        EXPECT_EQ(programResult.nStatus, 0) << programResult.sError;
        const std::string sGrid = BytesRead(tmp.Path("areadata/working.rg1"));
        const std::ptrdiff_t nPoints = n == 2 || n == 4 ? 121 : 1600;
        EXPECT_EQ(std::count(sGrid.begin(), sGrid.end(), '\n'), nPoints + 3);
        EXPECT_EQ(FilesBelow(tmp.Path("areadata")), 2u);
    }
}

TEST(Rec533Program, FindsTheFolderInSmallLetters)
{
    TempFolder tmp;
    tmp.Write("run/sound.dat", DeckOf("p2p_01.dat"));
    EXPECT_EQ(EngineRun("rec533w.exe", "'" + tmp.Path() + "' sound.dat sound.out").nStatus, 0);
    EXPECT_TRUE(fs::exists(tmp.Path("run/sound.out")));
}

TEST(Rec533Program, ABadDeckIsOneLineStatus2AndNoOutput)
{
    TempFolder tmp;
    std::string sDeck = DeckOf("p2p_01.dat");
    tmp.Write("RUN/sound.dat", sDeck.replace(sDeck.find("170.0"), 5, "1x0.0"));
    const ProgramResult programResult =
        EngineRun("rec533w.exe", "'" + tmp.Path() + "' sound.dat sound.out");
    EXPECT_EQ(programResult.nStatus, 2);
    EXPECT_EQ(programResult.sError,
              "rec533w: sound.dat, SUNSPOT, columns 11-15: \"1x0.0\" is not a number\n");
    EXPECT_FALSE(fs::exists(tmp.Path("RUN/sound.out")));
    EXPECT_EQ(FilesBelow(tmp.Path("RUN")), 1u);
}

// A deck of either kind of run, in its own root.
struct Slot {
    const char* sDeckFile;  // below the root
    const char* sOutput;
    const char* sArguments;  // after the root
    const char* sDeck;
};
constexpr Slot kPointSlot{"RUN/sound.dat", "RUN/sound.out", " sound.dat sound.out", "p2p_01.dat"};
constexpr Slot kAreaSlot{"areadata/working.rec", "areadata/working.rg1", " AREA CALC working.rec",
                         "area_02.rec"};

ProgramResult SlotRun(const TempFolder& tmp, const Slot& c, const std::string& sBefore = {})
{
    return EngineRun("rec533w.exe", "'" + tmp.Path() + "'" + c.sArguments, sBefore);
}

// Expects one line of error, status 2 and nothing written.
void ExpectRefused(const TempFolder& tmp, const Slot& c, const ProgramResult& programResult,
                   const std::string& sWhy)
{
    EXPECT_EQ(programResult.nStatus, 2) << sWhy;
    EXPECT_EQ(std::count(programResult.sError.begin(), programResult.sError.end(), '\n'), 1)
        << programResult.sError;
    EXPECT_NE(programResult.sError.find(sWhy), std::string::npos) << programResult.sError;
    EXPECT_EQ(FilesBelow(fs::path(tmp.Path(c.sDeckFile)).parent_path().string()), 1u) << sWhy;
}

struct BadDeck {
    const Slot* pSlot;
    const char* sOld;
    const char* sNew;
    const char* sError;
};

TEST(Rec533Program, EveryKindOfBadDeckIsOneLineStatus2AndNoOutput)
{
    for (const BadDeck& c : {
             BadDeck{&kPointSlot, "FREQ", "\r\nFREQ2",
                     "sound.dat, \"FREQ2\", columns 1-10: not a card of this deck"},
             BadDeck{&kPointSlot, "   11\r", "   13\r", "MONTH, columns 16-20: 13 is not"},
             BadDeck{&kPointSlot, " 38.00N", " 91.00N", "TRANS, columns 32-37: 91.00 is not"},
             BadDeck{&kPointSlot, "20.0\r", "20.0   21.0\r", "FREQ, columns 81-87: more than 10"},
             BadDeck{&kPointSlot, "QUIT", "", "QUIT: the card is missing"},
             BadDeck{&kPointSlot, "SWWHIP", "SWWHAP", "ANTENNA 1, columns 42-62: antenna file"},
             BadDeck{&kAreaSlot, "Coeffs", "Koeffs",
                     "working.rec, \"Koeffs\", columns 1-10: no label of this deck"},
             BadDeck{&kAreaSlot, "6.00\r", "13.0\r", "Months, columns 11-17: 13.0 is not"},
             BadDeck{&kAreaSlot, ": 45.00N", ": 91.00N", "Transmit, columns 11-16: 91.00 is not"},
             BadDeck{&kAreaSlot, "CONST17", "CONST71", "Tx Ants, columns 12-32: antenna file"},
         }) {
        TempFolder tmp;
        std::string sDeck = DeckOf(c.pSlot->sDeck);
        const std::size_t nAt = sDeck.find(c.sOld);
        ASSERT_NE(nAt, std::string::npos) << c.sOld;
        tmp.Write(c.pSlot->sDeckFile, sDeck.replace(nAt, std::string(c.sOld).size(), c.sNew));
        ExpectRefused(tmp, *c.pSlot, SlotRun(tmp, *c.pSlot), c.sError);
    }
}

TEST(Rec533Program, AFolderThatIsReadOnlyIsToldWithTheReason)
{
    for (const Slot* pSlot : {&kPointSlot, &kAreaSlot}) {
        TempFolder tmp;
        const fs::path pthDeck = tmp.Write(pSlot->sDeckFile, DeckOf(pSlot->sDeck));
        fs::permissions(tmp.Path(), fs::perms::all);  // so that the user nobody gets in
        fs::permissions(pthDeck.parent_path(), fs::perms::owner_read | fs::perms::owner_exec
                                                   | fs::perms::others_read
                                                   | fs::perms::others_exec);
        AsUnprivileged([&] {
            ExpectRefused(tmp, *pSlot, SlotRun(tmp, *pSlot),
                          std::string(pSlot->sOutput) + ", Permission denied");
        });
        fs::permissions(pthDeck.parent_path(), fs::perms::all);
    }
}

TEST(Rec533Program, AGridThatMeetsAFullDiskLeavesNoRest)
{
    TempFolder tmp;
    tmp.Write(kAreaSlot.sDeckFile, DeckOf(kAreaSlot.sDeck));
    ExpectRefused(tmp, kAreaSlot, SlotRun(tmp, kAreaSlot, "trap '' XFSZ; ulimit -f 4; "),
                  std::string(kAreaSlot.sOutput) + ", Disk full");
}

TEST(Rec533Program, ADeckThatIsNamedAsTheOutputTooIsKept)
{
    TempFolder tmp;
    const std::string sPoint = tmp.Write("RUN/sound.dat", DeckOf(kPointSlot.sDeck));
    const std::string sArea = tmp.Write("areadata/working.rg1", DeckOf(kAreaSlot.sDeck));
    for (const char* pszArguments : {"sound.dat sound.dat", "AREA CALC working.rg1"})
        EXPECT_EQ(EngineRun("rec533w.exe", "'" + tmp.Path() + "' " + pszArguments).nStatus, 2);
    EXPECT_EQ(BytesRead(sPoint), DeckOf(kPointSlot.sDeck));
    EXPECT_EQ(BytesRead(sArea), DeckOf(kAreaSlot.sDeck));
}

TEST(Rec533Program, AMissingAreaDeckIsToldWithTheReason)
{
    TempFolder tmp;
    const ProgramResult programResult = SlotRun(tmp, kAreaSlot);
    EXPECT_EQ(programResult.nStatus, 2);
    EXPECT_EQ(std::count(programResult.sError.begin(), programResult.sError.end(), '\n'), 1)
        << programResult.sError;
    EXPECT_NE(programResult.sError.find("not found"), std::string::npos) << programResult.sError;
}

TEST(Rec533Program, AMissingDeckOrFolderIsToldWithTheReason)
{
    TempFolder tmp;
    const ProgramResult folderResult =
        EngineRun("rec533w.exe", "'" + tmp.Path("none") + "' sound.dat sound.out");
    EXPECT_EQ(folderResult.nStatus, 2);
    EXPECT_NE(folderResult.sError.find("not found"), std::string::npos) << folderResult.sError;
    tmp.Write("RUN/sound.dat", DeckOf("p2p_01.dat"));
    const ProgramResult output =
        EngineRun("rec533w.exe", "'" + tmp.Path() + "' sound.dat no/such.out");
    EXPECT_EQ(output.nStatus, 2);
    EXPECT_NE(output.sError.find("not found"), std::string::npos) << output.sError;
    const ProgramResult usageNow = EngineRun("rec533w.exe", "'" + tmp.Path() + "'");
    EXPECT_EQ(usageNow.nStatus, 2);
    EXPECT_EQ(usageNow.sError, "rec533w: usage: ROOT DECK OUTPUT, or ROOT AREA CALC DECK\n");
}

TEST(Rec533Program, AFolderThatTakesNoFileIsToldWithTheReason)
{
    TempFolder tmp;
    tmp.Write("RUN/sound.dat", DeckOf("p2p_01.dat"));
    // Nobody can make a file in /proc, not even the superuser.
    const ProgramResult programResult = EngineRun(
        "rec533w.exe", "'" + tmp.Path() + "' sound.dat ../../../../../../../../proc/sound.out");
    EXPECT_EQ(programResult.nStatus, 2);
    EXPECT_EQ(std::count(programResult.sError.begin(), programResult.sError.end(), '\n'), 1);
    fs::create_directory(tmp.Path("RUN/folder.out"));
    const ProgramResult folderResult =
        EngineRun("rec533w.exe", "'" + tmp.Path() + "' sound.dat folder.out");
    EXPECT_EQ(folderResult.nStatus, 2);
    EXPECT_EQ(FilesBelow(tmp.Path("RUN")), 1u);  // the temporary file is gone
}

TEST(Rec533Program, AFullDiskLeavesNoOutputAndNoRest)
{
    TempFolder tmp;
    tmp.Write("RUN/sound.dat", DeckOf("p2p_01.dat"));
    tmp.Write("RUN/sound.out", "old");
    // A limit on file sizes stands for the full disk; the error message is short enough for it.
    const ProgramResult programResult = EngineRun(
        "rec533w.exe", "'" + tmp.Path() + "' sound.dat sound.out", "trap '' XFSZ; ulimit -f 4; ");
    EXPECT_EQ(programResult.nStatus, 2);
    EXPECT_NE(programResult.sError.find("Disk full"), std::string::npos) << programResult.sError;
    EXPECT_EQ(FilesBelow(tmp.Path("RUN")), 1u) << "the deck alone";
}

TEST(Rec533Program, ALinkOrANamedPipeInThePlaceOfItsTemporaryFileIsReplaced)
{
    TempFolder tmp;
    const std::string sMine = tmp.Write("mine", "kept");
    tmp.Write("RUN/sound.dat", PointDeckOf(1));
    for (const char* sMake : {"ln -s '", "mkfifo '"}) {
        const std::string sPart = tmp.Path("RUN/sound.out.part");
        const std::string sBefore =
            sMake + (sMake[0] == 'l' ? sMine + "' '" : std::string()) + sPart + "'; timeout 10 ";
        const ProgramResult programResult =
            EngineRun("rec533w.exe", "'" + tmp.Path() + "' sound.dat sound.out", sBefore);
        EXPECT_EQ(programResult.nStatus, 0) << programResult.sError;
        EXPECT_EQ(BytesRead(sMine), "kept");
        EXPECT_NE(BytesRead(tmp.Path("RUN/sound.out")).find("\n End-of-Run\n"), std::string::npos);
    }
}

TEST(P533Program, ComputesTheReferenceTable)
{
    TempFolder tmp;
    const std::string sTable = tmp.Write(
        "in.csv",
        "id,tx_lat,tx_lon,rx_lat,rx_lon,path,month,ssn,pwr_w,noise,req_snr,req_rel,hour,freq\n"
        "D01,12.72,-119.84,13.7,-119.23,SHORT,1,120,1,CITY,17,99,4,2.58\n");
    const std::string sOut = tmp.Path("out.csv");
    const std::string sFiles = " '" + sTable + "' '" + sOut + "'";
    for (const std::string sOption : {"--reference", "--behaviour reference"}) {
        EXPECT_EQ(EngineRun("hopcast-p533", sOption + sFiles).nStatus, 0);
        EXPECT_NE(BytesRead(sOut).find(",7.771,,,7.771,-107.662,"), std::string::npos);
    }
    EXPECT_EQ(EngineRun("hopcast-p533", "--maps mean '" + sTable + "' '" + sOut + "'").nStatus, 0);
    EXPECT_NE(BytesRead(sOut).find(",7.758,,,7.758,"), std::string::npos);
    EXPECT_EQ(EngineRun("hopcast-p533", "--maps none a b").nStatus, 2);
    EXPECT_EQ(EngineRun("hopcast-p533", "one.csv").nStatus, 2);
    EXPECT_EQ(EngineRun("hopcast-p533", "'" + tmp.Path("none.csv") + "' '" + sOut + "'").nStatus,
              1);
}

TEST(P533Program, TakesTheMeanOfBothMapsUnlessToldOtherwise)
{
    TempFolder tmp;
    const std::string sTable = tmp.Write(
        "in.csv",
        "id,tx_lat,tx_lon,rx_lat,rx_lon,path,month,ssn,pwr_w,noise,req_snr,req_rel,hour,freq\n"
        "D41,16.74,-177.04,-41.88,-38.99,SHORT,5,35,1500,QUIETRURAL,3,10,3,9.01\n");
    const std::string sOut = tmp.Path("out.csv");
    const auto fnRun = [&](const std::string& sOptions) {
        EXPECT_EQ(EngineRun("hopcast-p533", sOptions + " '" + sTable + "' '" + sOut + "'").nStatus,
                  0);
        return BytesRead(sOut);
    };
    EXPECT_NE(fnRun("").find(",-9.023,"), std::string::npos);
    EXPECT_NE(fnRun("--maps ursi").find(",-6.934,"), std::string::npos);
    EXPECT_NE(fnRun("--maps ccir").find(",-14.077,"), std::string::npos);
    // The ITU program has no mean map: the reference uses CCIR's.
    EXPECT_EQ(fnRun("--reference"), fnRun("--reference --maps ccir"));
    EXPECT_NE(fnRun("--reference"), fnRun("--reference --maps mean"));
}

TEST(P533Program, GivesTheIonosphereOverPoints)
{
    TempFolder tmp;
    const std::string sTable =
        tmp.Write("in.csv", "id,lat,lon,month,ssn,hour\nJuliusruh,54.6,13.4,3,8,12\n");
    const std::string sOut = tmp.Path("out.csv");
    EXPECT_EQ(EngineRun("hopcast-p533", "--points '" + sTable + "' '" + sOut + "'").nStatus, 0);
    EXPECT_EQ(BytesRead(sOut).find("id,lat,lon,month,ssn,hour,fof2,m3000,foe,fh,dip,modip\n"
                                   "Juliusruh,54.6,13.4,3,8,12,"),
              0u);
    EXPECT_EQ(EngineRun("hopcast-p533", "'" + sTable + "' '" + sOut + "'").nStatus, 1);
}

TEST(Rec533Program, ARefusedDeckLeavesNoOldOutput)
{
    for (const Slot* pSlot : {&kPointSlot, &kAreaSlot}) {
        TempFolder tmp;
        tmp.Write(pSlot->sDeckFile, "rubbish");
        const std::string sOutput = tmp.Write(pSlot->sOutput, "old");
        EXPECT_EQ(SlotRun(tmp, *pSlot).nStatus, 2);
        EXPECT_FALSE(fs::exists(sOutput));
        EXPECT_EQ(BytesRead(tmp.Path(pSlot->sDeckFile)), "rubbish");
    }
    TempFolder tmp;
    const std::string sDeck = tmp.Write("RUN/sound.dat", DeckOf(kPointSlot.sDeck));
    fs::create_symlink("sound.dat", tmp.Path("RUN/sound.out"));
    EXPECT_EQ(SlotRun(tmp, kPointSlot).nStatus, 2);
    EXPECT_EQ(BytesRead(sDeck), DeckOf(kPointSlot.sDeck)) << "a link to the deck is the deck";
}

TEST(P533Program, NeverOverwritesItsInput)
{
    TempFolder tmp;
    const std::string sTable = tmp.Write("in.csv", "a table");
    fs::create_symlink(sTable, tmp.Path("link.csv"));
    for (const std::string& sOut : {sTable, tmp.Path() + "/./in.csv", tmp.Path("link.csv")}) {
        const ProgramResult programResult =
            EngineRun("hopcast-p533", "'" + sTable + "' '" + sOut + "'");
        EXPECT_EQ(programResult.nStatus, 2) << sOut;
        EXPECT_NE(programResult.sError.find("is the input too"), std::string::npos)
            << programResult.sError;
        EXPECT_EQ(BytesRead(sTable), "a table");
    }
}

}  // namespace
