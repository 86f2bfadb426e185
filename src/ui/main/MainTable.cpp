#include "ui/main/MainTable.h"

#include "propagation/PropagationTable.h"
#include "ui/common/GridControl.h"
#include "ui/common/GridCorner.h"
#include "ui/common/HourLabels.h"

MainTable::MainTable(GridControl& grd, const Settings& settings) : m_grd(grd), m_settings(settings)
{
    m_grd.ContentLimitSet(true);
    m_grd.SpeechSet([this](int iRow, int iCol) { return Speech(iRow, iCol); });
    new GridCorner(m_grd, {});
    QObject::connect(&m_grd, &GridControl::MouseMoved, &m_grd,
                     [this](int iRow, int iCol) { MouseMoved(iRow, iCol); });
}

void MainTable::HoursLayout()
{
    m_grd.ColsSet(kHourCount + 1);
    const QFontMetrics metrics = m_grd.window()->fontMetrics();
    m_grd.ColWidthSet(0, metrics.horizontalAdvance(QStringLiteral("-30000-")));
    const HourLabels asHour = HourLabelsGet(m_settings.m_iTimeCode);
    const bool bMinutes = asHour.front().contains(u':');
    const int nWidth =
        metrics.horizontalAdvance(bMinutes ? QStringLiteral("-00:00") : QStringLiteral("---00"));
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        m_grd.ColWidthSet(iHour, nWidth);
        m_grd.TextSet(0, iHour, asHour.at(static_cast<std::size_t>(iHour) - 1));
        m_grd.AlignmentSet(0, iHour, Qt::AlignCenter);
    }
}

QString MainTable::TimeGet(int iHour) const { return HourTimeGet(m_grd.TextGet(0, iHour)); }

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
        // With a time code that is neither, the text stays as it is.
        if (m_settings.m_iTimeCode == kTimeZulu)
            sText = QObject::tr("Zulu Time (hh)");
        else if (m_settings.m_iTimeCode == kTimeLocal)
            sText = m_grd.TextGet(0, iCol).contains(u':') ? QObject::tr("Local Time (hh:mm)")
                                                          : QObject::tr("Local Time (hh)");
        else
            sText = m_grd.toolTip();
    } else if (iRow >= 1 && iCol == 0) {
        sText = QObject::tr("Frequency (kHz)");
    } else if (iRow >= 1 && iCol >= 1) {
        sText = QObject::tr("Signal-to-Noise (dB)");
    }
    m_grd.ToolTipRenew(sText);
}

QString MainTable::Speech(int iRow, int iCol) const
{
    const QString sValue = m_grd.TextGet(iRow, iCol);
    return QObject::tr("%1 kHz, %2 %3, %4")
               .arg(m_grd.TextGet(iRow, 0), m_grd.TextGet(0, iCol),
                    HourZoneGet(m_settings.m_iTimeCode),
                    sValue.isEmpty() ? QObject::tr("no value") : QObject::tr("%1 dB").arg(sValue))
           + (m_grd.CellGet(iRow, iCol).bMet ? QObject::tr(", meets the need") : QString());
}
