#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "properties/VRKPrintHPGLProperties.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"
#include "support/ScopedEnv.h"

namespace {

// A generator in the HP-GL dialect, its job started on an A4 portrait form.
struct HPGLJob {
    explicit HPGLJob(bool start = true) {
        g.UseHPGL();
        if (start) {
            g.Begin(FormParameters(210, 297, 1));
            g.Take();
        }
    }
    HPGL2Peer g;
};

// A fresh folder for table files, used as the temporary directory.
class TableFolder {
  public:
    TableFolder() {
        char pattern[] = "/tmp/vrk-tables-XXXXXX";
        dir_ = ::mkdtemp(pattern);
    }
    ~TableFolder() { std::filesystem::remove_all(dir_); }
    std::string Dir() const { return dir_ + "/"; }
    void Write(const std::string& name, const std::string& text) const {
        std::ofstream(dir_ + "/" + name) << text;
    }

  private:
    std::string dir_;
};

// An HP-GL job started with `text` as its table file `name` (PenTable or ColorTable), the
// environment variable `variable` set; the lines the table prints at the start are swallowed.
struct TableJob {
    TableJob(const char* name, const char* variable, const std::string& text)
        : table(variable, "1") {
        folder.Write(name, text);
        testing::internal::CaptureStdout();
        job.g.Begin(FormParameters(210, 297, 1));
        testing::internal::GetCapturedStdout();
    }
    std::vector<int> PensOf(int red, int green, int blue) {
        std::vector<int> pens;
        job.g.hpgl.colorTable.PensFor(red, green, blue, pens);
        return pens;
    }
    // In this order: the folder is the temporary directory before the job starts.
    TableFolder folder;
    ScopedEnv tmp{"TMPDIR", folder.Dir()};
    ScopedEnv table;
    HPGLJob job{false};
};

TEST(HPGL2Colors, DefineColorWritesPalette) {
    HPGL2Peer g;
    g.DefineColor(3, 1.0f, 0.5f, 0.0f);
    EXPECT_EQ(g.Take(), "PC3,255,127,0");
    g.DefineColor(300, 0.2f, 0.999f, 1.0f);  // no index check
    EXPECT_EQ(g.Take(), "PC300,51,254,255");
}

TEST(HPGL2Colors, ComponentsBeyondTheIntegersHoldAtTheirLimits) {
    HPGL2Peer g;
    g.DefineColor(1, 1e30f, std::nanf(""), -1e30f);
    EXPECT_EQ(g.Take(), "PC1,9223372036854775807,0,-9223372036854775808");
}

TEST(HPGL2Colors, DefineColorClosesPolyline) {
    HPGL2Peer g;
    g.LineTo(0, 0);
    g.DefineColor(1, 0, 0, 0);
    EXPECT_BYTES("PE=\xBF\xBF;PC1,0,0,0", g.Take());
}

TEST(HPGL2Colors, SameColorTwiceWritesSPOnceButClosesEachTime) {
    HPGL2Peer g;
    g.LineTo(0, 0);
    g.SelectDrawColor(2);
    g.LineTo(0, 0);
    g.SelectDrawColor(2);
    g.SelectDrawColor(2);
    EXPECT_BYTES("PE=\xBF\xBF;SP2PE=\xBF\xBF;", g.Take());
    EXPECT_EQ(g.currentDrawColor, 2);
}

TEST(HPGL2Colors, SelectingColorZeroAtStartWritesNothing) {
    HPGL2Peer g;
    g.SelectDrawColor(0);
    EXPECT_EQ(g.Take(), "");
}

TEST(HPGL2Colors, FillColorIsOnlyStored) {
    HPGL2Peer g;
    g.LineTo(0, 0);
    g.Take();
    g.SelectFillColor(5);
    EXPECT_EQ(g.Take(), "");
    EXPECT_EQ(g.currentFillColor, 5);
    EXPECT_EQ(g.encodedPolylineOpen, 1);
}

TEST(HPGLJobStart, DefaultsAtLowerLeft) {
    HPGLJob job(false);
    job.g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(job.g.Take(), "PU0,0PR;SP1;");
    EXPECT_EQ(job.g.hpgl.pens.Count(), 32);
    EXPECT_EQ(job.g.hpgl.currentPen, 0);
    EXPECT_EQ(job.g.hpgl.strokeCount, 1);
    EXPECT_EQ(job.g.hpgl.strokeSpacing, 0.0f);
    EXPECT_EQ(job.g.hpgl.relativeMoves, 1);
    EXPECT_EQ(job.g.hpgl.printThickness, 0);
    ASSERT_TRUE(job.g.hpgl.hasPens);
    EXPECT_EQ(job.g.Pen(2).red, 255.0f);
    EXPECT_EQ(job.g.Pen(8).enable, 0);
}

TEST(HPGLJobStart, OriginsInBothOrientations) {
    // A4: w = 8400, h = 11880.
    const char* portrait[] = {"PU-4200,-5940", "PU0,0", "PU0,-11880", "PU-8400,0",
                              "PU-8400,-11880"};
    const char* landscape[] = {"PU-5940,-4200", "PU0,0", "PU0,-8400", "PU-11880,0",
                               "PU-11880,-8400"};
    for (int origin = 0; origin < 5; ++origin) {
        for (int orientation : {0, 1}) {
            HPGLJob job(false);
            job.g.hpglSettings->SetOrigin(origin);
            job.g.hpglSettings->SetRelativeMovePen(0);
            job.g.Begin(FormParameters(210, 297, orientation));
            EXPECT_EQ(
                job.g.Take(),
                std::string(orientation == 0 ? landscape[origin] : portrait[origin]) + "PA;SP1;")
                << "origin " << origin << " orientation " << orientation;
        }
    }
}

TEST(HPGLJobStart, CentreTruncatesTowardZero) {
    HPGLJob job(false);
    job.g.hpglSettings->SetOrigin(0);
    // 100.05f * 40 = 4002.0, 50.05f * 40 = 2001.99997: w = 4002, h = 2001.
    job.g.Begin(FormParameters(100.05f, 50.05f, 1));
    EXPECT_EQ(job.g.Take(), "PU-2001,-1000PR;SP1;");
    EXPECT_EQ(job.g.hpgl.originX, -2001);
}

TEST(HPGLJobStart, OriginsOfFormsBeyondTheIntegers) {
    // A width of -1e20 mm is the int's smallest in plotter units; the right-hand corner's
    // origin is its negation, held at the int's largest.
    HPGLJob job(false);
    job.g.hpglSettings->SetOrigin(3);
    job.g.Begin(FormParameters(-1e20f, 297, 1));
    EXPECT_EQ(job.g.Take(), "PU2147483647,0PR;SP1;");
    HPGLJob centre(false);
    centre.g.hpglSettings->SetOrigin(0);
    centre.g.Begin(FormParameters(3e38f, std::nanf(""), 1));
    EXPECT_EQ(centre.g.Take(), "PU-1073741823,0PR;SP1;");
}

TEST(HPGLJobStart, WithSP0) {
    ScopedEnv sp0("HPGL_WITH_SP0", "");
    HPGLJob job(false);
    job.g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(job.g.Take(), "PU0,0PR;SP0;");
}

TEST(HPGLJobStart, NoSettingsWritesNothing) {
    HPGLJob job(false);
    job.g.hpglSettings = nullptr;
    job.g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(job.g.Take(), "");
}

TEST(HPGLJobEnd, EndSequenceAndTablesFreed) {
    HPGLJob job;
    job.g.End();
    EXPECT_EQ(job.g.Take(), "PU;PA;SP0;PG;");
    EXPECT_FALSE(job.g.hpgl.hasPens);
}

TEST(HPGLJobEnd, PageAdvanceWritesNothing) {
    HPGLJob job;
    job.g.StartNewPage();
    EXPECT_EQ(job.g.Take(), "");
}

TEST(HPGLColors, DefineColorWritesNothingAndKeepsComponents) {
    HPGLJob job;
    job.g.DefineColor(200, 0.25f, 0.5f, 0.75f);
    job.g.DefineColor(256, 1, 1, 1);  // ignored
    job.g.DefineColor(-1, 1, 1, 1);   // ignored
    EXPECT_EQ(job.g.Take(), "");
    EXPECT_EQ(job.g.hpgl.hostColors[200].red, 0.25f);
    EXPECT_EQ(job.g.hpgl.hostColors[200].green, 0.5f);
    EXPECT_EQ(job.g.hpgl.hostColors[200].blue, 0.75f);
}

TEST(HPGLColors, WhiteSelectsNoPen) {
    HPGLJob job;
    job.g.DefineColor(1, 1.0f, 1.0f, 1.0f);
    job.g.SelectDrawColor(1);
    EXPECT_EQ(job.g.Take(), "");  // pen 0 is current already
    EXPECT_EQ(job.g.hpgl.currentPen, 0);
    EXPECT_EQ(job.g.currentDrawColor, 1);
}

TEST(HPGLColors, NearestColorByDistance) {
    HPGLJob job;
    job.g.DefineColor(7, 250 / 255.0f, 5 / 255.0f, 0.0f);  // 10 from red
    job.g.SelectDrawColor(7);
    EXPECT_EQ(job.g.Take(), "SP2");
    job.g.SelectDrawColor(7);
    EXPECT_EQ(job.g.Take(), "");
    job.g.DefineColor(8, 0, 0, 0);
    job.g.SelectFillColor(8);
    EXPECT_EQ(job.g.Take(), "SP1");
    EXPECT_EQ(job.g.currentFillColor, 8);
}

TEST(HPGLColors, IndexOutsideTableSelectsNoPen) {
    HPGLJob job;
    job.g.DefineColor(2, 1, 0, 0);
    job.g.SelectDrawColor(2);
    job.g.Take();
    job.g.SelectDrawColor(256);
    EXPECT_EQ(job.g.Take(), "SP0");
}

// Sets pens 1 to 7 of the job's settings before its start.
void SetPens(HPGL2Peer& g, std::initializer_list<std::array<float, 4>> pens,
             int printThickness = 0) {
    std::array<float, 32> r{}, gr{}, b{}, w{};
    std::array<int, 32> e{};
    w.fill(0.35f);
    r[0] = gr[0] = b[0] = 255;
    e[0] = 1;
    int i = 1;
    for (const auto& pen : pens) {
        r[i] = pen[0];
        gr[i] = pen[1];
        b[i] = pen[2];
        w[i] = pen[3];
        e[i] = 1;
        ++i;
    }
    g.hpglSettings->SetPens(32, r.data(), gr.data(), b.data(), w.data(), e.data());
    g.hpglSettings->SetPrintThickness(printThickness);
}

TEST(SelectPenForColor, TieGoesToNearestThicknessThenEarliest) {
    HPGLJob job(false);
    SetPens(job.g, {{100, 100, 100, 0.35f}, {110, 100, 100, 0.25f}, {90, 100, 100, 0.25f}});
    job.g.Begin(FormParameters(210, 297, 1));
    job.g.DefineColor(4, 100 / 255.0f, 100 / 255.0f, 100 / 255.0f);  // pen 1 exactly
    job.g.DefineColor(5, 105 / 255.0f, 100 / 255.0f, 100 / 255.0f);  // 5 from pens 1 and 2
    job.g.DefineColor(6, 95 / 255.0f, 100 / 255.0f, 100 / 255.0f);   // 5 from pens 1 and 3
    int strokes = -1;
    float spacing = -1;
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(4, 0.25f, strokes, spacing), 1);
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(5, 0.25f, strokes, spacing), 2);
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(5, 0.35f, strokes, spacing), 1);
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(6, 0.30f, strokes, spacing), 1);  // 0.05 each: earliest
    EXPECT_EQ(strokes, 1);
    EXPECT_EQ(spacing, 0.0f);
}

