/// hopcast: the window program.
#include <QApplication>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QTimer>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "app/engines/EngineList.h"
#include "app/export/CardExport.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "settings/ProfileLib.h"
#include "system/ClockLib.h"
#include "system/ConsoleLib.h"
#include "system/LeftoverLib.h"
#include "system/MemoryLib.h"
#include "system/MsgLib.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/RunErrorText.h"
#include "system/SignalLib.h"
#include "ui/common/Guide.h"
#include "ui/common/MenuKey.h"
#include "ui/common/MsgWindow.h"
#include "ui/common/Words.h"
#include "ui/main/frmMain.h"
#include "ui/options/AppIcon.h"

namespace {

constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;

constexpr const char* kVersion = "hopcast " HOPCAST_VERSION "\n";
constexpr const char* kHelp =
    "hopcast: HF radio contact planning\n"
    "\n"
    "  hopcast [--profile FILE]\n"
    "  hopcast --export FILE [OPTIONS of hopcast-predict]\n"
    "\n"
    "  --profile FILE  settings are read from and saved to FILE; a new FILE starts with\n"
    "                  the values of a new installation\n"
    "  --export FILE   without a window: write the card of the prediction that hopcast-predict\n"
    "                  makes with the same options to FILE, a name that ends in .pdf, .png or\n"
    "                  .csv, and end; with its options for an area at one hour the map of it, to\n"
    "                  a name that ends in .png\n"
    "  --once          start, show the first prediction, print its time in ms, and end\n"
    "  --version       print the version and end\n"
    "  --help          print this text and end\n"
    "\n"
    "Options of the windowing toolkit (-platform, -style, ...) are understood too.\n"
    "\n"
    "Predictions are monthly medians of the short path. Hours are Zulu (UTC) unless local time\n"
    "is chosen. A new installation takes the sunspot number from the mean of past cycles and\n"
    "assumes 100 W. With REC533 the antenna choices mean something else than with VOACAP and\n"
    "ICEPAC: see their tooltip. The key F1 opens the guide.\n";

struct Options {
    std::optional<std::string> sProfile;
    bool bOnce = false;
    bool bExport = false;  ///< the other words are options of a prediction
    bool bVersion = false;
    bool bHelp = false;
    std::string sError;
};

Options OptionsGet(const std::vector<std::string>& asWords)
{
    Options options;
    const auto Refuse = [&options](const std::string& sWhy) {
        if (options.sError.empty())
            options.sError = sWhy;
    };
    for (std::size_t n = 0; n < asWords.size(); ++n) {
        const std::string& sWord = asWords[n];
        if (sWord == "--help" || sWord == "-h")
            options.bHelp = true;
        else if (sWord == "--version")
            options.bVersion = true;
        else if (sWord == "--once")
            options.bOnce = true;
        else if (sWord == "--profile" && n + 1 < asWords.size() && !asWords[n + 1].empty())
            options.sProfile = asWords[++n];
        else if (sWord == "--profile")
            Refuse(QObject::tr("--profile: a file is missing").toStdString());
        else if (sWord == "--export" || sWord.starts_with("--export="))
            options.bExport = true;
        else
            Refuse(WordsPut(QObject::tr("%1: unknown option (hopcast --help)"), sWord));
    }
    return options;
}

/// Ends the program once the first table is painted, with status 1 if there is none.
void OnceSetUp(frmMain& frm)
{
    const double dStart = TimerGet();
    QObject::connect(&frm, &frmMain::Activated, &frm, [&frm, dStart] {
        frm.repaint();
        QApplication::processEvents();
        constexpr double kMilliseconds = 1000.0;
        std::printf("%.0f\n", (TimerGet() - dStart) * kMilliseconds);
        std::fflush(stdout);
        frm.close();
        if (frm.TableGet().nData == 0)
            QApplication::exit(kExitFailed);
    });
}

/// Makes the end of the session, a closed terminal and Ctrl-C close the main window, and an open
/// dialog before it.
void EndSignalsSetUp(QApplication& app)
{
    const int nPipe = EndSignalsPipe();
    if (nPipe < 0)
        return;
    auto* const pNotifier = new QSocketNotifier(nPipe, QSocketNotifier::Read, &app);
    auto* const ptmrEnd = new QTimer(&app);  // a current run may still show boxes
    constexpr int kAgain = 100;              // ms
    ptmrEnd->setInterval(kAgain);
    QObject::connect(ptmrEnd, &QTimer::timeout, &app, &QApplication::closeAllWindows);
    QObject::connect(pNotifier, &QSocketNotifier::activated, &app, [pNotifier, ptmrEnd] {
        pNotifier->setEnabled(false);
        ptmrEnd->start();
        QApplication::closeAllWindows();
    });
}

int WindowRun(QApplication& app, const Options& options)
{
    QApplication::setApplicationVersion(QStringLiteral(HOPCAST_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("hopcast"));
    QApplication::setWindowIcon(AppIconGet());
    EventPumpSetHandler([] { QApplication::processEvents(); });
    if (const auto res = EngineRootProvision(); !res)
        MsgBox(MsgIcon::Info,
               WordsPut(QObject::tr("Hopcast's own engine folder could not be made: %1"),
                        res.TextGet()));
    EndSignalsSetUp(app);
    GuideKeyInstall(app);
    MenuKeyInstall(app);
    frmMain frm;
    frm.EnginesSet(EngineMake);
    if (options.sProfile) {
        // Windows looks for a profile without a folder in the Windows folder.
        const QFileInfo info(QString::fromStdString(*options.sProfile));
        frm.m_settings.m_sProfileFile = info.absoluteFilePath().toStdString();
        if (PrivateProfileCheck(frm.m_settings.m_sProfileFile).TextGet() == kFileNotFound)
            ProfileShippedSet(frm.m_settings);
    }
    LeftoversRemove(QFileInfo(QString::fromStdString(frm.m_settings.m_sProfileFile))
                        .absolutePath()
                        .toStdString());
    if (options.bOnce)
        OnceSetUp(frm);
    frm.show();
    return app.exec();
}

/// Why the program cannot start with these options; empty if it can.
std::string ProblemGet(const Options& options)
{
    if (std::string sHome = HomeFolderProblemGet(); !sHome.empty())
        return sHome;
    if (!options.sProfile)
        return {};
    const QFileInfo info(QString::fromStdString(*options.sProfile));
    const std::string sWhy = PrivateProfileCheck(info.absoluteFilePath().toStdString()).TextGet();
    return sWhy.empty() || sWhy == kFileNotFound
               ? std::string()
               : WordsPut(QObject::tr("--profile: %1, %2"), sWhy, *options.sProfile);
}

/// The words that Qt has left.
std::vector<std::string> WordsGet()
{
    std::vector<std::string> asWords;
    for (const QString& sWord : QApplication::arguments().mid(1))
        asWords.push_back(sWord.toStdString());
    return asWords;
}

}  // namespace

int main(int nArguments, char** asArguments)
{
    OutOfMemoryHandle("hopcast", kExitFailed, EngineRootRelease);
    const bool bConsole = ConsoleIsOpen();
    const std::vector<std::string> asAlone = ArgumentsGet(nArguments, asArguments);
    const Options optionsAlone = OptionsGet(asAlone);
    const char* sAnswer = optionsAlone.bHelp ? kHelp : optionsAlone.bVersion ? kVersion : nullptr;
    // These two answer even on a machine without a display.
    if (sAnswer && bConsole) {
        std::fputs(sAnswer, stdout);
        return 0;
    }
    if (optionsAlone.bExport && !sAnswer) {
        const ConsoleUtf8 console;
        EndSignalsHandle(EngineRootRelease);
        return CardExportRun(asAlone);
    }
    QApplication app(nArguments, asArguments);
    // No display name: Qt would append it to the title of every other window.
    QApplication::setApplicationName(QStringLiteral("Hopcast"));
    MsgWindowInstall();
    if (sAnswer) {
        MsgBox(MsgIcon::None, sAnswer);
        return 0;
    }
    Options options = OptionsGet(WordsGet());
    if (options.sError.empty())
        options.sError = ProblemGet(options);
    if (!options.sError.empty()) {
        if (bConsole)
            std::fprintf(stderr, "hopcast: %s\n", options.sError.c_str());
        else
            MsgBox(MsgIcon::Exclamation, options.sError);
        return kExitUsage;
    }
    return WindowRun(app, options);
}
