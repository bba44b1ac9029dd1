#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <random>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintMemoryStream.h"
#include "host/job/VRKJobPlayer.h"
#include "support/CommaLocale.h"
#include "support/Printable.h"
#include "support/RecordingGenerator.h"
#include "support/TempFolder.h"
#include "support/TestPng.h"

namespace {

// The calls a generator saw, one a line.
std::string callsOf(const RecordingGenerator& generator) {
    std::string out;
    for (const std::string& call : generator.calls) {
        out += call + "\n";
    }
    return out;
}

// What a job does: the calls the generator saw, one a line, and "error: FILE:LINE: message" at
// the end when the job was refused.
std::string play(const std::string& job, RecordingGenerator& generator,
                 const std::string& folder = "") {
    VRKJobPlayer player(generator);
    std::istringstream in(job);
    const bool ok = player.Play(in, "JOB", folder);
    std::string out = callsOf(generator);
    if (!ok) {
        out += "error: " + player.GetError().ToString() + "\n";
    } else if (!player.GetError().message.empty()) {
        out += "success with a message: " + player.GetError().message + "\n";
    }
    return out;
}

std::string play(const std::string& job) {
    RecordingGenerator generator;
    return play(job, generator);
}

// Only the error of a job, or "" when it succeeded.
std::string errorOf(const std::string& job) {
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    std::istringstream in(job);
    return player.Play(in, "JOB", "") ? std::string() : player.GetError().ToString();
}

// A job with `line` between Begin and End.
std::string errorOfLine(const std::string& line) {
    return errorOf("Begin\n" + line + "\nEnd\n");
}

const std::string kBeginDefaults = "Begin w=210 h=297 o=1 r=0 c=0 m=0,0,0,0 t=0\n";

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

// ---- Errors, one class after the other -------------------------------------------------------

TEST(JobPlayerErrors, UnknownVerb) {
    EXPECT_EQ(errorOf("Begin\nMoveTo 1 2\nFrobnicate 3\nEnd\n"),
              "JOB:3: unknown verb 'Frobnicate'");
    // DrawPolyQuadBezier is a host call but not a job file line.
    EXPECT_EQ(errorOfLine("DrawPolyQuadBezier 3 0 0 1 1 2 0"),
              "JOB:2: unknown verb 'DrawPolyQuadBezier'");
    EXPECT_EQ(errorOf("\"Begin\"\n"),
              "JOB:1: a line starts with a verb, not with the string "
              "'\"Begin\"'");
}

TEST(JobPlayerErrors, MissingArgument) {
    EXPECT_EQ(errorOfLine("MoveTo 1"), "JOB:2: MoveTo: missing argument; usage: MoveTo x y");
    EXPECT_EQ(errorOfLine("DrawArcCircle 1 2 3 4 5"),
              "JOB:2: DrawArcCircle: missing argument; usage: DrawArcCircle cx cy r start end "
              "filled");
    EXPECT_EQ(errorOfLine("DrawPolyline"),
              "JOB:2: DrawPolyline: missing argument; usage: DrawPolyline n x1 y1 ... xn yn");
    EXPECT_EQ(errorOfLine("SetLineStyle"),
              "JOB:2: SetLineStyle: missing argument; usage: SetLineStyle v, or SetLineStyle attr "
              "length [p1 p2 ...]");
    EXPECT_EQ(errorOfLine("DrawText 1 2"),
              "JOB:2: DrawText: missing argument; usage: DrawText x y \"text\"");
    EXPECT_EQ(errorOfLine("DrawBitmap 1 2"),
              "JOB:2: DrawBitmap: missing argument; usage: DrawBitmap x y \"file.png\" [pw ph]");
    EXPECT_EQ(errorOfLine("DrawBitmap 1 2 \"a.png\" 0.5"),
              "JOB:2: DrawBitmap: a pixel width without a pixel height; usage: DrawBitmap x y "
              "\"file.png\" [pw ph]");
}

TEST(JobPlayerErrors, ExtraArgument) {
    EXPECT_EQ(errorOfLine("MoveTo 1 2 3"), "JOB:2: MoveTo: extra argument '3'; usage: MoveTo x y");
    EXPECT_EQ(errorOf("Begin\nEnd now\n"), "JOB:2: End: extra argument 'now'; usage: End");
    EXPECT_EQ(errorOfLine("SelectDrawColor 1 2"),
              "JOB:2: SelectDrawColor: extra argument '2'; usage: SelectDrawColor i");
    EXPECT_EQ(errorOfLine("DrawText 1 2 \"a\" \"b\""),
              "JOB:2: DrawText: extra argument '\"b\"'; usage: DrawText x y \"text\"");
}

TEST(JobPlayerErrors, NotANumber) {
    EXPECT_EQ(errorOfLine("MoveTo 1 y"), "JOB:2: MoveTo: 'y' is not a number");
    EXPECT_EQ(errorOfLine("MoveTo 1,5 2"), "JOB:2: MoveTo: '1,5' is not a number");
    EXPECT_EQ(errorOfLine("MoveTo 0x10 2"), "JOB:2: MoveTo: '0x10' is not a number");
    EXPECT_EQ(errorOfLine("MoveTo inf 2"), "JOB:2: MoveTo: 'inf' is not a number");
    EXPECT_EQ(errorOfLine("MoveTo nan 2"), "JOB:2: MoveTo: 'nan' is not a number");
    EXPECT_EQ(errorOfLine("MoveTo \"1\" 2"),
              "JOB:2: MoveTo: expected a number, not the string '\"1\"'");
    EXPECT_EQ(errorOfLine("SetDrawWidth 0.35mm"), "JOB:2: SetDrawWidth: '0.35mm' is not a number");
    EXPECT_EQ(errorOfLine("DrawText 1 2 text"),
              "JOB:2: DrawText: expected a string in double quotes, got 'text'; usage: DrawText x "
              "y \"text\"");
}

TEST(JobPlayerErrors, NumbersBeyondTheFloatRange) {
    EXPECT_EQ(errorOfLine("MoveTo 1e39 2"), "JOB:2: MoveTo: '1e39' is beyond the range of a float");
    EXPECT_EQ(errorOfLine("LineTo 1 -1e400"),
              "JOB:2: LineTo: '-1e400' is beyond the range of a float");
}

// Lengths and coordinates must fit the plotter: 2^30 - 1 plotter units of 0.025 mm either way,
// that is at most 26843544 mm as a float.
const std::string kBeyond = "' is beyond the plotter's range (at most 26843544 mm either way)";

TEST(JobPlayerErrors, CoordinatesBeyondThePlotter) {
    EXPECT_EQ(errorOfLine("MoveTo 6e7 1"), "JOB:2: MoveTo: '6e7" + kBeyond);
    EXPECT_EQ(errorOfLine("LineTo 1 -26843546"), "JOB:2: LineTo: '-26843546" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawText 10 1e12 \"x\""), "JOB:2: DrawText: '1e12" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawPolyline 2 0 0 1e8 0"), "JOB:2: DrawPolyline: '1e8" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawPolygon 1 -3e38 0"), "JOB:2: DrawPolygon: '-3e38" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawPolyBezier 1 0 3e7"), "JOB:2: DrawPolyBezier: '3e7" + kBeyond);
    EXPECT_EQ(errorOfLine("FillArea 1 3 0 0 1e8 0 0 1"), "JOB:2: FillArea: '1e8" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawArcCircle 3e7 0 1 0 1 0"), "JOB:2: DrawArcCircle: '3e7" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawArcEllipse 0 3e7 1 1 0 1 0 0"),
              "JOB:2: DrawArcEllipse: '3e7" + kBeyond);
    // Checked before the bitmap is read.
    EXPECT_EQ(errorOfLine("DrawBitmap 0 1e9 \"missing.png\""), "JOB:2: DrawBitmap: '1e9" + kBeyond);
}

