/// @file OptionsDrive.h
/// Works the controls of the options dialog as a user does, with mouse and keys.
#pragma once

#include <gtest/gtest.h>

#include <QTest>

#include "ui/options/frmOptions.h"

inline void Press(QAbstractButton* pButton)
{
    QTest::mouseClick(pButton, Qt::LeftButton, {}, QPoint(8, pButton->height() / 2));
}

/// Clears a check box with the mouse.
inline void Clear(QCheckBox* pBox)
{
    if (pBox->isChecked())
        Press(pBox);
}

/// Replaces the text of a box with keys.
inline void Type(QLineEdit* pBox, const QString& sText)
{
    pBox->setFocus();
    QTest::keyClick(pBox, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(pBox, Qt::Key_Delete);
    QTest::keyClicks(pBox, sText);
}

/// Chooses an entry with keys.
inline void Choose(QComboBox* pCombo, int iIndex)
{
    pCombo->setFocus();
    QTest::keyClick(pCombo, Qt::Key_Home);
    for (int i = 0; i < iIndex; ++i) QTest::keyClick(pCombo, Qt::Key_Down);
}

inline void FrequenciesType(frmOptions& frm, const QString& sText)
{
    frm.TabShow(kTabFrequency);
    frm.txtFrequency->setFocus();
    QTest::keyClick(frm.txtFrequency, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(frm.txtFrequency, Qt::Key_Delete);
    for (const QChar chr : sText) {
        if (chr == u'\n')
            QTest::keyClick(frm.txtFrequency, Qt::Key_Return);
        else
            QTest::keyClicks(frm.txtFrequency, QString(chr));
    }
}

inline QLineEdit* BoxGet(const frmOptions& frm, const char* sName)
{
    return frm.findChild<QLineEdit*>(QString::fromUtf8(sName));
}

/// A number box, the member it shows, and its tab.
struct NumberBoxCase {
    const char* sName;
    float Settings::*pMember;
    int iTab;
};
inline std::ostream& operator<<(std::ostream& stm, const NumberBoxCase& c)
{
    return stm << c.sName;
}

// clang-format off
inline constexpr NumberBoxCase kNumberBoxes[] = {
    {"txtPropagationNoiseLevel",     &Settings::m_fPropagationNoiseLevel,     kTabModel},
    {"txtPropagationSunSpotNumber",  &Settings::m_fPropagationSunSpotNumber,  kTabModel},
    {"txtPropagationTakeoffAngle",   &Settings::m_fPropagationTakeoffAngle,   kTabModel},
    {"txtPropagationReliability",    &Settings::m_fPropagationReliability,    kTabModel},
    {"txtPropagationMultipathPower", &Settings::m_fPropagationMultipathPower, kTabModel},
    {"txtPropagationMultipathDelay", &Settings::m_fPropagationMultipathDelay, kTabModel},
    {"txtPropagationQIndex",         &Settings::m_fPropagationQIndex,         kTabModel},
    {"txtPropagationLayerE",         &Settings::m_fPropagationLayerAdjustE,   kTabModel},
    {"txtPropagationLayerF1",        &Settings::m_fPropagationLayerAdjustF1,  kTabModel},
    {"txtPropagationLayerF2",        &Settings::m_fPropagationLayerAdjustF2,  kTabModel},
    {"txtPropagationLayerEs",        &Settings::m_fPropagationLayerAdjustEs,  kTabModel},
    {"txtMapOverlayMinSnr",          &Settings::m_fMapOverlayMinSnr,          kTabMap},
    {"txtStationPower",              &Settings::m_fStationPower,              kTabStation},
};
// clang-format on

/// A number within the box's range that no other box has: "1.05", "1.1" ...; negative for the
/// noise.
inline QString BoxNumberGet(const NumberBoxCase& c, int nBox)
{
    const bool bNoise = c.pMember == &Settings::m_fPropagationNoiseLevel;
    return bNoise ? QStringLiteral("-150.5") : QString::number(1 + nBox / 20.0);
}

/// Gives every control whose value is copied a value other than its default.
inline void EveryControlChange(frmOptions& frm)
{
    frm.TabShow(kTabModel);
    Press(frm.optPropagationModel1);
    Choose(frm.cmbPropagationAntennaType, 0);
    Clear(frm.chkPropagationMonth);
    Choose(frm.cmbPropagationMonth, 6);
    Clear(frm.chkPropagationSunSpotNumber);
    Clear(frm.chkPropagationMaps);
    Choose(frm.cmbPropagationIonCoefficients, 0);
    int nBox = 0;
    for (const NumberBoxCase& c : kNumberBoxes) {
        frm.TabShow(c.iTab);
        Type(BoxGet(frm, c.sName), BoxNumberGet(c, ++nBox));
    }
    Type(frm.txtMapOverlayGridSize, QStringLiteral("77"));
    frm.TabShow(kTabMap);
    Choose(frm.cmbMapWorldBegins, 1);
    frm.TabShow(kTabColour);
    Choose(frm.pagColour->cmbPalette, 1);
    frm.TabShow(kTabTime);
    Press(frm.optTimeCode1);
    FrequenciesType(frm, QStringLiteral("3900\n7250\n14300"));
}

/// Expects the same values after saving a profile and a restart.
inline void EveryControlIsRestored(const frmOptions& frm)
{
    EXPECT_TRUE(frm.optPropagationModel1->isChecked());
    EXPECT_EQ(frm.cmbPropagationAntennaType->currentIndex(), 0);
    EXPECT_FALSE(frm.chkPropagationMonth->isChecked());
    EXPECT_EQ(frm.cmbPropagationMonth->currentText(), QStringLiteral("Jul"));
    EXPECT_FALSE(frm.chkPropagationSunSpotNumber->isChecked());
    EXPECT_EQ(frm.txtMapOverlayGridSize->text(), QStringLiteral("77"));
    EXPECT_EQ(frm.cmbMapWorldBegins->currentIndex(), 1);
    EXPECT_EQ(frm.pagColour->cmbPalette->currentIndex(), 1);
    EXPECT_TRUE(frm.optTimeCode1->isChecked());
    EXPECT_EQ(frm.txtFrequency->toPlainText(), QStringLiteral("3900\n7250\n14300"));
    int nBox = 0;
    for (const NumberBoxCase& c : kNumberBoxes) {
        QString sExpected = BoxNumberGet(c, ++nBox);
        // These are written under one key and read under another, so they are back at their
        // defaults.
        if (c.pMember == &Settings::m_fPropagationReliability)
            sExpected = QStringLiteral("50");
        if (c.pMember == &Settings::m_fPropagationMultipathPower)
            sExpected = QStringLiteral("0");
        EXPECT_EQ(BoxGet(frm, c.sName)->text(), sExpected) << c.sName;
    }
    EXPECT_EQ(frm.cmbPropagationIonCoefficients->currentText(), QStringLiteral("URSI"));
    EXPECT_FALSE(frm.chkPropagationMaps->isChecked());
}
