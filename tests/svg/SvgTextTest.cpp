#include <gtest/gtest.h>

#include "host/core/VRKPrintTextAttribute.h"
#include "svg/SvgTestSupport.h"

namespace {

SvgResult Texts(const std::string& content) {
    return ReadSvg(Page(content));
}

TEST(SvgText, PositionSizeAndDefaults) {
    const SvgResult r = Texts("<text x='10' y='20' font-size='5'>Hello</text>");
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.texts.size(), 1u);
    const VRKDrawingText& t = r.drawing.texts[0];
    EXPECT_EQ(t.x, 10.0f);
    EXPECT_EQ(t.y, 80.0f);
    EXPECT_EQ(t.utf8, "Hello");
    EXPECT_EQ(t.size, 5.0f);
    EXPECT_EQ(t.direction, 0.0f);
    EXPECT_EQ(t.font, VRKFontDefault);
    EXPECT_EQ(t.weight, VRKWeightNormal);
    EXPECT_EQ(t.anchor, VRKAnchorBaseLeft);
    EXPECT_EQ(t.color, (VRKDrawingColor{0, 0, 0}));
}

TEST(SvgText, DefaultFontSizeIsSixteenPixels) {
    const SvgResult r = ReadSvg(
        "<svg xmlns='http://www.w3.org/2000/svg' width='96' height='96'><text>A</text></svg>");
    ASSERT_EQ(r.drawing.texts.size(), 1u);
    EXPECT_FLOAT_EQ(r.drawing.texts[0].size, 16 * 25.4 / 96);
    EXPECT_FLOAT_EQ(r.drawing.texts[0].y, 25.4f);
}

TEST(SvgText, AnchorWeightColourAndTransform) {
    const SvgResult r = Texts(
        "<text x='50' y='50' text-anchor='middle' font-weight='bold' fill='red' font-size='2' "
        "transform='scale(3)'>M</text>"
        "<text text-anchor='end' font-weight='700'>E</text>"
        "<text font-weight='600' transform='rotate(-90)'>R</text>");
    ASSERT_EQ(r.drawing.texts.size(), 3u);
    const VRKDrawingText& m = r.drawing.texts[0];
    EXPECT_EQ(m.anchor, VRKAnchorBaseCenter);
    EXPECT_EQ(m.weight, VRKWeightBold);
    EXPECT_EQ(m.color, (VRKDrawingColor{255, 0, 0}));
    EXPECT_EQ(m.size, 6.0f);
    EXPECT_EQ(m.x, 150.0f);
    EXPECT_EQ(m.y, -50.0f);
    EXPECT_EQ(r.drawing.texts[1].anchor, VRKAnchorBaseRight);
    EXPECT_EQ(r.drawing.texts[1].weight, VRKWeightBold);
    EXPECT_EQ(r.drawing.texts[2].weight, VRKWeightNormal);
    EXPECT_FLOAT_EQ(r.drawing.texts[2].direction, 90.0f);
}

TEST(SvgText, FontFamilies) {
    const SvgResult r = Texts(
        "<text font-family='Courier New'>a</text><text font-family='monospace'>b</text>"
        "<text font-family='\"Times New Roman\", serif'>c</text><text "
        "font-family='Georgia'>d</text>"
        "<text font-family='Unknown, Arial'>e</text><text font-family='Verdana'>f</text>"
        "<text font-family='DejaVu Sans'>g</text><text font-family='sans-serif'>h</text>"
        "<text font-family='Fancy'>i</text>");
    ASSERT_EQ(r.drawing.texts.size(), 9u);
    const int expected[] = {VRKFontCourier, VRKFontMonospace, VRKFontSerif,
                            VRKFontSerif,   VRKFontSans,      VRKFontSans,
                            VRKFontSans,    VRKFontSans,      VRKFontDefault};
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(r.drawing.texts[i].font, expected[i]) << i;
    }
}

TEST(SvgText, EachRunIsOneTextAtItsPosition) {
    const SvgResult r = Texts(
        "<text x='10' y='10' font-size='10'>\n   Two  <tspan x='50' y='30' "
        "fill='blue'>parts</tspan>\tand\n more  </text>");
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.texts.size(), 3u);
    EXPECT_EQ(r.drawing.texts[0].utf8, "Two ");
    EXPECT_EQ(r.drawing.texts[0].x, 10.0f);
    EXPECT_EQ(r.drawing.texts[0].y, 90.0f);
    EXPECT_EQ(r.drawing.texts[1].utf8, "parts");
    EXPECT_EQ(r.drawing.texts[1].x, 50.0f);
    EXPECT_EQ(r.drawing.texts[1].y, 70.0f);
    EXPECT_EQ(r.drawing.texts[1].color, (VRKDrawingColor{0, 0, 255}));
    // After "parts", 5 characters at 0.6 em each.
    EXPECT_EQ(r.drawing.texts[2].utf8, " and more");
    EXPECT_EQ(r.drawing.texts[2].x, 80.0f);
    EXPECT_EQ(r.drawing.texts[2].y, 70.0f);
}

TEST(SvgText, RelativeShiftsAndPreservedSpace) {
    const SvgResult r = Texts(
        "<text x='10' y='10' dx='2' dy='3'>a<tspan dy='5'>b</tspan></text>"
        "<text xml:space='preserve'> a\n b </text>");
    ASSERT_EQ(r.drawing.texts.size(), 3u);
    EXPECT_EQ(r.drawing.texts[0].x, 12.0f);
    EXPECT_EQ(r.drawing.texts[0].y, 87.0f);
    EXPECT_FLOAT_EQ(r.drawing.texts[1].x, 12.0f + 0.6f * 16.0f);
    EXPECT_EQ(r.drawing.texts[1].y, 82.0f);
    EXPECT_EQ(r.drawing.texts[2].utf8, " a  b ");
}

}  // namespace
