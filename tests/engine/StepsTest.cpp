// The field along great circles, with the azimuth and across the antipode: every step has a name
// and is at most as large as docs/model.md states.
//
// Where the field changes by more than 0.2 dB within half a kilometre, the place is narrowed down
// to a centimetre. Whatever is discrete in the method, or is read from tables with cells, is
// compared on both sides; the first difference is the step's term. A change that shrinks with the
// distance is a slope: the loss just above a MUF, which begins as a square root, or a way that
// swings.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "engine/ReferenceData.h"
#include "support/TempFolder.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

constexpr double kStepMost = 0.2;    // dB
constexpr double kSpan = 0.5;        // km
constexpr double kSpanLeast = 1e-5;  // km: a change that remains within this span is a step

// What may step, causes before their effects.
enum class Term {
    Distance,
    Hops,
    LongHops,
    Height,
    Auroral,
    Foe,
    Exponent,
    Penetration,
    Screening,
    Muf,
    LowHops,
    Noon,
    Evening,
    Root,
    Swing,
    None
};

// Up to 7000 km, up to 9000 km, beyond.
constexpr std::size_t kBands = 3;
std::size_t BandOf(double dKm) { return dKm <= kShortOnly ? 0 : dKm <= kLongOnly ? 1 : 2; }

// The terms as docs/model.md lists them, with their largest steps in the bands in dB; 0 for none.
struct TermRow {
    const char* sName;
    std::array<double, kBands> adMost;
};

constexpr std::array<TermRow, static_cast<std::size_t>(Term::None)> kTerms{{
    {"distance classes", {62.8, 0.0, 0.0}},
    {"hops of the modes", {30.9, 8.9, 15.5}},
    {"hops of the long method", {0.0, 0.0, 9.2}},
    {"reflection height", {0.4, 0.7, 8.1}},
    {"auroral loss", {5.1, 2.0, 1.4}},
    {"foE", {0.0, 0.0, 1.5}},
    {"exponent of absorption", {0.0, 0.0, 1.9}},
    {"penetration factor", {0.4, 0.0, 0.0}},
    {"screening", {16.6, 0.0, 0.0}},
    {"basic MUF", {8.0, 3.2, 2.3}},
    {"hops of fL", {0.0, 0.0, 0.0}},
    {"noon MUF of K", {0.0, 0.0, 0.4}},
    {"evening of fL", {0.0, 0.0, 16.9}},
    {"slope above a MUF", {0.5, 0.0, 0.0}},
    {"swing of the ways", {0.0, 0.0, 0.7}},
}};

// The parts of a prediction by term, way, mode and number, in the order of the terms.
using Parts = std::map<std::array<int, 4>, double>;

