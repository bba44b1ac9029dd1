// HP-GL and HP-GL/2 instructions in the listing: parameters as written, the pen's position,
// labels and their terminator, comments, and what lies between instructions.

#include <gtest/gtest.h>

#include <string>

#include "plotdump/ListingOf.h"

namespace {

TEST(PlotDump, InstructionsWithTheirParameters) {
    EXPECT_EQ(LinesOf("INECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0;LA2,2,3,2PC6,63,127,191"
                      "PW1.00FP0EP;WG400.00,0.00,360.00,.5RO90DI0.00,1.00SI.2,.3SD1,14;LT-2,4CI50"
                      "PM0PM1PM2PG;"),
              "IN\nEC\nQL 100\nPS 8400,11880\nIP 0,0,8400,11880\nNP 256\nTR 0\nMC 0\nSP 0;\n"
              "LA 2,2,3,2\nPC 6,63,127,191\nPW 1.00\nFP 0\nEP;\nWG 400.00,0.00,360.00,.5\n"
              "RO 90\nDI 0.00,1.00\nSI .2,.3\nSD 1,14;\nLT -2,4\nCI 50\nPM 0\nPM 1\nPM 2\nPG;\n");
}

TEST(PlotDump, PenMovesAbsoluteAndRelative) {
    EXPECT_EQ(LinesOf("PU0,0PR;PD10,20,5-5PU-15 -15PA;PU4000.00,6000.00pd1,2"),
              "PU 0,0 -> 0,0\n"
              "PR;\n"
              "PD 10,20,5-5 -> 15,15\n"
              "PU -15 -15 -> 0,0\n"
              "PA;\n"
              "PU 4000.00,6000.00 -> 4000,6000\n"
              "pd 1,2 -> 1,2\n");
}

TEST(PlotDump, ArcsAndCurvesMoveThePen) {
    EXPECT_EQ(LinesOf("PU100,0AA0,0,90AR-100,0,90,5PU0,0AT5,5,10,0RT5,5,10,0"
                      "BZ1,1,2,2,3,4PR;BR1,1,2,2,3,4,9"),
              "PU 100,0 -> 100,0\n"
              "AA 0,0,90 -> 0,100\n"
              "AR -100,0,90,5 -> -100,200\n"
              "PU 0,0 -> 0,0\n"
              "AT 5,5,10,0 -> 10,0\n"
              "RT 5,5,10,0 -> 20,0\n"
              "BZ 1,1,2,2,3,4 -> 3,4\n"
              "PR;\n"
              "BR 1,1,2,2,3,4,9 -> 6,8\n");
}

TEST(PlotDump, WhatLeavesThePositionUnknown) {
    EXPECT_EQ(LinesOf("PU1,1SC0,1,0,1PR1,1PA1,1IP;PU2,2RO90PU;PR3,3PM2PD;IN;PR1,1"),
              "PU 1,1 -> 1,1\nSC 0,1,0,1\nPR 1,1 -> ?\nPA 1,1 -> 1,1\nIP;\nPU 2,2 -> 2,2\n"
              "RO 90\nPU;\nPR 3,3 -> ?\nPM 2\nPD;\nIN;\nPR 1,1 -> ?\n");
}

TEST(PlotDump, LabelsUpToTheirTerminator) {
    EXPECT_EQ(LinesOf("PU1,1LBPlan 7 \"A\" caf\xe9\x03PR1,1LBTab\there\\\x1b\x03"
                      "DT*,1;LBstar*DT;LBetx\x03"),
              "PU 1,1 -> 1,1\n"
              "LB \"Plan 7 \\\"A\\\" caf\\xE9\"\n"
              "PR 1,1 -> ?\n"
              "LB \"Tab\\there\\\\\\e\"\n"
              "DT \"*\",1;\n"
              "LB \"star\"\n"
              "DT;\n"
              "LB \"etx\"\n");
}

TEST(PlotDump, TextOfOtherInstructions) {
    EXPECT_EQ(LinesOf("CO\"made by hand\";BLbuffer\x03WDdisplay\x03SM*SM;CO;DT"),
              "CO \"made by hand\";\nBL \"buffer\"\nWD \"display\"\nSM \"*\"\nSM;\nCO;\nDT\n");
}

TEST(PlotDump, TextWithoutItsEnd) {
    EXPECT_EQ(LinesOf("LBno end"),
              "LB \"no end\"\n"
              "! at byte 2: label without its terminator \"\\x03\" before the end of the plot\n");
    EXPECT_EQ(LinesOf("CO\"open"),
              "CO \"open\"\n"
              "! at byte 2: comment without its closing '\"' before the end of the plot\n");
}

TEST(PlotDump, BetweenInstructions) {
    EXPECT_EQ(
        LinesOf("IN;\r\n;SP1\x01\x02"
                "5P;" +
                std::string(40, '\x80')),
        "IN;\n"
        "white space \"\\r\\n\"\n"
        ";\n"
        "SP 1\n"
        "! at byte 9: undecoded \"\\x01\\x025P\"\n"
        ";\n"
        "! at byte 14: undecoded \"" +
            [] {
                std::string escaped;
                for (int i = 0; i < 32; ++i) {
                    escaped += "\\x80";
                }
                return escaped;
            }() +
            "\"\n" + "! at byte 46: undecoded \"\\x80\\x80\\x80\\x80\\x80\\x80\\x80\\x80\"\n");
}

TEST(PlotDump, LongParametersAndTextAreCut) {
    const std::string listing =
        LinesOf("PU" + std::string(300, '1') + ",2LB" + std::string(1030, 'x') + "\x03");
    EXPECT_EQ(listing, "PU " + std::string(256, '1') + " ... (46 more bytes) -> ?\n" + "LB \"" +
                           std::string(1024, 'x') + "\" ... (6 more bytes)\n");
}

}  // namespace
