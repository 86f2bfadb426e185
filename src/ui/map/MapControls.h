/// @file MapControls.h
/// The painted controls of the map window: map picture, markers and station symbols; also the small
/// pictures of its buttons.
///
/// Tests:   tests/ui/map/MapMarkersTest.cpp, MapStationsTest.cpp
#pragma once

#include <QIcon>
#include <QImage>
#include <QMouseEvent>
#include <QWidget>
#include <functional>

#include "ui/map/MapColors.h"
#include "ui/map/MapView.h"

/// A control that passes its mouse events on. Positions are in the control's own pixels.
class MouseControl : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

Q_SIGNALS:
    /// The pointer has entered.
    void Entered();
    void MouseDown(QMouseEvent* pEvent);
    void MouseMove(QMouseEvent* pEvent);
    void MouseUp(QMouseEvent* pEvent);

protected:
    void enterEvent(QEnterEvent* /*pEvent*/) override { Q_EMIT Entered(); }
    void mousePressEvent(QMouseEvent* pEvent) override { Q_EMIT MouseDown(pEvent); }
    void mouseMoveEvent(QMouseEvent* pEvent) override { Q_EMIT MouseMove(pEvent); }
    void mouseReleaseEvent(QMouseEvent* pEvent) override { Q_EMIT MouseUp(pEvent); }
    /// The second press of a double click counts as a press.
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override { Q_EMIT MouseDown(pEvent); }
};

/// The map picture: an image, and layers above it that are painted every time.
class PctMap final : public MouseControl {
    Q_OBJECT
public:
    explicit PctMap(QWidget* pParent);
    /// Gives the picture this control's size and pixel density and fills it with the background's
    /// colour, unless it has them already.
    void PictureSize();

    QImage m_img;             ///< device pixels
    bool m_bOverlay = false;  ///< the picture is outlines for cells
    std::function<void(QPainter&)> m_fnLayersPaint;

Q_SIGNALS:
    /// The control has gained or lost the focus.
    void FocusMoved(bool bHere);
    void Wheel(QWheelEvent* pEvent);
    /// The screen's pixel density has changed.
    void DensityChanged();

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override { Q_EMIT Wheel(pEvent); }
    void focusInEvent(QFocusEvent* /*pEvent*/) override { Q_EMIT FocusMoved(true); }
    void focusOutEvent(QFocusEvent* /*pEvent*/) override { Q_EMIT FocusMoved(false); }

private:
    QImage m_imgShown;  // the picture in the colours in force
    MapLook m_lookShown;
    qint64 m_nShownKey = 0;
};

/// A marker: a flag with its text on a pin, whose foot in the control's centre marks the place.
/// Below the pin the control is empty and lets the mouse through. The focused marker takes the
/// arrow keys.
class MarkerLabel final : public MouseControl {
    Q_OBJECT
public:
    /// @param bDark  white on dark blue; otherwise black on yellow
    MarkerLabel(const QString& sText, bool bDark, QWidget* pParent);
    [[nodiscard]] const QString& TextGet() const { return m_sText; }
    [[nodiscard]] QColor FillGetColor() const;
    [[nodiscard]] QColor TextGetColor() const;

Q_SIGNALS:
    /// An arrow key on the focused flag: pixels right and down, ten with Shift.
    void KeyMove(int nByX, int nByY);
    void FocusLeft();

protected:
    bool event(QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void focusInEvent(QFocusEvent* pEvent) override;
    void focusOutEvent(QFocusEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;

private:
    [[nodiscard]] QRect FlagGetRect() const;
    QString m_sText;
    bool m_bDark;
};

/// A station's symbol: nine pixels wide, with colour and shape by its system (from 1).
class StationDot final : public MouseControl {
    Q_OBJECT
public:
    StationDot(int iSystem, QWidget* pParent);
    /// Replaces the colour of its system; an invalid colour restores it.
    void ColorSet(const QColor& clr);
    [[nodiscard]] QColor ColorGet() const;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    int m_iSystem;
    QColor m_clr;
};

/// Pictures of the buttons: "Overlay", "Stations", "Path", "Night", "Twilight"; empty for any other
/// key.
[[nodiscard]] QIcon MapPictureGet(const QString& sKey);
