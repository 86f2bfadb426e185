// The buttons: what each copies and when, and what a bad entry does.
#include <algorithm>

#include "settings/SettingsTable.h"
#include "system/NumberLib.h"
#include "ui/options/FrmOptionsFixture.h"

namespace {

QString Q(const char* sText) { return QString::fromUtf8(sText); }

class FrmOptionsBox : public FrmOptions, public testing::WithParamInterface<NumberBoxCase> {
protected:
    FrmOptionsBox()
    {
        m_host.m_settings.m_iPropagationModel = kEngineIcepac;
        m_host.m_settings.m_bPropagationSunSpotNumber = false;
    }
    [[nodiscard]] float ValueGet() const { return m_host.m_settings.*GetParam().pMember; }
};

TEST_P(FrmOptionsBox, IsCopiedOnApply)
{
    const frmOptions& frm = Open(GetParam().iTab);
    const bool bNoise = GetParam().pMember == &Settings::m_fPropagationNoiseLevel;
    Type(BoxGet(GetParam().sName), bNoise ? Q(" -101.25 ") : Q(" 1.25 "));
    Press(frm.cmdApply);
    EXPECT_EQ(m_host.m_atUpdate.*GetParam().pMember, bNoise ? -101.25F : 1.25F);
    EXPECT_EQ(BoxGet(GetParam().sName)->text(), bNoise ? Q("-101.25") : Q("1.25"));
}

TEST_P(FrmOptionsBox, OutOfRangeIsToldLikeATextThatIsNoNumber)
{
    const SettingRow& row = SettingRowGet(GetParam().pMember);
    const NumberRange range = row.range;
    if (row.eRule == RangeRule::Any)
        return;  // the map's least SNR accepts every number
    const frmOptions& frm = Open(GetParam().iTab);
    const float fBefore = ValueGet();
    for (const double dValue : {range.dLeast - 0.5, range.dMost + 0.5}) {
        Type(BoxGet(GetParam().sName), QString::fromStdString(NumberToText(dValue)));
        const MsgRecorder msg;
        Press(frm.cmdApply);
        const std::string sValue = NumberToText(dValue);
        EXPECT_EQ(OneShown(msg).sText, "Unable to use \"" + sValue + "\", " + sValue
                                           + " is outside " + NumberToText(range.dLeast) + " to "
                                           + NumberToText(range.dMost)
                                           + ".  Please type a number.");
        EXPECT_EQ(ValueGet(), fBefore);
        EXPECT_EQ(UpdatesGet(), 0);
    }
}

TEST_P(FrmOptionsBox, WithoutANumberIsToldAndFocusedAndNothingRuns)
{
    const frmOptions& frm = Open(GetParam().iTab);
    const float fBefore = ValueGet();
    Type(BoxGet(GetParam().sName), Q("1x"));
    frm.SSTab->setCurrentIndex(kTabAirmail);
    const MsgRecorder msg;
    Press(frm.cmdOk);
    const MsgShown shown = OneShown(msg);
    EXPECT_EQ(shown.sText, "Unable to use \"1x\", Type mismatch.  Please type a number.");
    EXPECT_EQ(shown.eIcon, MsgIcon::None);
    EXPECT_EQ(ValueGet(), fBefore);
    EXPECT_EQ(UpdatesGet(), 0);
    ASSERT_FALSE(m_pForm.isNull());
    EXPECT_TRUE(frm.isVisible());
    EXPECT_EQ(frm.SSTab->currentIndex(), GetParam().iTab);
    EXPECT_TRUE(BoxGet(GetParam().sName)->hasFocus());
    EXPECT_EQ(BoxGet(GetParam().sName)->text(), Q("1x"));
}

TEST_P(FrmOptionsBox, LeftEmptyOrTooLargeIsToldToo)
{
    const frmOptions& frm = Open(GetParam().iTab);
    const MsgRecorder msg;
    Type(BoxGet(GetParam().sName), QString());
    Press(frm.cmdApply);
    Type(BoxGet(GetParam().sName), Q("4") + QString(39, u'0'));
    Press(frm.cmdApply);
    ASSERT_EQ(msg.m_aShown.size(), 2U);
    EXPECT_EQ(msg.m_aShown[0].sText, "Unable to use \"\", Type mismatch.  Please type a number.");
    EXPECT_NE(msg.m_aShown[1].sText.find("0\", Overflow.  "), std::string::npos);
    EXPECT_EQ(UpdatesGet(), 0);
}

INSTANTIATE_TEST_SUITE_P(Boxes, FrmOptionsBox, testing::ValuesIn(kNumberBoxes),
                         [](const auto& row) { return row.param.sName; });

TEST_F(FrmOptions, ChoicesAreCopiedOnApply)
{
    const frmOptions& frm = Open(kTabModel);
    Press(frm.optPropagationModel2);
    Choose(frm.cmbPropagationAntennaType, 2);
    Press(frm.chkPropagationMonth);
    Choose(frm.cmbPropagationMonth, 11);
    Press(frm.chkPropagationSunSpotNumber);
    Choose(frm.cmbPropagationIonCoefficients, 0);
    frm.SSTab->setCurrentIndex(kTabTime);
    Press(frm.optTimeCode1);
    EXPECT_EQ(m_host.m_settings.m_iPropagationModel, kEngineRec533) << "copied too early";
    Press(frm.cmdApply);
    const Settings& settings = m_host.m_atUpdate;
    EXPECT_EQ(settings.m_iPropagationModel, kEngineVoacap);
    EXPECT_EQ(settings.m_iPropagationAntennaType, 2);
    EXPECT_FALSE(settings.m_bPropagationMonth);
    EXPECT_EQ(settings.m_iPropagationMonth, 12);
    EXPECT_FALSE(settings.m_bPropagationSunSpotNumber);
    EXPECT_EQ(settings.m_sPropagationIonCoefficients, "CCIR");
    EXPECT_EQ(settings.m_iTimeCode, 1);
    EXPECT_EQ(UpdatesGet(), 1);
}

TEST_F(FrmOptions, TheMeanMapsAreCopiedAndTheListsChoiceIsKept)
{
    m_root.Rec533Put(true);
    m_host.m_settings.m_sPropagationIonCoefficients = "CCIR";
    const frmOptions& frm = Open(kTabModel);
    Press(frm.cmdApply);
    EXPECT_TRUE(m_host.m_atUpdate.m_bPropagationMapsMean);
    EXPECT_EQ(m_host.m_atUpdate.m_sPropagationIonCoefficients, "CCIR");
    Press(frm.chkPropagationMaps);
    EXPECT_TRUE(m_host.m_settings.m_bPropagationMapsMean) << "not before Apply";
    Press(frm.cmdApply);
    EXPECT_FALSE(m_host.m_atUpdate.m_bPropagationMapsMean);
    EXPECT_EQ(m_host.m_atUpdate.m_sPropagationIonCoefficients, "CCIR");
    Press(frm.cmdDefault);
    EXPECT_TRUE(frm.chkPropagationMaps->isChecked());
    EXPECT_FALSE(frm.cmbPropagationIonCoefficients->isEnabled());
}

TEST_F(FrmOptions, EachEngineButtonSelectsItsEngine)
{
    const frmOptions& frm = Open(kTabModel);
    const std::pair<QRadioButton*, int> aButtons[] = {{frm.optPropagationModel1, kEngineIcepac},
                                                      {frm.optPropagationModel2, kEngineVoacap},
                                                      {frm.optPropagationModel3, kEngineRec533}};
    for (const auto& [pButton, iModel] : aButtons) {
        Press(pButton);
        Press(frm.cmdApply);
        EXPECT_EQ(m_host.m_atUpdate.m_iPropagationModel, iModel);
    }
}

struct GridSizeCase {
    const char* sText;
    int nExpected;
};

TEST_F(FrmOptions, GridSizeIsAWholeNumberRoundedHalfToEven)
{
    const frmOptions& frm = Open(kTabMap);
    for (const GridSizeCase& c :
         {GridSizeCase{"60", 60}, {"2.5", 2}, {"3.5", 4}, {"-7", -7}, {"2147483647", 2147483647}}) {
        Type(frm.txtMapOverlayGridSize, Q(c.sText));
        Press(frm.cmdApply);
        EXPECT_EQ(m_host.m_atUpdate.m_iMapOverlayGridSize, c.nExpected) << c.sText;
    }
}

TEST_F(FrmOptions, WorldBeginsAtTheChosenLongitude)
{
    frmOptions& frm = Open(kTabMap);
    EXPECT_EQ(frm.cmbMapWorldBegins->currentIndex(), 0);
    Choose(frm.cmbMapWorldBegins, 1);
    Press(frm.cmdApply);
    EXPECT_EQ(m_host.m_atUpdate.m_iMapWorldBegins, -180);
    Choose(frm.cmbMapWorldBegins, 0);
    Press(frm.cmdApply);
    EXPECT_EQ(m_host.m_atUpdate.m_iMapWorldBegins, 0);
}

TEST_F(FrmOptions, GridSizeThatIsNoWholeNumberIsToldAndNothingOfItsTabIsCopied)
{
    const frmOptions& frm = Open(kTabMap);
    Type(frm.txtMapOverlayMinSnr, Q("33"));
    const MsgRecorder msg;
    for (const char* sText : {"", "N", "2147483648", "-2147483649"}) {
        Type(frm.txtMapOverlayGridSize, Q(sText));
        Press(frm.cmdApply);
        EXPECT_TRUE(frm.txtMapOverlayGridSize->hasFocus());
    }
    ASSERT_EQ(msg.m_aShown.size(), 4U);
    EXPECT_NE(msg.m_aShown[0].sText.find("Type mismatch"), std::string::npos);
    EXPECT_NE(msg.m_aShown[1].sText.find("Type mismatch"), std::string::npos);
    EXPECT_NE(msg.m_aShown[2].sText.find("Overflow"), std::string::npos);
    EXPECT_NE(msg.m_aShown[3].sText.find("Overflow"), std::string::npos);
    EXPECT_EQ(m_host.m_settings.m_iMapOverlayGridSize, 40);
    EXPECT_EQ(m_host.m_settings.m_fMapOverlayMinSnr, 20.0F);
    EXPECT_EQ(UpdatesGet(), 0);
}

TEST_F(FrmOptions, ABadNumberKeepsEveryTabFromBeingCopied)
{
    m_host.m_settings.m_iPropagationModel = kEngineIcepac;
    const frmOptions& frm = Open(kTabModel);
    Type(frm.txtPropagationNoiseLevel, Q("-150"));
    Press(frm.optPropagationModel2);
    Type(frm.txtPropagationTakeoffAngle, Q("?"));  // the last box to be checked
    frm.SSTab->setCurrentIndex(kTabMap);
    Type(frm.txtMapOverlayGridSize, Q("50"));
    frm.SSTab->setCurrentIndex(kTabTime);
    Press(frm.optTimeCode1);
    FrequenciesType(Q("7100\n14200"));
    const MsgRecorder msg;
    Press(frm.cmdApply);
    EXPECT_NE(OneShown(msg).sText.find("Type mismatch"), std::string::npos);
    const Settings& settings = m_host.m_settings;
    EXPECT_EQ(settings.m_nData, 15);
    EXPECT_EQ(settings.FrequencyGet(1), 2000.0F);
    EXPECT_EQ(settings.m_iMapOverlayGridSize, 40);
    EXPECT_EQ(settings.m_fPropagationNoiseLevel, -145.0F);
    EXPECT_EQ(settings.m_iPropagationModel, kEngineIcepac);
    EXPECT_EQ(settings.m_iTimeCode, 0);
    EXPECT_TRUE(m_host.m_asCalls.empty());
    EXPECT_EQ(frm.txtPropagationNoiseLevel->text(), Q("-150")) << "the user's entries stay";
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("7100\n14200"));
    Press(frm.cmdCancel);
    EXPECT_TRUE(GoneIs());
    EXPECT_EQ(m_host.m_settings.m_nData, 15) << "nothing that would be saved at exit";
}