TEST(SelectPenForColor, StrokesForWideLines) {
    HPGLJob job;
    job.g.DefineColor(2, 1, 0, 0);
    int strokes = 0;
    float spacing = 0;
    // Thickness 0.35 for a width of 0.7: trunc(2 * (2.0 + 1.05)) = 6, spacing 14 / 5.
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(2, 0.7f, strokes, spacing), 2);
    EXPECT_EQ(strokes, 6);
    EXPECT_FLOAT_EQ(spacing, 2.8f);
    // 0.355 is within 0.01 of the pen: one stroke.
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(2, 0.355f, strokes, spacing), 2);
    EXPECT_EQ(strokes, 1);
    EXPECT_EQ(spacing, 0.0f);
    // A width of 0.4: trunc(2 * (1.142857 + 1.05)) = 4, spacing 0.05 * 40 / 3.
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(2, 0.4f, strokes, spacing), 2);
    EXPECT_EQ(strokes, 4);
    EXPECT_NEAR(spacing, 2.0f / 3.0f, 1e-5);
    // Thinner than the pen: one stroke.
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(2, 0.1f, strokes, spacing), 2);
    EXPECT_EQ(strokes, 1);
}

TEST(SelectPenForColor, SetDrawWidthSelectsPenAndStrokes) {
    HPGLJob job;
    job.g.DefineColor(3, 0, 1, 0);
    job.g.SelectDrawColor(3);
    EXPECT_EQ(job.g.Take(), "SP3");
    job.g.SetDrawWidth(0.7f);
    EXPECT_EQ(job.g.Take(), "");
    EXPECT_EQ(job.g.hpgl.strokeCount, 6);
    EXPECT_EQ(job.g.hpgl.currentDrawWidth, 0.7f);
    job.g.SetDrawWidth(0.7f);  // unchanged: nothing
    EXPECT_EQ(job.g.hpgl.strokeCount, 6);
}

