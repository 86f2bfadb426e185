/// @file CurvesPlot.h
/// The curves of a day, painted for the screen, a picture or paper: highest, optimum and lowest
/// usable frequency over 24 hours, a ribbon in the SNR's colours for each frequency of the list,
/// the sun at both ends, and a line at the present time. Ribbons that would overlap are moved
/// apart.
///
/// Units:   the painter's; hours UTC; kHz.
/// Tests:   tests/ui/curves/CurvesPlotTest.cpp
#pragma once

#include <QColor>
#include <QFontMetricsF>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "settings/Palette.h"
#include "studies/curves/Curves.h"
#include "ui/page/Page.h"

/// How a day is shown.
struct CurvesView {
    std::array<QString, kHourCount> asHour;  ///< labels of the hours 0 to 23 UTC
    double dNow = -1.0;                      ///< 0 to 24; below 0: no line
    int iHour = -1;                          ///< the selected hour, 0 to 23; -1: none
    int iRibbon = -1;                        ///< the selected ribbon, from 0; -1: none
    float fNeed = 40.0F;  ///< dB; in black and white, ribbons are solid from here up
    bool bOld = false;    ///< the ribbons are faded: the settings are newer
    QColor clrPaper = Qt::white;
    QColor clrInk = Qt::black;
    PageLook eLook = PageLook::Colour;
    Palette ePalette = Palette::Standard;
};

struct CurvesCell {
    int iHour = 0;
    int iRibbon = 0;
    bool operator==(const CurvesCell&) const = default;
};

class CurvesPlot {
public:
    /// @param metrics  of the font that Paint will use
    CurvesPlot(const QRectF& rct, const QFontMetricsF& metrics, const DayCurves& day,
               const CurvesView& view);

    /// REQUIRES: day and view outlive the plot.
    void Paint(QPainter& painter) const;

    /// The cell of the ribbon nearest to a point in the plot.
    [[nodiscard]] std::optional<CurvesCell> CellAt(const QPointF& pnt) const;
    [[nodiscard]] QRectF CellRect(const CurvesCell& cell) const;
    /// The labels of the frequencies, one above another. Where there is no room for all, some are
    /// left out, but never the selected ribbon's.
    struct Label {
        int iRibbon = 0;
        double dY = 0.0;  ///< its middle
    };
    [[nodiscard]] std::vector<Label> LabelsGet() const;
    /// Vertical position of a frequency.
    /// @param dFrequency  kHz
    [[nodiscard]] double YGet(double dFrequency) const;
    /// Left edge of an hour, 0 to 24.
    [[nodiscard]] double XGet(double dHour) const;

private:
    void RangeSet();
    void RibbonsSet();
    [[nodiscard]] double StepGet() const;
    void GridPaint(QPainter& painter) const;
    void RibbonPaint(QPainter& painter, int iRibbon) const;
    void FramePaint(QPainter& painter) const;
    void CurvePaint(QPainter& painter, const DayCurve& afValue, Qt::PenStyle eStyle) const;
    void NamesPaint(QPainter& painter) const;
    void SunPaint(QPainter& painter, const SunCurve& afHeight, double dTop,
                  const QString& sName) const;
    void HoursPaint(QPainter& painter) const;
    void LabelsPaint(QPainter& painter) const;

    QRectF m_rctPlot;  // the area of the curves, without labels
    QFontMetricsF m_metrics;
    const DayCurves& m_day;
    const CurvesView& m_view;
    double m_dLeast = 0.0;  // kHz, at the bottom and at the top
    double m_dMost = 1.0;
    double m_dRibbon = 1.0;          // height of a ribbon
    std::vector<double> m_aRibbonY;  // middle of each ribbon, by its index
    std::vector<int> m_aiFromTop;    // indices of the ribbons, highest frequency first
};
