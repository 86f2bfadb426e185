#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

#include "ui/map/MapGraticule.h"

namespace {

struct StepCase {
    double dSpan;
    int nStep;
};
std::ostream& operator<<(std::ostream& stm, const StepCase& c)
{
    return stm << "span_" << std::lround(c.dSpan * 100);
}
class GraticuleStep : public testing::TestWithParam<StepCase> {};

TEST_P(GraticuleStep, BySpan) { EXPECT_EQ(GraticuleGetStep(GetParam().dSpan), GetParam().nStep); }

// The step of the table, doubled while the span holds more than five steps.
INSTANTIATE_TEST_SUITE_P(Spans, GraticuleStep,
                         testing::Values(StepCase{0.01, 1}, StepCase{1, 1}, StepCase{5, 1},
                                         StepCase{5.01, 2}, StepCase{10, 2}, StepCase{10.01, 4},
                                         StepCase{20, 4}, StepCase{20.01, 5}, StepCase{25, 5},
                                         StepCase{25.01, 10}, StepCase{50, 10}, StepCase{50.01, 20},
                                         StepCase{51, 20}, StepCase{100, 20}, StepCase{100.01, 45},
                                         StepCase{180, 45}, StepCase{180.01, 90}, StepCase{360, 90},
                                         StepCase{450, 90}, StepCase{450.01, 180},
                                         StepCase{579.43, 180}));

MapView ViewMake(const MapBox& box)
{
    MapView view;
    view.m_nMapWidth = 800;
    view.m_nMapHeight = 600;
    view.ZoomSet(view.BoxGetZoom(box));
    return view;
}

std::string LabelsOf(const std::vector<GraticuleLine>& aLines)
{
    std::string sLabels;
    for (const GraticuleLine& lin : aLines) sLabels += lin.sLabel.toStdString() + " ";
    return sLabels;
}

TEST(Graticule, LabelsNameHemispheresWithTheEquatorSouth)
{
    MapView view;
    view.m_nMapWidth = 720;
    view.m_nMapHeight = 676;
    view.ZoomSet(view.BoxGetZoom({90, 0, -90, 360}));
    EXPECT_EQ(LabelsOf(ParallelsGet(view)), "90S 0S 90N ");
    EXPECT_EQ(LabelsOf(MeridiansGet(view)), "0E 90E 180E 90W 0W ");
}

TEST(Graticule, LinesLieWithinTheViewAtTheirPixels)
{
    const MapView view = ViewMake({28, 173, 18, 187});
    EXPECT_EQ(LabelsOf(MeridiansGet(view)), "176E 180E 176W ");
    for (const GraticuleLine& lin : MeridiansGet(view)) {
        EXPECT_GE(lin.nDegrees, view.m_box.dLeft);
        EXPECT_LE(lin.nDegrees, view.m_box.dRight);
        EXPECT_EQ(lin.nPixel, view.LatLonGetPoint(0, lin.nDegrees).x());
    }
    for (const GraticuleLine& lin : ParallelsGet(view)) {
        EXPECT_EQ(lin.nPixel, view.LatLonGetPoint(lin.nDegrees, 0).y());
    }
    // Parallels count from the south pole in steps of 4, so these are no multiples of 4.
    EXPECT_EQ(LabelsOf(ParallelsGet(view)), "18N 22N 26N ");
}

TEST(Graticule, LargerSpanDecides)
{
    EXPECT_EQ(GraticuleGetStep(MapBox{4, 0, 0, 18}), 4);
    EXPECT_EQ(GraticuleGetStep(MapBox{18, 0, 0, 4}), 4);
}

TEST(Graticule, DeepestZoomMayShowNoLine)
{
    const MapView view = ViewMake({38.6, 237.4, 38.4, 237.6});
    EXPECT_TRUE(ParallelsGet(view).empty());
    EXPECT_TRUE(MeridiansGet(view).empty());
}

struct MinuteCase {
    double dSpan;
    int nStep;
};
class GraticuleMinutes : public testing::TestWithParam<MinuteCase> {};

TEST_P(GraticuleMinutes, BySpan) { EXPECT_EQ(MinutesGetStep(GetParam().dSpan), GetParam().nStep); }

INSTANTIATE_TEST_SUITE_P(Spans, GraticuleMinutes,
                         testing::Values(MinuteCase{1, 0}, MinuteCase{0.99, 15},
                                         MinuteCase{0.83, 10}, MinuteCase{0.41, 5},
                                         MinuteCase{0.16, 2}, MinuteCase{0.08, 1},
                                         MinuteCase{0.01, 1}, MinuteCase{360, 0}));

TEST(Graticule, MinutesHaveTheirOwnLinesBelowOneDegree)
{
    MapView view = ViewMake({38.7, 237.3, 38.2, 237.7});
    EXPECT_EQ(LabelsOf(MinuteParallelsGet(view)), "38°15'N 38°30'N ");
    EXPECT_EQ(LabelsOf(MinuteMeridiansGet(view)), "122°45'W 122°30'W 122°15'W ");
    for (const GraticuleLine& lin : MinuteMeridiansGet(view)) EXPECT_GT(lin.nPixel, 0);
    EXPECT_TRUE(MinuteParallelsGet(ViewMake({39, 237, 38, 238.1})).empty());
}

TEST(Graticule, WholeDegreesAmongMinutesKeepTheirRequiredLabel)
{
    const MapView view = ViewMake({38.2, 237.8, 37.9, 238.2});
    EXPECT_EQ(LabelsOf(ParallelsGet(view)), "38N ");
    EXPECT_EQ(LabelsOf(MeridiansGet(view)), "122W ");
    EXPECT_EQ(LabelsOf(MinuteParallelsGet(view)).find("38°00'N"), std::string::npos);
}

TEST(Graticule, MinutesSouthAndAtBothEdgesOfTheWorld)
{
    MapView view = ViewMake({-0.02, 0, -0.1, 0.08});
    EXPECT_NE(LabelsOf(MinuteParallelsGet(view)).find("0°02'S"), std::string::npos);
    EXPECT_NE(LabelsOf(MinuteMeridiansGet(view)).find("0°02'E"), std::string::npos);
    view.m_dEdge = kEdgeDateLine;
    view.ZoomSet(view.BoxGetZoom({10.08, -0.04, 10, 0.04}));
    EXPECT_NE(LabelsOf(MinuteMeridiansGet(view)).find("0°02'W"), std::string::npos);
    EXPECT_NE(LabelsOf(MinuteMeridiansGet(view)).find("0°02'E"), std::string::npos);
}

TEST(Graticule, LabelsNameLongitudesAlsoWhereTheWorldBeginsAt180)
{
    MapView view;
    view.m_nMapWidth = 720;
    view.m_nMapHeight = 676;
    view.m_dEdge = kEdgeDateLine;
    view.ZoomSet(view.BoxGetZoom(view.BoxGetWhole()));
    EXPECT_EQ(LabelsOf(MeridiansGet(view)), "180W 90W 0E 90E 180E ");
}

}  // namespace
