#include "app/predict/PredictPrint.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "geo/MathLib.h"
#include "propagation/PowerTable.h"
#include "propagation/SnrScale.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

/// Columns of DaysTexts.
constexpr std::array kDaysNames{"rel", "snr_lower_db", "snr_upper_db"};

std::string PadLeft(const std::string& sText, std::size_t nWidth)
{
    return sText.size() < nWidth ? std::string(nWidth - sText.size(), ' ') + sText : sText;
}

std::string MegahertzGet(float fKhz)
{
    // Decimal kHz to MHz without the noise of a binary division: 14100 kHz is 14.1.
    std::string sText = NumberFormat(static_cast<double>(fKhz) / 1000.0, "0.000");
    while (sText.ends_with('0')) sText.pop_back();
    if (sText.ends_with('.'))
        sText.pop_back();
    return sText;
}

/// Cell text in the colour of its value; black or white on it, whichever is more legible.
std::string CellColored(const std::string& sCell, float fSnr)
{
    return SnrBandTerminal(SnrBandOfCell(fSnr)) + sCell + "\x1b[0m";
}

/// W, in the single precision in which the settings hold it.
float PowerGet(const Settings& settings)
{
    return static_cast<float>(
        PowerInForceGet(settings.m_fStationPower, settings.m_iPropagationModel,
                        settings.m_iPropagationAntennaType, DeckKind::PointToPoint));
}

/// "100 W", "5 kW, as the antenna choice".
std::string PowerOfRunText(const Settings& settings)
{
    return PowerText(PowerGet(settings))
           + (settings.m_fStationPower > 0.0F ? "" : ", as the antenna choice");
}

std::string HeadGet(const PredictRun& run)
{
    const Settings& settings = *run.pSettings;
    const PropagationTable& table = *run.pTable;
    std::string sText = "Hopcast prediction: " + run.sEngine + ", month "
                        + NumberToText(settings.m_iPropagationMonth) + ", sunspot number "
                        + NumberToText(settings.m_fPropagationSunSpotNumber) + " ("
                        + run.sSunSpotSource + ")\n";
    if (!run.sSunSpotDetail.empty())
        sText += "Sunspot number: " + TextPrintable(run.sSunSpotDetail) + "\n";
    sText += "Coefficients " + TextPrintable(table.request.sIonCoefficients) + "\n";
    sText += "Power " + PowerOfRunText(settings) + "\n";
    sText += "Transmitter " + LatitudeToText(settings.m_dTxLat) + " "
             + LongitudeToText(settings.m_dTxLon) + "   Receiver "
             + LatitudeToText(settings.m_dRcLat) + " " + LongitudeToText(settings.m_dRcLon) + "\n";
    sText += "Range " + NumberFormat(table.fRange, "0") + " nmi   bearing Tx to Rc "
             + NumberFormat(table.fAzimuthTxRc, "0") + " deg   Rc to Tx "
             + NumberFormat(table.fAzimuthRcTx, "0") + " deg\n";
    return sText + run.sPlaces;
}

std::string Quoted(const std::string& sText)
{
    std::string sQuoted = "\"";
    for (const char chr : sText) {
        if (chr == '"' || chr == '\\') {
            sQuoted += '\\';
            sQuoted += chr;
        } else if (static_cast<unsigned char>(chr) < 0x20 || chr == 0x7F) {
            std::array<char, 8> aCode{};
            std::snprintf(aCode.data(), aCode.size(), "\\u%04x", static_cast<unsigned>(chr));
            sQuoted += aCode.data();
        } else {
            sQuoted += chr;
        }
    }
    return sQuoted + '"';
}

template <class T>
std::string Pair(const char* sName, T value)
{
    return Quoted(sName) + ": " + NumberToText(value);
}

std::string JsonPosition(const char* sName, double dLat, double dLon)
{
    return Quoted(sName) + ": {" + Pair("lat", dLat) + ", " + Pair("lon", dLon) + "}";
}

/// A cell's value, or another text if the frequency has none.
std::string CellText(const PropagationTable& table, const CellArray<float>& afCells, int iHour,
                     int iFrequency, const char* sNone)
{
    return table.PresentIs(iFrequency) ? NumberToText(afCells(iHour, iFrequency)) : sNone;
}

std::string OrNull(const std::string& sNumber) { return sNumber.empty() ? "null" : sNumber; }

std::string JsonSnr(float fSnr) { return SnrIsGiven(fSnr) ? NumberToText(fSnr) : "null"; }