TEST(SelectPenForColor, HueFallbackWithTie) {
    HPGLJob job(false);
    // Default colours; yellow made thicker.
    std::array<float, 32> r{}, gr{}, b{}, w{};
    std::array<int, 32> e{};
    job.g.hpglSettings->GetPenColors(r.data(), gr.data(), b.data());
    job.g.hpglSettings->GetPenWidths(w.data());
    job.g.hpglSettings->GetPenEnables(e.data());
    w[4] = 0.5f;
    job.g.hpglSettings->SetPens(32, r.data(), gr.data(), b.data(), w.data(), e.data());
    job.g.Begin(FormParameters(210, 297, 1));
    // (0.5, 0.25, 0) is 191.25 from black and red: too far. Its hue, 1/12, lies 1/12 from black
    // (hue 0) and from yellow (1/6).
    job.g.DefineColor(9, 0.5f, 0.25f, 0.0f);
    int strokes = 0;
    float spacing = 0;
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(9, 0.35f, strokes, spacing), 1);
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(9, 0.5f, strokes, spacing), 4);
}

TEST(SelectPenForColor, PureRedHasHueOneAndNeverMatchesOverTheCircle) {
    HPGLJob job(false);
    // Only black and a dark red-violet (hue 0.93) are enabled.
    SetPens(job.g, {{0, 0, 0, 0.35f}, {120, 0, 60, 0.35f}});
    job.g.Begin(FormParameters(210, 297, 1));
    job.g.DefineColor(9, 1.0f, 0.0f, 0.0f);  // far from both; hue 1.0
    int strokes = 0;
    float spacing = 0;
    // Red-violet: r max, g min -> 5 + b' with b' = 60/120 -> 5.5/6 = 0.9167, 0.083 from 1.0.
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(9, 0.35f, strokes, spacing), 2);
}

