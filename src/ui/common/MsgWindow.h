/// @file MsgWindow.h
/// Message boxes as windows, and who listens to them.
#pragma once

#include <QString>

#include "system/MsgLib.h"

/// Makes every MsgBox a modal window with the application's title and an OK button.
void MsgWindowInstall();

/// The text as shown: single carriage returns break lines.
[[nodiscard]] QString MsgTextShown(const std::string& sText);

/// Remembers the last box while it lives; the boxes are shown as before.
class MsgListener {
public:
    MsgListener();
    ~MsgListener();
    MsgListener(const MsgListener&) = delete;
    MsgListener& operator=(const MsgListener&) = delete;
    /// Empty when there was none.
    [[nodiscard]] const std::string& LastGet() const { return m_sLast; }

private:
    std::string m_sLast;
    MsgBoxFn m_fnBefore;
};
