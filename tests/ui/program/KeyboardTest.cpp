/// The guide's tasks by keyboard only: this file makes no mouse event.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <algorithm>

#include "system/FileLib.h"
#include "ui/card/frmCard.h"
#include "ui/common/Guide.h"
#include "ui/common/MenuKey.h"
#include "ui/compare/frmCompare.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/frmDays.h"
#include "ui/details/frmDetails.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmAbout.h"
#include "ui/options/frmForecast.h"
#include "ui/options/frmOptions.h"
#include "ui/places/frmPlaces.h"
#include "ui/program/ProgramRig.h"

namespace {

/// Returns the focus to the previous window when one closes, since there is no window manager.
class WindowManager final {
public:
    WindowManager()
    {
        QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &m_context,
                         [this](QWindow* pWindow) {
                             if (pWindow != nullptr && pWindow->type() != Qt::Popup)
                                 m_apWindow.emplace_back(pWindow);
                         });
    }
    void FocusGive()
    {
        while (!m_apWindow.empty() && (!m_apWindow.back() || !m_apWindow.back()->isVisible()))
            m_apWindow.pop_back();
        if (QGuiApplication::focusWindow() != nullptr || m_apWindow.empty())
            return;
        m_apWindow.back()->requestActivate();
        MainRig::EventsRun();
    }

private:
    std::vector<QPointer<QWindow>> m_apWindow;
    QObject m_context;
};

WindowManager& Manager()
{
    static WindowManager s_manager;
    return s_manager;
}

/// The window that receives keys.
QWindow* KeyWindow()
{
    if (const QWidget* pPopup = QApplication::activePopupWidget())
        return pPopup->windowHandle();
    Manager().FocusGive();
    return QGuiApplication::focusWindow();
}

/// A button whose mnemonic was pressed stays down for a moment, one with a menu until the menu
/// closes.
bool ButtonsAreUp()
{
    if (QApplication::activePopupWidget() != nullptr)
        return true;
    const QWidgetList apWidget = QApplication::allWidgets();
    return std::none_of(apWidget.begin(), apWidget.end(), [](const QWidget* p) {
        const auto* pButton = qobject_cast<const QAbstractButton*>(p);
        return pButton != nullptr && pButton->isDown();
    });
}

void Press(Qt::Key eKey, Qt::KeyboardModifiers eWith = Qt::NoModifier)
{
    QWindow* const pWindow = KeyWindow();
    ASSERT_NE(pWindow, nullptr);
    QTest::keyClick(pWindow, eKey, eWith);
    MainRig::EventsRun();
    EXPECT_TRUE(QTest::qWaitFor(ButtonsAreUp));
}

/// Presses keys in a menu that runs its own loop until it closes.
void PressSoon(std::vector<Qt::Key> aeKey)
{
    QTimer::singleShot(0, qApp, [aeKey = std::move(aeKey)] {
        for (const Qt::Key eKey : aeKey) Press(eKey);
    });
}

void Type(const char* sText)
{
    for (const char* p = sText; *p != '\0'; ++p) {
        QTest::keyClick(KeyWindow(), *p);
        MainRig::EventsRun();
    }
}

/// Chooses a menu's entry by mnemonics: Alt and the menu's letter, then the entry's.
void MenuChoose(Qt::Key eMenu, Qt::Key eEntry)
{
    Press(eMenu, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    Press(eEntry);
}

std::string FocusGet()
{
    const QWidget* p = QApplication::focusWidget();
    return p != nullptr ? p->objectName().toStdString() : "nothing";
}

/// Presses Tab until a control has the focus.
void TabTo(const char* sName)
{
    constexpr int kMost = 80;
    std::string sSeen;
    for (int n = 0; n < kMost && FocusGet() != sName; ++n) {
        Press(Qt::Key_Tab);
        sSeen += FocusGet() + " ";
    }
    ASSERT_EQ(FocusGet(), sName) << "after " << sSeen;
}

class Keyboard : public testing::Test {
protected:
    Keyboard() : frm(Start()) {}

    template <class W>
    W& Active(const QPointer<W>& pWindow)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return bool(pWindow); }));
        EXPECT_TRUE(QTest::qWaitForWindowActive(pWindow.data()));
        return *pWindow;
    }
    void MainActive()
    {
        Manager().FocusGive();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&frm));
    }

    ProgramRig rig;
    frmMain& frm;

