#include "ui/map/MapSmooth.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"
#include "ui/common/Colors.h"
#include "ui/map/MapPaint.h"

namespace {

constexpr float kNoSnr = std::numeric_limits<float>::quiet_NaN();
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kWhite = 0xFFFFFF;

SmoothGrid::Step StepGet(double dValue, double dFirst, double dLast, std::size_t nPlaces)
{
    const double dPlace = std::clamp((dValue - dFirst) / (dLast - dFirst), 0.0, 1.0)
                          * static_cast<double>(nPlaces - 1);
    const std::size_t iBefore = std::min(static_cast<std::size_t>(dPlace), nPlaces - 2);
    return {iBefore, static_cast<float>(dPlace - static_cast<double>(iBefore))};
}

float Mix(float fBefore, float fAfter, float fPart) { return fBefore + (fAfter - fBefore) * fPart; }

/// The band on the other side of the line between a pixel and its neighbours; -1 if there is no
/// line.
int LineBandOf(int iBand, int iLeft, int iAbove)
{
    if (iBand < 0)
        return -1;
    if (iLeft >= 0 && iLeft != iBand)
        return iLeft;
    return iAbove >= 0 && iAbove != iBand ? iAbove : -1;
}

/// The colours of the bands, and of the lines between them, by the bands' numbers.
class SmoothColors {
public:
    explicit SmoothColors(const std::function<std::uint32_t(float fSnr)>& fnColor)
    {
        const std::span<const SnrBand> aBand = SnrBandsGet();
        for (std::size_t i = 0; i < aBand.size(); ++i)
            m_anColor.push_back(i + 1 < aBand.size() ? fnColor(aBand[i].fLowest)
                                                     : fnColor(aBand[i - 1].fLowest - 1));
        for (const std::uint32_t nColor : m_anColor) m_aBand.push_back(ColorFromBgr(nColor).rgb());
        for (const std::uint32_t nOne : m_anColor)
            for (const std::uint32_t nOther : m_anColor) {
                const auto Worst = [&](std::uint32_t nLine) {
                    return std::min(ColorContrast(nLine, nOne), ColorContrast(nLine, nOther));
                };
                m_aLine.push_back(
                    ColorFromBgr(Worst(kBlack) > Worst(kWhite) ? kBlack : kWhite).rgb());
            }
    }
    [[nodiscard]] QRgb BandGet(int iBand) const { return m_aBand[static_cast<std::size_t>(iBand)]; }
    [[nodiscard]] QRgb LineGet(int iOne, int iOther) const
    {
        return m_aLine[static_cast<std::size_t>(iOne) * m_aBand.size()
                       + static_cast<std::size_t>(iOther)];
    }

private:
    std::vector<std::uint32_t> m_anColor;
    std::vector<QRgb> m_aBand;
    std::vector<QRgb> m_aLine;
};

/// The pixels of a box in the picture, clipped to the image.
QRect BoxGetRect(const MapView& view, const AreaBox& box, double dShift)
{
    const int nTop = RoundHalfEven(view.LatGetY(box.dTop));
    const int nBottom = RoundHalfEven(view.LatGetY(box.dBottom));
    const int nLeft = RoundHalfEven(view.LonGetX(box.dLeft + dShift));
    const int nRight = RoundHalfEven(view.LonGetX(box.dRight + dShift));
    if (nLeft >= nRight || nTop >= nBottom)
        return {};
    return QRect(QPoint(nLeft, nTop), QPoint(nRight - 1, nBottom - 1)) & view.ImageGetRect();
}

}  // namespace

SmoothGrid::SmoothGrid(const AreaBox& box, int nGridSize, std::span<const AreaPoint> aPoints)
    : m_box(box), m_nSide(static_cast<std::size_t>(std::max(nGridSize, 2)))
{
    if (aPoints.size() == m_nSide * m_nSide && box.dTop > box.dBottom && box.dRight > box.dLeft)
        m_aPoints = aPoints;
}

SmoothGrid::Step SmoothGrid::LatGetStep(double dLat) const
{
    return StepGet(dLat, m_box.dBottom, m_box.dTop, m_nSide);
}

SmoothGrid::Step SmoothGrid::LonGetStep(double dLon) const
{
    return StepGet(dLon, m_box.dLeft, m_box.dRight, m_nSide);
}

float SmoothGrid::PointGetSnr(std::size_t iLat, std::size_t iLon) const
{
    const float fSnr = m_aPoints[iLat * m_nSide + iLon].fSnr;
    return SnrIs(fSnr) ? fSnr : kNoSnr;
}

void SmoothGrid::ParallelGet(const Step& stpLat, std::vector<float>& afSnr) const
{
    afSnr.resize(m_nSide);
    for (std::size_t iLon = 0; iLon < m_nSide; ++iLon)
        afSnr[iLon] = Mix(PointGetSnr(stpLat.iBefore, iLon), PointGetSnr(stpLat.iBefore + 1, iLon),
                          stpLat.fPart);
}

