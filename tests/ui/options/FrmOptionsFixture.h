/// @file FrmOptionsFixture.h
/// An options dialog with a recording main window, an Airmail folder and an engine root of its own.
#pragma once

#include <QPointer>
#include <QTest>

#include "airmail/AirMailFixture.h"
#include "support/ClockSet.h"
#include "support/EngineRootSet.h"
#include "support/MsgRecorder.h"
#include "ui/options/OptionsDrive.h"
#include "ui/options/RecordingHost.h"
#include "ui/options/frmOptions.h"

inline constexpr DateTime kUtcTest{2024, 3, 18, 14, 5, 9};
inline constexpr DateTime kLocalTest{2024, 3, 18, 7, 5, 9};

class FrmOptions : public AirMailFixture {
protected:
    ~FrmOptions() override { delete m_pForm; }

    /// Opens the dialog as the main window does: shown, active, and on the given tab.
    frmOptions& Open(int iTab = kTabAirmail)
    {
        m_pForm = new frmOptions(m_host);
        m_pForm->show();
        m_pForm->TabShow(iTab);
        m_pForm->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_pForm));
        // In the real main window each run fills an open dialog again.
        m_host.m_fnUpdate = [this] { Q_EMIT m_host.SettingsSignalGet().Changed(); };
        return *m_pForm;
    }
    /// Waits for the dialog's destruction. @return true once it is gone
    bool GoneIs()
    {
        return QTest::qWaitFor([this] { return m_pForm.isNull(); }, 2000);
    }
    void FrequenciesType(const QString& sText) const { ::FrequenciesType(*m_pForm, sText); }
    [[nodiscard]] QLineEdit* BoxGet(const char* sName) const { return ::BoxGet(*m_pForm, sName); }
    /// How many runs were requested of the main window.
    [[nodiscard]] int UpdatesGet() const
    {
        int nUpdates = 0;
        for (const std::string& sCall : m_host.m_asCalls) nUpdates += sCall == "Update" ? 1 : 0;
        return nUpdates;
    }

    ClockSet m_clock{kUtcTest, kLocalTest};
    EngineRootSet m_root;
    RecordingHost m_host;
    QPointer<frmOptions> m_pForm;
};
