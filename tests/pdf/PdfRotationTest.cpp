// Pages turned by /Rotate come out as a viewer shows them: the form is the turned page and the
// drawing is turned with it. cairo's PDF surface writes no /Rotate, so the documents are
// assembled by hand.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "host/pdf/VRKPdfImporter.h"
#include "pdf/PdfObjectFile.h"

namespace {

constexpr double kMmPerPoint = 25.4 / 72.0;
constexpr double kTolerance = 1e-3;

// A page of 200 by 100 points with a blue rectangle from (10, 10) to (40, 20) near its lower
// left corner. `pagesEntry` goes into the page tree's node, `pageEntry` into the page.
std::string RotatedDocument(const std::string& pagesEntry, const std::string& pageEntry) {
    PdfObjectFile pdf;
    pdf.Add("<< /Type /Catalog /Pages 2 0 R >>");
    pdf.Add("<< /Type /Pages /Kids [3 0 R] /Count 1" + pagesEntry + " >>");
    pdf.Add("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 100] /Contents 4 0 R" + pageEntry +
            " >>");
    pdf.AddStream("0 0 1 rg 10 10 30 10 re f");
    return pdf.Finish(1);
}

// The bounds of a drawing's one fill and the page's size, in points.
struct Bounds {
    double width = 0, height = 0, left = 0, bottom = 0, right = 0, top = 0;
};

Bounds ReadBounds(const std::string& document) {
    VRKPdfImporter importer;
    std::vector<VRKDrawing> pages;
    EXPECT_TRUE(importer.ReadMemory(document, "turned.pdf", pages)) << importer.GetError();
    Bounds bounds;
    if (pages.size() != 1 || pages[0].fills.size() != 1) {
        ADD_FAILURE() << "expected one page with one fill";
        return bounds;
    }
    const VRKDrawing& page = pages[0];
    const VRKDrawingFill& fill = page.fills[0];
    EXPECT_EQ(fill.color, (VRKDrawingColor{0, 0, 255}));
    EXPECT_EQ(fill.ringCount, 1u);
    const auto first = page.points.begin() + fill.first;
    const auto last = first + page.ringSizes[fill.firstRing];
    const auto [minX, maxX] =
        std::minmax_element(first, last, [](auto a, auto b) { return a.x < b.x; });
    const auto [minY, maxY] =
        std::minmax_element(first, last, [](auto a, auto b) { return a.y < b.y; });
    bounds.width = page.width / kMmPerPoint;
    bounds.height = page.height / kMmPerPoint;
    bounds.left = minX->x / kMmPerPoint;
    bounds.right = maxX->x / kMmPerPoint;
    bounds.bottom = minY->y / kMmPerPoint;
    bounds.top = maxY->y / kMmPerPoint;
    return bounds;
}

void ExpectBounds(const Bounds& got, const Bounds& expected) {
    // Compared in points; the tolerance is a thousandth of a millimetre.
    const double tolerance = kTolerance / kMmPerPoint;
    EXPECT_NEAR(got.width, expected.width, tolerance);
    EXPECT_NEAR(got.height, expected.height, tolerance);
    EXPECT_NEAR(got.left, expected.left, tolerance);
    EXPECT_NEAR(got.bottom, expected.bottom, tolerance);
    EXPECT_NEAR(got.right, expected.right, tolerance);
    EXPECT_NEAR(got.top, expected.top, tolerance);
}

TEST(PdfRotation, UnturnedPageKeepsItsSizeAndPlaces) {
    ExpectBounds(ReadBounds(RotatedDocument("", "")), {200, 100, 10, 10, 40, 20});
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate 0")), {200, 100, 10, 10, 40, 20});
}

TEST(PdfRotation, QuarterTurnClockwise) {
    // The page's lower left corner goes to the upper left: x becomes the height from the
    // bottom of a 100 by 200 page, y the distance from the left.
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate 90")), {100, 200, 10, 160, 20, 190});
}

TEST(PdfRotation, HalfTurn) {
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate 180")), {200, 100, 160, 80, 190, 90});
}

TEST(PdfRotation, ThreeQuarterTurnClockwise) {
    // The lower left corner goes to the lower right.
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate 270")), {100, 200, 80, 10, 90, 40});
}

TEST(PdfRotation, InheritedFromThePageTree) {
    ExpectBounds(ReadBounds(RotatedDocument(" /Rotate 90", "")), {100, 200, 10, 160, 20, 190});
    // The page's own entry wins over the inherited one.
    ExpectBounds(ReadBounds(RotatedDocument(" /Rotate 90", " /Rotate 180")),
                 {200, 100, 160, 80, 190, 90});
}

TEST(PdfRotation, NegativeAndLargeMultiplesAreTakenModulo360) {
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate -90")), {100, 200, 80, 10, 90, 40});
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate -270")), {100, 200, 10, 160, 20, 190});
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate 450")), {100, 200, 10, 160, 20, 190});
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate 540")), {200, 100, 160, 80, 190, 90});
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate 720")), {200, 100, 10, 10, 40, 20});
}

TEST(PdfRotation, AngleThatIsNoQuarterTurnIsIgnored) {
    ExpectBounds(ReadBounds(RotatedDocument("", " /Rotate 45")), {200, 100, 10, 10, 40, 20});
}

}  // namespace
