#include "engine/run533/CircuitTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>

#include "engine/rec533/Prediction.h"
#include "engine/run533/Decks.h"
#include "engine/run533/TableText.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

enum Input : std::size_t {
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
    kActivity,  // may be missing
    kInputs
};
constexpr std::array<std::string_view, kInputs> kInputNames{
    "id",    "tx_lat", "tx_lon",  "rx_lat",  "rx_lon", "path", "month", "ssn",
    "pwr_w", "noise",  "req_snr", "req_rel", "hour",   "freq", "ig"};
constexpr std::string_view kOutputNames =
    "dist_km,dmax_km,n0_f2,n0_e,bmuf,muf10,muf90,opmuf50,opmuf10,opmuf90,mode,ele,es,el,ei,e,pr,"
    "faa,fam,fag,fat,"
    "dua,dla,dum,dlm,dut,dlt,snr50,dusn,dlsn,snrxx,rel,e0,gap,fm,fl,k1,k2,fh,f_factor";
constexpr double kActivityMost = 400.0;
constexpr std::array<std::string_view, 6> kNoiseNames{"CITY",       "RESIDENTIAL", "RURAL",
                                                      "QUIETRURAL", "QUIET",       "NOISY"};

struct Row {
    rec533::Circuit circuit;
    int nMonth = 1;
    double dSsn = 0.0;
    std::optional<double> dActivity;
    int nHour = 1;
    double dFrequency = 0.0;
};

void NoiseRead(TableRow& rdr, rec533::Circuit& circuit)
{
    const auto itName = std::find(kNoiseNames.begin(), kNoiseNames.end(), rdr.TextGet(kNoise));
    if (itName != kNoiseNames.end())
        circuit.eNoise = static_cast<rec533::NoiseCategory>(itName - kNoiseNames.begin());
    else
        circuit.dNoiseLevel = rdr.NumberGet(kNoise, -300.0, 0.0);
}

Row RowRead(TableRow& rdr, bool bReference)
{
    Row row;
    rec533::Circuit& circuit = row.circuit;
    circuit.dTxLat = rdr.NumberGet(kTxLat, -90.0, 90.0);
    circuit.dTxLon = rdr.NumberGet(kTxLon, -180.0, 180.0);
    circuit.dRxLat = rdr.NumberGet(kRxLat, -90.0, 90.0);
    circuit.dRxLon = rdr.NumberGet(kRxLon, -180.0, 180.0);
    circuit.bLongWay = rdr.TextGet(kPath) == "LONG";
    if (!circuit.bLongWay && rdr.TextGet(kPath) != "SHORT")
        rdr.Fail(kPath);
    row.nMonth = rdr.IntegerGet(kMonth, 1, 12);
    // The ITU program refuses values outside these limits.
    row.dSsn = rdr.NumberGet(kSsn, bReference ? 1.0 : 0.0, rec533::kSsnMost);
    row.dFrequency = rdr.NumberGet(kFreq, bReference ? 1.0 : kFrequencyLeast,
                                   bReference ? 30.0 : kFrequencyMost);
    row.dActivity = rdr.OptionalGet(kActivity, -kActivityMost, kActivityMost);
    circuit.dPowerKw = rdr.NumberGet(kPower, 1e-6, 1e9) / 1000.0;
    NoiseRead(rdr, circuit);
    circuit.dRequiredSnr = rdr.NumberGet(kReqSnr, -300.0, 300.0);
    circuit.dRequiredReliability = rdr.NumberGet(kReqRel, 1.0, 99.0);
    row.nHour = rdr.IntegerGet(kHour, 1, 24);
    return row;
}

// The last row's intermediate results, kept for rows of the same circuit and hour.
struct Work {
    rec533::Ionosphere ionosphere;
    rec533::Path path;
    rec533::Hour hour;
    std::string sIonosphere, sPath, sHour;  // cells from which they were made
};

std::string KeyMake(const TableRow& rdr, Input eFirst, Input eLast)
{
    std::string sKey;
    for (std::size_t i = eFirst; i <= eLast; ++i) sKey.append(rdr.TextGet(i)).append(1, ',');
    return sKey;
}