TEST_F(FrmOptions, ABadMapTabStopsTheTabsBehindIt)
{
    const frmOptions& frm = Open(kTabModel);
    Type(frm.txtPropagationNoiseLevel, Q("-150"));
    frm.SSTab->setCurrentIndex(kTabMap);
    Type(frm.txtMapOverlayMinSnr, Q("x"));
    const MsgRecorder msg;
    Press(frm.cmdOk);
    EXPECT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(m_host.m_settings.m_fPropagationNoiseLevel, -145.0F);
}

TEST_F(FrmOptions, ApplyStaysOpenAndOkCloses)
{
    const frmOptions& frm = Open();
    Press(frm.cmdApply);
    QTest::qWait(50);
    ASSERT_FALSE(m_pForm.isNull());
    EXPECT_TRUE(frm.isVisible());
    EXPECT_EQ(UpdatesGet(), 1);
    Press(frm.cmdOk);
    EXPECT_TRUE(GoneIs());
    EXPECT_EQ(UpdatesGet(), 2);
}

TEST_F(FrmOptions, OkClosesAlsoWhenThePredictionFails)
{
    m_host.m_bUpdateResult = false;
    Press(Open().cmdOk);
    EXPECT_TRUE(GoneIs());
}

TEST_F(FrmOptions, CancelCopiesNothing)
{
    const frmOptions& frm = Open(kTabModel);
    Press(frm.optPropagationModel1);
    Type(frm.txtPropagationTakeoffAngle, Q("8"));
    FrequenciesType(Q("7100"));
    Press(frm.cmdCancel);
    EXPECT_TRUE(GoneIs());
    EXPECT_TRUE(m_host.m_asCalls.empty());
    EXPECT_EQ(m_host.m_settings.m_iPropagationModel, kEngineRec533);
    EXPECT_EQ(m_host.m_settings.m_fPropagationTakeoffAngle, 3.0F);
    EXPECT_EQ(m_host.m_settings.m_nData, 15);
}