class Bench {
public:
    Bench(int nMonth, double dSsn, int nLabel, double dFrequency)
        : m_nLabel(nLabel), m_dFrequency(dFrequency)
    {
        IonosphereFill(*m_pIono, Behaviour::Best, MapSet::Mean, nMonth, dSsn);
    }
    double FieldGet(const Circuit& circuit)
    {
        Run(circuit);
        return m_tblRows.aField[0];
    }
    double DistanceGet(const Circuit& circuit)
    {
        Run(circuit);
        return m_pPath->way.dKm;
    }
    Parts PartsGet(const Circuit& circuit)
    {
        Run(circuit);
        Parts parts;
        PathAdd(parts);
        WayAdd(parts, *m_pHour, 0);
        for (std::size_t i = 0; i < m_pPath->nBent; ++i) WayAdd(parts, m_pHour->aBent[i], i + 1);
        return parts;
    }
    // Why the field is steep between two places that are dKm apart.
    Term SlopeGet(const Circuit& one, const Circuit& other, double dKm)
    {
        constexpr double kSwing = 2.0;  // an ordinary middle moves half as far as the receiver
        const auto aA = MiddlesGet(one);
        const bool bRoot = RootIsSteep();
        const auto aB = MiddlesGet(other);
        for (std::size_t i = 0; i <= m_pPath->nBent; ++i)
            if (std::hypot(aA[i][0] - aB[i][0], aA[i][1] - aB[i][1], aA[i][2] - aB[i][2])
                > kSwing * dKm / kEarthKm)
                return Term::Swing;
        return bRoot || RootIsSteep() ? Term::Root : Term::None;
    }

private:
    void Run(const Circuit& circuit)
    {
        PathFill(*m_pPath, *m_pIono, circuit, m_nLabel);
        HourFill(*m_pHour, *m_pPath, m_nLabel);
        FrequencySetFill(m_tblSet, *m_pIono, m_pPath->circuit, {&m_dFrequency, 1},
                         NoiseBlocksOf(m_pHour->noise));
        PredictionRowsFill(m_tblRows, *m_pWork, *m_pHour, m_tblSet);
    }
    using Middles = std::array<std::array<double, 3>, 3>;
    // The middles of the ways as vectors.
    Middles MiddlesGet(const Circuit& circuit)
    {
        Run(circuit);
        const auto fnVector = [](const Place& p) {
            return std::array{p.dCosLat * p.dCosLon, p.dCosLat * p.dSinLon, p.dSinLat};
        };
        return {fnVector(m_pPath->mid.place), fnVector(m_pPath->aBent[0].mid.place),
                fnVector(m_pPath->aBent[1].mid.place)};
    }
    // True if a mode is just above its MUF, where the loss follows a square root.
    [[nodiscard]] bool RootIsSteep() const
    {
        constexpr double kJust = 0.01;
        const auto fnJust = [this](double dMuf) {
            return dMuf > 0.0 && m_dFrequency > dMuf && m_dFrequency < dMuf * (1.0 + kJust);
        };
        const auto fnWay = [&](const WayHour& hour) {
            return std::any_of(hour.aModes.begin(), hour.aModes.begin() + hour.nModes,
                               [&](const Mode& m) { return fnJust(m.dMuf) || fnJust(m.dWorst); });
        };
        return fnWay(*m_pHour)
               || std::any_of(m_pHour->aBent.begin(),
                              m_pHour->aBent.begin() + static_cast<int>(m_pPath->nBent), fnWay);
    }
    void PathAdd(Parts& parts) const
    {
        const double dKm = m_pPath->way.dKm;
        int i = 0;
        for (const double dEdge : {2000.0, 3000.0, 4000.0, kShortOnly, kLongOnly})
            parts[{static_cast<int>(Term::Distance), 0, 0, i++}] = dKm > dEdge ? 1.0 : 0.0;
        if (dKm <= kLongOnly)
            parts[{static_cast<int>(Term::Distance), 0, 0, i}] =
                dKm > m_pHour->dRangeMost ? 1.0 : 0.0;
    }
    void WayAdd(Parts& parts, const WayHour& wayHour, std::size_t iWay) const
    {
        const LongPath& longPath = wayHour.pWay->longPath;
        const auto fnAdd = [&](Term eTerm, int nNumber, double dValue) {
            parts[{static_cast<int>(eTerm), static_cast<int>(iWay), -1, nNumber}] = dValue;
        };
        fnAdd(Term::Hops, 0, wayHour.nOrderF2);
        fnAdd(Term::Hops, 1, wayHour.nOrderE);
        fnAdd(Term::Hops, 2, wayHour.nModes);
        fnAdd(Term::Height, 0, wayHour.dHeightF2);
        fnAdd(Term::Foe, 0, wayHour.dFoeModes);
        fnAdd(Term::Foe, 1, wayHour.mid.dFoe);
        if (wayHour.pWay->bHopSum) {
            const auto nHour = static_cast<std::size_t>(MapHourGet(m_nLabel));
            fnAdd(Term::LongHops, 0, longPath.nHops);
            fnAdd(Term::LowHops, 0, longPath.nLowHops);
            fnAdd(Term::Noon, 0, longPath.aRatio[0][nHour]);
            fnAdd(Term::Noon, 1, longPath.aRatio[1][nHour]);
            fnAdd(Term::Evening, 0, wayHour.longPath.dLower);
        }
        for (int i = 0; i < wayHour.nModes; ++i) ModeAdd(parts, wayHour, iWay, i);
    }
    void ModeAdd(Parts& parts, const WayHour& wayHour, std::size_t iWay, int iMode) const
    {
        const Mode& mode = wayHour.aModes[static_cast<std::size_t>(iMode)];
        const auto fnAdd = [&](Term eTerm, int nNumber, double dValue) {
            parts[{static_cast<int>(eTerm), static_cast<int>(iWay), iMode, nNumber}] = dValue;
        };
        const double dUsed = m_pWork->aModes[iWay][static_cast<std::size_t>(iMode)].aUsed[0];
        fnAdd(Term::Hops, 0, mode.bReaches ? 1.0 : 0.0);
        fnAdd(Term::Auroral, 0, mode.dAuroral);
        fnAdd(Term::Screening, 0, dUsed);
        fnAdd(Term::Muf, 0, m_dFrequency > mode.dMuf ? 1.0 : 0.0);
        fnAdd(Term::Muf, 1, m_dFrequency > mode.dWorst ? 1.0 : 0.0);
        fnAdd(Term::Foe, 0, mode.dWorst);
        if (mode.nCrossing < 0 || dUsed == 0.0)
            return;
        for (int i = 0; i < 2 * mode.nHops; ++i) {
            const Crossing& crs = wayHour.aCrossings[static_cast<std::size_t>(mode.nCrossing + i)];
            fnAdd(Term::Foe, 1 + i, crs.dFoe);
            fnAdd(Term::Exponent, i, crs.dWeight);
            fnAdd(Term::Penetration, i, m_dFrequency * mode.dCosIncidence > crs.dFoe ? 1.0 : 0.0);
        }
    }

