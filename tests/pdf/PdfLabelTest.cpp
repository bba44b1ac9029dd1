// Text of PDF documents as labels: runs of glyphs in a plain font become the drawing's texts at
// their origin, size, angle and colour, and their outlines are left out; what a plotter font
// cannot stand for stays outlines.

#include <gtest/gtest.h>

#include <cairo.h>

#include <string>
#include <vector>

#include "host/core/VRKPrintTextAttribute.h"
#include "host/pdf/VRKPdfFontKind.h"
#include "host/pdf/VRKPdfImporter.h"
#include "host/pdf/VRKPdfTextLabels.h"
#include "pdf/PdfObjectFile.h"
#include "pdf/PdfTestDocument.h"

namespace {

constexpr double kMmPerPoint = 25.4 / 72.0;
constexpr double kPi = 3.14159265358979323846;
// A glyph's origin is written to the SVG with a few decimals and goes through floats: a
// thousandth of a millimetre is well above what is lost.
constexpr double kTolerance = 1e-3;
// Angles come from the origins of the run's first and last glyphs.
constexpr double kAngleTolerance = 1e-3;

constexpr double kPageWidth = 200.0;
constexpr double kPageHeight = 100.0;

double X(double points) {
    return points * kMmPerPoint;
}
double Y(double points) {
    return (kPageHeight - points) * kMmPerPoint;
}

std::vector<VRKDrawing> Read(const std::string& pdf, bool labels) {
    VRKPdfImporter importer;
    importer.SetTextLabels(labels);
    std::vector<VRKDrawing> pages;
    EXPECT_TRUE(importer.ReadMemory(pdf, "text.pdf", pages)) << importer.GetError();
    return pages;
}

void Show(cairo_t* c, const char* family, cairo_font_weight_t weight, double size, double x,
          double y, double angle, const char* text) {
    cairo_save(c);
    cairo_select_font_face(c, family, CAIRO_FONT_SLANT_NORMAL, weight);
    cairo_set_font_size(c, size);
    cairo_move_to(c, x, y);
    cairo_rotate(c, angle);
    cairo_show_text(c, text);
    cairo_restore(c);
}

std::string OneLine(const char* text) {
    return PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [text](cairo_t* c, int) {
        cairo_set_source_rgb(c, 1, 0, 0);
        Show(c, "DejaVu Sans", CAIRO_FONT_WEIGHT_NORMAL, 24, 20, 60, 0, text);
    });
}

TEST(PdfLabels, LineOfTextIsOneLabelAtItsOrigin) {
    const std::vector<VRKDrawing> pages = Read(OneLine("HPGL 2"), true);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    // No glyph outlines are left.
    EXPECT_TRUE(page.fills.empty());
    EXPECT_TRUE(page.strokes.empty());
    ASSERT_EQ(page.texts.size(), 1u);
    ASSERT_EQ(page.items.size(), 1u);
    EXPECT_EQ(page.items[0].kind, VRKDrawingItem::Kind::kText);
    const VRKDrawingText& text = page.texts[0];
    EXPECT_EQ(text.utf8, "HPGL 2");
    EXPECT_NEAR(text.x, X(20), kTolerance);
    EXPECT_NEAR(text.y, Y(60), kTolerance);
    EXPECT_NEAR(text.size, 24 * kMmPerPoint, kTolerance);
    EXPECT_EQ(text.direction, 0.0f);
    EXPECT_EQ(text.color, (VRKDrawingColor{255, 0, 0}));
    EXPECT_EQ(text.font, VRKFontSans);
    EXPECT_EQ(text.weight, VRKWeightNormal);
    EXPECT_EQ(text.anchor, VRKAnchorBaseLeft);
}

TEST(PdfLabels, OutlinesByDefault) {
    VRKPdfImporter importer;
    std::vector<VRKDrawing> pages;
    ASSERT_TRUE(importer.ReadMemory(OneLine("HPGL 2"), "text.pdf", pages));
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_TRUE(pages[0].texts.empty());
    EXPECT_GE(pages[0].fills.size(), 5u);
    // Asked for outlines, the same.
    const std::vector<VRKDrawing> outlined = Read(OneLine("HPGL 2"), false);
    ASSERT_EQ(outlined.size(), 1u);
    EXPECT_TRUE(outlined[0].texts.empty());
    EXPECT_EQ(outlined[0].fills.size(), pages[0].fills.size());
    EXPECT_EQ(outlined[0].points, pages[0].points);
}

