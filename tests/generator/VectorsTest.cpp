#include <gtest/gtest.h>

#include <limits>
#include <numbers>
#include <string>

#include "host/core/VRKPrintMemoryStream.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"

namespace {

const float kTwoPi = static_cast<float>(2.0 * std::numbers::pi);

// An HP-GL job on A4 with pen 1 (black) selected.
struct PenPlot {
    explicit PenPlot(bool relative) {
        g.UseHPGL();
        g.hpglSettings->SetRelativeMovePen(relative ? 1 : 0);
        g.Begin(FormParameters(210, 297, 1));
        g.DefineColor(1, 0, 0, 0);
        g.SelectDrawColor(1);
        g.Take();
    }
    HPGL2Peer g;
};

TEST(HPGLLines, MoveIsPendingUntilTheLine) {
    PenPlot p(false);
    p.g.MoveTo(10, 10);
    p.g.MoveTo(20, 20);
    EXPECT_EQ(p.g.Take(), "");
    p.g.LineTo(30, 20);
    p.g.LineTo(30, 30);
    EXPECT_EQ(p.g.Take(), "PU800,800PD1200,800PD1200,1200");
}

TEST(HPGLLines, MoveToTheCurrentPointIsNotPending) {
    PenPlot p(false);
    p.g.MoveTo(10, 10);
    p.g.LineTo(20, 10);
    p.g.MoveTo(20, 10);
    p.g.LineTo(20, 20);
    EXPECT_EQ(p.g.Take(), "PU400,400PD800,400PD800,800");
}

TEST(HPGLLines, RelativeModeWritesDifferences) {
    PenPlot p(true);
    p.g.MoveTo(10, 10);
    p.g.LineTo(20, 10);
    p.g.LineTo(20, 15);
    p.g.MoveTo(0, 0);
    p.g.LineTo(1, 1);
    EXPECT_EQ(p.g.Take(), "PU400,400PD400,0PD0,200PU-800,-600PD40,40");
}

TEST(HPGLLines, RelativeModeFromACentredOrigin) {
    HPGL2Peer g;
    g.UseHPGL();
    g.hpglSettings->SetOrigin(0);
    g.Begin(FormParameters(210, 297, 1));
    g.DefineColor(1, 0, 0, 0);
    g.SelectDrawColor(1);
    g.MoveTo(1, 1);
    g.LineTo(2, 1);
    EXPECT_EQ(g.Take(), "PU-4200,-5940PR;SP1;SP1PU4240,5980PD40,0");
}

TEST(HPGLLines, PenZeroDrawsNothing) {
    HPGL2Peer g;
    g.UseHPGL();
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    g.MoveTo(10, 10);
    g.LineTo(20, 20);
    EXPECT_EQ(g.Take(), "");
    EXPECT_EQ(g.hpgl.movePending, 1);
    // The move is still pending when a pen comes.
    g.DefineColor(1, 0, 0, 0);
    g.SelectDrawColor(1);
    g.LineTo(20, 20);
    EXPECT_EQ(g.Take(), "SP1PU400,400PD400,400");
}

TEST(HPGLLines, TwoStrokesGiveThreeAtMinusZeroPlus) {
    PenPlot p(false);
    p.g.hpgl.strokeCount = 2;
    p.g.hpgl.strokeSpacing = 4.0f;
    p.g.MoveTo(10, 10);
    p.g.LineTo(20, 10);
    // Along -x from the end: a = pi, so the offsets go into y: -cos(a) * d.
    EXPECT_EQ(p.g.Take(),
              "PU400,400"
              "PU400,404PD800,404"
              "PU400,400PD800,400"
              "PU400,396PD800,396");
}

TEST(HPGLLines, ThreeStrokesSpreadByAnExtraHalfSpacing) {
    PenPlot p(false);
    p.g.hpgl.strokeCount = 3;
    p.g.hpgl.strokeSpacing = 4.0f;
    p.g.MoveTo(10, 10);
    p.g.LineTo(10, 20);
    // Along +y: a = -pi/2, sin = -1: dx = -d.
    EXPECT_EQ(p.g.Take(),
              "PU400,400"
              "PU394,400PD394,800"
              "PU400,400PD400,800"
              "PU406,400PD406,800");
}

TEST(HPGLLines, SixStrokesFromThePenChoice) {
    PenPlot p(false);
    p.g.SetDrawWidth(0.7f);  // pen 1 is 0.35 mm: 6 strokes 2.8 units apart
    EXPECT_EQ(p.g.hpgl.strokeCount, 6);
    p.g.MoveTo(0, 0);  // the pen is there already: no move
    p.g.LineTo(10, 0);
    // i = -3..3: d = -8.4, -5.6, -2.8, 0, 2.8, 5.6, 8.4; along -x dy = trunc(-cos(pi) * d).
    EXPECT_EQ(p.g.Take(),
              "PU0,8PD400,8PU0,5PD400,5PU0,2PD400,2PU0,0PD400,0"
              "PU0,-2PD400,-2PU0,-5PD400,-5PU0,-8PD400,-8");
}

TEST(HPGLLines, StrokesInRelativeMode) {
    PenPlot p(true);
    p.g.hpgl.strokeCount = 2;
    p.g.hpgl.strokeSpacing = 4.0f;
    p.g.MoveTo(10, 10);
    p.g.LineTo(20, 10);
    EXPECT_EQ(p.g.Take(),
              "PU400,400"
              "PU0,4PD400,0"
              "PU-400,-4PD400,0"
              "PU-400,-4PD400,0");
    EXPECT_EQ(p.g.hpgl.originX, 800);
    EXPECT_EQ(p.g.hpgl.originY, 396);
}

TEST(HPGLLines, StrokesBetweenFarPoints) {
    // The direction comes from differences that do not fit an int.
    PenPlot p(false);
    p.g.hpgl.strokeCount = 2;
    p.g.hpgl.strokeSpacing = 4.0f;
    p.g.MoveTo(-3e7f, 10);
    p.g.LineTo(3e7f, 10);
    EXPECT_EQ(p.g.Take(),
              "PU-1200000000,400"
              "PU-1200000000,404PD1200000000,404"
              "PU-1200000000,400PD1200000000,400"
              "PU-1200000000,396PD1200000000,396");
}

TEST(HPGLLines, StrokesOfInfiniteSpacingHoldAtTheIntegerLimits) {
    PenPlot p(false);
    p.g.hpgl.strokeCount = 2;
    p.g.hpgl.strokeSpacing = std::numeric_limits<float>::infinity();
    p.g.MoveTo(10, 10);
    p.g.LineTo(20, 10);
    // Along -x: sin is a hair above 0, so the offsets across are infinite both ways and held at
    // the int's limits; the centre stroke (0 times infinity, NaN) is offset by 0.
    EXPECT_EQ(p.g.Take(),
              "PU400,400"
              "PU2147484048,2147484047PD2147484448,2147484047"
              "PU400,400PD800,400"
              "PU-2147483247,-2147483248PD-2147482847,-2147483248");
}

TEST(PolylineEncoded, PairsBetweenFarPointsAreWrittenWhole) {
    HPGL2Peer g;
    g.MoveTo(-3e7f, 0);  // -1,200,000,000 units
    g.LineTo(3e7f, 0);   // +2,400,000,000 from there: more than an int holds
    EXPECT_BYTES(
        "PE=<@_PBN\xC1\xBF"
        "??bE]\xC3\xBF",
        g.Take());
    EXPECT_EQ(g.lastEncodedX, 1200000000);
    // Coordinates held at the int's limits, and a move from one corner to the other.
    g.MoveTo(1e30f, -1e30f);
    g.LineTo(-1e30f, 1e30f);
    EXPECT_BYTES(
        "<}^m{o\xC0"
        "@????\xC3"
        "~~~~~\xC6"
        "}~~~~\xC6",
        g.Take());
    EXPECT_EQ(g.lastEncodedX, -2147483647 - 1);
    EXPECT_EQ(g.lastEncodedY, 2147483647);
}

TEST(PolyBezier, ThreePointsWriteNothing) {
    HPGL2Peer g;
    const float xy[] = {0, 0, 1, 0, 1, 1};
    g.DrawPolyBezier(3, xy);
    g.DrawPolyBezier(4, nullptr);
    EXPECT_EQ(g.Take(), "");
}

TEST(PolyBezier, NativeSegments) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.LineTo(0, 0);
    g.Take();
    const float xy[] = {1, 2, 1.5f, 2, 2, 2.5f, 2, 3, 2, 4, 3, 4, 3.001f, 5};
    g.DrawPolyBezier(7, xy);
    EXPECT_EQ(g.Take(),
              ";SP0PU40,80PD;"
              "BZ60.00,80.00,80.00,100.00,80.00,120.00"
              "BZ80.00,160.00,120.00,160.00,120.04,200.00"
              "PU40,80");
    EXPECT_EQ(g.lastEncodedX, 40);
    EXPECT_EQ(g.lastEncodedY, 80);
    EXPECT_EQ(g.encodedPolylineOpen, 0);
}

