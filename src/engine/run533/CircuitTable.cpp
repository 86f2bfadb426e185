#include "engine/run533/CircuitTable.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "engine/rec533/Prediction.h"
#include "engine/run533/DeckText.h"
#include "engine/run533/Decks.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

enum Input {
    kId,
    kTxLat,
    kTxLon,
    kRxLat,
    kRxLon,
    kPath,
    kMonth,
    kSsn,
    kPower,
    kNoise,
    kReqSnr,
    kReqRel,
    kHour,
    kFreq,
    kInputs
};
constexpr std::array<std::string_view, kInputs> kInputNames{
    "id",  "tx_lat", "tx_lon", "rx_lat",  "rx_lon",  "path", "month",
    "ssn", "pwr_w",  "noise",  "req_snr", "req_rel", "hour", "freq"};
constexpr std::string_view kOutputNames =
    "dist_km,dmax_km,n0_f2,n0_e,bmuf,muf10,muf90,opmuf50,opmuf10,opmuf90,mode,ele,es,el,ei,e,pr,"
    "faa,fam,fag,fat,"
    "dua,dla,dum,dlm,dut,dlt,snr50,dusn,dlsn,snrxx,rel,e0,gap,fm,fl,k1,k2,fh,f_factor";
constexpr std::array<std::string_view, 6> kNoiseNames{"CITY",       "RESIDENTIAL", "RURAL",
                                                      "QUIETRURAL", "QUIET",       "NOISY"};

using Cells = std::vector<std::string_view>;

void CellsSplit(Cells& aCells, std::string_view sLine)
{
    aCells.clear();
    for (;;) {
        const std::size_t nComma = sLine.find(',');
        aCells.push_back(TextTrim(sLine.substr(0, nComma)));
        if (nComma == std::string_view::npos)
            return;
        sLine.remove_prefix(nComma + 1);
    }
}

struct Row {
    rec533::Circuit tblCircuit;
    int nMonth = 1;
    double dSsn = 0.0;
    int nHour = 1;
    double dFrequency = 0.0;
};

// Reads the cells of a row, keeping the first error.
class RowReader {
public:
    RowReader(const Cells& aCells, const std::array<std::size_t, kInputs>& aAt, int nLine)
        : m_aCells(aCells), m_aAt(aAt), m_nLine(nLine)
    {
    }
    std::string_view TextGet(Input eInput) const { return m_aCells[m_aAt[eInput]]; }
    double NumberGet(Input eInput, double dLeast, double dMost)
    {
        const Result<double> resNumber = NumberFromText(TextGet(eInput));
        if (resNumber && resNumber.ValueGet() >= dLeast && resNumber.ValueGet() <= dMost)
            return resNumber.ValueGet();
        Fail(eInput);
        return dLeast;
    }
    int IntegerGet(Input eInput, int nLeast, int nMost)
    {
        const double dNumber = NumberGet(eInput, nLeast, nMost);
        if (dNumber != std::floor(dNumber))
            Fail(eInput);
        return static_cast<int>(dNumber);
    }
    void Fail(Input eInput)
    {
        if (!m_bFailed)
            m_error.sText = "line " + NumberToText(m_nLine) + ", "
                            + std::string(kInputNames[eInput]) + ": " + TextQuote(TextGet(eInput))
                            + " cannot be used";
        m_bFailed = true;
    }
    bool m_bFailed = false;
    RunError m_error;

private:
    const Cells& m_aCells;
    const std::array<std::size_t, kInputs>& m_aAt;
    int m_nLine;
};

void NoiseRead(RowReader& rdr, rec533::Circuit& tbl)
{
    const auto itName = std::find(kNoiseNames.begin(), kNoiseNames.end(), rdr.TextGet(kNoise));
    if (itName != kNoiseNames.end())
        tbl.eNoise = static_cast<rec533::NoiseCategory>(itName - kNoiseNames.begin());
    else
        tbl.dNoiseLevel = rdr.NumberGet(kNoise, -300.0, 0.0);
}

