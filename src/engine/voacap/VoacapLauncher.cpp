#include "engine/voacap/VoacapLauncher.h"

#include <filesystem>
#include <optional>

#include "engine/voacap/VoacapDeck.h"
#include "engine/voacap/VoacapOutput.h"
#include "engine/voacap/VoacapRunFolder.h"
#include "system/ChildProcess.h"
#include "system/FileLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace fs = std::filesystem;

namespace {

constexpr int kFailed = 1;
constexpr int kWrong = 2;
constexpr std::size_t kDeckMax = 65536;  // bytes; real decks have less than 1 kB
constexpr std::size_t kConsoleMax = std::size_t{1} << 20;
constexpr std::size_t kMessageMax = 200;

// Names in the private folder. voacapl gets this as its working folder and "." as its root, because
// it cuts long paths and cannot handle blanks.
constexpr const char* kRunFolder = "run";
constexpr const char* kAntennaFolder = "antennas";
constexpr const char* kConsoleFile = "console.txt";
constexpr const char* kPointDeck = "run/sound.dat";
constexpr const char* kPointOutput = "run/sound.out";
constexpr const char* kAreaDeck = "run/working.voa";
constexpr const char* kAreaOutput = "run/working.vg1";

struct Job {
    bool bArea = false;
    fs::path pthRoot;
    fs::path pthDeck;
    fs::path pthOutput;
};

/// A folder of the root, by its name without regard to case, as the package spells it.
fs::path FolderFind(const fs::path& pthRoot, const std::string& sName)
{
    std::error_code err;
    if (fs::exists(pthRoot / sName, err))
        return pthRoot / sName;
    for (fs::directory_iterator itr(pthRoot, err), itrEnd; !err && itr != itrEnd;
         itr.increment(err))
        if (TextEqualNoCase(itr->path().filename().string(), sName))
            return itr->path();
    return pthRoot / sName;
}

std::optional<Job> ArgumentsRead(std::span<const std::string> asArguments)
{
    const auto fnIs = [&](std::size_t i, const char* pszWord) {
        return TextEqualNoCase(asArguments[i], pszWord);
    };
    if (asArguments.size() == 3) {
        const fs::path pthFolder = FolderFind(asArguments[0], "RUN");
        return Job{false, asArguments[0], pthFolder / asArguments[1], pthFolder / asArguments[2]};
    }
    if (asArguments.size() == 4 && fnIs(1, "AREA") && fnIs(2, "CALC")) {
        const fs::path pthDeck = FolderFind(asArguments[0], "areadata") / asArguments[3];
        return Job{true, asArguments[0], pthDeck, fs::path(pthDeck).replace_extension("vg1")};
    }
    return std::nullopt;
}

/// An antenna's file in a folder of antenna folders; empty when it is missing.
fs::path AntennaFind(const fs::path& pthAntennas, const VoacapAntenna& antenna)
{
    std::error_code err;
    const fs::path pthFile = FolderFind(FolderFind(pthAntennas, antenna.sFolder), antenna.sFile);
    return fs::is_regular_file(pthFile, err) ? pthFile : fs::path();
}

Result<void> LinkMake(const fs::path& pthTarget, const fs::path& pthLink)
{
    std::error_code err;
    fs::create_symlink(fs::absolute(pthTarget, err), pthLink, err);
    if (err && err != std::errc::file_exists)  // both ends may use the same antenna
        return RunErrorFromErrno(err.value());
    return {};
}

/// Puts the antenna files where voacapl looks for them: it reads "DEFAULT\CONST17.VOA" in a
/// point-to-point deck as one file name, and turns the backslash in an area deck.
Result<void> AntennasPlace(const VoacapRunFolder& folder, const Job& job, const VoacapDeck& deck,
                           const VoacapPlaces& places)
{
    const fs::path pthAntennas = folder.Path(kAntennaFolder);
    for (const VoacapAntenna& antenna : deck.aAntennas) {
        fs::path pthFile = AntennaFind(FolderFind(job.pthRoot, kAntennaFolder), antenna);
        if (pthFile.empty())
            pthFile = AntennaFind(FolderFind(places.sDataFolder, kAntennaFolder), antenna);
        if (pthFile.empty())
            return RunError{"no antenna file " + antenna.sFolder + "\\" + antenna.sFile};
        std::error_code err;
        fs::create_directories(pthAntennas / antenna.sFolder, err);
        for (const char* pszSlash : {"\\", "/"}) {
            const std::string sName = antenna.sFolder + pszSlash + antenna.sFile;
            if (const auto resMade = LinkMake(pthFile, pthAntennas / sName); !resMade)
                return resMade;
        }
    }
    return {};
}

/// Fills the private folder with links to the package's data and with the translated deck.
Result<void> FolderFill(const VoacapRunFolder& folder, const Job& job, const VoacapDeck& deck,
                        const VoacapPlaces& places)
{
    std::error_code err;
    if (!fs::is_directory(places.sDataFolder, err))
        return RunError{"no data folder " + places.sDataFolder + " (package voacapl-data)"};
    for (const char* pszName : {"coeffs", "database"}) {
        const auto resMade = LinkMake(fs::path(places.sDataFolder) / pszName, folder.Path(pszName));
        if (!resMade)
            return resMade;
    }
    fs::create_directory(folder.Path(kRunFolder), err);
    fs::create_directory(folder.Path(kAntennaFolder), err);
    if (const auto resPlaced = AntennasPlace(folder, job, deck, places); !resPlaced)
        return resPlaced;
    auto resFile = OutputFile::OpenNew(folder.Path(job.bArea ? kAreaDeck : kPointDeck));
    if (!resFile)
        return resFile.ErrorGet();
    if (const auto resWritten = resFile.ValueGet().Write(deck.sText); !resWritten)
        return resWritten;
    return resFile.ValueGet().Close();
}

/// The line of voacapl's output that explains a failure best: its first error, else its last line.
std::string ConsoleCauseGet(const std::string& sConsoleFile)
{
    const auto resConsole = FileRead(sConsoleFile, kConsoleMax);
    if (!resConsole)
        return {};
    std::string sTold;
    for (const std::string_view sRaw : TextLines(resConsole.ValueGet())) {
        const std::string_view sLine = TextTrim(sRaw);
        if (sLine.empty())
            continue;
        sTold = sLine;
        if (sLine.find("rror") != std::string::npos || sLine.starts_with("STOP")
            || sLine.starts_with("Program received"))
            break;
    }
    return sTold.empty() ? sTold : ": " + sTold.substr(0, kMessageMax);
}

Result<void> VoacaplRun(const VoacapRunFolder& folder, const Job& job, const VoacapPlaces& places)
{
    ProcessCommand command;
    command.asWords = {places.sProgram, std::string("--run-dir=") + kRunFolder, "-s", "."};
    if (job.bArea)
        command.asWords.insert(command.asWords.end(), {"area", "calc", "working.voa"});
    else
        command.asWords.insert(command.asWords.end(), {"sound.dat", "sound.out"});
    command.sWorkFolder = folder.Path();
    command.sOutputFile = folder.Path(kConsoleFile);
    command.bOwnGroup = false;  // killing this launcher's group ends both
    auto resChild = ChildProcess::Start(command);
    if (!resChild)
        return RunError{places.sProgram + " cannot be started: " + resChild.TextGet()};
    const ChildResult ended = resChild.ValueGet().Wait(places.dSeconds, places.stop);
    return VoacaplEndCheck(ended, places.stop.stop_requested(), command.sOutputFile);
}

Result<void> OutputCheck(const VoacapRunFolder& folder, const Job& job, const VoacapDeck& deck)
{
    const auto resChecked =
        job.bArea ? VoacapOutputGridCheck(folder.Path(kAreaOutput), deck.nGrid)
                  : VoacapOutputPointCheck(folder.Path(kPointOutput), deck.aFrequencies);
    if (resChecked)
        return {};
    return RunError{"VOACAP's output is not complete (" + resChecked.TextGet() + ")"
                    + ConsoleCauseGet(folder.Path(kConsoleFile))};
}

Result<void> JobRun(const Job& job, const VoacapDeck& deck, const VoacapPlaces& places)
{
    auto resFolder = VoacapRunFolder::Make(job.pthOutput.parent_path().string());
    if (!resFolder)
        return RunError{"no run folder in " + job.pthOutput.parent_path().string() + ": "
                        + resFolder.TextGet()};
    const VoacapRunFolder& folder = resFolder.ValueGet();
    if (const auto resFilled = FolderFill(folder, job, deck, places); !resFilled)
        return resFilled;
    if (const auto resRun = VoacaplRun(folder, job, places); !resRun)
        return resRun;
    if (const auto resChecked = OutputCheck(folder, job, deck); !resChecked)
        return resChecked;
    std::error_code err;
    fs::rename(folder.Path(job.bArea ? kAreaOutput : kPointOutput), job.pthOutput, err);
    if (err)
        return RunError{job.pthOutput.string() + ": " + RunErrorFromErrno(err.value()).sText};
    return {};
}

/// The outcome, with its text printable and on one line, whatever a deck or voacapl contained.
VoacapOutcome OutcomeMake(int nStatus, std::string_view sText)
{
    return {nStatus, TextPrintable(sText)};
}

}  // namespace

