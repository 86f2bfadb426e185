/// @file PlanWindow.h
/// What the planning windows have in common: the line at their foot that says what the numbers are,
/// the row of Copy, Export and Print, Escape, and the place where the window stood last.
///
/// Keys:    Escape stops the work under way, pressed again it closes the window. Ctrl+P prints.
/// Errors:  told in a box.
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
    /// @param host   outlives the window
    /// @param eName  under which the profile keeps the place
    PlanWindow(PlanHost& host, PlanName eName, const QString& sTitle);

    /// Everything that the window shows, as a page.
    [[nodiscard]] virtual Page PageGet() const = 0;
    /// Paper and looks for Export and Print; wide pages go on their side.
    [[nodiscard]] virtual PageForm FormGet() const;
    /// Copies the page's table, and its picture where it has one.
    void Copy();
    void Export();
    void Print();

    QLabel* lblFoot;  ///< what the numbers are
    QPushButton* cmdCopy;
    QPushButton* cmdExport;
    QPushButton* cmdPrint;

protected:
    /// Ends the innermost thing under way. @return false when there is none
    virtual bool WorkStop() { return false; }
    /// The file that Export proposes.
    [[nodiscard]] virtual QString FileNameGet() const;
    /// The need in force, also where none is chosen.
    [[nodiscard]] Need NeedGet() const;
    void FootSet(const std::string& sFoot);
    [[nodiscard]] QVBoxLayout& ContentGet() { return *m_pContent; }
    [[nodiscard]] PlanHost& HostGet() const { return m_host; }
    /// Left of the buttons.
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