Row RowRead(RowReader& rdr, bool bReference)
{
    Row tbl;
    rec533::Circuit& tblCircuit = tbl.tblCircuit;
    tblCircuit.dTxLat = rdr.NumberGet(kTxLat, -90.0, 90.0);
    tblCircuit.dTxLon = rdr.NumberGet(kTxLon, -180.0, 180.0);
    tblCircuit.dRxLat = rdr.NumberGet(kRxLat, -90.0, 90.0);
    tblCircuit.dRxLon = rdr.NumberGet(kRxLon, -180.0, 180.0);
    tblCircuit.bLongWay = rdr.TextGet(kPath) == "LONG";
    if (!tblCircuit.bLongWay && rdr.TextGet(kPath) != "SHORT")
        rdr.Fail(kPath);
    tbl.nMonth = rdr.IntegerGet(kMonth, 1, 12);
    // The ITU program refuses what lies outside of these limits.
    tbl.dSsn = rdr.NumberGet(kSsn, bReference ? 1.0 : 0.0, rec533::kSsnMost);
    tbl.dFrequency = rdr.NumberGet(kFreq, bReference ? 1.0 : kFrequencyLeast,
                                   bReference ? 30.0 : kFrequencyMost);
    tblCircuit.dPowerKw = rdr.NumberGet(kPower, 1e-6, 1e9) / 1000.0;
    NoiseRead(rdr, tblCircuit);
    tblCircuit.dRequiredSnr = rdr.NumberGet(kReqSnr, -300.0, 300.0);
    tblCircuit.dRequiredReliability = rdr.NumberGet(kReqRel, 1.0, 99.0);
    tbl.nHour = rdr.IntegerGet(kHour, 1, 24);
    return tbl;
}

// What the last row made, kept for the rows of the same circuit and hour.
struct Work {
    rec533::Ionosphere tblIonosphere;
    rec533::Path tblPath;
    rec533::Hour tblHour;
    std::string sIonosphere, sPath, sHour;  // cells that they were made of
};

std::string KeyMake(const RowReader& rdr, Input eFirst, Input eLast)
{
    std::string sKey;
    for (int i = eFirst; i <= eLast; ++i)
        sKey.append(rdr.TextGet(static_cast<Input>(i))).append(1, ',');
    return sKey;
}

void WorkMake(Work& tbl, const RowReader& rdr, const Row& tblRow, rec533::Behaviour eBehaviour,
              rec533::MapSet eMaps)
{
    const std::string sIonosphere = KeyMake(rdr, kMonth, kSsn);
    const std::string sPath = KeyMake(rdr, kTxLat, kReqRel);
    const std::string sHour(rdr.TextGet(kHour));
    if (sIonosphere != tbl.sIonosphere)
        IonosphereFill(tbl.tblIonosphere, eBehaviour, eMaps, tblRow.nMonth, tblRow.dSsn);
    if (sPath != tbl.sPath)
        PathFill(tbl.tblPath, tbl.tblIonosphere, tblRow.tblCircuit);
    if (sPath != tbl.sPath || sHour != tbl.sHour)
        HourFill(tbl.tblHour, tbl.tblPath, tblRow.nHour);
    tbl.sIonosphere = sIonosphere;
    tbl.sPath = sPath;
    tbl.sHour = sHour;
}

void NumberAppend(std::string& s, double dValue)
{
    s += ',';
    s += NumberFormat(dValue, "0.000");
}

void NumberAppend(std::string& s, double dValue, bool bDefined)
{
    if (bDefined)
        NumberAppend(s, dValue);
    else
        s += ',';
}

void OrderAppend(std::string& s, int nOrder)
{
    s += ',';
    if (nOrder > 0)
        s += NumberToText(nOrder);
}

