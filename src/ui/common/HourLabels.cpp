#include "ui/common/HourLabels.h"

#include <QObject>
#include <cmath>

#include "system/ClockLib.h"
#include "system/NumberLib.h"

namespace {

constexpr int kMinutesOfHour = 60;
constexpr int kMinutesOfDay = 24 * kMinutesOfHour;
constexpr int kMinutesOfQuarter = 15;

QString TwoDigits(int n)
{
    return QString::fromStdString(NumberFormat(static_cast<double>(n), "00"));
}

/// Minutes by which the labels are ahead of UTC. Time zones are whole quarters of an hour; any rest
/// comes from reading the two clocks at different moments.
int MinuteOffset(int iTimeCode)
{
    if (iTimeCode != kTimeLocal)
        return 0;
    const auto dMinutes = static_cast<double>(MinuteBoundaries(UtcNow(), LocalNow()));
    return kMinutesOfQuarter * static_cast<int>(std::lround(dMinutes / kMinutesOfQuarter));
}

}  // namespace

HourLabels HourLabelsGet(int iTimeCode)
{
    const int nOffset = MinuteOffset(iTimeCode);
    const bool bWholeHours = nOffset % kMinutesOfHour == 0;
    HourLabels asHour;
    int nMinute = (nOffset + kMinutesOfDay) % kMinutesOfDay;
    for (QString& sHour : asHour) {
        sHour = TwoDigits(nMinute / kMinutesOfHour);
        if (!bWholeHours)
            sHour += u':' + TwoDigits(nMinute % kMinutesOfHour);
        nMinute = (nMinute + kMinutesOfHour) % kMinutesOfDay;
    }
    return asHour;
}

QString HourZoneGet(int iTimeCode)
{
    return iTimeCode == kTimeLocal ? QObject::tr("Local") : QObject::tr("Zulu");
}

QString HourTimeGet(const QString& sLabel)
{
    return sLabel.contains(u':') ? sLabel : sLabel + QStringLiteral(":00");
}
