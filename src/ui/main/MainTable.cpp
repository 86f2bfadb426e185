#include "ui/main/MainTable.h"

#include <cmath>

#include "propagation/PropagationTable.h"
#include "system/ClockLib.h"
#include "system/NumberLib.h"
#include "ui/common/GridControl.h"
#include "ui/common/GridCorner.h"

namespace {

constexpr int kMinutesOfHour = 60;
constexpr int kMinutesOfDay = kHourCount * kMinutesOfHour;
constexpr int kMinutesOfQuarter = 15;

QString TwoDigits(int n)
{
    return QString::fromStdString(NumberFormat(static_cast<double>(n), "00"));
}

}  // namespace

MainTable::MainTable(GridControl& grd, const Settings& settings) : m_grd(grd), m_settings(settings)
{
    m_grd.HugSet(true);
    m_grd.SpeechSet([this](int iRow, int iCol) { return Speech(iRow, iCol); });
    new GridCorner(m_grd, {});
    QObject::connect(&m_grd, &GridControl::MouseMoved, &m_grd,
                     [this](int iRow, int iCol) { MouseMoved(iRow, iCol); });
}

/// Minutes that the labels are ahead of UTC. Zones keep quarters of an hour; what is over is the
/// time between the looks at the two clocks.
int MainTable::MinuteOffset() const
{
    if (m_settings.m_iTimeCode != kTimeLocal)
        return 0;
    const auto dMinutes = static_cast<double>(MinuteBoundaries(UtcNow(), LocalNow()));
    return kMinutesOfQuarter * static_cast<int>(std::lround(dMinutes / kMinutesOfQuarter));
}

void MainTable::HoursLayout()
{
    m_grd.ColsSet(kHourCount + 1);
    const QFontMetrics metrics = m_grd.window()->fontMetrics();
    m_grd.ColWidthSet(0, metrics.horizontalAdvance(QStringLiteral("-30000-")));
    const int nOffset = MinuteOffset();
    const bool bWholeHours = nOffset % kMinutesOfHour == 0;
    const int nWidth =
        metrics.horizontalAdvance(bWholeHours ? QStringLiteral("---00") : QStringLiteral("-00:00"));
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        const int nMinute =
            ((iHour - 1) * kMinutesOfHour + nOffset + kMinutesOfDay) % kMinutesOfDay;
        const QString sHour = TwoDigits(nMinute / kMinutesOfHour);
        const QString sMinutes = u':' + TwoDigits(nMinute % kMinutesOfHour);
        m_grd.ColWidthSet(iHour, nWidth);
        m_grd.TextSet(0, iHour, bWholeHours ? sHour : sHour + sMinutes);
        m_grd.AlignmentSet(0, iHour, Qt::AlignCenter);
    }
}

QString MainTable::TimeGet(int iHour) const
{
    const QString sLabel = m_grd.TextGet(0, iHour);
    return sLabel.contains(u':') ? sLabel : sLabel + QStringLiteral(":00");
}

void MainTable::CellMark(bool bMark)
{
    if (!GridPlace{m_marked.iFrequency, m_marked.iHour}.DataIs())
        return;
    m_grd.BoldSet(m_marked.iFrequency, m_marked.iHour, bMark);
    m_grd.FrameSet(m_marked.iFrequency, m_marked.iHour, bMark);
}

SelectedCell MainTable::Mark(SelectedCell cell)
{
    CellMark(false);
    if (cell.iFrequency >= m_grd.RowsGet())
        cell.iFrequency = -1;
    m_marked = cell;
    CellMark(true);
    return cell;
}

void MainTable::MouseMoved(int iRow, int iCol)
{
    QString sText;
    if (iRow == 0 && iCol >= 1) {
        // Under a time code that is neither, the text stays as it is.
        if (m_settings.m_iTimeCode == kTimeZulu)
            sText = QStringLiteral("Zulu Time (hh)");
        else if (m_settings.m_iTimeCode == kTimeLocal)
            sText = m_grd.TextGet(0, iCol).contains(u':') ? QStringLiteral("Local Time (hh:mm)")
                                                          : QStringLiteral("Local Time (hh)");
        else
            sText = m_grd.toolTip();
    } else if (iRow >= 1 && iCol == 0) {
        sText = QStringLiteral("Frequency (kHz)");
    } else if (iRow >= 1 && iCol >= 1) {
        sText = QStringLiteral("Signal-to-Noise (dB)");
    }
    m_grd.ToolTipRenew(sText);
}

QString MainTable::Speech(int iRow, int iCol) const
{
    const QString sZone =
        m_settings.m_iTimeCode == kTimeLocal ? QStringLiteral("Local") : QStringLiteral("Zulu");
    const QString sValue = m_grd.TextGet(iRow, iCol);
    return QStringLiteral("%1 kHz, %2 %3, %4")
               .arg(m_grd.TextGet(iRow, 0), m_grd.TextGet(0, iCol), sZone,
                    sValue.isEmpty() ? QObject::tr("no value") : sValue + QStringLiteral(" dB"))
           + (m_grd.CellGet(iRow, iCol).bMet ? QObject::tr(", meets the need") : QString());
}
