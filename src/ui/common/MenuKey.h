/// @file MenuKey.h
/// Shift+F10 as the menu key, which many keyboards lack: opens the context menu of the focused
/// widget in every window. Windows does this by itself.
///
/// Tests:   tests/ui/program/KeyboardTest.cpp
#pragma once

class QApplication;

/// Call once, at the program's start.
void MenuKeyInstall(QApplication& app);