TEST(PolyBezier, LeftoverPointsAreNotRead) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    const float xy[] = {0, 0, 1, 0, 1, 1, 0, 1, 5, 5};
    g.DrawPolyBezier(5, xy);
    EXPECT_EQ(g.Take(), "SP0PU0,0PD;BZ40.00,0.00,40.00,40.00,0.00,40.00PU0,0");
}

TEST(PolyBezier, HPGLFlattens) {
    PenPlot p(false);
    const float xy[] = {0, 0, 10, 0, 10, 10, 0, 10};
    p.g.DrawPolyBezier(4, xy);
    const std::string out = p.g.Take();
    // The pen is at 0,0 already: the flattened curve starts with a line.
    EXPECT_EQ(out.substr(0, 2), "PD");
    EXPECT_EQ(out.find("BZ"), std::string::npos);
    EXPECT_EQ(out.substr(out.size() - 7), "PD0,400");
}

TEST(Circles, FullSweepIsNative) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    g.DrawArcCircle(10, 10, 5, 0, kTwoPi, 0);
    EXPECT_EQ(g.Take(), "PU600.00,400.00PD;AA400.00,400.00,360.00,.5");
}

TEST(Circles, SweepTextFollowsEachCircle) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    // Over a full turn is still native, with its own sweep; the next circle has 360 again.
    g.DrawArcCircle(10, 10, 5, 0, 7.0f, 0);
    EXPECT_EQ(g.Take(), "PU600.00,400.00PD;AA400.00,400.00,401.07,.5");
    g.DrawArcCircle(10, 10, 5, 0, kTwoPi, 0);
    EXPECT_EQ(g.Take(), "PU600.00,400.00PD;AA400.00,400.00,360.00,.5");
    g.DrawArcCircle(10, 10, 5, 0, 7.0f, 0);
    EXPECT_EQ(g.Take(), "PU600.00,400.00PD;AA400.00,400.00,401.07,.5");
}

