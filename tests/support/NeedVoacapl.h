/// @file NeedVoacapl.h
/// Tests that run the real VOACAP need the packages voacapl and voacapl-data. Without them such a
/// test is skipped with the reason; in CI it fails.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

/// True if the packages are installed.
inline bool VoacaplIsInstalled()
{
    return std::filesystem::exists("/usr/bin/voacapl")
           && std::filesystem::exists("/usr/share/voacapl/itshfbc/coeffs");
}

inline bool CiIsRunning()
{
    const char* pszCi = std::getenv("CI");
    return pszCi != nullptr && std::string_view(pszCi) == "true";
}

/// The same for what the tests of the Windows programs need.
#define NEED_WINE(bThere)                                                                \
    if (!(bThere)) {                                                                     \
        if (CiIsRunning())                                                               \
            FAIL() << "wine or the Windows build is missing";                            \
        GTEST_SKIP() << "wine or the Windows build (cmake --preset windows) is missing"; \
    }                                                                                    \
    static_assert(true)

/// The first statement of such a test (or of its SetUp).
#define NEED_VOACAPL()                                                             \
    if (!VoacaplIsInstalled()) {                                                   \
        if (CiIsRunning())                                                         \
            FAIL() << "the packages voacapl and voacapl-data are not installed";   \
        GTEST_SKIP() << "the packages voacapl and voacapl-data are not installed"; \
    }                                                                              \
    static_assert(true)
