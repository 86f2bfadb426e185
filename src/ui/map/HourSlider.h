/// @file HourSlider.h
/// The day as a row of 24 hours, one of them chosen with mouse, wheel or keys. Hours that are not
/// computed yet are hatched.
///
/// Units:   hours 0..23 UTC.
/// Keys:    Left and Right move by an hour (past midnight, too), Home and End to the ends, Up and
///          Down change the frequency, Space plays. The control keeps them while it has the focus.
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
    /// The hours that are computed; of the others nothing is known before they are asked for.
    void ComputedSet(const AreaHours& hours);
    /// Shows an hour without emitting that it was chosen.
    void HourShow(int iHour);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void PlayRequested();
    /// The next frequency of the list (1) or the previous one (-1).
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
    AreaHours m_hoursComputed;
    int m_nWheel = 0;
};
