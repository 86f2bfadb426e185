/// @file FrmOptionsFixture.h
/// An options dialog beside a recording main window, on an Airmail folder of the test's own.
#pragma once

#include <QPointer>
#include <QTest>
#include <memory>

#include "airmail/AirMailFixture.h"
#include "support/ClockSet.h"
#include "support/MsgRecorder.h"
#include "ui/options/RecordingHost.h"
#include "ui/options/frmOptions.h"

inline constexpr DateTime kUtcTest{2024, 3, 18, 14, 5, 9};
inline constexpr DateTime kLocalTest{2024, 3, 18, 7, 5, 9};

class FrmOptions : public AirMailFixture {
protected:
    ~FrmOptions() override { delete m_pForm; }

    /// Opens the dialog as the main window does: made, shown, active, on a tab.
    frmOptions& Open(int iTab = kTabAirmail)
    {
        m_pForm = new frmOptions(m_host);
        m_pForm->show();
        m_pForm->TabShow(iTab);
        m_pForm->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_pForm));
        // The real main window has an open dialog filled anew by each run.
        m_host.m_fnUpdate = [this] {
            if (m_pForm)
                m_pForm->Update();
        };
        return *m_pForm;
    }
    /// True once the dialog is gone; waits for its destruction.
    bool GoneIs()
    {
        return QTest::qWaitFor([this] { return m_pForm.isNull(); }, 2000);
    }
    static void Press(QAbstractButton* pButton)
    {
        QTest::mouseClick(pButton, Qt::LeftButton, {}, QPoint(8, pButton->height() / 2));
    }
    /// Replaces the text of a box by keys.
    static void Type(QLineEdit* pBox, const QString& sText)
    {
        pBox->setFocus();
        QTest::keyClick(pBox, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(pBox, Qt::Key_Delete);
        QTest::keyClicks(pBox, sText);
    }
    void FrequenciesType(const QString& sText) const
    {
        m_pForm->TabShow(kTabFrequency);
        m_pForm->txtFrequency->setFocus();
        QTest::keyClick(m_pForm->txtFrequency, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_pForm->txtFrequency, Qt::Key_Delete);
        for (const QChar chr : sText) {
            if (chr == u'\n')
                QTest::keyClick(m_pForm->txtFrequency, Qt::Key_Return);
            else
                QTest::keyClicks(m_pForm->txtFrequency, QString(chr));
        }
    }
    /// Chooses an entry by keys.
    static void Choose(QComboBox* pCombo, int iIndex)
    {
        pCombo->setFocus();
        QTest::keyClick(pCombo, Qt::Key_Home);
        for (int i = 0; i < iIndex; ++i) QTest::keyClick(pCombo, Qt::Key_Down);
    }
    [[nodiscard]] QLineEdit* BoxGet(const char* sName) const
    {
        return m_pForm->findChild<QLineEdit*>(QString::fromUtf8(sName));
    }
    /// Runs of the main window asked for.
    [[nodiscard]] int UpdatesGet() const
    {
        int nUpdates = 0;
        for (const std::string& sCall : m_host.m_asCalls) nUpdates += sCall == "Update" ? 1 : 0;
        return nUpdates;
    }

    ClockSet m_clock{kUtcTest, kLocalTest};
    RecordingHost m_host;
    QPointer<frmOptions> m_pForm;
};

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
};
// clang-format on
