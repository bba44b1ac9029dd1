#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "host/drawing/VRKDrawing.h"
#include "host/drawing/VRKDrawingCheck.h"
#include "host/drawing/VRKDrawingOrder.h"

namespace {

// A drawing the ordering would change: two lines, the second nearer the origin, reversed.
VRKDrawing twoLines() {
    VRKDrawing drawing;
    const std::uint32_t pen = drawing.PenIndex({});
    const VRKDrawingPoint far[2] = {{10, 0}, {20, 0}};
    const VRKDrawingPoint near[2] = {{3, 0}, {1, 0}};
    drawing.AddPath(pen, far, nullptr, 2);
    drawing.AddPath(pen, near, nullptr, 2);
    return drawing;
}

bool sameItems(const VRKDrawing& a, const VRKDrawing& b) {
    if (a.items.size() != b.items.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.items.size(); ++i) {
        if (a.items[i].kind != b.items[i].kind || a.items[i].index != b.items[i].index ||
            a.items[i].joined != b.items[i].joined) {
            return false;
        }
    }
    return true;
}

// Apply refuses the drawing and leaves every item and point as it was.
void expectRefusedUntouched(VRKDrawing drawing) {
    const VRKDrawing before = drawing;
    EXPECT_FALSE(VRKDrawingCheck::CanReorder(drawing));
    EXPECT_FALSE(VRKDrawingOrder::Apply(drawing));
    EXPECT_TRUE(sameItems(drawing, before));
    // Compared byte for byte: a point that is not a number equals nothing.
    ASSERT_EQ(drawing.points.size(), before.points.size());
    EXPECT_EQ(std::memcmp(drawing.points.data(), before.points.data(),
                          drawing.points.size() * sizeof(VRKDrawingPoint)),
              0);
    EXPECT_EQ(drawing.controls, before.controls);
}

TEST(DrawingOrderInput, AWellFormedDrawingIsReordered) {
    VRKDrawing drawing = twoLines();
    EXPECT_TRUE(VRKDrawingCheck::CanReorder(drawing));
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing));
    EXPECT_EQ(drawing.items[0].index, 1u);
}

TEST(DrawingOrderInput, AnItemPastItsVectorIsRefused) {
    VRKDrawing drawing = twoLines();
    drawing.items.push_back({VRKDrawingItem::Kind::kStroke, false, 2});
    expectRefusedUntouched(drawing);

    VRKDrawing withImage = twoLines();
    withImage.items.push_back({VRKDrawingItem::Kind::kImage, false, 0});
    expectRefusedUntouched(withImage);
}

TEST(DrawingOrderInput, AStrokePastThePointsOrWithAnUnknownPenIsRefused) {
    VRKDrawing pastPoints = twoLines();
    pastPoints.strokes[1].count = 3;
    expectRefusedUntouched(pastPoints);

    VRKDrawing noPoints = twoLines();
    noPoints.strokes[1].count = 0;
    expectRefusedUntouched(noPoints);

    VRKDrawing pen = twoLines();
    pen.strokes[0].pen = 1;
    expectRefusedUntouched(pen);

    VRKDrawing flags = twoLines();
    flags.controls.pop_back();
    expectRefusedUntouched(flags);
}

TEST(DrawingOrderInput, AStrokeThatIsNotFiniteIsRefused) {
    VRKDrawing nan = twoLines();
    nan.points[3].x = std::numeric_limits<float>::quiet_NaN();
    expectRefusedUntouched(nan);

    VRKDrawing infinite = twoLines();
    infinite.AddEllipse(0, {0, 0}, std::numeric_limits<float>::infinity(), 1, 0);
    expectRefusedUntouched(infinite);
}

TEST(DrawingOrderInput, StrokesSharingPointsOrAStrokeDrawnTwiceAreRefused) {
    VRKDrawing twice = twoLines();
    twice.items.push_back(twice.items[1]);
    expectRefusedUntouched(twice);

    VRKDrawing shared = twoLines();
    shared.strokes[1].first = 1;
    expectRefusedUntouched(shared);

    VRKDrawing withFill = twoLines();
    withFill.AddFill({}, 1, {{0, 0}, {1, 0}, {1, 1}}, {3});
    withFill.fills[0].first = 3;
    expectRefusedUntouched(withFill);

    VRKDrawing rings = twoLines();
    rings.AddFill({}, 1, {{0, 0}, {1, 0}, {1, 1}}, {3});
    rings.fills[0].ringCount = 2;
    expectRefusedUntouched(rings);
}

TEST(DrawingOrderInput, FillsMayShareTheirPoints) {
    VRKDrawing drawing = twoLines();
    drawing.AddFill({}, 1, {{0, 0}, {1, 0}, {1, 1}}, {3});
    drawing.AddFill({}, 1, {{0, 0}, {1, 0}, {1, 1}}, {3});
    drawing.fills[1].first = drawing.fills[0].first;
    EXPECT_TRUE(VRKDrawingCheck::CanReorder(drawing));
}

TEST(DrawingOrderInput, FlagsJoiningStrokesThatDoNotMeetAreKeptRatherThanLengthenTheTravel) {
    // Joined as given, the second line costs no travel; cleared, it would cost 9 mm. The ordering
    // finds nothing shorter than what the flags claim and gives the drawing back as it was.
    VRKDrawing drawing;
    const std::uint32_t pen = drawing.PenIndex({});
    const VRKDrawingPoint first[2] = {{0, 0}, {1, 0}};
    const VRKDrawingPoint second[2] = {{10, 0}, {11, 0}};
    drawing.AddPath(pen, first, nullptr, 2);
    drawing.AddPath(pen, second, nullptr, 2);
    drawing.items[1].joined = true;
    const VRKDrawing before = drawing;
    EXPECT_TRUE(VRKDrawingOrder::Apply(drawing));
    EXPECT_TRUE(sameItems(drawing, before));
}

}  // namespace
