#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "svg/SvgTestSupport.h"

namespace {

TEST(SvgErrors, NotWellFormedGivesTheLine) {
    const SvgResult r = ReadSvg("<svg xmlns='http://www.w3.org/2000/svg'>\n<g>\n<rect width='1'");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error.rfind("test.svg:3: the file is not well-formed XML (", 0), 0u) << r.error;
    EXPECT_TRUE(r.drawing.items.empty());
}

TEST(SvgErrors, RootMustBeSvg) {
    SvgResult r = ReadSvg("<?xml version='1.0'?>\n<html><svg/></html>");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error, "test.svg:2: the root element is <html>, not <svg>");
    r = ReadSvg("<svg xmlns='http://example.com/other'/>");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error, "test.svg:1: the root element <svg> is not of the SVG namespace");
    EXPECT_TRUE(ReadSvg("<s:svg xmlns:s='http://www.w3.org/2000/svg'><s:rect width='1' "
                        "height='1'/></s:svg>")
                    .drawing.fills.size() == 1);
}

TEST(SvgErrors, BillionLaughsIsRefusedUnexpanded) {
    std::string doc = "<?xml version='1.0'?>\n<!DOCTYPE svg [\n<!ENTITY lol 'lol'>\n";
    for (int i = 1; i < 10; ++i) {
        doc += "<!ENTITY lol" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j) {
            doc += "&lol" + (i == 1 ? std::string() : std::to_string(i - 1)) + ";";
        }
        doc += "'>\n";
    }
    doc += "]>\n<svg xmlns='http://www.w3.org/2000/svg'><text>&lol9;</text></svg>";
    const SvgResult r = ReadSvg(doc);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error, "test.svg:3: the file declares entities, which are not read");
    EXPECT_TRUE(r.drawing.texts.empty());
}

TEST(SvgErrors, ExternalEntityIsNeverRead) {
    TempFolder folder("svg");
    const std::string secret = folder.Write("secret.txt", "TOPSECRET");
    const SvgResult r =
        ReadSvg("<!DOCTYPE svg [<!ENTITY x SYSTEM 'file://" + secret +
                "'>]><svg xmlns='http://www.w3.org/2000/svg'><text>&x;</text></svg>");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error.find("TOPSECRET"), std::string::npos);
    EXPECT_TRUE(r.drawing.texts.empty());
    // An external DTD is not loaded either: the document reads as it stands.
    const SvgResult d =
        ReadSvg("<!DOCTYPE svg SYSTEM 'file://" + secret +
                "'><svg xmlns='http://www.w3.org/2000/svg'><text>plain</text></svg>");
    ASSERT_TRUE(d.ok) << d.error;
    ASSERT_EQ(d.drawing.texts.size(), 1u);
    EXPECT_EQ(d.drawing.texts[0].utf8, "plain");
}

TEST(SvgErrors, DeepNestingIsAnError) {
    std::string doc = "<svg xmlns='http://www.w3.org/2000/svg'>";
    for (int i = 0; i < 300; ++i) {
        doc += "<g>";
    }
    for (int i = 0; i < 300; ++i) {
        doc += "</g>";
    }
    doc += "</svg>";
    const SvgResult r = ReadSvg(doc);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error, "test.svg:1: elements are nested deeper than 256 levels");
}

TEST(SvgErrors, UseNestingTooDeepThroughCopies) {
    // Each level uses the one below twice: the copies nest 300 deep without any cycle.
    std::string doc = "<defs><g id='u0'><rect width='1' height='1'/></g>";
    for (int i = 1; i < 300; ++i) {
        doc +=
            "<g id='u" + std::to_string(i) + "'><use href='#u" + std::to_string(i - 1) + "'/></g>";
    }
    doc += "</defs><use href='#u299'/>";
    const SvgResult r = ReadSvg(Page(doc));
    EXPECT_FALSE(r.ok);
    EXPECT_NE(r.error.find("elements are nested deeper than 256 levels"), std::string::npos)
        << r.error;
}

