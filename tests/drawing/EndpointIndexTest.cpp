#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "host/drawing/VRKEndpointIndex.h"

namespace {

// The nearest remaining point by looking at every one: smallest distance, then smallest id.
std::uint32_t nearestByScan(const std::vector<VRKDrawingPoint>& points,
                            const std::vector<bool>& taken, VRKDrawingPoint from) {
    std::uint32_t best = VRKEndpointIndex::kNone;
    double bestDistance = 0.0;
    for (std::uint32_t i = 0; i < points.size(); ++i) {
        if (taken[i]) {
            continue;
        }
        const double dx = double{points[i].x} - from.x;
        const double dy = double{points[i].y} - from.y;
        const double d = dx * dx + dy * dy;
        if (best == VRKEndpointIndex::kNone || d < bestDistance) {
            best = i;
            bestDistance = d;
        }
    }
    return best;
}

TEST(EndpointIndex, AnEmptyIndexHasNothingNear) {
    const VRKEndpointIndex index({});
    EXPECT_EQ(index.Remaining(), 0u);
    EXPECT_EQ(index.Nearest({1, 2}), VRKEndpointIndex::kNone);
}

TEST(EndpointIndex, FindsTheNearestAndSkipsWhatIsTaken) {
    VRKEndpointIndex index({{0, 0}, {10, 0}, {3, 4}, {-2, 0}});
    EXPECT_EQ(index.Remaining(), 4u);
    EXPECT_EQ(index.Nearest({9, 1}), 1u);
    EXPECT_EQ(index.Nearest({-1.5f, 0}), 3u);
    index.Remove(3);
    EXPECT_EQ(index.Nearest({-1.5f, 0}), 0u);
    index.Remove(3);
    index.Remove(99);
    EXPECT_EQ(index.Remaining(), 3u);
    index.Remove(0);
    index.Remove(1);
    EXPECT_EQ(index.Nearest({-100, -100}), 2u);
    index.Remove(2);
    EXPECT_EQ(index.Remaining(), 0u);
    EXPECT_EQ(index.Nearest({0, 0}), VRKEndpointIndex::kNone);
}

TEST(EndpointIndex, OfPointsEquallyNearTheSmallestIdWins) {
    VRKEndpointIndex index({{5, 0}, {0, 5}, {-5, 0}, {0, -5}, {0, 5}});
    EXPECT_EQ(index.Nearest({0, 0}), 0u);
    index.Remove(0);
    EXPECT_EQ(index.Nearest({0, 0}), 1u);
    index.Remove(1);
    EXPECT_EQ(index.Nearest({0, 1}), 4u);
}

TEST(EndpointIndex, PointsAtOnePlaceAreTakenOneByOneSmallestIdFirst) {
    VRKEndpointIndex index({{2, 2}, {2, 2}, {9, 9}, {2, 2}});
    index.Remove(1);
    EXPECT_EQ(index.Nearest({0, 0}), 0u);
    index.Remove(0);
    EXPECT_EQ(index.Nearest({0, 0}), 3u);
    EXPECT_EQ(index.Remaining(), 2u);
    index.Remove(3);
    EXPECT_EQ(index.Nearest({0, 0}), 2u);
    EXPECT_EQ(index.Nearest({100, 100}), 2u);
}

TEST(EndpointIndex, AgreesWithAScanOverEveryPointThroughRandomRemovals) {
    std::mt19937 random(1234);
    // Points on a coarse grid, so that many coincide and many are equally near.
    std::uniform_int_distribution<int> grid(0, 60);
    std::vector<VRKDrawingPoint> points(3000);
    for (VRKDrawingPoint& p : points) {
        p = {grid(random) * 0.5f, grid(random) * 0.25f};
    }
    VRKEndpointIndex index(points);
    std::vector<bool> taken(points.size(), false);
    std::uniform_int_distribution<std::uint32_t> pick(0, 2999);
    std::uniform_real_distribution<float> anywhere(-5.0f, 35.0f);
    std::uint32_t remaining = 3000;
    int checked = 0;
    while (remaining > 0) {
        const VRKDrawingPoint from{anywhere(random), anywhere(random)};
        const std::uint32_t found = index.Nearest(from);
        ASSERT_EQ(found, nearestByScan(points, taken, from));
        ++checked;
        // Take the one found and one more at random, as the ordering takes a stroke's two ends.
        for (const std::uint32_t id : {found, pick(random)}) {
            index.Remove(id);
            if (!taken[id]) {
                taken[id] = true;
                --remaining;
            }
        }
        ASSERT_EQ(index.Remaining(), remaining);
    }
    EXPECT_GT(checked, 1000);
    EXPECT_EQ(index.Nearest({0, 0}), VRKEndpointIndex::kNone);
}

}  // namespace
