#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "host/core/VRKPrintTextAttribute.h"
#include "host/core/VRKTextOutliner.h"
#include "host/fonts/VRKFreeTypeOutliner.h"
#include "host/fonts/VRKGlyphPath.h"
#include "tests/fonts/CurveDistance.h"
#include "tests/fonts/FontMetrics.h"

namespace {

using curve_distance::Piece;
using curve_distance::Point;

struct Setting {
    const char* text;
    float x, y, size, direction, slant;
    int weight;
};

// For every glyph of the text: its exact curves (per contour) and its flattened contours, which
// must match one to one, with each chord within the flatness of the curve and the curve within
// it of the chords.
void checkFlattening(const Setting& s) {
    SCOPED_TRACE(s.text);
    VRKFreeTypeOutliner outliner(dejavu::kPath);
    std::vector<VRKGlyphPath> paths;
    ASSERT_TRUE(outliner.OutlinePaths(s.text, s.x, s.y, s.size, s.direction, s.slant,
                                      VRKAnchorBaseLeft, s.weight, paths));
    VRKTextOutliner::Outlines outlines;
    ASSERT_TRUE(outliner.Outline(s.text, s.x, s.y, s.size, s.direction, s.slant, VRKAnchorBaseLeft,
                                 s.weight, outlines));
    ASSERT_EQ(paths.size(), outlines.glyphContours.size());

    bool sawCurve = false;
    std::size_t contour = 0, point = 0;
    for (std::size_t g = 0; g < paths.size(); ++g) {
        const auto& segments = paths[g].GetSegments();
        const int contours = segments.empty() ? 0 : segments.back().contour + 1;
        ASSERT_EQ(outlines.glyphContours[g], contours);
        for (int c = 0; c < contours; ++c, ++contour) {
            std::vector<Piece> pieces;
            std::vector<Point> ends;
            for (const auto& segment : segments) {
                if (segment.contour != c) {
                    continue;
                }
                sawCurve = sawCurve || segment.kind != VRKGlyphPath::SegmentKind::Line;
                pieces.push_back([segment](double t) {
                    Point p;
                    segment.PointAt(t, p.x, p.y);
                    return p;
                });
                const int d = segment.Degree();
                ends.push_back({segment.x[d], segment.y[d]});
            }
            std::vector<Point> polygon;
            for (int i = 0; i < outlines.contourPoints[contour]; ++i, ++point) {
                polygon.push_back({outlines.points[2 * point], outlines.points[2 * point + 1]});
            }
            // Every segment's end is a vertex of the polygon, exactly (as a float).
            for (const Point& e : ends) {
                const bool found = std::any_of(polygon.begin(), polygon.end(), [&](Point p) {
                    return p.x == static_cast<float>(e.x) && p.y == static_cast<float>(e.y);
                });
                EXPECT_TRUE(found) << "segment end " << e.x << ", " << e.y;
            }
            polygon.push_back(polygon.front());  // closed implicitly
            EXPECT_LE(curve_distance::chordsToCurve(polygon, pieces), VRKTextOutliner::kFlatness);
            EXPECT_LE(curve_distance::curveToChords(polygon, pieces), VRKTextOutliner::kFlatness);
        }
    }
    EXPECT_TRUE(sawCurve);
    EXPECT_EQ(contour, outlines.contourPoints.size());
}

TEST(GlyphFlattening, LetterOIsWithinOnePlotterUnit) {
    checkFlattening({"O", 0.0f, 0.0f, 10.0f, 0.0f, 0.0f, VRKWeightNormal});
}

TEST(GlyphFlattening, LargeTurnedSlantedLetters) {
    // At 80 mm the curves need many chords; the turn and the shear must not loosen them.
    checkFlattening({"Os", 120.0f, -40.0f, 80.0f, 33.0f, 15.0f, VRKWeightNormal});
}

TEST(GlyphFlattening, BoldGlyphs) {
    checkFlattening({"@", 10.0f, 10.0f, 40.0f, 0.0f, 0.0f, VRKWeightBold});
}

TEST(GlyphFlattening, QuadraticChordCountFollowsTheCurvature) {
    // A quadratic whose second derivative is 2 * |P0 - 2 P1 + P2| = 2 * 20 = 40 mm: chords of
    // parameter step h deviate 40 h^2 / 8; 0.025 mm needs h <= 1 / sqrt(200), so 15 chords.
    VRKGlyphPath path;
    path.MoveTo(0.0, 0.0);
    path.QuadTo(10.0, 10.0, 20.0, 0.0);
    path.LineTo(0.0, 0.0);
    std::vector<int> counts;
    std::vector<float> points;
    EXPECT_EQ(path.Flatten(0.025, counts, points), 1);
    // The start, 14 inner points, the end; the closing line returns to the start.
    EXPECT_EQ(counts, (std::vector<int>{16}));
    EXPECT_EQ(points[0], 0.0f);
    EXPECT_EQ(points[1], 0.0f);
    EXPECT_EQ(points[30], 20.0f);
    EXPECT_EQ(points[31], 0.0f);
}

TEST(GlyphFlattening, DegenerateContoursAreDropped) {
    VRKGlyphPath path;
    path.MoveTo(1.0, 1.0);
    path.LineTo(2.0, 2.0);
    path.LineTo(1.0, 1.0);
    path.MoveTo(0.0, 0.0);
    path.LineTo(0.0, 0.0);
    path.LineTo(4.0, 0.0);
    path.LineTo(4.0, 3.0);
    path.LineTo(0.0, 0.0);
    std::vector<int> counts;
    std::vector<float> points;
    EXPECT_EQ(path.Flatten(0.025, counts, points), 1);
    EXPECT_EQ(counts, (std::vector<int>{3}));
    EXPECT_EQ(points, (std::vector<float>{0, 0, 4, 0, 4, 3}));
}

}  // namespace
