// vrkplot on SVG drawings: the plot of a drawing, the choice of the reader by content, the
// drawing options, and the refusal of a file that cannot be drawn.

#include <gtest/gtest.h>

#include <string>

#include "support/Printable.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

std::string svg(const std::string& size, const std::string& body) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + size + ">" + body + "</svg>\n";
}

const std::string kSquare = svg("width=\"100mm\" height=\"100mm\" viewBox=\"0 0 100 100\"",
                                "<rect x=\"10\" y=\"10\" width=\"10\" height=\"10\" "
                                "fill=\"black\"/>");

// HP-GL/2 of the 100 mm drawing with its one black square: a 4000-unit page, the palette's first
// colour, and one polygon fill from (400, 3200) round (800, 3200), (800, 3600) and (400, 3600);
// the y axis turned, so the square 10 mm below the drawing's top lies 80 mm above its bottom.
const std::string kSquarePlot =
    "\x1b"
    "E\x1b%0BINECQL100PS4000,4000IP0,0,4000,4000RO270NP256TR0MC0SP0LA2,2,3,2PC1,0,0,0SP1"
    "PU400,3200PM0PE_\xcb\xbf\xbf_\xcb`\xcb\xbf\xbf`\xcb;PM2FP1SP0PUSP0PG;";

TEST_F(Vrkplot, SvgSquareIsOnePolygonFillWithTheYAxisTurned) {
    Job("square.svg", kSquare);
    ASSERT_EQ(Run({"square.svg", "-l", "HPGL2"}), 0) << err;
    EXPECT_EQ(err, "");
    EXPECT_EQ(out, "square.svg -> square.plt (HPGL2, 126 bytes)\n");
    EXPECT_BYTES(kSquarePlot, ReadFileBytes(folder.File("square.plt")));
    // The listing decodes the four vertices from the bytes alone.
    ASSERT_EQ(Run({"dump", "square.plt"}), 0) << err;
    EXPECT_NE(out.find("PU 400,3200 -> 400,3200\nPM 0\nPE\n     400,0 -> 800,3200\n     0,400 "
                       "-> 800,3600\n     -400,0 -> 400,3600\n     0,-400 -> 400,3200\n  ;\n"
                       "PM 2\nFP 1\n"),
              std::string::npos)
        << out;
}

TEST_F(Vrkplot, SvgIsKnownByItsContentWhateverItsName) {
    Job("square.txt", "<?xml version=\"1.0\"?>\n<!-- a square -->\n" + kSquare);
    ASSERT_EQ(Run({"square.txt", "-l", "HPGL2", "-o", "a.plt"}), 0) << err;
    EXPECT_BYTES(kSquarePlot, ReadFileBytes(folder.File("a.plt")));
    // And a job file is played as a job, even named .svg.
    Job("job.svg", "Begin width=100 height=100\nEnd\n");
    ASSERT_EQ(Run({"job.svg", "-l", "HPGL2", "-o", "b.plt"}), 0) << err;
    EXPECT_EQ(ReadFileBytes(folder.File("b.plt")).find("PS4000,4000"), 15u);
}

TEST_F(Vrkplot, SvgFromStandardInputGoesToStandardOutput) {
    Job("square.svg", kSquare);
    ASSERT_EQ(Run({"-", "-l", "HPGL2", "-q"}, {}, "", folder.File("square.svg")), 0) << err;
    EXPECT_BYTES(kSquarePlot, out);
}

TEST_F(Vrkplot, TruncatedSvgExitsTwoAndLeavesNoOutput) {
    Job("bad.svg", kSquare.substr(0, kSquare.size() - 12));
    EXPECT_EQ(Run({"bad.svg"}), 2);
    EXPECT_EQ(err.rfind("bad.svg:1: ", 0), 0u) << err;
    EXPECT_EQ(out, "");
    EXPECT_EQ(folder.Listing(), "bad.svg\n");
}

TEST_F(Vrkplot, SvgWithAMissingLinkedImageLeavesNoOutput) {
    Job("img.svg",
        svg("width=\"10mm\" height=\"10mm\" xmlns:xlink=\"http://www.w3.org/1999/xlink\"",
            "<image width=\"5\" height=\"5\" xlink:href=\"gone.png\"/>"));
    Job("img.plt", "kept");
    EXPECT_EQ(Run({"img.svg"}), 2);
    EXPECT_NE(err.find("gone.png"), std::string::npos) << err;
    EXPECT_EQ(ReadFileBytes(folder.File("img.plt")), "kept");
}

TEST_F(Vrkplot, SvgUseOfItselfIsRefused) {
    Job("self.svg",
        svg("width=\"10mm\" height=\"10mm\" xmlns:xlink=\"http://www.w3.org/1999/xlink\"",
            "<g id=\"a\"><use xlink:href=\"#a\"/></g>"));
    EXPECT_EQ(Run({"self.svg"}), 2);
    EXPECT_EQ(err.rfind("self.svg:1: ", 0), 0u) << err;
    EXPECT_EQ(folder.Listing(), "self.svg\n");
}

