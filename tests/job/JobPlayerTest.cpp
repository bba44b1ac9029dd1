// The job player: lexical rules, every call, and what reaches the HP-GL/2 generator.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintMemoryStream.h"
#include "host/job/VRKJobPlayer.h"
#include "job/JobPlay.h"
#include "support/RecordingGenerator.h"

namespace {

// ---- Lexical rules ---------------------------------------------------------------------------

TEST(JobPlayer, SmallestJob) {
    EXPECT_EQ(play("Begin\nEnd\n"), kBeginDefaults + "End\n");
}

TEST(JobPlayer, EmptyLinesCommentsAndBlanksAreIgnored) {
    EXPECT_EQ(play("# header\n\n   \t\nBegin   # start\n\t  MoveTo\t1  2  \n  # indented\nEnd"),
              kBeginDefaults + "MoveTo 1 2\nEnd\n");
}

TEST(JobPlayer, CarriageReturnBeforeLineFeedIsIgnored) {
    EXPECT_EQ(play("Begin\r\nMoveTo 1 2\r\nEnd\r\n"), kBeginDefaults + "MoveTo 1 2\nEnd\n");
    // Without a final line feed too.
    EXPECT_EQ(play("Begin\r\nEnd\r"), kBeginDefaults + "End\n");
}

TEST(JobPlayer, CarriageReturnElsewhereIsNotABlank) {
    EXPECT_EQ(errorOfLine("MoveTo 1\r2"), "JOB:2: MoveTo: missing argument; usage: MoveTo x y");
}

TEST(JobPlayer, VerbsAreCaseSensitive) {
    EXPECT_EQ(errorOf("begin\nEnd\n"),
              "JOB:1: unknown verb 'begin' (verbs are case-sensitive: Begin)");
    EXPECT_EQ(errorOfLine("MOVETO 1 2"),
              "JOB:2: unknown verb 'MOVETO' (verbs are case-sensitive: MoveTo)");
}

TEST(JobPlayer, NumbersInTheCLocaleForm) {
    EXPECT_EQ(play("Begin\nMoveTo 10 -0.0249\nLineTo 1.5e3 +2\nLineTo .5 7.\nEnd\n"),
              kBeginDefaults + "MoveTo 10 -0.0249\nLineTo 1500 2\nLineTo 0.5 7\nEnd\n");
}

TEST(JobPlayer, CoordinatesAreDoublesNarrowedToFloats) {
    // 0.1 as a double, then as a float: 0.1f exactly, printed as its shortest form.
    EXPECT_EQ(play("Begin\nMoveTo 0.1 16777217\nEnd\n"),
              kBeginDefaults + "MoveTo 0.1 16777216\nEnd\n");
}

TEST(JobPlayer, StringsReachTheHostAsUtf8Bytes) {
    EXPECT_EQ(play("Begin\nDrawText 1 2 \"Caf\xC3\xA9 \\\"A\\\" \\\\ \\x03\\n\\t\"\nEnd\n"),
              kBeginDefaults + "DrawText 1 2 Caf\\xC3\\xA9 \"A\" \\\\ \\x03\\x0A\\x09\nEnd\n");
}

TEST(JobPlayer, ByteOrderMarkIsRefused) {
    EXPECT_EQ(errorOf("\xEF\xBB\xBF"
                      "Begin\nEnd\n"),
              "JOB:1: the file starts with a byte order mark; job files are UTF-8 without one");
}

TEST(JobPlayer, InvalidUtf8IsRefused) {
    EXPECT_EQ(errorOfLine("DrawText 0 0 \"\xFF\""), "JOB:2: the line is not valid UTF-8 (byte 15)");
}

// ---- Every call ------------------------------------------------------------------------------

TEST(JobPlayer, EveryCall) {
    RecordingGenerator generator;
    generator.patternLength = 3;
    const std::string job =
        "Begin width=420 height=297 orientation=0 rotation=1 colorMode=2 margins=1,2,3.5,4 "
        "textAsGeometry=1\n"
        "DefineColor 2 1 0 0.5\n"
        "SelectDrawColor 2\n"
        "SelectFillColor -1\n"
        "SetDrawWidth 0.35\n"
        "SetLineCap 12\n"
        "SetLineJoin 14\n"
        "SetLineStyle 3\n"
        "SetLineStyle 5 10 1 0.5 2\n"
        "SetLineStyle 6 4\n"
        "SetTextAttribute 2 3.5\n"
        "SetPolygonFillRule 1\n"
        "SetFillMode 2\n"
        "MoveTo 10 10\n"
        "LineTo 60 10\n"
        "DrawPolyline 3 0 0 1 1 2 0\n"
        "DrawPolygon 2 5 5 6 6\n"
        "DrawPolyBezier 4 0 0 1 2 3 2 4 0\n"
        "DrawArcCircle 50 50 10 0 3.14159 1\n"
        "DrawArcEllipse 50 50 10 5 0.5 1.5 0.25 0\n"
        "FillArea 2 3 4  0 0 10 0 5 5  20 20 30 20 30 30 20 30\n"
        "DrawText 5 6 \"Plan 7\"\n"
        "StartNewPage\n"
        "StartNewPage orientation=1 margins=0,0,0,0\n"
        "StartNewPage width=100\n"
        "End\n";
    EXPECT_EQ(play(job, generator),
              "Begin w=420 h=297 o=0 r=1 c=2 m=1,2,3.5,4 t=1\n"
              "DefineColor 2 1 0 0.5\n"
              "SelectDrawColor 2\n"
              "SelectFillColor -1\n"
              "SetDrawWidth 0.35\n"
              "SetLineCap 12\n"
              "SetLineJoin 14\n"
              "SetLineStyle 3\n"
              "SetLineStyle 5 10 1 0.5 2\n"
              "SetLineStyle 6 4 null\n"
              "SetTextAttribute 2 3.5\n"
              "SetPolygonFillRule 1\n"
              "SetFillMode 2\n"
              "MoveTo 10 10\n"
              "LineTo 60 10\n"
              "DrawPolyline 3 0 0 1 1 2 0\n"
              "DrawPolygon 2 5 5 6 6\n"
              "DrawPolyBezier 4 0 0 1 2 3 2 4 0\n"
              "DrawArcCircle 50 50 10 0 3.14159 1\n"
              "DrawArcEllipse 50 50 10 5 0.5 1.5 0.25 0\n"
              "FillArea 2 3 4 0 0 10 0 5 5 20 20 30 20 30 30 20 30\n"
              "DrawText 5 6 Plan 7\n"
              "StartNewPage w=420 h=297 o=0 r=1 c=2 m=1,2,3.5,4 t=1\n"
              "StartNewPage w=420 h=297 o=1 r=1 c=2 m=0,0,0,0 t=1\n"
              "StartNewPage w=100 h=297 o=1 r=1 c=2 m=0,0,0,0 t=1\n"
              "End\n");
    // The base keeps what the generators read.
    EXPECT_EQ(generator.GetPolygonFillRule(), 0);  // the recording hook replaces the default
    EXPECT_EQ(generator.GetTextAsGeometry(), 1);
}

TEST(JobPlayer, BeginStartsFromTheDefaultsEachTime) {
    // Keys not given to Begin take the defaults, not the values of an earlier job.
    RecordingGenerator generator;
    EXPECT_EQ(play("Begin width=100\nEnd\n", generator),
              "Begin w=100 h=297 o=1 r=0 c=0 m=0,0,0,0 t=0\nEnd\n");
    generator.calls.clear();
    EXPECT_EQ(play("Begin\nEnd\n", generator), kBeginDefaults + "End\n");
}

TEST(JobPlayer, EmptyCountsAreCalls) {
    EXPECT_EQ(play("Begin\nDrawPolyline 0\nFillArea 0\nFillArea 1 0\nEnd\n"),
              kBeginDefaults + "DrawPolyline 0\nFillArea 0\nFillArea 1 0\nEnd\n");
}

TEST(JobPlayer, ManyPointsOnOneLine) {
    std::string line = "DrawPolyline 100000";
    std::string expected = "DrawPolyline 100000";
    for (int i = 0; i < 100000; ++i) {
        line += " " + std::to_string(i) + " " + std::to_string(i % 7);
        expected += " " + std::to_string(i) + " " + std::to_string(i % 7);
    }
    EXPECT_EQ(play("Begin\n" + line + "\nEnd\n"), kBeginDefaults + expected + "\nEnd\n");
}

// ---- Into the HP-GL/2 generator --------------------------------------------------------------

TEST(JobPlayerHPGL2, FrameOfAnA4Job) {
    VRKPrintHPGL2Generator generator;
    VRKPrintMemoryStream stream;
    generator.Attach(&stream);
    VRKJobPlayer player(generator);
    std::istringstream in("Begin width=210 height=297 orientation=1\nEnd\n");
    ASSERT_TRUE(player.Play(in, "a4", "")) << player.GetError().ToString();
    generator.Attach(nullptr);
    EXPECT_BYTES(
        "\x1b"
        "E\x1b%0BINECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2PUSP0PG;",
        stream.Data());
}

TEST(JobPlayerHPGL2, MovesAndLines) {
    VRKPrintHPGL2Generator generator;
    VRKPrintMemoryStream stream;
    generator.Attach(&stream);
    VRKJobPlayer player(generator);
    std::istringstream in("Begin\nMoveTo 1 1\nLineTo 2 1\nEnd\n");
    ASSERT_TRUE(player.Play(in, "lines", "")) << player.GetError().ToString();
    generator.Attach(nullptr);
    // PE=, pen up to (40,40) plotter units, then a line of (+40,0). 40 folds to 80: low six bits
    // 16 as '?' + 16 = 'O', the last bit 1 in the terminator 191 + 1 = 0xC0; 0 is the bare
    // terminator 0xBF.
    EXPECT_BYTES(
        "\x1b"
        "E\x1b%0BINECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2"
        "PE=<O\xC0O\xC0O\xC0\xBF;PUSP0PG;",
        stream.Data());
}

}  // namespace
