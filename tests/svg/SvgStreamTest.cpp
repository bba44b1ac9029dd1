#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "svg/SvgTestSupport.h"

namespace {

// The document read through ReadStream, handed over `piece` bytes at a time.
SvgResult ReadInPieces(const std::string& text, std::size_t piece) {
    VRKSvgImporter importer;
    SvgResult result;
    std::size_t offset = 0;
    const auto read = [&](char* data, std::size_t size) {
        const std::size_t count = std::min({size, piece, text.size() - offset});
        std::memcpy(data, text.data() + offset, count);
        offset += count;
        return count;
    };
    result.ok = importer.ReadStream(read, "test.svg", "", result.drawing);
    result.error = importer.GetError();
    result.warnings = importer.GetWarnings();
    return result;
}

// Everything the drawing holds, as text, to compare drawings whole.
std::string Describe(const VRKDrawing& d) {
    std::string out = std::to_string(d.width) + "x" + std::to_string(d.height) + "\n";
    for (const VRKDrawingItem& item : d.items) {
        out += "item " + std::to_string(static_cast<int>(item.kind)) + " " +
               std::to_string(item.index) + "\n";
    }
    for (const VRKDrawingStroke& s : d.strokes) {
        out += "stroke " + std::to_string(static_cast<int>(s.kind)) + " " + std::to_string(s.pen) +
               " " + std::to_string(s.first) + " " + std::to_string(s.count) + "\n";
    }
    for (const VRKDrawingFill& f : d.fills) {
        out += "fill " + std::to_string(f.color.r) + "," + std::to_string(f.color.g) + "," +
               std::to_string(f.color.b) + " " + std::to_string(f.rule) + " " +
               std::to_string(f.first) + " " + std::to_string(f.firstRing) + " " +
               std::to_string(f.ringCount) + "\n";
    }
    for (const VRKDrawingText& t : d.texts) {
        out += "text '" + t.utf8 + "' " + std::to_string(t.x) + " " + std::to_string(t.y) + " " +
               std::to_string(t.size) + " " + std::to_string(t.anchor) + "\n";
    }
    for (const VRKDrawingPen& p : d.pens) {
        out += "pen " + std::to_string(p.color.r) + "," + std::to_string(p.color.g) + "," +
               std::to_string(p.color.b) + " " + std::to_string(p.width) + "\n";
    }
    for (std::size_t i = 0; i < d.points.size(); ++i) {
        out += std::to_string(d.points[i].x) + "," + std::to_string(d.points[i].y) + " " +
               std::to_string(d.controls[i]) + "\n";
    }
    for (const std::uint32_t size : d.ringSizes) {
        out += "ring " + std::to_string(size) + "\n";
    }
    return out;
}

const std::string kDocument =
    "<?xml version='1.0' encoding='UTF-8'?>\n"
    "<!-- a comment before the root -->\n"
    "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink'\n"
    "     width='100mm' height='100mm' viewBox='0 0 100 100'>\n"
    "  <style><![CDATA[ .a { fill: #123456 } ]]></style>\n"
    "  <defs><path id='p&amp;q' d='M0 0 C10 20 30 40 50 0' stroke='red'/></defs>\n"
    "  <rect class='a' x='1' y='2' width='30' height='40'/>\n"
    "  <use xlink:href='#p&#38;q' transform='translate(5 5)'/>\n"
    "  <text x='10' y='90'>  caf\xC3\xA9 &lt;b&gt; <!-- c --> <tspan dy='2'>&#x41;B</tspan>\n"
    "    end </text>\n"
    "  <polygon points='10,10 20,10 15,20' fill='blue'/>\n"
    "</svg>\n";

TEST(SvgStream, PiecesOfAnySizeGiveTheDrawingReadWhole) {
    const SvgResult whole = ReadSvg(kDocument);
    ASSERT_TRUE(whole.ok) << whole.error;
    ASSERT_EQ(whole.drawing.texts.size(), 3u);
    EXPECT_EQ(whole.drawing.texts[0].utf8, "caf\xC3\xA9 <b> ");
    EXPECT_EQ(whole.drawing.texts[1].utf8, "AB");
    EXPECT_EQ(whole.drawing.texts[2].utf8, " end");
    ASSERT_EQ(whole.drawing.fills.size(),
              3u);  // the rectangle, the path (through the use), the polygon
    EXPECT_EQ(whole.drawing.fills[0].color, (VRKDrawingColor{0x12, 0x34, 0x56}));
    ASSERT_EQ(whole.drawing.strokes.size(), 1u);
    const std::string expected = Describe(whole.drawing);
    for (std::size_t piece = 1; piece <= kDocument.size(); ++piece) {
        const SvgResult r = ReadInPieces(kDocument, piece);
        ASSERT_TRUE(r.ok) << "pieces of " << piece << ": " << r.error;
        ASSERT_EQ(Describe(r.drawing), expected) << "pieces of " << piece;
        ASSERT_EQ(r.warnings, whole.warnings) << "pieces of " << piece;
    }
}

TEST(SvgStream, AFaultHasItsLineWhereverThePiecesEnd) {
    const std::string doc =
        "<svg xmlns='http://www.w3.org/2000/svg'>\n<g>\n<rect width='1'/>\n\n"
        "<rect width='2' width='3'/>\n</g>\n</svg>\n";
    const std::string cut = "<svg xmlns='http://www.w3.org/2000/svg'>\n<g>\n<rect width='1'/>\n";
    for (std::size_t piece = 1; piece <= doc.size(); ++piece) {
        const SvgResult r = ReadInPieces(doc, piece);
        ASSERT_FALSE(r.ok);
        ASSERT_EQ(r.error,
                  "test.svg:5: the file is not well-formed XML (Attribute width redefined)")
            << "pieces of " << piece;
        EXPECT_TRUE(r.drawing.items.empty());
        const SvgResult c = ReadInPieces(cut, piece);
        ASSERT_FALSE(c.ok);
        ASSERT_EQ(c.error,
                  "test.svg:4: the file is not well-formed XML (it ends inside <g>, opened on "
                  "line 2)")
            << "pieces of " << piece;
    }
}

TEST(SvgStream, TheEndOfTheTextWithoutARootElement) {
    EXPECT_EQ(ReadSvg("").error, "test.svg:1: the file is not well-formed XML (no root element)");
    EXPECT_EQ(ReadSvg("<?xml version='1.0'?>\n<!-- -->\n").error,
              "test.svg:3: the file is not well-formed XML (no root element)");
}

TEST(SvgStream, ElementLinesAcrossPieces) {
    std::string doc = "<svg xmlns='http://www.w3.org/2000/svg'>\n";
    for (int i = 0; i < 40; ++i) {
        doc += "<rect width='1' height='1'/>\n";
    }
    doc += "<frob/>\n</svg>";
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, std::size_t{64}}) {
        const SvgResult r = ReadInPieces(doc, piece);
        ASSERT_TRUE(r.ok) << r.error;
        ASSERT_EQ(r.warnings.size(), 1u);
        EXPECT_EQ(r.warnings[0],
                  "test.svg:42: <frob>: <frob> elements are not supported; what they hold is drawn "
                  "as a group");
    }
}

