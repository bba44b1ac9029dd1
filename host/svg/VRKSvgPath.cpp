#include "host/svg/VRKSvgPath.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;
// The distance of a quarter circle's cubic control points from its ends, for a radius of 1.
constexpr double kQuarterCircle = 0.55228474983079339840;

// The angle from vector (ux, uy) to (vx, vy), in radians, signed.
double Angle(double ux, double uy, double vx, double vy) {
    return std::atan2(ux * vy - uy * vx, ux * vx + uy * vy);
}

}  // namespace

VRKSvgPath::Subpath& VRKSvgPath::Current() {
    // A segment after a close, or without a move before it, starts a subpath where the current
    // point is.
    if (subpaths_.empty() || subpaths_.back().closed) {
        subpaths_.emplace_back();
        startX_ = x_;
        startY_ = y_;
        Point(x_, y_, false);
    }
    return subpaths_.back();
}

void VRKSvgPath::Point(double x, double y, bool control) {
    Subpath& subpath = subpaths_.back();
    subpath.xy.push_back(x);
    subpath.xy.push_back(y);
    subpath.control.push_back(control ? 1 : 0);
}

void VRKSvgPath::MoveTo(double x, double y) {
    // A move right after a move replaces it.
    if (!subpaths_.empty() && !subpaths_.back().closed && subpaths_.back().PointCount() == 1) {
        subpaths_.pop_back();
    }
    subpaths_.emplace_back();
    x_ = startX_ = x;
    y_ = startY_ = y;
    Point(x, y, false);
}

void VRKSvgPath::LineTo(double x, double y) {
    Current();
    Point(x, y, false);
    x_ = x;
    y_ = y;
}

void VRKSvgPath::QuadTo(double x1, double y1, double x, double y) {
    // The cubic with the same curve: control points two thirds of the way to the quadratic's.
    const double x0 = x_;
    const double y0 = y_;
    CubicTo(x0 + 2.0 / 3.0 * (x1 - x0), y0 + 2.0 / 3.0 * (y1 - y0), x + 2.0 / 3.0 * (x1 - x),
            y + 2.0 / 3.0 * (y1 - y), x, y);
}

void VRKSvgPath::CubicTo(double x1, double y1, double x2, double y2, double x, double y) {
    Current();
    Point(x1, y1, true);
    Point(x2, y2, true);
    Point(x, y, false);
    x_ = x;
    y_ = y;
}

void VRKSvgPath::ArcTo(double rx, double ry, double rotationDegrees, bool largeArc, bool sweep,
                       double x, double y) {
    const double x0 = x_;
    const double y0 = y_;
    if (x0 == x && y0 == y) {
        return;  // an arc to where it starts is drawn as nothing
    }
    rx = std::fabs(rx);
    ry = std::fabs(ry);
    if (rx == 0.0 || ry == 0.0 || !std::isfinite(rx) || !std::isfinite(ry)) {
        LineTo(x, y);
        return;
    }
    // From the end points to the centre (the usual conversion: rotate the half chord into the
    // ellipse's frame, grow the radii when they cannot reach, then find the centre).
    const double phi = std::fmod(rotationDegrees, 360.0) * kPi / 180.0;
    const double cosPhi = std::cos(phi);
    const double sinPhi = std::sin(phi);
    const double dx = (x0 - x) / 2.0;
    const double dy = (y0 - y) / 2.0;
    const double x1p = cosPhi * dx + sinPhi * dy;
    const double y1p = -sinPhi * dx + cosPhi * dy;
    const double lambda = (x1p * x1p) / (rx * rx) + (y1p * y1p) / (ry * ry);
    if (lambda > 1.0) {
        const double grow = std::sqrt(lambda);
        rx *= grow;
        ry *= grow;
    }
    const double numerator = rx * rx * ry * ry - rx * rx * y1p * y1p - ry * ry * x1p * x1p;
    const double denominator = rx * rx * y1p * y1p + ry * ry * x1p * x1p;
    double factor = denominator > 0.0 ? std::sqrt(std::max(0.0, numerator / denominator)) : 0.0;
    if (largeArc == sweep) {
        factor = -factor;
    }
    const double cxp = factor * rx * y1p / ry;
    const double cyp = -factor * ry * x1p / rx;
    const double cx = cosPhi * cxp - sinPhi * cyp + (x0 + x) / 2.0;
    const double cy = sinPhi * cxp + cosPhi * cyp + (y0 + y) / 2.0;
    const double theta1 = Angle(1.0, 0.0, (x1p - cxp) / rx, (y1p - cyp) / ry);
    double delta = Angle((x1p - cxp) / rx, (y1p - cyp) / ry, (-x1p - cxp) / rx, (-y1p - cyp) / ry);
    if (!sweep && delta > 0.0) {
        delta -= 2.0 * kPi;
    } else if (sweep && delta < 0.0) {
        delta += 2.0 * kPi;
    }
    if (!std::isfinite(delta) || !std::isfinite(cx) || !std::isfinite(cy)) {
        LineTo(x, y);
        return;
    }
    // Pieces of at most 90 degrees, each one cubic.
    const int pieces =
        std::max(1, static_cast<int>(std::ceil(std::fabs(delta) / (kPi / 2.0) - 1e-9)));
    const double step = delta / pieces;
    const double k = 4.0 / 3.0 * std::tan(step / 4.0);
    auto point = [&](double angle, double& px, double& py, double& tx, double& ty) {
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        px = cx + rx * c * cosPhi - ry * s * sinPhi;
        py = cy + rx * c * sinPhi + ry * s * cosPhi;
        tx = -rx * s * cosPhi - ry * c * sinPhi;
        ty = -rx * s * sinPhi + ry * c * cosPhi;
    };
    double angle = theta1;
    double px = 0.0, py = 0.0, tx = 0.0, ty = 0.0;
    point(angle, px, py, tx, ty);
    for (int i = 0; i < pieces; ++i) {
        double qx = 0.0, qy = 0.0, ux = 0.0, uy = 0.0;
        angle += step;
        point(angle, qx, qy, ux, uy);
        if (i == pieces - 1) {
            qx = x;  // end exactly where the arc is asked to end
            qy = y;
        }
        CubicTo(px + k * tx, py + k * ty, qx - k * ux, qy - k * uy, qx, qy);
        px = qx;
        py = qy;
        tx = ux;
        ty = uy;
    }
}