TEST(Circles, StartAngleMovesTheStartPoint) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    // From a quarter turn: the start is above the centre, and y is no longer the centre's.
    g.DrawArcCircle(10, 10, 5, 1.5707964f, 1.5707964f + kTwoPi, 0);
    EXPECT_EQ(g.Take(), "PU400.00,600.00PD;AA400.00,400.00,360.00,.5");
}

TEST(Circles, SignedZeroCentreKeepsItsSign) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    // From angle 0 the start's y is -0 + 0 = +0, while the centre's stays -0.
    g.DrawArcCircle(10, -0.0f, 5, 0, kTwoPi, 0);
    EXPECT_EQ(g.Take(), "PU600.00,0.00PD;AA400.00,-0.00,360.00,.5");
    g.DrawArcCircle(10, 0.0f, 5, -0.0f, kTwoPi, 0);
    EXPECT_EQ(g.Take(), "PU600.00,0.00PD;AA400.00,0.00,360.00,.5");
}

TEST(Circles, SameBytesAsTheEqualEllipse) {
    HPGL2Peer circle;
    HPGL2Peer ellipse;
    circle.Begin(FormParameters(210, 297, 1));
    ellipse.Begin(FormParameters(210, 297, 1));
    const float centres[][2] = {{10, 10}, {-3.25f, 7.5f}, {123.456f, 0.001f}, {0, -0.0f}};
    for (const auto& c : centres) {
        for (const float start : {0.0f, -0.0f, 0.3f, -2.0f}) {
            circle.DrawArcCircle(c[0], c[1], 2.5f, start, start + kTwoPi, 0);
            ellipse.DrawArcEllipse(c[0], c[1], 2.5f, 2.5f, start, start + kTwoPi, 0, 0);
        }
    }
    EXPECT_EQ(circle.Take(), ellipse.Take());
}