TEST(PdfLabels, MarkupCharactersAreKept) {
    const std::vector<VRKDrawing> pages = Read(OneLine("A&B <C>"), true);
    ASSERT_EQ(pages.size(), 1u);
    ASSERT_EQ(pages[0].texts.size(), 1u);
    EXPECT_EQ(pages[0].texts[0].utf8, "A&B <C>");
    EXPECT_TRUE(pages[0].fills.empty());
}

TEST(PdfLabels, TurnedTextKeepsItsAngle) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        // Up the page from (100, 80); down to the right at 30 degrees from (150, 30).
        Show(c, "DejaVu Serif", CAIRO_FONT_WEIGHT_NORMAL, 12, 100, 80, -kPi / 2, "UP");
        Show(c, "DejaVu Sans Mono", CAIRO_FONT_WEIGHT_NORMAL, 10, 150, 30, kPi / 6, "Diag");
    });
    const std::vector<VRKDrawing> pages = Read(pdf, true);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    EXPECT_TRUE(page.fills.empty());
    ASSERT_EQ(page.texts.size(), 2u);
    const VRKDrawingText& up = page.texts[0];
    EXPECT_EQ(up.utf8, "UP");
    EXPECT_NEAR(up.x, X(100), kTolerance);
    EXPECT_NEAR(up.y, Y(80), kTolerance);
    EXPECT_NEAR(up.direction, 90.0, kAngleTolerance);
    EXPECT_NEAR(up.size, 12 * kMmPerPoint, kTolerance);
    EXPECT_EQ(up.font, VRKFontSerif);
    const VRKDrawingText& diagonal = page.texts[1];
    EXPECT_EQ(diagonal.utf8, "Diag");
    EXPECT_NEAR(diagonal.x, X(150), kTolerance);
    EXPECT_NEAR(diagonal.y, Y(30), kTolerance);
    EXPECT_NEAR(diagonal.direction, -30.0, kAngleTolerance);
    EXPECT_NEAR(diagonal.size, 10 * kMmPerPoint, kTolerance);
    EXPECT_EQ(diagonal.font, VRKFontMonospace);
}

TEST(PdfLabels, TwoColoursAreTwoLabels) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_set_source_rgb(c, 1, 0, 0);
        Show(c, "DejaVu Sans", CAIRO_FONT_WEIGHT_BOLD, 12, 20, 40, 0, "Red");
        cairo_set_source_rgb(c, 0, 0, 1);
        Show(c, "DejaVu Sans", CAIRO_FONT_WEIGHT_NORMAL, 12, 20, 70, 0, "Blue");
    });
    const std::vector<VRKDrawing> pages = Read(pdf, true);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    EXPECT_TRUE(page.fills.empty());
    ASSERT_EQ(page.texts.size(), 2u);
    EXPECT_EQ(page.texts[0].utf8, "Red");
    EXPECT_EQ(page.texts[0].color, (VRKDrawingColor{255, 0, 0}));
    EXPECT_EQ(page.texts[0].weight, VRKWeightBold);
    EXPECT_NEAR(page.texts[0].y, Y(40), kTolerance);
    EXPECT_EQ(page.texts[1].utf8, "Blue");
    EXPECT_EQ(page.texts[1].color, (VRKDrawingColor{0, 0, 255}));
    EXPECT_EQ(page.texts[1].weight, VRKWeightNormal);
    EXPECT_NEAR(page.texts[1].y, Y(70), kTolerance);
}

TEST(PdfLabels, HeavilySlantedTextStaysOutlines) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        // Sheared by 30 degrees: no plotter font leans so.
        cairo_save(c);
        cairo_translate(c, 20, 40);
        cairo_matrix_t shear;
        cairo_matrix_init(&shear, 1, 0, -0.577, 1, 0, 0);
        cairo_transform(c, &shear);
        Show(c, "DejaVu Sans", CAIRO_FONT_WEIGHT_NORMAL, 12, 0, 0, 0, "Lean");
        cairo_restore(c);
        // Sheared by 5 degrees: labelled upright.
        cairo_translate(c, 20, 80);
        cairo_matrix_init(&shear, 1, 0, -0.0875, 1, 0, 0);
        cairo_transform(c, &shear);
        Show(c, "DejaVu Sans", CAIRO_FONT_WEIGHT_NORMAL, 12, 0, 0, 0, "Tilt");
    });
    const std::vector<VRKDrawing> pages = Read(pdf, true);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    EXPECT_EQ(page.fills.size(), 4u);
    ASSERT_EQ(page.texts.size(), 1u);
    EXPECT_EQ(page.texts[0].utf8, "Tilt");
    EXPECT_NEAR(page.texts[0].x, X(20), kTolerance);
    EXPECT_NEAR(page.texts[0].y, Y(80), kTolerance);
    EXPECT_NEAR(page.texts[0].direction, 0.0, kAngleTolerance);
}

