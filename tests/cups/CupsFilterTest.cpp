// The filter run as the spooler runs it: arguments, $PPD pointing at a built PPD file, the plot
// on standard output and the messages on standard error.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cups/support/CupsTestDocuments.h"
#include "cups/support/DesignJet1000Header.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

namespace {

class CupsFilter : public ::testing::Test {
  protected:
    CupsFilter() : folder("cups-filter") { pdf = folder.Write("plan.pdf", CupsTestPdf()); }

    // Runs the filter with `args` after the program's name and the PPD of `ppd` ("vrk-hpgl2"),
    // the queue `queue`; `out` and `err` get what it wrote.
    int Run(const std::vector<std::string>& args, const std::string& ppd,
            const std::string& queue = "plotroom", const std::string& input = "/dev/null") {
        std::vector<std::string> argv{VRKPLOT_CUPS_PATH};
        argv.insert(argv.end(), args.begin(), args.end());
        const int status =
            RunProgram(argv, folder.Path(), folder.File("out"), folder.File("err"),
                       {"PPD=" + std::string(VRK_PPD_FOLDER) + "/" + ppd + ".ppd",
                        "PRINTER=" + queue, "VRK_CUPS_SETTINGS_DIR=" + folder.Path()},
                       input);
        out = ReadFileBytes(folder.File("out"));
        err = ReadFileBytes(folder.File("err"));
        return status;
    }

    TempFolder folder;
    std::string pdf;
    std::string out;
    std::string err;
};

// The number of times `part` is in `text`.
int count(const std::string& text, const std::string& part) {
    int n = 0;
    for (std::size_t at = text.find(part); at != std::string::npos;
         at = text.find(part, at + part.size())) {
        ++n;
    }
    return n;
}

TEST_F(CupsFilter, HPGL2) {
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "vrk-hpgl2"), 0) << err;
    // Reset, HP-GL/2 mode, then the job: A4 (595 by 842 points) with the cutter on and quality
    // 100, the PPD's defaults.
    EXPECT_EQ(out.substr(0, 43), std::string("\x1b"
                                             "E\x1b%0BINECQL100PS8395,11880IP0,0,8395,11880"));
    EXPECT_EQ(err, "INFO: plotted " + pdf + " (HPGL2, 1 copy)\n");
}

TEST_F(CupsFilter, HPGL) {
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "vrk-hpgl"), 0) << err;
    EXPECT_EQ(out.substr(0, 16), "PU0,0PR;SP1;SP1P");
    EXPECT_EQ(err, "INFO: plotted " + pdf + " (HPGL, 1 copy)\n");
}

TEST_F(CupsFilter, HP1000GL2) {
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "vrk-hp1000gl2"), 0) << err;
    const std::string header = DesignJet1000Header("Plan 7", "ROLL1");
    // The plot starts after the header: reset, HP-GL/2, then the quality of the PPD's default
    // (High, the best).
    const std::string start =
        "\x1b"
        "E\x1b%0BBP5,0INECQL100";
    EXPECT_EQ(out.substr(0, header.size() + start.size()), header + start);
    EXPECT_EQ(count(out, kUel + "@PJL EOJ NAME=\"VORAN:Plan 7\"\n"), 1);
}

TEST_F(CupsFilter, HP4000GL2) {
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "vrk-hp4000gl2"), 0) << err;
    const std::string header = kUel +
                               "@PJL JOB NAME=\"VORAN:Plan 7\"\n"
                               "@PJL COMMENT VORAN HP-GL/2 Driver for HPDesignet 4000 Series\n"
                               "@PJL SET MIRROR=OFF\n"
                               "@PJL SET RESOLUTION=600\n"
                               "@PJL SET RENDERMODE=COLOR\n"
                               "@PJL SET PALETTESOURCE=SOFTWARE\n"
                               "@PJL SET RET=ON\n"
                               "@PJL SET PRINTAREA=INKEDAREA\n"
                               "@PJL SET MEDIASOURCE=ROLL1\n"
                               "@PJL SET PRINTQUALITY=NORMAL\n"
                               "@PJL SET MAXDETAIL=ON\n"
                               "@PJL ENTER LANGUAGE=HPGL2\n";
    // The PPD's default size is the 36 in. roll: 914.4 mm (36576 plotter units) across, and as
    // long as the drawing and the margins, 60 mm (2400 units).
    const std::string start =
        "\x1b"
        "E\x1b%0BBP5,0INECPS36576,2400IP0,0,36576,2400";
    EXPECT_EQ(out.substr(0, header.size() + start.size()), header + start);
    EXPECT_EQ(out.substr(out.size() - 42), "PG;\n" + kUel + "@PJL EOJ NAME=\"VORAN:Plan 7\"\n");
}

