// The DOM over pugixml.

#include <gtest/gtest.h>

#include <string>

#include "host/xml/VRKDOMImplementation.h"
#include "support/TempFolder.h"

namespace {

VRKString nameOf(const VRKSmartRef<VRKIDOMNode>& node) {
    VRKString name;
    node->GetNodeName(name);
    return name;
}

TEST(Dom, BuildAndWriteADocument) {
    VRKIDOMDocumentRef document = VRKDOMImplementation::CreateDocument("Printer");
    ASSERT_TRUE(document);
    VRKIDOMElementRef root;
    ASSERT_EQ(document->GetDocumentElement(root), S_OK);
    EXPECT_EQ(root->SetAttribute("name", "plotter"), S_OK);

    VRKIDOMElementRef settings;
    ASSERT_EQ(document->CreateElement("Settings", settings), S_OK);
    settings->SetAttribute("b", "1");
    settings->SetAttribute("a", "2");
    settings->SetAttribute("b", "3");
    // Made but not yet appended: not part of the document's text.
    EXPECT_EQ(VRKDOMImplementation::ToText(document),
              "<?xml version=\"1.0\"?>\n<Printer name=\"plotter\" />\n");
    EXPECT_EQ(root->AppendChild(VRKSmartRef<VRKIDOMNode>(settings.get())), S_OK);
    EXPECT_EQ(VRKDOMImplementation::ToText(document),
              "<?xml version=\"1.0\"?>\n<Printer name=\"plotter\">\n"
              "  <Settings b=\"3\" a=\"2\" />\n</Printer>\n");

    // The element's owner is the document.
    VRKIDOMDocumentRef owner;
    ASSERT_EQ(settings->GetOwnerDocument(owner), S_OK);
    EXPECT_EQ(owner.get(), document.get());
}

TEST(Dom, ReadAttributesNamesAndChildren) {
    std::string error;
    VRKIDOMDocumentRef document = VRKDOMImplementation::Parse("<a x=\"1\">text<b/><c/></a>", error);
    ASSERT_TRUE(document) << error;
    VRKIDOMElementRef a;
    ASSERT_EQ(document->GetDocumentElement(a), S_OK);
    VRKString value = "unchanged";
    EXPECT_EQ(a->GetAttribute("x", value), S_OK);
    EXPECT_EQ(value.str(), "1");
    // An absent attribute reads as the empty string.
    EXPECT_EQ(a->GetAttribute("y", value), S_OK);
    EXPECT_EQ(value.str(), "");

    VRKSmartRef<VRKIDOMNode> child;
    ASSERT_EQ(a->GetFirstChild(child), S_OK);
    ASSERT_TRUE(child);
    EXPECT_EQ(child->AsElement(), nullptr);  // the text
    EXPECT_EQ(nameOf(child).str(), "#text");
    ASSERT_EQ(child->GetNextSibling(child), S_OK);
    ASSERT_NE(child->AsElement(), nullptr);
    EXPECT_EQ(nameOf(child).str(), "b");
    ASSERT_EQ(child->GetNextSibling(child), S_OK);
    EXPECT_EQ(nameOf(child).str(), "c");
    ASSERT_EQ(child->GetNextSibling(child), S_OK);
    EXPECT_FALSE(child);

    EXPECT_EQ(a->SetTagName("renamed"), S_OK);
    VRKString tag;
    EXPECT_EQ(a->GetTagName(tag), S_OK);
    EXPECT_EQ(tag.str(), "renamed");
}

TEST(Dom, NodesOfAnotherDocumentAreNotAppended) {
    VRKIDOMDocumentRef one = VRKDOMImplementation::CreateDocument("one");
    VRKIDOMDocumentRef two = VRKDOMImplementation::CreateDocument("two");
    VRKIDOMElementRef root;
    VRKIDOMElementRef stranger;
    ASSERT_EQ(one->GetDocumentElement(root), S_OK);
    ASSERT_EQ(two->CreateElement("x", stranger), S_OK);
    EXPECT_EQ(root->AppendChild(VRKSmartRef<VRKIDOMNode>(stranger.get())), E_FAIL);
    EXPECT_EQ(root->AppendChild({}), E_FAIL);
}

TEST(Dom, AnElementKeepsItsDocumentAlive) {
    VRKIDOMElementRef root;
    {
        VRKIDOMDocumentRef document = VRKDOMImplementation::CreateDocument("r");
        ASSERT_EQ(document->GetDocumentElement(root), S_OK);
    }
    EXPECT_EQ(root->SetAttribute("still", "here"), S_OK);
    VRKIDOMDocumentRef owner;
    ASSERT_EQ(root->GetOwnerDocument(owner), S_OK);
    EXPECT_EQ(VRKDOMImplementation::ToText(owner),
              "<?xml version=\"1.0\"?>\n<r still=\"here\" />\n");
}

TEST(Dom, Files) {
    TempFolder folder("dom");
    std::string error;
    EXPECT_FALSE(VRKDOMImplementation::Read(folder.File("none.xml"), error));
    EXPECT_EQ(error, folder.File("none.xml") + ": cannot open: No such file or directory");
    folder.Write("bad.xml", "<a>\n</b>");
    EXPECT_FALSE(VRKDOMImplementation::Read(folder.File("bad.xml"), error));
    EXPECT_EQ(error.rfind(folder.File("bad.xml") + ":2: not XML: ", 0), 0u) << error;

    VRKIDOMDocumentRef document = VRKDOMImplementation::CreateDocument("r");
    ASSERT_TRUE(VRKDOMImplementation::Write(folder.File("r.xml"), document, error)) << error;
    VRKIDOMDocumentRef back = VRKDOMImplementation::Read(folder.File("r.xml"), error);
    ASSERT_TRUE(back) << error;
    EXPECT_EQ(VRKDOMImplementation::ToText(back), VRKDOMImplementation::ToText(document));
    EXPECT_FALSE(VRKDOMImplementation::Write(folder.File("x.xml"), {}, error));
}

}  // namespace
