#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <tuple>
#include <vector>

#include "host/drawing/VRKDrawing.h"
#include "host/drawing/VRKDrawingOrder.h"
#include "host/drawing/VRKDrawingStats.h"

namespace {

// A drawn piece as a key that does not depend on the direction it is drawn in: the pen, then a
// line's two ends or a cubic's four points (the smaller of the two directions), or an ellipse's
// three points.
using Piece = std::tuple<std::uint32_t, int, std::array<float, 8>>;

std::array<float, 8> flat(std::initializer_list<VRKDrawingPoint> points) {
    std::array<float, 8> xy{};
    std::size_t i = 0;
    for (const VRKDrawingPoint& p : points) {
        xy[i++] = p.x;
        xy[i++] = p.y;
    }
    return xy;
}

std::vector<Piece> pieces(const VRKDrawing& drawing) {
    std::vector<Piece> all;
    for (const VRKDrawingItem& item : drawing.items) {
        if (item.kind != VRKDrawingItem::Kind::kStroke) {
            continue;
        }
        const VRKDrawingStroke& s = drawing.strokes[item.index];
        const VRKDrawingPoint* p = &drawing.points[s.first];
        const std::uint8_t* c = &drawing.controls[s.first];
        if (s.kind == VRKDrawingStroke::Kind::kEllipse) {
            all.emplace_back(s.pen, 2, flat({p[0], p[1], p[2]}));
            continue;
        }
        std::uint32_t i = 0;
        while (i + 1 < s.count) {
            if (c[i + 1] != 0 && i + 3 < s.count) {
                const std::array<float, 8> forward = flat({p[i], p[i + 1], p[i + 2], p[i + 3]});
                const std::array<float, 8> backward = flat({p[i + 3], p[i + 2], p[i + 1], p[i]});
                all.emplace_back(s.pen, 1, std::min(forward, backward));
                i += 3;
            } else {
                all.emplace_back(s.pen, 0,
                                 std::min(flat({p[i], p[i + 1]}), flat({p[i + 1], p[i]})));
                i += 1;
            }
        }
    }
    std::sort(all.begin(), all.end());
    return all;
}

// Strokes of a few points on a 0.5 mm grid, with cubics, ellipses, five pens, and now and then a
// fill, a text or an image between them.
VRKDrawing randomDrawing(std::uint32_t seed, int items, int barrierOneIn) {
    std::mt19937 random(seed);
    VRKDrawing drawing;
    for (std::uint8_t k = 0; k < 5; ++k) {
        VRKDrawingPen pen;
        pen.color = {static_cast<std::uint8_t>(40 * k), 0, 0};
        pen.width = 0.25f + 0.1f * k;
        drawing.PenIndex(pen);
    }
    std::uniform_int_distribution<int> cell(0, 400);
    std::uniform_int_distribution<int> step(-4, 4);
    std::uniform_int_distribution<int> percent(0, 99);
    std::uniform_int_distribution<std::uint32_t> penOf(0, 4);
    std::uniform_int_distribution<int> barrier(0, barrierOneIn - 1);
    std::array<std::vector<VRKDrawingPoint>, 5> ends;
    for (int n = 0; n < items; ++n) {
        if (barrier(random) == 0) {
            const int what = percent(random) % 3;
            if (what == 0) {
                drawing.AddFill({0, 0, 200}, 1, {{1, 1}, {5, 1}, {5, 5}}, {3});
            } else if (what == 1) {
                drawing.AddText({});
            } else {
                drawing.AddImage({});
            }
            continue;
        }
        const std::uint32_t pen = penOf(random);
        const int kind = percent(random);
        VRKDrawingPoint at{cell(random) * 0.5f, cell(random) * 0.5f};
        // A third of the paths go on from where an earlier one of their pen ended, as the
        // pieces of a longer line drawn out of order.
        if (kind >= 5 && kind < 38 && !ends[pen].empty()) {
            at = ends[pen][static_cast<std::size_t>(cell(random)) % ends[pen].size()];
        }
        if (kind < 5) {
            drawing.AddEllipse(pen, at, 1.0f + percent(random) * 0.1f, 1.5f, 0.25f * (kind % 4));
            continue;
        }
        std::vector<VRKDrawingPoint> xy{at};
        std::vector<std::uint8_t> control{0};
        const int segments = 1 + percent(random) % 4;
        for (int k = 0; k < segments; ++k) {
            const bool cubic = percent(random) < 20;
            for (int point = 0; point < (cubic ? 3 : 1); ++point) {
                at = {at.x + step(random) * 0.5f, at.y + step(random) * 0.5f};
                xy.push_back(at);
                control.push_back(cubic && point < 2 ? 1 : 0);
            }
        }
        drawing.AddPath(pen, xy.data(), control.data(), static_cast<std::uint32_t>(xy.size()));
        ends[pen].push_back(at);
    }
    return drawing;
}

int joinedCount(const VRKDrawing& drawing) {
    return static_cast<int>(std::count_if(drawing.items.begin(), drawing.items.end(),
                                          [](const VRKDrawingItem& item) { return item.joined; }));
}

// Checks everything the ordering promises about `after`, made from `before`.
void expectSameDrawingReordered(const VRKDrawing& before, const VRKDrawing& after) {
    ASSERT_EQ(after.items.size(), before.items.size());
    EXPECT_EQ(pieces(after), pieces(before));

    // Fills, texts and images where they were; the strokes between two of them the same set.
    std::vector<std::uint32_t> runBefore;
    std::vector<std::uint32_t> runAfter;
    for (std::size_t i = 0; i <= before.items.size(); ++i) {
        const bool end =
            i == before.items.size() || before.items[i].kind != VRKDrawingItem::Kind::kStroke;
        if (end) {
            std::sort(runBefore.begin(), runBefore.end());
            std::sort(runAfter.begin(), runAfter.end());
            ASSERT_EQ(runAfter, runBefore) << "run ending at item " << i;
            runBefore.clear();
            runAfter.clear();
            if (i < before.items.size()) {
                ASSERT_EQ(after.items[i].kind, before.items[i].kind);
                ASSERT_EQ(after.items[i].index, before.items[i].index);
            }
            continue;
        }
        ASSERT_EQ(after.items[i].kind, VRKDrawingItem::Kind::kStroke);
        runBefore.push_back(before.items[i].index);
        runAfter.push_back(after.items[i].index);
    }

    // Joined only where a path goes on from the end of the path before it, with its pen.
    for (std::size_t i = 0; i < after.items.size(); ++i) {
        if (!after.items[i].joined) {
            continue;
        }
        ASSERT_GT(i, 0u);
        ASSERT_EQ(after.items[i].kind, VRKDrawingItem::Kind::kStroke);
        ASSERT_EQ(after.items[i - 1].kind, VRKDrawingItem::Kind::kStroke);
        const VRKDrawingStroke& s = after.strokes[after.items[i].index];
        const VRKDrawingStroke& previous = after.strokes[after.items[i - 1].index];
        ASSERT_EQ(s.kind, VRKDrawingStroke::Kind::kPath);
        ASSERT_EQ(previous.kind, VRKDrawingStroke::Kind::kPath);
        ASSERT_EQ(s.pen, previous.pen);
        ASSERT_EQ(after.StrokeStart(s), after.StrokeEnd(previous));
    }

    const VRKDrawingStats was = VRKDrawingStats::Measure(before);
    const VRKDrawingStats is = VRKDrawingStats::Measure(after);
    EXPECT_LE(is.penUp, was.penUp);
    EXPECT_NEAR(is.penDown, was.penDown, 1e-9 * was.penDown);
}

TEST(DrawingOrderProperty, ALongRunKeepsEverySegmentAndTravelsFarLess) {
    const VRKDrawing before = randomDrawing(2024, 4000, 1000000);
    VRKDrawing after = before;
    ASSERT_TRUE(VRKDrawingOrder::Apply(after));
    expectSameDrawingReordered(before, after);
    const VRKDrawingStats was = VRKDrawingStats::Measure(before);
    const VRKDrawingStats is = VRKDrawingStats::Measure(after);
    // Random order over 200 mm travels about 100 mm a stroke; a stroke's neighbours lie within
    // a few millimetres.
    EXPECT_LT(is.penUp, was.penUp / 10);
    // One run: each pen is taken once.
    EXPECT_EQ(is.penChanges, 4);
    // Strokes meeting end to end (on the grid, often) are drawn one after the other.
    EXPECT_EQ(joinedCount(before), 0);
    EXPECT_GT(joinedCount(after), 100);
}

TEST(DrawingOrderProperty, RunsBetweenBarriersKeepEverySegmentAndTravelNoFarther) {
    for (const std::uint32_t seed : {1u, 2u, 3u}) {
        const VRKDrawing before = randomDrawing(seed, 3000, 40);
        VRKDrawing after = before;
        ASSERT_TRUE(VRKDrawingOrder::Apply(after));
        expectSameDrawingReordered(before, after);
        EXPECT_LT(VRKDrawingStats::Measure(after).penUp, VRKDrawingStats::Measure(before).penUp);
    }
}

TEST(DrawingOrderProperty, ShortRunsOfFewStrokesNeverTravelFarther) {
    // Runs of one to three strokes: ordering often cannot help and the run must stay as it is.
    for (const std::uint32_t seed : {4u, 5u, 6u, 7u}) {
        const VRKDrawing before = randomDrawing(seed, 3000, 3);
        VRKDrawing after = before;
        ASSERT_TRUE(VRKDrawingOrder::Apply(after));
        expectSameDrawingReordered(before, after);
    }
}

TEST(DrawingOrderProperty, EveryOptionKeepsEverySegment) {
    const VRKDrawing before = randomDrawing(8, 3000, 200);
    for (const bool group : {false, true}) {
        for (const std::uint32_t window : {0u, 1u, 8u, 32u}) {
            VRKDrawingOrder::Options options;
            options.groupByPen = group;
            options.window = window;
            VRKDrawing after = before;
            ASSERT_TRUE(VRKDrawingOrder::Apply(after, options));
            expectSameDrawingReordered(before, after);
        }
    }
}

TEST(DrawingOrderProperty, OrderingTwiceTravelsNoFartherThanOnce) {
    VRKDrawing once = randomDrawing(9, 3000, 100);
    ASSERT_TRUE(VRKDrawingOrder::Apply(once));
    VRKDrawing twice = once;
    ASSERT_TRUE(VRKDrawingOrder::Apply(twice));
    expectSameDrawingReordered(once, twice);
}

}  // namespace