TEST(SvgStream, AFailedReadIsTheError) {
    VRKSvgImporter importer;
    VRKDrawing drawing;
    drawing.width = 1;
    int calls = 0;
    const auto read = [&](char* data, std::size_t) -> std::size_t {
        if (++calls > 1) {
            throw std::runtime_error("the disk went away");
        }
        std::memcpy(data, "<svg xmlns='http://www.w3.org/2000/svg'>", 40);
        return 40;
    };
    EXPECT_FALSE(importer.ReadStream(read, "plan.svg", "", drawing));
    EXPECT_EQ(importer.GetError(), "plan.svg: the disk went away");
    EXPECT_EQ(calls, 2);
    EXPECT_TRUE(drawing.items.empty());
    EXPECT_EQ(drawing.width, 210.0f);
}

TEST(SvgStream, BlankTextIsKeptOnlyWhereTextIsRead) {
    const SvgResult r =
        ReadSvg(Page("<g>\n  <text x='1' y='5'>a<tspan> </tspan>b</text>\n  </g>\n"
                     "<text x='1' y='9'><a> <tspan>c</tspan> </a>d</text>\n"
                     "<switch>\n  <rect width='2' height='2'/></switch>"));
    ASSERT_TRUE(r.ok) << r.error;
    // One text for each run: the blank ones inside <text> are there.
    std::vector<std::string> runs;
    for (const VRKDrawingText& text : r.drawing.texts) {
        runs.push_back(text.utf8);
    }
    EXPECT_EQ(runs, (std::vector<std::string>{"a", " ", "b", "c", " ", "d"}));
    EXPECT_EQ(r.drawing.fills.size(), 1u);
}

}  // namespace
