// Captions, tooltips, enabling, keyboard.
#include <QSet>

#include "ui/options/FrmOptionsFixture.h"

namespace {

QString Q(const char* sText) { return QString::fromUtf8(sText); }

/// A caption as a user reads it, without the mnemonic's mark.
QString Caption(QString sText) { return sText.remove(u'&'); }

struct TooltipCase {
    const char* sName;
    const char* sText;
};

// clang-format off
constexpr TooltipCase kTooltips[] = {
    {"txtPropagationReliability", "Required Reliability (%), Airmail's SNR is 50, Rel. is 90"},
    {"txtPropagationMultipathPower", "Multipath Power Tolerance (dB), 0 Disabled, Airmail's is 0"},
    {"txtPropagationMultipathDelay", "Multipath Delay Tolerance (msec), Airmail's is 10"},
    {"txtPropagationQIndex", "Geomagnetic Activity Index Q, 0 Undisturbed Period, Airmail's is 3"},
    {"txtPropagationLayerE", "E Layer Adjustment, Airmail's is 1"},
    {"txtPropagationLayerF1", "F1 Layer Adjustment, Airmail's is 1"},
    {"txtPropagationLayerF2", "F2 Layer Adjustment, Airmail's is 1"},
    {"txtPropagationLayerEs", "Es Layer Adjustment, Airmail's is .7"},
    {"cmbPropagationIonCoefficients", "Ionospheric Coefficients, Airmail's is URSI"},
    {"txtPropagationNoiseLevel", "Man Made Noise, -140 Industrial, -145 residential, -150 rural. -163 Remote, AirMail's is -145"},
    {"chkPropagationSunSpotNumber", "Automatically use AirMail's Sun Spot Number"},
    {"txtPropagationSunSpotNumber", "Sun Spot Number, 10 Low Solar Activity, 120 High Solar Activity"},
    {"txtPropagationTakeoffAngle", "Minimun Takeoff Angle of Radio Wave, same angle for Tx and Rx,  0-40 (deg), AirMail's is .1"},
    {"optPropagationModel3", "ITU-RS Recommendation 533, Simplier Model but appears the best"},
    {"optPropagationModel2", "Voice of America Coverage Analysis Program, Improved Low and High Frequency Model"},
    {"optPropagationModel1", "Ionospheric Communications Enhanced Profile Analysis and Circuit Prediction, AirMail's Model"},
    {"fraAirMailDirectory", "AirMail's Data Folder"},
    {"fraAirMailLatLon", "AirMail's Lat/Lon Status used by Propagation Model"},
    {"fraAirMailVersion", "AirMail's Current Version Number"},
};
// clang-format on

TEST_F(FrmOptions, TooltipsAreTheProgramsGuidance)
{
    const frmOptions& frm = Open();
    for (const TooltipCase& c : kTooltips) {
        const auto* pWidget = frm.findChild<QWidget*>(Q(c.sName));
        ASSERT_TRUE(pWidget) << c.sName;
        EXPECT_EQ(pWidget->toolTip().section(u'\n', 0, 0), Q(c.sText));
        EXPECT_EQ(pWidget->accessibleName(), Q(c.sText)) << c.sName;
    }
}

TEST_F(FrmOptions, AMissingEngineSaysSoInASecondLineOfItsTooltip)
{
    m_root.Rec533Put(true);
    frmOptions& frm = Open(kTabModel);
    const QString sMissing = Q("Not installed: no c:\\itshfbc\\bin_win\\voacapw.exe");
    EXPECT_EQ(frm.optPropagationModel2->toolTip().section(u'\n', 1), sMissing);
    EXPECT_EQ(frm.optPropagationModel2->accessibleDescription(), sMissing);
    EXPECT_FALSE(frm.optPropagationModel3->toolTip().contains(u'\n'));
    m_root.VoacapPut();
    frm.Update();
    EXPECT_FALSE(frm.optPropagationModel2->toolTip().contains(u'\n'));
    EXPECT_EQ(frm.optPropagationModel2->accessibleDescription(), QString());
}

TEST_F(FrmOptions, ATabOpensWithTheFocusInItsFirstField)
{
    m_host.m_settings.m_iPropagationModel = kEngineVoacap;
    m_host.m_settings.m_iTimeCode = kTimeLocal;
    frmOptions& frm = Open(kTabModel);
    EXPECT_TRUE(frm.optPropagationModel2->hasFocus()) << "the chosen engine, not the first one";
    frm.TabShow(kTabAirmail);
    EXPECT_TRUE(frm.txtAirMailDirectory->hasFocus());
    frm.TabShow(kTabFrequency);
    EXPECT_TRUE(frm.txtFrequency->hasFocus());
    frm.TabShow(kTabTime);
    EXPECT_TRUE(frm.optTimeCode1->hasFocus());
    frm.TabShow(kTabMap);
    EXPECT_TRUE(frm.txtMapOverlayMinSnr->hasFocus());
    EXPECT_EQ(m_host.m_settings.m_iPropagationModel, kEngineVoacap);
}

TEST_F(FrmOptions, WithoutAChosenEngineTheFirstOneHasTheFocus)
{
    m_host.m_settings.m_iPropagationModel = 9;
    EXPECT_TRUE(Open(kTabModel).optPropagationModel1->hasFocus());
    EXPECT_FALSE(m_pForm->optPropagationModel1->isChecked());
}

TEST_F(FrmOptions, CaptionsAreThoseThatUsersKnow)
{
    const frmOptions& frm = Open();
    const char* asTabs[] = {"Airmail", "Model", "Frequency", "Time", "Map", "S&tation", "Colours"};
    ASSERT_EQ(frm.SSTab->count(), 7);
    for (int i = 0; i < 7; ++i) EXPECT_EQ(frm.SSTab->tabText(i), Q(asTabs[i]));
    EXPECT_EQ(Caption(frm.optPropagationModel1->text()), Q("ICEPAC"));
    EXPECT_EQ(Caption(frm.optPropagationModel2->text()), Q("VOACAP"));
    EXPECT_EQ(Caption(frm.optPropagationModel3->text()), Q("REC553"));
    EXPECT_EQ(Caption(frm.chkPropagationMonth->text()), Q("Auto"));
    EXPECT_EQ(Caption(frm.chkPropagationSunSpotNumber->text()), Q("Auto"));
    EXPECT_EQ(Caption(frm.chkPropagationMaps->text()), Q("Mean of both (built-in engine)"));
    EXPECT_EQ(Caption(frm.optTimeCode0->text()), Q("Zulu"));
    EXPECT_EQ(Caption(frm.optTimeCode1->text()), Q("Local"));
    EXPECT_EQ(Caption(frm.fraAirMailDirectory->title()), Q("AirMail's Data Folder"));
    EXPECT_EQ(Caption(frm.fraPropagationComplex->title()), Q("Complex Options"));
    EXPECT_EQ(Caption(frm.fraMapOverlay->title()), Q("Snr Overlay"));
    EXPECT_EQ(Caption(frm.lblMapOverlayMinSnr->text()), Q("Min Snr to Display"));
    EXPECT_EQ(Caption(frm.lblMapOverlayGridSize->text()), Q("Grid Size (N by N)"));
    EXPECT_EQ(Caption(frm.lblFrequency->text()), Q("Frequency (KHz)"));
    EXPECT_EQ(Caption(frm.lblHamVoiceBands->text()), Q("Ham Bands (KHz)"));
    EXPECT_EQ(Caption(frm.cmdDefault->text()), Q("Default Settings"));
    EXPECT_EQ(Caption(frm.cmdApply->text()), Q("Apply"));
    EXPECT_EQ(Caption(frm.cmdCancel->text()), Q("Cancel"));
    EXPECT_EQ(Caption(frm.cmdOk->text()), Q("OK"));
    EXPECT_FALSE(frm.isModal());
}

TEST_F(FrmOptions, ListsAreThoseThatUsersKnow)
{
    const frmOptions& frm = Open();
    const auto Entries = [](const QComboBox* pCombo) {
        QStringList asText;
        for (int i = 0; i < pCombo->count(); ++i) asText << pCombo->itemText(i);
        return asText.join(u'|');
    };
    EXPECT_EQ(Entries(frm.cmbPropagationAntennaType),
              Q("Tx, Omni   -   Rc, Omin|Tx, Omni   -   Rc, Whip|Tx, Whip   -   Rc, Whip"));
    EXPECT_EQ(Entries(frm.cmbPropagationMonth),
              Q("Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec"));
    EXPECT_EQ(Entries(frm.cmbPropagationIonCoefficients), Q("CCIR|URSI"));
    QStringList asBands;
    for (int i = 0; i < frm.lstHamVoiceBands->count(); ++i)
        asBands << frm.lstHamVoiceBands->item(i)->text();
    EXPECT_EQ(asBands.join(u'|'),
              Q("1800 - 2000|3850 - 4000         (80 m)|7225 - 7300         (40 m)|"
                "14225 - 14350     (20 m)|18110- 18168|21300 - 21450|24930 - 24990|"
                "28300 - 29500     (10 m)"));
}

TEST_F(FrmOptions, ComplexOptionsNeedAnEngineThatKnowsThem)
{
    const frmOptions& frm = Open(kTabModel);
    const auto Expect = [&](bool bEnabled) {
        for (const QWidget* pWidget : std::initializer_list<QWidget*>{
                 frm.txtPropagationLayerE, frm.txtPropagationLayerEs, frm.txtPropagationLayerF1,
                 frm.txtPropagationLayerF2, frm.txtPropagationMultipathDelay,
                 frm.txtPropagationMultipathPower, frm.txtPropagationQIndex,
                 frm.lblPropagationKIndex})
            EXPECT_EQ(pWidget->isEnabled(), bEnabled) << pWidget->objectName().toStdString();
        EXPECT_EQ(frm.lblPropagationMultipathPowerCaption->isEnabled(), bEnabled);
        EXPECT_EQ(frm.lblPropagationMultipathPowerUnit->isEnabled(), bEnabled);
        EXPECT_TRUE(frm.txtPropagationReliability->isEnabled());
        EXPECT_TRUE(frm.cmbPropagationIonCoefficients->isEnabled());
    };
    Expect(false);
    EXPECT_EQ(frm.txtPropagationLayerEs->text(), Q("0.7"))
        << "greyed boxes are filled all the same";
    Press(frm.optPropagationModel1);
    Expect(true);
    Press(frm.optPropagationModel3);
    Expect(false);
    Press(frm.optPropagationModel2);
    Expect(true);
}

TEST_F(FrmOptions, ABoxThatTurnsGreyKeepsANumberAndDropsRubbish)
{
    m_host.m_settings.m_iPropagationModel = kEngineIcepac;
    const frmOptions& frm = Open(kTabModel);
    Type(frm.txtPropagationLayerE, Q("1.5"));
    Type(frm.txtPropagationLayerF1, Q("x"));
    Press(frm.optPropagationModel3);
    EXPECT_EQ(frm.txtPropagationLayerE->text(), Q("1.5"));
    EXPECT_EQ(frm.txtPropagationLayerF1->text(), Q("1"));
    Press(frm.cmdApply);
    EXPECT_EQ(m_host.m_atUpdate.m_fPropagationLayerAdjustE, 1.5F);
}

TEST_F(FrmOptions, ABoxThatTurnsGreyNeverKeepsThePageFromBeingApplied)
{
    m_host.m_settings.m_iPropagationModel = kEngineIcepac;
    const frmOptions& frm = Open(kTabModel);
    Type(frm.txtPropagationLayerE, Q("99"));
    Press(frm.optPropagationModel3);
    EXPECT_EQ(frm.txtPropagationLayerE->text(), Q("1")) << "what is in force";
    Press(frm.cmdApply);
    EXPECT_EQ(UpdatesGet(), 1);
    EXPECT_EQ(m_host.m_atUpdate.m_fPropagationLayerAdjustE, 1.0F);
}

TEST_F(FrmOptions, ASettingOutOfRangeBehindAGreyBoxStaysAndIsNotTold)
{
    m_host.m_settings.m_fPropagationLayerAdjustE = 99.0F;
    const frmOptions& frm = Open(kTabModel);
    Press(frm.cmdApply);
    EXPECT_EQ(UpdatesGet(), 1);
    EXPECT_EQ(m_host.m_atUpdate.m_fPropagationLayerAdjustE, 99.0F);
    const MsgRecorder msg;
    Press(frm.optPropagationModel1);
    Press(frm.cmdApply);
    EXPECT_EQ(msg.m_aShown.size(), 1U) << "now it can be mended";
    EXPECT_TRUE(frm.txtPropagationLayerE->hasFocus());
}

TEST_F(FrmOptions, AutoGreysWhatItReplaces)
{
    const frmOptions& frm = Open(kTabModel);
    EXPECT_FALSE(frm.cmbPropagationMonth->isEnabled());
    EXPECT_FALSE(frm.txtPropagationSunSpotNumber->isEnabled());
    Press(frm.chkPropagationMonth);
    EXPECT_TRUE(frm.cmbPropagationMonth->isEnabled());
    EXPECT_FALSE(frm.txtPropagationSunSpotNumber->isEnabled());
    Press(frm.chkPropagationSunSpotNumber);
    EXPECT_TRUE(frm.txtPropagationSunSpotNumber->isEnabled());
    Press(frm.chkPropagationMonth);
    Press(frm.chkPropagationSunSpotNumber);
    EXPECT_FALSE(frm.cmbPropagationMonth->isEnabled());
    EXPECT_FALSE(frm.txtPropagationSunSpotNumber->isEnabled());
}

TEST_F(FrmOptions, TheMeanMapsGreyTheListForHopcastsOwnEngineAlone)
{
    m_root.Rec533Put(true);
    frmOptions& frm = Open(kTabModel);
    const QComboBox* pList = frm.cmbPropagationIonCoefficients;
    ASSERT_TRUE(frm.chkPropagationMaps->isChecked());
    EXPECT_FALSE(pList->isEnabled());
    EXPECT_FALSE(frm.lblPropagationIonCoefficients->isEnabled());
    EXPECT_EQ(pList->currentText(), Q("URSI")) << "the choice stays to be seen";
    Press(frm.chkPropagationMaps);
    EXPECT_TRUE(pList->isEnabled());
    EXPECT_TRUE(frm.lblPropagationIonCoefficients->isEnabled());
    Press(frm.chkPropagationMaps);
    EXPECT_FALSE(pList->isEnabled());
    for (QRadioButton* pOther : {frm.optPropagationModel1, frm.optPropagationModel2}) {
        Press(pOther);
        EXPECT_TRUE(pList->isEnabled()) << pOther->objectName().toStdString();
        EXPECT_TRUE(frm.chkPropagationMaps->isEnabled());
        EXPECT_TRUE(frm.chkPropagationMaps->isChecked());
    }
    Press(frm.optPropagationModel3);
    EXPECT_FALSE(pList->isEnabled());
    m_root.Rec533Put(false);
    frm.Update();
    EXPECT_TRUE(pList->isEnabled()) << "a REC533 that is not Hopcast's takes the list's choice";
}

TEST_F(FrmOptions, WhatIsSaidOfTheMapsIsASecondLineOfTheTooltip)
{
    m_root.Rec533Put(true);
    const frmOptions& frm = Open(kTabModel);
    const char* sGuidance = "Ionospheric Coefficients, Airmail's is URSI";
    EXPECT_EQ(frm.cmbPropagationIonCoefficients->toolTip(),
              Q(sGuidance) + Q("\nIn force: the mean of both, see below"));
    EXPECT_EQ(frm.cmbPropagationIonCoefficients->accessibleName(), Q(sGuidance));
    Press(frm.optPropagationModel2);
    EXPECT_EQ(frm.cmbPropagationIonCoefficients->toolTip(), Q(sGuidance));
}

TEST_F(FrmOptions, KIndexFollowsTheQBoxAsItIsTyped)
{
    m_host.m_settings.m_iPropagationModel = kEngineVoacap;
    const frmOptions& frm = Open(kTabModel);
    EXPECT_EQ(frm.lblPropagationKIndex->text(), Q("2.8"));
    Type(frm.txtPropagationQIndex, Q("0"));
    EXPECT_EQ(frm.lblPropagationKIndex->text(), Q("0.3"));
    QTest::keyClicks(frm.txtPropagationQIndex, Q(".664"));
    EXPECT_EQ(frm.lblPropagationKIndex->text(), Q("1.0"));
    QTest::keyClicks(frm.txtPropagationQIndex, Q("z"));
    EXPECT_EQ(frm.lblPropagationKIndex->text(), Q("?"));
}

TEST_F(FrmOptions, TabShowBringsEachTabToTheFront)
{
    frmOptions& frm = Open();
    const QWidget* apFirst[] = {frm.txtAirMailDirectory,  frm.cmbPropagationAntennaType,
                                frm.txtFrequency,         frm.optTimeCode0,
                                frm.txtMapOverlayMinSnr,  frm.pagStation->txtStationPower,
                                frm.pagColour->cmbPalette};
    for (int i = 6; i >= 0; --i) {
        frm.TabShow(i);
        for (int j = 0; j < 7; ++j) EXPECT_EQ(apFirst[j]->isVisible(), i == j);
    }
    frm.TabShow(7);
    frm.TabShow(-1);
    EXPECT_EQ(frm.SSTab->currentIndex(), 0);
}

TEST_F(FrmOptions, EnterIsOkAlmostEverywhere)
{
    m_host.m_settings.m_iPropagationModel = kEngineIcepac;
    m_host.m_settings.m_bPropagationMonth = false;
    const char* asControls[] = {"SSTab",
                                "txtAirMailDirectory",
                                "optPropagationModel1",
                                "cmbPropagationMonth",
                                "chkPropagationMonth",
                                "txtPropagationQIndex",
                                "lstHamVoiceBands",
                                "optTimeCode0",
                                "txtMapOverlayGridSize"};
    const int aiTabs[] = {kTabAirmail, kTabAirmail,   kTabModel, kTabModel, kTabModel,
                          kTabModel,   kTabFrequency, kTabTime,  kTabMap};
    for (int i = 0; i < 9; ++i) {
        Open(aiTabs[i]);
        auto* pWidget = m_pForm->findChild<QWidget*>(Q(asControls[i]));
        pWidget->setFocus();
        QTest::keyClick(m_pForm->focusWidget(), i % 2 ? Qt::Key_Enter : Qt::Key_Return);
        EXPECT_TRUE(GoneIs()) << asControls[i];
        EXPECT_EQ(UpdatesGet(), i + 1) << asControls[i];
        delete m_pForm;
    }
}

TEST_F(FrmOptions, EnterInTheFrequenciesBreaksTheLine)
{
    m_host.m_settings.m_nData = 1;
    const frmOptions& frm = Open(kTabFrequency);
    frm.txtFrequency->setFocus();
    QTest::keyClick(frm.txtFrequency, Qt::Key_End);
    QTest::keyClick(frm.txtFrequency, Qt::Key_Return);
    QTest::keyClicks(frm.txtFrequency, Q("9"));
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("2000\n9"));
    EXPECT_TRUE(frm.isVisible());
    EXPECT_EQ(UpdatesGet(), 0);
}

