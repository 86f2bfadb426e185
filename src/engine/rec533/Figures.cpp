#include "engine/rec533/Figures.h"

#include <bit>
#include <cassert>

// Made by FiguresBlob.cpp.
extern "C" const unsigned char HopcastEngineFigures[];

namespace rec533 {
namespace {

static_assert(std::endian::native == std::endian::little, "the packed figures are little endian");

constexpr std::size_t kMonths = 12;
constexpr std::size_t kFof2Month = std::size_t{2} * kFof2Functions * kFof2Harmonics;
constexpr std::size_t kM3Month = std::size_t{2} * kM3Functions * kM3Harmonics;
constexpr std::size_t kNoiseSeason = 300 + 168 + 2784 + 12;
constexpr std::size_t kHeadBytes = 8;

// Positions after the head, in floats.
constexpr std::size_t kFof2At = 0;
constexpr std::size_t kM3At = kFof2At + 2 * kMonths * kFof2Month;
constexpr std::size_t kNoiseAt = kM3At + kMonths * kM3Month;
constexpr std::size_t kAntennaAt = kNoiseAt + 4 * kNoiseSeason;
constexpr std::size_t kFloats = kAntennaAt + std::size_t{2} * (kAntennaGains + 1);
constexpr std::size_t kDecilesAt = kHeadBytes + kFloats * sizeof(float);

const float* FloatsGet(std::size_t nAt)
{
    // The array is aligned to 16 bytes; its floats begin 8 bytes later.
    return reinterpret_cast<const float*>(HopcastEngineFigures + kHeadBytes) + nAt;
}

template <std::size_t N>
std::span<const float, N> SpanGet(std::size_t nAt)
{
    return std::span<const float, N>(FloatsGet(nAt), N);
}

std::size_t MonthIndex(int nMonth)
{
    assert(nMonth >= 1 && nMonth <= 12);
    return static_cast<std::size_t>(nMonth - 1);
}

}  // namespace

Fof2Figures FiguresFof2(bool bUrsi, int nMonth)
{
    return SpanGet<kFof2Month>(kFof2At + ((bUrsi ? kMonths : 0) + MonthIndex(nMonth)) * kFof2Month);
}

M3Figures FiguresM3(int nMonth) { return SpanGet<kM3Month>(kM3At + MonthIndex(nMonth) * kM3Month); }

NoiseFigures FiguresNoise(int nMonth)
{
    const std::size_t nAt = kNoiseAt + (MonthIndex(nMonth) + 1) % kMonths / 3 * kNoiseSeason;
    return {FloatsGet(nAt), FloatsGet(nAt + 300), FloatsGet(nAt + 468), FloatsGet(nAt + 3252)};
}

int FiguresDecile(bool bUpper, int nSeason, int nClass, int nLatitude, int nHour)
{
    assert(nSeason >= 0 && nSeason <= 2 && nClass >= 0 && nClass <= 2);
    assert(nLatitude >= 0 && nLatitude <= 18 && nHour >= 0 && nHour <= 23);
    const int nRow = (((bUpper ? 3 : 0) + nSeason) * 3 + nClass) * 19 + nLatitude;
    return HopcastEngineFigures[kDecilesAt + static_cast<std::size_t>(nRow * 24 + nHour)];
}

std::span<const float, kAntennaGains + 1> FiguresAntennaConst17()
{
    return SpanGet<kAntennaGains + 1>(kAntennaAt);
}

std::span<const float, kAntennaGains + 1> FiguresAntennaSwwhip()
{
    return SpanGet<kAntennaGains + 1>(kAntennaAt + kAntennaGains + 1);
}

}  // namespace rec533
