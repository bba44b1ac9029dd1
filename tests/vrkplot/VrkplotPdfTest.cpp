// vrkplot on PDF documents: every page a page of the plot, text as outlines or labels, and
// damaged documents refused without output. The documents are made by the tests with cairo's PDF
// surface.

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

// An A4 page with one line of text, 24 points of DejaVu Sans, an inch in and two down.
std::string textPage() {
    return PdfTestDocument::Make(595.2756, 841.8898, 1, [](cairo_t* cairo, int) {
        cairo_select_font_face(cairo, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cairo, 24);
        cairo_move_to(cairo, 72, 144);
        cairo_show_text(cairo, "Plan 7");
    });
}

TEST_F(Vrkplot, PdfTextBecomesALabelWithTextLabels) {
    folder.Write("plan.pdf", textPage());
    ASSERT_EQ(Run({"plan.pdf", "-l", "HPGL2", "-o", "plan.plt", "--text", "labels", "-q"}), 0)
        << err;
    EXPECT_EQ(err, "");
    ASSERT_EQ(Run({"dump", "plan.plt"}), 0) << err;
    // One label in the sans-serif font at 24 points, at the line's origin, and no glyph
    // outlines filled.
    EXPECT_EQ(countLines(out, "LB \"Plan 7\""), 1) << out;
    EXPECT_EQ(countLines(out, "SD 1,14,2,1,4,24.00,6,0,7,4"), 1) << out;
    EXPECT_EQ(countLines(out, "PU 1015.00,9848.00"), 1) << out;
    EXPECT_EQ(countLines(out, "PM"), 0) << out;
    EXPECT_EQ(countLines(out, "FP"), 0) << out;
}

TEST_F(Vrkplot, PdfTextIsOutlinedByDefaultAndWithTextOutlines) {
    folder.Write("plan.pdf", textPage());
    ASSERT_EQ(Run({"plan.pdf", "-l", "HPGL2", "-o", "default.plt", "-q"}), 0) << err;
    ASSERT_EQ(Run({"plan.pdf", "-l", "HPGL2", "-o", "outlines.plt", "--text", "outlines", "-q"}), 0)
        << err;
    ASSERT_EQ(Run({"dump", "default.plt"}), 0) << err;
    const std::string outlined = out;
    EXPECT_EQ(countLines(outlined, "LB"), 0) << outlined;
    // The five glyphs with ink (the space has none) each filled.
    EXPECT_EQ(countLines(outlined, "FP"), 5) << outlined;
    ASSERT_EQ(Run({"dump", "outlines.plt"}), 0) << err;
    EXPECT_EQ(out, outlined);
}

TEST_F(Vrkplot, TextModeMustBeKnown) {
    folder.Write("plan.pdf", textPage());
    EXPECT_EQ(Run({"plan.pdf", "-l", "HPGL2", "--text", "strokes"}), 2);
    EXPECT_NE(err.find("--text"), std::string::npos) << err;
    EXPECT_EQ(folder.Listing(), "plan.pdf\n");
}

}  // namespace
