/// @file RealRig.h
/// The real main window with the engines of this build.
#pragma once

#include "ui/e2e/EngineReal.h"
#include "ui/support/MainRig.h"

class RealRig : public MainRig {
public:
    explicit RealRig(int iModel) : MainRig(iModel) { ProcessSetHandler({}); }
    ~RealRig() { m_pFrm.reset(); }  // before its engine root goes
    RealRig(const RealRig&) = delete;
    RealRig& operator=(const RealRig&) = delete;

private:
    EngineReal m_engineReal;
};

/// The SNR of one frequency at all hours, as the main window's table shows them.
inline QStringList RowTexts(const frmMain& frm, int iRow)
{
    QStringList asText;
    for (int iHour = 1; iHour <= 24; ++iHour) asText.append(frm.grdData->TextGet(iRow, iHour));
    return asText;
}
