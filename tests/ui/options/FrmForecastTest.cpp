// The dialog that reads a forecast, and what the options show of it afterwards.
#include <QClipboard>

#include "settings/ForecastFile.h"
#include "settings/ForecastReader.h"
#include "support/TempFolder.h"
#include "ui/common/FileDialog.h"
#include "ui/options/FrmOptionsFixture.h"
#include "ui/options/frmForecast.h"

namespace {

QString Q(const char* sText) { return QString::fromUtf8(sText); }

QString Sample(const char* sName)
{
    return QString::fromStdString(BytesRead(std::string(TEST_FORECASTS "/") + sName));
}

class FrmForecast : public FrmOptions {
protected:
    FrmForecast()
    {
        m_clock2026 = std::make_unique<ClockSet>(DateTime{2026, 11, 21, 13, 5, 0},
                                                 DateTime{2026, 11, 21, 13, 5, 0});
        m_host.m_settings.m_sProfileFile = m_folderProfile.Path("hopcast.ini");
        m_host.m_settings.m_bPropagationSunSpotNumber = false;
    }
    /// The dialog that the button on the tab Model opens.
    frmForecast& Dialog()
    {
        if (!m_pForm)
            Open(kTabModel);
        Press(m_pForm->cmdForecast);
        const auto apDialog = m_pForm->findChildren<frmForecast*>();  // closed ones go later
        EXPECT_TRUE(apDialog.last()->isVisible());
        return *apDialog.last();
    }
    [[nodiscard]] std::optional<SunSpotForecast> Kept() const
    {
        const auto res = ForecastLoad(m_host.m_settings.m_sProfileFile);
        return res ? res.ValueGet() : std::nullopt;
    }

