/// @file HourSlider.h
/// The day as a row of 24 hours, one of which is chosen: by mouse, wheel and keys. Hours that are
/// not there yet are hatched.
///
/// Units:   hours 0..23 of UTC.
/// Keys:    Left, Right an hour (over midnight), Home, End; Up, Down the next frequency; Space
///          plays. They are the control's own while it has the focus.
/// Tests:   tests/ui/map/HourBarTest.cpp
#pragma once

#include <QAbstractSlider>

#include "propagation/PropagationTable.h"
#include "studies/areaday/AreaDays.h"
#include "ui/common/HourLabels.h"

class HourSlider final : public QAbstractSlider {
    Q_OBJECT
public:
    explicit HourSlider(QWidget* pParent);

    void LabelsSet(const HourLabels& asHour);
    /// Hours that can be shown at once; nobody knows of the others before they are asked for.
    void ThereSet(const AreaHours& hours);
    /// Shows an hour without telling that it was chosen.
    void HourShow(int iHour);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void PlayWanted();
    /// The next frequency of the list (1) or the one before (-1).
    void FrequencyStep(int nBy);

protected:
    bool event(QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;

private:
    void HourStep(int nBy);
    [[nodiscard]] QRect HourGetRect(int iHour) const;
    [[nodiscard]] int HourAt(int nX) const;

    HourLabels m_asHour;
    AreaHours m_hoursThere;
    int m_nWheel = 0;
};