TEST_F(CupsFilter, TwoCopiesAreTwoWholeJobs) {
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "vrk-hp4000gl2"), 0) << err;
    const std::string one = out;
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "2", "", pdf}, "vrk-hp4000gl2"), 0) << err;
    EXPECT_EQ(out, one + one);
    EXPECT_EQ(count(out, kUel + "@PJL JOB NAME="), 2);
    EXPECT_EQ(count(out, "@PJL EOJ"), 2);
    EXPECT_EQ(err, "INFO: plotted " + pdf + " (HP4000GL2, 2 copies)\n");
}

TEST_F(CupsFilter, TheDocumentFromStandardInput) {
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "vrk-hp1000gl2"), 0) << err;
    const std::string fromFile = out;
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "2", ""}, "vrk-hp1000gl2", "plotroom", pdf), 0) << err;
    EXPECT_EQ(out, fromFile + fromFile);
    EXPECT_EQ(err, "INFO: plotted the document (HP1000GL2, 2 copies)\n");
}

TEST_F(CupsFilter, ADamagedPdfIsAnErrorWithNothingWritten) {
    const std::string damaged = folder.Write("damaged.pdf", CupsTestPdf().substr(0, 200));
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "1", "", damaged}, "vrk-hp4000gl2"), 1);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "ERROR: " + damaged + ": the document is damaged\n");
    EXPECT_EQ(folder.Listing(), "damaged.pdf\nerr\nout\nplan.pdf\n");
}

TEST_F(CupsFilter, AFailedWriteIsAnError) {
    std::filesystem::create_directory(folder.File("tmp"));
    const int status =
        RunProgram({VRKPLOT_CUPS_PATH, "7", "ann", "Plan 7", "1", "", pdf}, folder.Path(),
                   "/dev/full", folder.File("err"),
                   {"PPD=" + std::string(VRK_PPD_FOLDER) + "/vrk-hpgl2.ppd",
                    "VRK_CUPS_SETTINGS_DIR=" + folder.Path(), "TMPDIR=" + folder.File("tmp")});
    EXPECT_EQ(status, 1);
    EXPECT_EQ(ReadFileBytes(folder.File("err")),
              "ERROR: writing the plot: No space left on device\n");
    // The temporary plot is gone.
    EXPECT_TRUE(std::filesystem::is_empty(folder.File("tmp")));
}

TEST_F(CupsFilter, AWrongArgumentCountPrintsTheUsage) {
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "1"}, "vrk-hpgl2"), 1);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "Usage: vrkplot-cups job user title copies options [file]\n");
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf, "more"}, "vrk-hpgl2"), 1);
    EXPECT_EQ(err, "Usage: vrkplot-cups job user title copies options [file]\n");
}

TEST_F(CupsFilter, BadCopiesAndOptionsAreErrors) {
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "two", "", pdf}, "vrk-hpgl2"), 1);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "ERROR: copies: 'two' is not a whole number\n");
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "0", "", pdf}, "vrk-hpgl2"), 1);
    EXPECT_EQ(err, "ERROR: copies: 0 is not from 1 to 9999\n");
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "1", "print-scaling=wide", pdf}, "vrk-hpgl2"), 1);
    EXPECT_EQ(err, "ERROR: print-scaling=wide: not auto, fit, fill or none\n");
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "1", "MediaType=Canvas", pdf}, "vrk-hpgl2"), 0) << err;
}