Result<void> VoacaplEndCheck(const ChildResult& ended, bool bStop, const std::string& sConsoleFile)
{
    switch (ended.eEnd) {
        case ChildEnd::TimeLimit:
            return RunError{"VOACAP did not finish in time"};
        case ChildEnd::Stopped:
            return RunError{"interrupted"};
        case ChildEnd::Killed:
            // A signal to the group of both may end voacapl before the wait sees the stop.
            return RunError{bStop ? "interrupted"
                                  : "VOACAP crashed" + ConsoleCauseGet(sConsoleFile)};
        case ChildEnd::Exited:
            break;
    }
    if (ended.nCode != 0)
        return RunError{"VOACAP failed" + ConsoleCauseGet(sConsoleFile)};
    return {};
}

VoacapOutcome VoacapLaunch(std::span<const std::string> asArguments, const VoacapPlaces& places)
{
    const auto job = ArgumentsRead(asArguments);
    if (!job)
        return {kWrong, "usage: voacapw.exe ROOT DECK OUTPUT, or voacapw.exe ROOT AREA CALC DECK"};
    const std::string sDeck = "deck " + job->pthDeck.string() + ": ";
    std::error_code errIgnored;
    if (fs::equivalent(job->pthDeck, job->pthOutput, errIgnored))
        return OutcomeMake(kWrong, sDeck + "named as the output too");
    // An old output must not pass for this run's, whatever happens now.
    if (!fs::is_directory(job->pthOutput, errIgnored))
        fs::remove(job->pthOutput, errIgnored);

    const auto resBytes = FileRead(job->pthDeck.string(), kDeckMax);
    if (!resBytes)
        return OutcomeMake(kWrong, sDeck + resBytes.TextGet());
    const auto resDeck =
        job->bArea ? VoacapDeckArea(resBytes.ValueGet()) : VoacapDeckPoint(resBytes.ValueGet());
    if (!resDeck)
        return OutcomeMake(kWrong, sDeck + resDeck.TextGet());
    const auto resRun = JobRun(*job, resDeck.ValueGet(), places);
    if (!resRun)
        return OutcomeMake(kFailed, resRun.TextGet());
    return {};
}
