/// @file WindowPlace.h
/// A window's place in the profile: the outer frame in twips, brought onto a visible screen when it
/// is read back.
///
/// Units:   pixels; twips are pixels times 15.
/// Tests:   tests/ui/common/WindowPlaceTest.cpp
#pragma once

#include <QList>
#include <QRect>
#include <optional>

#include "settings/ProfileLib.h"

class QWidget;

/// The outer frame as the profile keeps it; nothing while the window is not in its normal state.
[[nodiscard]] std::optional<WindowData> WindowDataGet(const QWidget& window);

/// One dimension of an outer frame replaced.
void WindowKeyApply(QRect& rectOuter, WindowKey eKey, float fTwips);

/// The rectangle made to fit the screen that it overlaps most (the first one when it overlaps none)
/// and moved wholly onto it.
/// @param aScreens  available areas; without any the rectangle is returned as it is
[[nodiscard]] QRect RectOnScreen(const QRect& rectOuter, const QSize& sizeLeast,
                                 const QList<QRect>& aScreens);

/// Places a window by its outer frame, on a visible screen. A maximised or minimised one stays so.
void WindowOuterSet(QWidget& window, const QRect& rectOuter);

/// A place on the screen beside another rectangle: right of it at the same height, else where the
/// least of it is hidden.
[[nodiscard]] QRect RectBeside(const QSize& size, const QRect& rectOther, const QRect& rectScreen);

/// Puts a window not yet shown beside another, on its screen. The frame, which nobody knows before
/// the showing, is taken to be like the other's.
void WindowPutBeside(QWidget& window, const QWidget& windowOther);

/// The same for the size alone: a window not yet shown becomes no larger than the other's screen.
void WindowFit(QWidget& window, const QWidget& windowOther);
