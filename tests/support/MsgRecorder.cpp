#include "support/MsgRecorder.h"

#include <gtest/gtest.h>

#include <utility>

MsgRecorder::MsgRecorder()
{
    m_fnBefore = MsgSetHandler([this](MsgIcon eIcon, const std::string& sText) {
        m_aShown.push_back({eIcon, sText});
    });
}

MsgRecorder::~MsgRecorder() { MsgSetHandler(std::move(m_fnBefore)); }

void MsgUnexpectedFails()
{
    MsgSetHandler([](MsgIcon, const std::string& sText) {
        ADD_FAILURE() << "unexpected message box: " << sText;
    });
}