private:
    frmMain& Start()
    {
        Manager();  // must exist before the first window
        return rig.StartWithEngine();
    }
};

TEST_F(Keyboard, TypesAPositionAndUpdates)
{
    const int nBefore = rig.m_engine.nStarts;
    TabTo("txtLat0");
    Type("241850N1102420W");
    Press(Qt::Key_U, Qt::AltModifier);
    EXPECT_NEAR(frm.m_settings.m_dRcLat, 24.308, 0.001);
    EXPECT_NEAR(frm.m_settings.m_dRcLon, -110.403, 0.001);
    EXPECT_GT(rig.m_engine.nStarts, nBefore);
    Press(Qt::Key_Z, Qt::ControlModifier);
    TabTo("txtLat0");
    QApplication::clipboard()->setText(QStringLiteral("DL44"));
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_Return);
    EXPECT_NEAR(frm.m_settings.m_dRcLat, 24.5, 0.1);
}

TEST_F(Keyboard, OpensTheMenuOfAPosition)
{
    MenuKeyInstall(*qApp);
    TabTo("txtLat1");
    Press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    Press(Qt::Key_C);
    EXPECT_EQ(QApplication::clipboard()->text(), frm.txtLat1->text());
}

TEST_F(Keyboard, TakesAirmailsPosition)
{
    rig.AirmailWrite("Airmail.ini",
                     "[Position Report]\nCurrent Latitude=10\xB0"
                     "30.00'N\nCurrent Longitude=020\xB0"
                     "15.00'W\nCurrent Time=2026-11-21 11:02\n");
    TabTo("cmdRcAirmail");
    Press(Qt::Key_Space);
    EXPECT_NEAR(frm.m_settings.m_dRcLat, 10.5, 0.001);
    EXPECT_NEAR(frm.m_settings.m_dRcLon, -20.25, 0.001);
}

TEST_F(Keyboard, ChoosesAStationFromTheMenuBelowItsButton)
{
    TabTo("cmdTxAirmail");
    Press(Qt::Key_Space);
    ASSERT_EQ(QApplication::activePopupWidget(), frm.mnuTransmitter);
    const QRect rect(frm.cmdTxAirmail->mapToGlobal(QPoint(0, 0)), frm.cmdTxAirmail->size());
    EXPECT_TRUE(rect.adjusted(-1, -1, 1, 1).contains(frm.mnuTransmitter->pos()));
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    Press(Qt::Key_Down);
    EXPECT_TRUE(frm.statusBar()->currentMessage().contains(QStringLiteral("Grid square")));
    Press(Qt::Key_Return);
    EXPECT_TRUE(frm.windowTitle().contains(QStringLiteral(" - ")))
        << frm.windowTitle().toStdString();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Keyboard, ReadsTheTableAndItsDetails)
{
    TabTo("grdData");
    Press(Qt::Key_Home, Qt::ControlModifier);
    const SelectedCell cell = frm.DataGetSelected();
    EXPECT_EQ(cell.iHour, 14);
    Press(Qt::Key_Up);
    EXPECT_EQ(frm.DataGetSelected().iFrequency, cell.iFrequency - 1);
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains(u'\t'));
    Press(Qt::Key_Return);
    ASSERT_NE(frm.m_pDetails, nullptr);
    frm.activateWindow();
    MainActive();
    MenuChoose(Qt::Key_V, Qt::Key_D);
    frmDetails& details = Active(frm.m_pDetails);
    TabTo("grdData");
    EXPECT_EQ(QApplication::focusWidget(), details.grdData);
    Press(Qt::Key_Up);
    EXPECT_EQ(frm.DataGetSelected().iFrequency, cell.iFrequency - 2);
    Press(Qt::Key_Escape);
    EXPECT_EQ(frm.m_pDetails, nullptr);
}

TEST_F(Keyboard, OpensTheMenuOfTheTable)
{
    MenuKeyInstall(*qApp);
    TabTo("grdData");
    Press(Qt::Key_Up);
    Press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_EQ(QApplication::activePopupWidget(), frm.mnuView);
    Press(Qt::Key_D);
    EXPECT_NE(frm.m_pDetails, nullptr);
}

