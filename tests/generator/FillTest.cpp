#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "properties/VRKPrintHPGLProperties.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"

namespace {

struct Plot {
    Plot() {
        g.Begin(FormParameters(210, 297, 1));
        g.Take();
    }
    HPGL2Peer g;
};

TEST(PolygonFill, TriangleWithEqualPens) {
    Plot p;
    const int counts[] = {3};
    const float xy[] = {10, 10, 20, 10, 15, 20};
    p.g.FillArea(1, counts, xy);
    // Relative steps (400, 0), (-200, 400) and the closing (-200, -400).
    EXPECT_BYTES("PU400,400PM0PE\x5F\xCB\xBF\x50\xC5\x5F\xCB\x50\xC5\x60\xCB;PM2FP0", p.g.Take());
    EXPECT_EQ(p.g.encodedPolylineOpen, 0);
}

TEST(PolygonFill, ClosesAnOpenRunFirstAndSwitchesPens) {
    Plot p;
    p.g.LineTo(0, 0);
    p.g.SelectFillColor(4);
    p.g.Take();
    const int counts[] = {3};
    const float xy[] = {10, 10, 20, 10, 15, 20};
    p.g.SetPolygonFillRule(1);
    p.g.FillArea(1, counts, xy);
    EXPECT_BYTES(";SP4PU400,400PM0PE\x5F\xCB\xBF\x50\xC5\x5F\xCB\x50\xC5\x60\xCB;PM2FP1SP0",
                 p.g.Take());
}

TEST(PolygonFill, SeveralPolygonsAreNotClosedButEachEndsWithSemicolon) {
    Plot p;
    const int counts[] = {4, 3};
    const float xy[] = {0, 0, 10, 0, 10, 10, 0, 10, 2, 2, 4, 2, 4, 4};
    p.g.FillArea(2, counts, xy);
    EXPECT_BYTES(
        "PU0,0PM0PE\x5F\xCB\xBF\xBF\x5F\xCB\x60\xCB\xBF;"
        "PM1PE=\x5F\xC1\x5F\xC1\x5F\xC1\xBF\xBF\x5F\xC1;"
        "PM2FP0",
        p.g.Take());
}

TEST(PolygonFill, FillRuleOtherValuesAreEvenOdd) {
    for (int rule : {0, 2, -1}) {
        Plot p;
        p.g.SetPolygonFillRule(rule);
        const int counts[] = {1};
        const float xy[] = {1, 1};
        p.g.FillArea(1, counts, xy);
        EXPECT_BYTES("PU40,40PM0PE\xBF\xBF;PM2FP0", p.g.Take());
    }
}

TEST(PolygonFill, InvalidArgumentsDrawNothing) {
    Plot p;
    const float xy[] = {1, 1, 2, 2};
    const int zero[] = {0};
    const int zeros[] = {0, 0, 0};
    const int negative[] = {2, -1};
    p.g.LineTo(0, 0);
    p.g.Take();
    p.g.FillArea(0, zero, xy);
    p.g.FillArea(1, nullptr, xy);
    p.g.FillArea(1, zero, nullptr);
    p.g.FillArea(1, zero, xy);
    p.g.FillArea(3, zeros, xy);
    p.g.FillArea(2, negative, xy);
    EXPECT_EQ(p.g.Take(), "");
    EXPECT_EQ(p.g.encodedPolylineOpen, 1);  // nothing changed
}

TEST(PolygonFill, CoordinatesTruncateTwice) {
    Plot p;
    const int counts[] = {2};
    const float xy[] = {0.0249f, -0.0249f, 1, 1};
    p.g.FillArea(1, counts, xy);
    EXPECT_BYTES("PU0,0PM0PE\x4F\xC0\x4F\xC0\x50\xC0\x50\xC0;PM2FP0", p.g.Take());
}

TEST(PolygonFill, EmptyFirstPolygonOfSeveral) {
    Plot p;
    const int counts[] = {0, 2};
    const float xy[] = {1, 1, 2, 1};
    p.g.FillArea(2, counts, xy);
    EXPECT_BYTES("PU40,40PM0PE;PM1PE=\x4F\xC0\x4F\xC0\x4F\xC0\xBF;PM2FP0", p.g.Take());
}

TEST(PolygonFill, PatternModeUsesTheHostHatch) {
    Plot p;
    p.g.SetFillMode(2);
    const int counts[] = {4};
    const float xy[] = {0, 0, 3, 0, 3, 3, 0, 3};
    p.g.FillArea(1, counts, xy);
    const std::string out = p.g.Take();
    EXPECT_EQ(out.find("PM0"), std::string::npos);
    EXPECT_EQ(out.substr(0, 4), "PE=<");
}

TEST(PolygonFill, PatternFarBeyondThePlotterEnds) {
    // Some 1e20 mm away a step of 1 mm no longer moves the hatch line: the hatch ends there
    // instead of drawing the same line for ever. The outline follows, at the int's limit.
    Plot p;
    p.g.SetFillMode(2);
    const int counts[] = {3};
    const float xy[] = {0, 1e20f, 5, 1e20f, 2, 1e20f};
    p.g.FillArea(1, counts, xy);
    EXPECT_BYTES(
        "PE=<\xBF}~~~~\xC2"
        "O\xC5\xBF"
        "p\xC2\xBF"
        "`\xC1\xBF",
        p.g.Take());
}

// An HP-GL job whose pen 1 is 2 mm wide: the hatch steps 1 mm. Moves and lines are logged in
// millimetres as the hooks receive them.
class HatchPlot : public HPGL2Peer {
  public:
    explicit HatchPlot(float penWidth = 2.0f, int fillRule = 0) {
        UseHPGL();
        std::array<float, 32> r{}, g{}, b{}, w{};
        std::array<int, 32> e{};
        hpglSettings->GetPenColors(r.data(), g.data(), b.data());
        hpglSettings->GetPenEnables(e.data());
        w.fill(penWidth);
        hpglSettings->SetPens(32, r.data(), g.data(), b.data(), w.data(), e.data());
        hpglSettings->SetRelativeMovePen(0);
        SetPolygonFillRule(fillRule);
        Begin(FormParameters(210, 297, 1));
        DefineColor(1, 0, 0, 0);
        SelectDrawColor(1);
        Take();
        log.clear();
    }
    std::string log;

