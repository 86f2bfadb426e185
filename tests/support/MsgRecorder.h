/// @file MsgRecorder.h
/// Records message boxes while it exists; at any other time a box fails the test at once.
#pragma once

#include <string>
#include <vector>

#include "system/MsgLib.h"

using MsgShown = Message;

/// Receives the messages of one call, as a caller that wants them does. When the call is over it
/// shows them as boxes, so a MsgRecorder gets them and an unexpected one fails the test.
class CallMessages {
public:
    /// @param bWanted  false: like a caller that wants no messages
    explicit CallMessages(bool bWanted = true) : m_bWanted(bWanted) {}
    ~CallMessages() { MsgShow(m_aMessages); }
    CallMessages(const CallMessages&) = delete;
    CallMessages& operator=(const CallMessages&) = delete;

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

/// Makes an unexpected box fail the running test; called by both test mains.
void MsgUnexpectedFails();
