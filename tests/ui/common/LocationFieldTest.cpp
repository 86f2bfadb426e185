#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>

#include "ui/common/LocationField.h"

namespace {

class LocationFieldShown : public testing::Test {
protected:
    void SetUp() override
    {
        m_lon.KindSet(LocationKind::Longitude);
        m_lat.show();
        m_lon.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_lon));
        FocusGive(m_lat);
    }
    static void FocusGive(QWidget& widget)
    {
        widget.activateWindow();
        widget.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
        ASSERT_TRUE(widget.hasFocus());
    }
    /// Exactly one character is always selected.
    static void CaretExpect(LocationField& txt, int nCaret)
    {
        EXPECT_EQ(txt.CaretGet(), nCaret);
        EXPECT_EQ(txt.selectedText().length(), 1);
    }
    LocationField m_lat;
    LocationField m_lon;
};

TEST_F(LocationFieldShown, StartsWithTheEmptyForm)
{
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 N"));
    EXPECT_EQ(m_lon.text(), QStringLiteral("000 00.00 E"));
}

TEST_F(LocationFieldShown, TypingOvertypesAndSkipsTheDegreeSign)
{
    m_lat.CaretPlace(0, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("37"));
    EXPECT_EQ(m_lat.text(), QStringLiteral("37 00.00 N"));
    CaretExpect(m_lat, 3);
}

TEST_F(LocationFieldShown, WholePositionIsTypedDigitByDigit)
{
    m_lat.TextSet(QStringLiteral("00°00.00'N"));
    m_lat.CaretPlace(0, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("384512s"));
    EXPECT_EQ(m_lat.text(), QStringLiteral("38°45.12'S"));
    CaretExpect(m_lat, 9);
    m_lon.TextSet(QStringLiteral("000°00.00'E"));
    m_lon.CaretPlace(0, 1);
    QTest::keyClicks(&m_lon, QStringLiteral("1224512w"));
    EXPECT_EQ(m_lon.text(), QStringLiteral("122°45.12'W"));
    CaretExpect(m_lon, 10);
}

