#include "app/predict/PredictArguments.h"

#include "system/TextLib.h"

/// Words to options with their values ("--month 3" and "--month=3").
Result<std::vector<GivenOption>> GivenGet(std::span<const std::string> asArguments,
                                          const std::vector<PredictOption>& aOption)
{
    std::vector<GivenOption> aGiven;
    for (std::size_t n = 0; n < asArguments.size(); ++n) {
        const std::string& sWord = asArguments[n];
        const std::size_t nEqual = sWord.find('=');
        const std::string sName = sWord.substr(0, nEqual);
        const PredictOption* pFound = nullptr;
        for (const PredictOption& opt : aOption) {
            if (sName == opt.sName)
                pFound = &opt;
        }
        if (pFound == nullptr)
            return RunError{"unknown option " + sWord + " (see --help)"};
        for (const GivenOption& given : aGiven) {
            if (given.pOption == pFound)
                return RunError{sName + ": given twice"};
        }
        if (!pFound->bValue) {
            if (nEqual != std::string::npos)
                return RunError{sName + ": takes no value"};
            aGiven.push_back({pFound, sName});
            continue;
        }
        if (nEqual != std::string::npos)
            aGiven.push_back({pFound, sWord.substr(nEqual + 1)});
        else if (n + 1 < asArguments.size() && !asArguments[n + 1].starts_with("--"))
            aGiven.push_back({pFound, asArguments[++n]});
        else
            return RunError{sName + ": a value is missing"};
        if (aGiven.back().sValue.empty())
            return RunError{sName + ": a value is missing"};
    }
    return aGiven;
}

const GivenOption* GivenFind(const std::vector<GivenOption>& aGiven, std::string_view sName)
{
    for (const GivenOption& given : aGiven) {
        if (given.pOption->sName == sName)
            return &given;
    }
    return nullptr;
}

namespace {

/// The option that selects a kind.
const char* KindOption(PredictKind eKind)
{
    switch (eKind) {
        case kKindDay:
            return "--day";
        case kKindReach:
            return "--reach";
        case kKindStations:
            return "--list-stations";
        default:
            return "--area";
    }
}

Result<PredictKind> KindGet(const std::vector<GivenOption>& aGiven)
{
    const auto Given = [&](const char* sName) { return GivenFind(aGiven, sName) != nullptr; };
    const bool bArea = Given("--area");
    if (Given("--day") && !bArea)
        return RunError{"--day: goes with --area only"};
    if (Given("--list-stations"))
        return kKindStations;
    if (Given("--reach"))
        return kKindReach;
    if (bArea)
        return Given("--day") ? kKindDay : kKindHour;
    return kKindPath;
}

/// Why an option does not go with the kind; empty if it does.
std::string MismatchGet(const PredictOption& option, PredictKind eKind)
{
    if ((option.nKinds & eKind) != 0)
        return {};
    if (option.nKinds == kKindDay && eKind == kKindHour)
        return ": goes with --day only";
    if (eKind == kKindPath) {
        const bool bArea = (option.nKinds & kKindArea) != 0;
        return std::string(": goes with ") + KindOption(bArea ? kKindHour : kKindReach) + " only";
    }
    const bool bDayAlone = eKind == kKindDay && (option.nKinds & kKindHour) == 0;
    return std::string(": does not go with ") + KindOption(bDayAlone ? kKindHour : eKind);
}

/// Kinds without a table are printed as csv, unless json is given and exists for them.
Result<void> FormatCheck(const std::vector<GivenOption>& aGiven, PredictOptions& options)
{
    options.eFormat = PredictFormat::Csv;
    const GivenOption* pFormat = GivenFind(aGiven, "--format");
    if (pFormat == nullptr)
        return {};
    if (GivenFind(aGiven, "--compare") != nullptr && !TextEqualNoCase(pFormat->sValue, "csv"))
        return RunError{"--format: a comparison is csv"};
    if (!options.bArea && !TextEqualNoCase(pFormat->sValue, "csv"))
        return RunError{"--format: lists of stations are csv"};
    if (TextEqualNoCase(pFormat->sValue, "table"))
        return RunError{"--format: an area has no table; give csv or json"};
    return {};
}

}  // namespace

Result<void> ModeCheck(const std::vector<GivenOption>& aGiven, PredictOptions& options)
{
    const auto resKind = KindGet(aGiven);
    if (!resKind)
        return resKind.ErrorGet();
    const PredictKind eKind = resKind.ValueGet();
    for (const GivenOption& given : aGiven) {
        if (const std::string sWhy = MismatchGet(*given.pOption, eKind); !sWhy.empty())
            return RunError{given.pOption->sName + sWhy};
    }
    options.bArea = (eKind & kKindArea) != 0;
    options.bReach = eKind == kKindReach;
    options.bStations = eKind == kKindStations;
    for (const char* sHour : {"--hour", "--frequency"}) {
        if (eKind == kKindHour && GivenFind(aGiven, sHour) == nullptr)
            return RunError{std::string(sHour) + ": is needed with --area (or --day)"};
    }
    const bool bTable = eKind == kKindPath && GivenFind(aGiven, "--compare") == nullptr;
    return bTable ? Result<void>() : FormatCheck(aGiven, options);
}
