#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "host/core/VRKClassDictionary.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"

namespace {

const std::string kStart =
    "\x1b"
    "E"
    "\x1b"
    "%0B";
const std::string kDefaultsA4 =
    kStart + "INECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2";

TEST(HPGL2Generator, FactoryAndRegistration) {
    VRKBaseUnknown* object = fctCreateVRKPrintHPGL2Generator();
    ASSERT_NE(object, nullptr);
    auto* generator = dynamic_cast<VRKPrintHPGL2Generator*>(object);
    ASSERT_NE(generator, nullptr);
    EXPECT_STREQ(generator->IsA(), "VRKPrintHPGL2Generator");
    EXPECT_TRUE(generator->IsAKindOf("VRKPrintFileGenerator"));
    EXPECT_EQ(generator->GetLanguage().str(), "HPGL2");
    ASSERT_NE(generator->GetProperties(), nullptr);
    EXPECT_STREQ(generator->GetProperties()->IsA(), "VRKPrintHPGL2Properties");
    object->Release();

    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage("HPGL2");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->className, "VRKPrintHPGL2Generator");
    EXPECT_EQ(entry->framework, "Print");
    EXPECT_EQ(entry->factory, &fctCreateVRKPrintHPGL2Generator);
}

TEST(HPGL2Generator, InitialState) {
    HPGL2Peer g;
    EXPECT_EQ(g.beginPlotValue, -1);
    ASSERT_NE(g.properties, nullptr);
    EXPECT_EQ(g.hpglSettings, g.Record().GetHPGLProperties());
    EXPECT_EQ(g.originOffsetX, 0.0f);
    EXPECT_EQ(g.originOffsetY, 0.0f);
    EXPECT_EQ(g.encodedPolylineOpen, 0);
    EXPECT_EQ(g.currentDrawColor, 0);
    EXPECT_EQ(g.lastEncodedX, 0);
    EXPECT_EQ(g.lastEncodedY, 0);
    EXPECT_EQ(g.pageRotation, 0.0f);
    EXPECT_EQ(g.pageWidth, 0.0f);
    EXPECT_EQ(g.pageHeight, 0.0f);
    EXPECT_EQ(g.textAngleOffset, 0.0f);
    EXPECT_EQ(g.textSize, 4.0f);
    EXPECT_EQ(g.textWeight, 25);
    EXPECT_EQ(g.textTypeface, 48);
    EXPECT_EQ(g.fontChanged, 1);
    EXPECT_EQ(g.currentLineType, 1);
    // The first 64 colours of each table start at zero.
    for (int i = 0; i < 64; ++i) {
        EXPECT_EQ(g.hpgl.hostColors[i].red, 0.0f);
        EXPECT_EQ(g.hpgl.hostColors[i].green, 0.0f);
        EXPECT_EQ(g.hpgl.hostColors[i].blue, 0.0f);
    }
    EXPECT_EQ(g.Bytes(), "");
}

TEST(HPGL2Generator, HostDrawsDefaultFontUnlessItIsSwiss) {
    {
        HPGL2Peer g;  // the reference host's default font is DejaVu Sans
        EXPECT_EQ(g.hostDrawsDefaultFont, 1);
    }
    ::setenv("VRK_DEFAULT_FONT", "/opt/fonts/Swiss.pfb", 1);
    {
        HPGL2Peer g;
        EXPECT_EQ(g.hostDrawsDefaultFont, 0);
    }
    ::setenv("VRK_DEFAULT_FONT", "/opt/fonts/swiss.pfb", 1);  // the comparison is exact
    {
        HPGL2Peer g;
        EXPECT_EQ(g.hostDrawsDefaultFont, 1);
    }
    ::unsetenv("VRK_DEFAULT_FONT");
}

TEST(JobStart, A4PortraitWithDefaults) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_BYTES(kDefaultsA4, g.Bytes());
    EXPECT_EQ(g.pageWidth, 8400.0f);
    EXPECT_EQ(g.pageHeight, 11880.0f);
    EXPECT_TRUE(g.stream.IsFixed());
    EXPECT_EQ(g.stream.GetPrecision(), 2);
}

