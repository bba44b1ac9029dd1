#include <gtest/gtest.h>

#include "svg/SvgTestSupport.h"

namespace {

constexpr VRKDrawingColor kBlack{0, 0, 0};

TEST(SvgPage, RectangleOfTheExample) {
    const SvgResult r = ReadSvg(
        "<svg width=\"100mm\" height=\"100mm\" viewBox=\"0 0 100 100\"><rect x=\"10\" y=\"10\" "
        "width=\"10\" height=\"10\" fill=\"black\"/></svg>");
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(r.drawing.width, 100.0f);
    EXPECT_EQ(r.drawing.height, 100.0f);
    ASSERT_EQ(r.drawing.items.size(), 1u);
    ASSERT_EQ(r.drawing.fills.size(), 1u);
    EXPECT_TRUE(r.drawing.strokes.empty());
    const VRKDrawingFill& fill = r.drawing.fills[0];
    EXPECT_EQ(fill.color, kBlack);
    EXPECT_EQ(fill.rule, 1);
    EXPECT_FALSE(fill.ellipse);
    ASSERT_EQ(fill.ringCount, 1u);
    EXPECT_EQ(Ring(r.drawing, fill, 0), (Points_{{10, 80}, {20, 80}, {20, 90}, {10, 90}}));
    EXPECT_TRUE(r.warnings.empty());
}

struct SizeCase {
    const char* attributes;
    float width;
    float height;
};

class SvgPageSize : public testing::TestWithParam<SizeCase> {};

TEST_P(SvgPageSize, FromWidthHeightOrViewBox) {
    const SvgResult r = ReadSvg(std::string("<svg xmlns='http://www.w3.org/2000/svg' ") +
                                GetParam().attributes + "/>");
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(r.drawing.width, GetParam().width);
    EXPECT_EQ(r.drawing.height, GetParam().height);
}

INSTANTIATE_TEST_SUITE_P(
    Units, SvgPageSize,
    testing::Values(SizeCase{"width='20mm' height='3cm'", 20.0f, 30.0f},
                    SizeCase{"width='1in' height='72pt'", 25.4f, 25.4f},
                    SizeCase{"width='6pc' height='96px'", 25.4f, 25.4f},
                    SizeCase{"width='192' height='48'", 50.8f, 12.7f},
                    SizeCase{"width='100%' height='50%' viewBox='0 0 96 192'", 25.4f, 50.8f},
                    SizeCase{"viewBox='5 5 192 96'", 50.8f, 25.4f}, SizeCase{"", 79.375f, 39.6875f},
                    SizeCase{"width='50%'", 79.375f, 39.6875f}));

TEST(SvgPage, ZeroSizeIsAnError) {
    const SvgResult r = ReadSvg("<svg xmlns='http://www.w3.org/2000/svg' width='0' height='10'/>");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:1: the drawing's width and height must be positive and below 10 km");
}

// A square of 10 user units at the origin in a 200 x 100 mm page over a 100 x 100 viewBox.
Points_ SquareWithAspect(const std::string& aspect, const std::string& box = "0 0 100 100") {
    const SvgResult r = ReadSvg(
        "<svg xmlns='http://www.w3.org/2000/svg' width='200mm' height='100mm' viewBox='" + box +
        "' preserveAspectRatio='" + aspect + "'><rect width='10' height='10'/></svg>");
    EXPECT_TRUE(r.ok) << r.error;
    if (r.drawing.fills.size() != 1) {
        return {};
    }
    return Ring(r.drawing, r.drawing.fills[0], 0);
}

TEST(SvgPage, PreserveAspectRatio) {
    EXPECT_EQ(SquareWithAspect("xMidYMid meet"),
              (Points_{{50, 90}, {60, 90}, {60, 100}, {50, 100}}));
    EXPECT_EQ(SquareWithAspect("xMinYMin"), (Points_{{0, 90}, {10, 90}, {10, 100}, {0, 100}}));
    EXPECT_EQ(SquareWithAspect("xMaxYMax meet"),
              (Points_{{100, 90}, {110, 90}, {110, 100}, {100, 100}}));
    EXPECT_EQ(SquareWithAspect("none"), (Points_{{0, 90}, {20, 90}, {20, 100}, {0, 100}}));
    // Slice: scale 2, the viewBox's height overflows; YMax puts its bottom at the page's bottom.
    EXPECT_EQ(SquareWithAspect("xMinYMax slice"),
              (Points_{{0, 180}, {20, 180}, {20, 200}, {0, 200}}));
    EXPECT_EQ(SquareWithAspect("xMidYMid slice"),
              (Points_{{0, 130}, {20, 130}, {20, 150}, {0, 150}}));
    // The viewBox's origin goes to the viewport's.
    EXPECT_EQ(SquareWithAspect("xMinYMin", "-10 -10 100 100"),
              (Points_{{10, 80}, {20, 80}, {20, 90}, {10, 90}}));
}

TEST(SvgPage, PixelsWithoutViewBox) {
    // 96 px to the inch: a square of 96 px is 25.4 mm.
    const SvgResult r = ReadSvg(
        "<svg xmlns='http://www.w3.org/2000/svg' width='192' height='192'>"
        "<rect width='96' height='96'/></svg>");
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.fills.size(), 1u);
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[0], 0),
              (Points_{{0, 25.4f}, {25.4f, 25.4f}, {25.4f, 50.8f}, {0, 50.8f}}));
}

