#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "ui/common/Colors.h"
#include "ui/common/PaletteShown.h"
#include "ui/page/Page.h"

namespace {

// Letter heights as shares of a page's longer side: 11 points on A4, and 4 points.
constexpr double kLettersMost = 11.0 / 842.0;
constexpr double kLettersLeast = 4.0 / 842.0;
constexpr double kLettersStep = 0.25 / 842.0;

// In letter heights.
constexpr double kTitleSize = 1.5;
constexpr double kHeadingSize = 1.1;
constexpr double kGap = 0.7;          // between blocks
constexpr double kHeadingGap = 0.25;  // below a heading
constexpr double kCellPad = 0.45;     // beside a cell's text
constexpr double kRowHeight = 1.55;
constexpr double kRowMost = 2.4;  // of a table with room to spare
constexpr double kPictureLeast = 9.0;
constexpr double kPictureGood = 26.0;  // only above this height do the rows of tables grow
constexpr double kHatchGap = 0.45;
constexpr double kLine = 24.0;      // letter height divided by line width
constexpr double kTextPlate = 0.2;  // white between a number and the hatching round it

class PagePainter {
public:
    PagePainter(QPainter& painter, const QRectF& rct, const Page& page, PageLook eLook)
        : m_painter(painter), m_rct(rct), m_page(page), m_eLook(eLook)
    {
        if (rct.width() <= rct.height())
            return;
        for (PageBlock& block : m_page.aBlock)
            if (auto* pGrid = std::get_if<PageGrid>(&block.body); pGrid && pGrid->bTurns)
                *pGrid = PageGridTurned(*pGrid);
    }

    void Paint()
    {
        const double dSide = std::max(m_rct.width(), m_rct.height());
        double dShare = kLettersMost;
        m_dLetters = dShare * dSide;
        while (dShare > kLettersLeast && !Fits()) {
            dShare -= kLettersStep;
            m_dLetters = dShare * dSide;
        }
        RowsStretch();
        m_painter.save();
        const double dHeight = HeightGet();
        const double dWidth = WidthGet();
        const double dScale = std::min({1.0, m_rct.height() / dHeight, m_rct.width() / dWidth});
        if (dScale < 1.0) {
            m_painter.translate(m_rct.topLeft());
            m_painter.scale(dScale, dScale);
            m_rct = QRectF(0, 0, m_rct.width() / dScale, m_rct.height() / dScale);
        }
        BlocksPaint();
        m_painter.restore();
    }

private:
    [[nodiscard]] QFont FontGet(double dSize = 1.0, bool bBold = false) const
    {
        QFont font = m_painter.font();
        // Whole pixels: otherwise devices without hinting would measure other widths than they
        // paint.
        font.setPixelSize(std::max(1, static_cast<int>(std::lround(m_dLetters * dSize))));
        font.setBold(bBold);
        return font;
    }
    [[nodiscard]] QFontMetricsF MetricsGet(double dSize = 1.0, bool bBold = false) const
    {
        return QFontMetricsF(FontGet(dSize, bBold), m_painter.device());
    }
    /// The size of a text within the page's width; its height is not limited.
    [[nodiscard]] QSizeF TextSize(const QString& sText, double dSize, bool bBold) const
    {
        if (sText.isEmpty())
            return {0.0, 0.0};
        const QRectF rctRoom(0, 0, m_rct.width(), m_rct.height());
        return MetricsGet(dSize, bBold).boundingRect(rctRoom, Qt::TextWordWrap, sText).size();
    }
    [[nodiscard]] double TextHeight(const QString& sText, double dSize, bool bBold) const
    {
        return TextSize(sText, dSize, bBold).height();
    }

    // --- tables: a width for each head column, one width for all cell columns
    [[nodiscard]] double Widest(const QStringList& asText) const
    {
        const QFontMetricsF metrics = MetricsGet(1.0, true);
        double dWidest = 0.0;
        for (const QString& sText : asText)
            dWidest = std::max(dWidest, metrics.horizontalAdvance(sText));
        return dWidest + 2 * kCellPad * m_dLetters;
    }
    [[nodiscard]] std::vector<double> HeadWidths(const PageGrid& grid) const
    {
        std::vector<double> aWidth;
        for (int i = 0; i < grid.asCorner.size(); ++i) {
            QStringList asText{grid.asCorner[i]};
            for (const QStringList& asLine : grid.aTitle) asText.append(asLine.value(i));
            for (const QStringList& asRow : grid.aRow) asText.append(asRow.value(i));
            aWidth.push_back(Widest(asText));
        }
        return aWidth;
    }
    [[nodiscard]] static double Sum(const std::vector<double>& aWidth)
    {
        double dSum = 0.0;
        for (const double dWidth : aWidth) dSum += dWidth;
        return dSum;
    }
    [[nodiscard]] double CellWidthLeast(const PageGrid& grid) const
    {
        QStringList asText = grid.asColumn;
        for (const QStringList& asLine : grid.aTitle) asText += asLine.mid(grid.asCorner.size());
        for (const PageCell& cell : grid.aCell) asText.append(cell.sText);
        return Widest(asText);
    }
    [[nodiscard]] double GridWidthLeast(const PageGrid& grid) const
    {
        return Sum(HeadWidths(grid)) + grid.ColsGet() * CellWidthLeast(grid);
    }
    /// Lines of a table, titles included.
    [[nodiscard]] static int LinesGet(const PageGrid& grid)
    {
        return grid.RowsGet() + 1 + static_cast<int>(grid.aTitle.size());
    }
    [[nodiscard]] double GridHeight(const PageGrid& grid) const
    {
        return LinesGet(grid) * m_dRowHeight * m_dLetters;
    }