TEST(PdfLabels, TextBetweenShapesKeepsItsPlaceInTheDrawingOrder) {
    const std::string pdf = PdfTestDocument::Make(kPageWidth, kPageHeight, 1, [](cairo_t* c, int) {
        cairo_rectangle(c, 10, 10, 20, 20);
        cairo_fill(c);
        Show(c, "DejaVu Sans", CAIRO_FONT_WEIGHT_NORMAL, 12, 20, 60, 0, "Over");
        cairo_rectangle(c, 50, 10, 20, 20);
        cairo_fill(c);
    });
    const std::vector<VRKDrawing> pages = Read(pdf, true);
    ASSERT_EQ(pages.size(), 1u);
    const std::vector<VRKDrawingItem>& items = pages[0].items;
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].kind, VRKDrawingItem::Kind::kFill);
    EXPECT_EQ(items[1].kind, VRKDrawingItem::Kind::kText);
    EXPECT_EQ(items[2].kind, VRKDrawingItem::Kind::kFill);
}

// A page of text in a Type 3 font whose two glyphs are squares drawn by the font's own
// procedures, and a line in a standard font after it.
std::string Type3Document() {
    PdfObjectFile pdf;
    pdf.Add("<< /Type /Catalog /Pages 2 0 R >>");
    pdf.Add("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
    pdf.Add(
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] /Contents 4 0 R "
        "/Resources << /Font << /F1 5 0 R /F2 8 0 R >> >> >>");
    pdf.AddStream("BT /F1 10 Tf 30 60 Td (AB) Tj ET BT /F2 10 Tf 20 30 Td (Hi) Tj ET");
    pdf.Add(
        "<< /Type /Font /Subtype /Type3 /FontBBox [0 0 1000 1000] "
        "/FontMatrix [0.001 0 0 0.001 0 0] /CharProcs 6 0 R "
        "/Encoding << /Type /Encoding /Differences [65 /A /B] >> /FirstChar 65 "
        "/LastChar 66 /Widths [1000 1000] /Resources << >> >>");
    pdf.Add("<< /A 7 0 R /B 7 0 R >>");
    pdf.AddStream("1000 0 0 0 1000 1000 d1 0 0 800 800 re f");
    pdf.Add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>");
    return pdf.Finish(1);
}

TEST(PdfLabels, Type3GlyphsStayOutlines) {
    const std::vector<VRKDrawing> pages = Read(Type3Document(), true);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    // The two squares of the Type 3 font stay filled outlines; the standard font's line is a
    // label, 10 points of Helvetica's "H" (722 thousandths of an em) apart from its "i".
    EXPECT_EQ(page.fills.size(), 2u);
    ASSERT_EQ(page.texts.size(), 1u);
    EXPECT_EQ(page.texts[0].utf8, "Hi");
    EXPECT_NEAR(page.texts[0].x, X(20), kTolerance);
    EXPECT_NEAR(page.texts[0].y, 30 * kMmPerPoint, kTolerance);
    EXPECT_NEAR(page.texts[0].size, 10 * kMmPerPoint, kTolerance);
    EXPECT_EQ(page.texts[0].font, VRKFontSans);
}