TEST(SvgPage, NestedSvgHasItsOwnViewport) {
    const SvgResult r = ReadSvg(Page(
        "<svg x='10' y='20' width='40' height='40' viewBox='0 0 4 4'><rect width='1' height='2'/>"
        "</svg><svg x='50' y='50'><rect width='5' height='5'/></svg>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.fills.size(), 2u);
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[0], 0),
              (Points_{{10, 60}, {20, 60}, {20, 80}, {10, 80}}));
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[1], 0),
              (Points_{{50, 45}, {55, 45}, {55, 50}, {50, 50}}));
}

TEST(SvgPage, Transforms) {
    const SvgResult r =
        ReadSvg(Page("<g transform='translate(10 20)'><rect transform='scale(2, 3)' width='1' "
                     "height='1'/></g>"
                     "<rect transform='matrix(1 0 0 1 50 50)' width='2' height='2'/>"
                     "<rect transform='translate(10) rotate(90)' width='2' height='1'/>"
                     "<rect transform='rotate(90 50 50)' width='2' height='1'/>"
                     "<rect transform='skewX(45)' y='10' width='1' height='1'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.fills.size(), 5u);
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[0], 0),
              (Points_{{10, 77}, {12, 77}, {12, 80}, {10, 80}}));
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[1], 0),
              (Points_{{50, 48}, {52, 48}, {52, 50}, {50, 50}}));
    // rotate(90) turns x onto y: (x, y) -> (-y, x), then translate(10).
    const Points_ turned = Ring(r.drawing, r.drawing.fills[2], 0);
    ASSERT_EQ(turned.size(), 4u);
    EXPECT_NEAR(turned[0].x, 9, 1e-5);
    EXPECT_NEAR(turned[0].y, 100, 1e-5);
    EXPECT_NEAR(turned[1].x, 9, 1e-5);
    EXPECT_NEAR(turned[1].y, 98, 1e-5);
    const Points_ about = Ring(r.drawing, r.drawing.fills[3], 0);
    ASSERT_EQ(about.size(), 4u);
    EXPECT_NEAR(about[3].x, 100, 1e-4);  // (0, 0) about (50, 50) goes to (100, 0)
    EXPECT_NEAR(about[3].y, 100, 1e-4);
    const Points_ skewed = Ring(r.drawing, r.drawing.fills[4], 0);
    ASSERT_EQ(skewed.size(), 4u);
    EXPECT_NEAR(skewed[0].x, 11, 1e-5);  // (0, 11) skewed by 45 degrees: x + y
    EXPECT_NEAR(skewed[0].y, 89, 1e-5);
}

}  // namespace
