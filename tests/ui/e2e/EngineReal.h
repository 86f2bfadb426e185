/// @file EngineReal.h
/// The engines of this build, and pictures of windows kept as artefacts of the build.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QWidget>
#include <filesystem>

#include "propagation/itshfbc/EngineProgram.h"
#include "support/TempFolder.h"

/// An engine root with the programs of this build.
class EngineReal {
public:
    EngineReal()
    {
        namespace fs = std::filesystem;
        for (const char* sFolder : {"bin_win", "RUN", "areadata"})
            fs::create_directories(m_folder.Path(sFolder));
        for (const char* sProgram : {"rec533w.exe", "voacapw.exe"})
            if (fs::exists(fs::path(TEST_BIN) / sProgram))
                fs::create_symlink(fs::path(TEST_BIN) / sProgram,
                                   fs::path(m_folder.Path("bin_win")) / sProgram);
    }
    ~EngineReal() { EngineLimitSet(m_dLimit); }
    EngineReal(const EngineReal&) = delete;
    EngineReal& operator=(const EngineReal&) = delete;

private:
    TempFolder m_folder;
    EnvironmentSet m_root{"HOPCAST_ITSHFBC", m_folder.Path()};
    double m_dLimit = EngineLimitSet(60);  // a build with sanitizers is slow
};

/// Saves a picture of a window in the build's folder "pictures".
inline void PictureSave(QWidget& widget, const char* sName)
{
    const QDir dir(QStringLiteral(TEST_BIN "/../pictures"));
    ASSERT_TRUE(dir.mkpath(QStringLiteral(".")));
    ASSERT_TRUE(widget.grab().save(dir.filePath(QLatin1String(sName)))) << sName;
}