TEST(JobStart, MediaTypeCutterAndQualityZero) {
    HPGL2Peer g;
    g.Record().SetMediaType(0);
    g.Record().SetCutterState(0);
    g.Record().SetQuality(0);
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_BYTES(kStart + "INMT0EC1QL0PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2",
                 g.Bytes());
}

TEST(JobStart, CutterStateOneWritesBareEC) {
    HPGL2Peer g;
    g.Record().SetCutterState(1);
    g.Record().SetMediaType(6);
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_BYTES(kStart + "INMT6ECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2",
                 g.Bytes());
}

TEST(JobStart, CutterStateOtherValueWritesBareEC) {
    HPGL2Peer g;
    g.Record().SetCutterState(2);
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_BYTES(kDefaultsA4, g.Bytes());
}

TEST(JobStart, NegativeMediaTypeAndQualityWriteNothing) {
    HPGL2Peer g;
    g.Record().SetMediaType(-2);
    g.Record().SetQuality(-1);
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_BYTES(kStart + "INECPS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2", g.Bytes());
}

TEST(JobStart, BeginPlotValue) {
    HPGL2Peer g;
    g.beginPlotValue = 0;
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_BYTES(kStart + "BP5,0INECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2",
                 g.Bytes());

    HPGL2Peer h;
    h.beginPlotValue = 2;
    h.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(h.Bytes().substr(0, 13), kStart + "BP5,2IN");
}

TEST(JobStart, LandscapeOrientationSwapsAndRotates) {
    HPGL2Peer g;
    g.textAngleOffset = 30.0f;
    g.Begin(FormParameters(210, 297, 0));
    EXPECT_BYTES(kStart + "INECQL100PS11880,8400IP0,0,11880,8400RO270NP256TR0MC0SP0LA2,2,3,2",
                 g.Bytes());
    EXPECT_EQ(g.pageWidth, 11880.0f);
    EXPECT_EQ(g.pageHeight, 8400.0f);
    EXPECT_EQ(g.textAngleOffset, 0.0f);
}

TEST(JobStart, LandscapeOrientationWithWideForm) {
    HPGL2Peer g;
    g.Begin(FormParameters(297, 210, 0));
    // h (8400) is below w (11880): no rotation.
    EXPECT_BYTES(kStart + "INECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2",
                 g.Bytes());
    EXPECT_EQ(g.pageWidth, 8400.0f);
    EXPECT_EQ(g.pageHeight, 11880.0f);
}

TEST(JobStart, PortraitOrientationWithWideFormRotates) {
    HPGL2Peer g;
    g.textAngleOffset = 30.0f;
    g.Begin(FormParameters(297, 210, 1));
    EXPECT_BYTES(kStart + "INECQL100PS11880,8400IP0,0,11880,8400RO270NP256TR0MC0SP0LA2,2,3,2",
                 g.Bytes());
    // With the rotation written the offset is left as it was.
    EXPECT_EQ(g.textAngleOffset, 30.0f);
    EXPECT_EQ(g.pageWidth, 11880.0f);
}

TEST(JobStart, PortraitClearsTextAngleOffset) {
    HPGL2Peer g;
    g.textAngleOffset = 30.0f;
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(g.textAngleOffset, 0.0f);
}

TEST(JobStart, SquareFormRotatesInBothOrientations) {
    for (int orientation : {0, 1}) {
        HPGL2Peer g;
        g.Begin(FormParameters(100, 100, orientation));
        EXPECT_BYTES(kStart + "INECQL100PS4000,4000IP0,0,4000,4000RO270NP256TR0MC0SP0LA2,2,3,2",
                     g.Bytes());
    }
}

TEST(JobStart, OtherOrientationWritesNeitherPSNorIP) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 2));
    EXPECT_BYTES(kStart + "INECQL100NP256TR0MC0SP0LA2,2,3,2", g.Bytes());
}

TEST(JobStart, FormSizeTruncates) {
    HPGL2Peer g;
    g.Begin(FormParameters(100.02f, 200.049f, 1));
    // 100.02 * 40 = 4000.8, 200.049 * 40 = 8001.96: both truncated.
    EXPECT_BYTES(kStart + "INECQL100PS4000,8001IP0,0,4000,8001NP256TR0MC0SP0LA2,2,3,2", g.Bytes());
}

