/// @file HopcastPredictRig.h
/// The console program as a user runs it, in a home of its own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "support/Faults.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

using Words = std::vector<std::string>;

inline ProgramResult Predict(Words asWords)
{
    asWords.insert(asWords.begin(), TEST_BIN "/hopcast-predict");
    return ProgramRun(asWords);
}

/// A new home for each test, so that the engine root is provisioned afresh and the files of the
/// machine's user stay untouched.
class HopcastPredict : public testing::Test {
protected:
    HopcastPredict()
        : m_data("XDG_DATA_HOME", m_tmp.Path("data")),
          m_config("XDG_CONFIG_HOME", m_tmp.Path("config")),
          m_wine("WINEPREFIX", m_tmp.Path("wine")),
          m_root("HOPCAST_ITSHFBC", std::nullopt)
    {
    }

    /// A root with a fake engine in place of REC533.
    std::string RootMake(const std::string& sScript) const
    {
        const std::string sProgram =
            m_tmp.Write("root/bin_win/rec533w.exe", "#!/bin/sh\n" + sScript);
        std::filesystem::permissions(sProgram, std::filesystem::perms::owner_all);
        std::filesystem::create_directories(m_tmp.Path("root/RUN"));
        std::filesystem::create_directories(m_tmp.Path("root/areadata"));
        return m_tmp.Path("root");
    }

    TempFolder m_tmp;
    EnvironmentSet m_data, m_config, m_wine, m_root;
};
