#include "app/export/CardExport.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <algorithm>
#include <functional>
#include <optional>

#include "app/export/AreaPicture.h"
#include "app/predict/PredictConsole.h"
#include "app/predict/PredictOptions.h"
#include "app/predict/PredictRun.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/PathLib.h"
#include "ui/card/CardPage.h"
#include "ui/common/PaletteShown.h"
#include "ui/page/PageFile.h"

namespace {

constexpr const char* kProgram = "hopcast";
constexpr const char* kExport = "--export";

int Fail(int nStatus, const std::string& sText) { return PredictFail(kProgram, nStatus, sText); }

struct ExportRequest {
    std::string sFile;
    PredictOptions options;
};

/// Removes --export and its file from the words; the others are those of hopcast-predict.
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

/// An option is among the words, with its value behind it or joined.
bool OptionIs(const std::vector<std::string>& asWords, const std::string& sOption)
{
    return std::any_of(asWords.begin(), asWords.end(), [&sOption](const std::string& sWord) {
        return sWord.substr(0, sWord.find('=')) == sOption;
    });
}

Result<ExportRequest> RequestGet(std::vector<std::string> asWords)
{
    const auto resFile = FileTake(asWords);
    if (!resFile)
        return resFile.ErrorGet();
    const bool bArea = OptionIs(asWords, "--area");
    const QString sFile = QString::fromStdString(resFile.ValueGet());
    if (bArea && QFileInfo(sFile).suffix().toLower() != QLatin1String("png"))
        return RunError{std::string(kExport) + ": a map (--area) is written as .png, not as "
                        + resFile.ValueGet()};
    if (const auto res = PageFileCheck(sFile); !res)
        return RunError{std::string(kExport) + ": " + res.TextGet()};
    for (const char* sOther :
         {"--day", "--reach", "--list-stations", "--compare", "--format", "--output"})
        if (OptionIs(asWords, sOther))
            return RunError{std::string(sOther) + ": does not go with " + kExport};
    auto resOptions = PredictOptionsGet(asWords);
    if (!resOptions)
        return resOptions.ErrorGet();
    return ExportRequest{resFile.ValueGet(), resOptions.ValueGet()};
}

Page PageGet(const PredictOptions& options, const PredictPath& path)
{
    CardInput input;
    input.asNote =
        QString::fromStdString(options.sPlaces).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    input.asShip = HourLabelsGet(kTimeLocal);
    input.iTimeCode = path.settings.m_iTimeCode;
    input.need = options.need ? *options.need
                              : NeedInForce(path.settings.m_aNeed, path.settings.m_sNeedSelected);
    input.nYear = LocalNow().nYear;
    return CardPageGet(path.table, input);
}

/// A prediction that is done, and how it becomes the file.
struct Predicted {
    std::function<Result<void>()> fnWrite;
    bool bWhole = true;  ///< as in PredictPath
    Palette ePalette = Palette::Standard;
};

/// @return nothing when it failed (a box has told why)
std::optional<Predicted> Predict(const ExportRequest& request)
{
    const QString sFile = QString::fromStdString(request.sFile);
    const PredictOptions& options = request.options;
    if (options.bArea) {
        auto run = PredictAreaRunGet(options);
        if (!run)
            return std::nullopt;
        const Palette ePalette = run->settings.m_ePalette;
        return Predicted{[run = std::move(*run), area = options.area, sFile] {
                             return ImageSave(AreaPictureGet(area, run), sFile);
                         },
                         true, ePalette};
    }
    auto path = PredictPathGet(options);
    if (!path)
        return std::nullopt;
    const bool bWhole = path->bWhole;
    const Palette ePalette = path->settings.m_ePalette;
    return Predicted{[path = std::move(*path), &options, sFile] {
                         return PageExport(PageGet(options, path), {}, sFile);
                     },
                     bWhole, ePalette};
}

int Export(const ExportRequest& request)
{
    MsgSetHandler([](MsgIcon, const std::string& sText) { Fail(kExitFailed, sText); });
    const auto resRoot = EngineRootProvision();
    const auto predicted = Predict(request);
    if (!predicted)
        return resRoot ? kExitFailed
                       : Fail(kExitFailed, "Hopcast's own engine folder: " + resRoot.TextGet());
        // Text is painted by Qt's platform plugin. On Windows that works without a window;
        // elsewhere a desktop's theme would need the display.
#ifndef Q_OS_WIN
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
#endif
    int nArguments = 1;
    std::string sName = kProgram;
    char* asArguments[] = {sName.data(), nullptr};
    const QGuiApplication app(nArguments, asArguments);
    PaletteShow(predicted->ePalette);
    if (const auto res = predicted->fnWrite(); !res)
        return Fail(kExitFailed, std::string(kExport) + ": " + res.TextGet());
    return predicted->bWhole ? kExitPredicted : kExitFailed;
}

}  // namespace

int CardExportRun(const std::vector<std::string>& asWords)
{
    const auto resRequest = RequestGet(asWords);
    if (!resRequest)
        return Fail(kExitUsage, resRequest.TextGet());
    if (const std::string sHome = HomeFolderProblemGet(); !sHome.empty())
        return Fail(kExitUsage, sHome);
    return Export(resRequest.ValueGet());
}
