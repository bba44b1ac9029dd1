#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "host/core/VRKPrintGenerator.h"
#include "tests/fonts/CurveDistance.h"

// The base generator's default curve hooks, measured against the curves they flatten: every
// chord within one plotter unit (0.025 mm) of the true curve, the curve within it of the chords,
// and the ends where the curve ends.
namespace {

using curve_distance::Piece;
using curve_distance::Point;

constexpr double kFlatness = 0.025;
constexpr double kPi = std::numbers::pi;

// Records the moves and lines of the default hooks, as polylines.
class PathRecorder : public VRKPrintGenerator {
  public:
    PathRecorder() : VRKPrintGenerator("TEST") {}
    std::vector<std::vector<Point>> paths;
    std::vector<Point> floats;  // the points exactly as the hooks received them

  protected:
    void DrvMoveTo(float x, float y) override {
        paths.push_back({{x, y}});
        floats.push_back({x, y});
    }
    void DrvLineTo(float x, float y) override {
        if (paths.empty()) {
            paths.push_back({});
        }
        paths.back().push_back({x, y});
        floats.push_back({x, y});
    }
};

// The arc of the ellipse from `start` sweeping `sweep` radians (both in double, the true curve).
Piece ellipseArc(double cx, double cy, double rx, double ry, double start, double sweep,
                 double rotation) {
    return [=](double t) {
        const double a = start + sweep * t;
        const double ex = rx * std::cos(a), ey = ry * std::sin(a);
        return Point{cx + ex * std::cos(rotation) - ey * std::sin(rotation),
                     cy + ex * std::sin(rotation) + ey * std::cos(rotation)};
    };
}

Piece cubic(const float* p) {
    return [=](double t) {
        const double u = 1.0 - t;
        const double b0 = u * u * u, b1 = 3 * u * u * t, b2 = 3 * u * t * t, b3 = t * t * t;
        return Point{b0 * p[0] + b1 * p[2] + b2 * p[4] + b3 * p[6],
                     b0 * p[1] + b1 * p[3] + b2 * p[5] + b3 * p[7]};
    };
}

Piece quadratic(const float* p) {
    return [=](double t) {
        const double u = 1.0 - t;
        return Point{u * u * p[0] + 2 * u * t * p[2] + t * t * p[4],
                     u * u * p[1] + 2 * u * t * p[3] + t * t * p[5]};
    };
}

void expectWithinFlatness(const std::vector<Point>& polyline, const std::vector<Piece>& pieces) {
    ASSERT_GE(polyline.size(), 2u);
    EXPECT_LE(curve_distance::chordsToCurve(polyline, pieces), kFlatness);
    EXPECT_LE(curve_distance::curveToChords(polyline, pieces), kFlatness);
}

// A float endpoint computed by trigonometry: the hook and the test may round the last bit
// differently, so "exact" is to within 4 float steps (under 1e-5 mm at 100 mm).
void expectEndpoint(Point actual, Point expected) {
    EXPECT_FLOAT_EQ(static_cast<float>(actual.x), static_cast<float>(expected.x));
    EXPECT_FLOAT_EQ(static_cast<float>(actual.y), static_cast<float>(expected.y));
}

struct ArcCase {
    float cx, cy, rx, ry, start, end, rotation;
};

void checkEllipseArc(const ArcCase& c, bool asCircle) {
    PathRecorder r;
    if (asCircle) {
        r.DrawArcCircle(c.cx, c.cy, c.rx, c.start, c.end, 0);
    } else {
        r.DrawArcEllipse(c.cx, c.cy, c.rx, c.ry, c.start, c.end, c.rotation, 0);
    }
    ASSERT_EQ(r.paths.size(), 1u);
    const auto& path = r.paths.front();
    double sweep = static_cast<double>(c.end) - c.start;
    if (sweep < 0.0) {
        sweep += 2.0 * kPi;
    }
    sweep = std::min(sweep, 2.0 * kPi);  // a longer sweep draws the whole ellipse once
    const double ry = asCircle ? c.rx : c.ry;
    const double rotation = asCircle ? 0.0 : c.rotation;
    const Piece arc = ellipseArc(c.cx, c.cy, c.rx, ry, c.start, sweep, rotation);
    expectEndpoint(path.front(), arc(0.0));
    expectEndpoint(path.back(), arc(1.0));
    expectWithinFlatness(path, {arc});
}

TEST(DefaultCurveHooks, PartialCircleArcs) {
    checkEllipseArc({10.0f, 20.0f, 50.0f, 0.0f, 0.3f, 2.1f, 0.0f}, true);
    // Start above the end sweeps through 2 pi.
    checkEllipseArc({0.0f, 0.0f, 100.0f, 0.0f, 5.0f, 1.0f, 0.0f}, true);
    // A small circle still bends within the flatness.
    checkEllipseArc({-3.0f, 4.0f, 0.7f, 0.0f, -1.0f, 2.5f, 0.0f}, true);
}

TEST(DefaultCurveHooks, FullCircle) {
    checkEllipseArc({5.0f, 5.0f, 80.0f, 0.0f, 0.0f, static_cast<float>(2.0 * kPi), 0.0f}, true);
}

TEST(DefaultCurveHooks, PartialRotatedEllipseArcs) {
    checkEllipseArc({30.0f, -10.0f, 120.0f, 40.0f, 0.5f, 2.9f, 0.6f}, false);
    checkEllipseArc({0.0f, 0.0f, 15.0f, 90.0f, 4.0f, 0.25f, -1.1f}, false);
    // A flat ellipse: the curvature at the ends of the long axis is rx / ry^2 times sharper.
    checkEllipseArc({0.0f, 0.0f, 200.0f, 5.0f, -0.4f, 0.4f, 2.0f}, false);
}

TEST(DefaultCurveHooks, PolyBezier) {
    // Two cubic segments sharing an end, one of them with a sharp turn.
    const float xy[] = {0.0f,  0.0f,   40.0f, 90.0f, 110.0f, -30.0f, 150.0f,
                        20.0f, 160.0f, 35.0f, 90.0f, 60.0f,  155.0f, 18.0f};
    PathRecorder r;
    r.DrawPolyBezier(7, xy);
    ASSERT_EQ(r.paths.size(), 1u);
    const auto& path = r.paths.front();
    // The ends and the join are the control points themselves.
    EXPECT_EQ(r.floats.front().x, 0.0);
    EXPECT_EQ(r.floats.front().y, 0.0);
    EXPECT_EQ(r.floats.back().x, 155.0);
    EXPECT_EQ(r.floats.back().y, 18.0);
    bool joinFound = false;
    for (const Point& p : path) {
        joinFound = joinFound || (p.x == 150.0 && p.y == 20.0);
    }
    EXPECT_TRUE(joinFound);
    expectWithinFlatness(path, {cubic(xy), cubic(xy + 6)});
}

TEST(DefaultCurveHooks, PolyQuadBezier) {
    const float xy[] = {-20.0f, 5.0f, 30.0f, 80.0f, 60.0f, 10.0f, 62.0f, 0.0f, 70.0f, 12.5f};
    PathRecorder r;
    r.DrawPolyQuadBezier(5, xy);
    ASSERT_EQ(r.paths.size(), 1u);
    const auto& path = r.paths.front();
    EXPECT_EQ(r.floats.front().x, -20.0);
    EXPECT_EQ(r.floats.front().y, 5.0);
    EXPECT_EQ(r.floats.back().x, 70.0);
    EXPECT_EQ(r.floats.back().y, 12.5);
    bool joinFound = false;
    for (const Point& p : path) {
        joinFound = joinFound || (p.x == 60.0 && p.y == 10.0);
    }
    EXPECT_TRUE(joinFound);
    expectWithinFlatness(path, {quadratic(xy), quadratic(xy + 4)});
}

TEST(DefaultCurveHooks, MeasureCatchesACoarseFlattening) {
    // The measure itself must fail a flattening that is too coarse: a quarter circle of radius
    // 10 mm drawn with 8 chords deviates 10 (1 - cos(pi / 32)) = 0.048 mm.
    const Piece arc = ellipseArc(0.0, 0.0, 10.0, 10.0, 0.0, kPi / 2.0, 0.0);
    std::vector<Point> coarse;
    for (int i = 0; i <= 8; ++i) {
        coarse.push_back(arc(i / 8.0));
    }
    const double expected = 10.0 * (1.0 - std::cos(kPi / 32.0));
    EXPECT_NEAR(curve_distance::chordsToCurve(coarse, {arc}), expected, 1e-6);
    EXPECT_NEAR(curve_distance::curveToChords(coarse, {arc}), expected, 1e-6);
}

}  // namespace
