#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "host/drawing/VRKDrawing.h"
#include "host/drawing/VRKDrawingOrder.h"
#include "host/drawing/VRKDrawingStats.h"

namespace {

VRKDrawingPen pen(std::uint8_t red, float width = 0.35f) {
    VRKDrawingPen p;
    p.color = {red, 0, 0};
    p.width = width;
    return p;
}

void line(VRKDrawing& drawing, std::uint32_t penIndex, VRKDrawingPoint a, VRKDrawingPoint b) {
    const VRKDrawingPoint xy[2] = {a, b};
    drawing.AddPath(penIndex, xy, nullptr, 2);
}

void fill(VRKDrawing& drawing) {
    drawing.AddFill({0, 0, 255}, 1, {{50, 50}, {60, 50}, {60, 60}}, {3});
}

// The items' strokes in drawing order.
std::vector<std::uint32_t> strokeOrder(const VRKDrawing& drawing) {
    std::vector<std::uint32_t> order;
    for (const VRKDrawingItem& item : drawing.items) {
        if (item.kind == VRKDrawingItem::Kind::kStroke) {
            order.push_back(item.index);
        }
    }
    return order;
}

std::vector<bool> joinedFlags(const VRKDrawing& drawing) {
    std::vector<bool> joined;
    for (const VRKDrawingItem& item : drawing.items) {
        joined.push_back(item.joined);
    }
    return joined;
}

// The greedy walk alone, without the reversal of stretches after it.
VRKDrawingOrder::Options greedy() {
    VRKDrawingOrder::Options options;
    options.window = 0;
    return options;
}

VRKDrawingPoint start(const VRKDrawing& drawing, std::uint32_t stroke) {
    return drawing.StrokeStart(drawing.strokes[stroke]);
}
VRKDrawingPoint end(const VRKDrawing& drawing, std::uint32_t stroke) {
    return drawing.StrokeEnd(drawing.strokes[stroke]);
}

TEST(DrawingOrder, TakesTheNearestEndAndReversesAPathTakenByItsEnd) {
    VRKDrawing drawing;
    const std::uint32_t p = drawing.PenIndex(pen(0));
    line(drawing, p, {10, 0}, {20, 0});
    line(drawing, p, {3, 0}, {1, 0});
    line(drawing, p, {20, 5}, {30, 5});
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{1, 0, 2}));
    EXPECT_EQ(start(drawing, 1), (VRKDrawingPoint{1, 0}));
    EXPECT_EQ(end(drawing, 1), (VRKDrawingPoint{3, 0}));
    EXPECT_EQ(start(drawing, 0), (VRKDrawingPoint{10, 0}));
    EXPECT_EQ(start(drawing, 2), (VRKDrawingPoint{20, 5}));
    EXPECT_EQ(joinedFlags(drawing), (std::vector<bool>{false, false, false}));
    EXPECT_DOUBLE_EQ(VRKDrawingStats::Measure(drawing).penUp, 1.0 + 7.0 + 5.0);
}

TEST(DrawingOrder, JoinsAStrokeThatStartsWhereTheOneBeforeEnded) {
    VRKDrawing drawing;
    const std::uint32_t p = drawing.PenIndex(pen(0));
    line(drawing, p, {20, 0}, {10, 0});
    line(drawing, p, {0, 0}, {10, 0});
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{1, 0}));
    EXPECT_EQ(start(drawing, 0), (VRKDrawingPoint{10, 0}));
    EXPECT_EQ(end(drawing, 0), (VRKDrawingPoint{20, 0}));
    // The first stroke starts at (0, 0) but has no stroke before it to go on from.
    EXPECT_EQ(joinedFlags(drawing), (std::vector<bool>{false, true}));
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penUp, 0.0);
}

TEST(DrawingOrder, JoinsInAnOrderItKeepsButNeverAcrossPens) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(200));
    const std::uint32_t dark = drawing.PenIndex(pen(0));
    line(drawing, red, {0, 0}, {1, 0});
    line(drawing, red, {1, 0}, {2, 0});
    line(drawing, dark, {2, 0}, {3, 0});
    line(drawing, dark, {3, 0}, {4, 0});
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{0, 1, 2, 3}));
    EXPECT_EQ(joinedFlags(drawing), (std::vector<bool>{false, true, false, true}));
}