    int m_nLabel;
    double m_dFrequency;
    std::unique_ptr<Ionosphere> m_pIono = std::make_unique<Ionosphere>();
    std::unique_ptr<Path> m_pPath = std::make_unique<Path>();
    std::unique_ptr<Hour> m_pHour = std::make_unique<Hour>();
    std::unique_ptr<PredictionWork> m_pWork = std::make_unique<PredictionWork>();
    PredictionRows m_tblRows;
    FrequencySet m_tblSet;
};

// The first term that differs between two places at most a centimetre apart.
Term TermOf(const Parts& partsA, const Parts& partsB)
{
    for (const auto& [aKey, dA] : partsA) {
        const auto itB = partsB.find(aKey);
        if (itB != partsB.end() && std::abs(dA - itB->second) > 1e-5 * std::abs(dA) + 1e-9)
            return static_cast<Term>(aKey[0]);
    }
    return Term::None;
}

using PlaceFn = std::function<Circuit(double dKm)>;

struct Found {
    std::array<std::array<double, kBands>, kTerms.size()> adMost{};
    int nSteps = 0;
    int nSpans = 0;
};

// Searches for steps of the field between two places of a line.
class Sweep {
public:
    Sweep(Bench& bench, PlaceFn fnPlace, Found& found)
        : m_bench(bench), m_fnPlace(std::move(fnPlace)), m_found(found)
    {
    }
    void Go(double dFrom, double dTo)
    {
        constexpr double kCell = 10.0;  // km
        double dBefore = FieldAt(dFrom);
        for (double dKm = dFrom; dKm < dTo; dKm += kCell) {
            const double dEnd = std::min(dKm + kCell, dTo);
            const double dNow = FieldAt(dEnd);
            Split(dKm, dEnd, dBefore, dNow);
            dBefore = dNow;
        }
    }

private:
    [[nodiscard]] double FieldAt(double dKm) { return m_bench.FieldGet(m_fnPlace(dKm)); }
    void Split(double dFrom, double dTo, double dFieldFrom, double dFieldTo)
    {
        ++m_found.nSpans;
        ASSERT_TRUE(std::isfinite(dFieldTo)) << dTo;
        if (std::abs(dFieldTo - dFieldFrom) <= kStepMost)
            return;
        if (dTo - dFrom <= kSpan) {
            Name(dFrom, dTo, dFieldFrom, dFieldTo);
            return;
        }
        const double dMid = (dFrom + dTo) / 2.0;
        const double dField = FieldAt(dMid);
        Split(dFrom, dMid, dFieldFrom, dField);
        Split(dMid, dTo, dField, dFieldTo);
    }
    // Narrows the change down, always taking the half with the larger part.
    void Name(double dFrom, double dTo, double dFieldFrom, double dFieldTo)
    {
        const double dWhole = std::abs(dFieldTo - dFieldFrom);
        while (dTo - dFrom > kSpanLeast) {
            const double dMid = (dFrom + dTo) / 2.0;
            const double dField = FieldAt(dMid);
            if (std::abs(dField - dFieldFrom) > std::abs(dFieldTo - dField)) {
                dTo = dMid;
                dFieldTo = dField;
            } else {
                dFrom = dMid;
                dFieldFrom = dField;
            }
        }
        const double dLeft = std::abs(dFieldTo - dFieldFrom);
        const Circuit one = m_fnPlace(dFrom);
        const Circuit circuit = m_fnPlace(dTo);
        const Term eTerm = dLeft >= 0.1 * dWhole
                               ? TermOf(m_bench.PartsGet(one), m_bench.PartsGet(circuit))
                               : m_bench.SlopeGet(one, circuit, dTo - dFrom);
        ASSERT_NE(eTerm, Term::None)
            << "a step of " << dWhole << " dB (" << dLeft << ") without a name from "
            << circuit.dTxLat << " " << circuit.dTxLon << " to " << circuit.dRxLat << " "
            << circuit.dRxLon;
        const auto iTerm = static_cast<std::size_t>(eTerm);
        const std::size_t iBand = BandOf(m_bench.DistanceGet(circuit));
        ++m_found.nSteps;
        double& dMost = m_found.adMost[iTerm][iBand];
        dMost = std::max(dMost, dWhole);
        EXPECT_LE(dWhole, kTerms[iTerm].adMost[iBand])
            << kTerms[iTerm].sName << " from " << circuit.dTxLat << " " << circuit.dTxLon << " to "
            << circuit.dRxLat << " " << circuit.dRxLon;
    }

