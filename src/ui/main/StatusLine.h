/// @file StatusLine.h
/// The main window's status line: what last went wrong and what to do about it, otherwise the best
/// frequency of this hour; then what the table was made with, which always stays readable. A
/// warning takes the room beside the best frequency.
///
/// Texts:   one line each; the tooltips have the full texts.
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

    /// Puts a widget at the right end.
    void RightSet(QWidget& widget);
    /// Call when a run begins: clears the messages about keys, positions and the overlay.
    void RunBegin();
    void TroubleSet(const std::string& sTrouble) { m_sTrouble = sTrouble; }
    void OverlayTroubleSet(const std::string& sTrouble) { m_sOverlayTrouble = sTrouble; }
    /// Why a position was refused, shown until it is edited; empty for none.
    void RefusedSet(const std::string& sRefused) { m_sRefused = sRefused; }
    /// What is worth knowing while nothing has gone wrong; empty for nothing.
    void WarningSet(const std::string& sWarning) { m_sWarning = sWarning; }
    /// A notice that the next Show displays once, unless a failure is shown.
    void NoticeSet(const std::string& sNotice) { m_sNotice = sNotice; }
    /// @return false if that hint is already shown
    bool HintSet(const std::string& sHint);
    /// @param sInForce  what the table that is shown was made with
    /// @param sShort    the same for little room
    /// @param sDetail   further lines of its tooltip, or empty
    void Show(const std::string& sInForce, const std::string& sShort,
              const std::string& sDetail = {});
    /// The text shown while nothing has gone wrong; empty for nothing.
    void BestSet(const std::string& sBest);

    ElidedLabel* lblTrouble;
    ElidedLabel* lblBest;
    ElidedLabel* lblInForce;

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void WidthShare();
    [[nodiscard]] std::string TroubleTake();

    QStatusBar& m_bar;
    QWidget* m_pRight = nullptr;
    std::string m_sTrouble;         ///< of the last run; empty if it fully succeeded
    std::string m_sHint;            ///< about the last key or paste, until the next one or a run
    std::string m_sRefused;         ///< a position, since Update was pressed
    std::string m_sOverlayTrouble;  ///< of the map's overlay since the last run began
    std::string m_sNotice;
    std::string m_sWarning;
    bool m_bWarning = false;  ///< the text shown is the warning
};