// Each level uses the one below twice: 2^29 copies of the path if nothing stopped them.
std::string UseBomb() {
    std::string doc = "<defs><path id='u0' d='M0 0 L1 1 L2 0 L3 1 L4 0' stroke='black'/>";
    for (int i = 1; i < 30; ++i) {
        const std::string below = "#u" + std::to_string(i - 1);
        doc += "<g id='u" + std::to_string(i) + "'><use href='" + below + "'/><use href='" +
               below + "'/></g>";
    }
    return Page(doc + "</defs><use href='#u29'/>");
}

TEST(SvgErrors, UseCopiesAreBoundedByElements) {
    const SvgResult r = ReadSvg(UseBomb(), "", VRKSvgImporter::kMaxPoints, 1000);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:1: the drawing has more than 1000 elements once its <use> copies are made");
    EXPECT_TRUE(r.drawing.items.empty());
}

TEST(SvgErrors, UseCopiesAreBoundedByPoints) {
    const SvgResult r = ReadSvg(UseBomb(), "", 1000, VRKSvgImporter::kMaxElements);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error, "test.svg:1: the drawing has more than 1000 points");
    EXPECT_TRUE(r.drawing.items.empty());
}

TEST(SvgErrors, UseOfItselfOrAnAncestor) {
    SvgResult r = ReadSvg(Page("<use id='u' href='#u'/>"));
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:1: <use> refers to '#u', which contains it: the drawing would never end");
    r = ReadSvg(Page("<g id='a'>\n<g><use href='#a'/></g></g>"));
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:2: <use> refers to '#a', which contains it: the drawing would never end");
    r =
        ReadSvg(Page("<defs><g id='a'><use href='#b'/></g><g id='b'>\n<use href='#a'/></g></defs>"
                     "<use href='#a'/>"));
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error,
              "test.svg:2: <use> refers to '#a', which contains it: the drawing would never end");
}