TEST_F(FrmOptions, EscapeIsCancelEverywhere)
{
    for (const char* sControl :
         {"SSTab", "txtFrequency", "txtPropagationNoiseLevel", "lstHamVoiceBands", "cmdOk"}) {
        Open(Q(sControl).contains(Q("Noise")) ? kTabModel : kTabFrequency);
        auto* pWidget = m_pForm->findChild<QWidget*>(Q(sControl));
        pWidget->setFocus();
        QTest::keyClick(m_pForm->focusWidget(), Qt::Key_Escape);
        EXPECT_TRUE(GoneIs()) << sControl;
        delete m_pForm;
    }
    EXPECT_TRUE(m_host.m_asCalls.empty());
}

/// Names of the controls that Tab visits, from the tab bar until it is back.
QStringList TabWalk(const frmOptions& frm)
{
    frm.SSTab->tabBar()->setFocus();
    QStringList asNames;
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(frm.focusWidget(), Qt::Key_Tab);
        if (frm.focusWidget() == frm.SSTab->tabBar() || frm.focusWidget() == frm.SSTab)
            break;
        asNames << frm.focusWidget()->objectName();
    }
    return asNames;
}

const QString kButtons = QStringLiteral(" cmdDefault cmdOk cmdCancel cmdApply");

TEST_F(FrmOptions, TabGoesThroughEachTabAsItIsRead)
{
    Settings& settings = m_host.m_settings;
    settings.m_iPropagationModel = kEngineIcepac;
    settings.m_bPropagationMonth = settings.m_bPropagationSunSpotNumber = false;
    frmOptions& frm = Open();
    const QString asExpected[] = {
        Q("txtAirMailDirectory"),
        Q("optPropagationModel1 cmbPropagationAntennaType cmbPropagationMonth chkPropagationMonth "
          "txtPropagationNoiseLevel txtPropagationSunSpotNumber chkPropagationSunSpotNumber "
          "chkPropagationForecast cmdForecast txtPropagationTakeoffAngle txtPropagationReliability "
          "txtPropagationMultipathPower "
          "txtPropagationMultipathDelay txtPropagationQIndex txtPropagationLayerE "
          "txtPropagationLayerF1 txtPropagationLayerF2 txtPropagationLayerEs "
          "cmbPropagationIonCoefficients chkPropagationMaps"),
        Q("txtFrequency lstHamVoiceBands"),
        Q("optTimeCode0"),
        Q("txtMapOverlayMinSnr txtMapOverlayGridSize cmbMapWorldBegins"),
        Q("txtStationPower lstNeeds txtNeedName txtNeedSnr txtNeedSource cmdNeedAdd "
          "cmdNeedChange cmdNeedRemove cmdNeedRestore"),
        Q("cmbPalette")};
    for (int i = 0; i < 7; ++i) {
        frm.TabShow(i);
        EXPECT_EQ(TabWalk(frm).join(u' '), asExpected[i] + kButtons);
    }
}