TEST(JobPlayerErrors, LengthsBeyondThePlotter) {
    EXPECT_EQ(errorOfLine("SetDrawWidth 3e38"), "JOB:2: SetDrawWidth: '3e38" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawArcCircle 0 0 1e8 0 1 0"), "JOB:2: DrawArcCircle: '1e8" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawArcEllipse 0 0 1 -3e7 0 1 0 0"),
              "JOB:2: DrawArcEllipse: '-3e7" + kBeyond);
    EXPECT_EQ(errorOfLine("DrawBitmap 0 0 \"missing.png\" 1e8 1"),
              "JOB:2: DrawBitmap: '1e8" + kBeyond);
    EXPECT_EQ(errorOfLine("SetLineStyle 5 1e8"), "JOB:2: SetLineStyle: '1e8" + kBeyond);
    EXPECT_EQ(errorOfLine("SetLineStyle 5 10 1 1e8"), "JOB:2: SetLineStyle: '1e8" + kBeyond);
    // The text size (kind 2) is a length; the other kinds are not.
    EXPECT_EQ(errorOfLine("SetTextAttribute 2 1e8"), "JOB:2: SetTextAttribute: '1e8" + kBeyond);
    EXPECT_EQ(errorOf("Begin width=3e38\nEnd\n"), "JOB:1: Begin: width: '3e38" + kBeyond);
    EXPECT_EQ(errorOf("Begin height=1e9\nEnd\n"), "JOB:1: Begin: height: '1e9" + kBeyond);
    EXPECT_EQ(errorOf("Begin margins=0,0,0,3e7\nEnd\n"), "JOB:1: Begin: margins: '3e7" + kBeyond);
    EXPECT_EQ(errorOf("Begin\nStartNewPage width=26843546\nEnd\n"),
              "JOB:2: StartNewPage: width: '26843546" + kBeyond);
}

TEST(JobPlayer, LengthsUpToThePlotterRange) {
    // 26843545 becomes the float 26843544; angles, colours and enumeration values are no lengths.
    EXPECT_EQ(play("Begin width=26843544 margins=0,0,0,26843544\n"
                   "MoveTo 26843544 -26843544\nLineTo -26843545 0\n"
                   "DrawArcCircle 0 0 1 1e30 -1e30 0\n"
                   "SetTextAttribute 7 1e38\nSetTextAttribute 6 -1e30\nEnd\n"),
              "Begin w=26843544 h=297 o=1 r=0 c=0 m=0,0,0,26843544 t=0\n"
              "MoveTo 26843544 -26843544\nLineTo -26843544 0\n"
              "DrawArcCircle 0 0 1 1e+30 -1e+30 0\n"
              "SetTextAttribute 7 1e+38\nSetTextAttribute 6 -1e+30\nEnd\n");
}

