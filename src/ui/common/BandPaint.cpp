#include "ui/common/BandPaint.h"

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"

void CellTextPaint(QPainter& painter, const QRect& rctCell, const QRect& rctText,
                   Qt::Alignment eAlignment, const QString& sText, const CellColors& colors)
{
    const int nFlags = eAlignment.toInt() | Qt::TextSingleLine;
    if (!sText.isEmpty() && colors.clrGround != colors.clrBack) {
        constexpr int kBeside = 2;
        constexpr int kRim = 2;
        const QRect rctPlate =
            painter.boundingRect(rctText, nFlags, sText).adjusted(-kBeside, 0, kBeside, 0);
        painter.fillRect(rctPlate & rctCell.adjusted(kRim, kRim, -kRim, -kRim), colors.clrGround);
    }
    painter.setPen(colors.clrText);
    painter.drawText(rctText, nFlags, sText);
}

bool BandHiddenIs(const QColor& clrBand, const QColor& clrGround)
{
    constexpr double kSeen = 1.1;
    return ColorContrast(ColorToBgr(clrBand), ColorToBgr(clrGround)) < kSeen;
}

BandLabel::BandLabel(std::size_t iBand, const QString& sText, std::optional<Palette> ePalette)
    : QLabel(sText), m_iBand(iBand), m_ePalette(ePalette)
{
    setAlignment(Qt::AlignCenter);
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("--< 40--")));
}

void BandLabel::PaletteSet(Palette ePalette)
{
    m_ePalette = ePalette;
    update();
}

void BandLabel::paintEvent(QPaintEvent* /*pEvent*/)
{
    const SnrBand& band = SnrBandsGet(m_ePalette.value_or(PaletteShown()))[m_iBand];
    const CellColors colors{ColorFromBgr(band.nColor), ColorFromBgr(band.nText),
                            ColorFromBgr(band.nGround)};
    QPainter painter(this);
    painter.fillRect(rect(), colors.clrBack);
    CellTextPaint(painter, rect(), rect(), alignment(), text(), colors);
}
