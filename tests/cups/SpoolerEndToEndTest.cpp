// A PDF printed with `lp` through a private cupsd to a queue of the HP1000GL2 PPD reaches the
// printer's raw port as the filter made it: a PJL job with HP-GL/2 inside, the same bytes vrkplot
// writes for that document and language but for the job's name.

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "cups/SpoolerEndToEnd.h"
#include "pdf/PdfTestDocument.h"
#include "support/RunProgram.h"

namespace {

const std::string kUel = "\x1B%-12345X";

// An A4 page with a framed rectangle and a diagonal line.
std::string Drawing() {
    return PdfTestDocument::Make(595.2756, 841.8898, 1, [](cairo_t* cairo, int) {
        cairo_set_line_width(cairo, 1);
        cairo_rectangle(cairo, 72, 72, 144, 72);
        cairo_stroke(cairo);
        cairo_move_to(cairo, 72, 400);
        cairo_line_to(cairo, 500, 500);
        cairo_stroke(cairo);
    });
}

// What vrkplot writes for `file` in the HP1000GL2 language.
std::string VrkplotPlot(const TempFolder& folder, const std::string& file) {
    const int status = RunProgram({VRKPLOT_PATH, file, "-l", "HP1000GL2", "-o", "-"}, folder.Path(),
                                  folder.File("vrkplot.out"), folder.File("vrkplot.err"));
    EXPECT_EQ(status, 0) << ReadFileBytes(folder.File("vrkplot.err"));
    return ReadFileBytes(folder.File("vrkplot.out"));
}

// The job name of a PJL job: the value of its first `NAME="..."`.
std::string JobName(const std::string& plot) {
    const std::size_t start = plot.find("NAME=\"");
    const std::size_t end = start == std::string::npos ? start : plot.find('"', start + 6);
    return end == std::string::npos ? std::string() : plot.substr(start + 6, end - start - 6);
}

// `plot` with every `NAME="from"` of its PJL lines made `NAME="to"`.
std::string Renamed(std::string plot, const std::string& from, const std::string& to) {
    const std::string before = "NAME=\"" + from + "\"";
    const std::string after = "NAME=\"" + to + "\"";
    for (std::size_t at = plot.find(before); at != std::string::npos;
         at = plot.find(before, at + after.size())) {
        plot.replace(at, before.size(), after);
    }
    return plot;
}

TEST_F(SpoolerEndToEnd, APdfPrintedWithLpReachesThePrinterAsTheFiltersPjlJob) {
    const std::string pdf = Folder().Write("drawing.pdf", Drawing());
    ASSERT_NO_FATAL_FAILURE(AddQueue("plotter", VRK_CUPS_PPD));
    ASSERT_NO_FATAL_FAILURE(Print("plotter", pdf));
    const std::optional<std::string> plot = AwaitPlot();
    ASSERT_TRUE(plot.has_value()) << "no plot reached the printer: the job failed, or 60 s passed";

    // A PJL job of the HP1000GL2 language: the job opens after a universal exit, switches to
    // HP-GL/2, resets the printer, enters HP-GL/2 from PCL, and closes with its end of job.
    const std::string name = JobName(*plot);
    ASSERT_FALSE(name.empty()) << *plot;
    EXPECT_EQ(plot->substr(0, kUel.size() + 15), kUel + "@PJL JOB NAME=\"") << *plot;
    EXPECT_NE(plot->find("\n@PJL ENTER LANGUAGE=HPGL2\n\x1B"
                         "E\x1B%0BBP"),
              std::string::npos)
        << *plot;
    const std::string end = kUel + "@PJL EOJ NAME=\"" + name + "\"\n";
    ASSERT_GE(plot->size(), end.size());
    EXPECT_EQ(plot->substr(plot->size() - end.size()), end);

    // The bytes vrkplot writes for the same document and language, once its job name (the
    // document's path) is the spooler's.
    const std::string expected = VrkplotPlot(Folder(), pdf);
    EXPECT_EQ(*plot, Renamed(expected, JobName(expected), name));
}

}  // namespace
