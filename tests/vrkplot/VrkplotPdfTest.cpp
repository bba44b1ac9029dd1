// vrkplot on PDF documents: every page a page of the plot, and damaged documents refused
// without output. The documents are made by the tests with cairo's PDF surface.

#include <gtest/gtest.h>

#include <string>

#include "pdf/PdfTestDocument.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

// Counts the lines of a listing that start with `start`.
int countLines(const std::string& listing, const std::string& start) {
    int count = 0;
    std::size_t at = 0;
    while (at < listing.size()) {
        const std::size_t end = listing.find('\n', at);
        if (listing.compare(at, start.size(), start) == 0) {
            ++count;
        }
        if (end == std::string::npos) {
            break;
        }
        at = end + 1;
    }
    return count;
}

// An A4 document of two pages, a filled rectangle and a line on each.
std::string twoPages() {
    return PdfTestDocument::Make(595.2756, 841.8898, 2, [](cairo_t* cairo, int page) {
        cairo_rectangle(cairo, 72 + page * 72, 72, 144, 72);
        cairo_fill(cairo);
        cairo_move_to(cairo, 72, 400);
        cairo_line_to(cairo, 500, 500);
        cairo_set_line_width(cairo, 2);
        cairo_stroke(cairo);
    });
}

TEST_F(Vrkplot, APdfOfTwoPagesIsAPlotOfTwoPages) {
    folder.Write("plan.pdf", twoPages());
    ASSERT_EQ(Run({"plan.pdf", "-l", "HP1000GL2", "-o", "plan.plt"}), 0) << err;
    EXPECT_EQ(err, "");
    ASSERT_EQ(Run({"dump", "plan.plt"}), 0) << err;
    // Each page sets its A4 form (8400 by 11880 plotter units) and ends with a page advance.
    EXPECT_EQ(countLines(out, "PS 8400,11880"), 2) << out;
    EXPECT_EQ(countLines(out, "PG;"), 2) << out;
    EXPECT_EQ(countLines(out, "FP"), 2) << out;
}

TEST_F(Vrkplot, APdfIsKnownByItsContent) {
    folder.Write("plan.bin", twoPages());
    ASSERT_EQ(Run({"plan.bin", "-l", "HPGL2", "-o", "plan.plt", "-q"}), 0) << err;
    EXPECT_EQ(err, "");
}

TEST_F(Vrkplot, ADamagedPdfLeavesNoOutput) {
    const std::string pdf = twoPages();
    folder.Write("cut.pdf", pdf.substr(0, pdf.size() / 2));
    EXPECT_EQ(Run({"cut.pdf", "-l", "HPGL2"}), 2);
    EXPECT_EQ(err.rfind("cut.pdf: ", 0), 0u) << err;
    EXPECT_EQ(folder.Listing(), "cut.pdf\n");
}

}  // namespace
