#include "ui/common/NightStyle.h"

#include <QApplication>
#include <QGraphicsEffect>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>
#include <QWidget>
#include <utility>

#include "ui/common/NightColors.h"
#include "ui/common/NightPointer.h"

namespace {

/// Paints a finished window in reds. It always takes the whole window: only Qt knows which part
/// needs painting, and clips to it.
class NightEffect final : public QGraphicsEffect {
public:
    using QGraphicsEffect::QGraphicsEffect;

protected:
    void draw(QPainter* pPainter) override
    {
        const QRect rct = sourceBoundingRect().toAlignedRect();
        const double dDensity = pPainter->device()->devicePixelRatioF();
        QImage img((QSizeF(rct.size()) * dDensity).toSize(), QImage::Format_RGB32);
        img.setDevicePixelRatio(dDensity);
        img.fill(Qt::black);
        {
            QPainter painter(&img);
            painter.translate(-rct.topLeft());
            drawSource(&painter);
        }
        NightReds(img);
        pPainter->drawImage(rct.topLeft(), img);
    }
};

void WindowDarken(QWidget& window)
{
    if (dynamic_cast<NightEffect*>(window.graphicsEffect()) == nullptr)
        window.setGraphicsEffect(new NightEffect(&window));
}

void WindowLighten(QWidget& window)
{
    if (dynamic_cast<NightEffect*>(window.graphicsEffect()) != nullptr)
        window.setGraphicsEffect(nullptr);
}

/// Fusion sets frames off by shades of the background; black has none.
class NightStyle final : public QProxyStyle {
public:
    NightStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawPrimitive(PrimitiveElement eElement, const QStyleOption* pOption, QPainter* pPainter,
                       const QWidget* pWidget) const override
    {
        QProxyStyle::drawPrimitive(eElement, pOption, pPainter, pWidget);
        if (FrameIs(eElement))
            FramePaint(*pPainter, pOption->rect, (pOption->state & State_HasFocus) != 0);
        if (eElement == PE_FrameGroupBox)  // the title is above the frame
            FramePaint(*pPainter,
                       pOption->rect.adjusted(0, pOption->fontMetrics.height() + 1, 0, 0), false);
        if (eElement == PE_IndicatorRadioButton) {
            pPainter->setPen(QColor(kNightEdge));
            pPainter->setBrush(Qt::NoBrush);
            pPainter->drawEllipse(pOption->rect.adjusted(1, 1, -2, -2));
        }
    }
    void drawComplexControl(ComplexControl eControl, const QStyleOptionComplex* pOption,
                            QPainter* pPainter, const QWidget* pWidget) const override
    {
        QProxyStyle::drawComplexControl(eControl, pOption, pPainter, pWidget);
        if (eControl == CC_ComboBox || eControl == CC_SpinBox)
            FramePaint(*pPainter, pOption->rect, (pOption->state & State_HasFocus) != 0);
        if (eControl == CC_ScrollBar)
            FramePaint(*pPainter,
                       subControlRect(CC_ScrollBar, pOption, SC_ScrollBarSlider, pWidget), false);
    }

private:
    static bool FrameIs(PrimitiveElement eElement)
    {
        switch (eElement) {
            case PE_Frame:
            case PE_FrameLineEdit:
            case PE_FrameMenu:
            case PE_FrameTabWidget:
            case PE_PanelButtonCommand:
            case PE_PanelTipLabel:
            case PE_IndicatorCheckBox:
                return true;
            default:
                return false;
        }
    }
    static void FramePaint(QPainter& painter, const QRect& rct, bool bFocus)
    {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QColor(bFocus ? kNightInk : kNightEdge));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rct.adjusted(0, 0, -1, -1));
        painter.restore();
    }
};

/// Applies the effect to windows as they open.
class NightWatch final : public QObject {
protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::Polish || pEvent->type() == QEvent::Show) {
            auto* const pWidget = qobject_cast<QWidget*>(pObject);
            if (pWidget != nullptr && pWidget->isWindow())
                WindowDarken(*pWidget);
        }
        return false;
    }
};

/// Night is on while one exists.
class Night {
public:
    Night() : m_sStyle(QApplication::style()->name()), m_palTip(QToolTip::palette())
    {
        QApplication::setStyle(new NightStyle);
        const QPalette pal = NightPaletteGet();
        QApplication::setPalette(pal);
        QToolTip::setPalette(pal);
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, true);
        qApp->installEventFilter(&m_watch);
        for (QWidget* pWindow : QApplication::topLevelWidgets()) WindowDarken(*pWindow);
    }
    ~Night()
    {
        qApp->removeEventFilter(&m_watch);
        for (QWidget* pWindow : QApplication::topLevelWidgets()) WindowLighten(*pWindow);
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, m_bOwnDialogs);
        QApplication::setStyle(m_sStyle);
        QApplication::setPalette(QPalette());  // back to the system's palette
        QToolTip::setPalette(m_palTip);
    }
    Night(const Night&) = delete;
    Night& operator=(const Night&) = delete;

private:
    QString m_sStyle;
    QPalette m_palTip;
    bool m_bOwnDialogs = QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs);
    NightWatch m_watch;
    NightPointer m_pointer;
};

}  // namespace

void NightSet(bool bNight)
{
    static Night* s_pNight = nullptr;  // not freed: at the program's end the application goes first
    if (bNight == (s_pNight != nullptr))
        return;
    if (bNight)
        s_pNight = new Night;
    else
        delete std::exchange(s_pNight, nullptr);
}

QPalette NightPaletteGet()
{
    const QColor clrInk(kNightInk);
    const QColor clrButton(0x24, 0x00, 0x00);
    const QColor clrGrey(0xAC, 0x00, 0x00);
    QPalette pal;
    const auto Set = [&pal](std::initializer_list<QPalette::ColorRole> aRoles, const QColor& clr) {
        for (const QPalette::ColorRole eRole : aRoles) pal.setColor(eRole, clr);
    };
    Set({QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText,
         QPalette::ToolTipText, QPalette::Link, QPalette::LinkVisited, QPalette::Highlight},
        clrInk);
    Set({QPalette::Window, QPalette::Base, QPalette::ToolTipBase, QPalette::Shadow,
         QPalette::HighlightedText},
        Qt::black);
    Set({QPalette::Button, QPalette::Dark}, clrButton);
    pal.setColor(QPalette::AlternateBase, QColor(0x12, 0x00, 0x00));
    pal.setColor(QPalette::PlaceholderText, clrGrey);
    pal.setColor(QPalette::Mid, QColor(kNightEdge));
    pal.setColor(QPalette::Light, QColor(0x60, 0x00, 0x00));
    pal.setColor(QPalette::Midlight, QColor(0x40, 0x00, 0x00));
    for (const QPalette::ColorRole eRole :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        pal.setColor(QPalette::Disabled, eRole, clrGrey);
    pal.setColor(QPalette::Disabled, QPalette::Highlight, clrGrey);
    return pal;
}
