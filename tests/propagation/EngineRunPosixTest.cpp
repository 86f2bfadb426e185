/// How an engine's program is called: with host paths, or with Windows paths through Wine.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <string>

#include "propagation/EngineCases.h"
#include "propagation/PropagationLib.h"
#include "support/TempFolder.h"
#include "system/FileLib.h"

namespace {

class EngineRunPosix : public testing::Test {
protected:
    TempFolder m_folder;
    EnvironmentSet m_prefix{"WINEPREFIX", m_folder.Path() + "/wine"};
    EnvironmentSet m_data{"XDG_DATA_HOME", m_folder.Path() + "/data"};
    const std::string m_sCalled = m_folder.Path() + "/called";

    void ScriptWrite(const std::string& sName)
    {
        const std::string sFile =
            m_folder.Write(sName, "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + m_sCalled + "'\n");
        chmod(sFile.c_str(), 0755);
    }
    /// The command line of a run after the program's name, or after wine.
    std::string CalledBy(int iModel)
    {
        (void)FileDelete(m_sCalled);
        Request request = InputMake(CircuitCaseGet("rec533/p2p_01"));
        request.iModel = iModel;
        PropagationTable table(request.nData);
        const auto failure = iModel == kEngineRec533
                                 ? PropagationRec533(request, 1, 3, table)
                                 : PropagationIcepacVoacap(request, 1, 3, table);
        EXPECT_TRUE(failure && failure->eKind == FailureKind::BadOutput);  // it makes no output
        return FileExists(m_sCalled) ? BytesRead(m_sCalled) : "";
    }
};

TEST_F(EngineRunPosix, ANativeProgramIsToldPathsOfTheHost)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", m_folder.Path() + "/root");
    m_folder.Write("root/RUN/x", "");
    ScriptWrite("root/bin_win/rec533w.exe");
    EXPECT_EQ(CalledBy(kEngineRec533), m_folder.Path() + "/root\nsound.dat\nsound.out\n");
}

TEST_F(EngineRunPosix, AWindowsProgramIsToldPathsOfWindows)
{
    ScriptWrite("path/wine");
    const EnvironmentSet path("PATH", m_folder.Path() + "/path");
    {
        const EnvironmentSet root("HOPCAST_ITSHFBC", m_folder.Path() + "/mine");
        m_folder.Write("mine/RUN/x", "");
        m_folder.Write("mine/bin_win/icepacw.exe", "MZ");
        std::string sRoot = "Z:" + m_folder.Path() + "/mine";
        std::replace(sRoot.begin(), sRoot.end(), '/', '\\');
        EXPECT_EQ(CalledBy(kEngineIcepac),
                  sRoot + "\\bin_win\\icepacw.exe\n" + sRoot + "\nsound.dat\nsound.out\n");
    }
    const EnvironmentSet root("HOPCAST_ITSHFBC", std::nullopt);
    m_folder.Write("wine/drive_c/itshfbc/RUN/x", "");
    m_folder.Write("wine/drive_c/itshfbc/bin_win/icepacw.exe", "MZ");
    EXPECT_EQ(CalledBy(kEngineIcepac),
              "c:\\itshfbc\\bin_win\\icepacw.exe\nc:\\itshfbc\nsound.dat\nsound.out\n")
        << "the installed package gets its own names";
}

TEST_F(EngineRunPosix, EveryPathBelowTheRootIsFoundInAnyCase)
{
    const EnvironmentSet environment("HOPCAST_ITSHFBC", m_folder.Path() + "/root");
    m_folder.Write("root/run/Sound.DAT", "");
    const EngineRoot root = EngineRootGet();
    EXPECT_EQ(root.Path("c:\\itshfbc"), m_folder.Path() + "/root");
    EXPECT_EQ(root.Path("C:/ITSHFBC"), m_folder.Path() + "/root");
    EXPECT_EQ(root.Path("c:\\itshfbc\\RUN\\sound.dat"), m_folder.Path() + "/root/run/Sound.DAT");
    EXPECT_EQ(root.Path("c:\\itshfbc\\RUN\\new.dat"), m_folder.Path() + "/root/run/new.dat");
    EXPECT_EQ(root.Path("c:\\itshfbc\\bin_win\\"), m_folder.Path() + "/root/bin_win/");
}

}  // namespace
