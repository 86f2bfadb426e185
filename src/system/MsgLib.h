/// @file MsgLib.h
/// All message boxes are shown through here, by windows and programs only; the modules below them
/// return their messages (Message.h). Each program sets a handler: the window program shows a
/// window, the console program prints on standard error, tests record.
///
/// Threads: one thread only.
/// Errors:  none; without a handler the text goes to standard error.
/// Tests:   tests/system/MsgLibTest.cpp
#pragma once

#include <functional>
#include <string>

#include "system/Message.h"

using MsgBoxFn = std::function<void(MsgIcon eIcon, const std::string& sText)>;

/// Shows one box with an OK button and the application's title.
/// @param sText  UTF-8; a single carriage return, a line feed or both break the line when shown.
void MsgBox(MsgIcon eIcon, const std::string& sText);

/// Shows each message in its own box. @return false when there was one.
bool MsgShow(const Messages& aMessages);

/// Replaces the handler and returns the previous one.
MsgBoxFn MsgSetHandler(MsgBoxFn fnShow);

/// Shows the box and returns false, for `return MsgFail(...)`.
inline bool MsgFail(MsgIcon eIcon, const std::string& sText)
{
    MsgBox(eIcon, sText);
    return false;
}
