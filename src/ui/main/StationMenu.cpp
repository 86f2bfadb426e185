#include "ui/main/StationMenu.h"

#include "airmail/AirMailLib.h"
#include "geo/BearingLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr std::size_t kHam = 0;
constexpr std::size_t kSailMail = 1;
constexpr std::size_t kOther = 2;

/// A caption as shown: "&" is an ordinary character here, not a mnemonic.
QString CaptionShown(const Station& station)
{
    return QString::fromStdString(TextForMessage(station.sKey + " - " + station.sName))
        .replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

StationMenu::StationMenu(QWidget* pTips) : QMenu(pTips), m_pTips(pTips)
{
    setObjectName(QStringLiteral("mnuTransmitter"));
    setTitle(tr("Transmitter"));
    mnuTransmitterHam =
        BranchAdd(m_aBranches[kHam], tr("Ham"), QStringLiteral("mnuTransmitterHam"));
    mnuTransmitterSailMail =
        BranchAdd(m_aBranches[kSailMail], tr("SailMail"), QStringLiteral("mnuTransmitterSailMail"));
    mnuTransmitterOther =
        BranchAdd(m_aBranches[kOther], tr("Other"), QStringLiteral("mnuTransmitterOther"));
}

QMenu* StationMenu::BranchAdd(Branch& branch, const QString& sCaption, const QString& sName)
{
    branch.pMenu = addMenu(sCaption);
    branch.pMenu->setObjectName(sName);
    // One scrolling column: by default Qt breaks long lists into columns wider than the screen.
    branch.pMenu->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));
    branch.pMenu->menuAction()->setEnabled(false);
    branch.aItems.push_back(ItemMake(branch, 0));
    branch.aItems[0]->setText(tr("Station"));
    branch.aItems[0]->setEnabled(false);  // no station yet
    return branch.pMenu;
}

StationMenu::Branch& StationMenu::BranchOf(const std::string& sSystem)
{
    const std::string sType = TextUpper(sSystem);
    if (sType == "HAM")
        return m_aBranches[kHam];
    return m_aBranches[sType == "SAILMAIL" ? kSailMail : kOther];
}

void StationMenu::ReceiverSet(double dLat, double dLon)
{
    m_dRcLat = dLat;
    m_dRcLon = dLon;
}

bool StationMenu::Build()
{
    int nSystems = 0;
    TextList asSystem;
    Messages aMessages;
    if (!AirMailGetSystems(nSystems, asSystem, &aMessages))
        return MsgShow(aMessages);
    for (Branch& branch : m_aBranches) {
        branch.aStations.clear();
        branch.pMenu->menuAction()->setEnabled(false);
    }
    for (int i = 1; i <= nSystems; ++i) {
        Branch& branch = BranchOf(asSystem[i]);
        int nKeys = 0;
        TextList asKey;
        const bool bRead = AirMailGetStations(asSystem[i], nKeys, asKey, &aMessages);
        branch.pMenu->menuAction()->setEnabled(bRead);
        for (int j = 1; bRead && j <= nKeys; ++j)
            branch.aStations.push_back(
                {asSystem[i], asKey[j], AirMailStationDescription(asSystem[i], asKey[j], nullptr)});
    }
    for (Branch& branch : m_aBranches) ItemsLayout(branch);
    MsgShow(aMessages);
    return true;
}

void StationMenu::ItemsLayout(Branch& branch)
{
    for (std::size_t n = 0; n < branch.aStations.size(); ++n) {
        if (n == branch.aItems.size())
            branch.aItems.push_back(ItemMake(branch, n));
        QAction* pItem = branch.aItems[n];
        pItem->setText(CaptionShown(branch.aStations[n]));
        // Set now: changing an item while its menu is open would make the menu as long as its list.
        pItem->setStatusTip(Tip(branch.aStations[n]));
        pItem->setEnabled(true);
        pItem->setVisible(true);
    }
    for (std::size_t n = branch.aStations.size(); n < branch.aItems.size(); ++n)
        branch.aItems[n]->setVisible(false);
}

QAction* StationMenu::ItemMake(Branch& branch, std::size_t n)
{
    // Tips go to an item's parent: the window with the status line.
    auto* pItem = new QAction(m_pTips);
    pItem->setObjectName(branch.pMenu->objectName() + QStringLiteral("Station")
                         + QString::number(n));
    branch.pMenu->addAction(pItem);
    connect(pItem, &QAction::triggered, this,
            [this, &branch, n] { Q_EMIT StationChosen(branch.aStations.at(n)); });
    return pItem;
}

QString StationMenu::Tip(const Station& station) const
{
    const std::string sEntry =
        AirMailIniGet("System." + station.sSystem + ".ini", "Station Info", station.sKey, nullptr);
    std::string sGrid = sEntry.substr(0, sEntry.find(':'));
    const QString sShown = QString::fromStdString(TextForMessage(sGrid));
    double dLat = 0.0;
    double dLon = 0.0;
    if (sEntry.find(':') == std::string::npos || !GridSquareToPosition(sGrid, dLat, dLon, nullptr))
        return tr("No position known");
    const double dBearing = BearingGet(m_dRcLat, m_dRcLon, dLat, dLon);
    return tr("Grid square %1, bearing %2° from the receiver")
        .arg(sShown, QString::fromStdString(NumberFormat(dBearing, "0")));
}
