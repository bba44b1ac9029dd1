// Every instruction of the writing layer alone, byte for byte.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "generator/HPGL2Writer.h"
#include "generator/PCLEscapes.h"
#include "host/core/VRKPrintMemoryStream.h"

namespace {

namespace W = HPGL2Writer;

// What `write` puts on a stream set to fixed notation with two decimals, as a job start sets it.
std::string Written(const std::function<void(VRKPrintStream&)>& write) {
    VRKPrintMemoryStream s;
    s.SetFixed(2);
    write(s);
    return s.Data();
}

TEST(HPGL2Writer, JobFrame) {
    EXPECT_EQ(Written(W::ResetAndEnter),
              "\x1b"
              "E\x1b%0B");
    EXPECT_EQ(Written([](auto& s) { W::BeginPlotRotation(s, 2); }), "BP5,2");
    EXPECT_EQ(Written(W::Initialize), "IN");
    EXPECT_EQ(Written([](auto& s) { W::MediaType(s, 6); }), "MT6");
    EXPECT_EQ(Written([](auto& s) { W::EnableCutter(s, true); }), "EC1");
    EXPECT_EQ(Written([](auto& s) { W::EnableCutter(s, false); }), "EC");
    EXPECT_EQ(Written([](auto& s) { W::Quality(s, -1); }), "QL-1");
    EXPECT_EQ(Written([](auto& s) { W::PlotSize(s, 11880, 8400); }), "PS11880,8400");
    EXPECT_EQ(Written([](auto& s) { W::InputWindow(s, 8400, 11880); }), "IP0,0,8400,11880");
    EXPECT_EQ(Written([](auto& s) { W::Rotate(s, 270); }), "RO270");
    EXPECT_EQ(Written(W::JobDefaults), "NP256TR0MC0SP0LA2,2,3,2");
    EXPECT_EQ(Written(W::AdvancePage), "PG");
    EXPECT_EQ(Written(W::End), ";");
}

TEST(HPGL2Writer, PenMoves) {
    EXPECT_EQ(Written([](auto& s) { W::PenUp(s); }), "PU");
    EXPECT_EQ(Written([](auto& s) { W::PenUp(s, -4294967296LL, 7); }), "PU-4294967296,7");
    EXPECT_EQ(Written([](auto& s) { W::PenDown(s, 0, -12); }), "PD0,-12");
    EXPECT_EQ(Written([](auto& s) { W::PenUpAt(s, 120.0, -0.125); }), "PU120.00,-0.12");
    EXPECT_EQ(Written(W::PenDownHere), "PD;");
    EXPECT_EQ(Written(W::PlotAbsolute), "PA");
    EXPECT_EQ(Written(W::PlotRelative), "PR");
}

TEST(HPGL2Writer, EncodedRuns) {
    EXPECT_EQ(Written(W::OpenEncoded), "PE");
    EXPECT_EQ(Written(W::OpenEncodedAbsolute), "PE=");
    EXPECT_EQ(Written(W::EncodedPenUp), "<");
    // 0 folds to 0 (one terminating byte 191); -1 to 3 (194); 100 to 200 = 8 + 3 * 64, a
    // digit 8 + 63 = 71 ('G') and a terminating 191 + 3 = 194.
    EXPECT_EQ(Written([](auto& s) { W::EncodedPair(s, 0, -1); }), "\xbf\xc2");
    EXPECT_EQ(Written([](auto& s) { W::EncodedPair(s, 100, 0); }), "G\xc2\xbf");
}

TEST(HPGL2Writer, Curves) {
    EXPECT_EQ(Written([](auto& s) { W::ArcAbsolute(s, 400.0, 800.0, 360.0); }),
              "AA400.00,800.00,360.00,.5");
    EXPECT_EQ(Written([](auto& s) { W::Wedge(s, 2225.0, 0.0, 360.0); }),
              "WG2225.00,0.00,360.00,.5");
    EXPECT_EQ(Written([](auto& s) { W::Scale(s, 8400.0, 23760.0, 0); }),
              "SC0,8400.00,0,23760.00,0;");
    EXPECT_EQ(Written([](auto& s) { W::Scale(s, 8400.0, 11880.0, 1); }),
              "SC0,8400.00,0,11880.00,1;");
    EXPECT_EQ(Written([](auto& s) {
                  W::Bezier(s, {1.0, 2.0, 3.5, 4.0, 5.0, -6.25});
              }),
              "BZ1.00,2.00,3.50,4.00,5.00,-6.25");
}

TEST(HPGL2Writer, ArcOutline) {
    ArcSweepText kept;
    // In place, then again with the kept sweep, the start level with the centre or not.
    EXPECT_EQ(Written([&](auto& s) { W::ArcOutline(s, 600.0, 400.0, 400.0, 400.0, 360.0, kept); }),
              "PU600.00,400.00PD;AA400.00,400.00,360.00,.5");
    EXPECT_EQ(kept.Length(), 6);
    EXPECT_EQ(Written([&](auto& s) { W::ArcOutline(s, 600.0, 401.0, 400.0, 400.0, 360.0, kept); }),
              "PU600.00,401.00PD;AA400.00,400.00,360.00,.5");
    EXPECT_EQ(Written([&](auto& s) { W::ArcOutline(s, 600.0, 400.0, 400.0, 400.0, -90.0, kept); }),
              "PU600.00,400.00PD;AA400.00,400.00,-90.00,.5");
    // Numbers beyond the quick form, and a stream in another notation: the general way.
    EXPECT_EQ(Written([&](auto& s) { W::ArcOutline(s, 1e12, 400.0, 400.0, 400.0, 360.0, kept); }),
              "PU1000000000000.00,400.00PD;AA400.00,400.00,360.00,.5");
    VRKPrintMemoryStream general;
    W::ArcOutline(general, 600.0, 400.5, 400.0, 400.0, 360.0, kept);
    EXPECT_EQ(general.Data(), "PU600,400.5PD;AA400,400,360,.5");
}

TEST(HPGL2Writer, PensAndLines) {
    EXPECT_EQ(Written([](auto& s) { W::SelectPen(s, 255); }), "SP255");
    EXPECT_EQ(Written([](auto& s) { W::PenColor(s, 3, 255, 0, 127); }), "PC3,255,0,127");
    EXPECT_EQ(Written([](auto& s) { W::PenWidth(s, 0.35f); }), "PW0.35");
    EXPECT_EQ(Written([](auto& s) { W::LineAttribute(s, 1, 4); }), "LA1,4");
}

TEST(HPGL2Writer, Labels) {
    EXPECT_EQ(Written([](auto& s) { W::FixedFont(s, 10.5, 0, 3); }),
              "SD1,14,2,0,3,10.50,6,0,7,3SS");
    EXPECT_EQ(Written([](auto& s) { W::ProportionalFont(s, 11.34, -3, 48); }),
              "SD1,14,2,1,4,11.34,6,-3,7,48SS");
    EXPECT_EQ(Written([](auto& s) { W::Slant(s, -0.36); }), "SL-0.36");
    EXPECT_EQ(Written([](auto& s) { W::Direction(s, 0.0, 1.0); }), "DI0.00,1.00");
    EXPECT_EQ(Written([](auto& s) { W::LabelOrigin(s, 14); }), "LO14");
    EXPECT_EQ(Written([](auto& s) { W::Label(s, "A;B"); }), "LBA;B\x03");
}

TEST(HPGL2Writer, PolygonMode) {
    EXPECT_EQ(Written([](auto& s) { W::PolygonMode(s, 0); }), "PM0");
    EXPECT_EQ(Written([](auto& s) { W::PolygonMode(s, 2); }), "PM2");
    EXPECT_EQ(Written([](auto& s) { W::FillPolygon(s, 1); }), "FP1");
    EXPECT_EQ(Written([](auto& s) { W::FillPolygon(s, 0); }), "FP0");
}

TEST(PCLEscapes, RasterSequences) {
    EXPECT_EQ(std::string(PCLEscapes::kEnterPCLAtPen), "\x1b%1A");
    EXPECT_EQ(std::string(PCLEscapes::kEnterHPGL2), "\x1b%0B");
    EXPECT_EQ(
        std::string(PCLEscapes::kStartRaster) + PCLEscapes::kUncompressed + PCLEscapes::kEndRaster,
        "\x1b*r3A\x1b*b0M\x1b*rC");
    EXPECT_EQ(std::string(PCLEscapes::kPushPalette) + PCLEscapes::kPopPalette, "\x1b*p0P\x1b*p1P");
    EXPECT_EQ(std::string(PCLEscapes::kTransparentWhite) + PCLEscapes::kOpaqueWhite,
              "\x1b*v0N\x1b*v1N");
    EXPECT_EQ(Written([](auto& s) { PCLEscapes::SourceSize(s, 640, 480); }), "\x1b*r640s480T");
    EXPECT_EQ(Written([](auto& s) { PCLEscapes::DestinationSize(s, 1814, 1360); }),
              "\x1b*t1814h1360V");
    EXPECT_EQ(Written([](auto& s) { PCLEscapes::TransferRow(s, "\x01\x02\x03", 3); }),
              "\x1b*b3W\x01\x02\x03");
    EXPECT_EQ(Written([](auto& s) { PCLEscapes::TransferRow(s, 3, "ab", 2); }), "\x1b*b3m2Wab");
    EXPECT_EQ(std::string(PCLEscapes::kConfigureImageData) +
                  std::string(reinterpret_cast<const char*>(PCLEscapes::kDirectRgb24), 6),
              std::string("\x1b*v6W\x00\x03\x00\x08\x08\x08", 11));
}

}  // namespace
