#include <gtest/gtest.h>

#include <cmath>

#include "svg/SvgTestSupport.h"

namespace {

// The strokes of a stroked path without fill.
SvgResult Stroked(const std::string& d) {
    return ReadSvg(Page("<path fill='none' stroke='black' d='" + d + "'/>"));
}

TEST(SvgPath, LinesAbsoluteAndRelative) {
    const SvgResult r = Stroked("M10 10 L20 10 l0 10 H10 h5 V30 v-5 Z m5 5 l1 0");
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.strokes.size(), 2u);
    EXPECT_EQ(
        Points(r.drawing, r.drawing.strokes[0]),
        (Points_{{10, 90}, {20, 90}, {20, 80}, {10, 80}, {15, 80}, {15, 70}, {15, 75}, {10, 90}}));
    // After Z the current point is the subpath's start: m5 5 starts at (15, 15).
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[1]), (Points_{{15, 85}, {16, 85}}));
    EXPECT_EQ(Controls(r.drawing, r.drawing.strokes[0]), std::vector<std::uint8_t>(8, 0));
}

TEST(SvgPath, ClosedSubpathEndsAtItsStartOnce) {
    const SvgResult r = Stroked("M0 0 L10 0 L10 10 L0 0 Z");
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[0]),
              (Points_{{0, 100}, {10, 100}, {10, 90}, {0, 100}}));
}

TEST(SvgPath, CubicsAndTheirShorthands) {
    const SvgResult r =
        Stroked("M0 0 C10 0 20 10 20 20 S30 40 40 40 c0 10 10 10 10 0 s10 -10 10 0");
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    // S reflects the previous second control point about the current point.
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[0]), (Points_{{0, 100},
                                                                {10, 100},
                                                                {20, 90},
                                                                {20, 80},
                                                                {20, 70},
                                                                {30, 60},
                                                                {40, 60},
                                                                {40, 50},
                                                                {50, 50},
                                                                {50, 60},
                                                                {50, 70},
                                                                {60, 70},
                                                                {60, 60}}));
    EXPECT_EQ(Controls(r.drawing, r.drawing.strokes[0]),
              (std::vector<std::uint8_t>{0, 1, 1, 0, 1, 1, 0, 1, 1, 0, 1, 1, 0}));
}

TEST(SvgPath, QuadraticsBecomeCubicsExactly) {
    const SvgResult r = Stroked("M0 0 Q30 30 60 0 T120 0 q15 15 30 0 t30 0");
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    // Control points two thirds of the way from each end to the quadratic's control point; T
    // reflects that control point: (90, -30), then (165, -15) for the relative t.
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[0]), (Points_{{0, 100},
                                                                {20, 80},
                                                                {40, 80},
                                                                {60, 100},
                                                                {80, 120},
                                                                {100, 120},
                                                                {120, 100},
                                                                {130, 90},
                                                                {140, 90},
                                                                {150, 100},
                                                                {160, 110},
                                                                {170, 110},
                                                                {180, 100}}));
}

TEST(SvgPath, ArcsBecomeCubicsOfAtMostNinetyDegrees) {
    // A half circle of radius 50 from (0, 50) through (50, 0) to (100, 50): two quarters.
    const SvgResult r = Stroked("M0 50 A50 50 0 0 1 100 50 a25 25 0 1 1 0 0.001");
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    const Points_ p = Points(r.drawing, r.drawing.strokes[0]);
    ASSERT_GE(p.size(), 7u);
    const double k = 50 * 4.0 / 3.0 * std::tan(M_PI / 8);  // a quarter circle's control distance
    EXPECT_EQ(p[0], (VRKDrawingPoint{0, 50}));
    EXPECT_NEAR(p[1].x, 0, 1e-4);
    EXPECT_NEAR(p[1].y, 50 + k, 1e-4);
    EXPECT_NEAR(p[2].x, 50 - k, 1e-4);
    EXPECT_NEAR(p[2].y, 100, 1e-4);
    EXPECT_NEAR(p[3].x, 50, 1e-4);
    EXPECT_NEAR(p[3].y, 100, 1e-4);
    EXPECT_EQ(p[6], (VRKDrawingPoint{100, 50}));
    // A nearly whole circle (large arc) takes four pieces and ends where asked.
    EXPECT_EQ(p.size(), 7u + 12u);
    EXPECT_EQ(p.back(), (VRKDrawingPoint{100, 49.999f}));
    const std::vector<std::uint8_t> c = Controls(r.drawing, r.drawing.strokes[0]);
    for (std::size_t i = 0; i < c.size(); ++i) {
        EXPECT_EQ(c[i], i % 3 == 0 ? 0 : 1) << i;
    }
}