// An out-of-range value in a run of common lines stops the run there: the general path reports
// it, and the line's call is not made.
TEST(JobPlayerCommonLines, CoordinateBeyondThePlotterInARun) {
    EXPECT_EQ(
        play("Begin\nMoveTo 1 2\nLineTo 3 4\nLineTo 6e7 4\nLineTo 5 6\nEnd\n"),
        kBeginDefaults + "MoveTo 1 2\nLineTo 3 4\nerror: JOB:4: LineTo: '6e7" + kBeyond + "\n");
    EXPECT_EQ(play("Begin\nLineTo 3 4\nFillArea 1 3 0 0 10 0 0 -1e9\nEnd\n"),
              kBeginDefaults + "LineTo 3 4\nerror: JOB:3: FillArea: '-1e9" + kBeyond + "\n");
    EXPECT_EQ(play("Begin\nLineTo 3 4\nDrawArcCircle 0 0 3e7 0 1 0\nEnd\n"),
              kBeginDefaults + "LineTo 3 4\nerror: JOB:3: DrawArcCircle: '3e7" + kBeyond + "\n");
}

TEST(JobPlayerErrors, NotAnInteger) {
    EXPECT_EQ(errorOfLine("SelectDrawColor 1.5"),
              "JOB:2: SelectDrawColor: '1.5' is not an integer");
    EXPECT_EQ(errorOfLine("SelectDrawColor 2.0"),
              "JOB:2: SelectDrawColor: '2.0' is not an integer");
    EXPECT_EQ(errorOfLine("DrawPolyline 1e1 0 0"), "JOB:2: DrawPolyline: '1e1' is not an integer");
    EXPECT_EQ(errorOfLine("SetLineCap 10.0"), "JOB:2: SetLineCap: '10.0' is not an integer");
    EXPECT_EQ(errorOfLine("DrawArcCircle 1 2 3 4 5 1.0"),
              "JOB:2: DrawArcCircle: '1.0' is not an integer");
    EXPECT_EQ(errorOfLine("SelectFillColor 2147483648"),
              "JOB:2: SelectFillColor: '2147483648' is beyond the range of an integer");
    EXPECT_EQ(errorOfLine("SetTextAttribute 2.5 1"),
              "JOB:2: SetTextAttribute: '2.5' is not an integer");
    EXPECT_EQ(errorOfLine("SetLineStyle 5.5 10"), "JOB:2: SetLineStyle: '5.5' is not an integer");
    EXPECT_EQ(errorOf("Begin orientation=1.0\nEnd\n"),
              "JOB:1: Begin: orientation: '1.0' is not an integer");
}

TEST(JobPlayerErrors, CountDoesNotMatchThePoints) {
    EXPECT_EQ(errorOfLine("DrawPolyline 3 0 0 1 1 2"),
              "JOB:2: DrawPolyline: 3 points need 6 coordinates; 5 given");
    EXPECT_EQ(errorOfLine("DrawPolygon 1 0 0 1 1"),
              "JOB:2: DrawPolygon: 1 point needs 2 coordinates; 4 given");
    EXPECT_EQ(errorOfLine("DrawPolyBezier 2147483647 0 0"),
              "JOB:2: DrawPolyBezier: 2147483647 points need 4294967294 coordinates; 2 given");
    EXPECT_EQ(errorOfLine("DrawPolyline -1"),
              "JOB:2: DrawPolyline: a negative point count; usage: DrawPolyline n x1 y1 ... xn yn");
    EXPECT_EQ(errorOfLine("FillArea 2 3 4  0 0 10 0 5 5  20 20 30 20 30 30"),
              "JOB:2: FillArea: the 2 polygons have 7 points, which need 14 coordinates; 12 given");
    EXPECT_EQ(errorOfLine("FillArea 1 3  0 0 10 0 5 5 9"),
              "JOB:2: FillArea: the 1 polygon has 3 points, which need 6 coordinates; 7 given");
    EXPECT_EQ(errorOfLine("FillArea 3 1"),
              "JOB:2: FillArea: 3 polygons need 3 vertex counts; 1 given");
    EXPECT_EQ(errorOfLine("FillArea -1"),
              "JOB:2: FillArea: a negative polygon count; usage: FillArea k n1 ... nk x y ...");
    EXPECT_EQ(errorOfLine("FillArea 1 -3 0 0"),
              "JOB:2: FillArea: a negative vertex count; usage: FillArea k n1 ... nk x y ...");
    EXPECT_EQ(errorOfLine("FillArea 2 2147483647 2147483647 0 0"),
              "JOB:2: FillArea: the 2 polygons have 4294967294 points, which need 8589934588 "
              "coordinates; 2 given");
}

TEST(JobPlayerErrors, UnterminatedString) {
    EXPECT_EQ(errorOfLine("DrawText 1 2 \"Plan 7"), "JOB:2: unterminated string '\"Plan 7'");
}

TEST(JobPlayerErrors, BadEscape) {
    EXPECT_EQ(errorOfLine("DrawText 1 2 \"a\\u00e9\""),
              "JOB:2: bad escape '\\u' in a string (known escapes: \\\" \\\\ \\n \\t \\xHH)");
    EXPECT_EQ(errorOfLine("DrawText 1 2 \"\\x1\""),
              "JOB:2: bad escape '\\x1\"' in a string: \\x takes two hex digits");
}

TEST(JobPlayerErrors, UnknownBeginKey) {
    EXPECT_EQ(errorOf("Begin width=210 paper=A4\nEnd\n"),
              "JOB:1: Begin: unknown key 'paper' (keys: width height orientation rotation "
              "colorMode margins textAsGeometry)");
    EXPECT_EQ(errorOf("Begin Width=210\nEnd\n"),
              "JOB:1: Begin: unknown key 'Width' (keys: width height orientation rotation "
              "colorMode margins textAsGeometry)");
    EXPECT_EQ(errorOf("Begin\nStartNewPage colour=1\nEnd\n"),
              "JOB:2: StartNewPage: unknown key 'colour' (keys: width height orientation rotation "
              "colorMode margins textAsGeometry)");
}

