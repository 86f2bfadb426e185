#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QGraphicsEffect>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/common/FileDialog.h"
#include "ui/common/LocationField.h"
#include "ui/common/NightColors.h"
#include "ui/common/NightPointer.h"
#include "ui/common/NightStyle.h"
#include "ui/common/PaletteShown.h"

namespace {

class NightStyle : public testing::Test {
protected:
    ~NightStyle() override { PaletteShow(Palette::Standard); }
};

/// The highest value of a channel: 0 red, 1 green, 2 blue.
int MostGet(const QImage& img, int nChannel)
{
    int nMost = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            const QRgb n = img.pixel(x, y);
            nMost = std::max(nMost, nChannel == 0 ? qRed(n) : nChannel == 1 ? qGreen(n) : qBlue(n));
        }
    return nMost;
}

void RedIs(const QImage& img)
{
    EXPECT_LE(MostGet(img, 1), kNightMost);
    EXPECT_LE(MostGet(img, 2), kNightMost);
    EXPECT_GT(MostGet(img, 0), 200) << "nothing to be seen";
}

/// A window that ignores every palette.
class Loud final : public QWidget {
public:
    QColor m_clr = Qt::green;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), m_clr);
        painter.fillRect(0, 0, 5, 5, Qt::white);
    }
};

TEST_F(NightStyle, ShowsOpenAndLaterWindowsInRedsAlone)
{
    Loud wndOpen;
    wndOpen.resize(80, 60);
    wndOpen.show();
    EXPECT_GT(MostGet(wndOpen.grab().toImage(), 1), 200);
    PaletteShow(Palette::Night);
    RedIs(wndOpen.grab().toImage());
    Loud wndLater;
    wndLater.resize(80, 60);
    wndLater.show();
    RedIs(wndLater.grab().toImage());
    PaletteShow(Palette::Standard);
    EXPECT_GT(MostGet(wndOpen.grab().toImage(), 1), 200);
    EXPECT_GT(MostGet(wndLater.grab().toImage(), 1), 200);
    EXPECT_EQ(wndLater.graphicsEffect(), nullptr);
}

/// Looks at the screen, since a picture of the window alone would not prove it.
TEST_F(NightStyle, ReachesTheScreenAlsoWhenAPartIsPaintedAnew)
{
    PaletteShow(Palette::Night);
    QWidget wnd;
    Loud* pPart = new Loud;
    pPart->setParent(&wnd);
    pPart->setAttribute(Qt::WA_OpaquePaintEvent);
    pPart->setGeometry(10, 10, 40, 40);
    wnd.resize(80, 60);
    wnd.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&wnd));
    const auto Screen = [&wnd] {
        return wnd.screen()
            ->grabWindow(wnd.winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    };
    RedIs(Screen());
    pPart->m_clr = Qt::blue;
    pPart->update();
    QCoreApplication::processEvents();
    const QImage img = Screen();
    RedIs(img);
    EXPECT_EQ(img.pixel(40, 40), NightRed(QColor(Qt::blue).rgb())) << "painted anew";
}

TEST_F(NightStyle, AWindowsOwnColoursAreDarkBelowItsControls)
{
    PaletteShow(Palette::Night);
    QLabel lbl(QStringLiteral("12.5"));
    lbl.resize(100, 40);
    lbl.show();
    const QImage img = lbl.grab().toImage();
    EXPECT_EQ(img.pixel(0, 0), qRgb(0, 0, 0));
    RedIs(img);
}

TEST_F(NightStyle, EveryTextOfThePaletteReadsOnItsGround)
{
    const QPalette pal = NightPaletteGet();
    using Pair = std::pair<QPalette::ColorRole, QPalette::ColorRole>;
    for (const auto& [eText, eGround] :
         {Pair{QPalette::WindowText, QPalette::Window}, Pair{QPalette::Text, QPalette::Base},
          Pair{QPalette::Text, QPalette::AlternateBase},
          Pair{QPalette::ButtonText, QPalette::Button},
          Pair{QPalette::HighlightedText, QPalette::Highlight},
          Pair{QPalette::ToolTipText, QPalette::ToolTipBase}, Pair{QPalette::Link, QPalette::Base}})
        for (const auto eGroup : {QPalette::Active, QPalette::Inactive})
            EXPECT_GE(ColorContrast(ColorToBgr(pal.color(eGroup, eText)),
                                    ColorToBgr(pal.color(eGroup, eGround))),
                      4.5)
                << eText << " on " << eGround;
}

