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

/// One of the two modes, and whole.
Result<void> ModeCheck(const std::vector<GivenOption>& aGiven, PredictOptions& options)
{
    options.bArea = GivenFind(aGiven, "--area") != nullptr;
    const bool bDay = GivenFind(aGiven, "--day") != nullptr;
    for (const GivenOption& given : aGiven) {
        const PredictMode eMode = given.pOption->eMode;
        const std::string sName = given.pOption->sName;
        if (options.bArea
            && (eMode == PredictMode::PointToPoint || (eMode == PredictMode::PathOrDay && !bDay)))
            return RunError{sName + ": does not go with --area"};
        if (!options.bArea && (eMode == PredictMode::Area || eMode == PredictMode::Day))
            return RunError{sName + ": goes with --area only"};
        if (eMode == PredictMode::Day && !bDay)
            return RunError{sName + ": goes with --day only"};
    }
    if (!options.bArea)
        return {};
    for (const char* sHour : {"--hour", "--frequency"}) {
        const bool bGiven = GivenFind(aGiven, sHour) != nullptr;
        if (bGiven && bDay)
            return RunError{std::string(sHour) + ": does not go with --day"};
        if (!bGiven && !bDay)
            return RunError{std::string(sHour) + ": is needed with --area (or --day)"};
    }
    options.eFormat = PredictFormat::Csv;
    if (const GivenOption* pFormat = GivenFind(aGiven, "--format");
        pFormat != nullptr && TextEqualNoCase(pFormat->sValue, "table"))
        return RunError{"--format: an area has no table; give csv or json"};
    return {};
}