TEST(JobPlayerErrors, MalformedBeginKeys) {
    EXPECT_EQ(errorOf("Begin width 210\n"),
              "JOB:1: Begin: expected key=value, got 'width'; usage: Begin [key=value ...]");
    EXPECT_EQ(errorOf("Begin width = 210\n"),
              "JOB:1: Begin: expected key=value, got 'width'; usage: Begin [key=value ...]");
    EXPECT_EQ(errorOf("Begin =210\n"),
              "JOB:1: Begin: expected key=value, got '=210'; usage: Begin [key=value ...]");
    EXPECT_EQ(errorOf("Begin \"width=210\"\n"),
              "JOB:1: Begin: expected key=value, got '\"width=210\"'; usage: Begin [key=value "
              "...]");
    EXPECT_EQ(errorOf("Begin width=\n"), "JOB:1: Begin: width: '' is not a number");
    EXPECT_EQ(errorOf("Begin width=210 width=220\n"),
              "JOB:1: Begin: the key 'width' is given twice");
    EXPECT_EQ(errorOf("Begin width=0\n"), "JOB:1: Begin: width must be greater than 0");
    EXPECT_EQ(errorOf("Begin height=-5\n"), "JOB:1: Begin: height must be greater than 0");
    EXPECT_EQ(errorOf("Begin orientation=2\n"), "JOB:1: Begin: orientation must be 0 or 1, got 2");
    EXPECT_EQ(errorOf("Begin rotation=4\n"), "JOB:1: Begin: rotation must be 0 to 3, got 4");
    EXPECT_EQ(errorOf("Begin colorMode=-1\n"), "JOB:1: Begin: colorMode must be 0 to 2, got -1");
    EXPECT_EQ(errorOf("Begin textAsGeometry=2\n"),
              "JOB:1: Begin: textAsGeometry must be 0 or 1, got 2");
    EXPECT_EQ(errorOf("Begin margins=1,2,3\n"),
              "JOB:1: Begin: margins takes four values, left,top,right,bottom; got '1,2,3'");
    EXPECT_EQ(errorOf("Begin margins=1,2,3,4,5\n"),
              "JOB:1: Begin: margins takes four values, left,top,right,bottom; got '1,2,3,4,5'");
    EXPECT_EQ(errorOf("Begin margins=1,,3,4\n"), "JOB:1: Begin: margins: '' is not a number");
    EXPECT_EQ(errorOf("Begin margins=1,2,-3,4\n"), "JOB:1: Begin: margins must not be negative");
}

TEST(JobPlayerErrors, DrawingBeforeBegin) {
    EXPECT_EQ(errorOf("MoveTo 1 2\nBegin\nEnd\n"), "JOB:1: MoveTo before Begin");
    EXPECT_EQ(errorOf("# comment\n\nEnd\n"), "JOB:3: End before Begin");
    EXPECT_EQ(errorOf("StartNewPage\n"), "JOB:1: StartNewPage before Begin");
}

TEST(JobPlayerErrors, DrawingAfterEnd) {
    EXPECT_EQ(errorOf("Begin\nEnd\nLineTo 1 2\n"),
              "JOB:3: LineTo after End (the job ended on line 2)");
    EXPECT_EQ(errorOf("Begin\nEnd\n\nEnd\n"), "JOB:4: End after End (the job ended on line 2)");
    EXPECT_EQ(errorOf("Begin\nEnd\nBegin\nEnd\n"),
              "JOB:3: Begin after End (the job ended on line 2)");
}

TEST(JobPlayerErrors, SecondBegin) {
    EXPECT_EQ(errorOf("\nBegin\nMoveTo 1 2\nBegin\nEnd\n"),
              "JOB:4: a second Begin (the job began on line 2)");
}

TEST(JobPlayerErrors, MissingEndIsReportedAtTheLastLine) {
    EXPECT_EQ(errorOf("Begin\nMoveTo 1 2\n"),
              "JOB:2: missing End at the end of the file (the job began on line 1)");
    EXPECT_EQ(errorOf("Begin\nMoveTo 1 2"),
              "JOB:2: missing End at the end of the file (the job began on line 1)");
    // Trailing comments and empty lines count as lines.
    EXPECT_EQ(errorOf("Begin\nMoveTo 1 2\n# done\n\n"),
              "JOB:4: missing End at the end of the file (the job began on line 1)");
}

TEST(JobPlayerErrors, NoJobAtAll) {
    EXPECT_EQ(errorOf(""), "JOB:1: no Begin in the file: a job runs from Begin to End");
    EXPECT_EQ(errorOf("# only a comment\n\n"),
              "JOB:2: no Begin in the file: a job runs from Begin to End");
}

TEST(JobPlayerErrors, ValuesOutsideTheirStatedRanges) {
    EXPECT_EQ(errorOfLine("DrawArcCircle 1 2 3 4 5 2"),
              "JOB:2: DrawArcCircle: filled must be 0 or 1; usage: DrawArcCircle cx cy r start "
              "end filled");
    EXPECT_EQ(errorOfLine("DrawArcEllipse 1 2 3 4 5 6 7 -1"),
              "JOB:2: DrawArcEllipse: filled must be 0 or 1; usage: DrawArcEllipse cx cy rx ry "
              "start end rotation filled");
    EXPECT_EQ(errorOfLine("DefineColor 1 0 1.5 0"),
              "JOB:2: DefineColor: colour components run from 0.0 to 1.0, got '1.5'; usage: "
              "DefineColor i r g b");
    EXPECT_EQ(errorOfLine("DefineColor 1 -0.1 0 0"),
              "JOB:2: DefineColor: colour components run from 0.0 to 1.0, got '-0.1'; usage: "
              "DefineColor i r g b");
}

