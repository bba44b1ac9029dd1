#pragma once

#include <cmath>

// An affine transform of the plane: x' = a x + c y + e, y' = b x + d y + f (SVG's matrix(a b c d
// e f)). The importer's current transform maps an element's user units to the page in
// millimetres with y up.
class VRKSvgMatrix {
  public:
    double a = 1.0, b = 0.0, c = 0.0, d = 1.0, e = 0.0, f = 0.0;

    static VRKSvgMatrix Translate(double tx, double ty) { return {1.0, 0.0, 0.0, 1.0, tx, ty}; }
    static VRKSvgMatrix Scale(double sx, double sy) { return {sx, 0.0, 0.0, sy, 0.0, 0.0}; }

    // This transform applied after `inner`: (this * inner)(p) = this(inner(p)).
    VRKSvgMatrix operator*(const VRKSvgMatrix& inner) const {
        return {a * inner.a + c * inner.b,     b * inner.a + d * inner.b,
                a * inner.c + c * inner.d,     b * inner.c + d * inner.d,
                a * inner.e + c * inner.f + e, b * inner.e + d * inner.f + f};
    }
    double X(double x, double y) const { return a * x + c * y + e; }
    double Y(double x, double y) const { return b * x + d * y + f; }
    double Determinant() const { return a * d - b * c; }
    // How much lengths grow: the square root of the area scale.
    double LengthScale() const { return std::sqrt(std::fabs(Determinant())); }
    bool IsFinite() const {
        return std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::isfinite(d) &&
               std::isfinite(e) && std::isfinite(f);
    }
};