void WorkMake(Work& work, const TableRow& rdr, const Row& row, rec533::Behaviour eBehaviour,
              rec533::MapSet eMaps)
{
    const std::string sIonosphere = KeyMake(rdr, kMonth, kSsn) + KeyMake(rdr, kActivity, kActivity);
    const std::string sPath = KeyMake(rdr, kTxLat, kReqRel) + sIonosphere;
    const std::string sHour(rdr.TextGet(kHour));
    if (sIonosphere != work.sIonosphere)
        IonosphereFill(work.ionosphere, eBehaviour, eMaps, row.nMonth, row.dSsn, row.dActivity);
    if (sPath != work.sPath)
        PathFill(work.path, work.ionosphere, row.circuit);
    if (sPath != work.sPath || sHour != work.sHour)
        HourFill(work.hour, work.path, row.nHour);
    work.sIonosphere = sIonosphere;
    work.sPath = sPath;
    work.sHour = sHour;
}

void NumberAppend(std::string& s, double dValue, bool bDefined)
{
    if (bDefined)
        TableAppend(s, dValue);
    else
        s += ',';
}

void OrderAppend(std::string& s, int nOrder)
{
    s += ',';
    if (nOrder > 0)
        s += NumberToText(nOrder);
}

void PredictionAppend(std::string& s, rec533::Hour& hour, double dFrequency,
                      const rec533::Prediction& prediction)
{
    rec533::Path& path = *hour.pPath;
    const double dKm = path.way.dKm;
    const rec533::Circuit& circuit = path.circuit;
    const rec533::Noise atmospheric =
        NoiseAtmosphericGet(*path.pIonosphere, path.noise, hour.nLabel, dFrequency);
    const rec533::Noise manMade = NoiseManMadeGet(circuit.eNoise, circuit.dNoiseLevel, dFrequency,
                                                  path.pIonosphere->quirks.bDecilesSwapped);
    const rec533::Noise galactic = rec533::NoiseGalacticGet(dFrequency);
    const rec533::Noise total = NoiseTotalGet(atmospheric, manMade, galactic);
    const bool bLong = dKm >= rec533::kShortOnly;
    TableAppend(s, dKm);
    TableAppend(s, hour.dRangeMost);
    OrderAppend(s, hour.nOrderF2);
    OrderAppend(s, hour.nOrderE);
    for (const double dMuf : {hour.dMuf, hour.dMuf10, hour.dMuf90, hour.dOperational,
                              hour.dOperational10, hour.dOperational90})
        TableAppend(s, dMuf);
    s += ',';
    if (prediction.nHops > 0)
        s.append(NumberToText(prediction.nHops)).append(prediction.bE ? "E" : "F2");
    TableAppend(s, prediction.dElevation * rec533::kDegrees);
    NumberAppend(s, prediction.dFieldShort, dKm <= rec533::kLongOnly);
    NumberAppend(s, prediction.dFieldLong, bLong);
    NumberAppend(s, prediction.dField, bLong && dKm < rec533::kLongOnly);
    for (const double dValue :
         {prediction.dField, prediction.dPower, atmospheric.dFa, manMade.dFa, galactic.dFa,
          total.dFa, atmospheric.dUpper, atmospheric.dLower, manMade.dUpper, manMade.dLower,
          total.dUpper, total.dLower, prediction.dSnr, prediction.dSnrUpper, prediction.dSnrLower,
          prediction.dSnrExceeded, prediction.dReliability})
        TableAppend(s, dValue);
    const rec533::LongHour& longPath = hour.longPath;
    for (const double dValue :
         {bLong ? LongFreeGet(path.longPath) : 0.0, path.longPath.dGap, longPath.dUpper,
          longPath.dLower, longPath.dK1, longPath.dK2, path.longPath.dGyro, prediction.dLongShare})
        NumberAppend(s, dValue, bLong);
    s += '\n';
}

}  // namespace

Result<std::string> CircuitTableMake(std::string_view sTable, rec533::Behaviour eBehaviour,
                                     rec533::MapSet eMaps)
{
    const auto pWork = std::make_unique<Work>();
    rec533::Prediction prediction;
    return TableExtend(sTable, kInputNames, kActivity, kOutputNames,
                       [&](TableRow& rdr, std::string& sOut) {
                           const Row row = RowRead(rdr, eBehaviour == rec533::Behaviour::Reference);
                           if (rdr.Failed())
                               return;
                           WorkMake(*pWork, rdr, row, eBehaviour, eMaps);
                           PredictionFill(prediction, pWork->hour, row.dFrequency);
                           PredictionAppend(sOut, pWork->hour, row.dFrequency, prediction);
                       });
}

}  // namespace run533
