#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "host/drawing/VRKDrawing.h"
#include "host/drawing/VRKDrawingStats.h"

namespace {

VRKDrawingPen pen(VRKDrawingColor color, float width = 0.35f, int style = VRKLineStyleSolid) {
    VRKDrawingPen p;
    p.color = color;
    p.width = width;
    p.lineStyle = style;
    return p;
}

constexpr VRKDrawingColor kRed{255, 0, 0};
constexpr VRKDrawingColor kBlue{0, 0, 255};

void line(VRKDrawing& drawing, std::uint32_t penIndex, VRKDrawingPoint a, VRKDrawingPoint b) {
    const VRKDrawingPoint xy[2] = {a, b};
    drawing.AddPath(penIndex, xy, nullptr, 2);
}

void fill(VRKDrawing& drawing, VRKDrawingColor color) {
    drawing.AddFill(color, 1, {{500, 500}, {600, 500}, {600, 600}}, {3});
}

TEST(DrawingStats, AnEmptyDrawingCostsNothing) {
    const VRKDrawingStats stats = VRKDrawingStats::Measure(VRKDrawing{});
    EXPECT_EQ(stats.penDown, 0.0);
    EXPECT_EQ(stats.penUp, 0.0);
    EXPECT_EQ(stats.penChanges, 0);
}

TEST(DrawingStats, PenUpStartsAtTheOriginAndGoesFromEachEndToTheNextStart) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    line(drawing, red, {3, 4}, {3, 10});
    line(drawing, red, {6, 14}, {9, 18});
    const VRKDrawingStats stats = VRKDrawingStats::Measure(drawing);
    EXPECT_EQ(stats.penUp, 5.0 + 5.0);
    EXPECT_EQ(stats.penDown, 6.0 + 5.0);
    EXPECT_EQ(stats.penChanges, 0);
}

TEST(DrawingStats, AJoinedStrokeAddsNoTravel) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    line(drawing, red, {0, 0}, {1, 0});
    line(drawing, red, {4, 4}, {5, 4});
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penUp, 5.0);
    drawing.items[1].joined = true;
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penUp, 0.0);
}

TEST(DrawingStats, CurvesAndEllipsesAreMeasuredAlongTheirLength) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    // Chord 4, control polygon 10: (2 * 4 + 10) / 3.
    const VRKDrawingPoint xy[4] = {{0, 0}, {0, 3}, {4, 3}, {4, 0}};
    const std::uint8_t control[4] = {0, 1, 1, 0};
    drawing.AddPath(red, xy, control, 4);
    drawing.AddEllipse(red, {20, 0}, 2, 2, 0);
    const VRKDrawingStats stats = VRKDrawingStats::Measure(drawing);
    EXPECT_DOUBLE_EQ(stats.penDown, 6.0 + 4.0 * M_PI);
    // To the curve's start, then from (4, 0) to the ellipse's start (22, 0).
    EXPECT_EQ(stats.penUp, 18.0);
}

TEST(DrawingStats, ThePenIsWhereTheEllipseStartedAfterIt) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    drawing.AddEllipse(red, {0, 4}, 3, 1, 0);
    line(drawing, red, {3, 8}, {3, 9});
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penUp, 5.0 + 4.0);
}

TEST(DrawingStats, FillsTextsAndImagesDoNotMoveThePen) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    line(drawing, red, {0, 0}, {1, 0});
    fill(drawing, kRed);
    VRKDrawingText text;
    text.x = 300;
    text.y = 300;
    text.color = kRed;
    drawing.AddText(text);
    drawing.AddImage({});
    line(drawing, red, {4, 4}, {5, 5});
    const VRKDrawingStats stats = VRKDrawingStats::Measure(drawing);
    EXPECT_EQ(stats.penUp, 5.0);
    EXPECT_EQ(stats.penChanges, 0);
}

TEST(DrawingStats, EachChangeOfPenBetweenStrokesCounts) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    const std::uint32_t blue = drawing.PenIndex(pen(kBlue));
    line(drawing, red, {0, 0}, {1, 0});
    line(drawing, red, {0, 0}, {1, 0});
    line(drawing, blue, {0, 0}, {1, 0});
    line(drawing, red, {0, 0}, {1, 0});
    line(drawing, red, {0, 0}, {1, 0});
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penChanges, 2);
}

TEST(DrawingStats, AFillOfAnotherColourTakesAPenAndTheStrokeAfterItAnother) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    line(drawing, red, {0, 0}, {1, 0});
    fill(drawing, kBlue);
    line(drawing, red, {0, 0}, {1, 0});
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penChanges, 2);
}

TEST(DrawingStats, AFirstFillTakesTheFirstPen) {
    VRKDrawing drawing;
    fill(drawing, kBlue);
    const std::uint32_t blue = drawing.PenIndex(pen(kBlue));
    line(drawing, blue, {0, 0}, {1, 0});
    fill(drawing, kBlue);
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penChanges, 0);
    fill(drawing, kRed);
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penChanges, 1);
}

TEST(DrawingStats, AnotherWidthIsAnotherPenButAnotherLineStyleIsNot) {
    VRKDrawing drawing;
    const std::uint32_t thin = drawing.PenIndex(pen(kRed, 0.3f));
    const std::uint32_t dashed = drawing.PenIndex(pen(kRed, 0.3f, VRKLineStyleDash));
    const std::uint32_t thick = drawing.PenIndex(pen(kRed, 0.5f));
    line(drawing, thin, {0, 0}, {1, 0});
    line(drawing, dashed, {0, 0}, {1, 0});
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penChanges, 0);
    // A fill of the same colour between the widths changes nothing by itself.
    fill(drawing, kRed);
    line(drawing, thick, {0, 0}, {1, 0});
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penChanges, 1);
}

TEST(DrawingStats, TextsTakeAPenOfTheirColourAndImagesNone) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    line(drawing, red, {0, 0}, {1, 0});
    VRKDrawingText text;
    text.color = kBlue;
    drawing.AddText(text);
    drawing.AddImage({});
    line(drawing, red, {1, 0}, {2, 0});
    EXPECT_EQ(VRKDrawingStats::Measure(drawing).penChanges, 2);
}

TEST(DrawingStats, ItemsOutsideTheDrawingAreLeftOut) {
    VRKDrawing drawing;
    const std::uint32_t red = drawing.PenIndex(pen(kRed));
    line(drawing, red, {3, 4}, {3, 5});
    drawing.items.push_back({VRKDrawingItem::Kind::kStroke, false, 7});
    drawing.items.push_back({VRKDrawingItem::Kind::kFill, false, 0});
    drawing.items.push_back({VRKDrawingItem::Kind::kText, false, 0});
    drawing.strokes.push_back({VRKDrawingStroke::Kind::kPath, red, 2, 40});
    drawing.strokes.push_back({VRKDrawingStroke::Kind::kPath, 9, 0, 2});
    drawing.items.push_back({VRKDrawingItem::Kind::kStroke, false, 1});
    drawing.items.push_back({VRKDrawingItem::Kind::kStroke, false, 2});
    const VRKDrawingStats stats = VRKDrawingStats::Measure(drawing);
    EXPECT_EQ(stats.penUp, 5.0);
    EXPECT_EQ(stats.penDown, 1.0);
    EXPECT_EQ(stats.penChanges, 0);
}

}  // namespace
