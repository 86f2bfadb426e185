/// @file BoxOpen.h
/// Marks that a box whose caller waits for the answer is open: a message box or a file dialog.
/// Meanwhile no window may be deleted, since the waiting caller may belong to it.
///
/// Threads: the windows' thread.
/// Tests:   tests/ui/common/MsgWindowTest.cpp, tests/ui/main/FrmMainBusyTest.cpp
#pragma once

/// One exists for as long as its box is open.
class BoxOpen {
public:
    BoxOpen();
    ~BoxOpen();
    BoxOpen(const BoxOpen&) = delete;
    BoxOpen& operator=(const BoxOpen&) = delete;

    /// True while any such box is open.
    [[nodiscard]] static bool Exists() { return s_nOpen > 0; }

private:
    static int s_nOpen;
};