    // --- measuring
    [[nodiscard]] double BodyHeight(const PageBody& body) const
    {
        if (const auto* pasLine = std::get_if<QStringList>(&body)) {
            double dHeight = 0.0;
            for (const QString& sLine : *pasLine) dHeight += TextHeight(sLine, 1.0, false);
            return dHeight;
        }
        if (const auto* pGrid = std::get_if<PageGrid>(&body))
            return GridHeight(*pGrid);
        return kPictureLeast * m_dLetters;
    }
    [[nodiscard]] double HeadingHeight(const QString& sHeading) const
    {
        if (sHeading.isEmpty())
            return 0.0;
        return TextHeight(sHeading, kHeadingSize, true) + kHeadingGap * m_dLetters;
    }
    [[nodiscard]] double HeightGet() const
    {
        double dHeight = TextHeight(m_page.sTitle, kTitleSize, true);
        for (const PageBlock& block : m_page.aBlock)
            dHeight += kGap * m_dLetters + HeadingHeight(block.sHeading) + BodyHeight(block.body);
        return dHeight + kGap * m_dLetters + TextHeight(m_page.sFoot, 1.0, false);
    }
    [[nodiscard]] double WidthGet() const
    {
        // Words longer than a line do not wrap.
        double dWidth = std::max({m_rct.width(), TextSize(m_page.sTitle, kTitleSize, true).width(),
                                  TextSize(m_page.sFoot, 1.0, false).width()});
        for (const PageBlock& block : m_page.aBlock) {
            dWidth = std::max(dWidth, TextSize(block.sHeading, kHeadingSize, true).width());
            if (const auto* pGrid = std::get_if<PageGrid>(&block.body))
                dWidth = std::max(dWidth, GridWidthLeast(*pGrid));
            if (const auto* pasLine = std::get_if<QStringList>(&block.body))
                for (const QString& sLine : *pasLine)
                    dWidth = std::max(dWidth, TextSize(sLine, 1.0, false).width());
        }
        return dWidth;
    }
    [[nodiscard]] bool Fits() const
    {
        return HeightGet() <= m_rct.height() && WidthGet() <= m_rct.width();
    }

    [[nodiscard]] int PicturesGet() const
    {
        return static_cast<int>(
            std::count_if(m_page.aBlock.begin(), m_page.aBlock.end(), [](const PageBlock& block) {
                return std::holds_alternative<PagePicture>(block.body);
            }));
    }
    /// Makes table rows higher if no picture needs the room.
    void RowsStretch()
    {
        int nRows = 0;
        for (const PageBlock& block : m_page.aBlock)
            if (const auto* pGrid = std::get_if<PageGrid>(&block.body))
                nRows += LinesGet(*pGrid);
        const double dRoom = (m_rct.height() - HeightGet()) / m_dLetters
                             - PicturesGet() * (kPictureGood - kPictureLeast);
        if (nRows > 0 && dRoom > 0)
            m_dRowHeight = std::min(kRowMost, m_dRowHeight + dRoom / nRows);
    }

