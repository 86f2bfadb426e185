#include "ui/map/WorldImage.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// One axis of the stretch from image pixels to target pixels.
struct Axis {
    double dStart = 0.0;  ///< image coordinate of the target's edge
    double dStep = 1.0;   ///< image pixels per target pixel
    int nFirst = 0;       ///< first target pixel that shows the image
    int nEnd = 0;         ///< one after the last

    Axis(int nStart, int nLength, int nTarget, int nImage)
        : dStart(nStart), dStep(static_cast<double>(nLength) / nTarget)
    {
        nEnd = nTarget;
        nEnd = PixelGet(nImage);
        nFirst = PixelGet(0.0);
    }
    /// The first target pixel whose centre is at dPlace or beyond, limited to the picture.
    [[nodiscard]] int PixelGet(double dPlace) const
    {
        const double dPixel = std::ceil((dPlace - dStart) / dStep - 0.5);
        return static_cast<int>(std::clamp<double>(dPixel, nFirst, nEnd));
    }
    [[nodiscard]] double CentreGet(int nPixel) const { return dStart + (nPixel + 0.5) * dStep; }
    [[nodiscard]] double FirstGet() const { return dStart + nFirst * dStep; }
    [[nodiscard]] double EndGet() const { return dStart + nEnd * dStep; }
};

/// Fills countries row by row. The points where a country's borders cross the middle of a row are
/// sorted, and every second stretch between them belongs to it (even-odd rule). A border shared by
/// two countries crosses at the same pixel for both, so there is neither gap nor overlap.
class Painter {
public:
    /// @param nShift  image pixel of longitude 0
    Painter(QImage& img, const QRect& rct, int nShift)
        : m_nShift(nShift),
          m_axsX(rct.x(), rct.width(), img.width(), kImgWidth),
          m_axsY(rct.y(), rct.height(), img.height(), kImgHeight),
          m_pPixels(reinterpret_cast<QRgb*>(img.bits())),
          m_nPitch(img.bytesPerLine() / qsizetype(sizeof(QRgb))),
          m_aStarts(static_cast<std::size_t>(img.height()) + 2)
    {
    }

    void MapPaint(const WorldMap& map)
    {
        for (int nRow = m_axsY.nFirst; nRow < m_axsY.nEnd; ++nRow)
            SpanFill(nRow, m_axsX.nFirst, m_axsX.nEnd, kSeaColor);
        const std::size_t nLevel = LevelGet(map.m_aTolerances);
        for (const MapCountry& cty : map.m_aCountries)
            CountryPaint(cty.m_aLevels[nLevel],
                         kLandColors[static_cast<std::size_t>(cty.m_nColor)]);
    }

private:
    struct Crossing {
        int nRow;
        int nColumn;
    };

    /// The coarsest level whose lines are wrong by at most half a target pixel.
    [[nodiscard]] std::size_t LevelGet(const std::vector<int>& aTolerances) const
    {
        const double dHighest = std::min(m_axsX.dStep, m_axsY.dStep) / 2;
        const auto it = std::upper_bound(aTolerances.begin(), aTolerances.end(), dHighest);
        return static_cast<std::size_t>(std::max<std::ptrdiff_t>(it - aTolerances.begin(), 1) - 1);
    }

    void CountryPaint(const std::vector<MapRing>& aRings, QRgb nColor)
    {
        m_aCrossings.clear();
        for (const MapRing& rng : aRings) {
            // What goes past the right edge comes in at the left.
            int nShift = m_nShift;
            do {
                RingAdd(rng, nShift);
                nShift -= kImgWidth;
            } while (rng.m_ptHigh.nX + nShift > 0);
        }
        if (!CrossingsFill(nColor))
            DotPaint(aRings.front(), nColor);
    }

    void RingAdd(const MapRing& rng, int nShift)
    {
        if (rng.m_ptHigh.nY < m_axsY.FirstGet() || rng.m_ptLow.nY > m_axsY.EndGet()
            || rng.m_ptHigh.nX + nShift < m_axsX.FirstGet()
            || rng.m_ptLow.nX + nShift > m_axsX.EndGet())
            return;
        const MapPoint* pOld = &rng.m_aPoints.back();
        int nRowOld = m_axsY.PixelGet(pOld->nY);
        for (const MapPoint& pt : rng.m_aPoints) {
            const int nRow = m_axsY.PixelGet(pt.nY);
            if (nRow > nRowOld)
                EdgeAdd(*pOld, pt, nRowOld, nRow, nShift);
            else if (nRow < nRowOld)
                EdgeAdd(pt, *pOld, nRow, nRowOld, nShift);
            pOld = &pt;
            nRowOld = nRow;
        }
    }

