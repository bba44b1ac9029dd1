#include "host/fonts/VRKGlyphPath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "host/core/VRKSaturatingTrunc.h"

namespace {

// Chords per segment that keep every chord within `tolerance` of the curve, given a bound on the
// length of the curve's second derivative over the parameter range 0..1: a chord over a
// parameter step h stays within h * h / 8 * |P''| of the curve.
int chordsFor(double secondDerivativeBound, double tolerance) {
    if (!(secondDerivativeBound > 0.0) || !(tolerance > 0.0)) {
        return 1;
    }
    const double n = std::ceil(std::sqrt(secondDerivativeBound / (8.0 * tolerance)));
    // A glyph many metres high still ends: cap the work per segment.
    return VRKSaturatingTrunc<int>(std::clamp(n, 1.0, 100000.0));
}

// Appends a point unless it repeats the previous one of the same contour.
void appendPoint(std::vector<float>& points, std::size_t contourStart, double x, double y) {
    const float fx = static_cast<float>(x), fy = static_cast<float>(y);
    const std::size_t n = points.size();
    if (n >= contourStart + 2 && points[n - 2] == fx && points[n - 1] == fy) {
        return;
    }
    points.push_back(fx);
    points.push_back(fy);
}

}  // namespace

int VRKGlyphPath::Segment::Degree() const {
    switch (kind) {
        case SegmentKind::Line:
            return 1;
        case SegmentKind::Quadratic:
            return 2;
        case SegmentKind::Cubic:
            return 3;
    }
    return 1;
}

void VRKGlyphPath::Segment::PointAt(double t, double& px, double& py) const {
    const double u = 1.0 - t;
    switch (kind) {
        case SegmentKind::Line:
            px = u * x[0] + t * x[1];
            py = u * y[0] + t * y[1];
            return;
        case SegmentKind::Quadratic: {
            const double b0 = u * u, b1 = 2.0 * u * t, b2 = t * t;
            px = b0 * x[0] + b1 * x[1] + b2 * x[2];
            py = b0 * y[0] + b1 * y[1] + b2 * y[2];
            return;
        }
        case SegmentKind::Cubic: {
            const double b0 = u * u * u, b1 = 3.0 * u * u * t, b2 = 3.0 * u * t * t, b3 = t * t * t;
            px = b0 * x[0] + b1 * x[1] + b2 * x[2] + b3 * x[3];
            py = b0 * y[0] + b1 * y[1] + b2 * y[2] + b3 * y[3];
            return;
        }
    }
}

void VRKGlyphPath::MoveTo(double x, double y) {
    if (open_) {
        ++contours_;
    }
    open_ = true;
    lastX_ = x;
    lastY_ = y;
}

void VRKGlyphPath::LineTo(double x, double y) {
    if (!open_) {
        return;
    }
    Segment s;
    s.kind = SegmentKind::Line;
    s.contour = contours_;
    s.x[0] = lastX_, s.y[0] = lastY_;
    s.x[1] = x, s.y[1] = y;
    segments_.push_back(s);
    lastX_ = x;
    lastY_ = y;
}

void VRKGlyphPath::QuadTo(double cx, double cy, double x, double y) {
    if (!open_) {
        return;
    }
    Segment s;
    s.kind = SegmentKind::Quadratic;
    s.contour = contours_;
    s.x[0] = lastX_, s.y[0] = lastY_;
    s.x[1] = cx, s.y[1] = cy;
    s.x[2] = x, s.y[2] = y;
    segments_.push_back(s);
    lastX_ = x;
    lastY_ = y;
}

void VRKGlyphPath::CubicTo(double c1x, double c1y, double c2x, double c2y, double x, double y) {
    if (!open_) {
        return;
    }
    Segment s;
    s.kind = SegmentKind::Cubic;
    s.contour = contours_;
    s.x[0] = lastX_, s.y[0] = lastY_;
    s.x[1] = c1x, s.y[1] = c1y;
    s.x[2] = c2x, s.y[2] = c2y;
    s.x[3] = x, s.y[3] = y;
    segments_.push_back(s);
    lastX_ = x;
    lastY_ = y;
}

int VRKGlyphPath::Flatten(double tolerance, std::vector<int>& contourPoints,
                          std::vector<float>& points) const {
    int appended = 0;
    std::size_t i = 0;
    while (i < segments_.size()) {
        const int contour = segments_[i].contour;
        const std::size_t start = points.size();
        appendPoint(points, start, segments_[i].x[0], segments_[i].y[0]);
        for (; i < segments_.size() && segments_[i].contour == contour; ++i) {
            const Segment& s = segments_[i];
            int n = 1;
            if (s.kind == SegmentKind::Quadratic) {
                // P''(t) = 2 (P0 - 2 P1 + P2), constant.
                const double ax = s.x[0] - 2.0 * s.x[1] + s.x[2];
                const double ay = s.y[0] - 2.0 * s.y[1] + s.y[2];
                n = chordsFor(2.0 * std::hypot(ax, ay), tolerance);
            } else if (s.kind == SegmentKind::Cubic) {
                // P''(t) = 6 ((1 - t) a + t b): at most 6 times the longer of a and b.
                const double ax = s.x[0] - 2.0 * s.x[1] + s.x[2];
                const double ay = s.y[0] - 2.0 * s.y[1] + s.y[2];
                const double bx = s.x[1] - 2.0 * s.x[2] + s.x[3];
                const double by = s.y[1] - 2.0 * s.y[2] + s.y[3];
                n = chordsFor(6.0 * std::max(std::hypot(ax, ay), std::hypot(bx, by)), tolerance);
            }
            const int degree = s.Degree();
            for (int k = 1; k < n; ++k) {
                double px, py;
                s.PointAt(static_cast<double>(k) / n, px, py);
                appendPoint(points, start, px, py);
            }
            // The end point as given, not as evaluated, so that joins between segments are exact.
            appendPoint(points, start, s.x[degree], s.y[degree]);
        }
        std::size_t count = (points.size() - start) / 2;
        // A polygon is closed implicitly: do not repeat the first point at the end.
        if (count > 1 && points[start] == points[points.size() - 2] &&
            points[start + 1] == points[points.size() - 1]) {
            points.resize(points.size() - 2);
            --count;
        }
        if (count < 3) {
            points.resize(start);
            continue;
        }
        contourPoints.push_back(static_cast<int>(count));
        ++appended;
    }
    return appended;
}
