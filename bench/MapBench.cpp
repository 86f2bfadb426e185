// Times a repaint of the world image, 1200 x 700 pixels, at several zooms.
//
// Usage:   hopcast_map_bench [FOLDER]    with a folder: also keeps each view there as NAME.png
// Exit status 1 when a median is above 15 ms.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

#include "ui/map/WorldImage.h"

namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 700;
constexpr int kRuns = 21;
constexpr double kLimitMs = 15.0;
constexpr double kPi = 3.14159265358979;

struct View {
    const char* sName;
    double dLat;
    double dLon;   ///< 0 to 360
    double dSpan;  ///< degrees of longitude
};
constexpr View kViews[] = {
    {"world", 0, 180, 579.43}, {"all_longitudes", 0, 180, 360}, {"half_world", 30, 90, 180},
    {"quarter", 30, 50, 90},   {"europe", 52, 27, 50},          {"canada", 68, 270, 60},
    {"indonesia", 0, 120, 40}, {"caribbean", 18, 288, 30},      {"date_line", 66, 182, 30},
    {"fiji", -17.5, 179, 8},   {"aegean", 38, 24, 8},           {"channel", 50, 356.5, 5},
    {"norway", 62, 7, 5},      {"wight", 50.7, 358.7, 1},
};

QRect ViewGetSource(const View& vw)
{
    const double dScale = vw.dSpan * kImgWidth / 360 / kWidth;
    const double dMercator = std::log(std::tan(kPi / 4 + vw.dLat * kPi / 360));
    const double dX = vw.dLon * kImgWidth / 360;
    const double dY = kImgHeight / 2.0 - dMercator * kImgWidth / (2 * kPi);
    const int nWidth = int(std::lround(kWidth * dScale));
    const int nHeight = int(std::lround(kHeight * dScale));
    return {int(std::lround(dX - nWidth / 2.0)), int(std::lround(dY - nHeight / 2.0)), nWidth,
            nHeight};
}

double PaintGetMs(QImage& img, const QRect& rct)
{
    const auto timStart = std::chrono::steady_clock::now();
    WorldImagePaint(img, rct);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - timStart)
        .count();
}

}  // namespace

int main(int nArguments, char** asArguments)
{
    QImage img(kWidth, kHeight, QImage::Format_RGB32);
    std::printf("world map read, first paint  %6.2f ms\n", PaintGetMs(img, {0, 0, 10, 10}));
    bool bGood = true;
    for (const View& vw : kViews) {
        std::vector<double> aMs;
        for (int i = 0; i < kRuns; ++i) {
            img.fill(Qt::white);
            aMs.push_back(PaintGetMs(img, ViewGetSource(vw)));
        }
        std::sort(aMs.begin(), aMs.end());
        std::printf("map repaint %-16s %6.2f ms (worst of %d: %.2f)\n", vw.sName, aMs[kRuns / 2],
                    kRuns, aMs.back());
        bGood = bGood && aMs[kRuns / 2] < kLimitMs;
        if (nArguments > 1)
            img.save(QString::fromLocal8Bit(asArguments[1]) + QLatin1Char('/')
                     + QString::fromLatin1(vw.sName) + QStringLiteral(".png"));
    }
    return bGood ? 0 : 1;
}
