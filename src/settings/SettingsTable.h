/// @file SettingsTable.h
/// The table of all settings. A row gives a setting's member, its section and key in the profile,
/// its default and range, its control in the options window, and its option of hopcast-predict.
/// Profile, options, console program and documents are loops over the rows, so that a new setting
/// takes a member, a row and a control.
///
/// Units:   with each row. Texts of values are those of the profile: "-145", "True".
/// Errors:  a text that cannot be read leaves the member as it is.
/// Tests:   tests/settings/SettingsTableTest.cpp, tests/settings/ProfileLibTest.cpp
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "settings/Settings.h"
#include "settings/SettingsRange.h"

/// Settings of more than one member; the profile has a procedure for each.
enum class SettingSpecial { AirMailData, AirMailProgram, Frequencies, Window, Needs, PlanWindows };

using SettingMember =
    std::variant<int Settings::*, float Settings::*, double Settings::*, bool Settings::*,
                 std::string Settings::*, Palette Settings::*, SettingSpecial>;

/// What happens to a number in the profile that is out of range.
enum class RangeRule {
    Any,       ///< it has no range
    Offered,   ///< it is applied: the range is only what controls and options offer
    Reported,  ///< it is applied in the window program; the console program refuses it
    Drop,      ///< it is not applied in the window program; the console program refuses it
    DropPair,  ///< as Drop, together with the other number of its position
    Limit,     ///< it becomes the nearest number in range
};

/// The group of an option in --help.
enum class OptionGroup { Engine, EngineComplex, Area };
/// The kinds of run that an option applies to.
enum class OptionRuns { All, Path, Area };

/// An option of hopcast-predict whose value is the setting's number.
struct SettingOption {
    const char* sName = nullptr;  ///< "--noise"; nullptr: no such option
    const char* sValue = "";      ///< "dBW", for --help
    const char* sExpected = "";   ///< "a noise level in dBW", for the message about a wrong value
    const char* sHelp = "";       ///< what it is, without range and default
    OptionGroup eGroup = OptionGroup::Engine;
    OptionRuns eRuns = OptionRuns::All;
};

struct SettingRow {
    SettingMember member;
    const char* sSection = "";
    const char* sKey = "";           ///< as written; of a special setting as in the documents
    const char* sKeyRead = nullptr;  ///< as read, if that is another name
    const char* sUnit = "";          ///< unit or meaning, for docs/files.md
    const char* sDefault = "";       ///< for Settings::Initialize; "" if it is set elsewhere
    const char* sShipped = nullptr;  ///< in the shipped first profile, if that is another value
    RangeRule eRule = RangeRule::Any;
    NumberRange range{};
    std::span<const std::string_view> asChoice{};  ///< the only values; any other cannot be read
    bool bStays = false;                           ///< File, Default does not touch it
    const char* sControl = nullptr;                ///< its control in the options, by object name
    SettingOption option{};

    [[nodiscard]] const char* KeyRead() const { return sKeyRead != nullptr ? sKeyRead : sKey; }
};

/// All rows, in the order in which the profile is read and written.
[[nodiscard]] std::span<const SettingRow> SettingsTableGet();

/// The row of a member. REQUIRES: the table has one.
[[nodiscard]] const SettingRow& SettingRowGet(const SettingMember& member);

/// The values that a setting may have: "-200 to -100", "0, -180"; "" for any.
[[nodiscard]] std::string SettingRangeText(const SettingRow& row);

/// An option's description in --help: "a Q index, 0 to 9 (default 3)".
[[nodiscard]] std::string SettingHelpText(const SettingRow& row);

/// A setting as the profile writes it; "" for a special one.
[[nodiscard]] std::string SettingToText(const SettingRow& row, const Settings& settings);

/// Reads a setting as the profile does: decimal point or comma, whole numbers rounded half to even,
/// True and False in any case. A special setting is not touched.
/// @return false if the text cannot be read; the member is then unchanged.
bool SettingFromText(const SettingRow& row, std::string_view sText, Settings& settings);

/// Copies one setting. A special setting is not touched.
void SettingCopy(const SettingRow& row, const Settings& from, Settings& to);

/// What File, Default and Default Settings do: sets everything to its default except the profile
/// file, the list of needs and the rows with bStays. If the forecast gives the sunspot number it
/// continues to do so: Airmail's is then off.
void SettingsDefaultSet(Settings& settings);
