/// @file ProgramRig.h
/// The whole program on the built-in engine, with stations, own places and a guide, and each of its
/// windows as a user opens it.
#pragma once

#include <string>
#include <vector>

#include "ui/plan/PlanRig.h"

/// A window by the name under which lists have it.
struct ProgramWindow {
    std::string sName;
    QWidget* pWidget;
};

class ProgramRig : public PlanRig {
public:
    /// A circuit whose table has values below zero.
    ProgramRig();
    ~ProgramRig();

    /// All windows of the program, open and with their contents: the main window, the tabs of the
    /// options one by one, the other windows, the menus that open beside them, a message box.
    [[nodiscard]] std::vector<ProgramWindow> WindowsOpen();

private:
    QWidget* Kept(QWidget* pWidget);
    void PlanOpen(std::vector<ProgramWindow>& aWindow);
    void MenusOpen(std::vector<ProgramWindow>& aWindow);
    std::vector<QPointer<QWidget>> m_apKept;  ///< windows that are not the main window's
};
