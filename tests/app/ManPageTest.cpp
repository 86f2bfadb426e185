/// The manual pages list exactly the options that the programs' own help lists.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace {

std::set<std::string> OptionsOf(const std::string& sText)
{
    static const std::regex kOption("--[a-z][-a-z0-9]*");
    const std::sregex_iterator itFirst(sText.begin(), sText.end(), kOption);
    std::set<std::string> asOption;
    for (auto it = itFirst; it != std::sregex_iterator(); ++it) asOption.insert(it->str());
    return asOption;
}

class ManPage : public testing::TestWithParam<const char*> {};

TEST_P(ManPage, TellsTheOptionsOfTheHelpAndNoOther)
{
    const std::string sProgram = GetParam();
    const ProgramResult res = ProgramRun({TEST_BIN "/" + sProgram, "--help"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    // A manual page writes "\-" for a hyphen that can be copied to a shell.
    const std::string sPage =
        std::regex_replace(BytesRead(MAN_FOLDER "/" + sProgram + ".1"), std::regex(R"(\\-)"), "-");
    const std::set<std::string> asHelp = OptionsOf(res.sOut);
    EXPECT_GE(asHelp.size(), 4u);
    EXPECT_EQ(OptionsOf(sPage), asHelp);
}

INSTANTIATE_TEST_SUITE_P(Programs, ManPage, testing::Values(MAN_PROGRAMS));

}  // namespace