TEST(SelectPenForColor, PrintThicknessTakesFirstCandidateWithOneStroke) {
    HPGLJob job(false);
    SetPens(job.g, {{100, 100, 100, 0.35f}, {110, 100, 100, 0.7f}}, 1);
    job.g.Begin(FormParameters(210, 297, 1));
    job.g.DefineColor(5, 105 / 255.0f, 100 / 255.0f, 100 / 255.0f);
    int strokes = 0;
    float spacing = 0;
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(5, 0.7f, strokes, spacing), 1);
    EXPECT_EQ(strokes, 1);
    EXPECT_EQ(spacing, 0.0f);
}

TEST(SelectPenForColor, NoEnabledPenGivesPenZero) {
    HPGLJob job(false);
    std::array<float, 32> r{}, gr{}, b{}, w{};
    std::array<int, 32> e{};
    w.fill(0.35f);
    job.g.hpglSettings->SetPens(32, r.data(), gr.data(), b.data(), w.data(), e.data());
    job.g.Begin(FormParameters(210, 297, 1));
    job.g.DefineColor(1, 0, 0, 0);
    int strokes = 0;
    float spacing = 0;
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(1, 0.35f, strokes, spacing), 0);
}

TEST(SelectPenForColor, WithoutTablesGivesPenZero) {
    HPGL2Peer g;  // no HP-GL job started: no pen table
    int strokes = 5;
    float spacing = 5;
    EXPECT_EQ(g.hpgl.SelectPenForColor(1, 0.35f, strokes, spacing), 0);
    EXPECT_EQ(strokes, 1);
    EXPECT_EQ(spacing, 0.0f);
}

