// The light XML model and its files.

#include <gtest/gtest.h>

#include <string>

#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"
#include "support/TempFolder.h"

namespace {

TEST(LightXmlElement, AttributesKeepTheirOrderAndPlace) {
    VRKLightXmlElement element("e");
    element.SetAttribute("b", "1");
    element.SetAttribute("a", "2");
    element.SetAttribute("c", "3");
    element.SetAttribute("a", "4");
    ASSERT_EQ(element.GetAttributeCount(), 3);
    EXPECT_EQ(element.GetAttributes()[0].first.str(), "b");
    EXPECT_EQ(element.GetAttributes()[1].first.str(), "a");
    EXPECT_EQ(element.GetAttributes()[1].second.str(), "4");
    EXPECT_EQ(element.GetAttributes()[2].first.str(), "c");
    EXPECT_TRUE(element.HasAttribute("c"));
    element.RemoveAttribute("c");
    EXPECT_FALSE(element.HasAttribute("c"));
    // An absent attribute reads as the empty string.
    EXPECT_EQ(element.GetAttribute("c").str(), "");
    EXPECT_EQ(element.GetAttribute("b").str(), "1");
}

TEST(LightXmlElement, Children) {
    VRKLightXmlElement element("e");
    EXPECT_EQ(element.GetFirstChild(), nullptr);
    element.AddChild(VRKLightXmlElement("one"));
    VRKLightXmlElement& two = element.AddChild(VRKLightXmlElement("two"));
    two.SetAttribute("x", "y");
    ASSERT_EQ(element.GetChildCount(), 2);
    EXPECT_EQ(element.GetFirstChild()->GetName().str(), "one");
    EXPECT_EQ(element.GetChild(1)->GetAttribute("x").str(), "y");
    EXPECT_EQ(element.GetChild(2), nullptr);
    EXPECT_EQ(element.GetChild(-1), nullptr);

    VRKLightXmlElement copy = element;
    EXPECT_TRUE(copy == element);
    copy.GetChild(1)->SetAttribute("x", "z");
    EXPECT_FALSE(copy == element);

    element.Clear();
    EXPECT_EQ(element.GetName().str(), "");
    EXPECT_EQ(element.GetChildCount(), 0);
    EXPECT_EQ(element.GetAttributeCount(), 0);
}

TEST(LightXmlFile, ParseKeepsElementsAndAttributesInOrder) {
    VRKLightXmlElement root;
    std::string error;
    ASSERT_TRUE(VRKLightXmlFile::Parse(
        "<?xml version=\"1.0\"?>\n<!-- settings -->\n<r z=\"1\" a=\"&amp;2\">text<c1/>"
        "<!-- no --><c2 k=\"v\"><g/></c2></r>",
        root, error))
        << error;
    EXPECT_EQ(root.GetName().str(), "r");
    ASSERT_EQ(root.GetAttributeCount(), 2);
    EXPECT_EQ(root.GetAttributes()[0].first.str(), "z");
    EXPECT_EQ(root.GetAttribute("a").str(), "&2");
    ASSERT_EQ(root.GetChildCount(), 2);
    EXPECT_EQ(root.GetChild(0)->GetName().str(), "c1");
    EXPECT_EQ(root.GetChild(1)->GetAttribute("k").str(), "v");
    EXPECT_EQ(root.GetChild(1)->GetFirstChild()->GetName().str(), "g");
}

TEST(LightXmlFile, AnAttributeGivenTwiceKeepsItsPlaceAndTakesItsLastValue) {
    VRKLightXmlElement root;
    std::string error;
    ASSERT_TRUE(VRKLightXmlFile::Parse("<r x=\"1\" y=\"2\" x=\"3\" z=\"4\" y=\"5\"/>", root, error))
        << error;
    ASSERT_EQ(root.GetAttributeCount(), 3);
    EXPECT_EQ(root.GetAttributes()[0].first.str(), "x");
    EXPECT_EQ(root.GetAttributes()[0].second.str(), "3");
    EXPECT_EQ(root.GetAttributes()[1].first.str(), "y");
    EXPECT_EQ(root.GetAttributes()[1].second.str(), "5");
    EXPECT_EQ(root.GetAttributes()[2].first.str(), "z");
    EXPECT_EQ(root.GetAttributes()[2].second.str(), "4");
}

TEST(LightXmlFile, AnElementOfManyAttributes) {
    // 300,000 attributes, each name new but the last, which repeats the first.
    std::string text = "<r";
    for (int i = 0; i < 300000; ++i) {
        text += " a" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
    }
    text += " a0=\"last\"/>";
    VRKLightXmlElement root;
    std::string error;
    ASSERT_TRUE(VRKLightXmlFile::Parse(text, root, error)) << error;
    ASSERT_EQ(root.GetAttributeCount(), 300000);
    EXPECT_EQ(root.GetAttributes()[0].second.str(), "last");
    EXPECT_EQ(root.GetAttributes()[299999].first.str(), "a299999");
    EXPECT_EQ(root.GetAttribute("a123456").str(), "123456");
}

TEST(LightXmlFile, TextOfADocument) {
    VRKLightXmlElement root("Settings");
    root.SetAttribute("name", "a<b & \"c\"");
    root.AddChild(VRKLightXmlElement("child")).SetAttribute("n", "1");
    root.AddChild(VRKLightXmlElement("empty"));
    EXPECT_EQ(VRKLightXmlFile::ToText(root),
              "<?xml version=\"1.0\"?>\n"
              "<Settings name=\"a&lt;b &amp; &quot;c&quot;\">\n"
              "  <child n=\"1\" />\n"
              "  <empty />\n"
              "</Settings>\n");
    EXPECT_EQ(VRKLightXmlFile::ToText(VRKLightXmlElement("e")), "<?xml version=\"1.0\"?>\n<e />\n");
}

TEST(LightXmlFile, NotXmlNamesTheLine) {
    VRKLightXmlElement root("kept");
    std::string error;
    EXPECT_FALSE(VRKLightXmlFile::Parse("<a>\n<b>\n</a>\n", root, error, "f.xml"));
    EXPECT_EQ(error.rfind("f.xml:3: not XML: ", 0), 0u) << error;
    EXPECT_EQ(root.GetName().str(), "kept");
    EXPECT_FALSE(VRKLightXmlFile::Parse("", root, error, "f.xml"));
    EXPECT_EQ(error, "f.xml:1: not XML: No document element found");
    EXPECT_FALSE(VRKLightXmlFile::Parse("just text", root, error, "f.xml"));
}

TEST(LightXmlFile, WriteThenRead) {
    TempFolder folder("lightxml");
    VRKLightXmlElement root("r");
    root.SetAttribute("b", "2");
    root.SetAttribute("a", "1");
    root.AddChild(VRKLightXmlElement("c"));
    std::string error;
    ASSERT_TRUE(VRKLightXmlFile::Write(folder.File("s.xml"), root, error)) << error;
    EXPECT_EQ(folder.Listing(), "s.xml\n");
    VRKLightXmlElement back;
    ASSERT_TRUE(VRKLightXmlFile::Read(folder.File("s.xml"), back, error)) << error;
    EXPECT_TRUE(back == root);
}

TEST(LightXmlFile, FilesThatCannotBeReadOrWritten) {
    TempFolder folder("lightxml");
    VRKLightXmlElement root("r");
    std::string error;
    EXPECT_FALSE(VRKLightXmlFile::Read(folder.File("none.xml"), root, error));
    EXPECT_EQ(error, folder.File("none.xml") + ": cannot open: No such file or directory");
    EXPECT_FALSE(VRKLightXmlFile::Write(folder.File("no/dir/s.xml"), root, error));
    EXPECT_EQ(error, folder.File("no/dir/s.xml") + ": cannot write: No such file or directory");
    // A failed write leaves an existing file as it was and no temporary file behind.
    folder.Write("keep.xml", "<old/>");
    ASSERT_TRUE(VRKLightXmlFile::Write(folder.File("keep.xml"), root, error)) << error;
    EXPECT_EQ(ReadFileBytes(folder.File("keep.xml")), "<?xml version=\"1.0\"?>\n<r />\n");
    EXPECT_EQ(folder.Listing(), "keep.xml\n");
}

TEST(LightXmlFile, FilesUpToOneMebibyte) {
    TempFolder folder("lightxml");
    // A document padded with a comment to exactly the limit is read; one byte more is refused.
    const std::string head = "<r a=\"1\"/><!--";
    const std::string tail = "-->";
    const std::string fits =
        head + std::string(1024 * 1024 - head.size() - tail.size(), 'x') + tail;
    ASSERT_EQ(fits.size(), 1048576u);
    VRKLightXmlElement root;
    std::string error;
    EXPECT_TRUE(VRKLightXmlFile::Read(folder.Write("fits.xml", fits), root, error)) << error;
    EXPECT_EQ(root.GetAttribute("a").str(), "1");

    root = VRKLightXmlElement("kept");
    const std::string big = folder.Write("big.xml", fits + " ");
    EXPECT_FALSE(VRKLightXmlFile::Read(big, root, error));
    EXPECT_EQ(error, big + ": larger than 1 MiB; settings files and printer lists are far smaller");
    EXPECT_EQ(root.GetName().str(), "kept");

    // An endless source ends at the limit too.
    EXPECT_FALSE(VRKLightXmlFile::Read("/dev/zero", root, error));
    EXPECT_EQ(error,
              "/dev/zero: larger than 1 MiB; settings files and printer lists are far smaller");
}

TEST(LightXmlFile, NestingDepth) {
    const auto nested = [](int depth) {
        std::string open;
        std::string close;
        for (int i = 0; i < depth; ++i) {
            open += i % 100 == 99 ? "<e>\n" : "<e>";
            close += "</e>";
        }
        return open + close;
    };
    VRKLightXmlElement root("kept");
    std::string error;
    ASSERT_TRUE(VRKLightXmlFile::Parse(nested(256), root, error, "f.xml")) << error;
    int depth = 1;
    for (const VRKLightXmlElement* e = &root; e->GetChildCount() > 0; e = e->GetChild(0)) {
        ++depth;
    }
    EXPECT_EQ(depth, 256);

    // One more level is refused, at the line of the element that goes too deep; the element
    // given keeps what it had.
    root = VRKLightXmlElement("kept");
    EXPECT_FALSE(VRKLightXmlFile::Parse(nested(257), root, error, "f.xml"));
    EXPECT_EQ(error, "f.xml:3: elements nested more than 256 deep");
    EXPECT_TRUE(root == VRKLightXmlElement("kept"));
    // A file of nothing but nested elements is refused the same way, however deep it goes.
    EXPECT_FALSE(VRKLightXmlFile::Parse(nested(200000), root, error, "f.xml"));
    EXPECT_EQ(error, "f.xml:3: elements nested more than 256 deep");
}

}  // namespace