TEST(PdfLabels, TextOfATurnedPageIsTurnedWithIt) {
    PdfObjectFile pdf;
    pdf.Add("<< /Type /Catalog /Pages 2 0 R >>");
    pdf.Add("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
    pdf.Add(
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] /Rotate 90 /Contents 4 0 R "
        "/Resources << /Font << /F1 5 0 R >> >> >>");
    pdf.AddStream("BT /F1 10 Tf 20 30 Td (Hi) Tj ET");
    pdf.Add("<< /Type /Font /Subtype /Type1 /BaseFont /Times-Bold >>");
    const std::vector<VRKDrawing> pages = Read(pdf.Finish(1), true);
    ASSERT_EQ(pages.size(), 1u);
    const VRKDrawing& page = pages[0];
    EXPECT_NEAR(page.width, 100 * kMmPerPoint, kTolerance);
    EXPECT_NEAR(page.height, 200 * kMmPerPoint, kTolerance);
    EXPECT_TRUE(page.fills.empty());
    ASSERT_EQ(page.texts.size(), 1u);
    const VRKDrawingText& text = page.texts[0];
    EXPECT_EQ(text.utf8, "Hi");
    // Turned a quarter clockwise with the page: (20, 30) is 30 points from the left and 20
    // from the top of the turned page, and the text runs down it.
    EXPECT_NEAR(text.x, 30 * kMmPerPoint, kTolerance);
    EXPECT_NEAR(text.y, (200 - 20) * kMmPerPoint, kTolerance);
    EXPECT_NEAR(text.direction, -90.0, kAngleTolerance);
    EXPECT_EQ(text.font, VRKFontSerif);
    EXPECT_EQ(text.weight, VRKWeightBold);
}

TEST(PdfLabels, InvisibleTextMakesNoLabel) {
    // Render mode 3: text that is there to be found, not seen (scanned pages).
    PdfObjectFile pdf;
    pdf.Add("<< /Type /Catalog /Pages 2 0 R >>");
    pdf.Add("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
    pdf.Add(
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] /Contents 4 0 R "
        "/Resources << /Font << /F1 5 0 R >> >> >>");
    pdf.AddStream("BT 3 Tr /F1 10 Tf 20 30 Td (Hidden) Tj ET");
    pdf.Add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>");
    const std::vector<VRKDrawing> pages = Read(pdf.Finish(1), true);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_TRUE(pages[0].texts.empty());
    EXPECT_TRUE(pages[0].items.empty());
}

TEST(PdfLabels, ClippingTextStaysOutOfTheLabels) {
    // Render mode 7: the glyphs only clip what follows.
    PdfObjectFile pdf;
    pdf.Add("<< /Type /Catalog /Pages 2 0 R >>");
    pdf.Add("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
    pdf.Add(
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] /Contents 4 0 R "
        "/Resources << /Font << /F1 5 0 R >> >> >>");
    pdf.AddStream("q BT 7 Tr /F1 40 Tf 20 30 Td (Clip) Tj ET 0 0 200 100 re f Q");
    pdf.Add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>");
    const std::vector<VRKDrawing> pages = Read(pdf.Finish(1), true);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_TRUE(pages[0].texts.empty());
    EXPECT_EQ(pages[0].fills.size(), 1u);
}

TEST(PdfLabels, StrokedTextStaysOutlines) {
    // Render mode 1: the glyphs' outlines stroked, not filled; no plotter font draws that.
    PdfObjectFile pdf;
    pdf.Add("<< /Type /Catalog /Pages 2 0 R >>");
    pdf.Add("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
    pdf.Add(
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] /Contents 4 0 R "
        "/Resources << /Font << /F1 5 0 R >> >> >>");
    pdf.AddStream("BT 1 Tr /F1 40 Tf 20 30 Td (Hi) Tj ET");
    pdf.Add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>");
    const std::vector<VRKDrawing> pages = Read(pdf.Finish(1), true);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_TRUE(pages[0].texts.empty());
    EXPECT_FALSE(pages[0].strokes.empty());
}

}  // namespace

