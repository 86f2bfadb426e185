// The planning windows with a full disk, without a printer, and when the clock is set.
#include <QFile>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>
#include <functional>
#include <ostream>

#include "PlanRig.h"
#include "support/Faults.h"
#include "ui/card/frmCard.h"
#include "ui/compare/frmCompare.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/frmDays.h"
#include "ui/map/frmMap.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kBefore = "what was there before";

struct Window {
    const char* sName;
    Qt::Key eKey;
    PlanWindow* (*fnGet)(const frmMain& frm);
};

std::ostream& operator<<(std::ostream& stm, const Window& window) { return stm << window.sName; }

const Window kWindows[] = {
    {"Reach", Qt::Key_R, [](const frmMain& frm) -> PlanWindow* { return frm.m_pReach; }},
    {"Days", Qt::Key_B, [](const frmMain& frm) -> PlanWindow* { return frm.m_pDays; }},
    {"Compare", Qt::Key_M, [](const frmMain& frm) -> PlanWindow* { return frm.m_pCompare; }},
    {"Curves", Qt::Key_D, [](const frmMain& frm) -> PlanWindow* { return frm.m_pCurves; }},
    {"Card", Qt::Key_P, [](const frmMain& frm) -> PlanWindow* { return frm.m_pCard; }},
};

class OutputFault : public testing::Test {
protected:
    OutputFault()
    {
        rig.OwnPlacesWrite("Near,N18 W130,,\nFar,N47 30 E8 30,,\n");
        fs::create_directory(rig.m_folder.Path("out"));
    }
    [[nodiscard]] std::string OutPath(const std::string& sName) const
    {
        return rig.m_folder.Path("out/" + sName);
    }
    [[nodiscard]] std::vector<std::string> OutNames() const
    {
        std::vector<std::string> asNames;
        for (const auto& entry : fs::directory_iterator(rig.m_folder.Path("out")))
            asNames.push_back(entry.path().filename().string());
        return asNames;
    }
    /// Exports over an old file while the disk is full, and again when it is not.
    void ExportTry(const std::string& sSuffix, const std::function<void()>& fnExport)
    {
        const std::string sName = "a." + sSuffix;
        const std::string sFile = rig.m_folder.Write("out/" + sName, kBefore);
        rig.m_sAnswer = QString::fromStdString(sFile);
        rig.m_msg.m_aShown.clear();
        {
            const FileSizeLimit full(50);
            fnExport();
        }
        ASSERT_EQ(rig.m_msg.m_aShown.size(), 1U) << sSuffix;
        EXPECT_EQ(rig.m_msg.m_aShown[0].sText, sFile + ": Disk full");
        EXPECT_EQ(BytesRead(sFile), kBefore) << "the old file is whole";
        EXPECT_EQ(OutNames(), std::vector{sName}) << "and nothing is beside it";
        fnExport();
        EXPECT_EQ(rig.m_msg.m_aShown.size(), 1U);
        EXPECT_GT(fs::file_size(sFile), 300U);
        EXPECT_EQ(OutNames(), std::vector{sName});
        fs::remove(sFile);
        rig.m_msg.m_aShown.clear();
    }

    PlanRig rig;
};

class WindowFault : public OutputFault, public testing::WithParamInterface<Window> {
protected:
    PlanWindow& Open()
    {
        frmMain& frm = rig.StartWithEngine();
        QTest::keyClick(&frm, GetParam().eKey, Qt::ControlModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return GetParam().fnGet(frm) != nullptr; }));
        PlanWindow& window = *GetParam().fnGet(frm);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        const auto Runs = [&] {
            return (frm.m_pReach && frm.m_pReach->RunningIs())
                   || (frm.m_pDays && frm.m_pDays->RunningIs())
                   || (frm.m_pCompare && frm.m_pCompare->RunningIs());
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return !Runs(); }, 20000));
        return window;
    }
    /// Presses the button and answers the print dialog.
    static void Print(const PlanWindow& window, const std::function<void(QPrintDialog&)>& fnAnswer)
    {
        bool bAnswered = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* const pDialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (pDialog == nullptr)
                return;
            timer.stop();
            bAnswered = true;
            fnAnswer(*pDialog);
        });
        timer.start(5);
        window.cmdPrint->click();
        EXPECT_TRUE(bAnswered);
    }
    /// Chooses a file in the dialog, as a user without a printer does.
    static void PrintToFile(const PlanWindow& window, const std::string& sFile)
    {
        Print(window, [&](QPrintDialog& dlg) {
            dlg.printer()->setOutputFormat(QPrinter::PdfFormat);
            dlg.printer()->setOutputFileName(QString::fromStdString(sFile));
            dlg.done(QDialog::Accepted);
        });
    }
};

INSTANTIATE_TEST_SUITE_P(Windows, WindowFault, testing::ValuesIn(kWindows),
                         [](const auto& test) { return std::string(test.param.sName); });

