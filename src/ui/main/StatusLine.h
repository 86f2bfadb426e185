/// @file StatusLine.h
/// The main window's status line: what went wrong last and what to do about it, or else the best
/// frequency of this hour; then what the table was made with, which stays readable beside it. A
/// warning takes the room that the best frequency leaves.
///
/// Texts:   one line each; the tooltips have all of what the line has no room for.
/// Tests:   tests/ui/main/FrmMainStatusTest.cpp
#pragma once

#include <QObject>
#include <string>

class ElidedLabel;
class QStatusBar;
class QWidget;

class StatusLine final : public QObject {
    Q_OBJECT
public:
    StatusLine(QStatusBar& bar, QObject* pParent);

    /// Puts a widget at the right end, beside what is in force.
    void RightSet(QWidget& widget);
    /// A run begins: what was said of keys, of a position and of the overlay is over.
    void RunBegin();
    void TroubleSet(const std::string& sTrouble) { m_sTrouble = sTrouble; }
    void OverlayTroubleSet(const std::string& sTrouble) { m_sOverlayTrouble = sTrouble; }
    /// Why a position was refused, until it is edited; empty for none.
    void RefusedSet(const std::string& sRefused) { m_sRefused = sRefused; }
    /// What is worth knowing while nothing went wrong; empty for nothing.
    void WarningSet(const std::string& sWarning) { m_sWarning = sWarning; }
    /// Told once, by the next Show that has nothing worse to tell.
    void NoticeSet(const std::string& sNotice) { m_sNotice = sNotice; }
    /// @return false when it says so already
    bool HintSet(const std::string& sHint);
    /// @param sInForce  what the table that is shown was made with
    /// @param sShort    the same for little room
    /// @param sDetail   further lines of its tooltip, or empty
    void Show(const std::string& sInForce, const std::string& sShort,
              const std::string& sDetail = {});
    /// What is said while nothing went wrong; empty for nothing.
    void BestSet(const std::string& sBest);

    ElidedLabel* lblTrouble;
    ElidedLabel* lblBest;
    ElidedLabel* lblInForce;

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void RoomShare();
    [[nodiscard]] std::string TroubleTake();

    QStatusBar& m_bar;
    QWidget* m_pRight = nullptr;
    std::string m_sTrouble;         ///< of the last run, empty when all of it succeeded
    std::string m_sHint;            ///< on the last key or paste, until the next one or a run
    std::string m_sRefused;         ///< a position, since the button was pressed
    std::string m_sOverlayTrouble;  ///< of the map's overlay since the last run began
    std::string m_sNotice;
    std::string m_sWarning;
    bool m_bWarning = false;  ///< the warning is what is said
};
