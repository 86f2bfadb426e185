#include "ui/main/PositionEntry.h"

#include "geo/MathLib.h"
#include "settings/SettingsRange.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "ui/common/LocationField.h"

namespace {

LocationKind KindOf(std::size_t iField)
{
    return iField % 2 == 0 ? LocationKind::Latitude : LocationKind::Longitude;
}

/// The settings that the fields stand for, in the fields' order.
std::array<double*, 4> ValuesOf(Settings& settings)
{
    return {&settings.m_dRcLat, &settings.m_dRcLon, &settings.m_dTxLat, &settings.m_dTxLon};
}

}  // namespace

PositionEntry::PositionEntry(const Fields& apField, QObject* pParent)
    : QObject(pParent), m_apField(apField)
{
    for (std::size_t i = 0; i < m_apField.size(); ++i) {
        LocationField* pField = m_apField[i];
        pField->KindSet(KindOf(i));
        pField->PairSet(m_apField[i ^ 1U]);
        connect(pField, &LocationField::Edited, this, [this, pField] {
            pField->MarkSet({});
            Q_EMIT Edited();
        });
        connect(pField, &LocationField::Hinted, this, &PositionEntry::Hinted);
        if (i >= 2)
            connect(pField, &QLineEdit::textChanged, this, &PositionEntry::TransmitterChanged);
    }
}

void PositionEntry::Show(const Settings& settings)
{
    Settings shown = settings;
    const auto apValue = ValuesOf(shown);
    for (std::size_t i = 0; i < m_apField.size(); ++i)
        m_apField[i]->TextSet(LocationToText(KindOf(i), *apValue[i]));
}

bool PositionEntry::Take(Settings& settings)
{
    const auto apValue = ValuesOf(settings);
    for (std::size_t i = 0; i < m_apField.size(); ++i)
        if (!FieldTake(i, *apValue[i]))
            return false;
    return true;
}

bool PositionEntry::FieldTake(std::size_t iField, double& dValue)
{
    LocationField& field = *m_apField[iField];
    const std::string sText = field.text().toStdString();
    const bool bLat = KindOf(iField) == LocationKind::Latitude;
    double dTaken = 0.0;
    Messages aMessages;
    if (!(bLat ? TextToLatitude(sText, dTaken, &aMessages)
               : TextToLongitude(sText, dTaken, &aMessages)))
        return MsgShow(aMessages);
    const NumberRange& range = bLat ? kRangeLatitude : kRangeLongitude;
    if (!range.Holds(dTaken)) {
        const QString sWhy =
            QString::fromStdString(sText + " lies beyond " + NumberToText(range.dMost) + "°");
        field.MarkSet(sWhy);
        Q_EMIT Refused(field.accessibleName() + QLatin1Char(' ') + sWhy);
        return false;
    }
    dValue = dTaken;
    return true;
}