TEST(JobPlayerErrors, LineWithAnErrorMakesNoCall) {
    RecordingGenerator generator;
    EXPECT_EQ(play("Begin\nMoveTo 1 2\nDrawPolyline 3 0 0 1 1 2 x\nLineTo 5 5\nEnd\n", generator),
              kBeginDefaults + "MoveTo 1 2\nerror: JOB:3: DrawPolyline: 'x' is not a number\n");
}

TEST(JobPlayerErrors, GeneratorFailure) {
    RecordingGenerator generator;
    generator.failIn = "LineTo";
    EXPECT_EQ(play("Begin\nMoveTo 1 2\nLineTo 3 4\nLineTo 5 6\nEnd\n", generator),
              kBeginDefaults + "MoveTo 1 2\nerror: JOB:3: the generator failed in LineTo\n");
}

// ---- Bitmaps ---------------------------------------------------------------------------------

class JobPlayerBitmaps : public ::testing::Test {
  protected:
    TempFolder folder{"bitmaps"};
};

TEST_F(JobPlayerBitmaps, PathIsTakenFromTheJobFilesFolder) {
    std::filesystem::create_directory(folder.File("img"));
    // 2 x 1 RGB at 500 pixels a metre (2 mm a pixel).
    folder.Write("img/two.png", TestPng::Build(2, 1, 8, 2, std::string("\0abcdef", 7),
                                               {{"pHYs", TestPng::Phys(500, 500, 1)}}));
    const std::string job = folder.Write("job.job",
                                         "Begin\n"
                                         "DrawBitmap 10 20 \"img/two.png\"\n"
                                         "DrawBitmap 1 2 \"img/two.png\" 0.5 0.25\n"
                                         "End\n");
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    ASSERT_TRUE(player.PlayFile(job)) << player.GetError().ToString();
    ASSERT_EQ(generator.calls.size(), 4u);
    EXPECT_EQ(generator.calls[1], "DrawBitmap 10 20 2x1 format=2 pixel=2,2 616263646566");
    EXPECT_EQ(generator.calls[2], "DrawBitmap 1 2 2x1 format=2 pixel=0.5,0.25 616263646566");
}

TEST_F(JobPlayerBitmaps, AbsolutePathAndDefaultPixelSize) {
    const std::string png =
        folder.Write("grey.png", TestPng::Build(1, 1, 8, 0, std::string("\0\x7F", 2)));
    RecordingGenerator generator;
    EXPECT_EQ(play("Begin\nDrawBitmap 0 0 \"" + png + "\"\nEnd\n", generator, "/nowhere"),
              kBeginDefaults + "DrawBitmap 0 0 1x1 format=0 pixel=0.254,0.254 7f\nEnd\n");
}

TEST_F(JobPlayerBitmaps, ImagesLongerThanARollAreRefused) {
    // 100 x 2 pixels at one pixel a metre is 100 m wide: the largest allowed. 101 pixels are not.
    folder.Write("fits.png", TestPng::Build(100, 2, 8, 0, std::string(202, '\0'),
                                            {{"pHYs", TestPng::Phys(1, 1, 1)}}));
    folder.Write("long.png", TestPng::Build(101, 2, 8, 0, std::string(204, '\0'),
                                            {{"pHYs", TestPng::Phys(1, 1, 1)}}));
    const std::string job = folder.Write("job.job",
                                         "Begin\n"
                                         "DrawBitmap 0 0 \"fits.png\"\n"
                                         "DrawBitmap 0 0 \"fits.png\" 0.1 50001\n"
                                         "End\n");
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayFile(job));
    EXPECT_EQ(player.GetError().ToString(),
              job + ":3: DrawBitmap: the image '" + folder.File("fits.png") +
                  "' would be 10 mm x 100002 mm at its pixel size; an image may be at most 100 m "
                  "on either side");
    ASSERT_EQ(generator.calls.size(), 2u);
    EXPECT_EQ(generator.calls[1].substr(0, 42), "DrawBitmap 0 0 100x2 format=0 pixel=1000,1");

    const std::string job2 = folder.Write("job2.job", "Begin\nDrawBitmap 0 0 \"long.png\"\nEnd\n");
    EXPECT_FALSE(player.PlayFile(job2));
    EXPECT_EQ(player.GetError().ToString(),
              job2 + ":2: DrawBitmap: the image '" + folder.File("long.png") +
                  "' would be 101000 mm x 2000 mm at its pixel size; an image may be at most 100 m "
                  "on either side");
}

TEST_F(JobPlayerBitmaps, BitmapThatCannotBeRead) {
    folder.Write("text.png", "Begin\n");
    const std::string job = folder.Write("job.job",
                                         "Begin\n"
                                         "DrawBitmap 0 0 \"missing.png\"\n"
                                         "End\n");
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayFile(job));
    EXPECT_EQ(player.GetError().ToString(), job + ":2: DrawBitmap: cannot read the bitmap '" +
                                                folder.Path() +
                                                "/missing.png': No such file or directory");
    EXPECT_EQ(errorOf("Begin\nDrawBitmap 0 0 \"" + folder.File("text.png") + "\"\nEnd\n"),
              "JOB:2: DrawBitmap: cannot read the bitmap '" + folder.File("text.png") +
                  "': not a PNG file");
    EXPECT_EQ(errorOfLine("DrawBitmap 0 0 \"\""),
              "JOB:2: DrawBitmap: an empty file name; usage: DrawBitmap x y \"file.png\" [pw ph]");
    EXPECT_EQ(errorOfLine("DrawBitmap 0 0 \"a.png\" 0 1"),
              "JOB:2: DrawBitmap: the pixel width and height must be greater than 0; usage: "
              "DrawBitmap x y \"file.png\" [pw ph]");
    EXPECT_EQ(errorOfLine("DrawBitmap 0 0 a.png"),
              "JOB:2: DrawBitmap: expected a string in double quotes, got 'a.png'; usage: "
              "DrawBitmap x y \"file.png\" [pw ph]");
}

