#include "ui/support/MainRig.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "airmail/AirMailFolders.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "ui/details/frmDetails.h"

namespace fs = std::filesystem;

namespace {

constexpr int kChunk = 10;
constexpr int kHours = 24;
/// No child of the test has this process id, so waiting for it ends at once.
constexpr int kNoProcess = 0x3FFFFFFF;

std::string Number(double dValue) { return NumberFormat(dValue, "0.0"); }

std::string Azimuths()
{
    // azimuth to the receiver 43-48, to the transmitter 51-56, nautical miles 60-66
    return " Transmit  AZIMUTHS\n" + RowMake("", 43, 6, {"140.4"}) + "  "
           + RowMake("", 1, 6, {"326.7"}) + "   " + RowMake("", 1, 7, {"1041.1"}) + "\n";
}

}  // namespace

std::string RowMake(const std::string& sLabel, int nColumn, int nWidth,
                    const std::vector<std::string>& asField)
{
    std::string sRow(static_cast<std::size_t>(nColumn - 1), ' ');
    for (const std::string& sField : asField)
        sRow += std::string(static_cast<std::size_t>(nWidth) - sField.size(), ' ') + sField;
    return sLabel.empty() ? sRow : sRow + " " + sLabel + "\n";
}

std::string FakeEngine::VoacapOutput(int iFirst) const
{
    std::string sOut = "  MUF    LUF\n\n";
    for (int iHour = 1; iHour <= kHours; ++iHour)
        sOut += RowMake("", 39, 5, {Number(dMufMhz)}) + "  " + RowMake("", 1, 5, {Number(dLufMhz)})
                + "\n";
    sOut += Azimuths();
    for (int iHour = 1; iHour <= kHours; ++iHour) {
        std::vector<std::string> asMode;
        std::vector<std::string> asNumber;
        std::vector<std::string> asSnr;
        for (int j = iFirst; j < iFirst + kChunk; ++j) {
            asMode.push_back(" 1F2 ");
            asNumber.push_back(Number(j));
            asSnr.push_back(NumberToText(fnSnr(iHour, j)));
        }
        sOut += RowMake("MODE", 12, 5, asMode);
        for (const char* sLabel : {"ANGLE", "DELAY", "V HITE", "S DBW", "N DBW"})
            sOut += RowMake(sLabel, 12, 5, asNumber);
        if (bDeciles) {
            sOut += RowMake("SNR LW", 12, 5, std::vector<std::string>(kChunk, "12.0"));
            sOut += RowMake("SNR UP", 12, 5, std::vector<std::string>(kChunk, "9.0"));
        }
        sOut += RowMake("SNRxx", 12, 5, asSnr);
    }
    return sOut;
}

std::string FakeEngine::Rec533Output(int iFirst) const
{
    std::string sOut = Azimuths();
    for (int iHour = 1; iHour <= kHours; ++iHour) {
        std::vector<std::string> asMode;
        std::vector<std::string> asNumber;
        std::vector<std::string> asSnr;
        for (int j = iFirst; j < iFirst + kChunk; ++j) {
            asMode.push_back(" 1F2");
            asNumber.push_back(Number(j));
            asSnr.push_back(NumberToText(fnSnr(iHour, j)));
        }
        const std::string sMuf = RowMake("", 5, 4, {Number(dMufMhz)});
        sOut += sMuf + std::string(64 - sMuf.size() - 6, ' ') + " FREQ "
                + RowMake("", 1, 4, {Number(dLufMhz)}) + "\n";
        sOut += RowMake("MODE", 9, 5, asMode);
        for (const char* sLabel : {"ANGL", "DBU", "S/N"}) sOut += RowMake(sLabel, 9, 5, asNumber);
        sOut += RowMake("SNxx", 9, 5, asSnr);
    }
    return sOut;
}

Result<int> FakeEngine::Start(const ProcessCommand& command)
{
    const std::string sDeckFile = EngineRootGet().Path(kSoundDeck);
    std::ifstream stmDeck(sDeckFile, std::ios::binary);
    asDeck.emplace_back(std::istreambuf_iterator<char>(stmDeck), std::istreambuf_iterator<char>());
    if (fnDuring)
        fnDuring();
    // More than ten frequencies come in two runs; the second run's deck begins with the eleventh.
    const int iFirst = nStarts % nChunks == 0 ? 1 : 1 + kChunk;
    const bool bFails = bFail || anFailing.count(nStarts) > 0;
    ++nStarts;
    if (bFails)
        return kNoProcess;
    const bool bRec533 = command.asWords.at(0).find("rec533") != std::string::npos;
    std::ofstream stmOut(EngineRootGet().Path(kSoundOutput), std::ios::binary);
    stmOut << (bRec533 ? Rec533Output(iFirst) : VoacapOutput(iFirst));
    return kNoProcess;
}

MainRig::MainRig(int iModel)
    : m_envRoot("HOPCAST_ITSHFBC", m_folder.Path("root")),
      m_envWine("WINEPREFIX", m_folder.Path("wine")),
      m_envConfig("XDG_CONFIG_HOME", m_folder.Path("config")),
      m_clock(ClockSource{[this] { return m_dtUtc; }, [this] { return m_dtLocal; }, {}})
{
    for (const char* sProgram : {"icepacw.exe", "voacapw.exe", "rec533w.exe"})
        m_folder.Write(std::string("root/bin_win/") + sProgram, "program");
    fs::create_directories(m_folder.Path("root") + "/RUN");
    fs::create_directories(m_folder.Path("root") + "/areadata");
    fs::create_directories(m_folder.Path("airmail"));
    QApplication::setApplicationDisplayName(QStringLiteral("Hopcast"));
    m_sProfileFile =
        m_folder.Write("hopcast.ini", "[AirMail Data]\nDirectory Data=" + m_folder.Path("airmail")
                                          + "\n[Propagation Model]\nModel=" + NumberToText(iModel)
                                          + "\nSunSpot Option=False\nSunSpot Number=100\n");
    m_fnStartBefore = ProcessSetHandler(
        [this](const ProcessCommand& command) { return m_engine.Start(command); });
    m_fnDialogBefore = FileDialogSetHandler([this](QWidget*, const FileDialogQuestion& question) {
        m_aAsked.push_back(question);
        return m_sAnswer;
    });
}

MainRig::~MainRig()
{
    m_pFrm.reset();
    ProcessSetHandler(std::move(m_fnStartBefore));
    FileDialogSetHandler(std::move(m_fnDialogBefore));
    AirMailFoldersReset();
}

frmMain& MainRig::Make()
{
    m_pFrm = std::make_unique<frmMain>();
    m_pFrm->m_settings.m_sProfileFile = m_sProfileFile;
    return *m_pFrm;
}

frmMain& MainRig::Start()
{
    frmMain& frm = m_pFrm ? *m_pFrm : Make();
    frm.show();
    EXPECT_TRUE(QTest::qWaitFor([&frm] { return frm.ActivatedIs(); }));
    frm.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frm));
    return frm;
}

void MainRig::EventsRun()
{
    for (int n = 0; n < 5; ++n) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void MainRig::ProfileAdd(const std::string& sLines)
{
    std::ofstream(m_sProfileFile, std::ios::binary | std::ios::app) << sLines;
}

void MainRig::AirmailWrite(const std::string& sFile, const std::string& sBytes)
{
    m_folder.Write("airmail/" + sFile, sBytes);
}
