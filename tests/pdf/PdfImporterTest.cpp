#include <gtest/gtest.h>

#include <cairo.h>

#include <string>
#include <vector>

#include "host/pdf/VRKPdfImporter.h"
#include "pdf/PdfTestDocument.h"

namespace {

// Points to millimetres, and the SVG importer's turn of the y axis (origin at the lower left).
constexpr double kMmPerPoint = 25.4 / 72.0;
// Coordinates go from the PDF through poppler's and cairo's matrices and the SVG text into
// floats: a thousandth of a millimetre is well above what is lost on the way.
constexpr double kTolerance = 1e-3;

constexpr double kPageWidth = 200.0;
constexpr double kPageHeight = 100.0;

double X(double points) {
    return points * kMmPerPoint;
}
double Y(double points) {
    return (kPageHeight - points) * kMmPerPoint;
}

std::vector<VRKDrawing> Read(const std::string& pdf, VRKPdfImporter& importer) {
    std::vector<VRKDrawing> pages;
    EXPECT_TRUE(importer.ReadMemory(pdf, "plan.pdf", pages)) << importer.GetError();
    return pages;
}

TEST(PdfImporter, FilledSquareLandsAtItsPlaceInMillimetres) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_rectangle(c, 20, 30, 40, 40);
        cairo_set_source_rgb(c, 0, 0, 0);
        cairo_fill(c);
    });
    VRKPdfImporter importer;
    const std::vector<VRKDrawing> pages = Read(pdf, importer);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    EXPECT_NEAR(page.width, X(kPageWidth), kTolerance);
    EXPECT_NEAR(page.height, kPageHeight * kMmPerPoint, kTolerance);
    ASSERT_EQ(page.fills.size(), 1u);
    EXPECT_TRUE(page.strokes.empty());
    const VRKDrawingFill& fill = page.fills[0];
    EXPECT_EQ(fill.color, (VRKDrawingColor{0, 0, 0}));
    EXPECT_EQ(fill.rule, 1);
    ASSERT_EQ(fill.ringCount, 1u);
    ASSERT_EQ(page.ringSizes[fill.firstRing], 4u);
    const double expected[4][2] = {{20, 30}, {60, 30}, {60, 70}, {20, 70}};
    for (int i = 0; i < 4; ++i) {
        const VRKDrawingPoint p = page.points[fill.first + i];
        EXPECT_NEAR(p.x, X(expected[i][0]), kTolerance) << i;
        EXPECT_NEAR(p.y, Y(expected[i][1]), kTolerance) << i;
    }
    EXPECT_TRUE(importer.GetWarnings().empty());
}

TEST(PdfImporter, StrokedLineKeepsItsWidth) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_move_to(c, 10, 20);
        cairo_line_to(c, 150, 80);
        cairo_set_line_width(c, 2.0);
        cairo_set_source_rgb(c, 1, 0, 0);
        cairo_stroke(c);
    });
    VRKPdfImporter importer;
    const std::vector<VRKDrawing> pages = Read(pdf, importer);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    ASSERT_EQ(page.strokes.size(), 1u);
    EXPECT_TRUE(page.fills.empty());
    const VRKDrawingStroke& stroke = page.strokes[0];
    ASSERT_EQ(stroke.kind, VRKDrawingStroke::Kind::kPath);
    ASSERT_EQ(stroke.count, 2u);
    const VRKDrawingPen& pen = page.pens[stroke.pen];
    EXPECT_EQ(pen.color, (VRKDrawingColor{255, 0, 0}));
    EXPECT_NEAR(pen.width, 2.0 * kMmPerPoint, kTolerance);
    EXPECT_NEAR(page.points[stroke.first].x, X(10), kTolerance);
    EXPECT_NEAR(page.points[stroke.first].y, Y(20), kTolerance);
    EXPECT_NEAR(page.points[stroke.first + 1].x, X(150), kTolerance);
    EXPECT_NEAR(page.points[stroke.first + 1].y, Y(80), kTolerance);
}