namespace {

// The rewriting on its own, on SVG text as cairo writes it.
VRKPdfCharacter Character(const char* utf8, double x1, double y1, double x2, double y2) {
    VRKPdfCharacter c;
    c.utf8 = utf8;
    c.x1 = x1;
    c.y1 = y1;
    c.x2 = x2;
    c.y2 = y2;
    c.font = "Helvetica";
    c.size = 10;
    return c;
}

const char* const kGlyphs =
    "<defs><g><symbol id=\"glyph0-1\"><path d=\"M 0 0 L 1 0 Z\"/></symbol></g></defs>\n"
    "<g id=\"surface1\">\n"
    "<g style=\"fill:rgb(0%,0%,0%);fill-opacity:1;\">\n"
    "  <use xlink:href=\"#glyph0-1\" x=\"20\" y=\"70\"/>\n"
    "  <use xlink:href=\"#glyph0-2\" x=\"27.22\" y=\"70\"/>\n"
    "</g>\n</g>\n";

TEST(PdfTextLabels, GlyphsOfARunBecomeOneTextElement) {
    std::string svg = kGlyphs;
    const std::vector<VRKPdfCharacter> characters = {Character("H", 20, 62.82, 27.22, 72.07),
                                                     Character("i", 27.22, 62.82, 30, 72.07)};
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 1u);
    EXPECT_EQ(svg,
              "<defs><g><symbol id=\"glyph0-1\"><path d=\"M 0 0 L 1 0 Z\"/></symbol></g></defs>\n"
              "<g id=\"surface1\">\n"
              "<g style=\"fill:rgb(0%,0%,0%);fill-opacity:1;\">\n"
              "  <text x=\"20.0000\" y=\"70.0000\" xml:space=\"preserve\" "
              "style=\"stroke:none;font-size:10.0000px;font-family:sans-serif\">Hi</text>\n"
              "  \n</g>\n</g>\n");
}

TEST(PdfTextLabels, GlyphsNoCharacterStartsStayOutlines) {
    std::string svg = kGlyphs;
    // The characters are a point off the glyphs' origins.
    const std::vector<VRKPdfCharacter> characters = {Character("H", 21, 62.82, 28.22, 72.07),
                                                     Character("i", 28.22, 62.82, 31, 72.07)};
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 0u);
    EXPECT_EQ(svg, kGlyphs);
}

TEST(PdfTextLabels, CharactersOfAFontWithoutOutlinesOfItsOwnStayOutlines) {
    std::string svg = kGlyphs;
    std::vector<VRKPdfCharacter> characters = {Character("H", 20, 62.82, 27.22, 72.07),
                                               Character("i", 27.22, 62.82, 30, 72.07)};
    characters[0].plain = false;
    characters[1].plain = false;
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 0u);
    EXPECT_EQ(svg, kGlyphs);
}

TEST(PdfTextLabels, GlyphsPaintedWithAPatternStayOutlines) {
    std::string svg = kGlyphs;
    const std::string plain = "fill:rgb(0%,0%,0%);fill-opacity:1;";
    svg.replace(svg.find(plain), plain.size(), "fill:url(#pattern0);");
    const std::string before = svg;
    const std::vector<VRKPdfCharacter> characters = {Character("H", 20, 62.82, 27.22, 72.07),
                                                     Character("i", 27.22, 62.82, 30, 72.07)};
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 0u);
    EXPECT_EQ(svg, before);
}

TEST(PdfTextLabels, WordsApartAreLabelsApart) {
    // A gap between "H" and "i" that the text layer fills with a space of its own: two labels,
    // each at its own origin.
    std::string svg = kGlyphs;
    const std::string second = "x=\"27.22\"";
    svg.replace(svg.find(second), second.size(), "x=\"40\"");
    const std::vector<VRKPdfCharacter> characters = {Character("H", 20, 62.82, 27.22, 72.07),
                                                     Character(" ", 27.22, 62.82, 40, 72.07),
                                                     Character("i", 40, 62.82, 42.78, 72.07)};
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 2u);
    EXPECT_NE(svg.find(">H</text>"), std::string::npos) << svg;
    EXPECT_NE(svg.find("<text x=\"40.0000\" y=\"70.0000\""), std::string::npos) << svg;
    EXPECT_NE(svg.find(">i</text>"), std::string::npos) << svg;
}

TEST(PdfTextLabels, LigatureGivesAllItsCharacters) {
    // One glyph for "fi", then "x": the text layer splits the ligature's advance in two.
    std::string svg = kGlyphs;
    const std::vector<VRKPdfCharacter> characters = {Character("f", 20, 62.82, 23.61, 72.07),
                                                     Character("i", 23.61, 62.82, 27.22, 72.07),
                                                     Character("x", 27.22, 62.82, 32, 72.07)};
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 1u);
    EXPECT_NE(svg.find(">fix</text>"), std::string::npos) << svg;
}

