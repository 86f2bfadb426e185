/// @file ProfileLib.h
/// The profile: an initialisation file that keeps every setting, the frequency list, the two
/// Airmail folders and the places of the windows. Outside Windows it is read once and replaced as a
/// whole, on Windows read and written key by key.
///
/// Units:   as in Settings; the windows' places in twips (pixels times 15, of the outer frame).
/// Errors:  reported to the caller; no message box is shown.
/// Tests:   tests/settings/ProfileLibTest.cpp
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "settings/Settings.h"
#include "system/Message.h"
#include "system/Result.h"

enum class WindowKey { Height, Left, Top, Width };
/// Applies one dimension of the main window; called for each key that is in the file, in the order
/// height, left, top, width, each as soon as it is read.
using WindowApplyFn = std::function<void(WindowKey eKey, float fTwips)>;

/// Whether values out of range (SettingsRange.h) are applied.
enum class ProfileRanges {
    Keep,  ///< all are, for a caller that calls SettingsFaultsGet
    Drop,  ///< numbers and positions are not; model, antenna, month and frequencies are
};

/// Reads every key from settings.m_sProfileFile, or from the shipped profile if the default one
/// could not be made (ProfileFileToRead). A missing key, an empty value and a value that cannot be
/// read leave the member as it is. A frequency count above 15 becomes 15; below 1 the list is
/// empty. If either number of a position is out of range, neither is applied.
/// @return a line for each value dropped; an error when the file cannot be read: "File not found"
///         if there is none, else the reason (PrivateProfile::Open).
Result<std::vector<std::string>> ProfileLoad(Settings& settings, const WindowApplyFn& fnWindowApply,
                                             ProfileRanges eRanges = ProfileRanges::Drop);

/// Sets the values of the profile that Hopcast ships (assets/profile/hopcast.ini), for a profile
/// that does not exist yet; the profile's path is kept.
void ProfileShippedSet(Settings& settings);

/// The values out of range, named as in the profile: "[Receiver Data] Latitude: 95 is outside -90
/// to 90". An unknown antenna type is not among them: its deck just has no antenna cards.
/// @param bFrequencies  include those of the frequency list
[[nodiscard]] std::vector<std::string> SettingsFaultsGet(const Settings& settings,
                                                         bool bFrequencies);

/// Writes every key to settings.m_sProfileFile. Stops at the first write that fails.
/// @param window  the main window's place; nothing while it is minimised or maximised, so that the
///                file keeps the last normal place.
/// @param paMessages  gets the report of a failure (ProfileSaveError).
/// @return true when everything was written.
bool ProfileSave(const Settings& settings, const std::optional<WindowData>& window,
                 Messages* paMessages);

/// The report of a failed save: "Problem with initialization file " + path + ", " + the system's
/// text.
/// @param nErrorCode  the system's error code of the failed write.
[[nodiscard]] Message ProfileSaveError(const Settings& settings, int nErrorCode);
