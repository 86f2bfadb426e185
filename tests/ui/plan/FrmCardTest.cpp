#include <QClipboard>
#include <QComboBox>
#include <QMimeData>
#include <QPushButton>
#include <filesystem>

#include "PlanRig.h"
#include "support/ProgramRun.h"
#include "ui/card/frmCard.h"
#include "ui/common/PaletteShown.h"

namespace {

class FrmCard : public testing::Test {
protected:
    frmCard& Open()
    {
        if (!rig.m_pFrm)
            rig.StartWithEngine();
        rig.m_pFrm->mnuFilePrintCard->trigger();
        EXPECT_TRUE(QTest::qWaitForWindowActive(rig.m_pFrm->m_pCard.data()));
        return *rig.m_pFrm->m_pCard;
    }
    frmMain& Main() { return *rig.m_pFrm; }
    PlanRig rig;
};

TEST_F(FrmCard, ItsTableIsTheMainTable)
{
    frmCard& frm = Open();
    const PropagationTable& table = Main().TableGet();
    const Page page = frm.PageGet();
    const auto& grid = std::get<PageGrid>(page.aBlock[1].body);
    ASSERT_EQ(grid.RowsGet(), 24);
    ASSERT_EQ(grid.ColsGet(), table.nData);
    for (int iHour = 1; iHour <= 24; ++iHour)
        for (int i = 1; i <= table.nData; ++i)
            EXPECT_EQ(grid.CellGet(iHour - 1, i - 1).sText, Main().grdData->TextGet(i, iHour));
    EXPECT_EQ(frm.lblFoot->text(), page.sFoot);
    EXPECT_TRUE(page.sFoot.endsWith(QStringLiteral("need: E-mail, normal, 40 dB")))
        << page.sFoot.toStdString();
}

TEST_F(FrmCard, TheSheetFollowsThePaletteAndInNightIsTheStandardOneShownDark)
{
    frmCard& frm = Open();
    const QImage imgStandard = frm.picPreview->SheetGet();
    PaletteShow(Palette::Safe);
    EXPECT_NE(frm.picPreview->SheetGet(), imgStandard);
    PaletteShow(Palette::Night);
    EXPECT_EQ(frm.picPreview->SheetGet(), imgStandard);
    const QImage imgShown = frm.picPreview->grab().toImage();
    const QRgb nPaper = imgShown.pixel(imgShown.width() / 2, 12);
    PaletteShow(Palette::Standard);
    EXPECT_EQ(QColor(nPaper), QColor(Qt::black));
    EXPECT_EQ(frm.picPreview->SheetGet(), imgStandard);
}

TEST_F(FrmCard, ShowsTheSheetAsItIsChosen)
{
    frmCard& frm = Open();
    EXPECT_EQ(frm.FormGet().ePaper, QPageSize::A4);
    const QSize sizeA4 = frm.picPreview->SheetGet().size();
    EXPECT_GT(sizeA4.height(), sizeA4.width());
    QTest::keyClick(frm.cmbPaper, Qt::Key_Down);
    EXPECT_EQ(frm.FormGet().ePaper, QPageSize::Letter);
    EXPECT_NE(frm.picPreview->SheetGet().size(), sizeA4);
    QTest::keyClick(frm.cmbOrientation, Qt::Key_Down);
    EXPECT_GT(frm.picPreview->SheetGet().width(), frm.picPreview->SheetGet().height());
    const QImage imgColour = frm.picPreview->SheetGet();
    QTest::keyClick(frm.cmbLook, Qt::Key_Down);
    EXPECT_EQ(frm.FormGet().eLook, PageLook::BlackWhite);
    EXPECT_NE(frm.picPreview->SheetGet(), imgColour);
    EXPECT_TRUE(frm.picPreview->accessibleDescription().contains(frm.PageGet().sTitle));
}

TEST_F(FrmCard, EscapeClosesAndPlaceAndChoicesAreKept)
{
    {
        frmCard& frm = Open();
        frm.cmbOrientation->setCurrentIndex(1);
        frm.cmbLook->setCurrentIndex(1);
        frm.resize(700, 650);
        MainRig::EventsRun();
        QTest::keyClick(&frm, Qt::Key_Escape);
        MainRig::EventsRun();
    }
    ASSERT_TRUE(Main().m_pCard.isNull());
    EXPECT_TRUE(Main().m_settings.m_aPlanWindow.at(static_cast<std::size_t>(PlanName::Card)));
    const frmCard& frm = Open();
    EXPECT_EQ(frm.size(), QSize(700, 650));
    EXPECT_EQ(frm.cmbOrientation->currentText(), QStringLiteral("Landscape"));
    EXPECT_EQ(frm.FormGet().eOrientation, QPageLayout::Landscape);
    EXPECT_EQ(frm.FormGet().eLook, PageLook::BlackWhite);
}

TEST_F(FrmCard, EveryControlIsReachedByTab)
{
    frmCard& frm = Open();
    std::vector<QWidget*> apSeen;
    for (int n = 0; n < 6; ++n) {
        apSeen.push_back(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    const std::vector<QWidget*> apWanted{frm.cmbPaper, frm.cmbOrientation, frm.cmbLook,
                                         frm.cmdCopy,  frm.cmdExport,      frm.cmdPrint};
    EXPECT_EQ(apSeen, apWanted);
}

TEST_F(FrmCard, FollowsTheTableAndTheNeed)
{
    frmCard& frm = Open();
    const QImage imgBefore = frm.picPreview->SheetGet();
    Main().m_settings.m_dTxLat += 5.0;
    ASSERT_TRUE(Main().Update());
    EXPECT_NE(frm.picPreview->SheetGet(), imgBefore);
    Main().m_settings.m_sNeedSelected = "FT8";
    Q_EMIT Main().SettingsSignalGet().NeedChosen();
    EXPECT_TRUE(frm.lblFoot->text().endsWith(QStringLiteral("need: FT8, 13 dB")));
}

TEST_F(FrmCard, ATableThatIsNotTheSettingsIsMarkedAsOld)
{
    frmCard& frm = Open();
    EXPECT_FALSE(frm.lblFoot->text().contains(QStringLiteral("earlier update")));
    Main().m_settings.m_nData = 0;
    EXPECT_FALSE(Main().Update());
    EXPECT_TRUE(frm.lblFoot->text().endsWith(QStringLiteral("earlier update")))
        << frm.lblFoot->text().toStdString();
    rig.m_msg.m_aShown.clear();
}

TEST_F(FrmCard, NamesTheStationOfTheMainWindowsTitle)
{
    rig.AirmailWrite("System.SailMail.ini", kStationsSail);
    rig.StartWithEngine();
    const frmReach& reach = rig.ReachOpen();
    QTest::keyClick(reach.grdReach, Qt::Key_Return);
    MainRig::EventsRun();
    const QString sTitle = Main().windowTitle();
    const frmCard& frm = Open();
    EXPECT_EQ(
        QStringLiteral("Hopcast - ") + frm.PageGet().sTitle.section(QStringLiteral(" to "), 0, 0),
        sTitle);
}

TEST_F(FrmCard, SavesAsItIsShownAndCopiesTheTable)
{
    frmCard& frm = Open();
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("card.pdf"));
    frm.cmdExport->click();
    ASSERT_EQ(rig.m_aAsked.size(), 1U);
    EXPECT_EQ(rig.m_aAsked[0].sFile, QStringLiteral("Card.pdf"));
    EXPECT_TRUE(rig.m_aAsked[0].sFilter.endsWith(QStringLiteral("|*.pdf")));
    const ProgramResult text =
        ProgramRun({"/usr/bin/pdftotext", "-layout", rig.m_folder.Path("card.pdf"), "-"});
    EXPECT_NE(text.sOut.find("REC533"), std::string::npos) << text.sOut << text.sError;
    frm.cmdCopy->click();
    const QMimeData* pData = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(pData->text().count(u'\n'), 24);
    EXPECT_EQ(pData->html().count(QStringLiteral("<td")), 24 * Main().TableGet().nData);
    EXPECT_TRUE(pData->html().contains(QStringLiteral("background:#")));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

}  // namespace
