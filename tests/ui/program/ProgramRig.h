/// @file ProgramRig.h
/// The whole program with the built-in engine, stations, own places and a guide, and each of its
/// windows as a user opens it.
#pragma once

#include <string>
#include <vector>

#include "ui/plan/PlanRig.h"

/// A window and its name in lists.
struct ProgramWindow {
    std::string sName;
    QWidget* pWidget;
};

class ProgramRig : public PlanRig {
public:
    /// Starts with a circuit whose table has values below zero.
    ProgramRig();
    ~ProgramRig();

    /// All windows of the program, open and filled: the main window, each tab of the options, the
    /// other windows, the menus beside them, a message box.
    [[nodiscard]] std::vector<ProgramWindow> WindowsOpen();

private:
    QWidget* Kept(QWidget* pWidget);
    void PlanOpen(std::vector<ProgramWindow>& aWindow);
    void MenusOpen(std::vector<ProgramWindow>& aWindow);
    std::vector<QPointer<QWidget>> m_apKept;  ///< windows that do not belong to the main window
};
