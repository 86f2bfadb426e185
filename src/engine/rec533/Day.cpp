#include "engine/rec533/Day.h"

#include <cassert>

#include "engine/rec533/Luf.h"

namespace rec533 {

Frequencies::Frequencies(const Ionosphere& tblIonosphere, const Circuit& tblCircuit,
                         std::span<const double> aMegahertz)
    : m_nCount(aMegahertz.size()),
      m_aSets((aMegahertz.size() + kFrequenciesInSet - 1) / kFrequenciesInSet)
{
    for (FrequencySet& tbl : m_aSets) {
        const std::size_t nCount = std::min(aMegahertz.size(), kFrequenciesInSet);
        FrequencySetFill(tbl, tblIonosphere, tblCircuit, aMegahertz.first(nCount));
        aMegahertz = aMegahertz.subspan(nCount);
    }
}

struct DayWork::Parts {
    Path tblPath;
    Hour tblHour;
    PredictionRows tblRows;
    PredictionWork tblWork;
};

DayWork::DayWork() : m_pParts(std::make_unique<Parts>()) {}
DayWork::~DayWork() = default;
DayWork::DayWork(DayWork&&) noexcept = default;
DayWork& DayWork::operator=(DayWork&&) noexcept = default;
DayPath DayWork::PathGet() const
{
    return {m_pParts->tblPath.tblWay, m_pParts->tblPath.tblCircuit};
}

namespace {

void CellsFill(PredictionRows& tblRows, PredictionWork& tblWork, Hour& tblHour,
               const Frequencies& tblFrequencies, std::span<Prediction> aCells)
{
    std::size_t nCell = 0;
    for (const FrequencySet& tblSet : tblFrequencies.SetsGet()) {
        PredictionRowsFill(tblRows, tblWork, tblHour, tblSet);
        for (std::size_t i = 0; i < tblSet.nCount; ++i)
            aCells[nCell++] = PredictionOfRows(tblRows, tblHour, i);
    }
}

DayHour DayHourGet(const Hour& tblHour)
{
    DayHour tbl;
    tbl.dMuf = tblHour.dMuf;
    tbl.dMuf10 = tblHour.dMuf10;
    tbl.dMuf90 = tblHour.dMuf90;
    tbl.dOperational = tblHour.dOperational;
    tbl.dOperational10 = tblHour.dOperational10;
    tbl.dFot = tblHour.dOperational90;
    return tbl;
}

int LabelOf(int nHour) { return nHour % 24 == 0 ? 24 : nHour; }

}  // namespace

void PredictDay(DayWork& tblWork, const Ionosphere& tblIonosphere,
                const Frequencies& tblFrequencies, const Circuit& tblCircuit, DayParts eParts,
                std::span<DayHour, 24> aHours, std::span<Prediction> aCells)
{
    const std::size_t nCount = tblFrequencies.CountGet();
    assert(aCells.size() == aHours.size() * nCount);
    DayWork::Parts& tbl = *tblWork.m_pParts;
    PathFill(tbl.tblPath, tblIonosphere, tblCircuit);
    for (std::size_t i = 0; i < aHours.size(); ++i) {
        HourFill(tbl.tblHour, tbl.tblPath, LabelOf(static_cast<int>(i)));
        CellsFill(tbl.tblRows, tbl.tblWork, tbl.tblHour, tblFrequencies,
                  aCells.subspan(i * nCount, nCount));
        aHours[i] = DayHourGet(tbl.tblHour);
        if (eParts != DayParts::Page)
            continue;
        aHours[i].bAtMuf = FrequencyUsable(tbl.tblHour.dMuf);
        if (aHours[i].bAtMuf)
            PredictionFill(aHours[i].tblAtMuf, tbl.tblHour, tbl.tblHour.dMuf);
        aHours[i].dLuf = LufGet(tbl.tblHour, tbl.tblWork);
    }
}

void PredictHour(DayWork& tblWork, const Ionosphere& tblIonosphere,
                 const Frequencies& tblFrequencies, const Circuit& tblCircuit, int nHour,
                 DayHour& tblHour, std::span<Prediction> aCells)
{
    assert(aCells.size() == tblFrequencies.CountGet());
    DayWork::Parts& tbl = *tblWork.m_pParts;
    PathFill(tbl.tblPath, tblIonosphere, tblCircuit, LabelOf(nHour));
    HourFill(tbl.tblHour, tbl.tblPath, LabelOf(nHour));
    CellsFill(tbl.tblRows, tbl.tblWork, tbl.tblHour, tblFrequencies, aCells);
    tblHour = DayHourGet(tbl.tblHour);
}

}  // namespace rec533