void VRKSvgPath::Close() {
    if (subpaths_.empty() || subpaths_.back().closed) {
        return;
    }
    subpaths_.back().closed = true;
    x_ = startX_;
    y_ = startY_;
}

void VRKSvgPath::AddRect(double x, double y, double width, double height, double rx, double ry) {
    if (rx <= 0.0 || ry <= 0.0) {
        MoveTo(x, y + height);
        LineTo(x + width, y + height);
        LineTo(x + width, y);
        LineTo(x, y);
        Close();
        return;
    }
    const double kx = rx * kQuarterCircle;
    const double ky = ry * kQuarterCircle;
    const double right = x + width;
    const double bottom = y + height;
    MoveTo(x + rx, bottom);
    LineTo(right - rx, bottom);
    CubicTo(right - rx + kx, bottom, right, bottom - ry + ky, right, bottom - ry);
    LineTo(right, y + ry);
    CubicTo(right, y + ry - ky, right - rx + kx, y, right - rx, y);
    LineTo(x + rx, y);
    CubicTo(x + rx - kx, y, x, y + ry - ky, x, y + ry);
    LineTo(x, bottom - ry);
    CubicTo(x, bottom - ry + ky, x + rx - kx, bottom, x + rx, bottom);
    Close();
}

std::size_t VRKSvgPath::PointCount() const {
    std::size_t count = 0;
    for (const Subpath& subpath : subpaths_) {
        count += subpath.PointCount();
    }
    return count;
}

bool VRKSvgPath::Transform(const VRKSvgMatrix& matrix, double limit) {
    for (Subpath& subpath : subpaths_) {
        for (std::size_t i = 0; i + 1 < subpath.xy.size(); i += 2) {
            const double x = matrix.X(subpath.xy[i], subpath.xy[i + 1]);
            const double y = matrix.Y(subpath.xy[i], subpath.xy[i + 1]);
            if (!(std::fabs(x) <= limit) || !(std::fabs(y) <= limit)) {
                return false;
            }
            subpath.xy[i] = x;
            subpath.xy[i + 1] = y;
        }
    }
    return true;
}

bool VRKSvgPath::Rings(double tolerance, std::size_t maxPoints,
                       std::vector<VRKDrawingPoint>& points,
                       std::vector<std::uint32_t>& sizes) const {
    for (const Subpath& subpath : subpaths_) {
        const std::size_t start = points.size();
        const std::size_t count = subpath.PointCount();
        const std::vector<double>& p = subpath.xy;
        points.push_back({static_cast<float>(p[0]), static_cast<float>(p[1])});
        std::size_t i = 1;
        while (i < count) {
            if (points.size() > maxPoints) {
                return false;
            }
            if (subpath.control[i] != 0 && i + 2 < count) {
                // Uniform steps, as many as keep the chords within the tolerance: the distance of
                // a chord from the curve is at most 3/4 of the control polygon's largest second
                // difference over the square of the step count.
                const double* q = &p[2 * (i - 1)];
                const double ax = q[0] - 2.0 * q[2] + q[4];
                const double ay = q[1] - 2.0 * q[3] + q[5];
                const double bx = q[2] - 2.0 * q[4] + q[6];
                const double by = q[3] - 2.0 * q[5] + q[7];
                const double second = std::max(std::hypot(ax, ay), std::hypot(bx, by));
                const int steps = std::clamp(
                    static_cast<int>(std::ceil(std::sqrt(0.75 * second / tolerance))), 1, 4096);
                for (int step = 1; step <= steps; ++step) {
                    const double t = static_cast<double>(step) / steps;
                    const double u = 1.0 - t;
                    const double w0 = u * u * u;
                    const double w1 = 3.0 * u * u * t;
                    const double w2 = 3.0 * u * t * t;
                    const double w3 = t * t * t;
                    points.push_back(
                        {static_cast<float>(w0 * q[0] + w1 * q[2] + w2 * q[4] + w3 * q[6]),
                         static_cast<float>(w0 * q[1] + w1 * q[3] + w2 * q[5] + w3 * q[7])});
                }
                i += 3;
            } else {
                points.push_back({static_cast<float>(p[2 * i]), static_cast<float>(p[2 * i + 1])});
                i += 1;
            }
        }
        while (points.size() - start > 1 && points.back() == points[start]) {
            points.pop_back();
        }
        if (points.size() - start < 3) {
            points.resize(start);
            continue;
        }
        sizes.push_back(static_cast<std::uint32_t>(points.size() - start));
    }
    return points.size() <= maxPoints;
}

void VRKSvgPath::StrokePoints(const Subpath& subpath, std::vector<VRKDrawingPoint>& points,
                              std::vector<std::uint8_t>& controls) const {
    points.clear();
    controls.clear();
    for (std::size_t i = 0; i < subpath.PointCount(); ++i) {
        points.push_back(
            {static_cast<float>(subpath.xy[2 * i]), static_cast<float>(subpath.xy[2 * i + 1])});
        controls.push_back(subpath.control[i]);
    }
    if (subpath.closed && !points.empty() && !(points.back() == points.front())) {
        points.push_back(points.front());
        controls.push_back(0);
    }
}