TEST(SvgPath, DataIsReadUpToItsFirstByteThatIsNotAscii) {
    const SvgResult r = Stroked("M0 0 L10 0 L20 0\xC3\xA9 L30 0");
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[0]), (Points_{{0, 100}, {10, 100}, {20, 100}}));
    EXPECT_EQ(r.warnings.size(), 1u);
}

TEST(SvgPath, ArcWithoutRadiusIsALine) {
    const SvgResult r = Stroked("M0 0 A0 10 0 0 1 10 0");
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[0]), (Points_{{0, 100}, {10, 100}}));
}

TEST(SvgPath, FilledCurvesAreFlattenedWithinTheTolerance) {
    const SvgResult r =
        ReadSvg(Page("<path d='M10 50 A40 40 0 0 1 90 50 A40 40 0 0 1 10 50 Z' fill='red'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.fills.size(), 1u);
    const Points_ ring = Ring(r.drawing, r.drawing.fills[0], 0);
    ASSERT_GT(ring.size(), 40u);
    EXPECT_EQ(ring.front(), (VRKDrawingPoint{10, 50}));
    EXPECT_FALSE(ring.back() == ring.front());
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const VRKDrawingPoint a = ring[i];
        const VRKDrawingPoint b = ring[(i + 1) % ring.size()];
        const double mx = (a.x + b.x) / 2.0 - 50.0, my = (a.y + b.y) / 2.0 - 50.0;
        EXPECT_LE(std::hypot(a.x - 50.0, a.y - 50.0), 40.0 + 0.02);  // cubics lie just outside
        EXPECT_GE(std::hypot(mx, my), 40.0 - 0.01) << i;             // each chord within 0.01 mm
    }
}

TEST(SvgPath, FillRulesAndSubpathsAsRings) {
    const SvgResult r = ReadSvg(
        Page("<path fill-rule='evenodd' d='M0 0 H10 V10 H0 Z M2 2 H8 V8 H2 Z M50 50 L60 60'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.fills.size(), 1u);
    EXPECT_EQ(r.drawing.fills[0].rule, 0);
    ASSERT_EQ(r.drawing.fills[0].ringCount, 2u);  // the open line encloses nothing
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[0], 1),
              (Points_{{2, 98}, {8, 98}, {8, 92}, {2, 92}}));
}

TEST(SvgPath, BadDataDrawsUpToTheError) {
    const SvgResult r = Stroked("M0 0 L10 0 L20 x 30 0");
    ASSERT_TRUE(r.ok);
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[0]), (Points_{{0, 100}, {10, 100}}));
    ASSERT_EQ(r.warnings.size(), 1u);
    EXPECT_EQ(r.warnings[0], "test.svg:1: <path>: path data with an error; drawn up to the error");
}

