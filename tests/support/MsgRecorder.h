/// @file MsgRecorder.h
/// Records message boxes while it lives; outside of it any box fails the test at once.
#pragma once

#include <string>
#include <vector>

#include "system/MsgLib.h"

struct MsgShown {
    MsgIcon eIcon;
    std::string sText;
};

class MsgRecorder {
public:
    MsgRecorder();
    ~MsgRecorder();
    MsgRecorder(const MsgRecorder&) = delete;
    MsgRecorder& operator=(const MsgRecorder&) = delete;

    std::vector<MsgShown> m_aShown;

private:
    MsgBoxFn m_fnBefore;
};

/// Makes an unexpected box a failure of the running test; both test mains call it.
void MsgUnexpectedFails();
