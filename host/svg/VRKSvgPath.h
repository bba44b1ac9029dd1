#pragma once

#include <cstdint>
#include <vector>

#include "host/drawing/VRKDrawing.h"
#include "host/svg/VRKSvgMatrix.h"
#include "host/svg/VRKSvgPathSink.h"

// A path's geometry as lines and cubic Béziers: what path data and the basic shapes become.
// Quadratic Béziers are raised to cubics (exactly) and elliptical arcs are split into cubics of
// at most 90 degrees each. Built in user units, then transformed onto the page.
class VRKSvgPath : public VRKSvgPathSink {
  public:
    // The start point, then each segment's points; a point flagged as a control point is one of
    // the two control points of a cubic ending at the next point not flagged.
    struct Subpath {
        std::vector<double> xy;
        std::vector<std::uint8_t> control;
        bool closed = false;
        std::size_t PointCount() const { return control.size(); }
    };

    void MoveTo(double x, double y) override;
    void LineTo(double x, double y) override;
    void QuadTo(double x1, double y1, double x, double y) override;
    void CubicTo(double x1, double y1, double x2, double y2, double x, double y) override;
    void ArcTo(double rx, double ry, double rotationDegrees, bool largeArc, bool sweep, double x,
               double y) override;
    void Close() override;

    // A rectangle from its corner (x, y) to (x + width, y + height) with rounded corners of radii
    // rx, ry (0: square). It starts at (x, y + height), which lies at the lower left on the page,
    // and goes along x first.
    void AddRect(double x, double y, double width, double height, double rx, double ry);

    const std::vector<Subpath>& Subpaths() const { return subpaths_; }
    std::size_t PointCount() const;

    // Applies `matrix` to every point. False, leaving the path unusable, when a point comes out
    // not finite or farther than `limit` from the origin in either coordinate.
    bool Transform(const VRKSvgMatrix& matrix, double limit);
    // The subpaths as rings of a fill, curves flattened to within `tolerance`; a ring does not
    // repeat its first point at its end, and rings of fewer than three points are left out.
    // False when that would take more than `maxPoints` points.
    bool Rings(double tolerance, std::size_t maxPoints, std::vector<VRKDrawingPoint>& points,
               std::vector<std::uint32_t>& sizes) const;
    // A subpath as a stroke's points and control flags; a closed one ends at its first point.
    void StrokePoints(const Subpath& subpath, std::vector<VRKDrawingPoint>& points,
                      std::vector<std::uint8_t>& controls) const;

  private:
    std::vector<Subpath> subpaths_;
    double x_ = 0.0, y_ = 0.0;            // the current point
    double startX_ = 0.0, startY_ = 0.0;  // where the current subpath started

    Subpath& Current();
    void Point(double x, double y, bool control);
};