/// Reliability with two decimals and both deciles with one, as engines print them; empty if there
/// is none.
std::array<std::string, 3> DaysTexts(const PropagationTable& table, int iHour, int iFrequency)
{
    const auto Text = [&](const CellArray<float>& afCells, const char* sForm) {
        const float fValue = afCells(iHour, iFrequency);
        return !table.PresentIs(iFrequency) || std::isnan(fValue) ? ""
                                                                  : NumberFormat(fValue, sForm);
    };
    return {Text(table.fReliability, "0.00"), Text(table.fSnrLower, "0.0"),
            Text(table.fSnrUpper, "0.0")};
}

/// The margin of a cell; empty if there is none.
std::string MarginText(const PredictRun& run, int iHour, int iFrequency)
{
    const PropagationTable& table = *run.pTable;
    return table.PresentIs(iFrequency) ? PredictMarginText(table.fSnr(iHour, iFrequency), *run.need)
                                       : "";
}

std::string JsonCell(const PredictRun& run, int iHour, int iFrequency)
{
    const PropagationTable& table = *run.pTable;
    const auto Value = [&](const char* sName, const CellArray<float>& afCells) {
        return ", " + Quoted(sName) + ": " + CellText(table, afCells, iHour, iFrequency, "null");
    };
    // An engine that does not give delay and height has -1 there.
    const auto ValueOrNull = [&](const char* sName, const CellArray<float>& afCells) {
        return afCells(iHour, iFrequency) < 0.0F ? ", " + Quoted(sName) + ": null"
                                                 : Value(sName, afCells);
    };
    const bool bPresent = table.PresentIs(iFrequency);
    const auto asDays = DaysTexts(table, iHour, iFrequency);
    std::string sDays;
    for (std::size_t n = 0; n < kDaysNames.size(); ++n)
        sDays += ", " + Quoted(kDaysNames.at(n)) + ": " + OrNull(asDays.at(n));
    return "{" + Pair("khz", run.pSettings->FrequencyGet(iFrequency)) + ", " + Quoted("mode") + ": "
           + (bPresent ? Quoted(table.sLayer(iHour, iFrequency)) : "null")
           + Value("takeoff_deg", table.fTakeoffAngle) + ValueOrNull("delay_ms", table.fTimeDelay)
           + ValueOrNull("height_km", table.fVirtualHeight) + Value("signal_dbw", table.fSdBW)
           + Value("noise_dbw", table.fNdBW) + ", " + Quoted("snr_db") + ": "
           + (bPresent ? JsonSnr(table.fSnr(iHour, iFrequency)) : "null") + sDays
           + (run.need
                  ? ", " + Quoted("margin_db") + ": " + OrNull(MarginText(run, iHour, iFrequency))
                  : "")
           + "}";
}

/// MUF or LUF of an hour; engines give 0 or less if there is none.
std::string JsonLimit(const char* sName, float fKhz)
{
    return fKhz > 0.0F ? Pair(sName, fKhz) : Quoted(sName) + ": null";
}

std::string JsonHour(const PredictRun& run, int iHour)
{
    const PropagationTable& table = *run.pTable;
    std::string sText = "    {" + Pair("hour", iHour) + ", " + Pair("utc", iHour - 1) + ", "
                        + JsonLimit("muf_khz", table.fMUF[iHour]) + ", "
                        + JsonLimit("luf_khz", table.fLUF[iHour]) + ",\n     " + Quoted("cells")
                        + ": [";
    for (int i = 1; i <= table.nData; ++i)
        sText += (i == 1 ? "\n      " : ",\n      ") + JsonCell(run, iHour, i);
    return sText + "]}";
}

/// A number of the table, with a star in front if it meets the need.
std::string SnrText(const PredictRun& run, float fSnr)
{
    const bool bMet = run.need && fSnr >= run.need->fSnr;
    return (bMet ? "*" : "") + NumberFormat(SnrShownGet(fSnr), "0");
}

}  // namespace

std::string PredictNeedText(const Need& need)
{
    return (need.sName.empty() ? "" : TextPrintable(need.sName) + ": ") + NumberToText(need.fSnr)
           + " dB in 1 Hz";
}

std::string PredictMarginText(float fSnr, const Need& need)
{
    if (!SnrIsGiven(fSnr))
        return {};
    const auto Decimal = [](float fValue) {
        return NumberFromText(NumberToText(fValue)).ValueGet();
    };
    return NumberToText(static_cast<float>(Decimal(fSnr) - Decimal(need.fSnr)));
}

