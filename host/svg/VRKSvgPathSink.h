#pragma once

// What reads path data: absolute coordinates, shorthand commands already expanded (S to C, T to
// Q, H and V to L), in user units.
class VRKSvgPathSink {
  public:
    virtual ~VRKSvgPathSink() = default;
    virtual void MoveTo(double x, double y) = 0;
    virtual void LineTo(double x, double y) = 0;
    virtual void QuadTo(double x1, double y1, double x, double y) = 0;
    virtual void CubicTo(double x1, double y1, double x2, double y2, double x, double y) = 0;
    virtual void ArcTo(double rx, double ry, double rotationDegrees, bool largeArc, bool sweep,
                       double x, double y) = 0;
    virtual void Close() = 0;
};