TEST_F(NightStyle, BringsBackStylePaletteAndDialogs)
{
    const QString sStyle = QApplication::style()->name();
    const QPalette pal = QApplication::palette();
    const QPalette palTip = QToolTip::palette();
    const bool bOwn = QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs);
    PaletteShow(Palette::Night);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(Qt::black));
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
    PaletteShow(Palette::Safe);
    EXPECT_EQ(QApplication::style()->name(), sStyle);
    EXPECT_EQ(QApplication::palette(), pal);
    EXPECT_EQ(QToolTip::palette(), palTip);
    EXPECT_EQ(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs), bOwn);
}

TEST_F(NightStyle, TheCaretIsRed)
{
    PaletteShow(Palette::Night);
    QApplication::setCursorFlashTime(0);  // it does not blink
    QLineEdit txt;
    txt.resize(120, 30);
    txt.show();
    txt.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&txt));
    txt.setFocus();
    QCoreApplication::processEvents();
    const QImage img = txt.grab(QRect(3, 5, 12, 20)).toImage();
    RedIs(img);
}

TEST_F(NightStyle, ThePointerIsRedInTheShapeThatIsAskedFor)
{
    QWidget wnd;
    auto* pField = new QLineEdit(&wnd);
    pField->setGeometry(50, 50, 100, 30);
    wnd.setGeometry(100, 100, 200, 200);
    wnd.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&wnd));
    ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    QCursor::setPos(wnd.mapToGlobal(QPoint(10, 10)));
    PaletteShow(Palette::Night);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    const QImage imgArrow = QApplication::overrideCursor()->pixmap().toImage();
    RedIs(imgArrow);
    QCursor::setPos(pField->mapToGlobal(QPoint(50, 15)));
    QTest::mouseMove(pField, QPoint(50, 15));
    QCoreApplication::processEvents();
    const QImage imgBeam = QApplication::overrideCursor()->pixmap().toImage();
    RedIs(imgBeam);
    EXPECT_NE(imgBeam, imgArrow);
    for (const Qt::CursorShape eShape :
         {Qt::WaitCursor, Qt::BusyCursor, Qt::CrossCursor, Qt::SizeAllCursor, Qt::SizeHorCursor,
          Qt::SizeVerCursor, Qt::SizeFDiagCursor, Qt::SizeBDiagCursor}) {
        EXPECT_NE(PointerGet(eShape).pixmap().toImage(), imgArrow) << eShape;
        RedIs(PointerGet(eShape).pixmap().toImage());
    }
    PaletteShow(Palette::Standard);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(PointerGet(Qt::WaitCursor).shape(), Qt::WaitCursor);
}

TEST_F(NightStyle, APointerAboveAllOthersStays)
{
    PaletteShow(Palette::Night);
    QApplication::setOverrideCursor(PointerGet(Qt::WaitCursor));
    const QImage imgWait = QApplication::overrideCursor()->pixmap().toImage();
    QLineEdit txt;
    txt.show();
    QTest::mouseMove(&txt);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::overrideCursor()->pixmap().toImage(), imgWait);
    QApplication::restoreOverrideCursor();
}

TEST_F(NightStyle, FileDialogsAreTheToolkitsAndRed)
{
    PaletteShow(Palette::Night);
    bool bSeen = false;
    QTimer::singleShot(0, [&bSeen] {
        auto* pDialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(pDialog, nullptr);
        EXPECT_TRUE(pDialog->testOption(QFileDialog::DontUseNativeDialog)
                    || QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
        RedIs(pDialog->grab().toImage());
        bSeen = true;
        pDialog->close();
    });
    EXPECT_EQ(FileDialogShow(nullptr, {FileDialogKind::Open, {}, QStringLiteral("Text (*)|*")}),
              QString());
    EXPECT_TRUE(bSeen);
}

TEST_F(NightStyle, AMarkedPositionReadsInEveryPalette)
{
    LocationField fld;
    fld.MarkSet(QStringLiteral("out of range"));
    for (const Palette ePalette : {Palette::Standard, Palette::Night, Palette::Standard}) {
        PaletteShow(ePalette);
        const QPalette pal = fld.palette();
        EXPECT_NE(pal.color(QPalette::Base), QApplication::palette().color(QPalette::Base));
        EXPECT_GE(ColorContrast(ColorToBgr(pal.color(QPalette::Text)),
                                ColorToBgr(pal.color(QPalette::Base))),
                  4.5);
    }
    fld.MarkSet({});
    EXPECT_EQ(fld.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
}

}  // namespace
