// The job player: the errors of lines, one class after the other.

#include <gtest/gtest.h>

#include <string>

#include "host/job/VRKJobPlayer.h"
#include "job/JobPlay.h"
#include "support/RecordingGenerator.h"

namespace {

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

}  // namespace