TEST_F(FrmOptions, TheCloseBoxIsCancel)
{
    const frmOptions& frm = Open(kTabModel);
    Press(frm.optPropagationModel1);
    m_pForm->close();
    EXPECT_TRUE(GoneIs());
    EXPECT_EQ(m_host.m_settings.m_iPropagationModel, kEngineRec533);
    EXPECT_TRUE(m_host.m_asCalls.empty());
}

TEST_F(FrmOptions, DefaultSettingsResetAtOnceAndFillEveryTab)
{
    Settings& settings = m_host.m_settings;
    settings.m_iPropagationModel = kEngineVoacap;
    settings.m_nData = 2;
    settings.m_iTimeCode = 1;
    settings.m_iMapOverlayGridSize = 12;
    settings.m_fPropagationNoiseLevel = -160.0F;
    AirMailDataFolderSet("D:\\Mail");
    const frmOptions& frm = Open(kTabModel);
    m_host.m_fnUpdate = {};  // what is shown must come from the dialog itself
    Type(frm.txtPropagationTakeoffAngle, Q("rubbish"));
    Press(frm.cmdDefault);
    EXPECT_EQ(m_host.m_asCalls, (std::vector<std::string>{"Initialize", "Update"}));
    EXPECT_EQ(m_host.m_atUpdate.m_iPropagationModel, kEngineRec533);
    EXPECT_EQ(AirMailDataFolderGet(), "C:\\Program Files\\AirMail");
    EXPECT_EQ(frm.txtAirMailDirectory->text(), Q("C:\\Program Files\\AirMail"));
    EXPECT_TRUE(frm.optPropagationModel3->isChecked());
    EXPECT_EQ(frm.txtPropagationNoiseLevel->text(), Q("-145"));
    EXPECT_EQ(frm.txtPropagationTakeoffAngle->text(), Q("3"));
    EXPECT_EQ(frm.txtMapOverlayGridSize->text(), Q("40"));
    EXPECT_TRUE(frm.optTimeCode0->isChecked());
    EXPECT_EQ(frm.txtFrequency->blockCount(), 15);
    EXPECT_TRUE(frm.isVisible());
    Press(frm.cmdCancel);
    EXPECT_EQ(m_host.m_settings.m_iPropagationModel, kEngineRec533) << "Cancel does not undo it";
}