std::string PredictCsvText(std::string_view sForeign)
{
    const std::string sText = TextPrintable(sForeign);
    if (sText.find_first_of(",\"") == std::string::npos)
        return sText;
    std::string sQuoted = "\"";
    for (const char chr : sText) sQuoted += chr == '"' ? "\"\"" : std::string(1, chr);
    return sQuoted + '"';
}

std::string PredictTableGet(const PredictRun& run, bool bColor)
{
    const Settings& settings = *run.pSettings;
    const PropagationTable& table = *run.pTable;
    std::size_t nWidth = 4;
    for (int i = 1; i <= table.nData; ++i)
        nWidth = std::max(nWidth, MegahertzGet(settings.FrequencyGet(i)).size() + 1);
    std::string sText =
        HeadGet(run)
        + "\nPredicted SNR (dB in 1 Hz) by UTC hour and frequency (MHz); MUF and LUF in MHz\n";
    if (run.need)
        sText += "Cells with * meet the need (" + PredictNeedText(*run.need) + ")\n";
    sText += "UTC";
    for (int i = 1; i <= table.nData; ++i)
        sText += PadLeft(MegahertzGet(settings.FrequencyGet(i)), nWidth);
    sText += "   MUF   LUF\n";
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        sText += " " + NumberFormat(static_cast<double>(iHour - 1), "00");
        for (int i = 1; i <= table.nData; ++i) {
            if (!table.PresentIs(i)) {
                sText += PadLeft("", nWidth);
                continue;
            }
            const float fSnr = table.fSnr(iHour, i);
            const std::string sCell = PadLeft(SnrText(run, fSnr), nWidth);
            sText += bColor ? CellColored(sCell, fSnr) : sCell;
        }
        sText += PadLeft(NumberFormat(static_cast<double>(table.fMUF[iHour]) / 1000.0, "0.0"), 6);
        sText +=
            PadLeft(NumberFormat(static_cast<double>(table.fLUF[iHour]) / 1000.0, "0.0"), 6) + "\n";
    }
    return sText;
}

std::string PredictCsvGet(const PredictRun& run)
{
    const PropagationTable& table = *run.pTable;
    const Settings& settings = *run.pSettings;
    std::string sText =
        "hour,utc,muf_khz,luf_khz,khz,mode,takeoff_deg,delay_ms,height_km,signal_dbw,noise_dbw,snr_"
        "db,engine,month,ssn,ssn_source,power_w,coefficients";
    for (const char* sName : kDaysNames) sText += std::string(",") + sName;
    sText += run.need ? ",margin_db\n" : "\n";
    const std::string sRun =
        "," + PredictCsvText(run.sEngine) + "," + NumberToText(settings.m_iPropagationMonth) + ","
        + NumberToText(settings.m_fPropagationSunSpotNumber) + ","
        + PredictCsvText(run.sSunSpotSource) + "," + NumberToText(PowerGet(settings)) + ","
        + PredictCsvText(table.request.sIonCoefficients);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        const std::string sHour = NumberToText(iHour) + "," + NumberToText(iHour - 1) + ","
                                  + NumberToText(table.fMUF[iHour]) + ","
                                  + NumberToText(table.fLUF[iHour]) + ",";
        for (int i = 1; i <= table.nData; ++i) {
            const auto Value = [&](const CellArray<float>& afCells) {
                return "," + CellText(table, afCells, iHour, i, "");
            };
            const auto asDays = DaysTexts(table, iHour, i);
            sText += sHour + NumberToText(run.pSettings->FrequencyGet(i)) + ","
                     + (table.PresentIs(i) ? PredictCsvText(table.sLayer(iHour, i)) : "")
                     + Value(table.fTakeoffAngle) + Value(table.fTimeDelay)
                     + Value(table.fVirtualHeight) + Value(table.fSdBW) + Value(table.fNdBW)
                     + Value(table.fSnr) + sRun + "," + asDays[0] + "," + asDays[1] + ","
                     + asDays[2] + (run.need ? "," + MarginText(run, iHour, i) : "") + "\n";
        }
    }
    return sText;
}

