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

MsgListener::MsgListener(bool bShow)
{
    m_fnBefore = MsgSetHandler([this, bShow](MsgIcon eIcon, const std::string& sText) {
        ++m_nCount;
        m_sLast = sText;
        if (bShow && m_fnBefore)
            m_fnBefore(eIcon, sText);
    });
}

MsgListener::~MsgListener() { MsgSetHandler(std::move(m_fnBefore)); }