TEST_F(FrmOptions, TheAirmailFolderIsNeverTakenOver)
{
    const frmOptions& frm = Open();
    Type(frm.txtAirMailDirectory, Q("E:\\Elsewhere"));
    Press(frm.cmdApply);
    EXPECT_EQ(AirMailDataFolderGet(), "C:\\Program Files\\AirMail");
    EXPECT_EQ(frm.txtAirMailDirectory->text(), Q("C:\\Program Files\\AirMail"));
}

// Frequencies

TEST_F(FrmOptions, FrequenciesAreStoredOneByOne)
{
    const frmOptions& frm = Open();
    FrequenciesType(Q("2000\n10000"));
    Press(frm.cmdApply);
    EXPECT_EQ(m_host.m_asCalls,
              (std::vector<std::string>{"FrequencySet 1 2000", "FrequencySet 2 10000", "Update"}));
    EXPECT_EQ(m_host.m_atUpdate.m_nData, 2);
}

TEST_F(FrmOptions, ABadFrequencyLineIsToldAndTheRestGoesOn)
{
    const frmOptions& frm = Open(kTabModel);
    Press(frm.optPropagationModel2);
    FrequenciesType(Q("7100\n"));
    const MsgRecorder msg;
    Press(frm.cmdApply);
    EXPECT_EQ(OneShown(msg).sText,
              "Unable to convert \"\" to a frequency.  Please check for spaces or empty lines.");
    EXPECT_EQ(m_host.m_atUpdate.FrequencyGet(1), 7100.0F);
    EXPECT_EQ(m_host.m_atUpdate.m_nData, 15);
    EXPECT_EQ(m_host.m_atUpdate.m_iPropagationModel, kEngineVoacap);
    EXPECT_EQ(UpdatesGet(), 1);
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("7100\n"))
        << "the refused text stays to be mended";
}