TEST_F(LocationFieldShown, WrongKeysChangeNothing)
{
    QSignalSpy spy(&m_lat, &LocationField::Edited);
    m_lat.CaretPlace(0, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("aN-. °'"));
    CaretExpect(m_lat, 0);
    m_lat.CaretPlace(9, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("5eEwW"));
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 N"));
    CaretExpect(m_lat, 9);
    m_lon.CaretPlace(10, 1);
    QTest::keyClicks(&m_lon, QStringLiteral("7nS"));
    EXPECT_EQ(m_lon.text(), QStringLiteral("000 00.00 E"));
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(LocationFieldShown, HemisphereLettersAreTurnedToUpperCase)
{
    m_lat.CaretPlace(9, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("s"));
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 S"));
    m_lon.CaretPlace(10, 1);
    QTest::keyClicks(&m_lon, QStringLiteral("w"));
    EXPECT_EQ(m_lon.text(), QStringLiteral("000 00.00 W"));
}

TEST_F(LocationFieldShown, EachAcceptedKeyIsTold)
{
    QSignalSpy spy(&m_lat, &LocationField::Edited);
    m_lat.CaretPlace(0, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("0x1"));  // the first key changes nothing
    EXPECT_EQ(spy.count(), 2);
}

TEST_F(LocationFieldShown, ArrowsJumpOverSeparatorsBothWays)
{
    m_lat.CaretPlace(0, 1);
    for (const int nCaret : {1, 3, 4, 6, 7, 9, 9}) {
        QTest::keyClick(&m_lat, Qt::Key_Right);
        CaretExpect(m_lat, nCaret);
    }
    for (const int nCaret : {7, 6, 4, 3, 1, 0, 0}) {
        QTest::keyClick(&m_lat, Qt::Key_Left);
        CaretExpect(m_lat, nCaret);
    }
    m_lon.CaretPlace(2, 1);
    QTest::keyClick(&m_lon, Qt::Key_Right);
    CaretExpect(m_lon, 4);
}

TEST_F(LocationFieldShown, UpAndDownDoNothing)
{
    m_lat.CaretPlace(4, 1);
    QTest::keyClick(&m_lat, Qt::Key_Up);
    QTest::keyClick(&m_lat, Qt::Key_Down);
    CaretExpect(m_lat, 4);
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 N"));
}

TEST_F(LocationFieldShown, BackspaceAndDeleteStepWithoutChangingTheText)
{
    QSignalSpy spy(&m_lat, &LocationField::Edited);
    m_lat.CaretPlace(3, 1);
    QTest::keyClick(&m_lat, Qt::Key_Backspace);
    CaretExpect(m_lat, 1);
    QTest::keyClick(&m_lat, Qt::Key_Delete);
    CaretExpect(m_lat, 3);
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 N"));
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(LocationFieldShown, HomeAndEndGoToFirstAndLast)
{
    QTest::keyClick(&m_lat, Qt::Key_End);
    CaretExpect(m_lat, 9);
    QTest::keyClick(&m_lat, Qt::Key_Home);
    CaretExpect(m_lat, 0);
}

TEST_F(LocationFieldShown, SelectAllLeavesOneCharacterSelected)
{
    m_lat.CaretPlace(4, 1);
    QTest::keySequence(&m_lat, QKeySequence::SelectAll);
    CaretExpect(m_lat, 4);
}

TEST_F(LocationFieldShown, MouseSelectsTheCharacterUnderIt)
{
    QTest::mouseClick(&m_lat, Qt::LeftButton, {}, {3, m_lat.height() / 2});
    CaretExpect(m_lat, 0);
    QTest::mouseClick(&m_lat, Qt::LeftButton, {}, {m_lat.width() - 3, m_lat.height() / 2});
    CaretExpect(m_lat, 9);
    QTest::mouseDClick(&m_lat, Qt::LeftButton, {}, {3, m_lat.height() / 2});
    CaretExpect(m_lat, 0);
}

TEST_F(LocationFieldShown, MouseDragSelectsNoMoreThanOne)
{
    QTest::mousePress(&m_lat, Qt::LeftButton, {}, {3, m_lat.height() / 2});
    QMouseEvent event(QEvent::MouseMove, QPointF(m_lat.width() - 3, 5),
                      QPointF(m_lat.mapToGlobal(QPoint(m_lat.width() - 3, 5))), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&m_lat, &event);
    CaretExpect(m_lat, 0);
    QTest::mouseRelease(&m_lat, Qt::LeftButton, {}, {m_lat.width() - 3, 5});
    CaretExpect(m_lat, 0);
}

TEST_F(LocationFieldShown, FocusSelectsOneCharacter)
{
    FocusGive(m_lon);
    CaretExpect(m_lon, 0);
}

TEST_F(LocationFieldShown, PasteTakesOnlyAWholePosition)
{
    QSignalSpy spy(&m_lat, &LocationField::Edited);
    QApplication::clipboard()->setText(QStringLiteral("38 30.0N"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    EXPECT_EQ(m_lat.text(), QStringLiteral("38°30.00'N"));
    EXPECT_EQ(m_lat.selectedText().length(), 1);
    EXPECT_EQ(spy.count(), 1);
    for (const char* sText : {"122°15.00'W", "38.5 and more", "", "99"}) {
        QApplication::clipboard()->setText(QString::fromUtf8(sText));
        const QString sBefore = m_lat.text();
        QTest::keySequence(&m_lat, QKeySequence::Paste);
        EXPECT_EQ(m_lat.text(), sBefore) << sText;
    }
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(LocationFieldShown, PastedPairFillsBothFieldsFromEither)
{
    m_lat.PairSet(&m_lon);
    m_lon.PairSet(&m_lat);
    QSignalSpy spyLat(&m_lat, &LocationField::Edited);
    QSignalSpy spyLon(&m_lon, &LocationField::Edited);
    for (LocationField* pField : {&m_lat, &m_lon}) {
        FocusGive(*pField);
        for (const char* sText :
             {"24.308333, -110.403333", "24°18.50'N 110°24.20'W", "24°18'30\"N, 110°24'12\"W",
              "24,308333; -110,403333", "W110°24.20' N24°18.50'"}) {
            m_lat.TextSet(QStringLiteral("00°00.00'S"));
            m_lon.TextSet(QStringLiteral("000°00.00'E"));
            QApplication::clipboard()->setText(QString::fromUtf8(sText));
            QTest::keySequence(pField, QKeySequence::Paste);
            EXPECT_EQ(m_lat.text(), QStringLiteral("24°18.50'N")) << sText;
            EXPECT_EQ(m_lon.text(), QStringLiteral("110°24.20'W")) << sText;
            CaretExpect(*pField, pField->CaretGet());
        }
    }
    EXPECT_EQ(spyLat.count(), 10);
    EXPECT_EQ(spyLon.count(), 10);
}

TEST_F(LocationFieldShown, PastedGridSquareFillsBothFields)
{
    m_lat.PairSet(&m_lon);
    QApplication::clipboard()->setText(QStringLiteral("fn42mm"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    EXPECT_EQ(m_lat.text(), QStringLiteral("42°30.78'N"));
    EXPECT_EQ(m_lon.text(), QStringLiteral("070°58.43'W"));
}

TEST_F(LocationFieldShown, APairWithOneHalfOutOfRangeIsRefusedWhole)
{
    m_lat.PairSet(&m_lon);
    QApplication::clipboard()->setText(QStringLiteral("24.5, 181.5"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 N"));
    EXPECT_EQ(m_lon.text(), QStringLiteral("000 00.00 E"));
}

TEST_F(LocationFieldShown, RefusedPasteSaysWhy)
{
    QSignalSpy spy(&m_lat, &LocationField::Hinted);
    QApplication::clipboard()->setText(QStringLiteral("122°15.00'W"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_TRUE(spy.at(0).at(0).toString().startsWith(
        QStringLiteral("Not pasted: \"122°15.00'W\" is a longitude. ")))
        << spy.at(0).at(0).toString().toStdString();
    QApplication::clipboard()->setText(QStringLiteral("22.5"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(LocationFieldShown, ALetterAtADigitPlaceSaysWhatGoesThere)
{
    QSignalSpy spy(&m_lat, &LocationField::Hinted);
    m_lat.CaretPlace(0, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("2-."));
    EXPECT_EQ(spy.count(), 0);
    QTest::keyClicks(&m_lat, QStringLiteral("n"));
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toString(),
              QStringLiteral("Digits here; a grid square can be pasted (Ctrl+V)"));
}

TEST_F(LocationFieldShown, NoTextGrowsBeyondTheMask)
{
    m_lat.TextSet(QStringLiteral("12°30.00'N"));
    m_lat.TextSet(LocationToText(LocationKind::Latitude, 100.25));
    EXPECT_EQ(m_lat.text(), QStringLiteral("12°30.00'N"));
    EXPECT_TRUE(m_lat.MarkIs());
    EXPECT_EQ(m_lat.toolTip(), QStringLiteral("100°15.00'N does not fit here"));
    m_lon.TextSet(LocationToText(LocationKind::Longitude, -1000.0));
    EXPECT_EQ(m_lon.text(), QStringLiteral("000 00.00 E"));
    m_lat.CaretPlace(9, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("s"));
    EXPECT_EQ(m_lat.text(), QStringLiteral("12°30.00'S"));
}

TEST_F(LocationFieldShown, UndoTakesBackWholeEntriesStepByStep)
{
    m_lat.CaretPlace(0, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("37"));
    QTest::keyClicks(&m_lat, QStringLiteral("x"));  // refused, so not an edit
    QTest::keyClick(&m_lat, Qt::Key_Right);
    QTest::keyClicks(&m_lat, QStringLiteral("5"));
    QApplication::clipboard()->setText(QStringLiteral("12°30.00'N"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    QTest::keyClicks(&m_lat, QStringLiteral("9"));
    for (const char* sText :
         {"12°30.00'N", "37 05.00 N", "37 00.00 N", "00 00.00 N", "00 00.00 N"}) {
        QTest::keySequence(&m_lat, QKeySequence::Undo);
        EXPECT_EQ(m_lat.text(), QString::fromUtf8(sText));
        EXPECT_EQ(m_lat.selectedText().length(), 1);
    }
}

TEST_F(LocationFieldShown, UndoTakesAPastedPairBackInBothFields)
{
    m_lat.PairSet(&m_lon);
    m_lon.PairSet(&m_lat);
    QTest::keyClicks(&m_lon, QStringLiteral("1"));
    QApplication::clipboard()->setText(QStringLiteral("24.308333, -110.403333"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    EXPECT_EQ(m_lon.text(), QStringLiteral("110°24.20'W"));
    QTest::keySequence(&m_lat, QKeySequence::Undo);
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 N"));
    EXPECT_EQ(m_lon.text(), QStringLiteral("100 00.00 E"));
    QTest::keySequence(&m_lat, QKeySequence::Undo);
    EXPECT_EQ(m_lon.text(), QStringLiteral("100 00.00 E")) << "an entry of the other field alone";
}

TEST_F(LocationFieldShown, UndoLeavesTheOtherFieldWhereItWasEditedSinceThePaste)
{
    m_lat.PairSet(&m_lon);
    m_lon.PairSet(&m_lat);
    QApplication::clipboard()->setText(QStringLiteral("24.308333, -110.403333"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    m_lon.CaretPlace(0, 1);
    QTest::keyClicks(&m_lon, QStringLiteral("0"));
    QTest::keySequence(&m_lat, QKeySequence::Undo);
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 N"));
    EXPECT_EQ(m_lon.text(), QStringLiteral("010°24.20'W"));
}

TEST_F(LocationFieldShown, ReturnIsToldOnceAndChangesNothing)
{
    int nReturned = 0;
    QObject::connect(&m_lat, &QLineEdit::returnPressed, [&nReturned] { ++nReturned; });
    QTest::keyClick(&m_lat, Qt::Key_Return);
    EXPECT_EQ(nReturned, 1);
    QTest::keyClick(&m_lat, Qt::Key_Enter);
    EXPECT_EQ(nReturned, 2);
    EXPECT_EQ(m_lat.text(), QStringLiteral("00 00.00 N"));
}

TEST_F(LocationFieldShown, NothingIsLeftToUndoAfterTheProgramSetTheText)
{
    QTest::keyClicks(&m_lat, QStringLiteral("3"));
    m_lat.TextSet(QStringLiteral("24°00.00'N"));
    QTest::keySequence(&m_lat, QKeySequence::Undo);
    EXPECT_EQ(m_lat.text(), QStringLiteral("24°00.00'N"));
}

TEST_F(LocationFieldShown, CopyTakesTheWholePosition)
{
    m_lat.TextSet(QStringLiteral("24°00.00'N"));
    QTest::keySequence(&m_lat, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("24°00.00'N"));
}

TEST_F(LocationFieldShown, TextSetWhileFocusedKeepsTheCaret)
{
    m_lat.CaretPlace(4, 1);
    m_lat.TextSet(QStringLiteral("24°00.00'N"));
    CaretExpect(m_lat, 4);
}

TEST_F(LocationFieldShown, InputMethodGoesThroughTheMask)
{
    m_lat.CaretPlace(0, 1);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("4x2"));
    QApplication::sendEvent(&m_lat, &event);
    EXPECT_EQ(m_lat.text(), QStringLiteral("42 00.00 N"));
}

TEST_F(LocationFieldShown, UndoTakesAPastedPairBackFromTheHalfThatStayed)
{
    m_lat.PairSet(&m_lon);
    m_lon.PairSet(&m_lat);
    QApplication::clipboard()->setText(QStringLiteral("24.308333, -110.403333"));
    for (LocationField* pFrom : {&m_lat, &m_lon}) {
        m_lat.TextSet(QStringLiteral("24°18.50'N"));
        m_lon.TextSet(QStringLiteral("000°00.00'E"));
        QTest::keySequence(pFrom, QKeySequence::Paste);
        EXPECT_EQ(m_lon.text(), QStringLiteral("110°24.20'W"));
        QTest::keySequence(&m_lat, QKeySequence::Undo);
        EXPECT_EQ(m_lat.text(), QStringLiteral("24°18.50'N"));
        EXPECT_EQ(m_lon.text(), QStringLiteral("000°00.00'E"));
    }
}

TEST_F(LocationFieldShown, APasteThatChangesNothingIsNothingToUndo)
{
    m_lat.PairSet(&m_lon);
    m_lat.TextSet(QStringLiteral("14°18.50'N"));
    m_lon.TextSet(QStringLiteral("110°24.20'W"));
    m_lat.CaretPlace(0, 1);
    QTest::keyClicks(&m_lat, QStringLiteral("2"));
    QApplication::clipboard()->setText(QStringLiteral("24.308333, -110.403333"));
    QTest::keySequence(&m_lat, QKeySequence::Paste);
    QTest::keySequence(&m_lat, QKeySequence::Undo);
    EXPECT_EQ(m_lat.text(), QStringLiteral("14°18.50'N")) << "the entry before the paste";
}

}  // namespace
