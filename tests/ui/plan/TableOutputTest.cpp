#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <filesystem>
#include <set>

#include "PlanRig.h"
#include "ui/card/frmCard.h"
#include "ui/details/frmDetails.h"
#include "ui/places/frmPlaces.h"

namespace {

class TableOutputInMain : public testing::Test {
protected:
    TableOutputInMain() { rig.StartWithEngine(); }
    void Focus(QWidget& widget)
    {
        widget.window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(widget.window()));
        widget.setFocus();
    }
    static void Key(Qt::Key eKey, Qt::KeyboardModifiers eModifiers)
    {
        QTest::keyClick(QApplication::focusWidget(), eKey, eModifiers);
    }
    static QString Clip() { return QGuiApplication::clipboard()->text(); }
    /// Compares lines of cells with the table.
    void ExpectTable(const std::vector<QStringList>& aLine)
    {
        const PropagationTable& table = Main().TableGet();
        ASSERT_EQ(aLine.size(), static_cast<std::size_t>(table.nData) + 1);
        for (int i = 1; i <= table.nData; ++i) {
            const QStringList& asCell = aLine[static_cast<std::size_t>(i)];
            ASSERT_EQ(asCell.size(), 25);
            EXPECT_EQ(asCell[0].toFloat(), table.request.FrequencyGet(i));
            for (int iHour = 1; iHour <= 24; ++iHour)
                EXPECT_NEAR(asCell[iHour].toFloat(), table.fSnr(iHour, i), 0.5);
        }
    }
    frmMain& Main() { return *rig.m_pFrm; }
    PlanRig rig;
};

std::vector<QStringList> LinesOf(const QString& sText, const QString& sLineEnd, QChar chBetween)
{
    std::vector<QStringList> aLine;
    for (const QString& sLine : sText.split(sLineEnd, Qt::SkipEmptyParts))
        aLine.push_back(sLine.split(chBetween));
    return aLine;
}

TEST_F(TableOutputInMain, CopyTableIsTextAndColouredTableInOne)
{
    Main().mnuFileCopyTable->trigger();
    ExpectTable(LinesOf(Clip(), QStringLiteral("\n"), u'\t'));
    const QString sHtml = QGuiApplication::clipboard()->mimeData()->html();
    EXPECT_EQ(sHtml.count(QStringLiteral("<td")), 24 * Main().TableGet().nData);
    const QString sColour = Main().grdData->CellGet(1, 1).clrBack.name();
    EXPECT_TRUE(sHtml.contains(QStringLiteral("background:") + sColour));
}

TEST_F(TableOutputInMain, ExportWritesTheTableBySuffix)
{
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("table.csv"));
    Main().mnuFileExport->trigger();
    ExpectTable(LinesOf(QString::fromStdString(BytesRead(rig.m_folder.Path("table.csv"))),
                        QStringLiteral("\r\n"), u','));
    for (const char* sName : {"table.png", "table.pdf"}) {
        rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path(sName));
        Main().mnuFileExport->trigger();
        EXPECT_GT(std::filesystem::file_size(rig.m_folder.Path(sName)), 5000U) << sName;
    }
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("table.txt"));
    Main().mnuFileExport->trigger();
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 1U);
    rig.m_sAnswer.clear();
    Main().mnuFileExport->trigger();
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 1U) << "cancelled";
}

TEST_F(TableOutputInMain, CtrlShiftCCopiesTheGridThatHasTheFocusInAnyWindow)
{
    Focus(*Main().grdData);
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    ExpectTable(LinesOf(Clip(), QStringLiteral("\n"), u'\t'));

    rig.OwnPlacesWrite("Home,JN47,,\n");
    Main().mnuPlanPlaces->trigger();
    Focus(*Main().m_pPlaces->grdPlaces);
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(Clip().contains(QStringLiteral("Home\t"))) << Clip().toStdString();

    Main().DataSetSelected(1, 5);
    Main().mnuViewDetailData->trigger();
    auto* pDetails = Main().m_pDetails->findChild<GridControl*>();
    ASSERT_NE(pDetails, nullptr);
    Focus(*pDetails);
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Clip().count(u'\n'), pDetails->RowsGet() - 1);
    EXPECT_FALSE(Clip().contains(QStringLiteral("Home")));
}

TEST_F(TableOutputInMain, CtrlShiftCBesideAGridCopiesTheMainTableInTheMainWindowAlone)
{
    Focus(*Main().txtLat0);
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    ExpectTable(LinesOf(Clip(), QStringLiteral("\n"), u'\t'));
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    Main().mnuPlanPlaces->trigger();
    Focus(*Main().m_pPlaces->atxtField[0]);
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Clip(), QStringLiteral("before"));
}

TEST_F(TableOutputInMain, CtrlCInAGridCopiesTheOneCell)
{
    Focus(*Main().grdData);
    Main().grdData->CurrentSet(2, 9);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clip(), Main().grdData->TextGet(2, 9));
    EXPECT_FALSE(Clip().isEmpty());
}

/// Counts the requests to print.
class PrintWindow final : public PlanWindow {
public:
    explicit PrintWindow(PlanHost& host)
        : PlanWindow(host, PlanName::Days, QStringLiteral("prints"))
    {
    }
    [[nodiscard]] Page PageGet() const override
    {
        ++m_nAsked;
        return {};
    }
    mutable int m_nAsked = 0;
};

TEST_F(TableOutputInMain, CtrlPOpensTheCardInTheMainWindowAndInTheDetails)
{
    Focus(*Main().grdData);
    Key(Qt::Key_P, Qt::ControlModifier);
    MainRig::EventsRun();
    ASSERT_FALSE(Main().m_pCard.isNull());
    Main().m_pCard->close();
    MainRig::EventsRun();
    Main().DataSetSelected(1, 5);
    Main().mnuViewDetailData->trigger();
    Focus(*Main().m_pDetails->findChild<GridControl*>());
    Key(Qt::Key_P, Qt::ControlModifier);
    MainRig::EventsRun();
    EXPECT_FALSE(Main().m_pCard.isNull());
}

TEST_F(TableOutputInMain, CtrlPPrintsThePlanningWindowThatHasTheFocus)
{
    PrintWindow frm(Main());
    frm.setAttribute(Qt::WA_DeleteOnClose, false);
    frm.show();
    Focus(*frm.cmdCopy);
    // The system's dialog may open and is closed again.
    QTimer tmrLeave;
    QObject::connect(&tmrLeave, &QTimer::timeout, &frm, [] {
        if (auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            pDialog->reject();
    });
    tmrLeave.start(20);
    Key(Qt::Key_P, Qt::ControlModifier);
    MainRig::EventsRun();
    EXPECT_EQ(frm.m_nAsked, 1);
    EXPECT_TRUE(Main().m_pCard.isNull());
}

TEST_F(TableOutputInMain, MnemonicsOfTheFileMenuClashWithNone)
{
    std::set<QString> asMnemonic;
    int nEntries = 0;
    for (const QAction* pAction : Main().mnuFile->actions()) {
        if (pAction->isSeparator())
            continue;
        const int nAt = static_cast<int>(pAction->text().indexOf(u'&'));
        ASSERT_GE(nAt, 0) << pAction->text().toStdString();
        asMnemonic.insert(pAction->text().mid(nAt + 1, 1).toUpper());
        ++nEntries;
    }
    EXPECT_EQ(nEntries, 8);
    EXPECT_EQ(static_cast<int>(asMnemonic.size()), nEntries);
}

}  // namespace