std::optional<float> SmoothGrid::SnrGet(double dLat, double dLon) const
{
    const double dMiddle = (m_box.dLeft + m_box.dRight) / 2;
    const double dLonBox = dMiddle + LonApart(dMiddle, dLon);
    const bool bInside = dLat >= m_box.dBottom && dLat <= m_box.dTop && dLonBox >= m_box.dLeft
                         && dLonBox <= m_box.dRight;
    if (IsEmpty() || !bInside)
        return {};
    std::vector<float> afSnr;
    ParallelGet(LatGetStep(dLat), afSnr);
    const Step stp = LonGetStep(dLonBox);
    const float fSnr = Mix(afSnr[stp.iBefore], afSnr[stp.iBefore + 1], stp.fPart);
    if (std::isnan(fSnr))
        return {};
    return fSnr;
}

SmoothRaster::SmoothRaster(const MapView& view, const CellPaint& cell,
                           std::span<const AreaPoint> aPoints)
{
    const SmoothGrid grid(cell.m_box, cell.nGridSize, aPoints);
    const double dShift = BoxGetShift(view, cell);
    if (!grid.IsEmpty())
        m_rct = BoxGetRect(view, cell.m_boxWanted, dShift);
    if (m_rct.isEmpty())
        return;
    m_aBand.resize(static_cast<std::size_t>(m_rct.width())
                   * static_cast<std::size_t>(m_rct.height()));
    const MapBox& box = view.m_box;
    const auto LonAt = [&](int nX) {
        return box.dLeft + (box.dRight - box.dLeft) * (nX + 0.5) / view.m_nMapWidth - dShift;
    };
    std::vector<SmoothGrid::Step> aSteps;
    for (int nX = m_rct.left(); nX <= m_rct.right(); ++nX)
        aSteps.push_back(grid.LonGetStep(LonAt(nX)));
    std::vector<float> afSnr;
    for (int nY = m_rct.top(); nY <= m_rct.bottom(); ++nY) {
        const double dLat = view.PointGetLatLon(MapControl::Map, 0, nY + 0.5).dLat;
        grid.ParallelGet(grid.LatGetStep(dLat), afSnr);
        RowFill(nY, afSnr, aSteps, cell.fMinSnr);
    }
}

void SmoothRaster::RowFill(int nRow, const std::vector<float>& afSnr,
                           const std::vector<SmoothGrid::Step>& aSteps, float fMinSnr)
{
    const std::span<const SnrBand> aBand = SnrBandsGet();
    const auto BandOf = [&](const SmoothGrid::Step& stp) {
        const float fSnr = Mix(afSnr[stp.iBefore], afSnr[stp.iBefore + 1], stp.fPart);
        if (!(fSnr >= fMinSnr))  // true for NaN, too
            return std::int8_t{-1};
        const auto it = std::find_if(aBand.begin(), aBand.end(),
                                     [fSnr](const SnrBand& band) { return fSnr >= band.fLowest; });
        return static_cast<std::int8_t>(it - aBand.begin());
    };
    std::int8_t* pPixel = m_aBand.data() + (RowGet(nRow) - m_aBand.data());
    for (auto it = aSteps.begin(); it != aSteps.end();) {
        // Between two points the values are monotonic, so equal ends mean one band.
        const auto itEnd = std::find_if(it, aSteps.end(), [iNow = it->iBefore](const auto& stp) {
            return stp.iBefore != iNow;
        });
        if (const std::int8_t iBand = BandOf(*it); iBand == BandOf(*(itEnd - 1)))
            std::fill_n(pPixel, itEnd - it, iBand);
        else
            std::transform(it, itEnd, pPixel, BandOf);
        pPixel += itEnd - it;
        it = itEnd;
    }
}

int SmoothRaster::LineGetBand(int nX, int nY, int nWide) const
{
    const std::int8_t* const pRow = RowGet(nY);
    const int nColumn = nX - m_rct.left();
    return LineBandOf(pRow[nColumn], pRow[std::max(nColumn - nWide, 0)],
                      RowGet(std::max(nY - nWide, m_rct.top()))[nColumn]);
}

void SmoothPaint(QImage& img, const MapView& view, const CellPaint& cell,
                 std::span<const AreaPoint> aPoints)
{
    const SmoothRaster raster(view.SizedGet(img.width(), img.height()), cell, aPoints);
    const SmoothColors colors(cell.fnColor);
    const int nWide = std::max(static_cast<int>(img.devicePixelRatio()), 1);
    const QRect& rct = raster.RectGet();
    std::vector<QRgb> anRow(static_cast<std::size_t>(std::max(rct.width(), 0)));
    for (int nY = rct.top(); nY <= rct.bottom(); ++nY) {
        const std::int8_t* const pRow = raster.RowGet(nY);
        const std::int8_t* const pAbove = raster.RowGet(std::max(nY - nWide, rct.top()));
        for (int n = 0; n < rct.width(); ++n) {
            const int iBand = pRow[n];
            const int iOther = LineBandOf(iBand, pRow[std::max(n - nWide, 0)], pAbove[n]);
            anRow[static_cast<std::size_t>(n)] = iBand < 0    ? qRgb(255, 255, 255)
                                                 : iOther < 0 ? colors.BandGet(iBand)
                                                              : colors.LineGet(iBand, iOther);
        }
        RowMaskPen(img, rct.left(), nY, anRow);
    }
}
