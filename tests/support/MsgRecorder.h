/// @file MsgRecorder.h
/// Records message boxes while it lives; outside of it any box fails the test at once.
#pragma once

#include <string>
#include <vector>

#include "system/MsgLib.h"

using MsgShown = Message;

/// The messages of one call, as a caller that wants them hands them in; shown as boxes when the
/// call is over, so that a MsgRecorder has them and an unexpected one fails the test.
class Told {
public:
    /// @param bWanted  false: as a caller that wants silence
    explicit Told(bool bWanted = true) : m_bWanted(bWanted) {}
    ~Told() { MsgShow(m_aMessages); }
    Told(const Told&) = delete;
    Told& operator=(const Told&) = delete;

    operator Messages*() { return m_bWanted ? &m_aMessages : nullptr; }  // NOLINT
    operator Messages&() { return m_aMessages; }                         // NOLINT

private:
    bool m_bWanted;
    Messages m_aMessages;
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
