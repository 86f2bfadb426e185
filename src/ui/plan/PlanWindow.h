/// @file PlanWindow.h
/// What the planning windows have in common: the foot line that says what the numbers are, the
/// buttons Copy, Export and Print, Escape, and the window's last place.
///
/// Keys:    Escape stops the work in progress; pressed again, it closes the window. Ctrl+P prints.
/// Errors:  shown in a message box.
/// Tests:   tests/ui/plan/FrmReachTest.cpp, FrmPlacesTest.cpp
#pragma once

#include <QWidget>

#include "settings/WindowData.h"
#include "ui/page/PageFile.h"
#include "ui/plan/PlanHost.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

class PlanWindow : public QWidget {
    Q_OBJECT
public:
    /// @param host   must outlive the window
    /// @param eName  the window's place in the profile
    PlanWindow(PlanHost& host, PlanName eName, const QString& sTitle);

    /// Everything that the window shows, as a page.
    [[nodiscard]] virtual Page PageGet() const = 0;
    /// Paper and looks for Export and Print; wide pages are landscape.
    [[nodiscard]] virtual PageForm FormGet() const;
    /// Copies the page's table, and its picture where it has one.
    void Copy();
    void Export();
    void Print();

    QLabel* lblFoot;  ///< says what the numbers are
    QPushButton* cmdCopy;
    QPushButton* cmdExport;
    QPushButton* cmdPrint;

protected:
    /// Stops the innermost work in progress.
    /// @return false if there is none
    virtual bool WorkStop() { return false; }
    /// The file that Export proposes.
    [[nodiscard]] virtual QString FileNameGet() const;
    /// The need in force, even when none is chosen.
    [[nodiscard]] Need NeedGet() const;
    void FootSet(const std::string& sFoot);
    [[nodiscard]] QVBoxLayout& ContentGet() { return *m_pContent; }
    [[nodiscard]] PlanHost& HostGet() const { return m_host; }
    /// The row's part to the left of the buttons.
    [[nodiscard]] QHBoxLayout& ButtonRowGet() { return *m_pButtons; }

    void keyPressEvent(QKeyEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;

private:
    PlanHost& m_host;
    PlanName m_eName;
    QVBoxLayout* m_pContent;
    QHBoxLayout* m_pButtons;
    bool m_bPlaced = false;
};
