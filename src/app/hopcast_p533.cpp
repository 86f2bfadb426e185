// Runs the prediction method on a table of circuits, for checking and research.
//
//   hopcast-p533 [--behaviour best|corrected|reference] [--reference] [--maps ccir|ursi|mean]
//   [--points] IN.csv OUT.csv
//
// Without --maps the mean of both maps is used, but the reference uses that of the ITU program.
// --points reads a table of places and gives the ionosphere over them.
//
// Exit status: 0 done, 1 the table or a file cannot be used (one line on standard error), 2 wrong
// usage.

#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/run533/CircuitTable.h"
#include "engine/run533/PointTable.h"
#include "system/ConsoleLib.h"
#include "system/FileLib.h"

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;
constexpr std::size_t kTableMost = std::size_t{1} << 30;

struct Options {
    rec533::Behaviour eBehaviour = rec533::Behaviour::Best;
    std::optional<rec533::MapSet> eMaps;
    bool bPoints = false;
    std::vector<std::string> aFiles;
};

bool BehaviourRead(Options& options, std::string_view sName)
{
    if (sName == "best")
        options.eBehaviour = rec533::Behaviour::Best;
    else if (sName == "corrected")
        options.eBehaviour = rec533::Behaviour::Corrected;
    else if (sName == "reference")
        options.eBehaviour = rec533::Behaviour::Reference;
    else
        return false;
    return true;
}

bool MapsRead(Options& options, std::string_view sName)
{
    if (sName == "ccir")
        options.eMaps = rec533::MapSet::Ccir;
    else if (sName == "ursi")
        options.eMaps = rec533::MapSet::Ursi;
    else if (sName == "mean")
        options.eMaps = rec533::MapSet::Mean;
    else
        return false;
    return true;
}

bool OptionsRead(Options& options, const std::vector<std::string>& asWords)
{
    for (std::size_t i = 0; i < asWords.size(); ++i) {
        const std::string_view sArgument = asWords[i];
        const bool bNext = i + 1 < asWords.size();
        if (sArgument == "--reference") {
            options.eBehaviour = rec533::Behaviour::Reference;
        } else if (sArgument == "--points") {
            options.bPoints = true;
        } else if (sArgument == "--behaviour") {
            if (!bNext || !BehaviourRead(options, asWords[++i]))
                return false;
        } else if (sArgument == "--maps") {
            if (!bNext || !MapsRead(options, asWords[++i]))
                return false;
        } else if (sArgument.substr(0, 2) == "--") {
            return false;
        } else {
            options.aFiles.emplace_back(sArgument);
        }
    }
    return options.aFiles.size() == 2;
}

Result<void> TableRun(const Options& options)
{
    const Result<std::string> resTable = FileRead(options.aFiles[0], kTableMost);
    if (!resTable)
        return RunError{options.aFiles[0] + ", " + resTable.TextGet()};
    const bool bReference = options.eBehaviour == rec533::Behaviour::Reference;
    const rec533::MapSet eMaps =
        options.eMaps.value_or(bReference ? rec533::MapSet::Ccir : rec533::MapSet::Mean);
    const Result<std::string> resOut =
        options.bPoints ? run533::PointTableMake(resTable.ValueGet(), options.eBehaviour, eMaps)
                        : run533::CircuitTableMake(resTable.ValueGet(), options.eBehaviour, eMaps);
    if (!resOut)
        return RunError{options.aFiles[0] + ", " + resOut.TextGet()};
    const Result<void> resWritten = FileReplace(options.aFiles[1], resOut.ValueGet());
    return resWritten ? resWritten : RunError{options.aFiles[1] + ", " + resWritten.TextGet()};
}

}  // namespace

int main(int nCount, char** pArguments)
{
    const ConsoleUtf8 console;
    std::string sError;
    try {
        Options options;
        if (!OptionsRead(options, ArgumentsGet(nCount, pArguments))) {
            std::fputs(
                "usage: hopcast-p533 [--behaviour best|corrected|reference] [--reference]"
                " [--maps ccir|ursi|mean] [--points] IN.csv OUT.csv\n",
                stderr);
            return kUsage;
        }
        if (options.aFiles[0] == options.aFiles[1]
            || FileSame(options.aFiles[0], options.aFiles[1])) {
            std::fprintf(stderr, "hopcast-p533: %s is the input too; name another output\n",
                         options.aFiles[1].c_str());
            return kUsage;
        }
        const Result<void> resRun = TableRun(options);
        if (resRun)
            return 0;
        sError = resRun.TextGet();
    } catch (const std::exception& error) {
        sError = error.what();
    }
    std::fprintf(stderr, "hopcast-p533: %s\n", sError.c_str());
    return kFailed;
}
