// What the dialog shows: settings, Airmail, clocks.
#include <map>

#include "ui/options/FrmOptionsFixture.h"

namespace {

QString Q(const char* sText) { return QString::fromUtf8(sText); }

class FrmOptionsNumber : public FrmOptions, public testing::WithParamInterface<NumberBoxCase> {};

TEST_P(FrmOptionsNumber, IsShownAsShortestText)
{
    for (const auto& [fValue, sText] : std::map<float, const char*>{
             {0.7F, "0.7"}, {-145.0F, "-145"}, {100000.0F, "100000"}, {0.0F, "0"}}) {
        m_host.m_settings.*GetParam().pMember = fValue;
        frmOptions& frm = m_pForm ? *m_pForm : Open();
        frm.Update();
        EXPECT_EQ(BoxGet(GetParam().sName)->text(), Q(sText));
    }
}

INSTANTIATE_TEST_SUITE_P(Boxes, FrmOptionsNumber, testing::ValuesIn(kNumberBoxes),
                         [](const auto& row) { return row.param.sName; });

TEST_F(FrmOptions, ShowsTheDefaultsWhenMade)
{
    const frmOptions& frm = Open();
    EXPECT_TRUE(frm.optPropagationModel3->isChecked());
    EXPECT_EQ(frm.cmbPropagationAntennaType->currentText(), Q("Tx, Omni   -   Rc, Whip"));
    EXPECT_TRUE(frm.chkPropagationMonth->isChecked());
    EXPECT_EQ(frm.cmbPropagationMonth->currentText(), Q("Mar"));
    EXPECT_TRUE(frm.chkPropagationSunSpotNumber->isChecked());
    EXPECT_EQ(frm.txtPropagationSunSpotNumber->text(), Q("170"));
    EXPECT_EQ(frm.cmbPropagationIonCoefficients->currentText(), Q("URSI"));
    EXPECT_TRUE(frm.chkPropagationMaps->isChecked());
    EXPECT_TRUE(frm.optTimeCode0->isChecked());
    EXPECT_EQ(frm.txtMapOverlayGridSize->text(), Q("40"));
    EXPECT_EQ(frm.txtFrequency->toPlainText(),
              Q("2000\n4000\n6000\n8000\n10000\n12000\n14000\n16000\n18000\n20000\n22000\n24000\n"
                "26000\n28000\n30000"));
    EXPECT_TRUE(m_host.m_asCalls.empty());
}

TEST_F(FrmOptions, TheAntennasTipTellsWhatTheyMeanWithTheEngineChosen)
{
    const frmOptions& frm = Open(kTabModel);
    EXPECT_EQ(frm.cmbPropagationAntennaType->toolTip(),
              Q("With REC533, in this order:\nstation with gain, boat with whip, 100 W\n"
                "whips at both ends, 5 kW\nantennas without gain, 1 kW"));
    frm.optPropagationModel2->click();
    EXPECT_EQ(frm.cmbPropagationAntennaType->toolTip(),
              Q("With VOACAP, in this order:\nantennas with gain at both ends, 100 W\n"
                "station with gain, boat with whip, 100 W\nwhips at both ends, 5 kW"));
}

TEST_F(FrmOptions, ShowsChoicesOfTheSettings)
{
    frmOptions& frm = Open();
    Settings& settings = m_host.m_settings;
    settings.m_iPropagationModel = kEngineIcepac;
    settings.m_iPropagationAntennaType = 2;
    settings.m_iPropagationMonth = 12;
    settings.m_bPropagationMonth = false;
    settings.m_bPropagationSunSpotNumber = false;
    settings.m_sPropagationIonCoefficients = "CCIR";
    settings.m_bPropagationMapsMean = false;
    settings.m_iTimeCode = 1;
    settings.m_iMapOverlayGridSize = 999;
    settings.m_nData = 2;
    frm.Update();
    EXPECT_TRUE(frm.optPropagationModel1->isChecked());
    EXPECT_EQ(frm.cmbPropagationAntennaType->currentText(), Q("Tx, Whip   -   Rc, Whip"));
    EXPECT_EQ(frm.cmbPropagationMonth->currentText(), Q("Dec"));
    EXPECT_FALSE(frm.chkPropagationMonth->isChecked());
    EXPECT_FALSE(frm.chkPropagationSunSpotNumber->isChecked());
    EXPECT_EQ(frm.cmbPropagationIonCoefficients->currentText(), Q("CCIR"));
    EXPECT_FALSE(frm.chkPropagationMaps->isChecked());
    EXPECT_TRUE(frm.optTimeCode1->isChecked());
    EXPECT_EQ(frm.txtMapOverlayGridSize->text(), Q("999"));
    EXPECT_EQ(frm.txtFrequency->toPlainText(), Q("2000\n4000"));
}

TEST_F(FrmOptions, ShowsNoFrequencyOfAnEmptyList)
{
    m_host.m_settings.m_nData = 0;
    EXPECT_EQ(Open().txtFrequency->toPlainText(), QString());
}

TEST_F(FrmOptions, FillsItsTabsInOrder)
{
    frmOptions& frm = Open();
    QStringList asFilled;
    const auto Seen = [&](QLineEdit* pBox) {
        QObject::connect(pBox, &QLineEdit::textChanged, &frm,
                         [&asFilled, pBox] { asFilled << pBox->objectName(); });
    };
    Seen(frm.txtAirMailDirectory);
    Seen(frm.txtMapOverlayGridSize);
    Seen(frm.txtPropagationNoiseLevel);
    QObject::connect(frm.txtFrequency, &QPlainTextEdit::textChanged, &frm, [&] {
        if (!asFilled.contains(Q("txtFrequency")))
            asFilled << Q("txtFrequency");
    });
    QObject::connect(frm.optTimeCode1, &QRadioButton::toggled, &frm,
                     [&] { asFilled << Q("optTimeCode1"); });
    AirMailDataFolderSet("D:\\Mail");
    m_host.m_settings.m_iMapOverlayGridSize = 41;
    m_host.m_settings.m_fPropagationNoiseLevel = -150.0F;
    m_host.m_settings.m_nData = 3;
    m_host.m_settings.m_iTimeCode = 1;
    frm.Update();
    EXPECT_EQ(asFilled,
              QStringList({Q("txtAirMailDirectory"), Q("txtFrequency"), Q("txtMapOverlayGridSize"),
                           Q("txtPropagationNoiseLevel"), Q("optTimeCode1")}));
}

TEST_F(FrmOptions, SettingsOutOfRangeSelectNothingAndAreKept)
{
    Settings& settings = m_host.m_settings;
    settings.m_iPropagationModel = 9;
    settings.m_iPropagationAntennaType = 7;
    settings.m_iPropagationMonth = 13;
    settings.m_sPropagationIonCoefficients = "ursi";
    settings.m_iTimeCode = 4;
    const frmOptions& frm = Open();
    for (const QRadioButton* pButton :
         {frm.optPropagationModel1, frm.optPropagationModel2, frm.optPropagationModel3,
          frm.optTimeCode0, frm.optTimeCode1})
        EXPECT_FALSE(pButton->isChecked()) << pButton->objectName().toStdString();
    for (const QComboBox* pCombo : {frm.cmbPropagationAntennaType, frm.cmbPropagationMonth,
                                    frm.cmbPropagationIonCoefficients})
        EXPECT_EQ(pCombo->currentIndex(), -1) << pCombo->objectName().toStdString();
    EXPECT_FALSE(frm.txtPropagationQIndex->isEnabled());
    Press(frm.cmdApply);
    EXPECT_EQ(m_host.m_atUpdate.m_iPropagationModel, 9);
    EXPECT_EQ(m_host.m_atUpdate.m_iPropagationAntennaType, 7);
    EXPECT_EQ(m_host.m_atUpdate.m_iPropagationMonth, 13);
    EXPECT_EQ(m_host.m_atUpdate.m_sPropagationIonCoefficients, "ursi");
    EXPECT_EQ(m_host.m_atUpdate.m_iTimeCode, 4);
}

TEST_F(FrmOptions, AValueBackInRangeIsSelectedAgain)
{
    m_host.m_settings.m_iPropagationModel = 0;
    m_host.m_settings.m_iPropagationMonth = 0;
    m_host.m_settings.m_iPropagationAntennaType = -1;
    frmOptions& frm = Open(kTabModel);
    EXPECT_EQ(frm.cmbPropagationMonth->currentIndex(), -1);
    m_host.m_settings.m_iPropagationModel = kEngineVoacap;
    m_host.m_settings.m_iPropagationMonth = 1;
    m_host.m_settings.m_iPropagationAntennaType = 0;
    frm.Update();
    EXPECT_TRUE(frm.optPropagationModel2->isChecked());
    EXPECT_EQ(frm.cmbPropagationMonth->currentText(), Q("Jan"));
    EXPECT_EQ(frm.cmbPropagationAntennaType->currentText(), Q("Tx, Omni   -   Rc, Omin"));
    Press(frm.optPropagationModel1);
    EXPECT_FALSE(frm.optPropagationModel2->isChecked());
}

TEST_F(FrmOptions, TextsThatStayTheSameKeepTheCaret)
{
    frmOptions& frm = Open(kTabFrequency);
    QTextCursor cursor = frm.txtFrequency->textCursor();
    cursor.setPosition(12);
    frm.txtFrequency->setTextCursor(cursor);
    frm.Update();
    EXPECT_EQ(frm.txtFrequency->textCursor().position(), 12);
}

// Airmail

constexpr const char* kPosition =
    "Latitude=38\xB0"
    "30.00'N\r\nLongitude=122\xB0"
    "15.00'W\r\n";

TEST_F(FrmOptions, TellsThatAirmailHasNothing)
{
    const frmOptions& frm = Open();
    EXPECT_EQ(frm.txtAirMailDirectory->text(), Q("C:\\Program Files\\AirMail"));
    EXPECT_EQ(frm.lblAirMailLatLon->text(), Q("Unable to get Lat/Lon data."));
    EXPECT_EQ(frm.lblAirMailVersion->text(), Q("Unable to get current version number."));
}

TEST_F(FrmOptions, ShowsAPositionWithoutATime)
{
    AirMailWrite("Airmail.ini", std::string("[Propagation]\r\n") + kPosition);
    EXPECT_EQ(Open().lblAirMailLatLon->text(), Q("Lat 38°30.00'N, Lon 122°15.00'W"));
}

TEST_F(FrmOptions, ShowsTheAgeOfAPosition)
{
    AirMailWrite("Airmail.ini", std::string("[Position Report]\r\n") + kPosition
                                    + "DateTime=2024/03/16 20:30\r\n");
    EXPECT_EQ(Open().lblAirMailLatLon->text(), Q("Lat 38°30.00'N, Lon 122°15.00'W is 2 days old."));
}

TEST_F(FrmOptions, FollowsAirmailAtEachUpdate)
{
    frmOptions& frm = Open();
    AirMailWrite("Airmail.ini", std::string("[Propagation]\r\n") + kPosition);
    frm.Update();
    EXPECT_EQ(frm.lblAirMailLatLon->text(), Q("Lat 38°30.00'N, Lon 122°15.00'W"));
}

TEST_F(FrmOptions, TellsATimeThatIsNoDateOnceAndFillsTheRest)
{
    AirMailWrite("Airmail.ini",
                 std::string("[Position Report]\r\n") + kPosition + "DateTime=yesterday\r\n");
    const MsgRecorder msg;
    frmOptions& frm = Open();
    frm.Update();
    frm.Update();
    const MsgShown shown = OneShown(msg);
    EXPECT_EQ(shown.sText, "Airmail's position: Type mismatch");
    EXPECT_EQ(shown.eIcon, MsgIcon::None);
    EXPECT_EQ(frm.lblAirMailLatLon->text(), Q("Unable to get Lat/Lon data."));
    EXPECT_EQ(frm.txtMapOverlayGridSize->text(), Q("40"));
    EXPECT_TRUE(frm.optTimeCode0->isChecked());
}

TEST_F(FrmOptions, ShowsAirmailsVersion)
{
    AirMailWrite("Airmail.ini", "[Settings]\r\nLast Program Version=3.1.936\r\n");
    frmOptions& frm = Open();
    EXPECT_EQ(frm.lblAirMailVersion->text(), Q("Airmail 3.1.936"));
    AirMailWrite("Airmail.ini", "[Settings]\r\nLast Program Version=<b>3.3</b>\r\n");
    frm.Update();
    EXPECT_EQ(frm.lblAirMailVersion->text(),
              Q("Airmail <b>3.3</b>.  This program was tested with 3.1.936."));
    EXPECT_EQ(frm.lblAirMailVersion->textFormat(), Qt::PlainText);
}

TEST_F(FrmOptions, TellsWhereTheFolderComesFrom)
{
    frmOptions& frm = Open();
    EXPECT_TRUE(frm.lblAirMailOrigin->text().contains(Q("default")));
    AirMailDataFolderSet("D:\\Mail");
    frm.Update();
    EXPECT_EQ(frm.txtAirMailDirectory->text(), Q("D:\\Mail"));
    EXPECT_TRUE(frm.lblAirMailOrigin->text().contains(Q("profile")));
    EXPECT_TRUE(frm.lblAirMailOrigin->isVisible());
}

TEST_F(FrmOptions, TellsTheRegistryAndTheInstallLog)
{
    m_drive.RegistryWrite(R"("C:\\Mail\\")");
    AirMailFoldersFind();
    frmOptions& frm = Open();
    EXPECT_EQ(frm.txtAirMailDirectory->text(), Q("C:\\Mail"));
    EXPECT_TRUE(frm.lblAirMailOrigin->text().contains(Q("registry")));
    DriveWrite("Mail/Install.log", "NewCommonRoot= C:\\Common\\\r\n");
    AirMailFoldersFind();
    frm.Update();
    EXPECT_EQ(frm.txtAirMailDirectory->text(), Q("C:\\Common"));
    EXPECT_TRUE(frm.lblAirMailOrigin->text().contains(Q("install log")));
}

// Clocks

TEST_F(FrmOptions, BothClocksTickWhicheverZoneIsChosen)
{
    DateTime dtUtc = kUtcTest;
    DateTime dtLocal = kLocalTest;
    const ClockSet clock(ClockSource{[&] { return dtUtc; }, [&] { return dtLocal; }, {}});
    const frmOptions& frm = Open(kTabTime);
    EXPECT_EQ(frm.tmrTime->interval(), 1000);
    EXPECT_EQ(frm.lblTimeCode0->text(), Q("14:05:09"));
    EXPECT_EQ(frm.lblTimeCode1->text(), Q("07:05:09"));
    Press(frm.optTimeCode1);
    dtUtc = {2024, 3, 19, 0, 0, 0};
    dtLocal = {2024, 3, 18, 17, 0, 7};
    EXPECT_TRUE(QTest::qWaitFor([&] { return frm.lblTimeCode0->text() == Q("00:00:00"); }, 3000));
    EXPECT_EQ(frm.lblTimeCode1->text(), Q("17:00:07"));
}

}  // namespace
