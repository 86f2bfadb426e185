/// Whatever is asked for while a run is under way waits for its end.
#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

#include "ui/common/MsgWindow.h"
#include "ui/details/frmDetails.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmAbout.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace {

/// Runs a prediction and calls fnDuring once during it.
void UpdateWith(MainRig& rig, frmMain& frm, const std::function<void()>& fnDuring)
{
    bool bDone = false;
    rig.m_engine.nStarts = 0;
    rig.m_engine.fnDuring = [&bDone, fnDuring] {
        if (!std::exchange(bDone, true))
            fnDuring();
    };
    EXPECT_TRUE(frm.Update());
    EXPECT_TRUE(bDone);
    rig.m_engine.fnDuring = {};
}

TEST(FrmMainBusy, SecondUpdateIsDoneOnceAfterTheFirst)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    UpdateWith(rig, frm, [&] {
        EXPECT_FALSE(frm.Update());
        EXPECT_FALSE(frm.Update());
        EXPECT_FALSE(frm.Update());
    });
    EXPECT_EQ(rig.m_engine.nStarts, 2);  // one prediction of two chunks so far
    MainRig::EventsRun();
    EXPECT_EQ(rig.m_engine.nStarts, 4);
    MainRig::EventsRun();
    EXPECT_EQ(rig.m_engine.nStarts, 4);
}

TEST(FrmMainBusy, CommandsWaitAndAreDoneInOrder)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    UpdateWith(rig, frm, [&] {
        CellMouse(*frm.grdData, {3, 4});
        frm.mnuFileSave->trigger();
        EXPECT_EQ(frm.DataGetSelected().iHour, 14);
        EXPECT_TRUE(rig.m_aAsked.empty());
    });
    EXPECT_FALSE(frm.m_pDetails);
    MainRig::EventsRun();
    EXPECT_EQ(frm.DataGetSelected().iHour, 4);
    EXPECT_TRUE(frm.m_pDetails);
    EXPECT_EQ(rig.m_aAsked.size(), 1u);
}

TEST(FrmMainBusy, ExitAndTheCloseBoxWait)
{
    for (const bool bExit : {true, false}) {
        MainRig rig;
        frmMain& frm = rig.Start();
        UpdateWith(rig, frm, [&] {
            if (bExit)
                frm.mnuFileExit->trigger();
            else
                EXPECT_FALSE(frm.close());
            EXPECT_TRUE(frm.isVisible());
        });
        EXPECT_TRUE(frm.isVisible());
        MainRig::EventsRun();
        EXPECT_FALSE(frm.isVisible());
    }
}

TEST(FrmMainBusy, WhatWasAskedForAfterAnExitIsDropped)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    UpdateWith(rig, frm, [&] {
        frm.mnuFileExit->trigger();
        frm.mnuHelpAbout->trigger();
        frm.mnuFileSave->trigger();
    });
    MainRig::EventsRun();
    EXPECT_FALSE(frm.isVisible());
    EXPECT_FALSE(frm.m_pAbout);
    EXPECT_TRUE(rig.m_aAsked.empty());
}

TEST(FrmMainBusy, UpdateButtonPressedDuringARunWaits)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    UpdateWith(rig, frm, [&] {
        frm.cmdUpdate->setEnabled(true);
        QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
        EXPECT_EQ(rig.m_engine.nStarts, 0);
    });
    MainRig::EventsRun();
    EXPECT_EQ(rig.m_engine.nStarts, 4);
}

TEST(FrmMainBusy, PointerIsBusyDuringTheRunAndNotAfterIt)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    UpdateWith(rig, frm, [] {
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    });
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(FrmMainBusy, PendingEventsAreHandledOnceDuringTheRun)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    bool bTimer = false;
    UpdateWith(rig, frm, [&] { QTimer::singleShot(0, &frm, [&bTimer] { bTimer = true; }); });
    EXPECT_TRUE(bTimer);
}

TEST(FrmMainBusy, ARunStartedByATimerDuringTheRunIsPutOff)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    bool bAsked = false;
    UpdateWith(rig, frm, [&] {
        QTimer::singleShot(0, &frm, [&] {
            bAsked = true;
            EXPECT_FALSE(frm.Update());
        });
    });
    EXPECT_TRUE(bAsked);
    EXPECT_EQ(rig.m_engine.nStarts, 2);
    MainRig::EventsRun();
    EXPECT_EQ(rig.m_engine.nStarts, 4);
}

TEST(FrmMainBusy, NothingIsDoneThatArrivesAfterTheEnd)
{
    CommandQueue queue;
    int nDone = 0;
    QObject::connect(&queue, &CommandQueue::UpdateRequested, [&nDone] { ++nDone; });
    {
        const CommandQueue::Run run(queue);
        queue.UpdateRequest();
        queue.Do([&nDone] { ++nDone; });
        queue.End();
    }
    MainRig::EventsRun();
    queue.Do([&nDone] { ++nDone; });
    EXPECT_EQ(nDone, 0);
}

TEST(FrmMainBusy, TheEndOfTheProgramClosesAnOpenBoxBeforeItsWindows)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuViewWorldMap->trigger();
    ASSERT_TRUE(frm.m_pMap);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frm.m_pMap));
    frm.m_pMap->activateWindow();
    MsgWindowInstall();  // real boxes; the rig's recorder restores the test's handler
    bool bBox = false;
    QTimer::singleShot(0, &frm, [&bBox, &frm] {
        bBox = QApplication::activeModalWidget() != nullptr;
        QApplication::closeAllWindows();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the box is closed";
        EXPECT_TRUE(frm.isVisible()) << "its caller has not come back yet";
    });
    rig.m_engine.bFail = true;
    frm.m_pMap->mnuOverlayDraw->trigger();
    EXPECT_TRUE(bBox);
    QApplication::closeAllWindows();  // the program repeats this until it has ended
    EXPECT_FALSE(frm.isVisible());
    MainRig::EventsRun();
    EXPECT_FALSE(frm.m_pMap);
}

}  // namespace
