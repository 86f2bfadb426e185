/// @file PaletteShown.h
/// The palette in force. As its style it belongs to the application, not to one window: the main
/// window sets it, and whoever paints asks for it.
///
/// What is painted works on the standard colours, which cells and pictures keep; a palette is laid
/// over them when they are shown. So nothing is filled anew when another palette is chosen, and
/// what leaves the program can have another one than the screen.
///
/// Tests:   tests/ui/common/PaletteShownTest.cpp
#pragma once

#include <QColor>
#include <QObject>

#include "settings/Palette.h"

/// On the screen.
[[nodiscard]] Palette PaletteShown();
/// In files and on paper: that of the screen, and the standard one in Night.
[[nodiscard]] Palette PaletteOnPaper();
/// True where the whole screen is red on black.
[[nodiscard]] bool PaletteNightIs();

/// Takes a palette into force, in every window there is or will be.
void PaletteShow(Palette ePalette);

/// Tells what must be made anew for another palette, not only painted anew.
class PaletteSignal final : public QObject {
    Q_OBJECT
public:
    static PaletteSignal& Get();
Q_SIGNALS:
    void Changed();
};

/// While it lives, what is painted for the screen is painted as for paper: for pictures of a window
/// that leave the program.
class PaletteForPaper {
public:
    PaletteForPaper();
    ~PaletteForPaper();
    PaletteForPaper(const PaletteForPaper&) = delete;
    PaletteForPaper& operator=(const PaletteForPaper&) = delete;
    [[nodiscard]] static bool Is();
};

/// How a coloured cell is painted.
struct CellColors {
    QColor clrBack;
    QColor clrText;
    QColor clrGround;  ///< under the text: clrBack, or a plate of its own
};

/// A cell with the colours of the standard scale, or others of its own, in a palette. Night has
/// plates under all numbers and shows what is not of the scale the darker the lighter it is, as
/// tables of other values are mostly white; the other palettes leave that as it is.
[[nodiscard]] CellColors CellColorsGet(const QColor& clrBack, const QColor& clrText,
                                       Palette ePalette);

/// A colour of the standard scale as another palette has it; any other colour as it is.
[[nodiscard]] QColor ColorInPalette(const QColor& clr, Palette ePalette);
