/// @file MsgWindow.h
/// Shows message boxes as windows.
#pragma once

#include <QString>
#include <string>

/// Makes every MsgBox a modal window with the application's title and an OK button.
void MsgWindowInstall();

/// The text as shown: a single carriage return breaks the line.
[[nodiscard]] QString MsgTextShown(const std::string& sText);
