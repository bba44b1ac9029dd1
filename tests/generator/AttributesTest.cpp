#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/HPGL2Peer.h"
#include "support/Printable.h"

namespace {

struct Plot {
    Plot() {
        g.Begin(FormParameters(210, 297, 1));
        g.Take();
    }
    // Opens a PE run, so that the next call shows whether it closes it.
    void OpenRun() {
        g.MoveTo(0, 0);
        g.Take();
    }
    HPGL2Peer g;
};

TEST(LineAttributes, WidthInMillimetres) {
    Plot p;
    p.OpenRun();
    p.g.SetDrawWidth(0.35f);
    p.g.SetDrawWidth(1.0f);
    EXPECT_EQ(p.g.Take(), ";PW0.35PW1.00");
}

TEST(LineAttributes, Caps) {
    Plot p;
    p.OpenRun();
    for (int cap : {10, 11, 12, 13, 0}) {
        p.g.SetLineCap(static_cast<VRKPrintLineAttribute>(cap));
    }
    EXPECT_EQ(p.g.Take(), ";LA1,1LA1,2LA1,4LA1,0LA1,0");
}

TEST(LineAttributes, Joins) {
    Plot p;
    p.OpenRun();
    for (int join : {13, 14, 15, 12, 0}) {
        p.g.SetLineJoin(static_cast<VRKPrintLineAttribute>(join));
    }
    EXPECT_EQ(p.g.Take(), ";LA2,1LA2,4LA2,5LA2,0LA2,0");
}

TEST(LineAttributes, CapsAndJoinsWriteNothingInHPGL) {
    HPGL2Peer g;
    g.UseHPGL();
    g.SetLineCap(VRKLineCapRound);
    g.SetLineJoin(VRKLineJoinRound);
    EXPECT_EQ(g.Take(), "");
}

TEST(LineStyles, IntegerForm) {
    struct Case {
        int style, type;
        float length;
    };
    const Case cases[] = {{2, 2, 2.0f}, {3, 3, 5.5f}, {4, 5, 10.0f},  {5, 6, 12.0f}, {6, 8, 0.0f},
                          {7, 8, 0.0f}, {1, 1, 0.0f}, {42, 42, 0.0f}, {-3, -3, 0.0f}};
    for (const Case& c : cases) {
        Plot p;
        p.g.linePatternLength = 0.0f;
        p.OpenRun();
        p.g.SetLineStyle(c.style);
        EXPECT_EQ(p.g.Take(), ";") << c.style;  // closes the run, writes no LT
        EXPECT_EQ(p.g.currentLineType, c.type) << c.style;
        EXPECT_EQ(p.g.linePatternLength, c.length) << c.style;
    }
    // Solid and unknown styles keep the pattern length.
    Plot p;
    p.g.SetLineStyle(5);
    p.g.SetLineStyle(1);
    EXPECT_EQ(p.g.linePatternLength, 12.0f);
    p.g.SetLineStyle(99);
    EXPECT_EQ(p.g.linePatternLength, 12.0f);
    EXPECT_EQ(p.g.currentLineType, 99);
}

TEST(LineStyles, AttributeForm) {
    struct Case {
        int attribute, type;
        float length;
    };
    const Case cases[] = {{1, 2, 2.0f}, {2, 3, 5.5f}, {3, 5, 10.0f}, {4, 6, 12.0f},
                          {5, 8, 7.5f}, {6, 8, 7.5f}, {7, 8, 7.5f}};
    const float pattern[] = {1.0f, 2.0f};
    for (const Case& c : cases) {
        Plot p;
        p.g.SetLineStyle(static_cast<VRKPrintLineAttribute>(c.attribute), 7.5f, pattern);
        EXPECT_EQ(p.g.currentLineType, c.type) << c.attribute;
        EXPECT_EQ(p.g.linePatternLength, c.length) << c.attribute;
    }
    Plot p;
    p.g.SetLineStyle(VRKLineStyleDot, 0.0f, nullptr);
    p.g.SetLineStyle(VRKLineStyleSolid, 9.0f, nullptr);
    EXPECT_EQ(p.g.currentLineType, 1);
    EXPECT_EQ(p.g.linePatternLength, 5.5f);
    p.g.SetLineStyle(static_cast<VRKPrintLineAttribute>(12), 9.0f, nullptr);
    EXPECT_EQ(p.g.currentLineType, 1);
    EXPECT_EQ(p.g.linePatternLength, 5.5f);
    EXPECT_EQ(p.g.Take(), "");
}

TEST(TextAttributes, Slant) {
    Plot p;
    p.OpenRun();
    p.g.SetTextAttribute(VRKTextSlant, 15.0f);
    p.g.SetTextAttribute(VRKTextSlant, 0.0f);
    p.g.SetTextAttribute(VRKTextSlant, 45.0f);
    p.g.SetTextAttribute(VRKTextSlant, -10.0f);
    // tan(45 deg) is just below 1 in doubles: -99.99... truncates to -99.
    EXPECT_EQ(p.g.Take(), ";SL-0.26SL0.00SL-0.99SL0.17");
    EXPECT_EQ(p.g.textSlant, -10.0f);
}

TEST(TextAttributes, DirectionWithThePageOffset) {
    Plot p;
    p.g.SetTextAttribute(VRKTextDirection, 0.0f);
    p.g.SetTextAttribute(VRKTextDirection, 90.0f);
    p.g.SetTextAttribute(VRKTextDirection, 30.0f);  // sin is 0.4999...: 0.49
    p.g.SetTextAttribute(VRKTextDirection, 180.0f);
    p.g.textAngleOffset = 90.0f;
    p.g.SetTextAttribute(VRKTextDirection, 0.0f);
    EXPECT_EQ(p.g.Take(), "DI1.00,0.00DI0.00,1.00DI0.86,0.49DI-1.00,0.00DI0.00,1.00");
}

TEST(TextAttributes, Anchors) {
    Plot p;
    for (int anchor = 27; anchor <= 40; ++anchor) {
        p.g.SetTextAttribute(VRKTextAnchor, static_cast<float>(anchor));
    }
    EXPECT_EQ(p.g.Take(), "LO1LO11LO1LO2LO3LO14LO4LO5LO6LO17LO7LO8LO9LO1");
}

TEST(TextAttributes, ValuesBeyondTheIntegers) {
    Plot p;
    // A quarter turn either way leans by a tangent beyond the int: held at its limits.
    p.g.SetTextAttribute(VRKTextSlant, 90.0f);
    p.g.SetTextAttribute(VRKTextSlant, -90.0f);
    // Enumeration values that are no integer at all pick nothing.
    p.g.SetTextAttribute(VRKTextAnchor, 1e38f);
    p.g.SetTextAttribute(VRKTextAnchor, -1e38f);
    p.g.SetTextAttribute(VRKTextAnchor, std::nanf(""));
    p.g.SetTextAttribute(VRKTextFont, 3e9f);
    p.g.SetTextAttribute(VRKTextWeight, -3e9f);
    EXPECT_EQ(p.g.Take(), "SL-21474836.48SL21474836.47LO1LO1LO1");
    EXPECT_EQ(p.g.textTypeface, 48);
    EXPECT_EQ(p.g.textWeight, 25);
}

TEST(TextAttributes, KindsThatWriteNothingStillCloseTheRun) {
    for (int kind : {1, 3, 8, 9, 0, 2, 4}) {
        Plot p;
        p.OpenRun();
        p.g.SetTextAttribute(static_cast<VRKPrintTextAttribute>(kind), 25.0f);
        EXPECT_EQ(p.g.Take(), ";") << kind;
    }
}

TEST(TextAttributes, FontsToTypefaces) {
    const int fonts[] = {12, 13, 14, 15, 16, 17, 18, 19, 20, 21};
    const int typefaces[] = {3, 4, 5, 3, 31, 47, 23, 15, 43, 45};
    for (int i = 0; i < 10; ++i) {
        Plot p;
        p.g.fontChanged = 0;
        p.g.SetTextAttribute(VRKTextFont, static_cast<float>(fonts[i]));
        EXPECT_EQ(p.g.textTypeface, typefaces[i]) << fonts[i];
        EXPECT_EQ(p.g.fontChanged, 1);
    }
    Plot p;
    p.g.SetTextAttribute(VRKTextFont, 13.0f);
    p.g.SetTextAttribute(VRKTextFont, 99.0f);  // unknown: kept
    EXPECT_EQ(p.g.textTypeface, 4);
}

TEST(TextAttributes, DefaultFontDependsOnWhoDrawsIt) {
    Plot p;
    p.g.hostDrawsDefaultFont = 1;
    p.g.SetTextAttribute(VRKTextFont, 11.0f);
    EXPECT_EQ(p.g.textTypeface, -1);
    p.g.hostDrawsDefaultFont = 0;
    p.g.SetTextAttribute(VRKTextFont, 11.0f);
    EXPECT_EQ(p.g.textTypeface, 3);
}

TEST(TextAttributes, Weights) {
    const int weights[] = {23, 24, 25, 26, 27};
    const int strokes[] = {-7, -3, 0, 3, 7};
    for (int i = 0; i < 5; ++i) {
        Plot p;
        p.g.SetTextAttribute(VRKTextWeight, static_cast<float>(weights[i]));
        EXPECT_EQ(p.g.textWeight, strokes[i]);
    }
    Plot p;
    p.g.SetTextAttribute(VRKTextWeight, 30.0f);
    EXPECT_EQ(p.g.textWeight, 25);  // never set: the initial 25 stays
    EXPECT_EQ(p.g.fontChanged, 1);
}

TEST(TextAttributes, HPGLLeavesEverythingToTheHost) {
    HPGL2Peer g;
    g.UseHPGL();
    g.SetTextAttribute(VRKTextSlant, 15.0f);
    g.SetTextAttribute(VRKTextSize, 7.0f);
    EXPECT_EQ(g.Take(), "");
    EXPECT_EQ(g.textSize, 4.0f);
    EXPECT_EQ(g.GetTextSize(), 7.0f);  // the host keeps it for its own text
}

TEST(Text, LabelWithTheInitialFont) {
    Plot p;
    p.OpenRun();
    p.g.DrawText(3, 2, "Hello");
    p.g.DrawText(5, 2.01f, "x");
    EXPECT_BYTES(
        ";SD1,14,2,1,4,11.34,6,25,7,48SSPU120.00,80.00LBHello\x03"
        "PU200.00,80.00LBx\x03",
        p.g.Take());
}

TEST(Text, FixedPitchForTypefaceThree) {
    Plot p;
    p.g.SetTextAttribute(VRKTextFont, 12.0f);
    p.g.SetTextAttribute(VRKTextSize, 2.54f);
    p.g.SetTextAttribute(VRKTextWeight, 26.0f);
    p.g.DrawText(0, 0, "A");
    EXPECT_BYTES("SD1,14,2,0,3,16.60,6,3,7,3SSPU0.00,0.00LBA\x03", p.g.Take());
}

TEST(Text, EtxEndsTheLabel) {
    Plot p;
    p.g.fontChanged = 0;
    p.g.DrawText(0, 0,
                 "AB\x03"
                 "C");
    EXPECT_BYTES("PU0.00,0.00LBAB\x03 \x03", p.g.Take());
}

TEST(Text, Latin1Characters) {
    Plot p;
    p.g.fontChanged = 0;
    p.g.DrawText(0, 0, "5\xC2\xB0 \xE2\x82\xAC");  // degree sign, euro sign
    EXPECT_BYTES("PU0.00,0.00LB5\xB0 ?\x03", p.g.Take());
}

TEST(Text, OriginOffsetIsAdded) {
    Plot p;
    p.g.fontChanged = 0;
    p.g.originOffsetX = 0.5f;
    p.g.DrawText(1.0249f, -1.0249f, "A");
    EXPECT_BYTES("PU40.50,-40.00LBA\x03", p.g.Take());
}

TEST(Text, LabelOriginsBeyondTheIntegersHoldAtTheirLimits) {
    Plot p;
    p.g.fontChanged = 0;
    p.g.DrawText(10, 1e12f, "x");
    p.g.DrawText(std::nanf(""), -1e12f, "y");
    // The int's largest, 2^31 - 1, is 2^31 as a float.
    EXPECT_BYTES("PU400.00,2147483648.00LBx\x03PU0.00,-2147483648.00LBy\x03", p.g.Take());
}

TEST(Text, SlantLimits) {
    Plot p;
    p.g.fontChanged = 0;
    p.g.SetTextAttribute(VRKTextSlant, 45.0f);
    p.g.Take();
    p.g.DrawText(0, 0, "A");
    EXPECT_NE(p.g.Take().find("LB"), std::string::npos);
    p.g.SetTextAttribute(VRKTextSlant, 45.01f);
    p.g.Take();
    p.g.DrawText(0, 0, "A");
    EXPECT_EQ(p.g.Take().find("LB"), std::string::npos);
    p.g.SetTextAttribute(VRKTextSlant, -0.5f);
    p.g.Take();
    p.g.DrawText(0, 0, "A");
    EXPECT_EQ(p.g.Take().find("LB"), std::string::npos);
}

TEST(Text, DefaultFontDrawnByTheHostUntilAnotherFont) {
    Plot p;
    p.g.hostDrawsDefaultFont = 1;
    p.g.SetTextAttribute(VRKTextFont, 11.0f);
    p.g.Take();
    p.g.DrawText(0, 0, "A");
    p.g.DrawText(0, 0, "B");
    EXPECT_EQ(p.g.Take().find("LB"), std::string::npos);
    p.g.SetTextAttribute(VRKTextFont, 13.0f);
    p.g.DrawText(0, 0, "C");
    EXPECT_BYTES("SD1,14,2,1,4,11.34,6,25,7,4SSPU0.00,0.00LBC\x03", p.g.Take());
}

TEST(Text, TextAsGeometryGoesToTheHost) {
    HPGL2Peer g;
    VRKPrintParameters params = FormParameters(210, 297, 1);
    params.SetTextAsGeometry(1);
    g.Begin(params);
    g.Take();
    g.DrawText(0, 0, "A");
    EXPECT_EQ(g.Take().find("LB"), std::string::npos);
}

TEST(Text, HPGLDialectNeverWritesLabels) {
    HPGL2Peer g;
    g.UseHPGL();
    g.Begin(FormParameters(210, 297, 1));
    g.DrawText(0, 0, "A");
    EXPECT_EQ(g.Take().find("LB"), std::string::npos);
}

TEST(Text, Management) {
    Plot p;
    VRKPrintTextSupport support = VRKTextSupportNone;
    VRKPrintTextClipping clipping = VRKTextClippingByHost;
    p.g.GetPrintTextManagement(nullptr, "x", support, clipping);
    EXPECT_EQ(support, 2);
    EXPECT_EQ(clipping, 0);
    p.g.SetTextAttribute(VRKTextSlant, 50.0f);
    p.g.GetPrintTextManagement(nullptr, "x", support, clipping);
    EXPECT_EQ(support, 1);
    p.g.SetTextAttribute(VRKTextSlant, 0.0f);
    p.g.textTypeface = -1;
    p.g.GetPrintTextManagement(nullptr, "x", support, clipping);
    EXPECT_EQ(support, 1);
    p.g.textTypeface = 48;
    p.g.UseHPGL();
    p.g.GetPrintTextManagement(nullptr, "x", support, clipping);
    EXPECT_EQ(support, 1);
    EXPECT_EQ(clipping, 0);
}

}  // namespace
