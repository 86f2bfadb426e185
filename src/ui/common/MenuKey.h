/// @file MenuKey.h
/// Shift+F10 as the menu key, which many keyboards lack: opens the context menu of what has the
/// focus, in every window. Windows does so by itself.
///
/// Tests:   tests/ui/program/KeyboardTest.cpp
#pragma once

class QApplication;

/// Once, at the start of the program.
void MenuKeyInstall(QApplication& app);
