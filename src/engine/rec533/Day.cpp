#include "engine/rec533/Day.h"

#include <cassert>

#include "engine/rec533/Luf.h"

namespace rec533 {

Frequencies::Frequencies(const Ionosphere& ionosphere, const Circuit& circuit,
                         std::span<const double> aMegahertz)
    : m_nCount(aMegahertz.size()),
      m_aSets((aMegahertz.size() + kFrequenciesInSet - 1) / kFrequenciesInSet)
{
    for (FrequencySet& frequencySet : m_aSets) {
        const std::size_t nCount = std::min(aMegahertz.size(), kFrequenciesInSet);
        FrequencySetFill(frequencySet, ionosphere, circuit, aMegahertz.first(nCount));
        aMegahertz = aMegahertz.subspan(nCount);
    }
}

struct DayWork::Parts {
    Path path;
    Hour hour;
    PredictionRows rows;
    PredictionWork work;
};

DayWork::DayWork() : m_pParts(std::make_unique_for_overwrite<Parts>()) {}
DayWork::~DayWork() = default;
DayWork::DayWork(DayWork&&) noexcept = default;
DayWork& DayWork::operator=(DayWork&&) noexcept = default;
DayPath DayWork::PathGet() const { return {m_pParts->path.way, m_pParts->path.circuit}; }

namespace {

void CellsFill(PredictionRows& rows, PredictionWork& work, Hour& hour,
               const Frequencies& frequencies, std::span<Prediction> aCells)
{
    std::size_t nCell = 0;
    for (const FrequencySet& set : frequencies.SetsGet()) {
        PredictionRowsFill(rows, work, hour, set);
        for (std::size_t i = 0; i < set.nCount; ++i)
            aCells[nCell++] = PredictionOfRows(rows, hour, i);
    }
}

DayHour DayHourGet(const Hour& hour)
{
    DayHour dayHour;
    dayHour.dMuf = hour.dMuf;
    dayHour.dMuf10 = hour.dMuf10;
    dayHour.dMuf90 = hour.dMuf90;
    dayHour.dOperational = hour.dOperational;
    dayHour.dOperational10 = hour.dOperational10;
    dayHour.dFot = hour.dOperational90;
    return dayHour;
}

int LabelOf(int nHour) { return nHour % 24 == 0 ? 24 : nHour; }

}  // namespace

void PredictDay(DayWork& work, const Ionosphere& ionosphere, const Frequencies& frequencies,
                const Circuit& circuit, DayParts eParts, std::span<DayHour, 24> aHours,
                std::span<Prediction> aCells)
{
    const std::size_t nCount = frequencies.CountGet();
    assert(aCells.size() == aHours.size() * nCount);
    DayWork::Parts& parts = *work.m_pParts;
    PathFill(parts.path, ionosphere, circuit);
    for (std::size_t i = 0; i < aHours.size(); ++i) {
        HourFill(parts.hour, parts.path, LabelOf(static_cast<int>(i)));
        CellsFill(parts.rows, parts.work, parts.hour, frequencies,
                  aCells.subspan(i * nCount, nCount));
        aHours[i] = DayHourGet(parts.hour);
        if (eParts != DayParts::Page)
            continue;
        aHours[i].bAtMuf = FrequencyUsable(parts.hour.dMuf);
        if (aHours[i].bAtMuf)
            PredictionFill(aHours[i].atMuf, parts.hour, parts.hour.dMuf);
        aHours[i].dLuf = LufGet(parts.hour, parts.work);
    }
}

void PredictHour(DayWork& work, const Ionosphere& ionosphere, const Frequencies& frequencies,
                 const Circuit& circuit, int nHour, DayHour& hour, std::span<Prediction> aCells)
{
    assert(aCells.size() == frequencies.CountGet());
    DayWork::Parts& parts = *work.m_pParts;
    PathFill(parts.path, ionosphere, circuit, LabelOf(nHour));
    HourFill(parts.hour, parts.path, LabelOf(nHour));
    CellsFill(parts.rows, parts.work, parts.hour, frequencies, aCells);
    hour = DayHourGet(parts.hour);
}

}  // namespace rec533