TEST(Circles, FarCentreTakesTheGeneralForm) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    // 1,200,000 plotter units and more are past the quick fixed form, for one number or all.
    g.DrawArcCircle(30000, 10, 5, 0, kTwoPi, 0);
    EXPECT_EQ(g.Take(), "PU1200200.00,400.00PD;AA1200000.00,400.00,360.00,.5");
    g.DrawArcCircle(-5, 30000, 5, 0, kTwoPi, 0);
    EXPECT_EQ(g.Take(), "PU0.00,1200000.00PD;AA-200.00,1200000.00,360.00,.5");
    g.DrawArcCircle(10, 10, 5, 0, kTwoPi, 0);
    EXPECT_EQ(g.Take(), "PU600.00,400.00PD;AA400.00,400.00,360.00,.5");
}

TEST(Circles, SmallestStreamBufferFlushesBetweenCircles) {
    // The smallest buffer a stream takes holds two circles: the third flushes first.
    VRKPrintHPGL2Generator small("HPGL2");
    VRKPrintMemoryStream smallStream(1);
    small.Attach(&smallStream);
    HPGL2Peer large;
    small.Begin(FormParameters(210, 297, 1));
    large.Begin(FormParameters(210, 297, 1));
    for (int i = 0; i < 40; ++i) {
        const float x = static_cast<float>(i) * 7.125f - 60.0f;
        small.DrawArcCircle(x, -x, 2.5f, 0, kTwoPi, 0);
        large.DrawArcCircle(x, -x, 2.5f, 0, kTwoPi, 0);
    }
    small.End();
    large.End();
    small.Attach(nullptr);
    EXPECT_EQ(smallStream.Data(), large.Bytes());
    EXPECT_NE(large.Bytes().find("PU-2300.00,2400.00PD;AA-2400.00,2400.00,360.00,.5"),
              std::string::npos);
}

TEST(Circles, StartAboveEndSweepsThroughTheStart) {
    HPGL2Peer g;
    // 1 rad to 0.5 rad goes round through 0: a sweep of 2 pi - 0.5, flattened.
    g.DrawArcCircle(10, 10, 5, 1.0f, 0.5f, 0);
    const std::string out = g.Take();
    EXPECT_EQ(out.substr(0, 4), "PE=<");
    EXPECT_EQ(out.find("AA"), std::string::npos);
}

TEST(Circles, AlmostFullSweepIsFlattened) {
    HPGL2Peer g;
    g.DrawArcCircle(10, 10, 5, 0, kTwoPi - 0.001f, 0);
    const std::string out = g.Take();
    EXPECT_EQ(out.substr(0, 4), "PE=<");
    EXPECT_EQ(out.find("AA"), std::string::npos);
}

TEST(Circles, HugeRadiusIsFlattened) {
    HPGL2Peer g;
    g.DrawArcCircle(0, 0, 10000.5f, 0, kTwoPi, 0);
    EXPECT_EQ(g.Take().find("AA"), std::string::npos);
}

TEST(Circles, ZeroRadiusDrawsNothing) {
    HPGL2Peer g;
    g.DrawArcCircle(0, 0, 0, 0, kTwoPi, 0);
    g.DrawArcEllipse(0, 0, 0, -1, 0, kTwoPi, 0, 0);
    EXPECT_EQ(g.Take(), "");
}

