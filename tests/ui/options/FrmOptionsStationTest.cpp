// The tab Station: own power and list of needs; and the hint of the antenna choice.
#include "ui/options/FrmOptionsFixture.h"

namespace {

QString Q(const char* sText) { return QString::fromUtf8(sText); }

class FrmOptionsStation : public FrmOptions {
protected:
    StationPage& Page() { return *Open(kTabStation).pagStation; }
    static void RowTake(const StationPage& page, int iRow)
    {
        page.lstNeeds->setCurrentItem(page.lstNeeds->topLevelItem(iRow));
    }
    [[nodiscard]] const NeedList& Applied() const { return m_host.m_atUpdate.m_aNeed; }
};

TEST_F(FrmOptionsStation, ShowsPowerAndNeedsWithTheirSources)
{
    m_host.m_settings.m_fStationPower = 150.0F;
    const StationPage& page = Page();
    EXPECT_EQ(page.txtStationPower->text(), Q("150"));
    ASSERT_EQ(page.lstNeeds->topLevelItemCount(), 12);
    const QTreeWidgetItem* pItem = page.lstNeeds->topLevelItem(2);
    EXPECT_EQ(pItem->text(0), Q("FT8"));
    EXPECT_EQ(pItem->text(1), Q("13"));
    EXPECT_EQ(pItem->text(2), Q("-21 dB in 2500 Hz, its authors' guide"));
}

TEST_F(FrmOptionsStation, BesideThePowerStandsWhatZeroMeansForTheEngineInForce)
{
    const StationPage& page = Page();
    EXPECT_TRUE(page.lblStationPowerUnit->text().endsWith(Q("antenna choice: 5 kW with REC533")))
        << page.lblStationPowerUnit->text().toStdString();
    m_pForm->TabShow(kTabModel);
    Press(m_pForm->optPropagationModel2);
    EXPECT_TRUE(page.lblStationPowerUnit->text().endsWith(Q("antenna choice: 100 W with VOACAP")));
    Choose(m_pForm->cmbPropagationAntennaType, 2);
    EXPECT_TRUE(page.lblStationPowerUnit->text().endsWith(Q("antenna choice: 5 kW with VOACAP")));
}

TEST_F(FrmOptionsStation, APowerOutOfRangeIsRefusedOnItsTab)
{
    const StationPage& page = Page();
    const MsgRecorder msg;
    Type(page.txtStationPower, Q("-5"));
    m_pForm->TabShow(kTabAirmail);
    Press(m_pForm->cmdApply);
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(UpdatesGet(), 0);
    EXPECT_EQ(m_pForm->SSTab->currentIndex(), kTabStation);
    EXPECT_TRUE(page.txtStationPower->hasFocus());
}

TEST_F(FrmOptionsStation, ANeedIsAddedAndInForceAfterApply)
{
    const StationPage& page = Page();
    Type(page.txtNeedName, Q("Pactor 4"));
    Type(page.txtNeedSnr, Q("48.5"));
    Type(page.txtNeedSource, Q("our own log"));
    Press(page.cmdNeedAdd);
    EXPECT_EQ(page.lstNeeds->currentItem()->text(0), Q("Pactor 4"));
    EXPECT_EQ(m_host.m_settings.m_aNeed.size(), 12U) << "not before Apply";
    Press(m_pForm->cmdApply);
    ASSERT_EQ(Applied().size(), 13U);
    EXPECT_EQ(Applied().back(), (Need{"Pactor 4", 48.5F, "our own log"}));
}

TEST_F(FrmOptionsStation, AChangeOfTheChosenNeedsNameKeepsItChosen)
{
    m_host.m_settings.m_sNeedSelected = "FT8";
    const StationPage& page = Page();
    RowTake(page, 2);
    Type(page.txtNeedName, Q("FT8 DX"));
    Type(page.txtNeedSnr, Q("14"));
    Press(page.cmdNeedChange);
    Press(m_pForm->cmdApply);
    EXPECT_EQ(Applied().at(2).sName, "FT8 DX");
    EXPECT_EQ(Applied().at(2).fSnr, 14.0F);
    EXPECT_EQ(m_host.m_atUpdate.m_sNeedSelected, "FT8 DX");
}

TEST_F(FrmOptionsStation, TheChosenNeedThatIsRemovedLeavesNoneChosenAndRestoreBringsTheList)
{
    m_host.m_settings.m_sNeedSelected = "FT8";
    const StationPage& page = Page();
    RowTake(page, 2);
    Press(page.cmdNeedRemove);
    Press(m_pForm->cmdApply);
    EXPECT_EQ(Applied().size(), 11U);
    EXPECT_EQ(m_host.m_atUpdate.m_sNeedSelected, "");
    Press(page.cmdNeedRestore);
    Press(m_pForm->cmdApply);
    EXPECT_EQ(Applied(), NeedsShipped());
}

TEST_F(FrmOptionsStation, ARefusedNeedSaysWhyAndStaysInItsBoxes)
{
    const StationPage& page = Page();
    Type(page.txtNeedSnr, Q("much"));
    Press(page.cmdNeedChange);
    EXPECT_EQ(page.lblNeedHint->text(), Q("\"much\" is not a number of dB. Type one."));
    EXPECT_EQ(page.txtNeedSnr->text(), Q("much"));
    Type(page.txtNeedSnr, Q("3"));
    Press(page.cmdNeedAdd);
    EXPECT_TRUE(page.lblNeedHint->text().contains(Q("the list has one of that name")));
    EXPECT_EQ(page.NeedsGet(), NeedsShipped());
}

TEST_F(FrmOptionsStation, EnterInTheEditorChangesOrAddsTheNeedAndLeavesTheDialogOpen)
{
    const StationPage& page = Page();
    RowTake(page, 2);
    Type(page.txtNeedSnr, Q("14"));
    QTest::keyClick(page.txtNeedSnr, Qt::Key_Return);
    EXPECT_EQ(page.NeedsGet().at(2), (Need{"FT8", 14.0F, page.NeedsGet().at(2).sSource}));
    EXPECT_EQ(page.NeedsGet().size(), 12U);
    Type(page.txtNeedName, Q("Pactor 4"));
    QTest::keyClick(page.txtNeedName, Qt::Key_Enter);
    ASSERT_EQ(page.NeedsGet().size(), 13U);
    EXPECT_EQ(page.NeedsGet().back().sName, "Pactor 4");
    EXPECT_EQ(page.NeedsGet().at(2).sName, "FT8");
    page.txtNeedSource->setFocus();
    QTest::keyClick(page.txtNeedSource, Qt::Key_Return);
    EXPECT_EQ(page.NeedsGet().size(), 13U);
    EXPECT_TRUE(m_pForm->isVisible());
    EXPECT_EQ(UpdatesGet(), 0);
    page.txtStationPower->setFocus();
    QTest::keyClick(page.txtStationPower, Qt::Key_Return);
    EXPECT_TRUE(GoneIs()) << "the power's Enter is OK";
}

}  // namespace