TEST(SvgShapes, RoundedRectangle) {
    const SvgResult r = ReadSvg(
        Page("<rect x='10' y='10' width='40' height='20' rx='5' fill='none' stroke='blue'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    const Points_ p = Points(r.drawing, r.drawing.strokes[0]);
    ASSERT_EQ(p.size(), 17u);
    EXPECT_EQ(p[0], (VRKDrawingPoint{15, 70}));
    EXPECT_EQ(p[1], (VRKDrawingPoint{45, 70}));
    EXPECT_EQ(p[4], (VRKDrawingPoint{50, 75}));
    EXPECT_EQ(p[16], p[0]);
    EXPECT_EQ(Controls(r.drawing, r.drawing.strokes[0]),
              (std::vector<std::uint8_t>{0, 0, 1, 1, 0, 0, 1, 1, 0, 0, 1, 1, 0, 0, 1, 1, 0}));
}

TEST(SvgShapes, CirclesAndEllipsesStayWhole) {
    const SvgResult r =
        ReadSvg(Page("<circle cx='50' cy='40' r='10' fill='red' stroke='black'/>"
                     "<ellipse cx='20' cy='20' rx='8' ry='4' fill='none' stroke='black' "
                     "transform='scale(2 1)'/>"
                     "<ellipse cx='0' cy='0' rx='8' ry='4' fill='none' stroke='black' "
                     "transform='translate(50 50) rotate(-90)'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.fills.size(), 1u);
    ASSERT_EQ(r.drawing.strokes.size(), 3u);
    // Fill first, then the stroke.
    EXPECT_EQ(r.drawing.items[0].kind, VRKDrawingItem::Kind::kFill);
    EXPECT_EQ(r.drawing.items[1].kind, VRKDrawingItem::Kind::kStroke);
    const VRKDrawingFill& fill = r.drawing.fills[0];
    EXPECT_TRUE(fill.ellipse);
    EXPECT_EQ(fill.color, (VRKDrawingColor{255, 0, 0}));
    EXPECT_EQ(r.drawing.points[fill.first], (VRKDrawingPoint{50, 60}));
    EXPECT_EQ(r.drawing.points[fill.first + 1], (VRKDrawingPoint{10, 10}));
    EXPECT_EQ(r.drawing.points[fill.first + 2].x, 0.0f);
    const VRKDrawingStroke& circle = r.drawing.strokes[0];
    EXPECT_EQ(circle.kind, VRKDrawingStroke::Kind::kEllipse);
    EXPECT_EQ(Points(r.drawing, circle), (Points_{{50, 60}, {10, 10}, {0, 0}}));
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[1]), (Points_{{40, 80}, {16, 4}, {0, 0}}));
    // Turned a quarter counter-clockwise on the page: the first axis points up.
    const Points_ turned = Points(r.drawing, r.drawing.strokes[2]);
    EXPECT_EQ(turned[0], (VRKDrawingPoint{50, 50}));
    EXPECT_NEAR(turned[1].x, 8, 1e-5);
    EXPECT_NEAR(turned[1].y, 4, 1e-5);
    EXPECT_NEAR(turned[2].x, M_PI / 2, 1e-6);
}

TEST(SvgShapes, LinesPolylinesPolygons) {
    const SvgResult r =
        ReadSvg(Page("<line x1='0' y1='0' x2='10' y2='10' stroke='black'/>"
                     "<polyline points='0,0 10,0 10,10' fill='none' stroke='black'/>"
                     "<polygon points='0 0 10 0 10 10' stroke='black' fill='lime'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.strokes.size(), 3u);
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[0]), (Points_{{0, 100}, {10, 90}}));
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[1]), (Points_{{0, 100}, {10, 100}, {10, 90}}));
    EXPECT_EQ(Points(r.drawing, r.drawing.strokes[2]),
              (Points_{{0, 100}, {10, 100}, {10, 90}, {0, 100}}));
    ASSERT_EQ(r.drawing.fills.size(), 1u);  // the line has no fill, black as it is by default
    EXPECT_EQ(r.drawing.fills[0].color, (VRKDrawingColor{0, 255, 0}));
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[0], 0), (Points_{{0, 100}, {10, 100}, {10, 90}}));
}

TEST(SvgShapes, ZeroSizeAndDegenerateDrawNothing) {
    const SvgResult r =
        ReadSvg(Page("<rect width='0' height='10' stroke='black'/><circle r='0' stroke='black'/>"
                     "<ellipse rx='5' ry='0' stroke='black'/><line x1='5' y1='5' x2='5' y2='5' "
                     "stroke='black'/><circle r='5' stroke='black' transform='scale(0 1)'/>"
                     "<path d='M5 5' stroke='black'/><polyline points='1 2' stroke='black'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_TRUE(r.drawing.items.empty());
    EXPECT_TRUE(r.drawing.points.empty());
    EXPECT_TRUE(r.warnings.empty());
}

}  // namespace
