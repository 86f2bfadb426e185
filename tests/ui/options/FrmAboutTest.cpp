#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <algorithm>

#include "ui/options/AppIcon.h"
#include "ui/options/frmAbout.h"

namespace {

QString Q(const char* sText) { return QString::fromUtf8(sText); }

TEST(FrmAbout, DescriptionBreaksItsLinesWithCarriageReturns)
{
    EXPECT_EQ(AboutDescriptionGet("3.14.159"),
              "Version 3.14\r\r1) Specify Receiver and Transmitter Locationt.\r"
              "2) Obtain 24 Hour Propagation Data.\r3) Obtain Detailed Propagtion Data.");
    EXPECT_EQ(AboutDescriptionGet("2.7").substr(0, 13), "Version 2.7\r\r");
}

TEST(FrmAbout, ShowsTitleVersionAndPurposes)
{
    const frmAbout frm;
    EXPECT_EQ(frm.windowTitle(), Q("Hopcast - About"));
    EXPECT_EQ(frm.lblTitle->text(), Q("Hopcast"));
    EXPECT_EQ(frm.lblDescription->text().toStdString(), [] {
        std::string sText = AboutDescriptionGet(HOPCAST_VERSION);
        std::replace(sText.begin(), sText.end(), '\r', '\n');
        return sText;
    }());
    EXPECT_FALSE(frm.picIcon->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_TRUE(frm.findChildren<QAbstractButton*>().isEmpty());
}

TEST(FrmAbout, DisclaimerTellsLimitsOriginsAndLicences)
{
    const frmAbout frm;
    const QString sText = frm.lblDisclaimer->text();
    for (const char* sWord : {"statistical", "life", "ITU-R P.533", "VOACAP", "ICEPAC", "MIT",
                              "warranty", "Qt", "LGPL"})
        EXPECT_TRUE(sText.contains(Q(sWord))) << sWord;
}

TEST(FrmAbout, IsFixedAndShowsEveryTextWhole)
{
    frmAbout frm;
    frm.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frm));
    EXPECT_EQ(frm.minimumSize(), frm.maximumSize());
    for (const QLabel* pLabel : {frm.lblTitle, frm.lblDescription, frm.lblDisclaimer}) {
        const int nNeeded = pLabel->wordWrap() ? pLabel->heightForWidth(pLabel->width())
                                               : pLabel->sizeHint().height();
        EXPECT_GE(pLabel->height(), nNeeded) << pLabel->objectName().toStdString();
    }
    frm.setAttribute(Qt::WA_DeleteOnClose, false);
}

TEST(FrmAbout, ClosedIsDestroyed)
{
    QPointer<frmAbout> pForm(new frmAbout);
    pForm->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(pForm));
    QTest::keyClick(pForm, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pForm.isNull(); }, 2000));
}

TEST(AppIcon, HasEverySizeInItsOwnPicture)
{
    const QIcon icon = AppIconGet();
    EXPECT_EQ(icon.availableSizes().size(), 7);
    for (const int nSize : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage img(Q(":/icon/hopcast-%1.png").arg(nSize));
        EXPECT_EQ(img.size(), QSize(nSize, nSize));
        EXPECT_TRUE(img.hasAlphaChannel());
        EXPECT_EQ(icon.pixmap(nSize).toImage().size(), QSize(nSize, nSize));
    }
}

TEST(AppIcon, IsTheApplicationsInEveryWindow)
{
    QApplication::setWindowIcon(AppIconGet());
    const frmAbout frm;
    EXPECT_EQ(frm.windowIcon().cacheKey(), QApplication::windowIcon().cacheKey());
    QApplication::setWindowIcon({});
}

TEST(AppIcon, WindowsFileHoldsTheUsualSizes)
{
    QFile file(Q(TEST_ICO));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray aBytes = file.readAll();
    constexpr int kHeader = 6;
    constexpr int kEntry = 16;
    ASSERT_GT(aBytes.size(), kHeader);
    EXPECT_EQ(aBytes.left(4), QByteArray("\0\0\1\0", 4));
    QList<int> aSizes;
    for (int i = 0; i < aBytes[4]; ++i)
        aSizes << static_cast<unsigned char>(aBytes[kHeader + kEntry * i]);
    EXPECT_EQ(aSizes, QList<int>({16, 24, 32, 48, 64, 0})) << "0 stands for 256";
}

}  // namespace
