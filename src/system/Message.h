/// @file Message.h
/// What a message box says, as a value. Only windows and programs show boxes; the modules below
/// them add their messages to a list that the caller passes in. A caller that passes none wants no
/// messages.
///
/// Texts:   UTF-8; a single carriage return, a line feed or both break the line when shown.
/// Tests:   tests/system/MsgLibTest.cpp
#pragma once

#include <string>
#include <utility>
#include <vector>

enum class MsgIcon { None, Info, Exclamation };

struct Message {
    MsgIcon eIcon = MsgIcon::None;
    std::string sText;

    bool operator==(const Message&) const = default;
};

/// Messages in the order in which they are to be shown.
using Messages = std::vector<Message>;

/// Adds a message, if there is a list. @return false, for `return MessageFail(...)`.
inline bool MessageFail(Messages* paMessages, MsgIcon eIcon, std::string sText)
{
    if (paMessages != nullptr)
        paMessages->push_back({eIcon, std::move(sText)});
    return false;
}
