// The user scale of a stretched ellipse is worked out in float, one rounding per step: these
// radii are the ones where that differs from the same arithmetic in double by 0.01 in a written
// number.

#include <gtest/gtest.h>

#include <numbers>

#include "support/HPGL2Peer.h"

namespace {

constexpr float kTwoPi = static_cast<float>(2.0 * std::numbers::pi);

std::string EllipseOnA4(float cx, float cy, float rx, float ry, int filled) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.Take();
    g.DrawArcEllipse(cx, cy, rx, ry, 0, kTwoPi, 0, filled);
    return g.Take();
}

TEST(EllipseScale, FilledOnARollFormTurned) {
    HPGL2Peer g;
    g.Begin(FormParameters(914.4f, 1219.2f, 1));
    g.Take();
    g.DrawArcEllipse(100, 100, 55.625f, 22.25f, 0, kTwoPi, 0, 1);
    // (48767 * 55.625) / 22.25 in float; in double it would be 121917.50.
    EXPECT_EQ(g.Take(),
              "PU4000.00,4000.00SC0,36576.00,0,121917.51,0;WG2225.00,0.00,360.00,.5"
              "SC0,36576.00,0,48767.00,1;");
}

TEST(EllipseScale, StretchedExtentRoundedInFloat) {
    // (11880 * 86.319) / 7.328 rounds to 139938.56 in float, 139938.55 in double.
    EXPECT_EQ(EllipseOnA4(10, 19.988f, 86.319f, 7.328f, 0),
              "SC0,8400.00,0,139938.56,0;PU3852.76,9417.82PD;AA400.00,9417.82,360.00,.5"
              "SC0,8400.00,0,11880.00,1;");
}

TEST(EllipseScale, CentreMultipliedByTheFloatRatio) {
    // 145.453 * (32.544 / 12.889) with the ratio a float: 14690.42, against 14690.43 in double.
    EXPECT_EQ(EllipseOnA4(20, 145.453f, 32.544f, 12.889f, 0),
              "SC0,8400.00,0,29996.33,0;PU2101.76,14690.42PD;AA800.00,14690.42,360.00,.5"
              "SC0,8400.00,0,11880.00,1;");
}

TEST(EllipseScale, SmallerXRadiusStretchesX) {
    // (8400 * 29.977) / 7.499 in float: 33578.71, against 33578.72 in double.
    EXPECT_EQ(EllipseOnA4(30, 13.211f, 7.499f, 29.977f, 1),
              "PU1200.00,528.44SC0,33578.71,0,11880.00,0;WG299.96,0.00,360.00,.5"
              "SC0,8400.00,0,11880.00,1;");
}

TEST(EllipseScale, ReducedScaleRoundedInFloat) {
    // 11880 * 1000 is above 8388607: the factor 8000000 / 1000 / 11880 is a float, and the
    // stretched extent times it rounds to 8000000.50.
    EXPECT_EQ(EllipseOnA4(10, 10, 1000, 1, 0),
              "SC0,5656.57,0,8000000.50,0;PU27205.39,269360.27PD;AA269.36,269360.27,360.00,.5"
              "SC0,8400.00,0,11880.00,1;");
}

}  // namespace
