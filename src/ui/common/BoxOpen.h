/// @file BoxOpen.h
/// Boxes whose callers wait for their end: message boxes and file dialogs. While one is open no
/// window may be deleted: the caller may be a part of it.
///
/// Threads: the windows' one.
/// Tests:   tests/ui/common/MsgWindowTest.cpp, tests/ui/main/FrmMainBusyTest.cpp
#pragma once

/// Lives as long as its box.
class BoxOpen {
public:
    BoxOpen();
    ~BoxOpen();
    BoxOpen(const BoxOpen&) = delete;
    BoxOpen& operator=(const BoxOpen&) = delete;

    /// One is open.
    [[nodiscard]] static bool Is() { return s_nOpen > 0; }

private:
    static int s_nOpen;
};