    // --- painting
    void TextPaint(const QString& sText, double dSize, bool bBold)
    {
        const double dHeight = TextHeight(sText, dSize, bBold);
        m_painter.setFont(FontGet(dSize, bBold));
        m_painter.setPen(Qt::black);
        m_painter.drawText(QRectF(m_rct.left(), m_dTop, m_rct.width(), dHeight), Qt::TextWordWrap,
                           sText);
        m_dTop += dHeight;
    }
    void HatchPaint(const QRectF& rct)
    {
        m_painter.save();
        m_painter.setClipRect(rct, Qt::IntersectClip);
        m_painter.setPen(QPen(Qt::black, std::max(1.0, m_dLetters / kLine)));
        const double dGap = kHatchGap * m_dLetters;
        for (double d = -rct.height(); d < rct.width(); d += dGap)
            m_painter.drawLine(QPointF(rct.left() + d, rct.bottom()),
                               QPointF(rct.left() + d + rct.height(), rct.top()));
        m_painter.restore();
    }
    void CellPaint(const QRectF& rct, const PageCell& cell)
    {
        const bool bColour = m_eLook == PageLook::Colour;
        QColor clrText = Qt::black;
        if (bColour && cell.clrBack.isValid()) {
            const QColor clrBack = ColorInPalette(cell.clrBack, PaletteOnPaper());
            m_painter.fillRect(rct, clrBack);
            clrText = TextColorOn(clrBack);
        }
        m_painter.setFont(FontGet(1.0, cell.bStrong));
        if (cell.bHatched || (!bColour && !cell.bStrong)) {
            HatchPaint(rct);
            if (!cell.sText.isEmpty()) {
                const double dPad = kTextPlate * m_dLetters;
                const QRectF rctText = QFontMetricsF(m_painter.font(), m_painter.device())
                                           .boundingRect(rct, Qt::AlignCenter, cell.sText)
                                           .adjusted(-dPad, 0, dPad, 0);
                m_painter.fillRect(rctText & rct, Qt::white);
                clrText = Qt::black;
            }
        }
        m_painter.setPen(clrText);
        m_painter.drawText(rct, Qt::AlignCenter, cell.sText);
        FramePaint(rct);
    }
    void FramePaint(const QRectF& rct)
    {
        m_painter.setPen(QPen(Qt::black, std::max(1.0, m_dLetters / kLine)));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawRect(rct);
    }
    void HeadPaint(const QRectF& rct, const QString& sText)
    {
        m_painter.setFont(FontGet(1.0, true));
        m_painter.setPen(Qt::black);
        m_painter.drawText(rct, Qt::AlignCenter, sText);
        FramePaint(rct);
    }
    void GridPaint(const PageGrid& grid)
    {
        const std::vector<double> aHead = HeadWidths(grid);
        const double dRoom = (m_rct.width() - Sum(aHead)) / std::max(1, grid.ColsGet());
        constexpr double kWidest = 6.0;  // letters; a table with few columns need not fill the page
        const double dCell = std::max(CellWidthLeast(grid), std::min(dRoom, kWidest * m_dLetters));
        const double dRow = m_dRowHeight * m_dLetters;
        TitlesPaint(grid.asCorner + grid.asColumn, aHead, dCell);
        for (const QStringList& asLine : grid.aTitle) TitlesPaint(asLine, aHead, dCell);
        for (int iRow = 0; iRow < grid.RowsGet(); ++iRow) {
            double dLeft = m_rct.left();
            for (std::size_t i = 0; i < aHead.size(); ++i) {
                HeadPaint(QRectF(dLeft, m_dTop, aHead[i], dRow),
                          grid.aRow[static_cast<std::size_t>(iRow)].value(static_cast<int>(i)));
                dLeft += aHead[i];
            }
            for (int iCol = 0; iCol < grid.ColsGet(); ++iCol, dLeft += dCell)
                CellPaint(QRectF(dLeft, m_dTop, dCell, dRow), grid.CellGet(iRow, iCol));
            m_dTop += dRow;
        }
    }
    void TitlesPaint(const QStringList& asTitle, const std::vector<double>& aHead, double dCell)
    {
        const double dRow = m_dRowHeight * m_dLetters;
        double dLeft = m_rct.left();
        for (int i = 0; i < asTitle.size(); ++i) {
            const auto iHead = static_cast<std::size_t>(i);
            const double dWidth = iHead < aHead.size() ? aHead[iHead] : dCell;
            HeadPaint(QRectF(dLeft, m_dTop, dWidth, dRow), asTitle[i]);
            dLeft += dWidth;
        }
        m_dTop += dRow;
    }
    void BodyPaint(const PageBody& body, double dPicture)
    {
        if (const auto* pasLine = std::get_if<QStringList>(&body)) {
            for (const QString& sLine : *pasLine) TextPaint(sLine, 1.0, false);
        } else if (const auto* pGrid = std::get_if<PageGrid>(&body)) {
            GridPaint(*pGrid);
        } else if (const auto* pPicture = std::get_if<PagePicture>(&body)) {
            m_painter.save();
            m_painter.setFont(FontGet());
            pPicture->fnPaint(m_painter, QRectF(m_rct.left(), m_dTop, m_rct.width(), dPicture),
                              m_eLook);
            m_painter.restore();
            m_dTop += dPicture;
        }
    }
    void BlocksPaint()
    {
        const int nPictures = PicturesGet();
        const double dLeft = std::max(0.0, m_rct.height() - HeightGet());
        const double dPicture =
            kPictureLeast * m_dLetters + (nPictures > 0 ? dLeft / nPictures : 0.0);
        m_dTop = m_rct.top();
        TextPaint(m_page.sTitle, kTitleSize, true);
        for (const PageBlock& block : m_page.aBlock) {
            m_dTop += kGap * m_dLetters;
            const double dBody = m_dTop + HeadingHeight(block.sHeading);
            if (!block.sHeading.isEmpty())
                TextPaint(block.sHeading, kHeadingSize, true);
            m_dTop = dBody;
            BodyPaint(block.body, dPicture);
        }
        m_dTop = m_rct.bottom() - TextHeight(m_page.sFoot, 1.0, false);
        TextPaint(m_page.sFoot, 1.0, false);
    }

    QPainter& m_painter;
    QRectF m_rct;
    Page m_page;
    PageLook m_eLook;
    double m_dLetters = 0.0;
    double m_dRowHeight = kRowHeight;
    double m_dTop = 0.0;
};

}  // namespace

void PagePaint(QPainter& painter, const QRectF& rct, const Page& page, PageLook eLook)
{
    PagePainter(painter, rct, page, eLook).Paint();
}
