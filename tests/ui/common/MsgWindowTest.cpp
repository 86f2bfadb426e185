#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "support/MsgRecorder.h"
#include "ui/common/BoxOpen.h"
#include "ui/common/FileDialog.h"
#include "ui/common/MsgWindow.h"

namespace {

TEST(MsgTextShown, BreaksLinesAtEveryKindOfLineEnd)
{
    EXPECT_EQ(MsgTextShown("a\r\rb\r\nc\nd"), QStringLiteral("a\n\nb\nc\nd"));
}

TEST(MsgWindow, ShowsAPlainTextBoxWithTheApplicationsTitle)
{
    const MsgRecorder restore;  // restores the test's own handler
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

TEST(MsgWindow, ABoxIsOpenUntilItsCallerGoesOn)
{
    const MsgRecorder restore;
    MsgWindowInstall();
    EXPECT_FALSE(BoxOpen::Exists());
    bool bOpen = false;
    QTimer::singleShot(0, [&bOpen] {
        QApplication::activeModalWidget()->close();
        bOpen = BoxOpen::Exists();
    });
    MsgBox(MsgIcon::Info, "text");
    EXPECT_TRUE(bOpen) << "closed, but its caller has not gone on";
    EXPECT_FALSE(BoxOpen::Exists());
}

TEST(MsgWindow, AFileDialogIsABoxToo)
{
    bool bOpen = false;
    QTimer::singleShot(0, [&bOpen] {
        bOpen = BoxOpen::Exists();
        QApplication::activeModalWidget()->close();
    });
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    EXPECT_EQ(FileDialogShow(nullptr, {FileDialogKind::Open, {}, QStringLiteral("Text (*)|*")}),
              QString());
    EXPECT_TRUE(bOpen);
    EXPECT_FALSE(BoxOpen::Exists());
}

}  // namespace
