#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/drawing/VRKDrawing.h"
#include "host/drawing/VRKDrawingPlayer.h"
#include "support/RecordingGenerator.h"

namespace {

using Calls = std::vector<std::string>;

Calls play(const VRKDrawing& drawing, VRKDrawingLayout::Placement placement = {}) {
    RecordingGenerator generator;
    VRKDrawingPlayer player(generator, placement);
    player.PlayItems(drawing);
    return generator.calls;
}

VRKDrawingPen pen(std::uint8_t r, float width) {
    VRKDrawingPen p;
    p.color = {r, 0, 0};
    p.width = width;
    return p;
}

TEST(DrawingPlayer, AStrokeSelectsItsPenMovesAndDrawsLines) {
    VRKDrawing d;
    const VRKDrawingPoint xy[] = {{1, 2}, {3, 4}, {5, 6}};
    d.AddPath(d.PenIndex(pen(255, 0.5f)), xy, nullptr, 3);
    EXPECT_EQ(play(d), (Calls{"DefineColor 1 1 0 0", "SelectDrawColor 1", "SetDrawWidth 0.5",
                              "SetLineStyle 0", "SetLineCap 10", "SetLineJoin 13", "MoveTo 1 2",
                              "LineTo 3 4", "LineTo 5 6"}));
}

TEST(DrawingPlayer, RunsOfCubicsAreOnePolyBezierFromTheCurrentPoint) {
    VRKDrawing d;
    const VRKDrawingPoint xy[] = {{0, 0}, {1, 0}, {1, 1}, {2, 1}, {2, 2},
                                  {3, 2}, {3, 3}, {4, 3}, {4, 4}, {5, 5}};
    const std::uint8_t control[] = {0, 1, 1, 0, 1, 1, 0, 0, 0, 0};
    d.AddPath(d.PenIndex(pen(0, 0.0f)), xy, control, 10);
    const Calls calls = play(d);
    ASSERT_EQ(calls.size(), 11u);
    EXPECT_EQ(calls[7], "DrawPolyBezier 7 0 0 1 0 1 1 2 1 2 2 3 2 3 3");
    EXPECT_EQ(calls[8], "LineTo 4 3");
    EXPECT_EQ(calls[9], "LineTo 4 4");
    EXPECT_EQ(calls[10], "LineTo 5 5");
}

TEST(DrawingPlayer, AJoinedStrokeIsDrawnWithoutAMove) {
    VRKDrawing d;
    const std::uint32_t p = d.PenIndex(pen(0, 0.0f));
    const VRKDrawingPoint a[] = {{0, 0}, {1, 0}};
    const VRKDrawingPoint b[] = {{1, 0}, {1, 1}};
    d.AddPath(p, a, nullptr, 2);
    d.AddPath(p, b, nullptr, 2);
    d.items[1].joined = true;
    const Calls calls = play(d);
    EXPECT_EQ(Calls(calls.end() - 3, calls.end()),
              (Calls{"MoveTo 0 0", "LineTo 1 0", "LineTo 1 1"}));
}

TEST(DrawingPlayer, PenAttributesAreSetOnlyWhenTheyChange) {
    VRKDrawing d;
    const VRKDrawingPoint a[] = {{0, 0}, {1, 0}};
    d.AddPath(d.PenIndex(pen(0, 0.25f)), a, nullptr, 2);
    d.AddPath(d.PenIndex(pen(0, 0.25f)), a, nullptr, 2);
    d.AddPath(d.PenIndex(pen(0, 0.5f)), a, nullptr, 2);
    d.AddPath(d.PenIndex(pen(128, 0.5f)), a, nullptr, 2);
    d.AddPath(d.PenIndex(pen(0, 0.5f)), a, nullptr, 2);
    EXPECT_EQ(play(d), (Calls{"DefineColor 1 0 0 0", "SelectDrawColor 1",
                              "SetDrawWidth 0.25",   "SetLineStyle 0",
                              "SetLineCap 10",       "SetLineJoin 13",
                              "MoveTo 0 0",          "LineTo 1 0",
                              "MoveTo 0 0",          "LineTo 1 0",
                              "SetDrawWidth 0.5",    "MoveTo 0 0",
                              "LineTo 1 0",          "DefineColor 2 0.5019608 0 0",
                              "SelectDrawColor 2",   "MoveTo 0 0",
                              "LineTo 1 0",          "SelectDrawColor 1",
                              "MoveTo 0 0",          "LineTo 1 0"}));
}

TEST(DrawingPlayer, WholeCirclesAndEllipsesAreOneCall) {
    VRKDrawing d;
    const std::uint32_t p = d.PenIndex(pen(0, 0.0f));
    d.AddEllipse(p, {10, 20}, 5, 5, 0);
    d.AddEllipse(p, {10, 20}, 5, 3, 0.5f);
    d.AddFilledEllipse({0, 0, 255}, {1, 2}, 4, 4, 0);
    const Calls calls = play(d);
    ASSERT_EQ(calls.size(), 11u);
    EXPECT_EQ(calls[6], "DrawArcCircle 10 20 5 0 6.2831855 0");
    EXPECT_EQ(calls[7], "DrawArcEllipse 10 20 5 3 0 6.2831855 0.5 0");
    EXPECT_EQ(calls[8], "DefineColor 2 0 0 1");
    EXPECT_EQ(calls[9], "SelectFillColor 2");
    EXPECT_EQ(calls[10], "DrawArcCircle 1 2 4 0 6.2831855 1");
}

TEST(DrawingPlayer, FillsAreOneFillAreaWithTheirRule) {
    VRKDrawing d;
    d.AddFill({0, 0, 0}, 0, {{0, 0}, {4, 0}, {4, 4}, {1, 1}, {2, 1}, {2, 2}}, {3, 3});
    d.AddFill({0, 0, 0}, 0, {{0, 0}, {4, 0}, {4, 4}}, {3});
    d.AddFill({0, 0, 0}, 1, {{0, 0}, {4, 0}, {4, 4}}, {3});
    EXPECT_EQ(play(d), (Calls{"DefineColor 1 0 0 0", "SelectFillColor 1", "SetPolygonFillRule 0",
                              "FillArea 2 3 3 0 0 4 0 4 4 1 1 2 1 2 2", "FillArea 1 3 0 0 4 0 4 4",
                              "SetPolygonFillRule 1", "FillArea 1 3 0 0 4 0 4 4"}));
}

TEST(DrawingPlayer, TextTakesTheDrawColourAndItsAttributes) {
    VRKDrawing d;
    VRKDrawingText t;
    t.x = 5;
    t.y = 6;
    t.utf8 = "Kitchen";
    t.size = 4;
    t.direction = 90;
    t.font = 13;
    t.weight = 26;
    t.anchor = 32;
    d.AddText(t);
    d.AddText(t);
    EXPECT_EQ(play(d),
              (Calls{"DefineColor 1 0 0 0", "SelectDrawColor 1", "SetTextAttribute 0 13",
                     "SetTextAttribute 4 26", "SetTextAttribute 2 4", "SetTextAttribute 6 90",
                     "SetTextAttribute 7 32", "DrawText 5 6 Kitchen", "DrawText 5 6 Kitchen"}));
}

TEST(DrawingPlayer, ThePlacementScalesAndMovesEverything) {
    VRKDrawing d;
    const VRKDrawingPoint xy[] = {{1, 2}, {3, 4}};
    d.AddPath(d.PenIndex(pen(0, 0.5f)), xy, nullptr, 2);
    d.AddEllipse(0, {1, 1}, 2, 2, 0);
    const Calls calls = play(d, {2.0f, 10.0f, 20.0f});
    ASSERT_EQ(calls.size(), 9u);
    EXPECT_EQ(calls[2], "SetDrawWidth 1");
    EXPECT_EQ(calls[6], "MoveTo 12 24");
    EXPECT_EQ(calls[7], "LineTo 16 28");
    EXPECT_EQ(calls[8], "DrawArcCircle 12 22 4 0 6.2831855 0");
}

TEST(DrawingPlayer, AnImageIsDrawnAtItsTopLeftCornerAtItsScaledPixelSize) {
    VRKDrawing d;
    VRKPixelImage* image = VRKPixelImage::Create(1, 1, 0);
    image->SetPixelSize(0.5f, 0.25f);
    image->GetRow(0)[0] = 0x7f;
    d.AddImage({3.0f, 4.0f, VRKSmartRef<VRKPixelImage>::Adopt(image)});
    EXPECT_EQ(play(d, {2.0f, 0.0f, 0.0f}), (Calls{"DrawBitmap 6 8 1x1 format=0 pixel=1,0.5 7f"}));
    EXPECT_EQ(image->GetPixelWidth(), 0.5f);
    EXPECT_EQ(image->GetPixelHeight(), 0.25f);
}

TEST(DrawingPlayer, PlayFramesTheDrawingWithBeginAndEnd) {
    VRKDrawing d;
    VRKPrintParameters params;
    params.SetForm(VRKPrintForm(100.0f, 50.0f, 1));
    RecordingGenerator generator;
    VRKDrawingPlayer(generator, {}).Play(d, params);
    EXPECT_EQ(generator.calls, (Calls{"Begin w=100 h=50 o=1 r=0 c=0 m=0,0,0,0 t=0", "End"}));
}

}  // namespace