TEST(PdfImporter, BezierCurveKeepsItsControlPoints) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_move_to(c, 10, 90);
        cairo_curve_to(c, 40, 10, 120, 10, 190, 90);
        cairo_set_line_width(c, 1.0);
        cairo_stroke(c);
    });
    VRKPdfImporter importer;
    const std::vector<VRKDrawing> pages = Read(pdf, importer);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    ASSERT_EQ(page.strokes.size(), 1u);
    const VRKDrawingStroke& stroke = page.strokes[0];
    ASSERT_EQ(stroke.count, 4u);
    const std::vector<std::uint8_t> flags(page.controls.begin() + stroke.first,
                                          page.controls.begin() + stroke.first + stroke.count);
    EXPECT_EQ(flags, (std::vector<std::uint8_t>{0, 1, 1, 0}));
    const double expected[4][2] = {{10, 90}, {40, 10}, {120, 10}, {190, 90}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(page.points[stroke.first + i].x, X(expected[i][0]), kTolerance) << i;
        EXPECT_NEAR(page.points[stroke.first + i].y, Y(expected[i][1]), kTolerance) << i;
    }
}

TEST(PdfImporter, EveryPageBecomesADrawingInOrder) {
    const std::string pdf =
        PdfTestDocument::Make(kPageWidth, kPageHeight, 2, [](cairo_t* c, int n) {
            // One square on the first page, two on the second.
            for (int i = 0; i <= n; ++i) {
                cairo_rectangle(c, 10 + 50 * i, 10, 20, 20);
                cairo_fill(c);
            }
        });
    VRKPdfImporter importer;
    const std::vector<VRKDrawing> pages = Read(pdf, importer);
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].fills.size(), 1u);
    EXPECT_EQ(pages[1].fills.size(), 2u);
}

TEST(PdfImporter, TextIsDrawnAsFilledOutlines) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_select_font_face(c, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(c, 24);
        cairo_move_to(c, 20, 60);
        cairo_show_text(c, "HPGL");
    });
    VRKPdfImporter importer;
    const std::vector<VRKDrawing> pages = Read(pdf, importer);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_GE(pages[0].fills.size(), 1u);
    EXPECT_TRUE(pages[0].texts.empty());
    for (const VRKDrawingPoint& p : pages[0].points) {
        // The outlines stay about the text's place: 20 points in, the baseline at 60.
        EXPECT_GT(p.x, X(19));
        EXPECT_LT(p.y, Y(60 - 30));
        EXPECT_GT(p.y, Y(60 + 10));
    }
}

TEST(PdfImporter, ImageBecomesAnImage) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 2, 2);
        cairo_t* ic = cairo_create(image);
        cairo_set_source_rgb(ic, 0, 0, 1);
        cairo_paint(ic);
        cairo_destroy(ic);
        cairo_translate(c, 30, 40);
        cairo_scale(c, 10, 10);
        cairo_set_source_surface(c, image, 0, 0);
        cairo_paint(c);
        cairo_surface_destroy(image);
    });
    VRKPdfImporter importer;
    const std::vector<VRKDrawing> pages = Read(pdf, importer);
    ASSERT_EQ(pages.size(), 1u);
    ASSERT_EQ(pages[0].images.size(), 1u);
}

TEST(PdfImporter, EvenOddFillKeepsItsRule) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_rectangle(c, 10, 10, 80, 80);
        cairo_rectangle(c, 30, 30, 40, 40);
        cairo_set_fill_rule(c, CAIRO_FILL_RULE_EVEN_ODD);
        cairo_fill(c);
    });
    VRKPdfImporter importer;
    const std::vector<VRKDrawing> pages = Read(pdf, importer);
    ASSERT_EQ(pages.size(), 1u);
    ASSERT_EQ(pages[0].fills.size(), 1u);
    EXPECT_EQ(pages[0].fills[0].rule, 0);
    EXPECT_EQ(pages[0].fills[0].ringCount, 2u);
}

TEST(PdfImporter, BytesThatAreNoPdfAreRefused) {
    VRKPdfImporter importer;
    std::vector<VRKDrawing> pages(1);
    EXPECT_FALSE(
        importer.ReadMemory("<svg xmlns='http://www.w3.org/2000/svg'/>", "plan.pdf", pages));
    EXPECT_EQ(importer.GetError(), "plan.pdf: the file is not a PDF document (no %PDF- header)");
    EXPECT_TRUE(pages.empty());
}

