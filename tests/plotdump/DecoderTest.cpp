// The decoder as a whole: the summary line, the SHA-256 of the bytes, any input decoded to the end.

#include <gtest/gtest.h>

#include <string>

#include "plotdump/ListingOf.h"
#include "tools/plotdump/Sha256.h"

namespace {

std::string sha256Of(const std::string& bytes) {
    Sha256 hash;
    hash.Update(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    return hash.HexDigest();
}

TEST(PlotDump, Sha256OfKnownTexts) {
    EXPECT_EQ(sha256Of(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256Of("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    // Two blocks: the padding does not fit after 56 bytes.
    EXPECT_EQ(sha256Of("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(PlotDump, SummaryLine) {
    EXPECT_EQ(ListingOf(""),
              "end of plot: 0 bytes, 0 anomalies, sha256 "
              "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855\n");
    EXPECT_EQ(ListingOf("\x01"),
              "! at byte 0: undecoded \"\\x01\"\n"
              "end of plot: 1 bytes, 1 anomaly, sha256 "
              "4bf5122f344554c53bde2ebb8cd2b7e3d1600ad631c385a5d7cce23c7785459a\n");
}

// A plot larger than the reader's buffer: positions go on across its refills, the hash takes
// every byte.
TEST(PlotDump, PlotLargerThanTheBuffer) {
    std::string plot = "PU0,0PE";
    for (int i = 0; i < 50000; ++i) {
        plot += "O\xc0\xbf";  // 40,0
    }
    plot += ";";
    const std::string listing = ListingOf(plot);
    EXPECT_NE(listing.find("\n     40,0 -> 2000000,0\n  ;\nend of plot: 150008 bytes, 0 anomalies, "
                           "sha256 " +
                           sha256Of(plot) + "\n"),
              std::string::npos);
}

// Every cut of a plot with every family of instruction decodes to its summary line.
TEST(PlotDump, EveryTruncationEndsWithTheSummary) {
    const std::string plot = std::string(
                                 "\x1b%-12345X@PJL ENTER LANGUAGE=HPGL2\n\x1b"
                                 "E\x1b%0BINPU1,2PE7=<O]`f;LBab\x03"
                                 "DT*;CO\"c\"PU9\x1b%1A\x1b*r2s1T\x1b*b3m2W") +
                             std::string("\0\0", 2) + "\x1b*rC\x1b%0BPE>\xc3:\xc2O\xc0\xbf;";
    for (std::size_t size = 0; size <= plot.size(); ++size) {
        const std::string listing = ListingOf(plot.substr(0, size));
        EXPECT_NE(listing.find("end of plot: " + std::to_string(size) + " bytes, "),
                  std::string::npos)
            << size;
    }
}

}  // namespace