// ---- Files, streaming, locale ----------------------------------------------------------------

TEST(JobPlayerFiles, FileThatCannotBeOpened) {
    TempFolder folder("files");
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayFile(folder.File("none.job")));
    EXPECT_EQ(player.GetError().ToString(),
              folder.File("none.job") + ": cannot open the job file: No such file or directory");
    EXPECT_FALSE(player.PlayFile(folder.Path()));
    EXPECT_EQ(player.GetError().ToString(),
              folder.Path() + ": cannot open the job file: it is a folder");
    EXPECT_TRUE(generator.calls.empty());
}

TEST(JobPlayerFiles, ErrorTextHasFileLineAndMessage) {
    EXPECT_EQ((VRKJobError{"a.job", 3, "unknown verb 'X'"}).ToString(),
              "a.job:3: unknown verb 'X'");
    EXPECT_EQ((VRKJobError{"a.job", 0, "cannot open"}).ToString(), "a.job: cannot open");
}

TEST(JobPlayerFiles, LinesLongerThanTheLimitAreRefused) {
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    player.SetMaxLineLength(11);
    std::istringstream fits("Begin\nMoveTo 1 23\nEnd\n");  // 11 bytes before the LF
    EXPECT_TRUE(player.Play(fits, "JOB", "")) << player.GetError().ToString();
    std::istringstream tooLong("Begin\nMoveTo 1 234\nEnd\n");
    EXPECT_FALSE(player.Play(tooLong, "JOB", ""));
    EXPECT_EQ(player.GetError().ToString(), "JOB:2: the line is longer than 11 bytes");
}

TEST(JobPlayerFiles, EndlessLineFromADevice) {
    // /dev/zero never ends a line: the default limit, 1 MiB, stops it.
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayFile("/dev/zero"));
    EXPECT_EQ(player.GetError().ToString(), "/dev/zero:1: the line is longer than 1048576 bytes");
}

TEST(JobPlayerFiles, DefaultLimitIsOneMebibyte) {
    // A comment of exactly 1 MiB is a line like any other; one byte more is refused.
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    std::istringstream fits("Begin\n#" + std::string(1048575, 'c') + "\nEnd\n");
    EXPECT_TRUE(player.Play(fits, "JOB", "")) << player.GetError().ToString();
    std::istringstream tooLong("Begin\n#" + std::string(1048576, 'c') + "\nEnd\n");
    EXPECT_FALSE(player.Play(tooLong, "JOB", ""));
    EXPECT_EQ(player.GetError().ToString(), "JOB:2: the line is longer than 1048576 bytes");
}

TEST(JobPlayerFiles, PlayerCanBeUsedAgain) {
    RecordingGenerator first;
    VRKJobPlayer player(first);
    std::istringstream bad("Begin\nOops\n");
    EXPECT_FALSE(player.Play(bad, "a", ""));
    std::istringstream good("Begin\nEnd\n");
    EXPECT_TRUE(player.Play(good, "b", ""));
    EXPECT_EQ(player.GetError().message, "");
}

// A stream of `lines` MoveTo lines between Begin and End, made as it is read, that counts the
// bytes handed out so far.
class GeneratedJob : public std::streambuf {
  public:
    explicit GeneratedJob(long lines) : lines_(lines) {}
    long long handedOut = 0;

  protected:
    int_type underflow() override {
        if (next_ > lines_ + 1) {
            return traits_type::eof();
        }
        current_ = next_ == 0       ? "Begin\n"
                   : next_ > lines_ ? "End\n"
                                    : "MoveTo " + std::to_string(next_) + " " +
                                          std::to_string(next_ % 100) + "\n";
        ++next_;
        handedOut += static_cast<long long>(current_.size());
        setg(current_.data(), current_.data(), current_.data() + current_.size());
        return traits_type::to_int_type(current_[0]);
    }

  private:
    long lines_;
    long next_ = 0;
    std::string current_;
};

// Records how much of the job had been read when each call arrived.
class ProgressGenerator final : public VRKPrintGenerator {
  public:
    explicit ProgressGenerator(const GeneratedJob& job)
        : VRKPrintGenerator("Progress"), job_(job) {}
    long long readAtFirstMove = -1;
    long moves = 0;

  protected:
    void DrvMoveTo(float, float) override {
        if (moves++ == 0) {
            readAtFirstMove = job_.handedOut;
        }
    }

  private:
    const GeneratedJob& job_;
};

TEST(JobPlayerFiles, PlayerStreamsLineByLine) {
    // Half a million lines, some 7 MB: the first call arrives after the first lines were read,
    // not after the whole job.
    constexpr long kLines = 500000;
    GeneratedJob job(kLines);
    std::istream in(&job);
    ProgressGenerator generator(job);
    VRKJobPlayer player(generator);
    ASSERT_TRUE(player.Play(in, "generated", "")) << player.GetError().ToString();
    EXPECT_EQ(generator.moves, kLines);
    EXPECT_GT(generator.readAtFirstMove, 0);
    EXPECT_LT(generator.readAtFirstMove, 100);
    EXPECT_GT(job.handedOut, 7000000);
}

