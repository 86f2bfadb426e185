/// @file CardSample.h
/// A day's table with 15 frequencies, one of them without values, and the input for its card.
#pragma once

#include "ui/card/CardPage.h"

inline PropagationTable CardTable(int nFrequencies = 15)
{
    PropagationTable table(nFrequencies);
    Request& request = table.request;
    request.nData = nFrequencies;
    request.afFrequency.resize(static_cast<std::size_t>(nFrequencies) + 1);
    request.nMonth = 11;
    request.nYear = 2026;
    request.iModel = kEngineRec533;
    request.fSunSpotNumber = 62.0F;
    request.fPower = 100.0F;
    request.fReliability = 50.0F;
    request.dTxLat = 48.5417;
    request.dTxLon = -123.0125;
    request.dRcLat = 15.375;
    request.dRcLon = -132.6875;
    table.bBuiltIn = true;
    table.fRange = 2052.4F;
    table.fAzimuthTxRc = 197.6F;
    table.fAzimuthRcTx = 13.4F;
    for (int i = 1; i <= nFrequencies; ++i)
        request.afFrequency[static_cast<std::size_t>(i)] =
            1000.0F + 1900.0F * static_cast<float>(i);
    table.PresentSet(1, nFrequencies, true);
    if (nFrequencies > 4)
        table.PresentSet(4, 4, false);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        table.fMUF[iHour] = 12000.0F + 800.0F * static_cast<float>(iHour % 12);
        table.fLUF[iHour] = 3000.0F + 200.0F * static_cast<float>(iHour % 9);
        table.fFOT[iHour] = 0.85F * table.fMUF[iHour];
        for (int i = 1; i <= nFrequencies; ++i)
            table.fSnr(iHour, i) =
                iHour == 5 ? -999.0F : static_cast<float>((iHour * 7 + i * 11) % 95 - 12);
    }
    return table;
}

inline CardInput CardInputGet()
{
    CardInput input;
    input.sTx = QStringLiteral("WHV382 - Friday Harbor");
    for (int n = 0; n < 24; ++n)
        input.asShip.at(static_cast<std::size_t>(n)) =
            QStringLiteral("%1:30").arg((n + 5) % 24, 2, 10, QLatin1Char('0'));
    input.need = {"E-mail, normal", 40.0F, ""};
    input.nYear = 2026;
    return input;
}
