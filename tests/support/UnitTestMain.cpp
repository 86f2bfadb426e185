#include <gtest/gtest.h>

#include "support/MsgRecorder.h"

int main(int nArguments, char** asArguments)
{
    testing::InitGoogleTest(&nArguments, asArguments);
    MsgUnexpectedFails();
    return RUN_ALL_TESTS();
}
