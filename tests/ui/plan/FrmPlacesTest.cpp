#include <QClipboard>

#include "PlanRig.h"
#include "ui/places/frmPlaces.h"

namespace {

class FrmPlaces : public testing::Test {
protected:
    frmPlaces& Open()
    {
        if (!rig.m_pFrm)
            rig.StartWithEngine();
        rig.m_pFrm->mnuPlanPlaces->trigger();
        EXPECT_TRUE(QTest::qWaitForWindowActive(rig.m_pFrm->m_pPlaces.data()));
        return *rig.m_pFrm->m_pPlaces;
    }
    std::string File() { return BytesRead(rig.m_folder.Path("hopcast.places.csv")); }
    static void Type(frmPlaces& frm, const QStringList& asText)
    {
        for (int n = 0; n < asText.size(); ++n)
            frm.atxtField.at(static_cast<std::size_t>(n))->setText(asText[n]);
    }
    static void Clip(const QString& sText) { QGuiApplication::clipboard()->setText(sText); }
    PlanRig rig;
};

TEST_F(FrmPlaces, AddsChangesAndRemovesAndSavesAtOnce)
{
    frmPlaces& frm = Open();
    EXPECT_FALSE(frm.cmdChange->isEnabled());
    Type(frm, {QStringLiteral("Home"), QStringLiteral("47\u00B030'N 8\u00B030'E"),
               QStringLiteral("7050 14100.5"), QStringLiteral("dipole, 10 m")});
    QTest::keyClick(frm.atxtField[0], Qt::Key_Return);
    EXPECT_EQ(frm.grdPlaces->RowsGet(), 2);
    EXPECT_EQ(frm.grdPlaces->TextGet(1, 0), QStringLiteral("Home"));
    EXPECT_NE(File().find("\"dipole, 10 m\""), std::string::npos) << File();
    frm.atxtField[0]->setText(QStringLiteral("H\u00FCtte"));
    QTest::keyClick(frm.atxtField[0], Qt::Key_Return);
    EXPECT_EQ(frm.grdPlaces->RowsGet(), 2) << "Enter changes the selected row";
    EXPECT_NE(File().find("H\xC3\xBCtte"), std::string::npos);
    frm.grdPlaces->setFocus();
    QTest::keyClick(frm.grdPlaces, Qt::Key_Delete);
    EXPECT_EQ(frm.grdPlaces->RowsGet(), 1);
    EXPECT_EQ(File().find("H\xC3\xBCtte"), std::string::npos);
    frm.cmdUndo->click();
    EXPECT_EQ(frm.grdPlaces->RowsGet(), 2);
    EXPECT_NE(File().find("H\xC3\xBCtte"), std::string::npos);
}

TEST_F(FrmPlaces, ARefusedTextStaysInItsFieldsAndIsToldWhy)
{
    frmPlaces& frm = Open();
    Type(frm, {QStringLiteral("X"), QStringLiteral("somewhere")});
    frm.cmdAdd->click();
    EXPECT_EQ(frm.grdPlaces->RowsGet(), 1);
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("somewhere")))
        << frm.lblHint->text().toStdString();
    EXPECT_EQ(frm.atxtField[1]->text(), QStringLiteral("somewhere"));
    Type(frm, {QStringLiteral("X"), QStringLiteral("JN47"), QStringLiteral("7050 99")});
    frm.cmdAdd->click();
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("99")));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    EXPECT_FALSE(std::filesystem::exists(rig.m_folder.Path("hopcast.places.csv")));
}

TEST_F(FrmPlaces, ABadLineIsToldByItsNumberAndStaysAsItStands)
{
    rig.OwnPlacesWrite("Home,JN47,,\nBad,nowhere at all,,\nFar,QG62,,\n");
    frmPlaces& frm = Open();
    ASSERT_EQ(frm.grdPlaces->RowsGet(), 4);
    EXPECT_EQ(frm.grdPlaces->TextGet(2, 0), QStringLiteral("line 3"));
    EXPECT_TRUE(frm.grdPlaces->CellGet(2, 1).bHatch);
    frm.grdPlaces->CurrentSet(2, 1);
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("Line 3")));
    frm.grdPlaces->CurrentSet(1, 1);
    frm.atxtField[0]->setText(QStringLiteral("Home 2"));
    frm.cmdChange->click();
    EXPECT_EQ(File(),
              std::string(kOwnPlacesHead) + "\nHome 2,JN47,,\nBad,nowhere at all,,\nFar,QG62,,\n");
}