TEST(Circles, FilledCircleIsAWedge) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.SelectFillColor(3);
    g.Take();
    g.DrawArcCircle(10, 10, 5, 0, kTwoPi, 1);
    EXPECT_EQ(g.Take(), "PU400.00,400.00SP3WG200.00,0.00,360.00,.5SP0");
    g.SelectFillColor(0);
    g.DrawArcCircle(10, 10, 5, 0, kTwoPi, 1);
    EXPECT_EQ(g.Take(), "PU400.00,400.00WG200.00,0.00,360.00,.5");
}

TEST(Circles, HPGLFlattens) {
    PenPlot p(false);
    p.g.DrawArcCircle(10, 10, 5, 0, kTwoPi, 0);
    const std::string out = p.g.Take();
    EXPECT_EQ(out.substr(0, 10), "PU600,400P");
    EXPECT_EQ(out.find("AA"), std::string::npos);
}

TEST(Ellipses, StretchedScaleOnAnUprightPage) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    g.DrawArcEllipse(50, 60, 20, 10, 0, kTwoPi, 0, 0);
    EXPECT_EQ(g.Take(),
              "SC0,8400.00,0,23760.00,0;PU2800.00,4800.00PD;AA2000.00,4800.00,360.00,.5"
              "SC0,8400.00,0,11880.00,1;");
}

TEST(Ellipses, StretchedScaleOnATurnedPage) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1, 1));
    g.Take();
    g.DrawArcEllipse(50, 60, 20, 10, 0, kTwoPi, 0, 0);
    EXPECT_EQ(g.Take(),
              "SC0,16800.00,0,11880.00,0;PU4800.00,2400.00PD;AA4000.00,2400.00,360.00,.5"
              "SC0,8400.00,0,11880.00,1;");
}

TEST(Ellipses, TallEllipseSwapsTheAxes) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    g.DrawArcEllipse(50, 60, 10, 30, 0, kTwoPi, 0, 0);
    // rx smaller, upright page: x stretched by 3, the centre's x with it, radius 30.
    EXPECT_EQ(g.Take(),
              "SC0,25200.00,0,11880.00,0;PU7200.00,2400.00PD;AA6000.00,2400.00,360.00,.5"
              "SC0,8400.00,0,11880.00,1;");
}

TEST(Ellipses, FilledWithOtherPen) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.SelectFillColor(3);
    g.Take();
    g.DrawArcEllipse(50, 60, 20, 10, 0, kTwoPi, 0, 1);
    EXPECT_EQ(g.Take(),
              "PU2000.00,2400.00SP3SC0,8400.00,0,23760.00,0;WG800.00,0.00,360.00,.5"
              "SC0,8400.00,0,11880.00,1;SP0");
}

TEST(Ellipses, RotatedOrDashedGoToTheHost) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    g.DrawArcEllipse(50, 60, 20, 10, 0, kTwoPi, 0.5f, 0);
    std::string out = g.Take();
    EXPECT_EQ(out.substr(0, 4), "PE=<");
    EXPECT_EQ(out.find("SC"), std::string::npos);
    g.SetLineStyle(2);
    g.DrawArcEllipse(50, 60, 20, 10, 0, kTwoPi, 0, 0);
    out = g.Take();
    EXPECT_EQ(out.find("SC"), std::string::npos);
    EXPECT_EQ(out.find("AA"), std::string::npos);
    g.SetLineStyle(1);
    g.DrawArcEllipse(50, 60, 20, 20, 0, kTwoPi, 0, 0);
    EXPECT_EQ(g.Take(), ";PU2800.00,2400.00PD;AA2000.00,2400.00,360.00,.5");
}

TEST(Ellipses, FilledPartialArcBecomesAFill) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    g.DrawArcEllipse(50, 60, 20, 10, 0, 1, 0, 1);
    const std::string out = g.Take();
    EXPECT_EQ(out.find("WG"), std::string::npos);
    // A polygon-mode fill of the sector, from the centre.
    EXPECT_EQ(out.substr(0, 16), "PU2000,2400PM0PE");
    EXPECT_EQ(out.substr(out.size() - 7), ";PM2FP0");
}

}  // namespace
