#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <utility>

#include "system/HostPath.h"

namespace fs = std::filesystem;

namespace {

void EnvironmentPut(const std::string& sName, const std::optional<std::string>& sValue)
{
#ifdef _WIN32
    _wputenv_s(WideFromUtf8(sName).c_str(), WideFromUtf8(sValue.value_or("")).c_str());
#else
    if (sValue)
        setenv(sName.c_str(), sValue->c_str(), 1);
    else
        unsetenv(sName.c_str());
#endif
}

}  // namespace

TempFolder::TempFolder()
{
    std::random_device random;
    const fs::path pthFolder =
        fs::temp_directory_path()
        / ("hopcast-test-" + std::to_string(random()) + std::to_string(random()));
    fs::create_directories(pthFolder);
    m_sFolder = TextFromPath(pthFolder);
}

TempFolder::~TempFolder()
{
    std::error_code ec;
    fs::remove_all(PathFromText(m_sFolder), ec);
}

std::string TempFolder::Path(std::string_view sName) const
{
    if (sName.empty())
        return m_sFolder;
    const fs::path pthFile = PathFromText(m_sFolder) / PathFromText(sName);
    std::error_code ec;
    fs::create_directories(pthFile.parent_path(), ec);
    return TextFromPath(pthFile);
}

std::string TempFolder::Write(std::string_view sName, std::string_view sBytes) const
{
    std::string sPath = Path(sName);
    std::ofstream stmOut(PathFromText(sPath), std::ios::binary);
    stmOut.write(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
    EXPECT_TRUE(stmOut.good()) << sPath;
    return sPath;
}

std::string BytesRead(const std::string& sPath)
{
    std::ifstream stmIn(PathFromText(sPath), std::ios::binary);
    EXPECT_TRUE(stmIn.is_open()) << sPath;
    return {std::istreambuf_iterator<char>(stmIn), {}};
}

EnvironmentSet::EnvironmentSet(std::string sName, std::optional<std::string> sValue)
    : m_sName(std::move(sName))
{
    if (const char* sBefore = std::getenv(m_sName.c_str()))
        m_sBefore = sBefore;
    EnvironmentPut(m_sName, sValue);
}

EnvironmentSet::~EnvironmentSet() { EnvironmentPut(m_sName, m_sBefore); }
