#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "host/core/VRKPlotterRange.h"
#include "host/core/VRKSaturatingTrunc.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::nan("");

TEST(SaturatingTrunc, ValuesThatFitTruncateTowardZero) {
    EXPECT_EQ(VRKSaturatingTrunc<int>(0.0), 0);
    EXPECT_EQ(VRKSaturatingTrunc<int>(-0.0), 0);
    EXPECT_EQ(VRKSaturatingTrunc<int>(0.999), 0);
    EXPECT_EQ(VRKSaturatingTrunc<int>(-0.999), 0);
    EXPECT_EQ(VRKSaturatingTrunc<int>(400.9), 400);
    EXPECT_EQ(VRKSaturatingTrunc<int>(-400.9), -400);
    EXPECT_EQ(VRKSaturatingTrunc<int>(2147483647.0), INT_MAX);
    EXPECT_EQ(VRKSaturatingTrunc<int>(2147483647.99), INT_MAX);
    EXPECT_EQ(VRKSaturatingTrunc<int>(-2147483648.0), INT_MIN);
    // Just above -2^31 - 1 still truncates to the smallest int.
    EXPECT_EQ(VRKSaturatingTrunc<int>(-2147483648.99), INT_MIN);
    EXPECT_EQ(VRKSaturatingTrunc<long long>(-9223372036854775808.0), LLONG_MIN);
    EXPECT_EQ(VRKSaturatingTrunc<long long>(4294967296.5), 4294967296LL);
}

TEST(SaturatingTrunc, ValuesBeyondTheTypeHoldAtItsLimits) {
    EXPECT_EQ(VRKSaturatingTrunc<int>(2147483648.0), INT_MAX);
    EXPECT_EQ(VRKSaturatingTrunc<int>(-2147483649.0), INT_MIN);
    EXPECT_EQ(VRKSaturatingTrunc<int>(1e12), INT_MAX);
    EXPECT_EQ(VRKSaturatingTrunc<int>(-3e38), INT_MIN);
    EXPECT_EQ(VRKSaturatingTrunc<int>(kInfinity), INT_MAX);
    EXPECT_EQ(VRKSaturatingTrunc<int>(-kInfinity), INT_MIN);
    EXPECT_EQ(VRKSaturatingTrunc<long long>(9223372036854775808.0), LLONG_MAX);
    EXPECT_EQ(VRKSaturatingTrunc<long long>(-1e300), LLONG_MIN);
}

TEST(SaturatingTrunc, NotANumberGivesZero) {
    EXPECT_EQ(VRKSaturatingTrunc<int>(kNaN), 0);
    EXPECT_EQ(VRKSaturatingTrunc<long long>(-kNaN), 0);
}

TEST(SaturatingTrunc, FloatArithmeticTruncatesAsTheCastDid) {
    // 0.7f * 255 in float arithmetic is 178.49998f; widened, it truncates to 178 as before.
    const float red = 0.7f;
    EXPECT_EQ(VRKSaturatingTrunc<int>(red * 255), static_cast<int>(red * 255));
    EXPECT_EQ(VRKSaturatingTrunc<int>(red * 255), 178);
}

TEST(PlotterRange, MillimetresThatFit) {
    EXPECT_TRUE(VRKPlotterRange::FitsMillimetres(0.0f));
    EXPECT_TRUE(VRKPlotterRange::FitsMillimetres(-0.025f));
    EXPECT_TRUE(VRKPlotterRange::FitsMillimetres(26843544.0f));
    EXPECT_TRUE(VRKPlotterRange::FitsMillimetres(-26843544.0f));
    EXPECT_EQ(VRKPlotterRange::kLargestMillimetres, 26843544.0f);
    // Every float that fits comes to at most 2^30 - 1 units, the largest to 1073741760.
    EXPECT_LE(static_cast<double>(VRKPlotterRange::kLargestMillimetres) * 40.0,
              VRKPlotterRange::kLargestUnits);
    EXPECT_EQ(VRKPlotterRange::kLargestUnits, 1073741823.0);
}

TEST(PlotterRange, MillimetresThatDoNotFit) {
    // The float after the largest that fits: 1073741840 units.
    const float next = std::nextafter(26843544.0f, 3e7f);
    EXPECT_EQ(next, 26843546.0f);
    EXPECT_GT(static_cast<double>(next) * 40.0, VRKPlotterRange::kLargestUnits);
    EXPECT_FALSE(VRKPlotterRange::FitsMillimetres(next));
    EXPECT_FALSE(VRKPlotterRange::FitsMillimetres(-next));
    EXPECT_FALSE(VRKPlotterRange::FitsMillimetres(6e7f));
    EXPECT_FALSE(VRKPlotterRange::FitsMillimetres(std::numeric_limits<float>::infinity()));
    EXPECT_FALSE(VRKPlotterRange::FitsMillimetres(-std::numeric_limits<float>::infinity()));
    EXPECT_FALSE(VRKPlotterRange::FitsMillimetres(std::nanf("")));
}

}  // namespace
