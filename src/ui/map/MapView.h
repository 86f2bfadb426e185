/// @file MapView.h
/// Which part of the world image a map picture shows: ordinates, view box, zoom, and the way
/// between positions and pixels. No widgets.
///
/// Units:   degrees (north and east positive); map degrees for ordinates, +90 at the image's top
///          edge; image pixels and picture pixels. The image begins at an edge e of 0 or -180, and
///          view longitudes are on the scale e..e+360; a view wider or beyond the image runs over
///          its ends.
/// Domain:  any finite or not-a-number argument; a scale is never zero, negative or not-a-number.
///          Pixels are rounded half to even and kept within the 32-bit range.
/// Errors:  none reported.
/// Source:  Mercator projection, with the constant pi = 3.14159265358979.
/// Tests:   tests/ui/map/MapViewTest.cpp
#pragma once

#include <QPoint>
#include <QRect>

#include "geo/SphereLib.h"
#include "ui/map/WorldImage.h"

struct MapBox {
    double dTop = 90.0;
    double dLeft = 0.0;
    double dBottom = -90.0;
    double dRight = 360.0;
};

/// What one zoom asks for: image pixels per picture pixel, and the centre.
struct MapZoom {
    double dScale = 1.0;
    double dCenterLat = 0.0;
    double dCenterLon = 0.0;
};

/// Closest zoom, image pixels per picture pixel; 1200 picture pixels are then 0.12 degrees.
inline constexpr double kScaleMin = 0.1;

/// The longitudes at which the image can begin: Greenwich, which leaves the Pacific whole, or the
/// meridian 180, which leaves Europe and Africa whole.
inline constexpr double kEdgeGreenwich = 0.0;
inline constexpr double kEdgeDateLine = -180.0;

/// The kinds of control that a position can be taken on.
enum class MapControl { Map, Frame, Marker, Other };

class MapView {
public:
    MapBox m_box;
    double m_dScale = 1.0;            ///< image pixels per picture pixel
    double m_dEdge = kEdgeGreenwich;  ///< longitude of the image's left edge
    int m_nMapWidth = 1;              ///< of the picture, pixels
    int m_nMapHeight = 1;
    int m_nOffsetX = 0;  ///< place of the picture in its frame
    int m_nOffsetY = 0;
    int m_nImgWidth = kImgWidth;
    int m_nImgHeight = kImgHeight;
    QRect m_rctSource;  ///< shown rectangle of the image, image pixels; may reach beyond it

    /// Place of a latitude on the linear scale of the image; a latitude of 90 and beyond is its own
    /// ordinate.
    [[nodiscard]] double LatGetOrdinate(double dLat) const;
    /// The inverse; an ordinate of 90 and beyond is its own latitude.
    [[nodiscard]] double OrdinateGetLat(double dOrdinate) const;

    /// The box of the whole image.
    [[nodiscard]] MapBox BoxGetWhole() const { return {90, m_dEdge, -90, m_dEdge + 360}; }
    /// The zoom at which the whole box fits. The centre's latitude is the plain mean of the two
    /// latitudes, unlike CenterGet's: the box's edges are what a user drew.
    [[nodiscard]] MapZoom BoxGetZoom(const MapBox& box) const;
    /// The zoom, its centre moved onto the image where nothing of that would be seen: latitudes
    /// beyond the image's edge and below 90 have their ordinates far away from it.
    [[nodiscard]] MapZoom ZoomKeepSeen(const MapZoom& zoom) const;
    /// Shows the image at this zoom: sets the scale, the source rectangle and, from its whole
    /// pixels, the box.
    void ZoomSet(const MapZoom& zoom);
    /// True when part of the picture shows no image.
    [[nodiscard]] bool IsBeyondImage() const;
    /// The picture's rectangle that shows the image; empty when none does.
    [[nodiscard]] QRect ImageGetRect() const;
    /// Centre of the view: the middle in map ordinates.
    [[nodiscard]] LatLon CenterGet() const;

    /// Position on a control. dX and dY are the control's pixels; for a marker they are ignored and
    /// the middle of its rectangle on the picture counts. Another control gives 0, 0.
    [[nodiscard]] LatLon PointGetLatLon(MapControl eControl, double dX, double dY,
                                        const QRect& rctMarker = {}) const;
    /// The longitude on the view's scale: one west of the edge gets 360 added.
    [[nodiscard]] double LonGetOnScale(double dLon) const;
    /// Picture pixel of a position.
    [[nodiscard]] QPoint LatLonGetPoint(double dLat, double dLon) const;
    /// The same unrounded, the longitude taken as it is.
    [[nodiscard]] double LonGetX(double dLon) const;
    [[nodiscard]] double LatGetY(double dLat) const;

    /// The zoom by dFactor (0.5 is closer in) that keeps the position below a picture pixel where
    /// it is; of a pixel that shows no image the nearest that does.
    [[nodiscard]] MapZoom WheelGetZoom(double dX, double dY, double dFactor) const;
    /// The same scale with the picture moved by so many of its pixels, the centre kept on the
    /// image.
    [[nodiscard]] MapZoom PanGetZoom(double dByX, double dByY) const;
    /// The same scale and centre with the image beginning at another edge, moved no further than
    /// the image reaches.
    [[nodiscard]] MapZoom EdgeGetZoom(double dEdge) const;
    /// This view with the pixels of a picture of the same content in another size.
    [[nodiscard]] MapView SizedGet(int nWidth, int nHeight) const;
};

/// A box as a view can show it: 360 degrees and more become the whole width, longitudes west of the
/// edge get 360 added, latitudes end at the poles. What lies in the wrong order after that (a
/// rubber band that was drawn up or to the left) is put in order, and a span of zero becomes one
/// degree.
[[nodiscard]] MapBox BoxPutInOrder(const MapBox& box, double dEdge = kEdgeGreenwich);

/// The box around a point with the view's spans times dFactor.
[[nodiscard]] MapBox BoxAround(const LatLon& center, const MapBox& boxView, double dFactor);

/// A box over the image's edge would fall apart into its two ends, with all of its inside left out.
/// Such a box is moved to the side of the edge on which its centre lies; any other is returned as
/// it is.
[[nodiscard]] MapBox BoxKeepWhole(const MapBox& box, double dEdge = kEdgeGreenwich);

/// The box that shows both ends of a path with a tenth of their span as margin. Longitudes end at
/// the image's edges.
[[nodiscard]] MapBox BoxOfPath(const LatLon& one, const LatLon& other,
                               double dEdge = kEdgeGreenwich);

/// The edge at which an image begins that the shorter way between the ends does not cross: dEdge
/// where that is one, else the other.
[[nodiscard]] double EdgeOfPath(const LatLon& one, const LatLon& other, double dEdge);