TEST(JobPlayerFiles, NumbersDoNotDependOnTheLocale) {
    const std::string& locales = CommaLocaleFolder();
    ASSERT_FALSE(locales.empty()) << "localedef could not build " << kCommaLocale
                                  << " (Debian package locales)";
    ::setenv("LOCPATH", locales.c_str(), 1);
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, kCommaLocale), nullptr);
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    const std::string result =
        play("Begin width=210.5 margins=1.5,0,0,0\nMoveTo 1.25 -0.5e1\nEnd\n");
    const std::string comma = errorOfLine("MoveTo 1,25 2");
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_EQ(result, "Begin w=210.5 h=297 o=1 r=0 c=0 m=1.5,0,0,0 t=0\nMoveTo 1.25 -5\nEnd\n");
    EXPECT_EQ(comma, "JOB:2: MoveTo: '1,25' is not a number");
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

namespace {

// Lines of plain numbers are read straight from the line; the same line with a comment after it
// goes through the lexer. Both must make the same call with the same values.
TEST(JobPlayerCommonLines, SameCallsAsTheLexedLines) {
    const std::vector<std::string> lines = {
        "LineTo 1.5 -2",
        "MoveTo\t+.5   7.",
        "LineTo 0.1 0.30000000000000004441",
        "LineTo 1e3 -2.5E-2",
        "LineTo 123456789012345678901 1e30",
        "LineTo 3.4028234663852886e38 -0",
        "LineTo 0.000000000000000000000001 12345.678",
        "DrawArcCircle 10 20 5 0 6.283185307179586 1",
        "DrawArcCircle 10 20 5 0 6.283185307179586 0",
        "FillArea 2 3 4  0 0 10 0 5 5  20 20 30 20 30 30 20 30",
        "FillArea 1 0",
        "FillArea 0",
        "SelectDrawColor +7",
        "SelectFillColor -3",
        "SelectDrawColor 2147483647",
    };
    for (const std::string& line : lines) {
        EXPECT_EQ(play("Begin\n" + line + "\nEnd\n"), play("Begin\n" + line + " # lexed\nEnd\n"))
            << line;
    }
}

// A common line at the very end of the file, without a line end, is read like any other.
TEST(JobPlayerCommonLines, LastLineWithoutLineEnd) {
    EXPECT_EQ(play("Begin\nLineTo 1.5 2"), play("Begin\nLineTo 1.5 2 # lexed"));
    EXPECT_EQ(play("Begin\nSelectDrawColor 3"), play("Begin\nSelectDrawColor 3 # lexed"));
    EXPECT_EQ(play("Begin\nLineTo 1.5 2\r"), play("Begin\nLineTo 1.5 2 # lexed\r"));
}

// A line too long for the limit makes no call, even with the verb of the line before.
TEST(JobPlayerCommonLines, LengthLimitComesFirst) {
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    player.SetMaxLineLength(12);
    std::istringstream in("Begin\nLineTo 1 2\nLineTo 1.5 2.25\nEnd\n");
    EXPECT_FALSE(player.Play(in, "JOB", ""));
    EXPECT_EQ(player.GetError().ToString(), "JOB:3: the line is longer than 12 bytes");
    ASSERT_EQ(generator.calls.size(), 2u);
    EXPECT_EQ(generator.calls[1], "LineTo 1 2");
}

// A stream that hands out its text a few bytes at a time, as a pipe may: lines are cut at every
// place by the end of what has been read.
class TrickleBuffer : public std::streambuf {
  public:
    TrickleBuffer(std::string text, std::size_t piece) : text_(std::move(text)), piece_(piece) {}

  protected:
    int_type underflow() override {
        if (at_ >= text_.size()) {
            return traits_type::eof();
        }
        const std::size_t n = std::min(piece_, text_.size() - at_);
        char* const start = text_.data() + at_;
        setg(start, start, start + n);
        at_ += n;
        return traits_type::to_int_type(*start);
    }