    Bench& m_bench;
    PlaceFn m_fnPlace;
    Found& m_found;
};

// Records what was found, for docs/model.md.
void Record(const Found& found)
{
    testing::Test::RecordProperty("steps", found.nSteps);
    for (std::size_t i = 0; i < kTerms.size(); ++i) {
        std::ostringstream stm;
        for (const double dMost : found.adMost[i]) stm << dMost << " ";
        testing::Test::RecordProperty(kTerms[i].sName, stm.str());
    }
}

TEST(Steps, AreListedInTheDocument)
{
    const std::string sDocument = BytesRead(DOCS_FOLDER "/model.md");
    for (const TermRow& row : kTerms) {
        std::ostringstream stm;
        stm << "\n| " << row.sName << " | ";
        for (const double dMost : row.adMost) {
            if (dMost > 0.0)
                stm << dMost;
            stm << (dMost > 0.0 ? " | " : "| ");
        }
        EXPECT_NE(sDocument.find(stm.str()), std::string::npos) << stm.str();
    }
}

constexpr double kAntipodeKm = kPi * kEarthKm;

class StepsOfCircle : public testing::TestWithParam<int> {};

// Great circles nearly round the Earth, over all continents, months, hours and sunspot numbers.
TEST_P(StepsOfCircle, AreNamed)
{
    constexpr double kFrequencies[]{4.0, 7.0, 11.0, 16.0, 23.0};
    const int i = GetParam();
    Found found;
    Bench bench(1 + (i * 5) % 12, 20.0 * (i % 8), 1 + (7 * i) % 24, kFrequencies[i % 5]);
    const Circuit tx = CircuitOf(-70.0 + 13.0 * i, 31.0 * i - 180.0, 0.0, 0.0);
    const double dBearing = 17.0 + 37.0 * i;
    const auto fnPlace = [&](double dKm) { return CircuitEndAt(tx, dBearing, dKm); };
    Sweep(bench, fnPlace, found).Go(0.0, 39900.0);
    EXPECT_GE(found.nSpans, 3990);
    EXPECT_GT(found.nSteps, 0);
    Record(found);
}
INSTANTIATE_TEST_SUITE_P(Circles, StepsOfCircle, testing::Range(0, 12));

// Receivers on circles round the transmitter, by the length of the arc.
TEST(Steps, AreNamedWithTheAzimuth)
{
    Found found;
    for (const double dKm : {900.0, 2500.0, 5200.0, 8200.0, 10400.0, 13100.0, 17300.0, 19990.0}) {
        Bench bench(4, 60.0, 9, 12.0);
        const Circuit tx = CircuitOf(47.0, 8.0, 0.0, 0.0);
        const double dAround = 2.0 * kPi * kEarthKm * std::sin(dKm / kEarthKm);
        const auto fnPlace = [&](double dArc) {
            return CircuitEndAt(tx, 360.0 * dArc / dAround, dKm);
        };
        Sweep(bench, fnPlace, found).Go(0.0, dAround);
    }
    Record(found);
}

// Lines across the antipode, where the way changes sides.
TEST(Steps, AreNamedAcrossTheAntipode)
{
    Found found;
    for (int i = 0; i < 12; ++i) {
        Bench bench(1 + i, 12.0 * i, 2 * i + 1, 5.0 + 1.5 * i);
        const Circuit tx = CircuitOf(80.0 - 14.0 * i, 29.0 * i - 170.0, 0.0, 0.0);
        const auto fnPlace = [&](double dKm) {
            return CircuitEndAt(tx, 30.0 * i, kAntipodeKm + dKm);
        };
        Sweep(bench, fnPlace, found).Go(-300.0, 300.0);
    }
    Record(found);
}

}  // namespace
