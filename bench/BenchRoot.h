/// @file BenchRoot.h
/// An engine root of a benchmark's own, gone at the end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

class BenchRoot {
public:
    BenchRoot()
    {
        namespace fs = std::filesystem;
        std::string sRoot = (fs::temp_directory_path() / "hopcast-bench-XXXXXX").string();
        if (!mkdtemp(sRoot.data()))
            std::abort();
        m_pthRoot = sRoot;
        for (const char* sName : {"bin_win", "RUN", "areadata"})
            fs::create_directory(m_pthRoot / sName);
        setenv("HOPCAST_ITSHFBC", sRoot.c_str(), 1);
    }
    /// With a program in the place of REC533.
    explicit BenchRoot(const char* sEngine) : BenchRoot()
    {
        std::filesystem::create_symlink(sEngine, PathGet("bin_win") / "rec533w.exe");
    }
    ~BenchRoot()
    {
        std::error_code ec;
        std::filesystem::remove_all(m_pthRoot, ec);
    }
    BenchRoot(const BenchRoot&) = delete;
    BenchRoot& operator=(const BenchRoot&) = delete;
    [[nodiscard]] std::filesystem::path PathGet(const char* sName) const
    {
        return m_pthRoot / sName;
    }

private:
    std::filesystem::path m_pthRoot;
};
