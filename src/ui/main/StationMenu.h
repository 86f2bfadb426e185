/// @file StationMenu.h
/// The menu of Airmail's stations: Ham, SailMail and Other, each with one item per station.
///
/// Errors:  for each station file that cannot be read the Airmail reader shows a message box.
/// Tests:   tests/ui/main/FrmMainStationsTest.cpp
#pragma once

#include <QMenu>
#include <array>
#include <string>
#include <vector>

/// A station and the list that it comes from.
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

    /// Fills the menu from Airmail's lists. Items are reused by position; surplus ones are hidden.
    /// A submenu is enabled if the last list of its kind could be read.
    /// @return false when Airmail has no lists, which a message box has reported; do not show the
    /// menu then
    bool Build();
    /// The receiver in degrees; the tips give the bearing from there.
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
