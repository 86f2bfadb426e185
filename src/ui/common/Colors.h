/// @file Colors.h
/// The house's colours, 0x00BBGGRR, as the toolkit's.
///
/// Tests:   tests/ui/common/ColorsTest.cpp
#pragma once

#include <QColor>
#include <cstdint>

/// The colour of a 0x00BBGGRR value.
[[nodiscard]] QColor ColorFromBgr(std::uint32_t nBgr);

/// The same back; alpha is of no account.
[[nodiscard]] std::uint32_t ColorToBgr(const QColor& clr);

/// Black or white, whichever reads better on the colour (contrast of relative luminances, WCAG 2.1,
/// "contrast ratio").
[[nodiscard]] QColor TextColorOn(const QColor& clrBack);

/// Of a share, 0 to 1: from a light grey over yellow and green to a dark green.
[[nodiscard]] QColor ShareColor(double dShare);