TEST_F(FrmPlaces, PastedTablesAreAddedAndWhatCannotBeUsedIsTold)
{
    rig.OwnPlacesWrite("Home,JN47,,\n");
    frmPlaces& frm = Open();
    Clip(QStringLiteral("A\tQG62\t7050\tone\nB\tnowhere\nC\tCM87"));
    frm.grdPlaces->setFocus();
    QTest::keyClick(frm.grdPlaces, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(frm.grdPlaces->RowsGet(), 4);
    EXPECT_EQ(frm.grdPlaces->TextGet(2, 0), QStringLiteral("A"));
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("line 2")))
        << frm.lblHint->text().toStdString();
    EXPECT_NE(File().find("C,CM87"), std::string::npos);
    Clip(QStringLiteral("nothing of the kind"));
    frm.cmdPaste->click();
    EXPECT_EQ(frm.grdPlaces->RowsGet(), 4);
    EXPECT_FALSE(frm.lblHint->text().isEmpty());
}

TEST_F(FrmPlaces, AFileThatIsNoListIsNeverWritten)
{
    rig.m_folder.Write("hopcast.places.csv", "something else\n");
    frmPlaces& frm = Open();
    EXPECT_FALSE(frm.cmdAdd->isEnabled());
    EXPECT_FALSE(frm.lblHint->text().isEmpty());
    Type(frm, {QStringLiteral("X"), QStringLiteral("JN47")});
    QTest::keyClick(frm.atxtField[0], Qt::Key_Return);
    EXPECT_EQ(File(), "something else\n");
}

TEST_F(FrmPlaces, AListThatSomethingElseHasChangedIsShownAndNotOverwritten)
{
    rig.OwnPlacesWrite("Home,JN47,,\n");
    frmPlaces& frm = Open();
    rig.OwnPlacesWrite("Home,JN47,,\nOther,QG62,,\n");
    const std::string sOther = File();
    Type(frm, {QStringLiteral("Mine"), QStringLiteral("CM87"), {}, {}});
    frm.cmdAdd->click();
    EXPECT_EQ(File(), sOther);
    EXPECT_EQ(frm.grdPlaces->RowsGet(), 3);
    EXPECT_FALSE(frm.lblHint->text().isEmpty());
    EXPECT_EQ(frm.atxtField[0]->text(), QStringLiteral("Mine")) << "what is typed stays";
    frm.cmdAdd->click();
    EXPECT_EQ(File(), sOther + "Mine,CM87,,\n");
}

TEST_F(FrmPlaces, FollowsTheProfile)
{
    rig.OwnPlacesWrite("Home,JN47,,\n");
    frmPlaces& frm = Open();
    const std::string sFirst = File();
    const std::string sSecond = std::string(kOwnPlacesHead) + "\nFar,QG62,,\n";
    rig.m_folder.Write("second.places.csv", sSecond);
    rig.m_pFrm->m_settings.m_sProfileFile = rig.m_folder.Path("second.ini");
    Type(frm, {QStringLiteral("Mine"), QStringLiteral("CM87"), {}, {}});
    frm.cmdAdd->click();
    EXPECT_EQ(frm.grdPlaces->TextGet(1, 0), QStringLiteral("Far"));
    EXPECT_EQ(BytesRead(rig.m_folder.Path("second.places.csv")), sSecond)
        << "not the rows of the first";
    EXPECT_EQ(File(), sFirst);
    rig.m_pFrm->m_settings.m_sProfileFile = rig.m_folder.Path("hopcast.ini");
    rig.m_pFrm->Update();
    EXPECT_EQ(frm.grdPlaces->TextGet(1, 0), QStringLiteral("Home"));
}

TEST_F(FrmPlaces, AnOpenListOfStationsFollows)
{
    rig.OwnPlacesWrite("Home,JN47,,\n");
    rig.StartWithEngine();
    frmReach& reach = rig.ReachOpen();
    EXPECT_EQ(reach.grdReach->RowsGet(), 2);
    frmPlaces& frm = Open();
    Type(frm, {QStringLiteral("Second"), QStringLiteral("QG62")});
    frm.cmdAdd->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return reach.grdReach->RowsGet() == 3; }));
}

}  // namespace