TEST_F(Keyboard, ChangesTheMonthInTheOptions)
{
    const int nBefore = rig.m_engine.nStarts;
    MenuChoose(Qt::Key_O, Qt::Key_M);
    frmOptions& options = Active(frm.m_pOptions);
    if (options.chkPropagationMonth->isChecked())
        Press(Qt::Key_U, Qt::AltModifier);
    Press(Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(FocusGet(), "cmbPropagationMonth");
    Press(Qt::Key_Home);
    for (int n = 0; n < 2; ++n) Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(frm.m_pOptions, nullptr);
    EXPECT_EQ(frm.m_settings.m_iPropagationMonth, 3);
    EXPECT_GT(rig.m_engine.nStarts, nBefore);
}

TEST_F(Keyboard, ReadsAForecast)
{
    MenuChoose(Qt::Key_O, Qt::Key_M);
    frmOptions& options = Active(frm.m_pOptions);
    Press(Qt::Key_F, Qt::AltModifier);
    QPointer<frmForecast> pForecast = options.findChild<frmForecast*>();
    frmForecast& forecast = Active(pForecast);
    Press(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(QStringLiteral("To: ")));
    Press(Qt::Key_T, Qt::AltModifier);
    Type("no forecast");
    EXPECT_FALSE(forecast.cmdOk->isEnabled());
    Press(Qt::Key_Escape);
    EXPECT_EQ(pForecast, nullptr);
}

TEST_F(Keyboard, TypesTheListOfFrequencies)
{
    MenuChoose(Qt::Key_O, Qt::Key_F);
    Active(frm.m_pOptions);
    EXPECT_EQ(FocusGet(), "txtFrequency");
    Press(Qt::Key_A, Qt::ControlModifier);
    Type("3900");
    Press(Qt::Key_Return);
    Type("7250");
    Press(Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(FocusGet(), "lstHamVoiceBands");
    Press(Qt::Key_Home);
    Press(Qt::Key_Space);
    TabTo("cmdOk");
    Press(Qt::Key_Return);
    ASSERT_EQ(frm.m_settings.m_nData, 3);
    EXPECT_EQ(frm.m_settings.FrequencyGet(2), 7250.0F);
    EXPECT_EQ(frm.m_settings.FrequencyGet(3), 1900.0F);
}

TEST_F(Keyboard, ChoosesTheLocalTime)
{
    MenuChoose(Qt::Key_O, Qt::Key_T);
    Active(frm.m_pOptions);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(frm.m_settings.m_iTimeCode, kTimeLocal);
}

TEST_F(Keyboard, SetsThePowerAndChoosesANeed)
{
    MenuChoose(Qt::Key_O, Qt::Key_S);
    Active(frm.m_pOptions);
    Press(Qt::Key_P, Qt::AltModifier);
    Press(Qt::Key_A, Qt::ControlModifier);
    Type("50");
    Press(Qt::Key_Return);
    EXPECT_EQ(frm.m_settings.m_fStationPower, 50.0F);
    MainActive();
    TabTo("cmdNeed");
    PressSoon({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    Press(Qt::Key_Space);
    EXPECT_EQ(frm.m_settings.m_sNeedSelected, frm.m_settings.m_aNeed.front().sName);
}

TEST_F(Keyboard, TakesAStationOverAndGoesBack)
{
    const double dBefore = frm.m_settings.m_dTxLat;
    Press(Qt::Key_R, Qt::ControlModifier);
    frmReach& reach = Active(frm.m_pReach);
    ASSERT_TRUE(QTest::qWaitFor([&reach] { return !reach.RunningIs(); }, 30000));
    EXPECT_EQ(FocusGet(), "grdReach");
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    MainActive();
    EXPECT_NE(frm.m_settings.m_dTxLat, dBefore);
    EXPECT_TRUE(frm.windowTitle().contains(QStringLiteral(" - ")));
    Press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(frm.m_settings.m_dTxLat, dBefore);
}

TEST_F(Keyboard, OrdersAndSearchesTheStations)
{
    Press(Qt::Key_R, Qt::ControlModifier);
    frmReach& reach = Active(frm.m_pReach);
    ASSERT_TRUE(QTest::qWaitFor([&reach] { return !reach.RunningIs(); }, 30000));
    Press(Qt::Key_D, Qt::AltModifier);
    Press(Qt::Key_End);
    EXPECT_EQ(reach.frm->cmbOrder->currentIndex(), reach.frm->cmbOrder->count() - 1);
    Press(Qt::Key_I, Qt::AltModifier);
    Type("Brisbane");
    EXPECT_EQ(reach.grdReach->RowsGet(), 2);
    Press(Qt::Key_Escape);
    EXPECT_EQ(frm.m_pReach, nullptr);
}

TEST_F(Keyboard, WalksTheDayCurves)
{
    TabTo("grdData");
    Press(Qt::Key_Home, Qt::ControlModifier);
    const SelectedCell cell = frm.DataGetSelected();
    Press(Qt::Key_D, Qt::ControlModifier);
    Active(frm.m_pCurves);
    EXPECT_EQ(FocusGet(), "pctCurves");
    Press(Qt::Key_Right);
    EXPECT_EQ(frm.DataGetSelected().iHour, cell.iHour + 1);
    Press(Qt::Key_Return);
    MainActive();
}

TEST_F(Keyboard, WalksTheGoodAndBadDays)
{
    Press(Qt::Key_B, Qt::ControlModifier);
    frmDays& days = Active(frm.m_pDays);
    ASSERT_TRUE(QTest::qWaitFor([&days] { return !days.RunningIs(); }, 30000));
    EXPECT_EQ(FocusGet(), "grdDays");
    days.grdDays->CurrentSet(3, 5);
    Press(Qt::Key_Right);
    Press(Qt::Key_Return);
    EXPECT_EQ(frm.DataGetSelected().iHour, 6);
    EXPECT_EQ(frm.DataGetSelected().iFrequency, 3);
    Press(Qt::Key_Escape);
    EXPECT_EQ(frm.m_pDays, nullptr);
}

TEST_F(Keyboard, ComparesTheEngines)
{
    Press(Qt::Key_M, Qt::ControlModifier);
    frmCompare& compare = Active(frm.m_pCompare);
    ASSERT_TRUE(QTest::qWaitFor([&compare] { return !compare.RunningIs(); }, 30000));
    TabTo("tabView");
    Press(Qt::Key_Left);
    EXPECT_EQ(compare.tabView->currentIndex(), 1);
    Press(Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(FocusGet(), "cmbEngine0");
    TabTo("grdCompare");
    compare.grdCompare->CurrentSet(2, 7);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(frm.DataGetSelected().iFrequency, 3);
    EXPECT_EQ(frm.DataGetSelected().iHour, 7);
    Press(Qt::Key_Escape);
    EXPECT_EQ(frm.m_pCompare, nullptr);
}

TEST_F(Keyboard, KeepsAPlaceOfItsOwn)
{
    MenuChoose(Qt::Key_P, Qt::Key_M);
    frmPlaces& places = Active(frm.m_pPlaces);
    Press(Qt::Key_N, Qt::AltModifier);
    Press(Qt::Key_A, Qt::ControlModifier);
    Type("Harbour");
    Press(Qt::Key_O, Qt::AltModifier);
    Press(Qt::Key_A, Qt::ControlModifier);
    Type("DL44");
    Press(Qt::Key_W, Qt::AltModifier);
    ASSERT_EQ(places.grdPlaces->RowsGet(), 3) << places.lblHint->text().toStdString();
    EXPECT_NE(BytesRead(rig.m_folder.Path("hopcast.places.csv")).find("Harbour"),
              std::string::npos);
    Press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(places.grdPlaces->RowsGet(), 2);
    Press(Qt::Key_Escape);
    EXPECT_EQ(frm.m_pPlaces, nullptr);
}

TEST_F(Keyboard, ExchangesTheEnds)
{
    const double dTx = frm.m_settings.m_dTxLat;
    MenuChoose(Qt::Key_P, Qt::Key_E);
    EXPECT_EQ(frm.m_settings.m_dRcLat, dTx);
}

TEST_F(Keyboard, SavesTheCardToAFile)
{
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("card.pdf"));
    Press(Qt::Key_P, Qt::ControlModifier);
    frmCard& card = Active(frm.m_pCard);
    Press(Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(FocusGet(), "cmbOrientation");
    Press(Qt::Key_End);
    EXPECT_EQ(card.cmbOrientation->currentIndex(), 1);
    Press(Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(FileExists(rig.m_folder.Path("card.pdf")));
    Press(Qt::Key_Escape);
    EXPECT_EQ(frm.m_pCard, nullptr);
}

TEST_F(Keyboard, CopiesAndExportsTheTable)
{
    MenuChoose(Qt::Key_F, Qt::Key_C);
    EXPECT_TRUE(QApplication::clipboard()->text().contains(u'\t'));
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("table.csv"));
    MenuChoose(Qt::Key_F, Qt::Key_E);
    EXPECT_TRUE(FileExists(rig.m_folder.Path("table.csv")));
}

TEST_F(Keyboard, SavesAndOpensAProfile)
{
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("pacific.ini"));
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(FileExists(rig.m_folder.Path("pacific.ini")));
    const double dBefore = frm.m_settings.m_dRcLat;
    MenuChoose(Qt::Key_F, Qt::Key_D);
    EXPECT_NE(frm.m_settings.m_dRcLat, dBefore);
    MenuChoose(Qt::Key_F, Qt::Key_U);
    EXPECT_EQ(frm.m_settings.m_dRcLat, dBefore);
    MenuChoose(Qt::Key_F, Qt::Key_D);
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(frm.m_settings.m_dRcLat, dBefore);
}

TEST_F(Keyboard, MovesAFlagOfTheMap)
{
    const double dBefore = frm.m_settings.m_dRcLat;
    MenuChoose(Qt::Key_V, Qt::Key_W);
    frmMap& map = Active(frm.m_pMap);
    Press(Qt::Key_Plus);
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("map.png"));
    Press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_TRUE(FileExists(rig.m_folder.Path("map.png")));
    for (int n = 0; n < 80 && QApplication::focusWidget() != map.lblRc; ++n) Press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), map.lblRc);
    for (int n = 0; n < 3; ++n) Press(Qt::Key_Up, Qt::ShiftModifier);
    Press(Qt::Key_Return);
    EXPECT_EQ(frm.m_pMap, nullptr);
    EXPECT_GT(frm.m_settings.m_dRcLat, dBefore);
}

TEST_F(Keyboard, ShowsTheOverlayOfTheMap)
{
    MenuChoose(Qt::Key_V, Qt::Key_W);
    frmMap& map = Active(frm.m_pMap);
    TabTo("cmdOverlay");
    Press(Qt::Key_Space);
    ASSERT_EQ(QApplication::activePopupWidget(), map.mnuOverlay);
    // Entries may come above those in the pictures, so each is found by going down.
    const auto GoTo = [&map](const QAction* pEntry) {
        for (int n = 0; n < 10 && map.mnuOverlay->activeAction() != pEntry; ++n)
            Press(Qt::Key_Down);
        ASSERT_EQ(map.mnuOverlay->activeAction(), pEntry);
    };
    GoTo(map.mnuOverlayTime->menuAction());
    Press(Qt::Key_Right);
    Press(Qt::Key_Home);
    Press(Qt::Key_Return);
    EXPECT_EQ(frm.DataGetSelected().iHour, 1);
    TabTo("cmdOverlay");
    const int nBefore = rig.m_engine.nStarts;
    Press(Qt::Key_Space);
    GoTo(map.mnuOverlayDraw);
    Press(Qt::Key_Return);
    EXPECT_GT(rig.m_engine.nStarts, nBefore);  // the rig's engine has no areas and shows a box
    EXPECT_FALSE(rig.m_msg.m_aShown.empty());
    Press(Qt::Key_Escape);
    EXPECT_EQ(frm.m_pMap, nullptr);
}

TEST_F(Keyboard, ReadsTheGuideAndAbout)
{
    MenuChoose(Qt::Key_H, Qt::Key_A);
    Active(frm.m_pAbout);
    Press(Qt::Key_Escape);
    EXPECT_EQ(frm.m_pAbout, nullptr);
    rig.m_msg.m_aShown.clear();
    MainActive();
    MenuChoose(Qt::Key_H, Qt::Key_G);
    // A test program has no guide beside it.
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1U);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText, "The guide is not installed with this program.");
}

TEST_F(Keyboard, EndsTheProgram)
{
    Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(frm.isVisible());
}

}  // namespace
