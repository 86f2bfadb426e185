/// @file SettingsTable.h
/// The one table of the settings. A row tells where a setting is kept, under which section and key
/// the profile has it, what it is at first, what it may be, which control of the options shows it,
/// and which option of hopcast-predict gives it. Profile, options, console program and documents
/// are loops over the rows, so that a new setting is a member, a row and a control.
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

/// Settings that are more than one member; the profile has a procedure for each.
enum class SettingSpecial { AirMailData, AirMailProgram, Frequencies, Window, Needs, PlanWindows };

using SettingMember =
    std::variant<int Settings::*, float Settings::*, double Settings::*, bool Settings::*,
                 std::string Settings::*, Palette Settings::*, SettingSpecial>;

/// What becomes of a profile's number outside the range.
enum class RangeRule {
    Any,       ///< it has no range
    Offered,   ///< it comes into force: the range is only what controls and options offer
    Told,      ///< the same, and the console program refuses it
    Drop,      ///< it does not come into force in the window program; the console refuses it
    DropPair,  ///< the same, with the other number of its position
    Limit,     ///< it becomes the nearest number in range
};

/// The group of --help in which an option stands.
enum class OptionGroup { Engine, EngineComplex, Area };
/// The runs that an option goes with.
enum class OptionRuns { All, Path, Area };

/// An option of hopcast-predict whose value is the setting's number.
struct SettingOption {
    const char* sName = nullptr;  ///< "--noise"; nullptr: no such option
    const char* sValue = "";      ///< "dBW", for --help
    const char* sExpected = "";   ///< "a noise level in dBW", for the message of a wrong value
    const char* sHelp = "";       ///< what it is, without range and default
    OptionGroup eGroup = OptionGroup::Engine;
    OptionRuns eRuns = OptionRuns::All;
};

struct SettingRow {
    SettingMember member;
    const char* sSection = "";
    const char* sKey = "";           ///< as written; of a special setting as the documents tell it
    const char* sKeyRead = nullptr;  ///< as read, where that is another name
    const char* sUnit = "";          ///< unit or meaning, for docs/files.md
    const char* sDefault = "";       ///< by Settings::Initialize; "" for what another place sets
    const char* sShipped = nullptr;  ///< in the shipped first profile, where that is another value
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

/// What a setting may be: "-200 to -100", "0, -180"; "" for anything.
[[nodiscard]] std::string SettingRangeText(const SettingRow& row);

/// A line of --help behind the option: "a Q index, 0 to 9 (default 3)".
[[nodiscard]] std::string SettingHelpText(const SettingRow& row);

/// A setting as the profile writes it; "" for a special one.
[[nodiscard]] std::string SettingToText(const SettingRow& row, const Settings& settings);

/// Reads a setting as the profile does: decimal point or comma, whole numbers rounded half to even,
/// True and False in any case. A special setting is not touched.
/// @return false where the text cannot be read; the member is then as it was.
bool SettingFromText(const SettingRow& row, std::string_view sText, Settings& settings);

/// Takes over one setting. A special setting is not touched.
void SettingCopy(const SettingRow& row, const Settings& from, Settings& to);

/// What File, Default and Default Settings do: every setting at its default save profile file,
/// list of needs and the rows that stay. Where the forecast gives the sunspot number it goes on
/// doing so: Airmail's is then off.
void SettingsDefaultSet(Settings& settings);