TEST_P(WindowFault, AFullDiskDuringAnExportLeavesTheOldFileWhole)
{
    PlanWindow& window = Open();
    for (const char* sSuffix : {"csv", "png", "pdf"})
        ExportTry(sSuffix, [&] { window.cmdExport->click(); });
}

TEST_P(WindowFault, WithoutAPrinterThePageIsPrintedToAFile)
{
    PlanWindow& window = Open();
    Print(window, [](QPrintDialog& dlg) { dlg.reject(); });
    EXPECT_TRUE(OutNames().empty());
    PrintToFile(window, OutPath("a.pdf"));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    EXPECT_EQ(OutNames(), std::vector<std::string>{"a.pdf"});
    EXPECT_TRUE(BytesRead(OutPath("a.pdf")).ends_with("%%EOF\n"));
}

TEST_P(WindowFault, APageThatCannotBePrintedToItsFileIsToldAndLeavesNone)
{
    PlanWindow& window = Open();
    const std::string sFile = OutPath("a.pdf");
    {
        const FileSizeLimit full(50);
        PrintToFile(window, sFile);
    }
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1U);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText, sFile + ": Disk full");
    EXPECT_TRUE(OutNames().empty()) << "no half page";
    PrintToFile(window, OutPath("none") + "/a.pdf");
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 2U);
    EXPECT_EQ(rig.m_msg.m_aShown[1].sText, OutPath("none") + "/a.pdf" + ": Path not found");
    PrintToFile(window, sFile);
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 2U) << "the next one is printed";
    EXPECT_GT(fs::file_size(sFile), 300U);
    rig.m_msg.m_aShown.clear();
}

TEST_F(OutputFault, AFullDiskLeavesTheOldFileOfTheMainTableWhole)
{
    frmMain& frm = rig.StartWithEngine();
    for (const char* sSuffix : {"csv", "png", "pdf"})
        ExportTry(sSuffix, [&] { frm.mnuFileExport->trigger(); });
}

TEST_F(OutputFault, AFullDiskLeavesTheOldFileOfTheMapWhole)
{
    frmMain& frm = rig.StartWithEngine();
    frm.mnuViewWorldMap->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frm.m_pMap));
    for (const char* sSuffix : {"png", "pdf"})
        ExportTry(sSuffix, [&] { frm.m_pMap->mnuMapExport->trigger(); });
}

// --- the clock -----------------------------------------------------------------------------------

TEST_F(OutputFault, AClockThatIsSetBackOverMidnightMovesNowAndAsksForNothing)
{
    frmMain& frmM = rig.StartWithEngine();
    frmReach& frm = rig.ReachOpen();
    frm.tmrNow->setInterval(1);
    const Reach* const pBefore = frm.ReachGet();
    const auto aRanking = pBefore->RankingGet();
    ASSERT_EQ(pBefore->InputGet().iFrom, 13);
    for (const DateTime& dt :
         {DateTime{2026, 11, 20, 23, 59, 59}, DateTime{2027, 1, 1, 0, 0, 0},
          DateTime{1999, 12, 31, 23, 0, 0}, DateTime{2026, 11, 21, 13, 5, 0}}) {
        rig.m_dtUtc = dt;
        rig.m_dtLocal = dt;
        EXPECT_TRUE(QTest::qWaitFor([&] { return frm.ReachGet()->InputGet().iFrom == dt.nHour; }))
            << dt.nYear;
        MainRig::EventsRun();
        EXPECT_EQ(frm.ReachGet(), pBefore) << "what was answered stays";
        EXPECT_FALSE(frm.RunningIs());
    }
    EXPECT_EQ(pBefore->RankingGet(), aRanking) << "back at the first hour";
    EXPECT_TRUE(frmM.lblTrouble->text().isEmpty());
}

TEST_F(OutputFault, AClockThatIsSetMovesTheLineOfTheCurvesAndNoOtherWindow)
{
    frmMain& frmM = rig.StartWithEngine();
    frmCurves& frm = rig.WindowOpen(Qt::Key_D, frmM.m_pCurves);
    frmDays& frmD = rig.WindowOpen(Qt::Key_B, frmM.m_pDays);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frmD.RunningIs(); }, 20000));
    const QImage imageBefore = frm.pctCurves->grab().toImage();
    const GridPlace placeBefore = frmD.grdDays->CurrentGet();
    frm.tmrNow->setInterval(1);
    rig.m_dtUtc = DateTime{2025, 2, 28, 2, 0, 0};
    EXPECT_TRUE(QTest::qWaitFor([&] { return frm.pctCurves->grab().toImage() != imageBefore; }));
    rig.m_dtUtc = DateTime{2026, 11, 21, 13, 5, 0};
    EXPECT_TRUE(QTest::qWaitFor([&] { return frm.pctCurves->grab().toImage() == imageBefore; }));
    EXPECT_EQ(frmD.grdDays->CurrentGet(), placeBefore);
    EXPECT_FALSE(frmD.RunningIs());
}

}  // namespace