  private:
    std::string text_;
    std::size_t piece_;
    std::size_t at_ = 0;
};

// A job of every common verb, one after another and repeated, with blanks, tabs and CR LF ends.
std::string mixedCommonJob(int repeats) {
    std::string job = "Begin\n";
    for (int i = 0; i < repeats; ++i) {
        const std::string n = std::to_string(i % 997) + "." + std::to_string(i % 13);
        job += "SelectDrawColor " + std::to_string(i % 8) + "\n";
        job += "MoveTo " + n + " -" + n + "\n";
        job += "LineTo\t" + n + "  0.125\r\n";
        job += "LineTo 1 " + n + " \n";
        job += "LineTo 2 3 # a comment sends this one to the lexer\n";
        job += "DrawArcCircle " + n + " 20 5 0 6.283185307179586 " + std::to_string(i % 2) + "\n";
        job += "SelectFillColor " + std::to_string(i % 5) + "\n";
        job += "FillArea 1 3 0 0 " + n + " 0 5 5\n";
        job += "SetDrawWidth 0.35\n";
    }
    return job + "End\n";
}

// What the lexer makes of the same job: every line with a comment, so that none is common.
std::string lexedCalls(const std::string& job) {
    std::string lexed;
    std::size_t start = 0;
    while (start < job.size()) {
        std::size_t end = job.find('\n', start);
        std::string line = job.substr(start, end - start);
        const bool cr = !line.empty() && line.back() == '\r';
        if (cr) {
            line.pop_back();
        }
        lexed +=
            line + (line.find('#') == std::string::npos ? " # lexed" : "") + (cr ? "\r\n" : "\n");
        start = end + 1;
    }
    return play(lexed);
}

// Common lines read in the buffer make the calls the lexer makes, wherever the reads cut them.
TEST(JobPlayerCommonLines, RunsInTheBufferMakeTheLexersCalls) {
    const std::string job = mixedCommonJob(40);
    const std::string expected = lexedCalls(job);
    ASSERT_EQ(expected.find("error"), std::string::npos) << expected;
    ASSERT_NE(expected.find("FillArea 1 3 0 0 39 0 5 5"), std::string::npos)
        << expected.substr(0, 600);
    ASSERT_EQ(play(job), expected);
    for (const std::size_t piece : {1u, 2u, 3u, 7u, 64u, 1000u}) {
        RecordingGenerator generator;
        VRKJobPlayer player(generator);
        TrickleBuffer buffer(job, piece);
        std::istream in(&buffer);
        ASSERT_TRUE(player.Play(in, "JOB", "")) << piece << ": " << player.GetError().ToString();
        EXPECT_EQ(callsOf(generator), expected) << "pieces of " << piece << " bytes";
    }
}

// A file larger than one read: lines that the end of a read cuts are played all the same.
TEST(JobPlayerCommonLines, LinesAcrossReadsOfAFile) {
    TempFolder folder{"common-lines"};
    const std::string job = mixedCommonJob(6000);
    ASSERT_GT(job.size(), std::size_t{3} << 18);
    const std::string path = folder.Write("big.job", job);
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    ASSERT_TRUE(player.PlayFile(path)) << player.GetError().ToString();
    EXPECT_EQ(callsOf(generator), lexedCalls(job));
}

// Numbers next to the midpoint of two floats, where rounding twice (to a double, then to a float)
// is most easily got wrong, and random numbers of every length: common lines give the floats the
// careful reading of the lexer gives.
TEST(JobPlayerCommonLines, NumbersNearTheMidpointOfTwoFloats) {
    std::mt19937 random(20261122);
    std::uniform_real_distribution<float> magnitude(-3.0f, 7.0f);
    std::string job = "Begin\n";
    char text[64];
    for (int i = 0; i < 4000; ++i) {
        const float f = std::pow(10.0f, magnitude(random));
        const float next = std::nextafter(f, 1e30f);
        const double midpoint = (static_cast<double>(f) + next) / 2;
        for (const int digits : {15, 16, 17}) {
            std::snprintf(text, sizeof text, "%.*f",
                          digits - 1 - static_cast<int>(std::floor(std::log10(midpoint))),
                          midpoint);
            job += std::string("LineTo ") + text + " -" + text + "\n";
        }
        // Plain random numbers: up to 19 digits, any number of them after the point. Most lie
        // beyond the plotter's range, which a coordinate must not; an angle takes them all.
        std::uniform_int_distribution<int> count(1, 19);
        const int n = count(random);
        std::string number;
        for (int d = 0; d < n; ++d) {
            number += static_cast<char>('0' + random() % 10);
        }
        number.insert(random() % (n + 1), ".");
        job += "DrawArcCircle 0 0 1 " + number + " 1 0\n";
    }
    job += "End\n";
    const std::string expected = lexedCalls(job);
    ASSERT_EQ(expected.find("error"), std::string::npos) << expected.substr(expected.size() - 300);
    EXPECT_EQ(play(job), expected);
}

// A failure of the generator in a run of common lines stops at that line.
TEST(JobPlayerCommonLines, GeneratorFailureInARun) {
    RecordingGenerator generator;
    generator.failIn = "DrawArcCircle";
    EXPECT_EQ(play("Begin\nLineTo 1 2\nLineTo 3 4\nDrawArcCircle 1 2 3 0 1 0\nLineTo 5 6\nEnd\n",
                   generator),
              kBeginDefaults +
                  "LineTo 1 2\nLineTo 3 4\nerror: JOB:4: the generator failed in DrawArcCircle\n");
}

// A NUL byte ends nothing: the line goes to the lexer, which refuses it.
TEST(JobPlayerCommonLines, NulByteInALine) {
    using namespace std::string_literals;
    EXPECT_EQ(errorOf("Begin\nLineTo 1 2\nLineTo 1\0 2\nEnd\n"s),
              "JOB:3: LineTo: '1\\x00' is not a number");
    EXPECT_EQ(errorOf("Begin\nLineTo 1 2\nLineTo 1 2\0\nEnd\n"s),
              "JOB:3: LineTo: '2\\x00' is not a number");
}

// Lines that look common but are not keep the errors of the general path.
TEST(JobPlayerCommonLines, UncommonLinesKeepTheirErrors) {
    EXPECT_EQ(errorOfLine("LineTo 1 2 3"), "JOB:2: LineTo: extra argument '3'; usage: LineTo x y");
    EXPECT_EQ(errorOfLine("LineTo 1e39 2"), "JOB:2: LineTo: '1e39' is beyond the range of a float");
    EXPECT_EQ(errorOfLine("DrawArcCircle 1 2 3 0 1 2"),
              "JOB:2: DrawArcCircle: filled must be 0 or 1; usage: DrawArcCircle cx cy r start "
              "end filled");
    EXPECT_EQ(errorOfLine("SelectDrawColor 2147483648"),
              "JOB:2: SelectDrawColor: '2147483648' is beyond the range of an integer");
    EXPECT_EQ(errorOfLine("FillArea 1 3 0 0 1 0"),
              "JOB:2: FillArea: the 1 polygon has 3 points, which need 6 coordinates; 4 given");
    EXPECT_EQ(errorOf("LineTo 1 2\n"), "JOB:1: LineTo before Begin");
}

}  // namespace
