// The PPD files and the filter with the spooler's own programs: cupstestppd checks every PPD, and
// cupsfilter runs the filter the way the spooler would, from a private ServerBin.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cups/support/CupsScratch.h"
#include "cups/support/CupsTestDocuments.h"
#include "cups/support/DesignJet1000Header.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

namespace {

std::string ppdPath(const std::string& name) {
    return std::string(VRK_PPD_FOLDER) + "/" + name + ".ppd";
}

class CupsPpd : public ::testing::TestWithParam<std::string> {};

// cupstestppd finds the filters the PPD names in its ServerBin: the scratch one, with the built
// filter in it. Warnings (the names of the roll sizes, the long file names) are not failures.
TEST_P(CupsPpd, PassesCupstestppd) {
    const std::string cupstestppd = CupsScratch::FindProgram("cupstestppd");
    if (cupstestppd.empty()) {
        GTEST_SKIP() << "cupstestppd is not installed (package cups-client)";
    }
    CupsScratch scratch(VRKPLOT_CUPS_PATH, VRK_CUPS_SOURCE_DIR);
    const int status =
        RunProgram({cupstestppd, ppdPath(GetParam())}, scratch.Path(), scratch.File("out"),
                   scratch.File("err"), {"CUPS_SERVERBIN=" + scratch.ServerBin()});
    const std::string out = ReadFileBytes(scratch.File("out"));
    EXPECT_EQ(status, 0) << out << ReadFileBytes(scratch.File("err"));
    EXPECT_EQ(out.substr(0, ppdPath(GetParam()).size() + 7), ppdPath(GetParam()) + ": PASS\n");
    EXPECT_EQ(out.find("FAIL"), std::string::npos) << out;
}

// What cupsfilter writes for the test PDF with the PPD; the status in `status`.
std::string cupsfilter(const std::string& ppd, const std::vector<std::string>& more, int& status,
                       std::string& err) {
    const std::string program = CupsScratch::FindProgram("cupsfilter");
    CupsScratch scratch(VRKPLOT_CUPS_PATH, VRK_CUPS_SOURCE_DIR);
    TempFolder folder("cupsfilter");
    const std::string pdf = folder.Write("plan.pdf", CupsTestPdf());
    // -e: the PPD's own filters; -m printer/...: up to the printer's format.
    std::vector<std::string> args{program, "-c", scratch.FilesConf(), "-p", ppdPath(ppd),
                                  "-e",    "-m", "printer/test",      "-t", "Plan 7"};
    args.insert(args.end(), more.begin(), more.end());
    args.push_back(pdf);
    status = RunProgram(args, folder.Path(), folder.File("out"), folder.File("err"),
                        {"VRK_CUPS_SETTINGS_DIR=" + folder.Path()});
    err = ReadFileBytes(folder.File("err"));
    return ReadFileBytes(folder.File("out"));
}

class CupsfilterRun : public ::testing::Test {
  protected:
    void SetUp() override {
        if (CupsScratch::FindProgram("cupsfilter").empty()) {
            GTEST_SKIP() << "cupsfilter is not installed (package cups)";
        }
    }
};

TEST_F(CupsfilterRun, HPGL2) {
    int status = -1;
    std::string err;
    const std::string out = cupsfilter("vrk-hpgl2", {}, status, err);
    ASSERT_EQ(status, 0) << err;
    EXPECT_EQ(out.substr(0, 43),
              "\x1b"
              "E\x1b%0BINECQL100PS8395,11880IP0,0,8395,11880");
    EXPECT_NE(err.find("INFO: plotted"), std::string::npos) << err;
}

TEST_F(CupsfilterRun, HPGL) {
    int status = -1;
    std::string err;
    const std::string out = cupsfilter("vrk-hpgl", {}, status, err);
    ASSERT_EQ(status, 0) << err;
    EXPECT_EQ(out.substr(0, 16), "PU0,0PR;SP1;SP1P");
}

TEST_F(CupsfilterRun, HP1000GL2) {
    int status = -1;
    std::string err;
    const std::string out = cupsfilter(
        "vrk-hp1000gl2", {"-o", "VRKRollFeeder=Multi", "-o", "InputSlot=Roll2"}, status, err);
    ASSERT_EQ(status, 0) << err;
    const std::string header = DesignJet1000Header("Plan 7", "ROLL2") +
                               "\x1b"
                               "E\x1b%0BBP5,0INECQL100";
    EXPECT_EQ(out.substr(0, header.size()), header);
}

TEST_F(CupsfilterRun, HP4000GL2TwoCopies) {
    int status = -1;
    std::string err;
    const std::string out =
        cupsfilter("vrk-hp4000gl2", {"-n", "2", "-o", "PageSize=A3"}, status, err);
    ASSERT_EQ(status, 0) << err;
    const std::string start = kUel +
                              "@PJL JOB NAME=\"VORAN:Plan 7\"\n"
                              "@PJL COMMENT VORAN HP-GL/2 Driver for HPDesignet 4000 Series\n";
    ASSERT_EQ(out.substr(0, start.size()), start);
    // A3 as the PPD has it: 842 by 1191 points, 297 by 420.2 mm.
    const std::string form =
        "\x1b"
        "E\x1b%0BBP5,0INECPS11880,16808IP0,0,11880,16808";
    EXPECT_NE(out.find("@PJL ENTER LANGUAGE=HPGL2\n" + form), std::string::npos) << out;
    EXPECT_EQ(out.substr(out.size() / 2), out.substr(0, out.size() / 2));
    EXPECT_EQ(out.substr(out.size() / 2, start.size()), start);
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, CupsPpd,
                         ::testing::Values("vrk-hpgl2", "vrk-hpgl", "vrk-hp1000gl2",
                                           "vrk-hp4000gl2"),
                         [](const ::testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param;
                             for (char& c : name) {
                                 if (c == '-') {
                                     c = '_';
                                 }
                             }
                             return name;
                         });

}  // namespace