TEST(JobStart, FormSizesBeyondTheIntegersHoldAtTheirLimits) {
    HPGL2Peer g;
    g.Begin(FormParameters(3e38f, 297, 1));
    // The width is the int's largest: wider than high, so the page turns.
    EXPECT_BYTES(
        kStart + "INECQL100PS2147483647,11880IP0,0,2147483647,11880RO270NP256TR0MC0SP0LA2,2,3,2",
        g.Bytes());
    HPGL2Peer nan;
    nan.Begin(FormParameters(210, std::nanf(""), 0));
    // NaN gives 0: landscape writes h = 0 first.
    EXPECT_BYTES(kStart + "INECQL100PS0,8400IP0,0,0,8400NP256TR0MC0SP0LA2,2,3,2", nan.Bytes());
    HPGL2Peer negative;
    negative.Begin(FormParameters(-1e20f, 210, 1));
    EXPECT_BYTES(
        kStart + "INECQL100PS-2147483648,8400IP0,0,-2147483648,8400NP256TR0MC0SP0LA2,2,3,2",
        negative.Bytes());
}

TEST(JobStart, MarginsAreNotApplied) {
    HPGL2Peer g;
    VRKPrintParameters params = FormParameters(210, 297, 1);
    params.SetMargins(10, 20, 30, 40);
    g.Begin(params);
    EXPECT_BYTES(kDefaultsA4, g.Bytes());
}

TEST(JobStart, PageRotationSetting) {
    const float expected[] = {0.0f, 90.0f, 180.0f, 270.0f, 0.0f, 0.0f};
    const int settings[] = {0, 1, 2, 3, 4, -1};
    for (int i = 0; i < 6; ++i) {
        HPGL2Peer g;
        g.Begin(FormParameters(210, 297, 1, settings[i]));
        EXPECT_EQ(g.pageRotation, expected[i]) << "setting " << settings[i];
    }
}

TEST(JobStart, NoRecordWritesNothing) {
    HPGL2Peer g;
    g.properties->Release();
    g.properties = nullptr;
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(g.Bytes(), "");
    g.StartNewPage();
    EXPECT_EQ(g.Bytes(), "");
}

TEST(JobStart, OriginOffsetIsReset) {
    HPGL2Peer g;
    g.originOffsetX = 100.0f;
    g.Begin(FormParameters(210, 297, 1));
    EXPECT_EQ(g.originOffsetX, 0.0f);
}

TEST(JobEnd, WritesPenUpNoPenPageAdvance) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.End();
    EXPECT_BYTES(kDefaultsA4 + "PUSP0PG;", g.Bytes());
}

TEST(JobEnd, ClosesAnOpenPolyline) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.LineTo(1, 1);
    g.End();
    EXPECT_BYTES(kDefaultsA4 + "PE=\x4F\xC0\x4F\xC0;PUSP0PG;", g.Bytes());
    EXPECT_EQ(g.encodedPolylineOpen, 0);
}

TEST(NewPage, RepeatsOnlyThePageSetup) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.MoveTo(0, 0);
    g.StartNewPage(FormParameters(297, 420, 0));
    EXPECT_BYTES(kDefaultsA4 + "PE=<\xBF\xBF;RO0PG;PS16800,11880IP0,0,16800,11880RO270", g.Bytes());
    EXPECT_EQ(g.pageWidth, 16800.0f);
    EXPECT_EQ(g.pageHeight, 11880.0f);
    g.End();
}

TEST(NewPage, KeepsTheCurrentFormWithoutNewParameters) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.StartNewPage();
    EXPECT_BYTES(kDefaultsA4 + "RO0PG;PS8400,11880IP0,0,8400,11880", g.Bytes());
}

TEST(CoordinateTransform, TruncatesTowardZero) {
    HPGL2Peer g;
    int px = 99, py = 99;
    g.toPlotterUnits(0.0249f, -0.0249f, px, py);
    EXPECT_EQ(px, 0);
    EXPECT_EQ(py, 0);
    g.toPlotterUnits(0.025f, -0.025f, px, py);
    EXPECT_EQ(px, 1);
    EXPECT_EQ(py, -1);
    g.toPlotterUnits(10.0f, 297.0f, px, py);
    EXPECT_EQ(px, 400);
    EXPECT_EQ(py, 11880);
}

