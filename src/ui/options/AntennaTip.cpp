#include "ui/options/AntennaTip.h"

#include <QObject>
#include <array>
#include <string>

#include "propagation/PowerTable.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "settings/Settings.h"

namespace {

using Entries = std::array<const char*, 3>;

constexpr Entries kOfVoacap{QT_TRANSLATE_NOOP("QObject", "antennas with gain at both ends"),
                            QT_TRANSLATE_NOOP("QObject", "station with gain, boat with whip"),
                            QT_TRANSLATE_NOOP("QObject", "whips at both ends")};
/// Each caption means the next one of VOACAP's; the last means no antennas, as in REC533's cards.
constexpr Entries kOfRec533{QT_TRANSLATE_NOOP("QObject", "station with gain, boat with whip"),
                            QT_TRANSLATE_NOOP("QObject", "whips at both ends"),
                            QT_TRANSLATE_NOOP("QObject", "antennas without gain")};

}  // namespace

QString AntennaTipGet(int iModel)
{
    const EngineProgram* pEngine = EngineFind(iModel);
    if (pEngine == nullptr)
        return {};
    QString sTip = QObject::tr("With %1, in this order:")
                       .arg(QString::fromStdString(std::string(pEngine->sName)));
    int iType = 0;
    for (const char* sEntry : iModel == kEngineRec533 ? kOfRec533 : kOfVoacap)
        sTip += QStringLiteral("\n%1, %2")
                    .arg(QObject::tr(sEntry), QString::fromStdString(PowerText(CardPowerGet(
                                                  iModel, iType++, DeckKind::PointToPoint))));
    return sTip;
}