TEST(DrawingOrder, GroupsTheStrokesOfARunByPenInTheOrderOfTheirFirstStroke) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(200));
    const std::uint32_t dark = drawing.PenIndex(pen(0));
    line(drawing, red, {0, 0}, {1, 0});
    line(drawing, dark, {50, 50}, {51, 50});
    line(drawing, red, {1, 0}, {2, 0});
    line(drawing, dark, {51, 50}, {52, 50});
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penChanges, 3);
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{0, 2, 1, 3}));
    EXPECT_EQ(joinedFlags(drawing), (std::vector<bool>{false, true, false, true}));
    const VRKDrawingStats stats = VRKDrawingStats::Measure(drawing);
    EXPECT_EQ(stats.penChanges, 1);
    EXPECT_DOUBLE_EQ(stats.penUp, std::hypot(48.0, 50.0));
}

TEST(DrawingOrder, KeepsARunWhoseNewOrderWouldTravelFarther) {
    // Drawn as it stands the pen never lifts; grouped by pen it would travel 4 mm.
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(200));
    const std::uint32_t dark = drawing.PenIndex(pen(0));
    line(drawing, red, {0, 0}, {1, 0});
    line(drawing, dark, {1, 0}, {2, 0});
    line(drawing, red, {2, 0}, {3, 0});
    line(drawing, dark, {3, 0}, {4, 0});
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{0, 1, 2, 3}));
    EXPECT_EQ(start(drawing, 1), (VRKDrawingPoint{1, 0}));
    EXPECT_EQ(joinedFlags(drawing), (std::vector<bool>{false, false, false, false}));
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penUp, 0.0);
}

TEST(DrawingOrder, NoStrokeCrossesAFillAndTheFillStaysInPlace) {
    VRKDrawing drawing;
    const std::uint32_t p = drawing.PenIndex(pen(0));
    line(drawing, p, {10, 0}, {11, 0});
    line(drawing, p, {0, 0}, {1, 0});
    fill(drawing);
    line(drawing, p, {12, 0}, {13, 0});
    line(drawing, p, {1, 0}, {2, 0});
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    ASSERT_EQ(drawing.items.size(), 5u);
    EXPECT_EQ(drawing.items[2].kind, VRKDrawingItem::Kind::kFill);
    EXPECT_EQ(drawing.items[2].index, 0u);
    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{1, 0, 2, 3}));
    // The second run starts from where the first ended, (11, 0): the last stroke is nearer by
    // its end once (13, 0) is reached.
    EXPECT_EQ(start(drawing, 3), (VRKDrawingPoint{2, 0}));
    EXPECT_EQ(start(drawing, 0), (VRKDrawingPoint{10, 0}));
    EXPECT_EQ(joinedFlags(drawing), (std::vector<bool>{false, false, false, false, false}));
    EXPECT_DOUBLE_EQ(VRKDrawingStats::Measure(drawing).penUp, 9.0 + 1.0 + 11.0);
}

TEST(DrawingOrder, TakesAnEllipseByItsStartOnlyAndNeverJoinsIt) {
    VRKDrawing drawing;
    const std::uint32_t p = drawing.PenIndex(pen(0));
    line(drawing, p, {100, 0}, {23, 0});
    drawing.AddEllipse(p, {20, 0}, 2, 1, 0);  // starts and ends at (22, 0)
    line(drawing, p, {22, 0}, {22, 30});
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{1, 2, 0}));
    EXPECT_EQ(start(drawing, 2), (VRKDrawingPoint{22, 0}));
    // From (22, 30) the path's end (23, 0) is nearer than its start.
    EXPECT_EQ(start(drawing, 0), (VRKDrawingPoint{23, 0}));
    EXPECT_EQ(joinedFlags(drawing), (std::vector<bool>{false, false, false}));
    // The ellipse's points are as they were.
    EXPECT_EQ(drawing.points[drawing.strokes[1].first], (VRKDrawingPoint{20, 0}));
    EXPECT_EQ(drawing.points[drawing.strokes[1].first + 1], (VRKDrawingPoint{2, 1}));
}

TEST(DrawingOrder, AnEllipseIsNotTakenByTheFarSideOfItsCircle) {
    VRKDrawing drawing;
    const std::uint32_t p = drawing.PenIndex(pen(0));
    line(drawing, p, {30, 0}, {40, 0});
    drawing.AddEllipse(p, {30, 0}, 28, 28, 0);  // passes by (2, 0) but starts at (58, 0)
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));
    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{0, 1}));
}

