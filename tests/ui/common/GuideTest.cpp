#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "support/MsgRecorder.h"
#include "support/TempFolder.h"
#include "ui/common/Guide.h"
#include "ui/common/PaletteShown.h"

namespace {

/// Stands for the system's browser and records what it is asked to open.
class Browser {
public:
    explicit Browser(bool bThere)
    {
        m_fnBefore = GuideOpenSetHandler([this, bThere](const QUrl& url) {
            aUrl.push_back(url);
            return bThere;
        });
    }
    ~Browser() { GuideOpenSetHandler(m_fnBefore); }
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;

    std::vector<QUrl> aUrl;

private:
    GuideOpenFn m_fnBefore;
};

frmGuide* WindowFind()
{
    for (QWidget* pWidget : QApplication::topLevelWidgets())
        if (auto* pGuide = qobject_cast<frmGuide*>(pWidget))
            return pGuide;
    return nullptr;
}

constexpr const char* kPage = "<html><body><h1>A guide</h1><p>Bigger is better.</p></body></html>";

TEST(GuideFile, LiesBesideTheProgramOrInTheShareFolder)
{
    const TempFolder folder;
    EXPECT_EQ(GuideFileGet(folder.Path("bin")), "");
    folder.Write("share/hopcast/guide/guide.html", kPage);
    folder.Write("bin/program", "");
    EXPECT_EQ(GuideFileGet(folder.Path("bin")),
              folder.Path("bin") + "/../share/hopcast/guide/guide.html");
    folder.Write("bin/guide/guide.html", kPage);
    EXPECT_EQ(GuideFileGet(folder.Path("bin")), folder.Path("bin/guide/guide.html"));
}

TEST(GuideShow, InNightIsAWindowWithItsPicturesDark)
{
    const TempFolder folder;
    QImage img(40, 30, QImage::Format_RGB32);
    img.fill(Qt::white);
    folder.Write("bin/guide/guide.html", "<p>text</p><img src=\"a.png\">");
    ASSERT_TRUE(img.save(QString::fromStdString(folder.Path("bin/guide/a.png"))));
    const Browser browser(true);
    PaletteShow(Palette::Night);
    GuideShow(folder.Path("bin"));
    EXPECT_TRUE(browser.aUrl.empty()) << "a browser is white";
    frmGuide* pGuide = WindowFind();
    ASSERT_NE(pGuide, nullptr);
    const auto PictureIs = [pGuide](const QColor& clr) {
        const auto varPicture = pGuide->document()->resource(QTextDocument::ImageResource,
                                                             QUrl(QStringLiteral("a.png")));
        QImage imgShown = varPicture.value<QImage>();
        if (varPicture.metaType() == QMetaType::fromType<QByteArray>())
            imgShown.loadFromData(varPicture.toByteArray());
        return imgShown.pixelColor(20, 15) == clr;
    };
    EXPECT_TRUE(PictureIs(Qt::black));
    PaletteShow(Palette::Standard);
    EXPECT_TRUE(PictureIs(Qt::white));
    delete pGuide;
}

TEST(GuideShow, OpensThePageInTheSystemsBrowser)
{
    const TempFolder folder;
    folder.Write("bin/guide/guide.html", kPage);
    const Browser browser(true);
    GuideShow(folder.Path("bin"));
    ASSERT_EQ(browser.aUrl.size(), 1U);
    EXPECT_EQ(browser.aUrl.front().toLocalFile().toStdString(),
              folder.Path("bin/guide/guide.html"));
    EXPECT_EQ(WindowFind(), nullptr);
}

TEST(GuideShow, WithoutABrowserOneWindowHasThePageAndEscapeClosesIt)
{
    const TempFolder folder;
    folder.Write("bin/guide/guide.html", kPage);
    const Browser browser(false);
    GuideShow(folder.Path("bin"));
    GuideShow(folder.Path("bin"));
    const QPointer<frmGuide> pGuide = WindowFind();
    ASSERT_FALSE(pGuide.isNull());
    EXPECT_TRUE(pGuide->isVisible());
    EXPECT_EQ(pGuide->toPlainText(), QStringLiteral("A guide\nBigger is better."));
    QTest::keyClick(pGuide, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(pGuide.isNull());
    EXPECT_EQ(WindowFind(), nullptr) << "the second call took the window that was there";
}

TEST(GuideShow, MissingPagesAreTold)
{
    const TempFolder folder;
    const MsgRecorder recorder;
    const Browser browser(true);
    GuideShow(folder.Path("bin"));
    EXPECT_TRUE(browser.aUrl.empty());
    ASSERT_EQ(recorder.m_aShown.size(), 1U);
    EXPECT_EQ(recorder.m_aShown.front().sText, "The guide is not installed with this program.");
}

TEST(GuideKey, F1ShowsTheGuideFromAFieldOfAModalDialogOnce)
{
    const TempFolder folder;
    const MsgRecorder recorder;  // the guide is not beside this program
    QApplication& app = *qobject_cast<QApplication*>(QCoreApplication::instance());
    GuideKeyInstall(app);
    QDialog dlg;
    auto* const ptxt = new QLineEdit(&dlg);
    QTimer::singleShot(0, &dlg, [&dlg, ptxt] {
        ptxt->setFocus();
        QTest::keyClick(ptxt, Qt::Key_F1, Qt::ShiftModifier);
        QTest::keyClick(dlg.windowHandle(), Qt::Key_F1);
        dlg.close();
    });
    dlg.exec();
    EXPECT_EQ(recorder.m_aShown.size(), 1U);
}

TEST(GuideKey, AKeyThatIsHeldDownOrPressedInItsBoxShowsTheGuideOnce)
{
    QApplication& app = *qobject_cast<QApplication*>(QCoreApplication::instance());
    GuideKeyInstall(app);
    QLineEdit txt;
    const auto F1Press = [&txt](bool bRepeat) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, QString(), bRepeat);
        QApplication::sendEvent(&txt, &event);
    };
    int nShown = 0;
    MsgBoxFn fnBefore = MsgSetHandler([&](MsgIcon, const std::string&) {
        if (++nShown < 3)
            F1Press(false);  // while the box is open
    });
    F1Press(false);
    F1Press(true);
    F1Press(true);
    EXPECT_EQ(nShown, 1);
    F1Press(false);
    EXPECT_EQ(nShown, 2) << "a new press shows it again";
    MsgSetHandler(fnBefore);
}

TEST(GuideShow, ItsWindowCanBeUsedBesideAModalBox)
{
    const TempFolder folder;
    folder.Write("bin/guide/guide.html", kPage);
    const Browser browser(false);
    for (const bool bBefore : {false, true}) {
        if (bBefore)
            GuideShow(folder.Path("bin"));
        QDialog dlg;
        bool bClosed = false;
        QTimer::singleShot(0, &dlg, [&] {
            GuideShow(folder.Path("bin"));
            const QPointer<frmGuide> pGuide = WindowFind();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(pGuide));
            QTest::keyClick(pGuide->windowHandle(), Qt::Key_Escape);
            bClosed = pGuide.isNull() || !pGuide->isVisible();
            dlg.close();
        });
        dlg.exec();
        EXPECT_TRUE(bClosed) << bBefore;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        delete WindowFind();
    }
}

}  // namespace
