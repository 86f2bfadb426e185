/// @file Colors.h
/// Converts the colours of the lower floors, 0x00BBGGRR, to Qt's and back.
///
/// Tests:   tests/ui/common/ColorsTest.cpp
#pragma once

#include <QColor>
#include <cstdint>

/// The colour of a 0x00BBGGRR value.
[[nodiscard]] QColor ColorFromBgr(std::uint32_t nBgr);

/// The reverse; alpha is ignored.
[[nodiscard]] std::uint32_t ColorToBgr(const QColor& clr);

/// Black or white, whichever has the higher contrast with the colour (WCAG 2.1, "contrast ratio").
[[nodiscard]] QColor TextColorOn(const QColor& clrBack);

/// Colour of a share, 0 to 1: from light grey through yellow and green to dark green.
[[nodiscard]] QColor ShareColor(double dShare);
