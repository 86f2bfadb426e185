/// @file FuzzPrefix.h
/// A throw-away Wine prefix with an engine root for the readers under test; message boxes are
/// ignored. It is in the temporary folder (TMPDIR), preferably on a disk in memory, since every
/// input is written there as a file.
#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "airmail/AirMailLib.h"
#include "fuzz/FuzzCheck.h"
#include "system/MsgLib.h"
#include "system/TextLib.h"

class FuzzPrefix {
public:
    FuzzPrefix()
    {
        std::filesystem::create_directories(m_pthFolder / "drive_c/Program Files/AirMail");
        std::filesystem::create_directories(m_pthFolder / "drive_c/itshfbc/areadata");
        setenv("HOPCAST_ITSHFBC", (m_pthFolder / "drive_c/itshfbc").c_str(), 1);
        setenv("WINEPREFIX", m_pthFolder.c_str(), 1);
        MsgSetHandler([](MsgIcon, const std::string&) {});
        AirMailFoldersReset();
    }
    ~FuzzPrefix()
    {
        std::error_code ec;
        std::filesystem::remove_all(m_pthFolder, ec);
    }
    FuzzPrefix(const FuzzPrefix&) = delete;
    FuzzPrefix& operator=(const FuzzPrefix&) = delete;

    /// Writes a file in the prefix.
    void Write(const char* sName, const std::uint8_t* pBytes, std::size_t nBytes) const
    {
        std::FILE* pFile = std::fopen((m_pthFolder / sName).c_str(), "wb");
        Check(pFile != nullptr);
        Check(std::fwrite(pBytes, 1, nBytes, pFile) == nBytes);
        Check(std::fclose(pFile) == 0);
    }
    /// Full path of a file in the prefix.
    [[nodiscard]] std::string Path(const char* sName) const { return m_pthFolder / sName; }

private:
    std::filesystem::path m_pthFolder =
        std::filesystem::temp_directory_path() / ("hopcast-fuzz-" + std::to_string(getpid()));
};

/// Values are cut to the reader's buffer of 512 characters, its NUL included.
inline void CheckValue(const std::string& sValue)
{
    Check(Windows1252FromUtf8(sValue).size() < 512);
}