TEST(CoordinateTransform, OriginOffsetIsAddedBetweenTruncations) {
    HPGL2Peer g;
    g.originOffsetX = 0.5f;
    g.originOffsetY = -0.5f;
    int px, py;
    // 1 mm = 40 units; 40 + 0.5 = 40.5 truncates to 40, 40 - 0.5 = 39.5 to 39.
    g.toPlotterUnits(1.0f, 1.0f, px, py);
    EXPECT_EQ(px, 40);
    EXPECT_EQ(py, 39);
    g.originOffsetX = -1000.0f;
    g.toPlotterUnits(0.0249f, 0.0f, px, py);
    EXPECT_EQ(px, -1000);
}

TEST(CoordinateTransform, ValuesBeyondTheIntegersHoldAtTheirLimits) {
    HPGL2Peer g;
    int px = 99, py = 99;
    g.toPlotterUnits(6e7f, -1e30f, px, py);
    EXPECT_EQ(px, 2147483647);
    EXPECT_EQ(py, -2147483647 - 1);
    g.toPlotterUnits(std::numeric_limits<float>::infinity(), std::nanf(""), px, py);
    EXPECT_EQ(px, 2147483647);
    EXPECT_EQ(py, 0);
    // With an offset the sum is truncated again: beyond the int, held at its limit.
    g.originOffsetX = 1000.0f;
    g.originOffsetY = -1000.0f;
    g.toPlotterUnits(1e30f, -1e30f, px, py);
    EXPECT_EQ(px, 2147483647);
    EXPECT_EQ(py, -2147483647 - 1);
    g.toPlotterUnits(1.0f, std::nanf(""), px, py);
    EXPECT_EQ(px, 1040);
    EXPECT_EQ(py, -1000);
}

TEST(CloseEncodedPolyline, WritesSemicolonOnlyWhenOpen) {
    HPGL2Peer g;
    g.closeEncodedPolyline();
    EXPECT_EQ(g.Bytes(), "");
    g.encodedPolylineOpen = 1;
    g.closeEncodedPolyline();
    EXPECT_EQ(g.Bytes(), ";");
    EXPECT_EQ(g.encodedPolylineOpen, 0);
    g.closeEncodedPolyline();
    EXPECT_EQ(g.Bytes(), ";");
}

TEST(PolylineEncoded, MovesAndLinesShareOneInstruction) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    const std::size_t start = g.Bytes().size();
    g.MoveTo(10, 10);  // 400, 400
    g.MoveTo(10, 10);  // same point: nothing
    g.LineTo(11, 10);  // +40, 0
    g.LineTo(11, 10);  // zero-length line is still written
    g.MoveTo(10, 9);   // -40, -40
    g.End();
    // 400 -> u 800 = 12*64 + 32: digits 63+32, 191+12. 40 -> u 80 = 64 + 16: 63+16, 192.
    // -40 -> u 81: 63+17, 192.
    EXPECT_BYTES(
        "PE=<\x5F\xCB\x5F\xCB"
        "\x4F\xC0\xBF"
        "\xBF\xBF"
        "<\x50\xC0\x50\xC0"
        ";PUSP0PG;",
        g.Bytes().substr(start));
}

TEST(PolylineEncoded, FirstMoveAfterAnotherInstructionIsAbsolute) {
    HPGL2Peer g;
    g.Begin(FormParameters(210, 297, 1));
    g.MoveTo(1, 1);
    g.StartNewPage();
    const std::size_t start = g.Bytes().size();
    g.MoveTo(1, 1);
    EXPECT_BYTES("PE=<\x4F\xC0\x4F\xC0", g.Bytes().substr(start));
    g.End();
}

TEST(Destruction, ReleasesTheRecord) {
    auto* g = new HPGL2Peer;
    VRKPrintHPGL2Properties* record = g->properties;
    record->AddRef();
    delete g;
    EXPECT_EQ(record->GetRefCount(), 1u);
    record->Release();
}

}  // namespace
