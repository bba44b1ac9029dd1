// A PDF printed with `lp` through a private cupsd to a queue of the HP1000GL2 PPD reaches the
// printer's raw port as the filter made it: a PJL job with HP-GL/2 inside, the very bytes vrkplot
// writes for that document, language, job name and layout.

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "cups/SpoolerEndToEnd.h"
#include "cups/support/CupsTestDocuments.h"
#include "cups/support/DesignJet1000Header.h"
#include "support/Printable.h"
#include "support/RunProgram.h"

namespace {

// What vrkplot writes for `file` in the HP1000GL2 language with the job name `name` and the
// layout of a queue's defaults: the 36 in. roll (914.4 mm wide, as long as the drawing and its
// margins: 50 + 2 x 5 mm for the test page) with the printer's 5 mm margins.
std::string VrkplotPlot(const TempFolder& folder, const std::string& file,
                        const std::string& name) {
    const int status =
        RunProgram({VRKPLOT_PATH, file, "-l", "HP1000GL2", "--job-name", name, "--form", "914.4x60",
                    "--margins", "5", "-o", "-"},
                   folder.Path(), folder.File("vrkplot.out"), folder.File("vrkplot.err"));
    EXPECT_EQ(status, 0) << ReadFileBytes(folder.File("vrkplot.err"));
    return ReadFileBytes(folder.File("vrkplot.out"));
}

TEST_F(SpoolerEndToEnd, APdfPrintedWithLpReachesThePrinterAsTheFiltersPjlJob) {
    const std::string pdf = Folder().Write("drawing.pdf", CupsTestPdf());
    ASSERT_NO_FATAL_FAILURE(AddQueue("plotter", VRK_CUPS_PPD));
    ASSERT_NO_FATAL_FAILURE(Print("plotter", pdf));
    const std::optional<std::string> plot = AwaitPlot();
    ASSERT_TRUE(plot.has_value()) << "no plot reached the printer: the job failed, or 60 s passed";

    // A PJL job of the HP1000GL2 language named after the job's title (lp gives the file's
    // name): the PJL settings of the printer, then HP-GL/2 entered from PCL, and the roll's form
    // in plotter units (40 to the millimetre), turned to lie along the roll.
    const std::string header = DesignJet1000Header("drawing.pdf", "ROLL1") +
                               "\x1B"
                               "E\x1B%0BBP5,0INECQL100PS36576,2400IP0,0,36576,2400RO270";
    EXPECT_EQ(plot->substr(0, header.size()), header) << Printable(*plot);
    const std::string end = "PG;" + kUel + "@PJL EOJ NAME=\"VORAN:drawing.pdf\"\n";
    ASSERT_GE(plot->size(), end.size());
    EXPECT_EQ(plot->substr(plot->size() - end.size()), end) << Printable(*plot);

    // Byte for byte what vrkplot writes for the same document, job name and layout.
    EXPECT_EQ(*plot, VrkplotPlot(Folder(), pdf, "drawing.pdf"));
}

}  // namespace
