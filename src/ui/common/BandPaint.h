/// @file BandPaint.h
/// Numbers of the SNR on the colours of their bands: in cells, in legends.
///
/// Tests:   tests/ui/common/PaletteShownTest.cpp, GridControlTest.cpp
#pragma once

#include <QLabel>
#include <QPainter>
#include <optional>

#include "settings/Palette.h"
#include "ui/common/PaletteShown.h"

/// Writes one line of text with the painter's font, on a plate where the colours have one. The
/// plate leaves a rim of the cell's colour.
/// @param rctCell  filled with clrBack already
/// @param rctText  where the text is aligned, within the cell
void CellTextPaint(QPainter& painter, const QRect& rctCell, const QRect& rctText,
                   Qt::Alignment eAlignment, const QString& sText, const CellColors& colors);

/// A band's colour may be that of the ground: black in Night, white in Print.
[[nodiscard]] bool BandHiddenIs(const QColor& clrBand, const QColor& clrGround);

/// A box in the colour of a band with a text on it.
class BandLabel final : public QLabel {
public:
    /// @param iBand  from the best down
    /// @param ePalette  without one that on the screen
    BandLabel(std::size_t iBand, const QString& sText, std::optional<Palette> ePalette = {});
    void PaletteSet(Palette ePalette);

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    std::size_t m_iBand;
    std::optional<Palette> m_ePalette;
};
