// PJL lines and PCL escape sequences in the listing.

#include <gtest/gtest.h>

#include <string>

#include "plotdump/ListingOf.h"

namespace {

TEST(PlotDump, PjlJobFrame) {
    EXPECT_EQ(LinesOf("\x1b%-12345X@PJL JOB NAME=\"a.plt\"\n@PJL SET RET=ON\n"
                      "@PJL ENTER LANGUAGE=HPGL2\n\x1b"
                      "E\x1b%0BIN\n\x1b%-12345X@PJL EOJ NAME=\"a.plt\"\n"),
              "ESC%-12345X  universal exit language (UEL)\n"
              "@PJL JOB NAME=\"a.plt\"\n"
              "@PJL SET RET=ON\n"
              "@PJL ENTER LANGUAGE=HPGL2\n"
              "ESC E  reset\n"
              "ESC%0B  enter HP-GL/2, pen where HP-GL/2 left it\n"
              "IN\n"
              "white space \"\\n\"\n"
              "ESC%-12345X  universal exit language (UEL)\n"
              "@PJL EOJ NAME=\"a.plt\"\n");
}

TEST(PlotDump, PjlLineWithoutLineFeed) {
    EXPECT_EQ(LinesOf("@PJL SET A=\x01\r"),
              "@PJL SET A=\\x01\\r\n"
              "! at byte 0: PJL line without its line feed\n");
}

TEST(PlotDump, LanguageSwitches) {
    EXPECT_EQ(LinesOf("\x1b%1AAB\x1b%0A\x1b%1B\x1b%0BAB"),
              "ESC%1A  enter PCL, cursor at the pen position\n"
              "text \"AB\"\n"
              "ESC%0A  enter PCL, cursor where PCL left it\n"
              "ESC%1B  enter HP-GL/2, pen at the PCL cursor\n"
              "ESC%0B  enter HP-GL/2, pen where HP-GL/2 left it\n"
              "AB\n");
}

TEST(PlotDump, RasterImage) {
    const std::string plot =
        std::string("\x1b*p0P\x1b*r8s4T\x1b*t1133h226V\x1b*t300R") + "\x1b*v6W" +
        std::string("\x00\x03\x00\x08\x08\x08", 6) + "\x1b*r3A\x1b*v0N\x1b*v1N\x1b*b0M\x1b*b3m5W" +
        std::string("\x1b\x00;W\xff", 5) + "\x1b*b0W\x1b*rC\x1b*p1P\x1b*p120X\x1b*p-7Y";
    EXPECT_EQ(LinesOf(plot),
              "ESC*p0P  push the palette\n"
              "ESC*r8s  raster width: 8 pixels\n"
              "ESC*r4T  raster height: 4 rows\n"
              "ESC*t1133h  raster destination width: 1133 decipoints\n"
              "ESC*t226V  raster destination height: 226 decipoints\n"
              "ESC*t300R  raster resolution: 300 dots per inch\n"
              "ESC*v6W  configure image data: 6 bytes: 00 03 00 08 08 08\n"
              "ESC*r3A  start raster graphics: 3\n"
              "ESC*v0N  source transparency: 0 (transparent)\n"
              "ESC*v1N  source transparency: 1 (opaque)\n"
              "ESC*b0M  compression mode: 0 (unencoded)\n"
              "ESC*b3m  compression mode: 3 (delta row)\n"
              "ESC*b5W  transfer raster row: 5 bytes\n"
              "ESC*b0W  transfer raster row: 0 bytes\n"
              "ESC*rC  end raster graphics\n"
              "ESC*p1P  pop the palette\n"
              "ESC*p120X  cursor x: 120 units\n"
              "ESC*p-7Y  cursor y: -7 units\n");
}

TEST(PlotDump, OtherEscapes) {
    EXPECT_EQ(LinesOf("\x1b&l1O\x1b&u600D\x1b&p3XABC\x1b(s2WAB\x1b*z5Q\x1b"
                      "9\x1bq\x1b*b1W"),
              "ESC&l1O  orientation: 1\n"
              "ESC&u600D  unit of measure: 600 units per inch\n"
              "ESC&p3X  data: 3 bytes\n"
              "ESC(s2W  data: 2 bytes\n"
              "ESC*z5Q\n"
              "ESC 9  clear margins\n"
              "ESC q\n"
              "ESC*b1W  transfer raster row: 1 byte\n"
              "! at byte 41: only 0 of the 1 data bytes before the end of the plot\n");
}

TEST(PlotDump, BrokenEscapes) {
    EXPECT_EQ(LinesOf("\x1b*r12\x01\x1b\x01\x1b"),
              "! at byte 3: unfinished escape sequence \"*r12\" after ESC\n"
              "! at byte 5: undecoded \"\\x01\"\n"
              "! at byte 6: ESC that starts no sequence\n"
              "! at byte 7: undecoded \"\\x01\"\n"
              "! at byte 8: ESC that starts no sequence\n");
}

TEST(PlotDump, HugeCountsEndAtTheEndOfThePlot) {
    // A count beyond any integer is none; a large one takes what there is.
    EXPECT_EQ(LinesOf("\x1b*b" + std::string(38, '9') + "W\x1b*b9999999999W12"),
              "ESC*b" + std::string(32, '9') + "...W  transfer raster row: 0 bytes\n" +
                  "ESC*b9999999999W  transfer raster row: 9999999999 bytes\n" +
                  "! at byte 58: only 2 of the 9999999999 data bytes before the end of the plot\n");
}

}  // namespace
