#include "ui/main/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "system/NumberLib.h"

namespace {

constexpr float kTwips = 15.0F;

/// Pixels of twips. Sizes and places far beyond any screen are cut, so that sums stay in range.
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
    const QSize sizeFrame = window.frameGeometry().size() - window.size();
    const QSize sizeLeast = window.minimumSizeHint() + sizeFrame;
    const QRect rect = RectOnScreen(rectOuter, sizeLeast, aScreens);
    window.resize(rect.size() - sizeFrame);
    window.move(rect.topLeft());
}

void WindowPutBeside(QWidget& window, const QWidget& windowOther)
{
    const QRect rectScreen = windowOther.screen()->availableGeometry();
    const QRect rectOther = windowOther.frameGeometry();
    const int nLeftMost = rectScreen.left() + rectScreen.width() - window.width();
    window.move(std::min(rectOther.left() + rectOther.width(), nLeftMost), rectOther.top());
}
