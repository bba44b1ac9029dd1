#include <gtest/gtest.h>

#include "svg/SvgTestSupport.h"

namespace {

constexpr VRKDrawingColor kRed{255, 0, 0};
constexpr VRKDrawingColor kGreen{0, 128, 0};
constexpr VRKDrawingColor kBlue{0, 0, 255};

// The colours of the fills, in the drawing's order.
std::vector<VRKDrawingColor> FillColors(const SvgResult& r) {
    std::vector<VRKDrawingColor> colors;
    for (const VRKDrawingFill& fill : r.drawing.fills) {
        colors.push_back(fill.color);
    }
    return colors;
}

TEST(SvgStyle, AttributeThenSheetThenStyleAttribute) {
    const SvgResult r =
        ReadSvg(Page("<style>rect { fill: green } .b { fill: blue }</style>"
                     "<rect width='1' height='1' fill='red'/>"
                     "<rect width='1' height='1' fill='red' class='b'/>"
                     "<rect width='1' height='1' fill='red' class='b' style='fill: red'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(FillColors(r), (std::vector<VRKDrawingColor>{kGreen, kBlue, kRed}));
}

TEST(SvgStyle, SpecificityThenOrder) {
    const SvgResult r = ReadSvg(
        Page("<style>#x { fill: red } .c.d { fill: blue } rect.c { fill: lime } .c { fill: green }"
             " rect { fill: yellow }</style>"
             "<rect id='x' class='c d' width='1' height='1'/>"
             "<rect class='c d' width='1' height='1'/>"
             "<rect class='c' width='1' height='1'/>"
             "<rect class='e' width='1' height='1'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(FillColors(r),
              (std::vector<VRKDrawingColor>{kRed, kBlue, {0, 255, 0}, {255, 255, 0}}));
}

TEST(SvgStyle, SelectorListsAndSkippedRules) {
    const SvgResult r = ReadSvg(Page(
        "<style>/* rules */ @media print { rect { fill: red } } g rect, circle, .k { fill: blue }"
        " rect:hover { fill: red }</style>"
        "<g><rect class='k' width='1' height='1'/><circle r='1' fill='red'/></g>"));
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(FillColors(r), (std::vector<VRKDrawingColor>{kBlue, kBlue}));
    ASSERT_EQ(r.warnings.size(), 1u);
    EXPECT_EQ(r.warnings[0],
              "test.svg:1: <style>: only type, class and id selectors are supported; @ rules and "
              "the like skipped");
}

TEST(SvgStyle, InheritanceFromGroupsAndUse) {
    const SvgResult r = ReadSvg(
        Page("<defs><rect id='r' width='1' height='1'/></defs>"
             "<g fill='blue' stroke='red' stroke-width='2'><g><rect width='1' height='1'/></g></g>"
             "<use href='#r' fill='green'/><use xlink:href='#r' style='fill: red'/>"
             "<g opacity='0.5'><rect width='1' height='1' fill='inherit'/></g>"));
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(FillColors(r), (std::vector<VRKDrawingColor>{kBlue, kGreen, kRed, {128, 128, 128}}));
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    EXPECT_EQ(r.drawing.pens[r.drawing.strokes[0].pen].color, kRed);
    EXPECT_EQ(r.drawing.pens[r.drawing.strokes[0].pen].width, 2.0f);
}

TEST(SvgStyle, UsePlacesItsCopyAndSymbolsHaveViewports) {
    const SvgResult r =
        ReadSvg(Page("<defs><rect id='r' width='2' height='2'/>"
                     "<symbol id='s' viewBox='0 0 1 1'><rect width='1' height='1'/></symbol></defs>"
                     "<use href='#r' x='10' y='20' transform='translate(1 1)'/>"
                     "<use href='#s' x='50' y='50' width='10' height='10'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.fills.size(), 2u);
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[0], 0),
              (Points_{{11, 77}, {13, 77}, {13, 79}, {11, 79}}));
    EXPECT_EQ(Ring(r.drawing, r.drawing.fills[1], 0),
              (Points_{{50, 40}, {60, 40}, {60, 50}, {50, 50}}));
}

TEST(SvgStyle, DisplayAndVisibility) {
    const SvgResult r =
        ReadSvg(Page("<g display='none'><rect width='1' height='1'/></g>"
                     "<g visibility='hidden'><rect width='1' height='1'/>"
                     "<rect width='1' height='1' visibility='visible' fill='blue'/></g>"));
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(FillColors(r), (std::vector<VRKDrawingColor>{kBlue}));
}

}  // namespace
