/// @file WindowPlace.h
/// A window's place in the profile: its outer frame in twips, moved onto a visible screen when it
/// is read back.
///
/// Units:   pixels; 1 pixel is 15 twips.
/// Tests:   tests/ui/common/WindowPlaceTest.cpp
#pragma once

#include <QList>
#include <QRect>
#include <optional>

#include "settings/ProfileLib.h"

class QWidget;

/// The outer frame for the profile; nothing if the window is maximised, minimised or full screen.
[[nodiscard]] std::optional<WindowData> WindowDataGet(const QWidget& window);

/// Replaces one dimension of an outer frame.
void WindowKeyApply(QRect& rectOuter, WindowKey eKey, float fTwips);

/// Shrinks the rectangle to the screen that it overlaps most (the first one if it overlaps none)
/// and moves it wholly onto it.
/// @param aScreens  available areas; if empty, the rectangle is returned unchanged
[[nodiscard]] QRect RectOnScreen(const QRect& rectOuter, const QSize& sizeLeast,
                                 const QList<QRect>& aScreens);

/// Gives a window its outer frame, on a visible screen. A maximised or minimised window stays so.
void WindowOuterSet(QWidget& window, const QRect& rectOuter);

/// A place on the screen beside another rectangle: to its right at the same height if there is
/// room, else where it hides the least of it.
[[nodiscard]] QRect RectBeside(const QSize& size, const QRect& rectOther, const QRect& rectScreen);

/// Puts a window that is not yet shown beside another, on the same screen. Its frame is not known
/// before it is shown, so the other's is assumed.
void WindowPutBeside(QWidget& window, const QWidget& windowOther);

/// Shrinks a window that is not yet shown to the other's screen.
void WindowFit(QWidget& window, const QWidget& windowOther);
