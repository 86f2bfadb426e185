// Every member that the dialog shows survives the dialog, a saved profile and a restart.
#include "settings/ProfileLib.h"
#include "support/MsgRecorder.h"
#include "ui/options/FrmOptionsFixture.h"

namespace {

TEST_F(FrmOptions, SettingsOutliveARestart)
{
    frmOptions& frm = Open(kTabModel);
    EveryControlChange(frm);
    Press(frm.cmdOk);
    ASSERT_TRUE(GoneIs());

    m_host.m_settings.m_sProfileFile = m_folder.Path("saved.ini");
    ASSERT_TRUE(ProfileSave(m_host.m_settings, std::nullopt, CallMessages()));
    m_host.m_settings = Settings();
    m_host.m_settings.m_sProfileFile = m_folder.Path("saved.ini");
    ASSERT_TRUE(ProfileLoad(m_host.m_settings, {}));

    EveryControlIsRestored(Open());
}

}  // namespace
