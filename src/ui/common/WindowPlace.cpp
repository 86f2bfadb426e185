#include "ui/common/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "system/NumberLib.h"

namespace {

constexpr float kTwips = 15.0F;

/// Twips to pixels. Sizes and places far beyond any screen are clipped, so that sums do not
/// overflow.
int PixelsGet(float fTwips)
{
    constexpr int kFarthest = 100000;
    return std::clamp(RoundHalfEven(static_cast<double>(fTwips / kTwips)), -kFarthest, kFarthest);
}

long long Area(const QRect& rect)
{
    return rect.isValid() ? static_cast<long long>(rect.width()) * rect.height() : 0;
}

bool NormalIs(const QWidget& window)
{
    return !window.isMinimized() && !window.isMaximized() && !window.isFullScreen();
}

/// How much the frame adds to the inner size.
QSize FrameSize(const QWidget& window) { return window.frameGeometry().size() - window.size(); }

}  // namespace

std::optional<WindowData> WindowDataGet(const QWidget& window)
{
    if (!NormalIs(window))
        return {};
    const QRect rect = window.frameGeometry();
    const auto Twips = [](int nPixels) { return static_cast<float>(nPixels) * kTwips; };
    return WindowData{Twips(rect.height()), Twips(rect.left()), Twips(rect.top()),
                      Twips(rect.width())};
}

void WindowKeyApply(QRect& rectOuter, WindowKey eKey, float fTwips)
{
    const int nPixels = PixelsGet(fTwips);
    switch (eKey) {
        case WindowKey::Height:
            rectOuter.setHeight(nPixels);
            break;
        case WindowKey::Left:
            rectOuter.moveLeft(nPixels);
            break;
        case WindowKey::Top:
            rectOuter.moveTop(nPixels);
            break;
        case WindowKey::Width:
            rectOuter.setWidth(nPixels);
            break;
    }
}

QRect RectOnScreen(const QRect& rectOuter, const QSize& sizeLeast, const QList<QRect>& aScreens)
{
    if (aScreens.isEmpty())
        return rectOuter;
    QRect rect(rectOuter.topLeft(), rectOuter.size().expandedTo(sizeLeast));
    const QRect rectScreen = *std::max_element(
        aScreens.begin(), aScreens.end(), [&rect](const QRect& rectA, const QRect& rectB) {
            return Area(rectA.intersected(rect)) < Area(rectB.intersected(rect));
        });
    rect.setSize(rect.size().boundedTo(rectScreen.size()));
    rect.moveLeft(std::clamp(rect.left(), rectScreen.left(),
                             rectScreen.left() + rectScreen.width() - rect.width()));
    rect.moveTop(std::clamp(rect.top(), rectScreen.top(),
                            rectScreen.top() + rectScreen.height() - rect.height()));
    return rect;
}

void WindowOuterSet(QWidget& window, const QRect& rectOuter)
{
    if (!NormalIs(window))
        return;
    QList<QRect> aScreens;
    for (const QScreen* pScreen : QGuiApplication::screens())
        aScreens.append(pScreen->availableGeometry());
    const QSize sizeFrame = FrameSize(window);
    const QSize sizeLeast = window.minimumSizeHint() + sizeFrame;
    const QRect rect = RectOnScreen(rectOuter, sizeLeast, aScreens);
    window.resize(rect.size() - sizeFrame);
    window.move(rect.topLeft());
}

QRect RectBeside(const QSize& size, const QRect& rectOther, const QRect& rectScreen)
{
    QRect rectBest;
    for (const int nLeft : {rectOther.left() + rectOther.width(), rectOther.left() - size.width()})
        for (const int nTop : {rectOther.top(), rectOther.top() + rectOther.height(),
                               rectOther.top() - size.height()}) {
            const QRect rect = RectOnScreen({{nLeft, nTop}, size}, {}, {rectScreen});
            if (rectBest.isNull() || Area(rect & rectOther) < Area(rectBest & rectOther))
                rectBest = rect;
        }
    return rectBest;
}

void WindowPutBeside(QWidget& window, const QWidget& windowOther)
{
    const QSize sizeFrame = FrameSize(windowOther);
    const QRect rect = RectBeside(window.size() + sizeFrame, windowOther.frameGeometry(),
                                  windowOther.screen()->availableGeometry());
    window.resize(rect.size() - sizeFrame);
    window.move(rect.topLeft());
}

void WindowFit(QWidget& window, const QWidget& windowOther)
{
    const QSize sizeScreen = windowOther.screen()->availableSize();
    window.resize(window.size().boundedTo(sizeScreen - FrameSize(windowOther)));
}