// fuzz/regressions/pentables/pen-thinner-than-a-plotter-unit: a pen far thinner than a plotter
// unit drew a wide line as 100000 parallel strokes, closer together than the plotter can place
// them. It gets a stroke for each plotter unit the width spans.
TEST(SelectPenForColor, PenThinnerThanAPlotterUnitDrawsAStrokeAPlotterUnit) {
    HPGLJob job(false);
    SetPens(job.g, {{0, 0, 0, 1e-30f}, {0, 0, 0, 0.02f}, {0, 0, 0, 0.025f}});
    job.g.Begin(FormParameters(210, 297, 1));
    int strokes = 0;
    float spacing = 0;
    job.g.hpgl.MatchWidth(1, 2.5f, strokes, spacing);
    // 2.5 mm are 100 plotter units: 101 strokes one unit apart.
    EXPECT_EQ(strokes, 101);
    EXPECT_EQ(spacing, 1.0f);
    job.g.hpgl.MatchWidth(2, 0.5f, strokes, spacing);
    // 0.48 mm are 19.2 units: 20 strokes.
    EXPECT_EQ(strokes, 20);
    EXPECT_FLOAT_EQ(spacing, 19.2f / 19);
    // A pen of one plotter unit keeps the count of every real pen: 2 * (20 + 1.05) = 42.
    job.g.hpgl.MatchWidth(3, 0.5f, strokes, spacing);
    EXPECT_EQ(strokes, 42);
    EXPECT_FLOAT_EQ(spacing, 19.0f / 41);
}

TEST(PenTableFile, RecordsOverrideAndBadOnesAreIgnored) {
    TableFolder folder;
    folder.Write("PenTable",
                 "1 10 20 30 0.5\n"
                 "40 1 2 3 0.7\n"  // no slot 40: ignored
                 "3 50 60 70 0.25\n");
    ScopedEnv tmp("TMPDIR", folder.Dir());
    ScopedEnv table("HPGL2_PEN_TABLE", "");
    ScopedEnv test("TestPrint", std::nullopt);
    HPGLJob job(false);
    testing::internal::CaptureStdout();
    job.g.Begin(FormParameters(210, 297, 1));
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(job.g.hpgl.pens.Count(), 32);
    EXPECT_EQ(job.g.Pen(1).red, 10.0f);
    EXPECT_EQ(job.g.Pen(1).green, 20.0f);
    EXPECT_EQ(job.g.Pen(1).blue, 30.0f);
    EXPECT_EQ(job.g.Pen(1).width, 0.5f);
    EXPECT_EQ(job.g.Pen(3).red, 50.0f);
    EXPECT_EQ(job.g.Pen(3).width, 0.25f);
    EXPECT_EQ(job.g.Pen(2).width, 0.35f);
    EXPECT_EQ(job.g.Pen(31).enable, 1);
    // The end of the file stores the last record once more, and prints it.
    const std::string dump3 =
        "numpen = 3\n  red   = 50\n  green = 60\n  blue  = 70\n  thickness = 0.25\n";
    EXPECT_EQ(printed, "PenTable file for HPGL generation = " + folder.Dir() + "PenTable\n" +
                           "numpen = 1\n  red   = 10\n  green = 20\n  blue  = 30\n"
                           "  thickness = 0.5\n"
                           "numpen = 40\n  red   = 1\n  green = 2\n  blue  = 3\n"
                           "  thickness = 0.7\n" +
                           dump3 + dump3);
}

TEST(PenTableFile, MalformedRecordEndsTheReading) {
    TableJob t("PenTable", "HPGL2_PEN_TABLE", "2 1 2 3 0.4\n5 x 0 0 0.3\n6 9 9 9 0.9\n");
    HPGL2Peer& g = t.job.g;
    EXPECT_EQ(g.Pen(2).red, 1.0f);
    // "5 x": the pen is read, red fails; the record is still stored with what was left, then the
    // reading ends. Pen 6 is never read.
    EXPECT_EQ(g.Pen(5).width, 0.4f);
    EXPECT_EQ(g.Pen(6).width, 0.35f);
}