TEST(PdfImporter, TruncatedDocumentGivesAnErrorAndNoPages) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_rectangle(c, 20, 30, 40, 40);
        cairo_fill(c);
    });
    VRKPdfImporter importer;
    std::vector<VRKDrawing> pages(1);
    EXPECT_FALSE(importer.ReadMemory(std::string_view(pdf).substr(0, 40), "plan.pdf", pages));
    EXPECT_EQ(importer.GetError(), "plan.pdf: the document is damaged");
    EXPECT_TRUE(pages.empty());
}

TEST(PdfImporter, LooksLikePdf) {
    EXPECT_TRUE(VRKPdfImporter::LooksLikePdf("%PDF-1.5\n"));
    EXPECT_TRUE(VRKPdfImporter::LooksLikePdf(std::string(1019, ' ') + "%PDF-1.7"));
    EXPECT_FALSE(VRKPdfImporter::LooksLikePdf(std::string(1024, ' ') + "%PDF-1.7"));
    EXPECT_FALSE(VRKPdfImporter::LooksLikePdf("%PDF"));
    EXPECT_FALSE(VRKPdfImporter::LooksLikePdf(""));
    EXPECT_FALSE(VRKPdfImporter::LooksLikePdf("<?xml version='1.0'?><svg/>"));
}

}  // namespace

namespace {

TEST(PdfImporter, WarningsNameThePageOnceForAllPages) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 2, [](cairo_t* c, int) {
        cairo_rectangle(c, 10, 10, 50, 50);
        cairo_clip(c);
        cairo_arc(c, 40, 40, 30, 0, 6.283185307179586);
        cairo_fill(c);
    });
    VRKPdfImporter importer;
    const std::vector<VRKDrawing> pages = Read(pdf, importer);
    ASSERT_EQ(pages.size(), 2u);
    // Clipping is met on both pages and reported once, for the first; the line of the
    // intermediate SVG is not named.
    EXPECT_EQ(importer.GetWarnings(),
              (std::vector<std::string>{
                  "plan.pdf: page 1: <g>: clipping paths are not supported; drawn unclipped"}));
}

TEST(PdfImporter, DocumentCutInHalfIsDamaged) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 2, [](cairo_t* c, int) {
        cairo_rectangle(c, 10, 10, 50, 50);
        cairo_fill(c);
    });
    VRKPdfImporter importer;
    std::vector<VRKDrawing> pages(1);
    EXPECT_FALSE(
        importer.ReadMemory(std::string_view(pdf).substr(0, pdf.size() / 2), "plan.pdf", pages));
    EXPECT_EQ(importer.GetError(), "plan.pdf: the document is damaged");
    EXPECT_TRUE(pages.empty());
}

}  // namespace

namespace {

// A one-page document under the standard security handler whose user password is not empty:
// the /U entry matches no key made from the empty password, so the document cannot be opened.
std::string EncryptedDocument() {
    const std::string hex32(64, 'A');
    const std::vector<std::string> objects = {
        "<< /Type /Catalog /Pages 2 0 R >>",
        "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] >>",
        "<< /Filter /Standard /V 1 /R 2 /O <" + hex32 + "> /U <" + hex32 + "> /P -4 >>",
    };
    std::string pdf = "%PDF-1.4\n";
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        offsets.push_back(pdf.size());
        pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::size_t xref = pdf.size();
    pdf += "xref\n0 5\n0000000000 65535 f \n";
    for (const std::size_t offset : offsets) {
        const std::string digits = std::to_string(offset);
        pdf += std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
    }
    pdf += "trailer\n<< /Size 5 /Root 1 0 R /Encrypt 4 0 R /ID [<" + hex32.substr(0, 32) + "> <" +
           hex32.substr(0, 32) + ">] >>\nstartxref\n" + std::to_string(xref) + "\n%%EOF\n";
    return pdf;
}

TEST(PdfImporter, EncryptedDocumentAsksForAPassword) {
    VRKPdfImporter importer;
    std::vector<VRKDrawing> pages(1);
    EXPECT_FALSE(importer.ReadMemory(EncryptedDocument(), "plan.pdf", pages));
    EXPECT_EQ(importer.GetError(), "plan.pdf: the document is encrypted; it needs a password");
    EXPECT_TRUE(pages.empty());
}

}  // namespace
