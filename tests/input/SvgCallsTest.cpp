// SVG drawings as the host calls a generator receives: each feature of a drawing, read by the
// SVG importer and played in the drawing's order, and the exact calls it makes.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/drawing/VRKDrawingPlayer.h"
#include "host/svg/VRKSvgImporter.h"
#include "support/RecordingGenerator.h"

namespace {

using Calls = std::vector<std::string>;

// The calls of a 100 mm drawing of `body`, one user unit a millimetre.
Calls calls(const std::string& body) {
    const std::string text =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100mm\" height=\"100mm\" "
        "viewBox=\"0 0 100 100\">" +
        body + "</svg>";
    VRKSvgImporter importer;
    VRKDrawing drawing;
    if (!importer.ReadMemory(text, "t.svg", "", drawing)) {
        return {"error: " + importer.GetError()};
    }
    RecordingGenerator generator;
    VRKDrawingPlayer(generator, {}).PlayItems(drawing);
    return generator.calls;
}

// The pen of a stroke 1 mm wide, solid, butt caps and mitre joins, in palette colour 1.
Calls pen(const std::string& color, const std::string& width = "1",
          const std::string& style = "0") {
    return {"DefineColor 1 " + color, "SelectDrawColor 1", "SetDrawWidth " + width,
            "SetLineStyle " + style,  "SetLineCap 10",     "SetLineJoin 13"};
}

Calls operator+(Calls a, const Calls& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(SvgCalls, AStrokedCircleIsOneDrawArcCircle) {
    EXPECT_EQ(calls("<circle cx=\"50\" cy=\"50\" r=\"10\" fill=\"none\" stroke=\"red\" "
                    "stroke-width=\"2\"/>"),
              (pen("1 0 0", "2") + Calls{"DrawArcCircle 50 50 10 0 6.2831855 0"}));
}

TEST(SvgCalls, AFilledRotatedEllipseIsOneFilledDrawArcEllipse) {
    // rotate(30) turns clockwise on the screen: counter-clockwise -30 degrees on the page.
    EXPECT_EQ(calls("<ellipse cx=\"50\" cy=\"50\" rx=\"10\" ry=\"5\" fill=\"#00f\" "
                    "transform=\"rotate(30 50 50)\"/>"),
              (Calls{"DefineColor 1 0 0 1", "SelectFillColor 1",
                     "DrawArcEllipse 50 50 10 5 0 6.2831855 -0.5235988 1"}));
}

TEST(SvgCalls, CubicRunsAreOneDrawPolyBezierAndLinesLineTo) {
    EXPECT_EQ(calls("<path d=\"M10 10 C20 0 30 0 40 10 S60 20 70 10 L80 80\" fill=\"none\" "
                    "stroke=\"rgb(0,128,0)\"/>"),
              (pen("0 0.5019608 0") +
               Calls{"MoveTo 10 90", "DrawPolyBezier 7 10 90 20 100 30 100 40 90 50 80 60 80 70 90",
                     "LineTo 80 20"}));
}

TEST(SvgCalls, AFillIsOneFillAreaWithItsRule) {
    EXPECT_EQ(calls("<path d=\"M0 0H10V10H0Z M2 2H8V8H2Z\" fill-rule=\"evenodd\" "
                    "fill=\"black\"/>"),
              (Calls{"DefineColor 1 0 0 0", "SelectFillColor 1", "SetPolygonFillRule 0",
                     "FillArea 2 4 4 0 100 10 100 10 90 0 90 2 98 8 98 8 92 2 92"}));
}

TEST(SvgCalls, TextIsDrawTextWithItsFontWeightSizeDirectionAndAnchor) {
    EXPECT_EQ(calls("<text x=\"10\" y=\"20\" font-size=\"5\" font-family=\"serif\" "
                    "text-anchor=\"middle\" font-weight=\"bold\">Hall</text>"),
              (Calls{"DefineColor 1 0 0 0", "SelectDrawColor 1", "SetTextAttribute 0 14",
                     "SetTextAttribute 4 26", "SetTextAttribute 2 5", "SetTextAttribute 6 0",
                     "SetTextAttribute 7 32", "DrawText 10 80 Hall"}));
}

TEST(SvgCalls, AnInheritedDashArrayIsTheDashedLineStyle) {
    EXPECT_EQ(calls("<g style=\"stroke:black;stroke-dasharray:4 2\"><line x1=\"0\" y1=\"0\" "
                    "x2=\"10\" y2=\"0\"/></g>"),
              (pen("0 0 0", "1", "1") + Calls{"MoveTo 0 100", "LineTo 10 100"}));
}

TEST(SvgCalls, OpacityIsBlendedOverWhiteAndTheFillComesBeforeTheStroke) {
    EXPECT_EQ(calls("<rect width=\"10\" height=\"10\" fill=\"red\" stroke=\"blue\" "
                    "opacity=\"0.5\"/>"),
              (Calls{"DefineColor 1 1 0.5019608 0.5019608", "SelectFillColor 1",
                     "SetPolygonFillRule 1", "FillArea 1 4 0 90 10 90 10 100 0 100",
                     "DefineColor 2 0.5019608 0.5019608 1", "SelectDrawColor 2", "SetDrawWidth 1",
                     "SetLineStyle 0", "SetLineCap 10", "SetLineJoin 13", "MoveTo 0 90",
                     "LineTo 10 90", "LineTo 10 100", "LineTo 0 100", "LineTo 0 90"}));
}

TEST(SvgCalls, EachColourIsDefinedOnceAndReused) {
    EXPECT_EQ(calls("<line x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\" stroke=\"red\"/>"
                    "<line x1=\"0\" y1=\"1\" x2=\"1\" y2=\"1\" stroke=\"blue\"/>"
                    "<line x1=\"0\" y1=\"2\" x2=\"1\" y2=\"2\" stroke=\"#f00\"/>"),
              (pen("1 0 0") + Calls{"MoveTo 0 100", "LineTo 1 100", "DefineColor 2 0 0 1",
                                    "SelectDrawColor 2", "MoveTo 0 99", "LineTo 1 99",
                                    "SelectDrawColor 1", "MoveTo 0 98", "LineTo 1 98"}));
}

TEST(SvgCalls, StrokeWidthIsScaledByTheTransform) {
    EXPECT_EQ(calls("<g transform=\"scale(2)\"><line x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\" "
                    "stroke=\"black\" stroke-width=\"0.25\"/></g>"),
              (pen("0 0 0", "0.5") + Calls{"MoveTo 0 100", "LineTo 2 100"}));
}

}  // namespace
