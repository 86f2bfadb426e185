/// @file DaysBand.h
/// The band between a bad and a good day of one frequency over 24 hours, with the median and the
/// need as lines, painted for the screen, a picture or paper.
///
/// Units:   dB in 1 Hz; hours UTC.
/// Tests:   tests/ui/plan/FrmDaysTest.cpp
#pragma once

#include <QPainter>
#include <QWidget>
#include <optional>

#include "studies/days/Days.h"
#include "ui/common/HourLabels.h"
#include "ui/page/Page.h"

struct DaysBand {
    std::array<DaysCell, kHourCount> aHours;  ///< 0 to 23
    HourLabels asHour;
    float fNeed = 0.0F;
    int iHour = -1;  ///< the selected hour, 0 to 23; -1: none
};

/// The hour under a point of the rectangle in which the band is painted.
[[nodiscard]] std::optional<int> DaysBandHourAt(const QRectF& rct, const QFontMetricsF& metrics,
                                                const QPointF& pnt);

/// @param clrInk  of lines and letters on the screen; on paper they are black
void DaysBandPaint(QPainter& painter, const QRectF& rct, const DaysBand& band, const QColor& clrInk,
                   PageLook eLook);

class DaysBandView final : public QWidget {
    Q_OBJECT
public:
    explicit DaysBandView(QWidget* pParent);
    void Show(const DaysBand& band);
    [[nodiscard]] const DaysBand& BandGet() const { return m_band; }

Q_SIGNALS:
    void HourClicked(int iHour);  ///< 0 to 23

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;

private:
    DaysBand m_band;
};
