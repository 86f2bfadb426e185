#include <gtest/gtest.h>

#include <QApplication>

#include "support/MsgRecorder.h"

int main(int nArguments, char** asArguments)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&nArguments, asArguments);
    QApplication app(nArguments, asArguments);
    MsgUnexpectedFails();
    return RUN_ALL_TESTS();
}