TEST_F(CupsFilter, WithoutAPpdNothingIsPlotted) {
    const int status = RunProgram({VRKPLOT_CUPS_PATH, "7", "ann", "Plan 7", "1", "", pdf},
                                  folder.Path(), folder.File("out"), folder.File("err"), {"PPD="});
    EXPECT_EQ(status, 1);
    EXPECT_EQ(ReadFileBytes(folder.File("out")), "");
    EXPECT_EQ(ReadFileBytes(folder.File("err")),
              "ERROR: no PPD file: the spooler names the printer's PPD file in $PPD\n");
}

TEST_F(CupsFilter, AMissingPpdIsAnError) {
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "no-such"), 1);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err.substr(0, 30), "ERROR: cannot read the PPD fil");
}

TEST_F(CupsFilter, ThePpdChoicesReachThePlot) {
    ASSERT_EQ(
        Run({"7", "ann", "Plan 7", "1",
             "Resolution=1200dpi cupsPrintQuality=High InputSlot=ManualFeed VRKInkedArea=False",
             pdf},
            "vrk-hp4000gl2"),
        0)
        << err;
    EXPECT_EQ(count(out, "@PJL SET RESOLUTION=1200\n"), 1) << out.substr(0, 600);
    EXPECT_EQ(count(out, "@PJL SET PRINTQUALITY=HIGH\n"), 1) << out.substr(0, 600);
    EXPECT_EQ(count(out, "@PJL SET MEDIASOURCE=MANUALFEED\n"), 1) << out.substr(0, 600);
    EXPECT_EQ(count(out, "@PJL SET PRINTAREA=FULLSIZE\n"), 1) << out.substr(0, 600);
}

// Text is outlines unless the queue or the job asks for labels in the plotter's font: then the
// line of text is one label and no glyph is filled.
TEST_F(CupsFilter, TextAsLabels) {
    const std::string text = folder.Write("text.pdf", CupsTextPdf());
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "", text}, "vrk-hpgl2"), 0) << err;
    EXPECT_EQ(count(out, "LBPlan 7\x03"), 0);
    EXPECT_EQ(count(out, "FP"), 5);
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "VRKText=Labels", text}, "vrk-hpgl2"), 0) << err;
    EXPECT_EQ(count(out, "LBPlan 7\x03"), 1) << out;
    EXPECT_EQ(count(out, "FP"), 0) << out;
}

TEST_F(CupsFilter, TheQueuesSettingsFileMustBeOfThePrintersLanguage) {
    folder.Write("plotroom.xml",
                 "<?xml version=\"1.0\"?>\n<HPGL2Properties mediaType=\"Vellum\" />\n");
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "vrk-hp4000gl2"), 1);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err.substr(0, 7), "ERROR: ");
    EXPECT_NE(err.find("plotroom.xml"), std::string::npos) << err;
    // Another queue has no file.
    EXPECT_EQ(Run({"7", "ann", "Plan 7", "1", "", pdf}, "vrk-hp4000gl2", "other"), 0) << err;
}

TEST_F(CupsFilter, PageSizesOrientationAndScaling) {
    const auto form = [this](const std::string& options) {
        EXPECT_EQ(Run({"7", "ann", "Plan 7", "1", options, pdf}, "vrk-hpgl2"), 0) << err;
        // From the page size to the pen width.
        const std::size_t end = out.find("LA1");
        return out.substr(15, end == std::string::npos ? 0 : end - 15);
    };
    // 200 by 100 mm: 8000 by 4000 plotter units, laid across.
    EXPECT_EQ(form("PageSize=Custom.200x100mm"),
              "PS8000,4000IP0,0,8000,4000RO270NP256TR0MC0SP0LA2,2,3,2PC1,0,0,0SP1PW0.35");
    // The job's media names the page size; A3 is 297 by 420.2 mm.
    EXPECT_EQ(form("media=A3"),
              "PS11880,16808IP0,0,11880,16808NP256TR0MC0SP0LA2,2,3,2PC1,0,0,0SP1PW0.35");
    EXPECT_EQ(form("PageSize=A3 orientation-requested=4"),
              "PS16808,11880IP0,0,16808,11880RO270NP256TR0MC0SP0LA2,2,3,2PC1,0,0,0SP1PW0.35");
    // Fitted to A4 inside the margins, the drawing and its lines (1 point, 0.35 mm) are about twice
    // as large.
    EXPECT_EQ(form("PageSize=A4 print-scaling=fit"),
              "PS8395,11880IP0,0,8395,11880NP256TR0MC0SP0LA2,2,3,2PC1,0,0,0SP1PW0.71");
}

