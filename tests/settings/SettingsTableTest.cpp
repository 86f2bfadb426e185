#include <gtest/gtest.h>

#include <set>
#include <string>

#include "settings/SettingsTable.h"

namespace {

std::string Name(const SettingRow& row)
{
    return "[" + std::string(row.sSection) + "] " + row.sKey;
}

bool SpecialIs(const SettingRow& row) { return std::holds_alternative<SettingSpecial>(row.member); }

TEST(SettingsTable, NoKeyControlOrOptionStandsTwice)
{
    std::set<std::string> asSeen;
    for (const SettingRow& row : SettingsTableGet()) {
        EXPECT_TRUE(asSeen.insert(Name(row)).second) << Name(row);
        if (row.sControl != nullptr) {
            EXPECT_TRUE(asSeen.insert(row.sControl).second) << row.sControl;
        }
        if (row.option.sName != nullptr) {
            EXPECT_TRUE(asSeen.insert(row.option.sName).second) << row.option.sName;
        }
    }
}

TEST(SettingsTable, EveryDefaultAndShippedValueCanBeReadAndIsInRange)
{
    for (const SettingRow& row : SettingsTableGet()) {
        if (SpecialIs(row) || std::string(row.sKey) == "Month Number")
            continue;
        for (const char* sValue :
             {row.sDefault, row.sShipped != nullptr ? row.sShipped : row.sDefault}) {
            Settings settings;
            EXPECT_TRUE(SettingFromText(row, sValue, settings)) << Name(row);
            EXPECT_EQ(SettingToText(row, settings), sValue) << Name(row);
            if (row.eRule != RangeRule::Any) {
                EXPECT_TRUE(row.range.Holds(std::stod(sValue))) << Name(row);
            }
        }
    }
}

TEST(SettingsTable, EveryRuleButTheOneWithoutARangeHasOne)
{
    for (const SettingRow& row : SettingsTableGet()) {
        if (SpecialIs(row))
            continue;
        EXPECT_EQ(row.eRule != RangeRule::Any, row.range.dLeast < row.range.dMost) << Name(row);
    }
}

TEST(SettingsTable, ARowIsFoundByItsMember)
{
    EXPECT_STREQ(SettingRowGet(&Settings::m_fPropagationQIndex).sKey, "Q Index");
    EXPECT_STREQ(SettingRowGet(&Settings::m_ePalette).sKey, "Palette");
    EXPECT_STREQ(SettingRowGet(SettingSpecial::Needs).sSection, "Need Data");
}

TEST(SettingsTable, ATextThatCannotBeReadLeavesTheMember)
{
    Settings settings;
    const SettingRow& row = SettingRowGet(&Settings::m_iMapWorldBegins);
    EXPECT_TRUE(SettingFromText(row, "-180", settings));
    EXPECT_FALSE(SettingFromText(row, "90", settings));
    EXPECT_EQ(settings.m_iMapWorldBegins, -180);
    EXPECT_FALSE(SettingFromText(SettingRowGet(SettingSpecial::Needs), "1", settings));
}

}  // namespace
