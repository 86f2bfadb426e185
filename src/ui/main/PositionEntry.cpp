#include "ui/main/PositionEntry.h"

#include <optional>

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

const NumberRange& RangeOf(std::size_t iField)
{
    return KindOf(iField) == LocationKind::Latitude ? kRangeLatitude : kRangeLongitude;
}

/// The fields' names at the beginning of a sentence.
constexpr std::array kFieldNames{QT_TRANSLATE_NOOP("PositionEntry", "Receiver latitude"),
                                 QT_TRANSLATE_NOOP("PositionEntry", "Receiver longitude"),
                                 QT_TRANSLATE_NOOP("PositionEntry", "Transmitter latitude"),
                                 QT_TRANSLATE_NOOP("PositionEntry", "Transmitter longitude")};

/// @param paMessages  receives why the text cannot be decoded
std::optional<double> Decoded(std::size_t iField, const LocationField& field,
                              Messages* paMessages = nullptr)
{
    const std::string sText = field.text().toStdString();
    double dTaken = 0.0;
    const bool bOk = KindOf(iField) == LocationKind::Latitude
                         ? TextToLatitude(sText, dTaken, paMessages)
                         : TextToLongitude(sText, dTaken, paMessages);
    return bOk ? std::optional<double>(dTaken) : std::nullopt;
}

/// The settings behind the fields, in the fields' order.
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
        connect(pField, &QLineEdit::returnPressed, this, &PositionEntry::Entered);
        connect(pField, &LocationField::Hinted, this, &PositionEntry::Hinted);
        if (i >= 2)
            connect(pField, &QLineEdit::textChanged, this, &PositionEntry::TransmitterChanged);
        m_asShown[i] = pField->text();
    }
}

void PositionEntry::Show(const Settings& settings)
{
    Settings shown = settings;
    const auto apValue = ValuesOf(shown);
    for (std::size_t i = 0; i < m_apField.size(); ++i) {
        m_apField[i]->TextSet(LocationToText(KindOf(i), *apValue[i]));
        m_asShown[i] = m_apField[i]->text();
        m_adShown[i] = *apValue[i];
    }
}

bool PositionEntry::FieldWaits(std::size_t iField) const
{
    return m_apField[iField]->text() != m_asShown[iField];
}

bool PositionEntry::WaitingIs() const
{
    for (std::size_t i = 0; i < m_apField.size(); ++i)
        if (FieldWaits(i))
            return true;
    return false;
}

void PositionEntry::RowDrop(int iRow)
{
    const auto iFirst = static_cast<std::size_t>(2 * iRow);
    for (const std::size_t i : {iFirst, iFirst + 1}) m_asShown[i] = m_apField[i]->text();
}

void PositionEntry::RowsDrop()
{
    for (const int iRow : {0, 1}) RowDrop(iRow);
}

void PositionEntry::WaitingTake(Settings& settings)
{
    const auto apValue = ValuesOf(settings);
    for (std::size_t iRow = 0; iRow < m_apField.size(); iRow += 2) {
        if (*apValue[iRow] != m_adShown[iRow] || *apValue[iRow + 1] != m_adShown[iRow + 1])
            continue;
        for (const std::size_t i : {iRow, iRow + 1}) {
            const auto dTaken = FieldWaits(i) ? Decoded(i, *m_apField[i]) : std::nullopt;
            if (dTaken && RangeOf(i).Holds(*dTaken))
                *apValue[i] = *dTaken;
        }
    }
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
    Messages aMessages;
    const auto dTaken = Decoded(iField, field, &aMessages);
    if (!dTaken) {
        MsgShow(aMessages);
        return false;
    }
    const NumberRange& range = RangeOf(iField);
    if (!range.Holds(*dTaken)) {
        const QString sMost = QString::fromStdString(NumberToText(range.dMost));
        const QString sWhy = tr("%1 is out of range, %2° at most").arg(field.text(), sMost);
        field.MarkSet(sWhy);
        Q_EMIT Refused(tr("%1 %2").arg(tr(kFieldNames.at(iField)), sWhy));
        return false;
    }
    dValue = *dTaken;
    m_adShown[iField] = dValue;  // entered by the user, not set by a command
    return true;
}