TEST_F(CupsFilter, JobFilesAndSvgDrawings) {
    // A job file sets its own pages: the plot is vrkplot's, and the PPD's page size is left
    // unused without a warning.
    const std::string job = std::string(VRK_EXAMPLES_DIR) + "/a4-drawing.job";
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "", job}, "vrk-hp4000gl2"), 0) << err;
    EXPECT_EQ(err, "INFO: plotted " + job + " (HP4000GL2, 1 copy)\n");
    ASSERT_EQ(RunProgram({VRKPLOT_PATH, "-q", "-l", "HP4000GL2", "--job-name", "Plan 7", "-o",
                          "vrkplot.plt", job},
                         folder.Path(), folder.File("vrkplot.out"), folder.File("vrkplot.err")),
              0)
        << ReadFileBytes(folder.File("vrkplot.err"));
    EXPECT_EQ(out, ReadFileBytes(folder.File("vrkplot.plt")));

    // An SVG drawing of 100 by 50 mm on A4.
    const std::string svg = folder.Write(
        "plan.svg",
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100mm\" height=\"50mm\" "
        "viewBox=\"0 0 100 50\"><path d=\"M10 10 L90 40\" stroke=\"black\" /></svg>\n");
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "PageSize=A4", svg}, "vrk-hpgl2"), 0) << err;
    EXPECT_EQ(out.substr(0, 43),
              "\x1b"
              "E\x1b%0BINECQL100PS8395,11880IP0,0,8395,11880");
    EXPECT_EQ(err, "INFO: plotted " + svg + " (HPGL2, 1 copy)\n");
}

// A queue's pens: 1 red, 2 green, 3 black, all enabled.
constexpr const char* kQueuePens =
    "<?xml version=\"1.0\"?>\n"
    "<HPGLProperties>\n"
    "  <pens>\n"
    "    <pen number=\"1\" red=\"255\" green=\"0\" blue=\"0\" width=\"0.5\" enable=\"YES\" />\n"
    "    <pen number=\"2\" red=\"0\" green=\"255\" blue=\"0\" width=\"0.5\" enable=\"YES\" />\n"
    "    <pen number=\"3\" red=\"0\" green=\"0\" blue=\"0\" width=\"0.5\" enable=\"YES\" />\n"
    "  </pens>\n"
    "</HPGLProperties>\n";

TEST_F(CupsFilter, ThePenTableOfTheQueuesSettingsFile) {
    const std::string settings = folder.Write("plotroom.xml", kQueuePens);
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "VRKPenTable=Settings PageSize=A4", pdf}, "vrk-hpgl"),
              0)
        << err;
    const std::string filtered = out;
    // The black drawing takes the queue's black pen, 3 (the job's frame selects pen 1 first).
    EXPECT_EQ(filtered.substr(0, 17), "PU0,0PR;SP1;SP3PU") << filtered;
    EXPECT_EQ(count(filtered, "SP3"), 1) << filtered;

    // The plot vrkplot makes with the same settings file on the PPD's A4 (595 by 842 points,
    // 209.9 by 297 mm) inside its 5 mm margins.
    ASSERT_EQ(RunProgram({VRKPLOT_PATH, "-q", "-l", "HPGL", "--settings", settings, "--form",
                          "209.9x297", "--margins", "5", "-o", "vrkplot.plt", pdf},
                         folder.Path(), folder.File("vrkplot.out"), folder.File("vrkplot.err")),
              0)
        << ReadFileBytes(folder.File("vrkplot.err"));
    EXPECT_EQ(filtered, ReadFileBytes(folder.File("vrkplot.plt")));

    // The standard pens instead: black is pen 1.
    ASSERT_EQ(Run({"7", "ann", "Plan 7", "1", "VRKPenTable=Standard PageSize=A4", pdf}, "vrk-hpgl"),
              0)
        << err;
    EXPECT_EQ(out.substr(0, 17), "PU0,0PR;SP1;SP1PU") << out;
    EXPECT_EQ(count(out, "SP3"), 0) << out;
}

}  // namespace
