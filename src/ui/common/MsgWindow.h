/// @file MsgWindow.h
/// Message boxes as windows.
#pragma once

#include <QString>
#include <string>

/// Makes every MsgBox a modal window with the application's title and an OK button.
void MsgWindowInstall();

/// The text as shown: single carriage returns break lines.
[[nodiscard]] QString MsgTextShown(const std::string& sText);
