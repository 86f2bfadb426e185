#include "ui/main/ClockLine.h"

#include "system/ClockLib.h"
#include "system/NumberLib.h"

namespace {

constexpr int kClockTick = 60000;  // ms; the clock shows minutes

}  // namespace

ClockLine::ClockLine(QTimer& tmr, QLabel& lbl, const Settings& settings, QObject* pParent)
    : QObject(pParent), m_tmr(tmr), m_lbl(lbl), m_settings(settings)
{
    connect(&m_tmr, &QTimer::timeout, this, &ClockLine::Tick);
}

void ClockLine::Start() { m_tmr.start(kClockTick); }

void ClockLine::Tick()
{
    const bool bZulu = m_settings.m_iTimeCode == kTimeZulu;
    if (!bZulu && m_settings.m_iTimeCode != kTimeLocal)
        return;
    const DateTime dtNow = bZulu ? UtcNow() : LocalNow();
    const std::string sTime = NumberFormat(static_cast<double>(dtNow.nHour), "00") + ":"
                              + NumberFormat(static_cast<double>(dtNow.nMinute), "00");
    m_lbl.setText((bZulu ? tr("Zulu: %1") : tr("Local: %1")).arg(QString::fromStdString(sTime)));
}
