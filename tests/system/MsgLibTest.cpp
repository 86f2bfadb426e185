#include <gtest/gtest.h>

#include "support/MsgRecorder.h"
#include "system/MsgLib.h"

namespace {

TEST(MsgBox, ReachesTheHandlerInForce)
{
    MsgRecorder msg;
    MsgBox(MsgIcon::Info, "one");
    EXPECT_FALSE(MsgFail(MsgIcon::Exclamation, "two"));
    ASSERT_EQ(msg.m_aShown.size(), 2u);
    EXPECT_EQ(msg.m_aShown[0].eIcon, MsgIcon::Info);
    EXPECT_EQ(msg.m_aShown[0].sText, "one");
    EXPECT_EQ(msg.m_aShown[1].eIcon, MsgIcon::Exclamation);
    EXPECT_EQ(msg.m_aShown[1].sText, "two");
}

TEST(MsgBox, GoesToStandardErrorWithoutAHandler)
{
    MsgBoxFn fnBefore = MsgSetHandler({});
    testing::internal::CaptureStderr();
    MsgBox(MsgIcon::None, "nobody listens");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "nobody listens\n");
    MsgSetHandler(fnBefore);
}

TEST(MsgRecorder, GivesTheHandlerBack)
{
    MsgRecorder msgOuter;
    {
        MsgRecorder msgInner;
        MsgBox(MsgIcon::None, "inner");
        EXPECT_EQ(msgInner.m_aShown.size(), 1u);
    }
    MsgBox(MsgIcon::None, "outer");
    ASSERT_EQ(msgOuter.m_aShown.size(), 1u);
    EXPECT_EQ(msgOuter.m_aShown[0].sText, "outer");
}

}  // namespace