void PredictionAppend(std::string& s, rec533::Hour& tblHour, double dFrequency,
                      const rec533::Prediction& tbl)
{
    rec533::Path& tblPath = *tblHour.pPath;
    const double dKm = tblPath.tblWay.dKm;
    const rec533::Circuit& tblCircuit = tblPath.tblCircuit;
    const rec533::Noise tblA =
        NoiseAtmosphericGet(*tblPath.pIonosphere, tblPath.tblNoise, tblHour.nLabel, dFrequency);
    const rec533::Noise tblM = NoiseManMadeGet(tblCircuit.eNoise, tblCircuit.dNoiseLevel,
                                               dFrequency, tblPath.pIonosphere->bReference);
    const rec533::Noise tblG = rec533::NoiseGalacticGet(dFrequency);
    const rec533::Noise tblTotal = NoiseTotalGet(tblA, tblM, tblG);
    const bool bLong = dKm >= rec533::kShortOnly;
    NumberAppend(s, dKm);
    NumberAppend(s, tblHour.dRangeMost);
    OrderAppend(s, tblHour.nOrderF2);
    OrderAppend(s, tblHour.nOrderE);
    for (const double dMuf : {tblHour.dMuf, tblHour.dMuf10, tblHour.dMuf90, tblHour.dOperational,
                              tblHour.dOperational10, tblHour.dOperational90})
        NumberAppend(s, dMuf);
    s += ',';
    if (tbl.nHops > 0)
        s.append(NumberToText(tbl.nHops)).append(tbl.bE ? "E" : "F2");
    NumberAppend(s, tbl.dElevation * rec533::kDegrees);
    NumberAppend(s, tbl.dFieldShort, dKm <= rec533::kLongOnly);
    NumberAppend(s, tbl.dFieldLong, bLong);
    NumberAppend(s, tbl.dField, bLong && dKm < rec533::kLongOnly);
    for (const double dValue :
         {tbl.dField, tbl.dPower, tblA.dFa, tblM.dFa, tblG.dFa, tblTotal.dFa, tblA.dUpper,
          tblA.dLower, tblM.dUpper, tblM.dLower, tblTotal.dUpper, tblTotal.dLower, tbl.dSnr,
          tbl.dSnrUpper, tbl.dSnrLower, tbl.dSnrExceeded, tbl.dReliability})
        NumberAppend(s, dValue);
    const rec533::LongHour& tblLong = tblHour.tblLong;
    for (const double dValue :
         {bLong ? LongFreeGet(tblPath.tblLong) : 0.0, tblPath.tblLong.dGap, tblLong.dUpper,
          tblLong.dLower, tblLong.dK1, tblLong.dK2, tblPath.tblLong.dGyro, tbl.dLongShare})
        NumberAppend(s, dValue, bLong);
    s += '\n';
}

Result<void> HeadRead(std::array<std::size_t, kInputs>& aAt, const Cells& aHead)
{
    for (std::size_t i = 0; i < kInputs; ++i) {
        const auto itName = std::find(aHead.begin(), aHead.end(), kInputNames[i]);
        if (itName == aHead.end())
            return RunError{"no column " + std::string(kInputNames[i])};
        aAt[i] = static_cast<std::size_t>(itName - aHead.begin());
    }
    return {};
}

}  // namespace

Result<std::string> CircuitTableMake(std::string_view sTable, rec533::Behaviour eBehaviour,
                                     rec533::MapSet eMaps)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // spreadsheets write it
    if (sTable.starts_with(kByteOrderMark))
        sTable.remove_prefix(kByteOrderMark.size());
    std::string sOut;
    for (const std::string_view sName : kInputNames) sOut.append(sName).append(1, ',');
    sOut.append(kOutputNames).append(1, '\n');
    const auto aLines = TextLines(sTable);
    Cells aCells;
    std::array<std::size_t, kInputs> aAt{};
    CellsSplit(aCells, aLines.empty() ? std::string_view() : aLines.front());
    const std::size_t nColumns = aCells.size();
    const Result<void> resHead = HeadRead(aAt, aCells);
    if (!resHead)
        return resHead.ErrorGet();
    const auto pWork = std::make_unique<Work>();
    rec533::Prediction tblPrediction;
    for (std::size_t i = 1; i < aLines.size(); ++i) {
        if (TextTrim(aLines[i]).empty())
            continue;
        CellsSplit(aCells, aLines[i]);
        const int nLine = static_cast<int>(i) + 1;
        if (aCells.size() < nColumns)
            return RunError{"line " + NumberToText(nLine) + ": fewer columns than the head has"};
        RowReader rdr(aCells, aAt, nLine);
        const Row tblRow = RowRead(rdr, eBehaviour == rec533::Behaviour::Reference);
        if (rdr.m_bFailed)
            return rdr.m_error;
        WorkMake(*pWork, rdr, tblRow, eBehaviour, eMaps);
        PredictionFill(tblPrediction, pWork->tblHour, tblRow.dFrequency);
        for (std::size_t k = 0; k < kInputs; ++k)
            sOut.append(k > 0 ? "," : "").append(rdr.TextGet(static_cast<Input>(k)));
        PredictionAppend(sOut, pWork->tblHour, tblRow.dFrequency, tblPrediction);
    }
    return sOut;
}

}  // namespace run533
