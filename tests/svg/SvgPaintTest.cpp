#include <gtest/gtest.h>

#include "host/core/VRKPrintLineAttribute.h"
#include "svg/SvgTestSupport.h"

namespace {

VRKDrawingColor FillOf(const std::string& attributes, const std::string& defs = "") {
    const SvgResult r = ReadSvg(Page(defs + "<rect width='1' height='1' " + attributes + "/>"));
    EXPECT_TRUE(r.ok) << r.error;
    EXPECT_EQ(r.drawing.fills.size(), 1u) << attributes;
    return r.drawing.fills.empty() ? VRKDrawingColor{1, 2, 3} : r.drawing.fills[0].color;
}

TEST(SvgPaint, Colours) {
    EXPECT_EQ(FillOf(""), (VRKDrawingColor{0, 0, 0}));
    EXPECT_EQ(FillOf("fill='cornflowerblue'"), (VRKDrawingColor{100, 149, 237}));
    EXPECT_EQ(FillOf("fill='#f80'"), (VRKDrawingColor{255, 136, 0}));
    EXPECT_EQ(FillOf("fill='#1A2b3C'"), (VRKDrawingColor{26, 43, 60}));
    EXPECT_EQ(FillOf("fill='rgb(1, 2, 3)'"), (VRKDrawingColor{1, 2, 3}));
    EXPECT_EQ(FillOf("fill='rgb(100%, 0%, 50%)'"), (VRKDrawingColor{255, 0, 128}));
    EXPECT_EQ(FillOf("fill='currentColor' color='teal'"), (VRKDrawingColor{0, 128, 128}));
    // A value that cannot be read is ignored: the inherited black stays.
    EXPECT_EQ(FillOf("fill='#12345'"), (VRKDrawingColor{0, 0, 0}));
    EXPECT_EQ(FillOf("fill='r\xC3\xA9"
                     "d'"),
              (VRKDrawingColor{0, 0, 0}));
    EXPECT_EQ(FillOf("fill='\xE2\x82\xAC'"), (VRKDrawingColor{0, 0, 0}));
}

TEST(SvgPaint, NoneDrawsNothing) {
    const SvgResult r = ReadSvg(Page("<rect width='1' height='1' fill='none'/>"));
    ASSERT_TRUE(r.ok);
    EXPECT_TRUE(r.drawing.items.empty());
}

TEST(SvgPaint, OpacityIsBlendedOverWhite) {
    EXPECT_EQ(FillOf("fill='red' opacity='0.5'"), (VRKDrawingColor{255, 128, 128}));
    EXPECT_EQ(FillOf("fill='#000' opacity='0.5' fill-opacity='0.5'"),
              (VRKDrawingColor{191, 191, 191}));
    EXPECT_EQ(FillOf("fill='blue' fill-opacity='0' stroke-opacity='0.2'"),
              (VRKDrawingColor{255, 255, 255}));
    const SvgResult r =
        ReadSvg(Page("<line x2='10' stroke='#102030' stroke-opacity='0.25' opacity='0.8'/>"));
    ASSERT_EQ(r.drawing.strokes.size(), 1u);
    // a = 0.2: 255 - 0.2 (255 - c).
    EXPECT_EQ(r.drawing.pens[0].color, (VRKDrawingColor{207, 210, 214}));
}

TEST(SvgPaint, GradientsAreTheirStopsAverage) {
    const std::string defs =
        "<defs><linearGradient id='g'><stop offset='0' stop-color='#ff0000'/>"
        "<stop offset='1' style='stop-color: #0000ff; stop-opacity: 0.5'/></linearGradient>"
        "<radialGradient id='h' href='#g'/></defs>";
    // Average (127.5, 0, 127.5) at opacity 0.75.
    EXPECT_EQ(FillOf("fill='url(#g)'", defs), (VRKDrawingColor{159, 64, 159}));
    EXPECT_EQ(FillOf("fill='url(#h)'", defs), (VRKDrawingColor{159, 64, 159}));
    const SvgResult r = ReadSvg(Page(defs + "<rect width='1' height='1' fill='url(#g)'/>"));
    ASSERT_EQ(r.warnings.size(), 1u);
    EXPECT_EQ(r.warnings[0],
              "test.svg:1: <rect>: gradients are drawn in the average colour of their stops");
}

TEST(SvgPaint, PatternsAndMissingServersUseTheFallback) {
    const SvgResult r = ReadSvg(Page(
        "<defs><pattern id='p' width='1' height='1'><rect width='1' height='1'/></pattern></defs>"
        "<rect id='a' width='1' height='1' fill='url(#p)'/>"
        "<rect width='1' height='1' fill='url(#p) lime'/>"
        "<rect width='1' height='1' fill='url(#nothing) blue'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.fills.size(), 2u);
    EXPECT_EQ(r.drawing.fills[0].color, (VRKDrawingColor{0, 255, 0}));
    EXPECT_EQ(r.drawing.fills[1].color, (VRKDrawingColor{0, 0, 255}));
    ASSERT_EQ(r.warnings.size(), 2u);
    EXPECT_EQ(r.warnings[0],
              "test.svg:1: <rect id='a'>: patterns are not supported; painted in the fallback "
              "colour when one is given, else not painted");
    EXPECT_EQ(r.warnings[1],
              "test.svg:1: <rect>: refers to 'nothing', which is not a paint server of the file; "
              "drawn without it");
}

const VRKDrawingPen& PenOf(const SvgResult& r) {
    static const VRKDrawingPen none;
    EXPECT_EQ(r.drawing.strokes.size(), 1u);
    return r.drawing.strokes.empty() ? none : r.drawing.pens[r.drawing.strokes[0].pen];
}

SvgResult Line(const std::string& attributes) {
    return ReadSvg(Page("<line x2='10' stroke='black' " + attributes + "/>"));
}

TEST(SvgPaint, StrokeWidthFollowsTheTransform) {
    EXPECT_EQ(PenOf(Line("")).width, 1.0f);
    EXPECT_EQ(PenOf(Line("stroke-width='2' transform='scale(3)'")).width, 6.0f);
    EXPECT_EQ(PenOf(Line("stroke-width='2' transform='scale(2 8)'")).width, 8.0f);
    EXPECT_TRUE(Line("stroke-width='0'").drawing.strokes.empty());
}

TEST(SvgPaint, CapsJoinsAndRules) {
    const VRKDrawingPen butt = PenOf(Line(""));
    EXPECT_EQ(butt.cap, VRKLineCapFlat);
    EXPECT_EQ(butt.join, VRKLineJoinMiter);
    EXPECT_EQ(PenOf(Line("stroke-linecap='square'")).cap, VRKLineCapSquare);
    EXPECT_EQ(PenOf(Line("stroke-linecap='round' stroke-linejoin='round'")).cap, VRKLineCapRound);
    EXPECT_EQ(PenOf(Line("stroke-linejoin='round'")).join, VRKLineJoinRound);
    EXPECT_EQ(PenOf(Line("stroke-linejoin='bevel'")).join, VRKLineJoinBevel);
}

TEST(SvgPaint, DashesBecomeTheNearestLineStyle) {
    EXPECT_EQ(PenOf(Line("stroke-dasharray='none'")).lineStyle, VRKLineStyleSolid);
    EXPECT_EQ(PenOf(Line("stroke-dasharray='0 0'")).lineStyle, VRKLineStyleSolid);
    EXPECT_EQ(PenOf(Line("stroke-dasharray='4 2'")).lineStyle, VRKLineStyleDash);
    EXPECT_EQ(PenOf(Line("stroke-dasharray='3'")).lineStyle, VRKLineStyleDash);
    EXPECT_EQ(PenOf(Line("stroke-dasharray='1 2'")).lineStyle, VRKLineStyleDot);
    EXPECT_EQ(PenOf(Line("stroke-dasharray='2, 2' stroke-width='2'")).lineStyle, VRKLineStyleDot);
    EXPECT_EQ(PenOf(Line("stroke-dasharray='5 2 1 2'")).lineStyle, VRKLineStyleDashDot);
    EXPECT_EQ(PenOf(Line("stroke-dasharray='5 2 1'")).lineStyle, VRKLineStyleDashDotDot);
    EXPECT_EQ(PenOf(Line("stroke-dasharray='5 2 1 2 1 2'")).lineStyle, VRKLineStyleDashDotDot);
}

TEST(SvgPaint, PensAreShared) {
    const SvgResult r = ReadSvg(Page(
        "<line x2='10' stroke='red'/><line x2='10' stroke='blue'/><line x2='10' stroke='red'/>"));
    ASSERT_EQ(r.drawing.strokes.size(), 3u);
    EXPECT_EQ(r.drawing.pens.size(), 2u);
    EXPECT_EQ(r.drawing.strokes[0].pen, r.drawing.strokes[2].pen);
}

}  // namespace