    /// REQUIRES: ptTop is above ptBottom, so that the direction of the ring does not change a digit
    void EdgeAdd(const MapPoint& ptTop, const MapPoint& ptBottom, int nRow, int nRowEnd, int nShift)
    {
        if (std::min(ptTop.nX, ptBottom.nX) + nShift > m_axsX.EndGet())
            return;  // changes nothing visible
        const double dSlope =
            static_cast<double>(ptBottom.nX - ptTop.nX) / (ptBottom.nY - ptTop.nY);
        for (; nRow < nRowEnd; ++nRow) {
            const double dX = ptTop.nX + nShift + dSlope * (m_axsY.CentreGet(nRow) - ptTop.nY);
            m_aCrossings.push_back({nRow, m_axsX.PixelGet(dX)});
        }
    }

    /// @return true if at least one pixel was painted
    bool CrossingsFill(QRgb nColor)
    {
        if (m_aCrossings.empty())
            return false;
        CrossingsSort();
        bool bPainted = false;
        for (int nRow = m_axsY.nFirst; nRow < m_axsY.nEnd; ++nRow) {
            const auto itEnd = m_aColumns.begin() + m_aStarts[static_cast<std::size_t>(nRow) + 1];
            auto it = m_aColumns.begin() + m_aStarts[static_cast<std::size_t>(nRow)];
            std::sort(it, itEnd);
            for (; it != itEnd; ++it) {
                const int nColumn = *it;
                const int nColumnEnd = ++it != itEnd ? *it : m_axsX.nEnd;
                bPainted = SpanFill(nRow, nColumn, nColumnEnd, nColor) || bPainted;
                if (it == itEnd)
                    break;  // the other end is to the right of the view
            }
        }
        return bPainted;
    }

    /// Groups the columns by row: row r is from m_aStarts[r] to m_aStarts[r + 1].
    void CrossingsSort()
    {
        std::fill(m_aStarts.begin(), m_aStarts.end(), 0);
        for (const Crossing& crs : m_aCrossings)
            ++m_aStarts[static_cast<std::size_t>(crs.nRow) + 2];
        for (std::size_t i = 2; i < m_aStarts.size(); ++i) m_aStarts[i] += m_aStarts[i - 1];
        m_aColumns.resize(m_aCrossings.size());
        for (const Crossing& crs : m_aCrossings)
            m_aColumns[static_cast<std::size_t>(
                m_aStarts[static_cast<std::size_t>(crs.nRow) + 1]++)] = crs.nColumn;
    }

    /// Paints one pixel for a country that falls between pixels, so that no island state is lost.
    void DotPaint(const MapRing& rng, QRgb nColor)
    {
        if (rng.m_ptHigh.nX - rng.m_ptLow.nX >= 2 * m_axsX.dStep
            || rng.m_ptHigh.nY - rng.m_ptLow.nY >= 2 * m_axsY.dStep)
            return;
        const double dX = (rng.m_ptLow.nX + rng.m_ptHigh.nX) / 2.0;
        const double dY = (rng.m_ptLow.nY + rng.m_ptHigh.nY) / 2.0;
        const double dColumn =
            std::floor((std::fmod(dX + m_nShift, kImgWidth) - m_axsX.dStart) / m_axsX.dStep);
        const double dRow = std::floor((dY - m_axsY.dStart) / m_axsY.dStep);
        if (dColumn < m_axsX.nFirst || dColumn >= m_axsX.nEnd || dRow < m_axsY.nFirst
            || dRow >= m_axsY.nEnd)
            return;
        SpanFill(static_cast<int>(dRow), static_cast<int>(dColumn), static_cast<int>(dColumn) + 1,
                 nColor);
    }

    bool SpanFill(int nRow, int nColumn, int nColumnEnd, QRgb nColor)
    {
        if (nColumn >= nColumnEnd)
            return false;
        QRgb* pRow = m_pPixels + nRow * m_nPitch;
        std::fill(pRow + nColumn, pRow + nColumnEnd, nColor);
        return true;
    }

    int m_nShift;
    Axis m_axsX;
    Axis m_axsY;
    QRgb* m_pPixels;
    qsizetype m_nPitch;
    std::vector<Crossing> m_aCrossings;
    std::vector<int> m_aColumns;
    std::vector<int> m_aStarts;
};

bool FormatIsGood(QImage::Format eFormat)
{
    return eFormat == QImage::Format_RGB32 || eFormat == QImage::Format_ARGB32
           || eFormat == QImage::Format_ARGB32_Premultiplied;
}

}  // namespace

bool WorldImagePaint(QImage& imgTarget, const QRect& rctSource, double dEdge)
{
    const WorldMap& map = WorldMapGet();
    if (imgTarget.isNull() || !FormatIsGood(imgTarget.format()) || rctSource.isEmpty()
        || map.m_aCountries.empty())
        return false;
    const int nShift = static_cast<int>(std::lround(-dEdge * kImgWidth / 360));
    Painter(imgTarget, rctSource, nShift).MapPaint(map);
    return true;
}