TEST_F(FrmOptions, ControlTabTurnsThePages)
{
    const frmOptions& frm = Open();
    frm.txtAirMailDirectory->setFocus();
    for (int i = 1; i <= 7; ++i) {
        QTest::keyClick(frm.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(frm.SSTab->currentIndex(), i % 7);
    }
}

TEST_F(FrmOptions, MnemonicsReachTheirControls)
{
    m_host.m_settings.m_iPropagationModel = kEngineIcepac;
    frmOptions& frm = Open(kTabModel);
    struct Row {
        int iTab;
        Qt::Key eKey;
        QWidget* pWidget;
    };
    for (const Row& row : {Row{kTabModel, Qt::Key_S, frm.txtPropagationNoiseLevel},
                           Row{kTabModel, Qt::Key_Q, frm.txtPropagationQIndex},
                           Row{kTabModel, Qt::Key_N, frm.cmbPropagationAntennaType},
                           Row{kTabFrequency, Qt::Key_F, frm.txtFrequency},
                           Row{kTabFrequency, Qt::Key_H, frm.lstHamVoiceBands},
                           Row{kTabMap, Qt::Key_G, frm.txtMapOverlayGridSize},
                           Row{kTabMap, Qt::Key_B, frm.cmbMapWorldBegins},
                           Row{kTabStation, Qt::Key_P, frm.pagStation->txtStationPower},
                           Row{kTabStation, Qt::Key_F, frm.pagStation->lstNeeds},
                           Row{kTabColour, Qt::Key_L, frm.pagColour->cmbPalette}}) {
        frm.TabShow(row.iTab);
        QTest::keyClick(&frm, row.eKey, Qt::AltModifier);
        EXPECT_TRUE(row.pWidget->hasFocus()) << row.pWidget->objectName().toStdString();
    }
    frm.TabShow(kTabModel);
    QTest::keyClick(&frm, Qt::Key_V, Qt::AltModifier);
    // A button pressed by its mnemonic stays down for a moment before it acts.
    EXPECT_TRUE(QTest::qWaitFor([&] { return frm.optPropagationModel2->isChecked(); }, 2000));
    QTest::keyClick(&frm, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return UpdatesGet() == 1; }, 2000));
    EXPECT_EQ(m_host.m_atUpdate.m_iPropagationModel, kEngineVoacap);
}

TEST_F(FrmOptions, NoLetterIsTwoMnemonicsOfOneTab)
{
    frmOptions& frm = Open();
    for (int iTab = 0; iTab < 7; ++iTab) {
        frm.TabShow(iTab);
        QSet<QString> aTaken{Q("Alt+T")};  // the mnemonic of the tab Station
        for (const QWidget* pWidget : frm.findChildren<QWidget*>()) {
            if (!pWidget->isVisible())
                continue;
            QString sText = pWidget->property("text").toString();
            if (sText.isEmpty())
                sText = pWidget->property("title").toString();
            const QString sKey = QKeySequence::mnemonic(sText).toString();
            if (sKey.isEmpty())
                continue;
            EXPECT_FALSE(aTaken.contains(sKey)) << sKey.toStdString() << " tab " << iTab;
            aTaken << sKey;
        }
        EXPECT_GE(aTaken.size(), 3);
    }
}

}  // namespace
