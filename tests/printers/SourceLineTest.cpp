// The lines of light XML elements read from text, which the printer list's messages give.

#include <gtest/gtest.h>

#include <string>

#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"

namespace {

// Every element's name and line, in document order: "a1 b2 ...".
void collect(const VRKLightXmlElement& element, std::string& out) {
    out += (out.empty() ? "" : " ") + element.GetName().str() +
           std::to_string(element.GetSourceLine());
    for (int i = 0; i < element.GetChildCount(); ++i) {
        collect(*element.GetChild(i), out);
    }
}

std::string LinesOf(const std::string& text) {
    VRKLightXmlElement root;
    std::string error;
    if (!VRKLightXmlFile::Parse(text, root, error)) {
        return error;
    }
    std::string out;
    collect(root, out);
    return out;
}

TEST(LightXmlLines, NestedElements) {
    EXPECT_EQ(LinesOf("<a>\n  <b>\n    <c/>\n  </b>\n\n  <d>\n  </d>\n</a>\n"), "a1 b2 c3 d6");
}

TEST(LightXmlLines, SeveralElementsOnALine) {
    EXPECT_EQ(LinesOf("<a><b/><c/>\n<d/><e><f/></e></a>"), "a1 b1 c1 d2 e2 f2");
}

TEST(LightXmlLines, CarriageReturnAndLineFeed) {
    EXPECT_EQ(LinesOf("<?xml version=\"1.0\"?>\r\n<!-- one\r\n two -->\r\n<a>\r\n<b/><c/>\r\n"
                      "\r\n<d/>\r\n</a>\r\n"),
              "a4 b5 c5 d7");
}

TEST(LightXmlLines, LineEndsInsideAttributesTextAndComments) {
    // Attribute values and text are rewritten in place when they are parsed (entities, white
    // space); the lines are those of the text as it was given.
    EXPECT_EQ(LinesOf("<a x=\"1\n2\" y=\"&amp;\r\n&lt;\">&amp;&#10;\n text\n<!--\n-->"
                      "<b\n z=\"\n\"/>\n<![CDATA[\n]]><c/></a>"),
              "a1 b6 c10");
}

TEST(LightXmlLines, ByteOrderMark) {
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF<a>\n<b/></a>"), "a1 b2");
}

TEST(LightXmlLines, ManyElementsEachOnItsLine) {
    std::string text = "<a>\n";
    std::string expected = "a1";
    for (int i = 0; i < 2000; ++i) {
        text += "<b/>\n";
        expected += " b" + std::to_string(i + 2);
    }
    EXPECT_EQ(LinesOf(text + "</a>"), expected);
}

TEST(LightXmlLines, AnotherEncodingHasNoLines) {
    // The parser converts the text to UTF-8 first; its offsets no longer count in the given text.
    EXPECT_EQ(LinesOf("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\n<b x=\"\xE9\"/></a>"),
              "a0 b0");
}

TEST(LightXmlLines, ElementsMadeInCodeAndCopies) {
    VRKLightXmlElement made("a");
    EXPECT_EQ(made.GetSourceLine(), 0);

    VRKLightXmlElement root;
    std::string error;
    ASSERT_TRUE(VRKLightXmlFile::Parse("<a>\n\n<b k=\"v\"/></a>", root, error)) << error;
    const VRKLightXmlElement copy = *root.GetChild(0);
    EXPECT_EQ(copy.GetSourceLine(), 3);

    // The line is not part of the value.
    VRKLightXmlElement same("b");
    same.SetAttribute("k", "v");
    EXPECT_TRUE(same == copy);
    same.SetSourceLine(9);
    EXPECT_EQ(same.GetSourceLine(), 9);
    EXPECT_TRUE(same == copy);

    same.Clear();
    EXPECT_EQ(same.GetSourceLine(), 0);
}

TEST(LightXmlLines, AFailedParseLeavesTheElement) {
    VRKLightXmlElement root("kept");
    root.SetSourceLine(4);
    std::string error;
    EXPECT_FALSE(VRKLightXmlFile::Parse("<a>\n<b>\n</a>", root, error, "f.xml"));
    EXPECT_EQ(root.GetName().str(), "kept");
    EXPECT_EQ(root.GetSourceLine(), 4);
}

}  // namespace
