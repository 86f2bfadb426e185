/// @file MapView.h
/// Which part of the world image the map picture shows: ordinates, view box, zoom, and the
/// conversion between positions and pixels. No widgets.
///
/// Units:   degrees (north and east positive); map degrees for ordinates, +90 at the image's top
///          edge; image pixels and picture pixels. The image begins at an edge e of 0 or -180, and
///          view longitudes are on the scale e..e+360; a view that is wider than the image or
///          partly beside it extends past these ends.
/// Domain:  any finite argument or NaN; a scale is never zero, negative or NaN. Pixels are rounded
///          half to even and limited to the 32-bit range.
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

/// A zoom: image pixels per picture pixel, and the centre.
struct MapZoom {
    double dScale = 1.0;
    double dCenterLat = 0.0;
    double dCenterLon = 0.0;
};

/// Closest zoom, image pixels per picture pixel; 1200 picture pixels then show 0.12 degrees.
inline constexpr double kScaleMin = 0.1;

/// The longitudes at which the image can begin: Greenwich, which leaves the Pacific whole, or the
/// 180° meridian, which leaves Europe and Africa whole.
inline constexpr double kEdgeGreenwich = 0.0;
inline constexpr double kEdgeDateLine = -180.0;

/// The kinds of control on which a position can be read.
enum class MapControl { Map, Frame, Marker, Other };

class MapView {
public:
    MapBox m_box;
    double m_dScale = 1.0;            ///< image pixels per picture pixel
    double m_dEdge = kEdgeGreenwich;  ///< longitude of the image's left edge
    int m_nMapWidth = 1;              ///< of the picture, pixels
    int m_nMapHeight = 1;
    int m_nOffsetX = 0;  ///< position of the picture in its frame
    int m_nOffsetY = 0;
    int m_nImgWidth = kImgWidth;
    int m_nImgHeight = kImgHeight;
    QRect m_rctSource;  ///< the part of the image that is shown, image pixels; may extend beyond it

    /// Position of a latitude on the linear scale of the image; a latitude of 90 or more is its own
    /// ordinate.
    [[nodiscard]] double LatGetOrdinate(double dLat) const;
    /// The inverse; an ordinate of 90 or more is its own latitude.
    [[nodiscard]] double OrdinateGetLat(double dOrdinate) const;

    /// The box of the whole image.
    [[nodiscard]] MapBox BoxGetWhole() const { return {90, m_dEdge, -90, m_dEdge + 360}; }
    /// The zoom at which the whole box fits. Its centre's latitude is the mean of the two
    /// latitudes, unlike CenterGet's, because the user drew the box's edges.
    [[nodiscard]] MapZoom BoxGetZoom(const MapBox& box) const;
    /// The zoom with its centre moved onto the image if the image would not be visible: the
    /// ordinates of latitudes between the image's edge and 90 are far away from it.
    [[nodiscard]] MapZoom ZoomKeepSeen(const MapZoom& zoom) const;
    /// Shows the image at this zoom: sets the scale, the source rectangle and, from its whole
    /// pixels, the box.
    void ZoomSet(const MapZoom& zoom);
    /// True if part of the picture is beyond the image.
    [[nodiscard]] bool IsBeyondImage() const;
    /// The rectangle of the picture in which the image is visible; empty if it is not.
    [[nodiscard]] QRect ImageGetRect() const;
    /// Centre of the view: the middle in map ordinates.
    [[nodiscard]] LatLon CenterGet() const;

    /// The position on a control. dX and dY are the control's pixels; for a marker they are ignored
    /// and the middle of its rectangle on the picture counts. Another control gives 0, 0.
    [[nodiscard]] LatLon PointGetLatLon(MapControl eControl, double dX, double dY,
                                        const QRect& rctMarker = {}) const;
    /// The longitude on the view's scale: one west of the edge gets 360 added.
    [[nodiscard]] double LonGetOnScale(double dLon) const;
    /// Picture pixel of a position.
    [[nodiscard]] QPoint LatLonGetPoint(double dLat, double dLon) const;
    /// The same unrounded, with the longitude taken as it is.
    [[nodiscard]] double LonGetX(double dLon) const;
    [[nodiscard]] double LatGetY(double dLat) const;

    /// The zoom changed by dFactor (0.5 is closer in) that keeps the position under a picture pixel
    /// where it is. For a pixel beyond the image, the nearest position on it.
    [[nodiscard]] MapZoom WheelGetZoom(double dX, double dY, double dFactor) const;
    /// The same scale with the picture moved by so many of its pixels; the centre stays on the
    /// image.
    [[nodiscard]] MapZoom PanGetZoom(double dByX, double dByY) const;
    /// The same scale and centre with the image beginning at another edge; the centre moves only if
    /// the image does not reach it.
    [[nodiscard]] MapZoom EdgeGetZoom(double dEdge) const;
    /// This view for a picture of the same content in another size.
    [[nodiscard]] MapView SizedGet(int nWidth, int nHeight) const;
};

/// A box as a view can show it: 360 degrees or more become the whole width, longitudes west of the
/// edge get 360 added, latitudes end at the poles. Bounds that are then in the wrong order (a
/// rubber band drawn up or to the left) are exchanged, and a span of zero becomes one degree.
[[nodiscard]] MapBox BoxPutInOrder(const MapBox& box, double dEdge = kEdgeGreenwich);

/// The box around a point with the view's spans times dFactor.
[[nodiscard]] MapBox BoxAround(const LatLon& center, const MapBox& boxView, double dFactor);

/// Moves a box that crosses the image's edge to the side of the edge on which its centre is;
/// BoxPutInOrder would turn it inside out. Any other box is returned unchanged.
[[nodiscard]] MapBox BoxKeepWhole(const MapBox& box, double dEdge = kEdgeGreenwich);

/// The box that shows both ends of a path with a tenth of their span as margin. Longitudes end at
/// the image's edges.
[[nodiscard]] MapBox BoxOfPath(const LatLon& one, const LatLon& other,
                               double dEdge = kEdgeGreenwich);

/// The edge for an image in which the shorter way between the ends is not cut: dEdge if possible,
/// else the other.
[[nodiscard]] double EdgeOfPath(const LatLon& one, const LatLon& other, double dEdge);