  protected:
    void DrvMoveTo(float x, float y) override {
        Log('M', x, y);
        HPGL2Peer::DrvMoveTo(x, y);
    }
    void DrvLineTo(float x, float y) override {
        Log('L', x, y);
        HPGL2Peer::DrvLineTo(x, y);
    }

  private:
    void Log(char kind, float x, float y) {
        char text[64];
        std::snprintf(text, sizeof text, "%c%g,%g ", kind, x, y);
        log += text;
    }
};

TEST(ScanLineFill, Triangle) {
    HatchPlot p;
    const int counts[] = {3};
    const float xy[] = {0, 0, 4, 0, 2, 2};
    p.FillArea(1, counts, xy);
    EXPECT_EQ(p.log,
              "M0,0 L4,0 L2,2 L0,0 "  // outline
              "M-0.01,0 M0,0 L4,0 "   // y = 0: the first vertex and the rising edge's start
              "M4.01,1 M3,1 L1,1 "    // y = 1, right to left
              "M-0.01,2 ");           // y = 2: the apex is a maximum, no crossing
    EXPECT_EQ(p.Take(), "PD160,0PD80,80PD0,0PD160,0PU120,40PD40,40");
    EXPECT_EQ(p.hpgl.suppressStrokes, 0);
}

TEST(ScanLineFill, SquareWithSquareHole) {
    HatchPlot p;
    const int counts[] = {4, 4};
    const float xy[] = {0, 0, 6, 0, 6, 4, 0, 4, 2, 1.5f, 4, 1.5f, 4, 2.5f, 2, 2.5f};
    p.FillArea(2, counts, xy);
    const std::string hatch = p.log.substr(p.log.find("M-0.01,0 "));
    EXPECT_EQ(hatch,
              "M-0.01,0 M0,0 L6,0 "
              "M6.01,1 M6,1 L0,1 "
              "M-0.01,2 M0,2 L2,2 M4,2 L6,2 "
              "M6.01,3 M6,3 L0,3 "
              "M-0.01,4 ");
}

TEST(ScanLineFill, LocalMinimumCountsTwiceMaximumNever) {
    HatchPlot p;
    // (2,0) is a local minimum; (2,4) on the top edge is a local maximum.
    const int counts[] = {5};
    const float xy[] = {0, 2, 2, 0, 4, 2, 2, 4, 0, 3};
    p.FillArea(1, counts, xy);
    const std::string hatch = p.log.substr(p.log.find("M-0.01,0 "));
    EXPECT_EQ(hatch,
              "M-0.01,0 M2,0 L2,0 "  // the minimum: two equal crossings
              "M4.01,1 M3,1 L1,1 "
              "M-0.01,2 M0,2 L4,2 "  // first vertex once, (4,2) has a higher
                                     // neighbour before it: once
              "M4.01,3 M3,3 L0,3 "
              "M-0.01,4 ");  // the maximum: nothing
}

TEST(ScanLineFill, FirstVertexAtAMaximumGivesAnOddCrossing) {
    HatchPlot p;
    const int counts[] = {5};
    const float xy[] = {2, 4, 0, 2, 0, 0, 4, 0, 4, 2};
    p.FillArea(1, counts, xy);
    const std::string hatch = p.log.substr(p.log.find("M-0.01,0 "));
    // At y = 4 the first vertex counts once: a lone move, nothing drawn.
    EXPECT_EQ(hatch.substr(hatch.size() - 14), "M-0.01,4 M2,4 ");
}

TEST(ScanLineFill, DegeneratePolygonDrawsItsOutlineOnly) {
    HatchPlot p;
    const int counts[] = {3};
    const float xy[] = {0, 1, 2, 1, 4, 1};
    p.FillArea(1, counts, xy);
    EXPECT_EQ(p.log, "M0,1 L2,1 L4,1 L0,1 ");
}

TEST(ScanLineFill, PenZeroDrawsNothingAtAll) {
    HatchPlot p;
    p.SelectDrawColor(0);
    p.DefineColor(0, 1, 1, 1);
    p.SelectDrawColor(0);
    p.Take();
    ASSERT_EQ(p.hpgl.currentPen, 0);
    const int counts[] = {3};
    const float xy[] = {0, 0, 4, 0, 2, 2};
    p.FillArea(1, counts, xy);
    EXPECT_EQ(p.log, "");
    EXPECT_EQ(p.Take(), "");
}

TEST(ScanLineFill, PenWithoutWidthGetsItsOutlineOnly) {
    HatchPlot p(0.0f);
    const int counts[] = {3};
    const float xy[] = {0, 0, 4, 0, 2, 2};
    p.FillArea(1, counts, xy);
    EXPECT_EQ(p.log, "M0,0 L4,0 L2,2 L0,0 ");
}

TEST(ScanLineFill, PenNarrowerThanTwoPlotterUnitsGetsItsOutlineOnly) {
    // Half the width is the step; below one plotter unit (0.025 mm) the hatch would redraw the
    // same stroke, and for the narrowest widths never end.
    for (const float width : {1e-30f, 1e-6f, 0.049f}) {
        SCOPED_TRACE(width);
        HatchPlot p(width);
        const int counts[] = {3};
        const float xy[] = {0, 0, 4, 0, 2, 2};
        p.FillArea(1, counts, xy);
        EXPECT_EQ(p.log, "M0,0 L4,0 L2,2 L0,0 ");
    }
}

TEST(ScanLineFill, PenOfTwoPlotterUnitsHatchesAtEachUnit) {
    HatchPlot p(0.05f);
    const int counts[] = {4};
    const float xy[] = {0, 0, 1, 0, 1, 0.1f, 0, 0.1f};
    p.FillArea(1, counts, xy);
    // The outline, then a scan line at every plotter unit from the bottom edge up.
    EXPECT_EQ(p.log,
              "M0,0 L1,0 L1,0.1 L0,0.1 L0,0 "
              "M-0.01,0 M0,0 L1,0 M1.01,0.025 M1,0.025 L0,0.025 M-0.01,0.05 M0,0.05 L1,0.05 "
              "M1.01,0.075 M1,0.075 L0,0.075 M-0.01,0.1 ");
}

TEST(ScanLineFill, AreaWhereTheStepNoLongerMovesEnds) {
    // At 2e7 mm a float's own step is 2 mm, coarser than the pen's 1 mm: the first scan line is
    // drawn and the hatch ends there instead of drawing it for ever.
    HatchPlot p(2.0f);
    const int counts[] = {4};
    const float xy[] = {0, 2e7f, 4, 2e7f, 4, 2e7f + 8, 0, 2e7f + 8};
    p.FillArea(1, counts, xy);
    EXPECT_EQ(p.log,
              "M0,2e+07 L4,2e+07 L4,2e+07 L0,2e+07 L0,2e+07 "
              "M-0.01,2e+07 M0,2e+07 L4,2e+07 ");
}

TEST(ScanLineFill, SpansWithinOnePlotterUnitAreNotDrawn) {
    HatchPlot p;
    // A sliver 0.01 mm wide at its base: every scan line crosses it twice within the same
    // plotter unit (0.025 mm), so those lines move past it and draw nothing.
    const int counts[] = {3};
    const float xy[] = {0, 0, 0.01f, 0, 0.01f, 3};
    p.FillArea(1, counts, xy);
    EXPECT_EQ(p.log,
              "M0,0 L0.01,0 L0.01,3 L0,0 "
              "M-0.01,0 "  // the base too: from 0 to 0.01
              "M0.02,1 "
              "M-0.01,2 "
              "M0.02,3 ");
    EXPECT_EQ(p.Take(), "PD0,0PD0,120PD0,0");
}

TEST(ScanLineFill, AreaWithAnInfiniteHeightGetsItsOutlineOnly) {
    // Scan lines would climb to infinity and stay there: such an area has no hatch.
    for (const float y :
         {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()}) {
        SCOPED_TRACE(y);
        HatchPlot p(2.0f);
        const int counts[] = {3};
        const float xy[] = {0, 0, 4, 0, 2, y};
        p.FillArea(1, counts, xy);
        EXPECT_EQ(p.log, std::string("M0,0 L4,0 L2,") + (y > 0 ? "inf" : "-inf") + " L0,0 ");
    }
}

TEST(ScanLineFill, NonZeroRuleFillsOverlapsOnce) {
    HatchPlot p(2.0f, 1);
    // Two overlapping squares: even-odd would leave the overlap empty.
    const int counts[] = {4, 4};
    const float xy[] = {0, 0, 4, 0, 4, 4, 0, 4, 2, 0.5f, 6, 0.5f, 6, 3.5f, 2, 3.5f};
    p.FillArea(2, counts, xy);
    // The union is one piece: at y = 2 a single span from 0 to 6.
    EXPECT_NE(p.log.find("M0,2 L6,2 "), std::string::npos) << p.log;
    EXPECT_EQ(p.log.find("L2,2"), std::string::npos) << p.log;
}

TEST(ScanLineFill, DrawPenComesBackAfterTheFillPen) {
    HatchPlot p;
    p.DefineColor(2, 1, 0, 0);
    p.SelectFillColor(2);
    EXPECT_EQ(p.Take(), "SP2");
    const int counts[] = {3};
    const float xy[] = {0, 0, 4, 0, 2, 2};
    p.FillArea(1, counts, xy);
    const std::string out = p.Take();
    EXPECT_EQ(out.substr(out.size() - 3), "SP1");
}

}  // namespace