TEST(PenTableFile, ShortLastRecord) {
    TableJob t("PenTable", "HPGL2_PEN_TABLE", "2 1 2 3 0.4\n4 7 8");
    HPGL2Peer& g = t.job.g;
    EXPECT_EQ(g.Pen(4).red, 7.0f);
    EXPECT_EQ(g.Pen(4).green, 8.0f);
    EXPECT_EQ(g.Pen(4).blue, 3.0f);  // left from the record before
    EXPECT_EQ(g.Pen(4).width, 0.4f);
}

TEST(PenTableFile, ThicknessBeyondThePlotterIsNotTaken) {
    // 3e7 mm is beyond the plotter's 2^30 - 1 units; 26843544 mm is the largest float within.
    // 1e39 overflows the float: the stream stores the largest float and the reading ends.
    TableJob t("PenTable", "HPGL2_PEN_TABLE",
               "2 1 2 3 3e7\n3 4 5 6 26843544\n4 7 8 9 -3e7\n5 1 1 1 1e39\n");
    HPGL2Peer& g = t.job.g;
    ASSERT_TRUE(g.hpgl.hasPens);
    // The colours are taken; the thickness keeps the table's 0.35 mm.
    EXPECT_EQ(g.Pen(2).red, 1.0f);
    EXPECT_EQ(g.Pen(2).width, 0.35f);
    EXPECT_EQ(g.Pen(3).width, 26843544.0f);
    EXPECT_EQ(g.Pen(4).red, 7.0f);
    EXPECT_EQ(g.Pen(4).width, 0.35f);
    EXPECT_EQ(g.Pen(5).red, 1.0f);
    EXPECT_EQ(g.Pen(5).width, 0.35f);
}

TEST(PenTableFile, MissingFileLeavesNoTable) {
    TableFolder folder;
    ScopedEnv tmp("TMPDIR", folder.Dir());
    ScopedEnv table("HPGL2_PEN_TABLE", "1");
    HPGLJob job(false);
    testing::internal::CaptureStdout();
    job.g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_FALSE(job.g.hpgl.hasPens);
    job.g.DefineColor(1, 0, 0, 0);
    job.g.SelectDrawColor(1);
    job.g.LineTo(10, 10);
    EXPECT_EQ(job.g.Take(), "PU0,0PR;SP1;");  // pen 0: nothing drawn
}

TEST(PenTableFile, TestInstallationFolder) {
    TableFolder folder;
    // The test folder is named with a Windows separator after it.
    const std::string base = folder.Dir() + "qmb";
    std::ofstream(base + "\\PenTable") << "1 5 5 5 0.3\n";
    ScopedEnv table("HPGL2_PEN_TABLE", "1");
    ScopedEnv test("TestPrint", "1");
    ScopedEnv dir("QMB_RWX_TMP", base);
    HPGLJob job(false);
    testing::internal::CaptureStdout();
    job.g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(testing::internal::GetCapturedStdout().substr(0, 60),
              ("PenTable file for HPGL generation = " + base + "\\PenTable\n").substr(0, 60));
    ASSERT_TRUE(job.g.hpgl.hasPens);
    EXPECT_EQ(job.g.Pen(1).red, 5.0f);
}

TEST(ColorTableFile, SeparatorRule) {
    TableFolder folder;
    folder.Write("ColorTable",
                 "255 0 0:3\n"
                 "0 255 0 5\n"
                 "0 0 255 : 6\n"  // the blank is the separator, ':' ends the reading
                 "255 255 0 4\n");
    ScopedEnv tmp("TMPDIR", folder.Dir());
    ScopedEnv colors("HPGL2_COLOR_TABLE", "1");
    HPGLJob job(false);
    testing::internal::CaptureStdout();
    job.g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "ColorTable file for HPGL generation = " + folder.Dir() + "ColorTable\n");
    job.g.DefineColor(1, 1, 0, 0);
    job.g.DefineColor(2, 0, 1, 0);
    job.g.DefineColor(3, 0, 0, 1);
    job.g.DefineColor(4, 1, 1, 0);
    int strokes = 0;
    float spacing = 0;
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(1, 0.35f, strokes, spacing), 3);  // table: red is pen 3
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(2, 0.35f, strokes, spacing), 5);
    // Not reached in the table: the nearest colour wins.
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(3, 0.35f, strokes, spacing), 5);
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(4, 0.35f, strokes, spacing), 4);
    job.g.End();
    EXPECT_FALSE(job.g.hpgl.colorTable.IsOpen());
}

