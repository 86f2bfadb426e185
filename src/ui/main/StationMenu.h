/// @file StationMenu.h
/// The pop-up tree of Airmail's stations: Ham, SailMail and Other, each with one item per station.
///
/// Errors:  station files that cannot be read are told by the Airmail reader, one box each.
/// Tests:   tests/ui/main/FrmMainStationsTest.cpp
#pragma once

#include <QMenu>
#include <array>
#include <string>
#include <vector>

/// A station and the list it is from.
struct Station {
    std::string sSystem;
    std::string sKey;
    std::string sName;
};

class StationMenu final : public QMenu {
    Q_OBJECT
public:
    /// @param pTips  the window whose status line shows the items' tips
    explicit StationMenu(QWidget* pTips);

    /// Fills the tree from Airmail's lists. Items are reused by their place; those beyond a list
    /// are hidden. A submenu is available when the last list of its kind could be read.
    /// @return false when Airmail has no lists (told by a box); the menu is not to be shown.
    bool Build();
    /// The receiver, degrees: tips tell the bearing from there.
    void ReceiverSet(double dLat, double dLon);

    QMenu* mnuTransmitterHam;
    QMenu* mnuTransmitterSailMail;
    QMenu* mnuTransmitterOther;

Q_SIGNALS:
    void StationChosen(const Station& station);

private:
    struct Branch {
        QMenu* pMenu = nullptr;
        std::vector<QAction*> aItems;
        std::vector<Station> aStations;
    };
    QMenu* BranchAdd(Branch& branch, const QString& sCaption, const QString& sName);
    Branch& BranchOf(const std::string& sSystem);
    void ItemsLayout(Branch& branch);
    QAction* ItemMake(Branch& branch, std::size_t n);
    [[nodiscard]] QString Tip(const Station& station) const;

    QWidget* m_pTips;
    std::array<Branch, 3> m_aBranches;
    double m_dRcLat = 0.0;
    double m_dRcLon = 0.0;
};
