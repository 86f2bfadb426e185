/// @file PaletteShown.h
/// The palette in force. Like the style, it belongs to the application rather than to one window:
/// the main window sets it, and all painting code asks for it.
///
/// Cells and pictures hold the standard colours; the palette is applied when they are painted. So a
/// change of palette fills nothing again, and files and prints can use another palette than the
/// screen.
///
/// Tests:   tests/ui/common/PaletteShownTest.cpp
#pragma once

#include <QColor>
#include <QObject>

#include "settings/Palette.h"

/// On the screen.
[[nodiscard]] Palette PaletteShown();
/// In files and on paper: the screen's palette, but the standard one in Night.
[[nodiscard]] Palette PaletteOnPaper();
/// True while the whole screen is red on black.
[[nodiscard]] bool PaletteNightIs();

/// Puts a palette in force in every window, including those opened later.
void PaletteShow(Palette ePalette);

/// Notifies those who must rebuild, not only repaint, for another palette.
class PaletteSignal final : public QObject {
    Q_OBJECT
public:
    static PaletteSignal& Get();
Q_SIGNALS:
    void Changed();
};

/// While one exists, painting for the screen uses the palette for paper: for pictures of a window
/// that are copied, exported or printed.
class PaletteForPaper {
public:
    PaletteForPaper();
    ~PaletteForPaper();
    PaletteForPaper(const PaletteForPaper&) = delete;
    PaletteForPaper& operator=(const PaletteForPaper&) = delete;
    [[nodiscard]] static bool Exists();
};

/// The colours in which a cell is painted.
struct CellColors {
    QColor clrBack;
    QColor clrText;
    QColor clrGround;  ///< under the text: clrBack, or a plate of its own
};

/// A cell's colours in a palette, whether of the standard scale or its own. Night puts plates under
/// all numbers and inverts the lightness of colours outside the scale, because tables of other
/// values are mostly white. The other palettes leave such colours as they are.
[[nodiscard]] CellColors CellColorsGet(const QColor& clrBack, const QColor& clrText,
                                       Palette ePalette);

/// A colour of the standard scale in another palette; any other colour unchanged.
[[nodiscard]] QColor ColorInPalette(const QColor& clr, Palette ePalette);
