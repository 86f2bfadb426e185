#include "system/MsgLib.h"

#include <cstdio>
#include <utility>

namespace {

MsgBoxFn& HandlerGet()
{
    static MsgBoxFn fnHandler;
    return fnHandler;
}

}  // namespace

void MsgBox(MsgIcon eIcon, const std::string& sText)
{
    if (const MsgBoxFn& fnHandler = HandlerGet())
        fnHandler(eIcon, sText);
    else
        std::fprintf(stderr, "%s\n", sText.c_str());
}

bool MsgShow(const Messages& aMessages)
{
    for (const Message& message : aMessages) MsgBox(message.eIcon, message.sText);
    return aMessages.empty();
}

MsgBoxFn MsgSetHandler(MsgBoxFn fnShow) { return std::exchange(HandlerGet(), std::move(fnShow)); }
