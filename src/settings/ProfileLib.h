/// @file ProfileLib.h
/// The profile: an initialisation file that keeps every setting, the frequency list, the two
/// Airmail folders and the main window's place. Read and written key by key.
///
/// Units:   as in Settings; the window's place in twips (pixels times 15, of the outer frame).
/// Errors:  loading reports nothing; saving shows one box (ProfileSaveError) and stops.
/// Tests:   tests/settings/ProfileLibTest.cpp
#pragma once

#include <functional>
#include <optional>

#include "settings/Settings.h"

/// The main window's outer frame, twips.
struct WindowData {
    float fHeight = 0;
    float fLeft = 0;
    float fTop = 0;
    float fWidth = 0;
};

enum class WindowKey { Height, Left, Top, Width };
/// Applies one dimension of the window; called for each key that the file holds, in the order
/// height, left, top, width, each as soon as it is read.
using WindowApplyFn = std::function<void(WindowKey eKey, float fTwips)>;

/// Reads every key from settings.m_sProfileFile, or from the shipped profile where the default one
/// could not be made (ProfileFileToRead). A missing key, an empty value and a value that
/// cannot be read leave the member as it is. A frequency count above 15 becomes 15; below 1 the
/// list is empty.
void ProfileLoad(Settings& settings, const WindowApplyFn& fnWindowApply);

/// Writes every key to settings.m_sProfileFile. Stops at the first write that fails and reports it.
/// @param window  the window's place; nothing while it is minimised or maximised, so that the file
///                keeps the last normal place.
/// @return true when all was written.
bool ProfileSave(const Settings& settings, const std::optional<WindowData>& window);

/// The report of a failed save: "Problem with initialization file " + path + ", " + the system's
/// text.
/// @param nErrorCode  the system's error code of the failed write.
void ProfileSaveError(const Settings& settings, int nErrorCode);
