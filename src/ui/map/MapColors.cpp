#include "ui/map/MapColors.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/WorldImage.h"

namespace {

constexpr QRgb kRgbMask = 0x00FFFFFF;
constexpr QRgb kAlpha = 0xFF000000;
constexpr QRgb kBlack = kAlpha;
constexpr int kBright = 0x85;  // red; black lines are visible on it from here on

// The plain map in Night: a black sea, dark land, ice the brightest.
constexpr QRgb kSeaDark = qRgb(0x10, 0x18, 0x20);
constexpr std::array<QRgb, kMapColors> kLandDark{
    qRgb(0x4A, 0x44, 0x30), qRgb(0x36, 0x48, 0x2E), qRgb(0x56, 0x3A, 0x30),
    qRgb(0x42, 0x38, 0x50), qRgb(0x48, 0x3A, 0x20), qRgb(0x5E, 0x64, 0x6A),
};
constexpr QRgb kBackgroundDark = qRgb(0x20, 0x20, 0x20);

QRgb Inverted(QRgb nColor) { return nColor ^ kRgbMask; }

/// Inverts what is neither a colour of the map nor of a cell: letters on their plates, and their
/// edges.
QRgb GreyTurned(QRgb nColor)
{
    constexpr int kAlike = 8;
    const auto [nLeast, nMost] = std::minmax({qRed(nColor), qGreen(nColor), qBlue(nColor)});
    return nMost - nLeast <= kAlike ? Inverted(nColor) : nColor;
}

/// A colour table. What a rubber band has inverted comes out inverted.
class ColorTable {
public:
    explicit ColorTable(const MapLook& look) : m_look(look)
    {
        if (look.bOverlay)
            BandsAdd();
        else if (look.bDark)
            WorldAdd();
    }
    [[nodiscard]] QRgb Get(QRgb nColor)
    {
        if (nColor != m_nLast || !m_bLast) {
            m_nShown = Find(nColor);
            m_nLast = nColor;
            m_bLast = true;
        }
        return m_nShown;
    }

private:
    void Add(QRgb nFrom, QRgb nTo)
    {
        m_aEntry.emplace_back(nFrom, nTo);
        m_aEntry.emplace_back(Inverted(nFrom), Inverted(nTo));
    }
    void BandsAdd()
    {
        const auto aTo = SnrBandsGet(m_look.ePalette);
        std::size_t i = 0;
        for (const SnrBand& band : SnrBandsGet())
            m_aEntry.emplace_back(ColorFromBgr(band.nColor).rgb(),
                                  ColorFromBgr(aTo[i++].nColor).rgb());
    }
    void WorldAdd()
    {
        Add(kSeaColor, kSeaDark);
        for (std::size_t i = 0; i < kLandDark.size(); ++i) Add(kLandColors.at(i), kLandDark.at(i));
        Add(kMapBackground, kBackgroundDark);
    }
    [[nodiscard]] QRgb Find(QRgb nColor) const
    {
        const auto it = std::find_if(m_aEntry.begin(), m_aEntry.end(),
                                     [nColor](const auto& entry) { return entry.first == nColor; });
        const bool bNight = m_look.ePalette == Palette::Night;
        if (it != m_aEntry.end())
            nColor = it->second;
        else if (m_look.bOverlay && bNight)  // cells of other values, as tables of such are shown
            return NightNegative(nColor);
        else if (m_look.bDark || bNight)
            nColor = GreyTurned(nColor);
        return bNight ? NightRed(nColor) : nColor;
    }

    MapLook m_look;
    std::vector<std::pair<QRgb, QRgb>> m_aEntry;
    QRgb m_nLast = 0;
    QRgb m_nShown = 0;
    bool m_bLast = false;
};

/// The overlay in Night. A line is black where the pixel beside it is bright, or above it if the
/// line runs from side to side.
void OverlayNight(QImage& img, ColorTable& table)
{
    std::vector<QRgb> aAbove(static_cast<std::size_t>(img.width()), kBlack);  // the cells'
    std::vector<QRgb> aRow(aAbove.size());
    for (int nRow = 0; nRow < img.height(); ++nRow) {
        auto* const pRow = reinterpret_cast<QRgb*>(img.scanLine(nRow));
        QRgb nBeside = kBlack;
        bool bLineBeside = false;
        for (std::size_t n = 0; n < aAbove.size(); ++n) {
            const QRgb nPixel = pRow[n] | kAlpha;
            const bool bLine = nPixel == kBlack;
            if (!bLine)
                nBeside = table.Get(nPixel);
            const QRgb nGround = bLine && bLineBeside ? aAbove[n] : nBeside;
            aRow[n] = nGround;
            pRow[n] = !bLine ? nGround : qRed(nGround) >= kBright ? kBlack : kNightInk;
            bLineBeside = bLine;
        }
        std::swap(aAbove, aRow);
    }
}

}  // namespace

MapLook MapLookGet(bool bOverlay)
{
    MapLook look{bOverlay, false, PaletteShown()};
    const int kMiddle = 128;
    const bool bDesktop = QGuiApplication::palette().color(QPalette::Window).lightness() < kMiddle;
    if (!bOverlay)
        look.bDark = look.ePalette == Palette::Night || (bDesktop && !PaletteForPaper::Exists());
    return look;
}

QImage MapPictureShown(const QImage& img, const MapLook& look)
{
    if (look.PlainIs() || img.format() != QImage::Format_RGB32)
        return img;
    QImage imgShown = img.copy();
    ColorTable table(look);
    if (look.bOverlay && look.ePalette == Palette::Night) {
        OverlayNight(imgShown, table);
        return imgShown;
    }
    for (int nRow = 0; nRow < imgShown.height(); ++nRow) {
        auto* const pRow = reinterpret_cast<QRgb*>(imgShown.scanLine(nRow));
        std::transform(pRow, pRow + imgShown.width(), pRow,
                       [&table](QRgb n) { return table.Get(n | kAlpha); });
    }
    return imgShown;
}

QRgb MapColorShown(QRgb nColor, const MapLook& look) { return ColorTable(look).Get(nColor); }
