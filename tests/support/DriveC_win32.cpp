#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "support/DriveC.h"

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* kAirMailKey = L"Software\\Sirius Cybernetics\\AirMail";
constexpr const wchar_t* kInstallKey = L"Software\\Sirius Cybernetics\\AirMail\\Installation";

/// The characters of a quoted text of the registry file, with escapes decoded.
std::wstring QuotedTake(std::string_view sQuoted)
{
    std::wstring sText;
    for (std::size_t n = 1; n + 1 < sQuoted.size(); ++n) {
        if (sQuoted[n] == '\\' && sQuoted[n + 1] == 'x') {
            sText += static_cast<wchar_t>(
                std::strtoul(std::string(sQuoted.substr(n + 2, 2)).c_str(), nullptr, 16));
            n += 3;
        } else {
            n += sQuoted[n] == '\\' ? 1 : 0;
            sText += static_cast<wchar_t>(sQuoted[n]);
        }
    }
    return sText;
}

void StringSet(const wchar_t* sKey, const std::wstring& sText, DWORD nType)
{
    const auto nBytes = static_cast<DWORD>((sText.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(
        RegSetKeyValueW(HKEY_CURRENT_USER, sKey, L"Install Folder", nType, sText.c_str(), nBytes),
        ERROR_SUCCESS);
}

}  // namespace

DriveC::DriveC()
{
    if (std::getenv("HOPCAST_THROWAWAY_DRIVE") == nullptr) {
        std::fprintf(stderr, "this program writes to drive C: run it by tests/wine/prefix.sh\n");
        std::exit(1);
    }
    RegDeleteTreeW(HKEY_CURRENT_USER, kAirMailKey);
}

DriveC::~DriveC()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, kAirMailKey);
    std::error_code ec;
    for (const std::string& sMade : m_asMade) fs::remove_all(sMade, ec);
}

std::string DriveC::Path(std::string_view sName) const
{
    const fs::path pthFile = fs::path("C:\\" + std::string(sName)).make_preferred();
    fs::path pthMade = pthFile;
    std::error_code ec;
    while (!fs::exists(pthMade.parent_path(), ec)) pthMade = pthMade.parent_path();
    if (!fs::exists(pthMade, ec))
        m_asMade.push_back(pthMade.string());
    fs::create_directories(pthFile.parent_path(), ec);
    return pthFile.string();
}

std::string DriveC::Write(std::string_view sName, std::string_view sBytes) const
{
    std::string sPath = Path(sName);
    std::ofstream stmOut(fs::path(sPath), std::ios::binary);
    stmOut.write(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
    EXPECT_TRUE(stmOut.good()) << sPath;
    return sPath;
}

void DriveC::RegistryWrite(const std::string& sValue) const
{
    constexpr std::string_view kExpandable = "str(2):";
    RegDeleteTreeW(HKEY_CURRENT_USER, kAirMailKey);
    StringSet(kAirMailKey, L"C:\\Wrong\\", REG_SZ);
    if (sValue.starts_with(kExpandable)) {
        StringSet(kInstallKey, QuotedTake(std::string_view(sValue).substr(kExpandable.size())),
                  REG_EXPAND_SZ);
    } else if (sValue.starts_with("dword:")) {
        const DWORD nNumber = 1;
        RegSetKeyValueW(HKEY_CURRENT_USER, kInstallKey, L"Install Folder", REG_DWORD, &nNumber,
                        sizeof nNumber);
    } else if (sValue.size() >= 2 && sValue.back() == '"') {
        StringSet(kInstallKey, QuotedTake(sValue), REG_SZ);
    }
}