// Glyph uses at (x, 70), each drawing call in a group of its own, all in black.
std::string Calls(const std::vector<std::vector<double>>& calls) {
    std::string svg = "<defs></defs>\n<g id=\"surface1\">\n";
    int glyph = 1;
    for (const std::vector<double>& call : calls) {
        svg += "<g style=\"fill:rgb(0%,0%,0%);fill-opacity:1;\">\n";
        for (const double x : call) {
            std::string number = std::to_string(x);
            number.erase(number.find_last_not_of('0') + 1);
            if (number.back() == '.') {
                number.pop_back();
            }
            svg += "  <use xlink:href=\"#glyph0-" + std::to_string(glyph++) + "\" x=\"" + number +
                   "\" y=\"70\"/>\n";
        }
        svg += "</g>\n";
    }
    return svg + "</g>\n";
}

// The labels' texts in the order they were made.
std::vector<std::string> Labels(const std::string& svg) {
    std::vector<std::string> labels;
    std::size_t at = 0;
    while ((at = svg.find("<text ", at)) != std::string::npos) {
        const std::size_t start = svg.find('>', at) + 1;
        const std::size_t end = svg.find("</text>", start);
        labels.push_back(svg.substr(start, end - start));
        at = end;
    }
    return labels;
}

TEST(PdfTextLabels, KernedLettersOfSeparateCallsMakeOneLabel) {
    // "Sy" then "n" pulled 0.2 points (a fiftieth of an em) towards the "y".
    std::string svg = Calls({{20, 27}, {31.8}});
    const std::vector<VRKPdfCharacter> characters = {Character("S", 20, 62, 27, 72),
                                                     Character("y", 27, 62, 32, 72),
                                                     Character("n", 31.8, 62, 37, 72)};
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 1u);
    EXPECT_EQ(Labels(svg), (std::vector<std::string>{"Syn"}));
}

TEST(PdfTextLabels, LettersFartherApartThanKerningAreLabelsApart) {
    // The "n" 2 points (a fifth of an em) after the "y": not kerning, a gap kept as it is.
    std::string svg = Calls({{20, 27}, {34}});
    const std::vector<VRKPdfCharacter> characters = {Character("S", 20, 62, 27, 72),
                                                     Character("y", 27, 62, 32, 72),
                                                     Character("n", 34, 62, 39, 72)};
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 2u);
    EXPECT_EQ(Labels(svg), (std::vector<std::string>{"Sy", "n"}));
    EXPECT_NE(svg.find("<text x=\"34.0000\""), std::string::npos) << svg;
}

TEST(PdfTextLabels, WordOfOneLetterAloneInItsCall) {
    // "is a li": the "a" is drawn alone, and its origin is also where the space before it ends.
    std::string svg = Calls({{20, 23}, {31}, {39, 41}});
    const std::vector<VRKPdfCharacter> characters = {
        Character("i", 20, 62, 23, 72), Character("s", 23, 62, 28, 72),
        Character(" ", 28, 62, 31, 72), Character("a", 31, 62, 36, 72),
        Character(" ", 36, 62, 39, 72), Character("l", 39, 62, 41, 72),
        Character("i", 41, 62, 44, 72)};
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 3u);
    EXPECT_EQ(Labels(svg), (std::vector<std::string>{"is", "a", "li"}));
}

TEST(PdfTextLabels, LetterAloneInItsCallAfterTheOneBeforeIt) {
    // "word." with the full stop drawn alone, right after the "d" (and the "d" is where the
    // next line's first word, drawn in the same paint, seems to come from).
    std::string svg = Calls({{20, 25}, {30}, {20}});
    std::vector<VRKPdfCharacter> characters = {
        Character("o", 20, 62, 25, 72), Character("d", 25, 62, 30, 72),
        Character(".", 30, 62, 33, 72), Character("\n", 33, 72, 33, 72),
        Character("x", 20, 74, 25, 84)};
    // The next line's "x" starts at the baseline 80.
    svg.replace(svg.rfind("y=\"70\""), 6, "y=\"80\"");
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 2u);
    EXPECT_EQ(Labels(svg), (std::vector<std::string>{"od.", "x"}));
}

