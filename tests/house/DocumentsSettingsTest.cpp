/// The parts of documents that list settings match the table of settings. With HOPCAST_RENEW=1 in
/// the environment they are rewritten instead.
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

#include "settings/SettingsTable.h"
#include "support/TempFolder.h"

namespace {

std::string Ticked(const std::string& sText) { return sText.empty() ? "" : "`" + sText + "`"; }

/// The rows of docs/files.md. A key that is read under another name is in bold.
std::string KeysTable()
{
    std::string sText =
        "| section | key written | key read | unit | range | default | shipped |\n"
        "|---|---|---|---|---|---|---|\n";
    std::string sSection;
    for (const SettingRow& row : SettingsTableGet()) {
        const bool bSame = sSection == row.sSection;
        sSection = row.sSection;
        sText += "| " + (bSame ? "" : Ticked(sSection) + " ") + "| " + Ticked(row.sKey) + " | "
                 + (row.sKeyRead == nullptr ? "same" : "**" + Ticked(row.sKeyRead) + "**") + " | "
                 + row.sUnit + " | " + SettingRangeText(row) + " | " + Ticked(row.sDefault) + " | "
                 + Ticked(row.sShipped == nullptr ? "" : row.sShipped) + " |\n";
    }
    return sText;
}

/// A manual page writes "\-" for a hyphen that can be copied to a shell, and for the minus of a
/// number.
std::string ManDashes(const std::string& sText, bool bAll)
{
    std::string sMan;
    for (std::size_t n = 0; n < sText.size(); ++n) {
        const bool bNumber =
            n + 1 < sText.size() && std::isdigit(static_cast<unsigned char>(sText[n + 1])) != 0;
        sMan += sText[n] == '-' && (bAll || bNumber) ? "\\-" : std::string(1, sText[n]);
    }
    return sMan;
}

/// The manual page's entries for a group of options.
std::string ManEntries(OptionGroup eGroup)
{
    std::string sText;
    for (const SettingRow& row : SettingsTableGet()) {
        if (row.option.sName == nullptr || row.option.eGroup != eGroup)
            continue;
        std::string sHelp = SettingHelpText(row);
        sHelp[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(sHelp[0])));
        sText += ".TP\n.BI " + ManDashes(row.option.sName, true) + " \" " + row.option.sValue
                 + "\"\n" + ManDashes(sHelp, false) + ".\n";
    }
    return sText;
}

/// Compares the part between two marks with the wanted text, or rewrites it.
void PartCheck(const std::string& sFile, const std::string& sBegin, const std::string& sEnd,
               const std::string& sWanted)
{
    std::string sText = BytesRead(sFile);
    const std::size_t nMark = sText.find(sBegin + "\n");
    ASSERT_NE(nMark, std::string::npos) << sFile << ": " << sBegin;
    const std::size_t nFrom = nMark + sBegin.size() + 1;
    const std::size_t nTo = sText.find(sEnd + "\n", nFrom);
    ASSERT_NE(nTo, std::string::npos) << sFile << ": " << sEnd;
    if (std::getenv("HOPCAST_RENEW") != nullptr)
        std::ofstream(sFile, std::ios::binary) << sText.replace(nFrom, nTo - nFrom, sWanted);
    else
        EXPECT_EQ(sText.substr(nFrom, nTo - nFrom), sWanted)
            << sFile << ": run HouseTest once with HOPCAST_RENEW=1";
}

TEST(DocumentsSettings, KeysOfTheProfileAreThoseOfTheTable)
{
    PartCheck(DOCS_FOLDER "/files.md", "<!-- settings: keys -->", "<!-- settings: end -->",
              KeysTable());
}

TEST(DocumentsSettings, ManualPageTellsTheOptionsOfTheTable)
{
    const std::string sPage = PROJECT_FOLDER "/packaging/man/hopcast-predict.1";
    const std::string sEnd = ".\\\" settings: end";
    PartCheck(sPage, ".\\\" settings: engine", sEnd, ManEntries(OptionGroup::Engine));
    PartCheck(sPage, ".\\\" settings: complex", sEnd, ManEntries(OptionGroup::EngineComplex));
    PartCheck(sPage, ".\\\" settings: area", sEnd, ManEntries(OptionGroup::Area));
}

}  // namespace
