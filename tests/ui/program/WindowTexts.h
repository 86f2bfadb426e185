/// @file WindowTexts.h
/// Every text that a window may show or a screen reader may speak.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "ui/program/ProgramRig.h"

struct WindowText {
    std::string sWhere;  ///< window, control and property: "main cmdUpdate toolTip"
    QString sText;
};

/// Texts with at least one letter, from a window's own parts and not from windows beside it.
[[nodiscard]] std::vector<WindowText> WindowTextsGet(const ProgramWindow& window);