TEST(SvgErrors, MissingReferenceIsAWarning) {
    const SvgResult r = ReadSvg(Page("<use id='m' href='#nowhere'/><rect width='1' height='1'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(r.drawing.fills.size(), 1u);
    ASSERT_EQ(r.warnings.size(), 1u);
    EXPECT_EQ(r.warnings[0],
              "test.svg:1: <use id='m'>: refers to '#nowhere', which is not in the "
              "file; drawn without it");
}

TEST(SvgErrors, HugeNumbersAreSkippedWithAWarning) {
    const SvgResult r =
        ReadSvg(Page("<rect width='1e30' height='1'/><path d='M0 0 L1e300 1e300' stroke='black'/>"
                     "<circle r='1' transform='scale(1e308) scale(1e10)'/><text x='1e20'>t</text>"
                     "<rect width='2' height='2' fill='blue'/><line x2='1' stroke='red' "
                     "stroke-width='1e300'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    ASSERT_EQ(r.drawing.items.size(), 1u);
    EXPECT_EQ(r.drawing.fills[0].color, (VRKDrawingColor{0, 0, 255}));
    ASSERT_EQ(r.warnings.size(), 1u);
    EXPECT_EQ(r.warnings[0],
              "test.svg:1: <rect>: coordinates or sizes that are not numbers or lie "
              "beyond 10 km; the element is skipped");
}

TEST(SvgErrors, FlattenedCurvesAreBoundedByPoints) {
    // One curve of 100 m flattened within 0.01 mm takes thousands of points.
    const SvgResult r = ReadSvg(Page("<path d='M0 0 C0 0 100000 100000 100000 0'/>"), "", 2000,
                                VRKSvgImporter::kMaxElements);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error, "test.svg:1: the drawing has more than 2000 points");
    EXPECT_TRUE(r.drawing.points.empty());
    EXPECT_TRUE(
        ReadSvg(Page("<path d='M0 0 C0 0 100 100 100 0'/>"), "", 2000, VRKSvgImporter::kMaxElements)
            .ok);
}

TEST(SvgErrors, UnsupportedFeaturesAreReportedOncePerKind) {
    const SvgResult r =
        ReadSvg(Page("<defs><filter id='blur'/></defs>\n"
                     "<rect filter='url(#blur)' width='1' height='1'/>\n"
                     "<rect filter='url(#blur)' width='1' height='1'/>\n"
                     "<g clip-path='url(#c)' mask='url(#m)'><rect width='1' height='1'/></g>\n"
                     "<switch><rect width='2' height='2'/><rect width='3' height='3'/></switch>\n"
                     "<foreignObject/><animate/><frob id='f'><rect width='4' height='4'/></frob>\n"
                     "<path d='M0 0 L1 1' marker-end='url(#a)' stroke='red'/>"
                     "<text>a<textPath>b</textPath></text><x:y xmlns:x='urn:x'/>"));
    ASSERT_TRUE(r.ok) << r.error;
    const std::vector<std::string> expected = {
        "test.svg:2: <rect>: filters are not supported; drawn without them",
        "test.svg:4: <g>: clipping paths are not supported; drawn unclipped",
        "test.svg:4: <g>: masks are not supported; drawn without them",
        "test.svg:5: <switch>: conditions of <switch> are not tested; its first element is drawn",
        "test.svg:6: <foreignObject>: foreign objects are not supported; not drawn",
        "test.svg:6: <animate>: animations are not played; drawn as the file stands",
        "test.svg:6: <frob id='f'>: <frob> elements are not supported; what they hold is drawn as "
        "a group",
        "test.svg:7: <path>: markers are not supported; drawn without them",
        "test.svg:7: <textPath>: text on a path is not supported; drawn on a straight line"};
    EXPECT_EQ(r.warnings, expected);
    // Drawn: the two filtered rectangles, the clipped one, the switch's first, the group's.
    EXPECT_EQ(r.drawing.fills.size(), 5u);
    EXPECT_EQ(r.drawing.texts.size(), 2u);
}

TEST(SvgSniff, LooksLikeSvg) {
    EXPECT_TRUE(VRKSvgImporter::LooksLikeSvg("<svg xmlns='http://www.w3.org/2000/svg'>"));
    EXPECT_TRUE(VRKSvgImporter::LooksLikeSvg(
        "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- made by hand -->\n<!DOCTYPE svg PUBLIC "
        "'-//W3C//DTD SVG 1.1//EN' 'http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd'>\n<svg>"));
    EXPECT_TRUE(VRKSvgImporter::LooksLikeSvg("<!DOCTYPE svg [ <!ENTITY a 'b'> ]><svg/>"));
    EXPECT_TRUE(VRKSvgImporter::LooksLikeSvg("  <s:svg xmlns:s='http://www.w3.org/2000/svg'>"));
    EXPECT_FALSE(VRKSvgImporter::LooksLikeSvg("<html><svg>"));
    EXPECT_FALSE(VRKSvgImporter::LooksLikeSvg("<svgx>"));
    EXPECT_FALSE(VRKSvgImporter::LooksLikeSvg("<!-- unterminated"));
    EXPECT_FALSE(VRKSvgImporter::LooksLikeSvg("%PDF-1.4"));
    EXPECT_FALSE(VRKSvgImporter::LooksLikeSvg(""));
    EXPECT_FALSE(VRKSvgImporter::LooksLikeSvg("<svg"));
}

TEST(SvgFiles, ReadFileNamesTheFileInMessages) {
    TempFolder folder("svg");
    VRKSvgImporter importer;
    VRKDrawing drawing;
    drawing.width = 1;
    EXPECT_FALSE(importer.ReadFile(folder.File("none.svg"), drawing));
    EXPECT_EQ(importer.GetError(), "none.svg: the file cannot be opened");
    const std::string bad = folder.Write("bad.svg", "<svg>\n\n</sv>");
    EXPECT_FALSE(importer.ReadFile(bad, drawing));
    EXPECT_EQ(importer.GetError().rfind("bad.svg:3: the file is not well-formed XML (", 0), 0u)
        << importer.GetError();
    EXPECT_EQ(drawing.width, 210.0f);  // cleared
}

}  // namespace
