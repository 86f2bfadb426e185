/// @file BandPaint.h
/// SNR values painted on the colours of their bands, in cells and legends.
///
/// Tests:   tests/ui/common/PaletteShownTest.cpp, GridControlTest.cpp
#pragma once

#include <QLabel>
#include <QPainter>
#include <optional>

#include "settings/Palette.h"
#include "ui/common/PaletteShown.h"

/// Paints one line of text in the painter's font. Where the colours have a plate, it lies under the
/// text and leaves a rim of the cell's colour.
/// @param rctCell  already filled with clrBack
/// @param rctText  within the cell; the text is aligned in it
void CellTextPaint(QPainter& painter, const QRect& rctCell, const QRect& rctText,
                   Qt::Alignment eAlignment, const QString& sText, const CellColors& colors);

/// Whether a band's colour cannot be told from the ground: black in Night, white in Print.
[[nodiscard]] bool BandHiddenIs(const QColor& clrBand, const QColor& clrGround);

/// A box in a band's colour with a text on it.
class BandLabel final : public QLabel {
public:
    /// @param iBand  0 is the best
    /// @param ePalette  the screen's unless given
    BandLabel(std::size_t iBand, const QString& sText, std::optional<Palette> ePalette = {});
    void PaletteSet(Palette ePalette);

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    std::size_t m_iBand;
    std::optional<Palette> m_ePalette;
};