TEST(PdfTextLabels, VeryTallTextAndTextLeftOfThePageAreFound) {
    // Letters 600 points tall, and a run that starts 30 points left of the page.
    std::string svg = Calls({{20, 400}, {-30, -24}});
    std::vector<VRKPdfCharacter> characters = {
        Character("B", 20, -500, 400, 100), Character("ig", 400, -500, 700, 100),
        Character("o", -30, 62, -24, 72), Character("ff", -24, 62, -18, 72)};
    characters[2].font = "Times-Roman";
    characters[3].font = "Times-Roman";
    EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 2u);
    EXPECT_EQ(Labels(svg), (std::vector<std::string>{"Big", "off"}));
    EXPECT_NE(svg.find("<text x=\"-30.0000\" y=\"70.0000\""), std::string::npos) << svg;
}

TEST(PdfTextLabels, MalformedGlyphUsesArePassedOver) {
    const std::vector<VRKPdfCharacter> characters = {Character("H", 20, 62.82, 27.22, 72.07)};
    for (const std::string& text : std::vector<std::string>{
             "<use xlink:href=\"#glyph0-1\" x=\"20\" y=\"70\"/>",
             "<g style=\"fill:rgb(0%,0%,0%);\"><use xlink:href=\"#glyph0-1\" x=\"20\" y=\"70\"",
             "<g style=\"fill:rgb(0%,0%,0%);\"><use xlink:href=\"#glyph0-1\" x=\"2O\" y=\"70\"/>",
             "<g style=\"fill:rgb(0%,0%,0%);\"><use xlink:href=\"#glyph01\" x=\"20\" y=\"70\"/>",
             "<g style=\"fill:rgb(0%,0%,0%);\"><use xlink:href=\"#glyph0-1\" y=\"70\"/>",
             "<g style=\"fill:rgb(0%,0%,0%);\"><use xlink:href=\"#glyph0-1\" x=\"nan\" y=\"70\"/>",
             "<defs><symbol overflow=\"visible\" id=\"glyph0-0\"><path d=\"M 1 2 L\"/></symbol>",
             "<defs><symbol overflow=\"visible\" id=\"glyph0-0\"></defs>",
             "<symbol overflow=\"visible\" id=\"glyph0-0\"><path d=\"M 0 0 L 1 0 L 1 1 L 0 1 Z\"/>"
             "</symbol></defs><g style=\"fill:rgb(0%,0%,0%);\">",
         }) {
        // Only a whole, well-formed glyph use in a group painted with a plain colour is ever
        // replaced: these stay as they are.
        std::string svg = text;
        EXPECT_EQ(VRKPdfTextLabels::Apply(svg, characters), 0u) << text;
        EXPECT_EQ(svg, text) << text;
    }
}

TEST(PdfTextLabels, FontNamesToFamiliesAndWeights) {
    EXPECT_EQ(VRKPdfFontKind::Family("Helvetica-Bold"), "sans-serif");
    EXPECT_EQ(VRKPdfFontKind::Family("ArialMT"), "sans-serif");
    EXPECT_EQ(VRKPdfFontKind::Family("DejaVuSans"), "sans-serif");
    EXPECT_EQ(VRKPdfFontKind::Family("DejaVuSerif-Italic"), "serif");
    EXPECT_EQ(VRKPdfFontKind::Family("TimesNewRomanPS-BoldMT"), "serif");
    EXPECT_EQ(VRKPdfFontKind::Family("Courier-Oblique"), "Courier");
    EXPECT_EQ(VRKPdfFontKind::Family("DejaVuSansMono"), "monospace");
    EXPECT_EQ(VRKPdfFontKind::Family("CMR10"), "serif");
    EXPECT_EQ(VRKPdfFontKind::Family("CMBX12"), "serif");
    EXPECT_EQ(VRKPdfFontKind::Family("CMTT12"), "monospace");
    EXPECT_EQ(VRKPdfFontKind::Family("CMSS10"), "sans-serif");
    EXPECT_EQ(VRKPdfFontKind::Family("LMRoman10-Regular"), "serif");
    EXPECT_EQ(VRKPdfFontKind::Family("Calibri"), "sans-serif");
    EXPECT_EQ(VRKPdfFontKind::Family("Wingdings"), "");
    EXPECT_TRUE(VRKPdfFontKind::Bold("Helvetica-Bold"));
    EXPECT_TRUE(VRKPdfFontKind::Bold("Arial-Black"));
    EXPECT_TRUE(VRKPdfFontKind::Bold("CMBX12"));
    EXPECT_FALSE(VRKPdfFontKind::Bold("CMR10"));
    EXPECT_FALSE(VRKPdfFontKind::Bold("Helvetica-Oblique"));
}

}  // namespace
