// Every member that the dialog shows: through the dialog, a saved profile and a new start.
#include "settings/ProfileLib.h"
#include "ui/options/FrmOptionsFixture.h"

namespace {

QString Q(const char* sText) { return QString::fromUtf8(sText); }

TEST_F(FrmOptions, SettingsOutliveARestart)
{
    const frmOptions& frm = Open(kTabModel);
    Press(frm.optPropagationModel1);
    Choose(frm.cmbPropagationAntennaType, 0);
    Press(frm.chkPropagationMonth);
    Choose(frm.cmbPropagationMonth, 6);
    Press(frm.chkPropagationSunSpotNumber);
    Choose(frm.cmbPropagationIonCoefficients, 0);
    int nBox = 0;
    for (const NumberBoxCase& c : kNumberBoxes) {
        frm.SSTab->setCurrentIndex(c.iTab);
        Type(BoxGet(c.sName), QString::number(++nBox) + Q(".1"));
    }
    Type(frm.txtMapOverlayGridSize, Q("77"));
    frm.SSTab->setCurrentIndex(kTabTime);
    Press(frm.optTimeCode1);
    FrequenciesType(Q("3900\n7250\n14300"));
    Press(frm.cmdOk);
    ASSERT_TRUE(GoneIs());

    m_host.m_settings.m_sProfileFile = m_folder.Path("saved.ini");
    ASSERT_TRUE(ProfileSave(m_host.m_settings, std::nullopt));
    m_host.m_settings = Settings();
    m_host.m_settings.m_sProfileFile = m_folder.Path("saved.ini");
    ProfileLoad(m_host.m_settings, {});

    const frmOptions& frmNew = Open();
    EXPECT_TRUE(frmNew.optPropagationModel1->isChecked());
    EXPECT_EQ(frmNew.cmbPropagationAntennaType->currentIndex(), 0);
    EXPECT_FALSE(frmNew.chkPropagationMonth->isChecked());
    EXPECT_EQ(frmNew.cmbPropagationMonth->currentText(), Q("Jul"));
    EXPECT_FALSE(frmNew.chkPropagationSunSpotNumber->isChecked());
    EXPECT_EQ(frmNew.txtMapOverlayGridSize->text(), Q("77"));
    EXPECT_TRUE(frmNew.optTimeCode1->isChecked());
    EXPECT_EQ(frmNew.txtFrequency->toPlainText(), Q("3900\n7250\n14300"));
    nBox = 0;
    for (const NumberBoxCase& c : kNumberBoxes) {
        QString sExpected = QString::number(++nBox) + Q(".1");
        // Written under one key and read under another: back at their defaults.
        if (c.pMember == &Settings::m_fPropagationReliability)
            sExpected = Q("50");
        if (c.pMember == &Settings::m_fPropagationMultipathPower)
            sExpected = Q("0");
        EXPECT_EQ(BoxGet(c.sName)->text(), sExpected) << c.sName;
    }
    EXPECT_EQ(frmNew.cmbPropagationIonCoefficients->currentText(), Q("URSI"));
}

}  // namespace