TEST_F(FrmOptions, ARefusedLineIsSelectedAndTheHintTellsWhy)
{
    frmOptions& frm = Open();
    const QString sHint = frm.lblFrequencyHint->text();
    FrequenciesType(Q("7100\n13,992\n14200"));
    frm.TabShow(kTabModel);
    const MsgRecorder msg;
    Press(frm.cmdApply);
    EXPECT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(frm.SSTab->currentIndex(), kTabFrequency);
    EXPECT_TRUE(frm.txtFrequency->hasFocus());
    EXPECT_EQ(frm.txtFrequency->textCursor().selectedText(), Q("13,992"));
    EXPECT_EQ(frm.lblFrequencyHint->text(), Q("13,992 has a comma"));
    QTest::keyClicks(frm.txtFrequency, Q("13992"));
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("7100\n13992\n14200"));
    EXPECT_EQ(frm.lblFrequencyHint->text(), sHint);
    Press(frm.cmdApply);
    EXPECT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(m_host.m_atUpdate.m_nData, 3);
}

TEST_F(FrmOptions, TheSixteenthLineIsSelectedWhereThereAreTooMany)
{
    const frmOptions& frm = Open();
    QStringList asLines;
    for (int i = 1; i <= 17; ++i) asLines << QString::number(i * 1000);
    FrequenciesType(asLines.join(u'\n'));
    const MsgRecorder msg;
    Press(frm.cmdApply);
    EXPECT_EQ(frm.txtFrequency->textCursor().selectedText(), Q("16000"));
    EXPECT_EQ(frm.lblFrequencyHint->text(), Q("Line 16 is one too many"));
}

TEST_F(FrmOptions, FollowsSettingsThatAnotherWindowChanged)
{
    const frmOptions& frm = Open(kTabModel);
    m_host.m_settings.m_fPropagationTakeoffAngle = 8.0F;
    Q_EMIT m_host.SettingsSignalGet().Changed();
    EXPECT_EQ(frm.txtPropagationTakeoffAngle->text(), Q("8"));
}

TEST_F(FrmOptions, ARefusedTextStaysOnlyForItsOwnApply)
{
    frmOptions& frm = Open();
    FrequenciesType(Q("7100\nx"));
    const MsgRecorder msg;
    Press(frm.cmdApply);
    frm.Update();
    EXPECT_EQ(frm.txtFrequency->blockCount(), 15);
    EXPECT_EQ(msg.m_aShown.size(), 1U);
}

TEST_F(FrmOptions, OkClosesInSpiteOfABadFrequencyLine)
{
    const frmOptions& frm = Open();
    FrequenciesType(Q("x"));
    const MsgRecorder msg;
    Press(frm.cmdOk);
    EXPECT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(UpdatesGet(), 1);
    EXPECT_TRUE(GoneIs());
}

TEST_F(FrmOptions, BesideABadNumberTheFrequenciesAreNotLookedAt)
{
    const frmOptions& frm = Open(kTabMap);
    Type(frm.txtMapOverlayMinSnr, Q("x"));
    FrequenciesType(Q("7100\ny"));
    const MsgRecorder msg;
    Press(frm.cmdApply);
    EXPECT_EQ(OneShown(msg).sText, "Unable to use \"x\", Type mismatch.  Please type a number.");
    EXPECT_TRUE(m_host.m_asCalls.empty());
    m_pForm->Update();
    EXPECT_EQ(frm.txtFrequency->blockCount(), 15) << "a later update fills the box again";
}

