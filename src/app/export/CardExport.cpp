#include "app/export/CardExport.h"

#include <QGuiApplication>
#include <optional>

#include "app/predict/PredictConsole.h"
#include "app/predict/PredictOptions.h"
#include "app/predict/PredictRun.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/PathLib.h"
#include "ui/card/CardPage.h"
#include "ui/page/PageFile.h"

namespace {

constexpr const char* kProgram = "hopcast";
constexpr const char* kExport = "--export";

int Fail(int nStatus, const std::string& sText) { return PredictFail(kProgram, nStatus, sText); }

struct ExportAsked {
    std::string sFile;
    PredictOptions options;
};

/// Takes --export and its file out of the words; the others are those of hopcast-predict.
Result<std::string> FileTake(std::vector<std::string>& asWords)
{
    const std::string sOption = kExport;
    std::optional<std::string> sFile;
    for (std::size_t n = 0; n < asWords.size();) {
        const bool bJoined = asWords[n].starts_with(sOption + "=");
        if (asWords[n] != sOption && !bJoined) {
            ++n;
            continue;
        }
        if (sFile)
            return RunError{sOption + ": given twice"};
        const auto it = asWords.begin() + static_cast<std::ptrdiff_t>(n);
        if (bJoined)
            sFile = it->substr(sOption.size() + 1);
        else if (n + 1 < asWords.size() && !asWords[n + 1].starts_with("--"))
            sFile = asWords[n + 1];
        if (!sFile || sFile->empty())
            return RunError{sOption + ": a file is missing"};
        asWords.erase(it, it + (bJoined ? 1 : 2));
    }
    return sFile.value_or(std::string());
}

Result<ExportAsked> AskedGet(std::vector<std::string> asWords)
{
    const auto resFile = FileTake(asWords);
    if (!resFile)
        return resFile.ErrorGet();
    if (const auto res = PageFileCheck(QString::fromStdString(resFile.ValueGet())); !res)
        return RunError{std::string(kExport) + ": " + res.TextGet()};
    for (const std::string& sWord : asWords)
        for (const char* sOther :
             {"--area", "--day", "--reach", "--list-stations", "--format", "--output"})
            if (sWord.substr(0, sWord.find('=')) == sOther)
                return RunError{std::string(sOther) + ": does not go with " + kExport};
    auto resOptions = PredictOptionsGet(asWords);
    if (!resOptions)
        return resOptions.ErrorGet();
    return ExportAsked{resFile.ValueGet(), resOptions.ValueGet()};
}

Page PageGet(const PredictOptions& options, const PredictPath& path)
{
    CardAsked asked;
    asked.asNote =
        QString::fromStdString(options.sPlaces).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    asked.asShip = HourLabelsGet(kTimeLocal);
    asked.iTimeCode = path.settings.m_iTimeCode;
    asked.need = options.need ? *options.need
                              : NeedInForce(path.settings.m_aNeed, path.settings.m_sNeedSelected);
    asked.nYear = LocalNow().nYear;
    return CardPageGet(path.table, asked);
}

int Export(const ExportAsked& asked)
{
    MsgSetHandler([](MsgIcon, const std::string& sText) { Fail(kExitFailed, sText); });
    const auto resRoot = EngineRootProvision();
    const auto path = PredictPathGet(asked.options);
    if (!path)
        return resRoot ? kExitFailed
                       : Fail(kExitFailed, "Hopcast's own engine folder: " + resRoot.TextGet());
        // Letters are painted by the toolkit's platform. Windows has one without a window;
        // elsewhere a desktop's theme would ask for the display.
#ifndef Q_OS_WIN
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
#endif
    int nArguments = 1;
    std::string sName = kProgram;
    char* asArguments[] = {sName.data(), nullptr};
    const QGuiApplication app(nArguments, asArguments);
    const auto res =
        PageExport(PageGet(asked.options, *path), {}, QString::fromStdString(asked.sFile));
    if (!res)
        return Fail(kExitFailed, std::string(kExport) + ": " + res.TextGet());
    return path->bWhole ? kExitPredicted : kExitFailed;
}

}  // namespace

int CardExportRun(const std::vector<std::string>& asWords)
{
    const auto resAsked = AskedGet(asWords);
    if (!resAsked)
        return Fail(kExitUsage, resAsked.TextGet());
    if (const std::string sHome = HomeFolderProblemGet(); !sHome.empty())
        return Fail(kExitUsage, sHome);
    return Export(resAsked.ValueGet());
}
