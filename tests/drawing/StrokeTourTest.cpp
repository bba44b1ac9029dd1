#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <utility>
#include <vector>

#include "host/drawing/VRKStrokeTour.h"

namespace {

using Leg = VRKStrokeTour::Leg;

Leg leg(std::uint32_t item, VRKDrawingPoint start, VRKDrawingPoint end, bool ellipse = false) {
    return {item, start, end, false, ellipse};
}

double distance2(VRKDrawingPoint a, VRKDrawingPoint b) {
    const double dx = double{a.x} - b.x;
    const double dy = double{a.y} - b.y;
    return dx * dx + dy * dy;
}

// The greedy walk by looking at every free end each time: nearest end, then earlier leg, then
// start before end.
std::vector<Leg> greedyByScan(const std::vector<Leg>& legs, VRKDrawingPoint from) {
    std::vector<bool> used(legs.size(), false);
    std::vector<Leg> tour;
    for (std::size_t step = 0; step < legs.size(); ++step) {
        std::size_t best = legs.size();
        bool byEnd = false;
        double bestDistance = 0.0;
        for (std::size_t k = 0; k < legs.size(); ++k) {
            if (used[k]) {
                continue;
            }
            for (const bool end : {false, true}) {
                if (end && legs[k].ellipse) {
                    continue;
                }
                const double d = distance2(from, end ? legs[k].end : legs[k].start);
                if (best == legs.size() || d < bestDistance) {
                    best = k;
                    byEnd = end;
                    bestDistance = d;
                }
            }
        }
        used[best] = true;
        Leg taken = legs[best];
        if (byEnd) {
            std::swap(taken.start, taken.end);
            taken.reversed = true;
        }
        from = taken.end;
        tour.push_back(taken);
    }
    return tour;
}

TEST(StrokeTour, GreedyTakesTheNearestEndAndTurnsAPathTakenByItsEnd) {
    const std::vector<Leg> tour = VRKStrokeTour::Greedy(
        {leg(0, {10, 0}, {20, 0}), leg(1, {3, 0}, {1, 0}), leg(2, {25, 0}, {25, 0}, true)}, {0, 0});
    ASSERT_EQ(tour.size(), 3u);
    EXPECT_EQ(tour[0].item, 1u);
    EXPECT_TRUE(tour[0].reversed);
    EXPECT_EQ(tour[0].start, (VRKDrawingPoint{1, 0}));
    EXPECT_EQ(tour[0].end, (VRKDrawingPoint{3, 0}));
    EXPECT_EQ(tour[1].item, 0u);
    EXPECT_FALSE(tour[1].reversed);
    EXPECT_EQ(tour[2].item, 2u);
    EXPECT_DOUBLE_EQ(VRKStrokeTour::Travel(tour, {0, 0}), 1.0 + 7.0 + 5.0);
}

TEST(StrokeTour, GreedyMatchesAScanOfEveryFreeEnd) {
    std::mt19937 random(99);
    std::uniform_int_distribution<int> grid(0, 80);
    std::uniform_int_distribution<int> kind(0, 9);
    std::vector<Leg> legs;
    for (std::uint32_t k = 0; k < 1500; ++k) {
        const VRKDrawingPoint a{grid(random) * 0.5f, grid(random) * 0.5f};
        const VRKDrawingPoint b{grid(random) * 0.5f, grid(random) * 0.5f};
        legs.push_back(kind(random) == 0 ? leg(k, a, a, true) : leg(k, a, b));
    }
    const std::vector<Leg> tour = VRKStrokeTour::Greedy(legs, {3, 3});
    const std::vector<Leg> expected = greedyByScan(legs, {3, 3});
    ASSERT_EQ(tour.size(), expected.size());
    for (std::size_t i = 0; i < tour.size(); ++i) {
        ASSERT_EQ(tour[i].item, expected[i].item) << "at " << i;
        ASSERT_EQ(tour[i].reversed, expected[i].reversed) << "at " << i;
    }
}

TEST(StrokeTour, ImproveReversesStretchesUntilNoneShortensTheTravel) {
    std::vector<Leg> tour = {leg(0, {5, 0}, {6, 0}), leg(1, {1, 0}, {2, 0})};
    EXPECT_DOUBLE_EQ(VRKStrokeTour::Travel(tour, {0, 0}), 10.0);
    VRKStrokeTour::Improve(tour, {0, 0}, 8, 3);
    ASSERT_EQ(tour.size(), 2u);
    EXPECT_EQ(tour[0].item, 1u);
    EXPECT_FALSE(tour[0].reversed);
    EXPECT_EQ(tour[1].item, 0u);
    EXPECT_FALSE(tour[1].reversed);
    EXPECT_DOUBLE_EQ(VRKStrokeTour::Travel(tour, {0, 0}), 4.0);
}

TEST(StrokeTour, ImproveWithNoWindowOrNoPassChangesNothing) {
    const std::vector<Leg> given = {leg(0, {5, 0}, {6, 0}), leg(1, {1, 0}, {2, 0})};
    std::vector<Leg> tour = given;
    VRKStrokeTour::Improve(tour, {0, 0}, 0, 3);
    EXPECT_EQ(tour[0].item, 0u);
    EXPECT_EQ(tour[1].start, (VRKDrawingPoint{1, 0}));
    VRKStrokeTour::Improve(tour, {0, 0}, 8, 0);
    EXPECT_EQ(tour[0].item, 0u);
    EXPECT_EQ(tour[1].start, (VRKDrawingPoint{1, 0}));
}

TEST(StrokeTour, ImproveNeverLengthensAGreedyTour) {
    std::mt19937 random(5);
    std::uniform_real_distribution<float> page(0.0f, 200.0f);
    std::vector<Leg> legs;
    for (std::uint32_t k = 0; k < 2000; ++k) {
        const VRKDrawingPoint a{page(random), page(random)};
        legs.push_back(leg(k, a, {a.x + 2.0f, a.y + 1.0f}));
    }
    std::vector<Leg> tour = VRKStrokeTour::Greedy(legs, {0, 0});
    const double greedy = VRKStrokeTour::Travel(tour, {0, 0});
    VRKStrokeTour::Improve(tour, {0, 0}, 8, 2);
    const double improved = VRKStrokeTour::Travel(tour, {0, 0});
    EXPECT_LT(improved, greedy);
    // Every leg still there once.
    std::vector<bool> seen(legs.size(), false);
    for (const Leg& l : tour) {
        ASSERT_FALSE(seen[l.item]);
        seen[l.item] = true;
    }
}

}  // namespace
