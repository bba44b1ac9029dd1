// PE data in the listing: numbers in both digit sets, the flags, the positions reached.

#include <gtest/gtest.h>

#include <string>

#include "plotdump/ListingOf.h"

namespace {

TEST(PlotDump, PolylineEncodedPairs) {
    // = < absolute pen-up 1000,-1000; relative 40,-40; pen up 0,100000; down -3,0.
    EXPECT_EQ(LinesOf("PE=<O\xdeP\xdeO\xc0P\xc0<\xbf?t\xef\xc6\xbf;"),
              "PE\n"
              "  =< 1000,-1000 -> 1000,-1000\n"
              "     40,-40 -> 1040,-1040\n"
              "  <  0,100000 -> 1040,98960\n"
              "     -3,0 -> 1037,98960\n"
              "  ;\n");
}

TEST(PlotDump, PolylineEncodedFollowsPenUpAndPlotAbsolute) {
    EXPECT_EQ(LinesOf("PU100,200PEO\xc0\xbf;PR;PD10,10PE<P\xc0\xbf;"),
              "PU 100,200 -> 100,200\n"
              "PE\n"
              "     40,0 -> 140,200\n"
              "  ;\n"
              "PR;\n"
              "PD 10,10 -> 150,210\n"
              "PE\n"
              "  <  -40,0 -> 110,210\n"
              "  ;\n");
}

TEST(PlotDump, PolylineEncodedSevenBitFractionsAndPen) {
    // 7: base 32; > 2 fractional bits (folded 4, '_' + 4); pen 3; then 1000 and -3 (in quarters).
    EXPECT_EQ(LinesOf("PE7>c:e=O]`f;"),
              "PE\n"
              "  7  7-bit numbers from here\n"
              "  >2  fractional bits: 2\n"
              "  :3  select pen 3\n"
              "  =  250,-0.75 -> 250,-0.75\n"
              "  ;\n");
}

TEST(PlotDump, PolylineEncodedBeforeAnyKnownPosition) {
    EXPECT_EQ(LinesOf("PEO\xc0O\xc0;"), "PE\n     40,40 -> ?\n  ;\n");
}

TEST(PlotDump, PolylineEncodedCutShort) {
    EXPECT_EQ(LinesOf("PE=O\xc0O"),
              "PE\n"
              "! at byte 5: PE number without its last digit\n"
              "! at byte 3: PE x 40 without its y\n"
              "! at byte 6: PE flags = without a pair\n"
              "! at byte 6: the plot ends inside PE\n");
    EXPECT_EQ(LinesOf("PE\xbf\x01\x80\xbf>\x1b%0BIN"),
              "PE\n"
              "! at byte 3: undecoded in PE \"\\x01\\x80\"\n"
              "     0,0 -> ?\n"
              "! at byte 6: PE flag > without its number\n"
              "! at byte 7: PE ends at ESC without its ';'\n"
              "ESC%0B  enter HP-GL/2, pen where HP-GL/2 left it\n"
              "IN\n");
}

TEST(PlotDump, PolylineEncodedNumberTooLarge) {
    // Fourteen digits: more than 64 bits.
    EXPECT_EQ(LinesOf("PE=" + std::string(13, '~') + "\xfe\xbf;"), "PE\n  =  ?,0 -> ?\n  ;\n");
}

}  // namespace