TEST_F(FrmOptions, WhatWasTypedIsCutAndPrintableInTheBoxes)
{
    const frmOptions& frm = Open(kTabMap);
    const MsgRecorder msg;
    FrequenciesType(QString(300, u'x'));
    Press(frm.cmdApply);
    frm.txtMapOverlayMinSnr->setText(QStringLiteral("a\u202Eb") + QString(300, u'y'));
    Press(frm.cmdApply);
    ASSERT_EQ(msg.m_aShown.size(), 2U);
    EXPECT_EQ(msg.m_aShown[0].sText,
              "Unable to convert \"" + std::string(200, 'x')
                  + "...\" to a frequency.  Please check for spaces or empty lines.");
    EXPECT_EQ(msg.m_aShown[1].sText, "Unable to use \"a b" + std::string(197, 'y')
                                         + "...\", Type mismatch.  Please type a number.");
}

TEST_F(FrmOptions, OfTooManyFrequenciesTheFirstFifteenAreInForce)
{
    const frmOptions& frm = Open();
    QStringList asLines;
    for (int i = 1; i <= 17; ++i) asLines << QString::number(i * 1000);
    FrequenciesType(asLines.join(u'\n'));
    const MsgRecorder msg;
    Press(frm.cmdApply);
    EXPECT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(m_host.m_atUpdate.m_nData, 15);
    EXPECT_EQ(m_host.m_atUpdate.FrequencyGet(15), 15000.0F);
    EXPECT_EQ(UpdatesGet(), 1);
}

TEST_F(FrmOptions, ADoubleClickOnABandAppendsItsMiddle)
{
    m_host.m_settings.m_nData = 2;
    const frmOptions& frm = Open(kTabFrequency);
    const auto* pItem = frm.lstHamVoiceBands->item(2);
    const QPoint pnt = frm.lstHamVoiceBands->visualItemRect(pItem).center();
    QTest::mouseClick(frm.lstHamVoiceBands->viewport(), Qt::LeftButton, {}, pnt);
    EXPECT_EQ(frm.txtFrequency->blockCount(), 2) << "a single click only selects";
    QTest::mouseDClick(frm.lstHamVoiceBands->viewport(), Qt::LeftButton, {}, pnt);
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("2000\n4000\n7263"));
    QTest::keyClick(frm.lstHamVoiceBands, Qt::Key_Down);
    QTest::keyClick(frm.lstHamVoiceBands, Qt::Key_Space);
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("2000\n4000\n7263\n14288"));
    Press(frm.cmdApply);
    EXPECT_EQ(m_host.m_atUpdate.m_nData, 4);
}

TEST_F(FrmOptions, ABandFillsAnEmptyLastLine)
{
    const frmOptions& frm = Open(kTabFrequency);
    FrequenciesType(Q("7100\n"));
    frm.lstHamVoiceBands->setCurrentRow(0);
    QTest::keyClick(frm.lstHamVoiceBands, Qt::Key_Space);
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("7100\n1900"));
    FrequenciesType(QString());
    QTest::keyClick(frm.lstHamVoiceBands, Qt::Key_Space);
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("1900"));
}

// While the main window's run processes events

TEST_F(FrmOptions, ButtonsWaitForTheEndOfTheRun)
{
    const frmOptions& frm = Open();
    m_host.m_fnUpdate = [&] {
        Press(frm.cmdApply);
        Press(frm.cmdOk);
        Press(frm.cmdDefault);
        EXPECT_TRUE(frm.isVisible());
    };
    Press(frm.cmdApply);
    EXPECT_EQ(UpdatesGet(), 1);
    EXPECT_EQ(std::count(m_host.m_asCalls.begin(), m_host.m_asCalls.end(), "Initialize"), 0);
}

TEST_F(FrmOptions, CancelDuringTheRunClosesAfterIt)
{
    const frmOptions& frm = Open();
    m_host.m_fnUpdate = [&] {
        Press(frm.cmdCancel);
        EXPECT_TRUE(frm.isVisible());
    };
    Press(frm.cmdApply);
    EXPECT_TRUE(GoneIs());
}

TEST_F(FrmOptions, SurvivesItsEndDuringTheRun)
{
    const frmOptions& frm = Open();
    m_host.m_fnUpdate = [&] { delete m_pForm; };
    QMetaObject::invokeMethod(frm.cmdOk, "click", Qt::QueuedConnection);
    EXPECT_TRUE(GoneIs());
}

}  // namespace