std::string PredictJsonGet(const PredictRun& run)
{
    const Settings& settings = *run.pSettings;
    const PropagationTable& table = *run.pTable;
    std::string sText = "{\n  " + Quoted("model") + ": " + Quoted(run.sEngine) + ",\n  "
                        + Pair("year", run.nYear) + ",\n  "
                        + Pair("month", settings.m_iPropagationMonth) + ",\n  "
                        + Pair("ssn", settings.m_fPropagationSunSpotNumber) + ",\n  "
                        + JsonPosition("tx", settings.m_dTxLat, settings.m_dTxLon) + ",\n  "
                        + JsonPosition("rc", settings.m_dRcLat, settings.m_dRcLon) + ",\n  "
                        + Pair("azimuth_tx_rc", table.fAzimuthTxRc) + ",\n  "
                        + Pair("azimuth_rc_tx", table.fAzimuthRcTx) + ",\n  "
                        + Pair("range_nmi", table.fRange) + ",\n  " + Quoted("hours") + ": [\n";
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        sText += JsonHour(run, iHour) + (iHour < kHourCount ? ",\n" : "\n");
    return sText + "  ],\n  " + Quoted("engine") + ": " + Quoted(run.sEngine) + ",\n  "
           + Quoted("ssn_source") + ": " + Quoted(run.sSunSpotSource) + ",\n  "
           + Pair("power_w", PowerGet(settings)) + ",\n  " + Quoted("coefficients") + ": "
           + Quoted(table.request.sIonCoefficients) + "\n}\n";
}

std::string PredictAreaCsvGet(const std::vector<AreaPoint>& aPoint)
{
    std::string sText = "lat,lon,snr_db\n";
    for (const AreaPoint& pnt : aPoint)
        sText += NumberToText(pnt.dLat) + "," + NumberToText(pnt.dLon) + ","
                 + NumberToText(pnt.fSnr) + "\n";
    return sText;
}

std::string PredictAreaJsonGet(const std::vector<AreaPoint>& aPoint)
{
    std::string sText = "{\n  " + Quoted("points") + ": [\n";
    for (std::size_t n = 0; n < aPoint.size(); ++n) {
        const AreaPoint& pnt = aPoint[n];
        sText += "    {" + Pair("lat", pnt.dLat) + ", " + Pair("lon", pnt.dLon) + ", "
                 + Quoted("snr_db") + ": " + JsonSnr(pnt.fSnr) + "}";
        sText += n + 1 < aPoint.size() ? ",\n" : "\n";
    }
    return sText + "  ]\n}\n";
}

std::string PredictDayCsvGet(const std::vector<AreaDay>& aDays)
{
    std::string sText = "lat,lon,utc,khz,snr_db\n";
    for (const AreaDay& day : aDays) {
        const std::vector<float>& afFrequency = day.request.afFrequency;
        for (std::size_t iPoint = 0; iPoint < day.aPlaces.size(); ++iPoint) {
            const std::string sPlace = NumberToText(day.aPlaces[iPoint].dLat) + ","
                                       + NumberToText(day.aPlaces[iPoint].dLon) + ",";
            for (int iHour = 0; iHour < kHourCount; ++iHour)
                for (std::size_t j = 0; j < afFrequency.size(); ++j)
                    sText.append(sPlace)
                        .append(NumberToText(iHour))
                        .append(",")
                        .append(NumberToText(afFrequency[j]))
                        .append(",")
                        .append(NumberToText(day.SnrGet(iPoint, iHour, j)))
                        .append("\n");
        }
    }
    return sText;
}

std::string PredictDayJsonGet(const std::vector<AreaDay>& aDays)
{
    const auto ListOf = [](std::size_t nCount, const auto& fnText) {
        std::string sList = "[";
        for (std::size_t n = 0; n < nCount; ++n) sList += (n > 0 ? ", " : "") + fnText(n);
        return sList + "]";
    };
    const std::vector<float>& afFrequency = aDays.front().request.afFrequency;
    std::string sText =
        "{\n  " + Quoted("khz") + ": "
        + ListOf(afFrequency.size(), [&](std::size_t n) { return NumberToText(afFrequency[n]); })
        + ",\n  " + Quoted("points") + ": [";
    const char* sBetween = "\n";
    for (const AreaDay& day : aDays)
        for (std::size_t iPoint = 0; iPoint < day.aPlaces.size(); ++iPoint) {
            sText += sBetween;
            sBetween = ",\n";
            sText += "    {" + Pair("lat", day.aPlaces[iPoint].dLat) + ", "
                     + Pair("lon", day.aPlaces[iPoint].dLon) + ", " + Quoted("snr_db") + ": [";
            for (int iHour = 0; iHour < kHourCount; ++iHour)
                sText += (iHour > 0 ? ", " : "") + ListOf(afFrequency.size(), [&](std::size_t n) {
                             return JsonSnr(day.SnrGet(iPoint, iHour, n));
                         });
            sText += "]}";
        }
    return sText + "\n  ]\n}\n";
}
