/// @file FuzzCheck.h
/// What every fuzz program needs: the check of a promise, and the input as a file in memory.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "system/FileLib.h"

/// Checks a promise of the readers that must hold for every input; the fuzzer reports the input
/// that breaks it.
inline void Check(bool bKept)
{
    if (!bKept)
        std::abort();
}

/// The input as text.
inline std::string_view FuzzText(const std::uint8_t* pBytes, std::size_t nBytes)
{
    return {reinterpret_cast<const char*>(pBytes), nBytes};
}

/// One file in memory, whose bytes each input replaces.
class FuzzFile {
public:
    FuzzFile() : m_nFile(memfd_create("fuzz", MFD_CLOEXEC)) { Check(m_nFile >= 0); }
    ~FuzzFile() { close(m_nFile); }
    FuzzFile(const FuzzFile&) = delete;
    FuzzFile& operator=(const FuzzFile&) = delete;

    /// Opens the bytes for reading.
    [[nodiscard]] TextFile Open(std::string_view sBytes) const
    {
        Check(ftruncate(m_nFile, 0) == 0);
        Check(pwrite(m_nFile, sBytes.data(), sBytes.size(), 0)
              == static_cast<ssize_t>(sBytes.size()));
        auto resFile = TextFile::Open("/proc/self/fd/" + std::to_string(m_nFile));
        Check(static_cast<bool>(resFile));
        return std::move(resFile.ValueGet());
    }

private:
    int m_nFile;
};