TEST(DrawingOrder, ReversesABezierWithItsControlFlags) {
    VRKDrawing drawing;
    const std::uint32_t p = drawing.PenIndex(pen(0));
    line(drawing, p, {0, 0}, {10, 0});
    const VRKDrawingPoint xy[5] = {{40, 0}, {40, 5}, {30, 5}, {30, 0}, {11, 0}};
    const std::uint8_t control[5] = {0, 1, 1, 0, 0};
    drawing.AddPath(p, xy, control, 5);
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    const VRKDrawingStroke& curve = drawing.strokes[1];
    const std::vector<VRKDrawingPoint> points(drawing.points.begin() + curve.first,
                                              drawing.points.begin() + curve.first + 5);
    const std::vector<std::uint8_t> flags(drawing.controls.begin() + curve.first,
                                          drawing.controls.begin() + curve.first + 5);
    EXPECT_EQ(points, (std::vector<VRKDrawingPoint>{{11, 0}, {30, 0}, {30, 5}, {40, 5}, {40, 0}}));
    EXPECT_EQ(flags, (std::vector<std::uint8_t>{0, 0, 1, 1, 0}));
}

TEST(DrawingOrder, TextsAndImagesAreBarriersToo) {
    VRKDrawing drawing;
    const std::uint32_t p = drawing.PenIndex(pen(0));
    line(drawing, p, {5, 0}, {6, 0});
    drawing.AddText({});
    line(drawing, p, {9, 0}, {8, 0});
    drawing.AddImage({});
    line(drawing, p, {20, 0}, {21, 0});
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, greedy()));

    ASSERT_EQ(drawing.items.size(), 5u);
    EXPECT_EQ(drawing.items[1].kind, VRKDrawingItem::Kind::kText);
    EXPECT_EQ(drawing.items[3].kind, VRKDrawingItem::Kind::kImage);
    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{0, 1, 2}));
    // A run of one stroke still turns round when it then ends nearer to the next run.
    EXPECT_EQ(start(drawing, 0), (VRKDrawingPoint{5, 0}));
    EXPECT_EQ(start(drawing, 1), (VRKDrawingPoint{8, 0}));
    EXPECT_EQ(start(drawing, 2), (VRKDrawingPoint{20, 0}));
}

TEST(DrawingOrder, AnEmptyDrawingAndOneWithoutStrokesAreLeftAlone) {
    VRKDrawing empty;
    EXPECT_TRUE(VRKDrawingOrder::Apply(empty));
    EXPECT_TRUE(empty.items.empty());

    VRKDrawing fills;
    fill(fills);
    fill(fills);
    EXPECT_TRUE(VRKDrawingOrder::Apply(fills));
    ASSERT_EQ(fills.items.size(), 2u);
    EXPECT_EQ(fills.items[0].index, 0u);
    EXPECT_EQ(fills.items[1].index, 1u);
}

TEST(DrawingOrder, WithoutGroupingPensMixInOneGreedyWalk) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(200));
    const std::uint32_t dark = drawing.PenIndex(pen(0));
    line(drawing, red, {0, 0}, {1, 0});
    line(drawing, red, {30, 0}, {31, 0});
    line(drawing, dark, {2, 0}, {3, 0});
    VRKDrawingOrder::Options options;
    options.groupByPen = false;
    options.window = 0;
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing, options));
    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{0, 2, 1}));

    VRKDrawing grouped;
    const std::uint32_t red2 = grouped.PenIndex(pen(200));
    const std::uint32_t dark2 = grouped.PenIndex(pen(0));
    line(grouped, red2, {0, 0}, {1, 0});
    line(grouped, red2, {30, 0}, {31, 0});
    line(grouped, dark2, {2, 0}, {3, 0});
    EXPECT_TRUE(VRKDrawingOrder::Apply(grouped, greedy()));
    EXPECT_EQ(strokeOrder(grouped), (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(DrawingOrder, ReversesAStretchOfTheGreedyWalkWhereThatShortensTheTravel) {
    // Greedily: the ellipse (22 mm away), the line up from its start, back down to the path:
    // 22 + 0 + 30.02 mm. Drawing the line downwards first and the ellipse after it saves 13.8 mm.
    VRKDrawing drawing;
    const std::uint32_t p = drawing.PenIndex(pen(0));
    line(drawing, p, {100, 0}, {23, 0});
    drawing.AddEllipse(p, {20, 0}, 2, 1, 0);
    line(drawing, p, {22, 0}, {22, 30});
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing));

    EXPECT_EQ(strokeOrder(drawing), (std::vector<std::uint32_t>{2, 1, 0}));
    EXPECT_EQ(start(drawing, 2), (VRKDrawingPoint{22, 30}));
    EXPECT_EQ(start(drawing, 0), (VRKDrawingPoint{23, 0}));
    EXPECT_EQ(joinedFlags(drawing), (std::vector<bool>{false, false, false}));
    EXPECT_DOUBLE_EQ(VRKDrawingStats::Measure(drawing).penUp, std::hypot(22.0, 30.0) + 1.0);
}

}  // namespace