    TempFolder m_folderProfile;
    std::unique_ptr<ClockSet> m_clock2026;
};

TEST_F(FrmForecast, APastedTextTellsWhatWasReadAndOkKeepsItBesideTheProfile)
{
    frmForecast& dlg = Dialog();
    EXPECT_FALSE(dlg.cmdOk->isEnabled());
    EXPECT_TRUE(dlg.lblForecast->text().contains(Q("mean cycle")));
    dlg.txtForecast->setPlainText(Sample("noaa_reply_quoted.txt"));
    EXPECT_TRUE(dlg.lblForecast->text().startsWith(Q("Read: NOAA forecast for 2026-11 to 2026-12")))
        << dlg.lblForecast->text().toStdString();
    Press(dlg.cmdOk);
    ASSERT_TRUE(Kept().has_value());
    EXPECT_EQ(Kept()->eSource, ForecastSource::Noaa);
    EXPECT_TRUE(Dialog().lblForecast->text().startsWith(Q("Kept: NOAA forecast")));
}

TEST_F(FrmForecast, ATextThatGivesNoNumberSaysWhyAndKeepsNothing)
{
    frmForecast& dlg = Dialog();
    dlg.txtForecast->setPlainText(Q("Fair winds and following seas"));
    EXPECT_FALSE(dlg.cmdOk->isEnabled());
    EXPECT_EQ(dlg.lblForecast->text().toStdString(),
              ForecastFromText("Fair winds and following seas", UtcNow()).TextGet());
    EXPECT_FALSE(dlg.lblForecast->text().isEmpty());
    dlg.txtForecast->clear();
    EXPECT_TRUE(dlg.lblForecast->text().startsWith(Q("No forecast is kept")));
    Press(dlg.cmdCancel);
    EXPECT_FALSE(Kept().has_value());
}

TEST_F(FrmForecast, AFileIsReadWhereATextIsPasted)
{
    const FileDialogFn fnBefore = FileDialogSetHandler([](QWidget*, const FileDialogQuestion&) {
        return Q(TEST_FORECASTS "/silso_kfpredicm.txt");
    });
    frmForecast& dlg = Dialog();
    dlg.txtForecast->setPlainText(Q("no forecast"));
    Press(dlg.cmdOpen);
    EXPECT_TRUE(dlg.lblForecast->text().startsWith(Q("Read: SILSO forecast")))
        << dlg.lblForecast->text().toStdString();
    EXPECT_EQ(dlg.txtForecast->toPlainText(), QString());
    Press(dlg.cmdOk);
    FileDialogSetHandler(fnBefore);
    ASSERT_TRUE(Kept().has_value());
    EXPECT_EQ(Kept()->eSource, ForecastSource::Silso);
}

TEST_F(FrmForecast, AForecastThatCannotBeKeptIsToldAndTheDialogStays)
{
    m_host.m_settings.m_sProfileFile = m_folderProfile.Write("file", "no folder") + "/hopcast.ini";
    const MsgRecorder msg;
    frmForecast& dlg = Dialog();
    dlg.txtForecast->setPlainText(Sample("wwv.txt"));
    Press(dlg.cmdOk);
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_TRUE(msg.m_aShown[0].sText.starts_with("Cannot keep the forecast"));
    EXPECT_TRUE(dlg.isVisible());
}

TEST_F(FrmForecast, TheRequestIsCopiedAsATextToMail)
{
    Press(Dialog().cmdRequest);
    const QString sText = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(sText.startsWith(Q("To: ")));
    EXPECT_TRUE(sText.contains(Q("\nsend https://")));
    EXPECT_TRUE(sText.contains(Q("predicted-solar-cycle.json")));
}

TEST_F(FrmForecast, TickingOneSourceOfTheSunspotNumberUnticksTheOther)
{
    m_host.m_settings.m_bPropagationSunSpotNumber = true;
    const frmOptions& frm = Open(kTabModel);
    Press(frm.chkPropagationForecast);
    EXPECT_FALSE(frm.chkPropagationSunSpotNumber->isChecked());
    Press(frm.chkPropagationSunSpotNumber);
    EXPECT_TRUE(frm.chkPropagationSunSpotNumber->isChecked());
    EXPECT_FALSE(frm.chkPropagationForecast->isChecked());
    Press(frm.chkPropagationForecast);
    Press(frm.cmdApply);
    EXPECT_TRUE(m_host.m_atUpdate.m_bPropagationForecast);
    EXPECT_FALSE(m_host.m_atUpdate.m_bPropagationSunSpotNumber);
}

TEST_F(FrmForecast, WhileItIsOnTheGreyBoxHasTheMonthsNumber)
{
    const frmOptions& frm = Open(kTabModel);
    EXPECT_TRUE(frm.txtPropagationSunSpotNumber->isEnabled());
    Press(frm.chkPropagationForecast);
    EXPECT_FALSE(frm.txtPropagationSunSpotNumber->isEnabled());
    EXPECT_EQ(frm.txtPropagationSunSpotNumber->text(), Q("62"));
    EXPECT_TRUE(frm.txtPropagationSunSpotNumber->toolTip().contains(Q("\nmean cycle")));
    Press(frm.chkPropagationMonth);
    Choose(frm.cmbPropagationMonth, 6);
    EXPECT_EQ(frm.txtPropagationSunSpotNumber->text(), Q("71")) << "July";
    Press(frm.chkPropagationForecast);
    EXPECT_TRUE(frm.txtPropagationSunSpotNumber->isEnabled());
    EXPECT_FALSE(frm.txtPropagationSunSpotNumber->toolTip().contains(u'\n'));
}

TEST_F(FrmForecast, AForecastThatWasReadIsInTheGreyBoxAtOnce)
{
    m_host.m_settings.m_bPropagationForecast = true;
    Open(kTabModel);
    frmForecast& dlg = Dialog();
    QString sText = Sample("noaa_predicted_solar_cycle.json");
    dlg.txtForecast->setPlainText(sText.replace(Q("87.9"), Q("100")));
    Press(dlg.cmdOk);
    EXPECT_EQ(m_pForm->txtPropagationSunSpotNumber->text(), Q("70"));
}

TEST_F(FrmForecast, WithoutItTheTypedNumberIsBackAlsoAfterApply)
{
    const frmOptions& frm = Open(kTabModel);
    Type(frm.txtPropagationSunSpotNumber, Q("120"));
    Press(frm.chkPropagationForecast);
    EXPECT_EQ(frm.txtPropagationSunSpotNumber->text(), Q("62"));
    Press(frm.chkPropagationForecast);
    EXPECT_EQ(frm.txtPropagationSunSpotNumber->text(), Q("120"));
    Press(frm.chkPropagationForecast);
    Press(frm.cmdApply);
    EXPECT_EQ(m_host.m_atUpdate.m_fPropagationSunSpotNumber, 62.0F);
    Press(frm.chkPropagationSunSpotNumber);
    EXPECT_EQ(frm.txtPropagationSunSpotNumber->text(), Q("120")) << "Airmail's comes with a run";
    Press(frm.chkPropagationForecast);
    Press(frm.cmdDefault);
    EXPECT_EQ(frm.txtPropagationSunSpotNumber->text(), Q("62"));
    Press(frm.chkPropagationForecast);
    EXPECT_EQ(frm.txtPropagationSunSpotNumber->text(), Q("170")) << "the default";
}

}  // namespace