TEST_F(Vrkplot, FitScalesTheDrawingToTheForm) {
    Job("square.svg", kSquare);
    ASSERT_EQ(Run({"square.svg", "-l", "HPGL2", "--form", "200x300", "--fit", "-o", "-", "-q"}), 0)
        << err;
    // 200 x 300 mm, the 100 mm drawing twice its size and centred 50 mm up: the square's corner
    // (10, 80) mm lands at (20, 210) mm, 800 and 8400 plotter units.
    EXPECT_NE(out.find("PS8000,12000IP0,0,8000,12000NP256"), std::string::npos) << Printable(out);
    EXPECT_NE(out.find("PU800,8400PM0PE"), std::string::npos) << Printable(out);
}

TEST_F(Vrkplot, LandscapeFormAndMargins) {
    Job("square.svg", kSquare);
    ASSERT_EQ(Run({"square.svg", "-l", "HPGL2", "--form", "A4", "--landscape", "--margins", "10",
                   "-o", "-", "-q"}),
              0)
        << err;
    // Turned A4: the drawing along the 297 mm side, its top 10 mm below the 210 mm top edge, so
    // moved 10 mm across and 100 mm up: the square's corner (10, 80) mm lands at (20, 180) mm.
    EXPECT_NE(out.find("PS11880,8400IP0,0,11880,8400RO270NP256"), std::string::npos)
        << Printable(out);
    EXPECT_NE(out.find("PU800,7200PM0PE"), std::string::npos) << Printable(out);
}

TEST_F(Vrkplot, BadFormAndOrderAreUsageErrors) {
    Job("square.svg", kSquare);
    EXPECT_EQ(Run({"square.svg", "--form", "B5"}), 2);
    EXPECT_EQ(err,
              "vrkplot: the form 'B5' is neither A4, A3, A2, A1, A0 nor WIDTHxHEIGHT in "
              "millimetres (up to 100000)\n");
    EXPECT_EQ(Run({"square.svg", "--order", "random"}), 2);
    EXPECT_NE(err.find("--order"), std::string::npos) << err;
    EXPECT_EQ(folder.Listing(), "square.svg\n");
}

// Two strokes drawn far end first: ordering draws the second one backwards from where the first
// ended.
const std::string kTwoLines =
    svg("width=\"100mm\" height=\"100mm\" viewBox=\"0 0 100 100\"",
        "<path d=\"M0 100L50 100M90 100L50 100\" stroke=\"black\" stroke-width=\"0.35\"/>");

TEST_F(Vrkplot, StatsSayThePenTravelBeforeAndAfterOrdering) {
    Job("two.svg", kTwoLines);
    ASSERT_EQ(Run({"two.svg", "-l", "HPGL", "--stats", "-q"}), 0) << err;
    EXPECT_EQ(out,
              "two.svg: pen-down length: 90.0 mm before ordering, 90.0 mm after\n"
              "two.svg: pen-up travel: 40.0 mm before ordering, 0.0 mm after\n"
              "two.svg: pen changes: 0 before ordering, 0 after\n");
    ASSERT_EQ(
        Run({"two.svg", "-l", "HPGL", "--stats", "-q", "--order", "drawing", "-o", "drawing.plt"}),
        0)
        << err;
    EXPECT_EQ(out,
              "two.svg: pen-down length: 90.0 mm before ordering, 90.0 mm after\n"
              "two.svg: pen-up travel: 40.0 mm before ordering, 40.0 mm after\n"
              "two.svg: pen changes: 0 before ordering, 0 after\n");
}

TEST_F(Vrkplot, OrderingIsTheDefaultForThePenPlotterOnly) {
    Job("two.svg", kTwoLines);
    // The pen plotter draws the second line backwards, on from the end of the first, without
    // lifting the pen (relative moves: PD2000,0 then PD1600,0).
    ASSERT_EQ(Run({"two.svg", "-l", "HPGL", "-o", "-", "-q"}), 0) << err;
    EXPECT_BYTES("PU0,0PR;SP1;SP1PD2000,0PD1600,0PU;PA;SP0;PG;", out);
    // The printers draw in the drawing's order: a pen-up move to (3600, 0) between the lines.
    ASSERT_EQ(Run({"two.svg", "-l", "HPGL2", "-o", "two.plt", "-q"}), 0) << err;
    ASSERT_EQ(Run({"dump", "two.plt"}), 0) << err;
    EXPECT_NE(out.find("PE\n  =< 0,0 -> 0,0\n     2000,0 -> 2000,0\n  <  1600,0 -> 3600,0\n"
                       "     -1600,0 -> 2000,0\n  ;\n"),
              std::string::npos)
        << out;
}

TEST_F(Vrkplot, UnsupportedFeaturesAreReportedOnce) {
    Job("blur.svg", svg("width=\"10mm\" height=\"10mm\"",
                        "<filter id=\"f\"/><rect id=\"r1\" width=\"2\" height=\"2\" "
                        "filter=\"url(#f)\"/><rect id=\"r2\" width=\"2\" height=\"2\" "
                        "filter=\"url(#f)\"/>"));
    ASSERT_EQ(Run({"blur.svg", "-q"}), 0) << err;
    EXPECT_NE(err.find("blur.svg:1: "), std::string::npos) << err;
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
}

}  // namespace