TEST(ColorTableFile, IsReadOnceAtJobStart) {
    TableJob t("ColorTable", "HPGL2_COLOR_TABLE", "255 0 0 3\n0 255 0 5\n255 0 0 7\n");
    // What the file says once the job has started does not count.
    t.folder.Write("ColorTable", "255 0 0 9\n");
    EXPECT_EQ(t.PensOf(255, 0, 0), (std::vector<int>{3, 7}));  // file order
    EXPECT_EQ(t.PensOf(0, 255, 0), (std::vector<int>{5}));
    EXPECT_EQ(t.PensOf(0, 0, 255), (std::vector<int>{}));
    t.job.g.End();
    EXPECT_TRUE(t.job.g.hpgl.colorTable.Records().empty());
}

TEST(ColorTableFile, ColoursBeyondTheScaleAreLookedUpInTheFile) {
    TableJob t("ColorTable", "HPGL2_COLOR_TABLE", "510 0 0 4\n-1 0 0 6\n255 0 0 32\n255 0 0 0\n");
    EXPECT_TRUE(t.job.g.hpgl.colorTable.Records().empty());
    EXPECT_EQ(t.PensOf(510, 0, 0), (std::vector<int>{4}));
    EXPECT_EQ(t.PensOf(-1, 0, 0), (std::vector<int>{6}));
    // Pens 32 and 0 are not pens of the table.
    EXPECT_EQ(t.PensOf(255, 0, 0), (std::vector<int>{}));
}

TEST(ColorTableFile, ComponentsBeyondTheIntegersHoldAtTheirLimits) {
    TableJob t("ColorTable", "HPGL2_COLOR_TABLE", "2147483647 0 0 7\n-2147483648 0 0 9\n");
    HPGL2Peer& g = t.job.g;
    g.DefineColor(1, 1e30f, 0, 0);
    g.DefineColor(2, -1e30f, 0, 0);
    int strokes = 0;
    float spacing = 0;
    // Red times 255 is beyond the int either way: held at its limits, which the table names.
    EXPECT_EQ(g.hpgl.SelectPenForColor(1, 0.35f, strokes, spacing), 7);
    EXPECT_EQ(g.hpgl.SelectPenForColor(2, 0.35f, strokes, spacing), 9);
}

TEST(ColorTableFile, SeveralPensChooseByThickness) {
    TableFolder folder;
    folder.Write("ColorTable", "10 10 10 2\n10 10 10 6\n10 10 10 40\n");
    ScopedEnv tmp("TMPDIR", folder.Dir());
    ScopedEnv colors("HPGL2_COLOR_TABLE", "1");
    HPGLJob job(false);
    SetPens(job.g, {{0, 0, 0, 0.35f},
                    {0, 0, 0, 0.18f},
                    {0, 0, 0, 0.35f},
                    {0, 0, 0, 0.35f},
                    {0, 0, 0, 0.35f},
                    {0, 0, 0, 0.7f}});
    testing::internal::CaptureStdout();
    job.g.Begin(FormParameters(210, 297, 1));
    testing::internal::GetCapturedStdout();
    job.g.DefineColor(1, 10 / 255.0f, 10 / 255.0f, 10 / 255.0f);
    int strokes = 0;
    float spacing = 0;
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(1, 0.2f, strokes, spacing), 2);
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(1, 0.7f, strokes, spacing), 6);
    // The pen nearest in thickness is thinner than the width: parallel strokes.
    EXPECT_EQ(strokes, 1);
    EXPECT_EQ(job.g.hpgl.SelectPenForColor(1, 1.4f, strokes, spacing), 6);
    EXPECT_EQ(strokes, 6);
    EXPECT_FLOAT_EQ(spacing, 5.6f);
}

}  // namespace
