#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "support/MsgRecorder.h"
#include "ui/common/MsgWindow.h"

namespace {

TEST(MsgTextShown, BreaksLinesAtEveryKindOfLineEnd)
{
    EXPECT_EQ(MsgTextShown("a\r\rb\r\nc\nd"), QStringLiteral("a\n\nb\nc\nd"));
}

TEST(MsgWindow, ShowsAPlainTextBoxWithTheApplicationsTitle)
{
    const MsgRecorder restore;  // puts the test's own handler back
    QApplication::setApplicationDisplayName(QStringLiteral("Hopcast"));
    MsgWindowInstall();
    bool bSeen = false;
    QTimer::singleShot(0, [&bSeen] {
        auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(pBox, nullptr);
        bSeen = true;
        EXPECT_EQ(pBox->text(), QStringLiteral("<b>one</b>\ntwo"));
        EXPECT_EQ(pBox->textFormat(), Qt::PlainText);
        EXPECT_EQ(pBox->windowTitle(), QStringLiteral("Hopcast"));
        EXPECT_EQ(pBox->icon(), QMessageBox::Warning);
        EXPECT_EQ(pBox->standardButtons(), QMessageBox::Ok);
        QTest::keyClick(pBox, Qt::Key_Return);
    });
    MsgBox(MsgIcon::Exclamation, "<b>one</b>\rtwo");
    EXPECT_TRUE(bSeen);
}

}  // namespace
