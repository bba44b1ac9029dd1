#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesLightXmlNode.h"
#include "properties/VRKPropertiesXmlWriter.h"
#include "settings/Documents.h"
#include "settings/SettingsSupport.h"

namespace {

template <class Record>
std::string Write(const Record& record, VRKResult (*write)(VRKPropertiesXmlNode&, const Record&)) {
    VRKLightXmlElement element("caller");
    VRKPropertiesLightXmlNode node(&element);
    EXPECT_EQ(write(node, record), S_OK);
    return Dump(element);
}

std::string WriteHPGL2(const VRKPrintHPGL2Properties& record) {
    VRKLightXmlElement element("caller");
    VRKPropertiesLightXmlNode node(&element);
    EXPECT_EQ(VRKPropertiesXmlWriter::WriteHPGL2(node, record), S_OK);
    return Dump(element);
}

std::string WriteHPGL(const VRKPrintHPGLProperties& record) {
    VRKLightXmlElement element("caller");
    VRKPropertiesLightXmlNode node(&element);
    EXPECT_EQ(VRKPropertiesXmlWriter::WriteHPGL(node, record), S_OK);
    return Dump(element);
}

// ---- The documents of default records --------------------------------------------------------

TEST(XmlWriter, DefaultHPGL2Record) {
    Owned<VRKPrintHPGL2Properties> r;
    EXPECT_EQ(WriteHPGL2(*r),
              "<HPGL2Properties mediaType=\"Default\" cutterState=\"YES\" quality=\"100\"/>");
    EXPECT_EQ(WriteHPGL2(*r), kDefaultHPGL2);
}

TEST(XmlWriter, DefaultHPGLRecord) {
    Owned<VRKPrintHPGLProperties> r;
    EXPECT_EQ(WriteHPGL(*r), kDefaultHPGL);
}

TEST(XmlWriter, DefaultHPGLRecordPiecesByName) {
    Owned<VRKPrintHPGLProperties> r;
    VRKLightXmlElement element;
    VRKPropertiesLightXmlNode node(&element);
    ASSERT_EQ(VRKPropertiesXmlWriter::WriteHPGL(node, *r), S_OK);
    EXPECT_EQ(element.GetName().str(), "HPGLProperties");
    EXPECT_EQ(element.GetAttribute("origin").str(), "Lower Left Corner");
    EXPECT_EQ(element.GetAttribute("relativeMovePen").str(), "YES");
    EXPECT_EQ(element.GetAttribute("printThickness").str(), "NO");
    ASSERT_EQ(element.GetChildCount(), 1);
    const VRKLightXmlElement* pens = element.GetChild(0);
    EXPECT_EQ(pens->GetName().str(), "pens");
    EXPECT_EQ(pens->GetAttributeCount(), 0);
    ASSERT_EQ(pens->GetChildCount(), 31);
    for (int i = 0; i < 31; ++i) {
        EXPECT_EQ(pens->GetChild(i)->GetName().str(), "pen");
        EXPECT_EQ(pens->GetChild(i)->GetAttribute("number").str(), std::to_string(i + 1));
    }
    const VRKLightXmlElement* pen1 = pens->GetChild(0);
    EXPECT_EQ(Dump(*pen1),
              "<pen number=\"1\" red=\"0\" green=\"0\" blue=\"0\" width=\"0.35\" enable=\"YES\"/>");
    EXPECT_EQ(pens->GetChild(1)->GetAttribute("red").str(), "255");
    EXPECT_EQ(pens->GetChild(7)->GetAttribute("number").str(), "8");
    EXPECT_EQ(pens->GetChild(7)->GetAttribute("enable").str(), "NO");
}

TEST(XmlWriter, DefaultHP1055CRecord) {
    Owned<VRKPrintHP1055CProperties> r;
    EXPECT_EQ(Write<VRKPrintHP1055CProperties>(*r, VRKPropertiesXmlWriter::WriteHP1055C),
              "<HP1000GL2Properties mediaType=\"Default\" quality=\"Best\" cutterState=\"YES\" "
              "autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\">"
              "<monoRollFeeder mediaSource=\"Roll\"/></HP1000GL2Properties>");
}

TEST(XmlWriter, DefaultHP4000Record) {
    Owned<VRKPrintHP4000Properties> r;
    EXPECT_EQ(Write<VRKPrintHP4000Properties>(*r, VRKPropertiesXmlWriter::WriteHP4000),
              "<HP4000GL2Properties mediaType=\"Default\" cutterState=\"YES\" "
              "printQuality=\"NORMAL\" autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\" "
              "resolution=\"600\" maxDetail=\"YES\" mediaSource=\"Roll\"/>");
}

TEST(XmlWriter, WritingIntoAnElementThatHasAttributesKeepsTheirPlaces) {
    // The writer sets attributes; one already there keeps its place, new ones go last.
    Owned<VRKPrintHPGL2Properties> r;
    VRKLightXmlElement element("old");
    element.SetAttribute("quality", "1");
    element.SetAttribute("other", "x");
    VRKPropertiesLightXmlNode node(&element);
    ASSERT_EQ(VRKPropertiesXmlWriter::WriteHPGL2(node, *r), S_OK);
    EXPECT_EQ(Dump(element),
              "<HPGL2Properties quality=\"100\" other=\"x\" mediaType=\"Default\" "
              "cutterState=\"YES\"/>");
}

TEST(XmlWriter, NameLeftAloneWhenAsked) {
    Owned<VRKPrintHPGL2Properties> r;
    Owned<VRKPrintHPGLProperties> h;
    VRKLightXmlElement a("Settings");
    VRKPropertiesLightXmlNode na(&a);
    ASSERT_EQ(VRKPropertiesXmlWriter::WriteHPGL2(na, *r, false), S_OK);
    EXPECT_EQ(a.GetName().str(), "Settings");
    VRKLightXmlElement b("Settings");
    VRKPropertiesLightXmlNode nb(&b);
    ASSERT_EQ(VRKPropertiesXmlWriter::WriteHPGL(nb, *h, false), S_OK);
    EXPECT_EQ(b.GetName().str(), "Settings");
}

// ---- Every spelling, and the values without one ----------------------------------------------

TEST(XmlWriter, EveryMediaTypeSpelling) {
    const std::vector<std::string> spellings = {
        "Default",           "Paper",         "Transparency film", "Vellum", "Polyester film",
        "Translucent paper", "Special paper", "Glossy paper"};
    for (int code = -1; code <= 6; ++code) {
        Owned<VRKPrintHPGL2Properties> r;
        r->SetMediaType(code);
        EXPECT_EQ(WriteHPGL2(*r), "<HPGL2Properties mediaType=\"" +
                                      spellings[static_cast<size_t>(code + 1)] +
                                      "\" cutterState=\"YES\" quality=\"100\"/>");
    }
}

TEST(XmlWriter, EveryOriginSpelling) {
    const std::vector<std::string> spellings = {"Center", "Lower Left Corner", "Upper Left Corner",
                                                "Lower Right Corner", "Upper Right Corner"};
    for (int code = 0; code <= 4; ++code) {
        Owned<VRKPrintHPGLProperties> r;
        r->SetOrigin(code);
        VRKLightXmlElement element;
        VRKPropertiesLightXmlNode node(&element);
        ASSERT_EQ(VRKPropertiesXmlWriter::WriteHPGL(node, *r), S_OK);
        EXPECT_EQ(element.GetAttributes().front().second.str(),
                  spellings[static_cast<size_t>(code)]);
    }
}

TEST(XmlWriter, ValuesWithoutASpellingAreLeftOut) {
    Owned<VRKPrintHPGL2Properties> a;
    a->SetMediaType(7);
    a->SetCutterState(2);
    a->SetQuality(-3);
    EXPECT_EQ(WriteHPGL2(*a), "<HPGL2Properties quality=\"-3\"/>");
    a->SetMediaType(-2);
    a->SetCutterState(-1);
    EXPECT_EQ(WriteHPGL2(*a), "<HPGL2Properties quality=\"-3\"/>");

    Owned<VRKPrintHPGLProperties> h;
    h->SetOrigin(9);
    h->SetRelativeMovePen(2);
    h->SetPrintThickness(-1);
    FillPens(*h, 2, 1, 2, 3, 1, 1);
    EXPECT_EQ(WriteHPGL(*h),
              "<HPGLProperties><pens><pen number=\"1\" red=\"1\" green=\"2\" blue=\"3\" "
              "width=\"1\" enable=\"YES\"/></pens></HPGLProperties>");
    h->SetOrigin(5);
    h->SetOrigin(-1);
    EXPECT_EQ(WriteHPGL(*h).substr(0, 20), "<HPGLProperties><pen");

    Owned<VRKPrintHP4000Properties> d;
    d->SetMediaType(7);
    d->SetCutterState(2);
    d->SetPrintQuality(3);
    d->SetAutoRotate(2);
    d->SetInkedArea(255);
    d->SetRet(2);
    d->SetResolution(3);
    d->SetMaxDetail(2);
    d->SetMediaSource(2);
    EXPECT_EQ(Write<VRKPrintHP4000Properties>(*d, VRKPropertiesXmlWriter::WriteHP4000),
              "<HP4000GL2Properties/>");
}

TEST(XmlWriter, HP1055CValuesWithoutASpellingAreLeftOut) {
    Owned<VRKPrintHP1055CProperties> r;
    r->SetMediaType(7);
    r->SetCutterState(2);
    r->SetAutoRotate(2);
    r->SetInkedArea(-1);
    r->SetRet(3);
    r->SetMediaSource(2);  // no single-roll source 2
    EXPECT_EQ(Write<VRKPrintHP1055CProperties>(*r, VRKPropertiesXmlWriter::WriteHP1055C),
              "<HP1000GL2Properties quality=\"Best\"><monoRollFeeder/></HP1000GL2Properties>");
    r->SetMultiRollFeeder(1);
    r->SetMediaSource(3);
    EXPECT_EQ(Write<VRKPrintHP1055CProperties>(*r, VRKPropertiesXmlWriter::WriteHP1055C),
              "<HP1000GL2Properties quality=\"Best\"><multiRollFeeder/></HP1000GL2Properties>");
}

TEST(XmlWriter, FeederKindOtherThanZeroOrOneWritesNoChild) {
    Owned<VRKPrintHP1055CProperties> r;
    r->SetMultiRollFeeder(2);
    EXPECT_EQ(Write<VRKPrintHP1055CProperties>(*r, VRKPropertiesXmlWriter::WriteHP1055C),
              "<HP1000GL2Properties mediaType=\"Default\" quality=\"Best\" cutterState=\"YES\" "
              "autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\"/>");
    r->SetMultiRollFeeder(-1);
    EXPECT_EQ(Write<VRKPrintHP1055CProperties>(*r, VRKPropertiesXmlWriter::WriteHP1055C),
              "<HP1000GL2Properties mediaType=\"Default\" quality=\"Best\" cutterState=\"YES\" "
              "autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\"/>");
}

TEST(XmlWriter, HP1055CFeederSources) {
    Owned<VRKPrintHP1055CProperties> r;
    const auto feeder = [&] {
        VRKLightXmlElement element;
        VRKPropertiesLightXmlNode node(&element);
        EXPECT_EQ(VRKPropertiesXmlWriter::WriteHP1055C(node, *r), S_OK);
        return element.GetChildCount() == 1 ? Dump(*element.GetChild(0)) : std::string();
    };
    r->SetMediaSource(0);
    EXPECT_EQ(feeder(), "<monoRollFeeder mediaSource=\"Roll\"/>");
    r->SetMediaSource(1);
    EXPECT_EQ(feeder(), "<monoRollFeeder mediaSource=\"ManualFeed\"/>");
    r->SetMultiRollFeeder(1);
    r->SetMediaSource(0);
    EXPECT_EQ(feeder(), "<multiRollFeeder mediaSource=\"Roll1\"/>");
    r->SetMediaSource(1);
    EXPECT_EQ(feeder(), "<multiRollFeeder mediaSource=\"Roll2\"/>");
    r->SetMediaSource(2);
    EXPECT_EQ(feeder(), "<multiRollFeeder mediaSource=\"Roll3\"/>");
}

TEST(XmlWriter, HP1055CQualityBands) {
    const std::vector<std::pair<int, std::string>> bands = {
        {-100, "Fast"}, {0, "Fast"},    {24, "Fast"}, {25, "Normal"}, {50, "Normal"},
        {60, "Normal"}, {74, "Normal"}, {75, "Best"}, {100, "Best"},  {1000, "Best"}};
    for (const auto& [quality, band] : bands) {
        Owned<VRKPrintHP1055CProperties> r;
        r->SetQuality(quality);
        VRKLightXmlElement element;
        VRKPropertiesLightXmlNode node(&element);
        ASSERT_EQ(VRKPropertiesXmlWriter::WriteHP1055C(node, *r), S_OK);
        EXPECT_EQ(element.GetAttribute("quality").str(), band) << quality;
        // The quality comes second, after the media type.
        EXPECT_EQ(element.GetAttributes()[1].first.str(), "quality");
    }
}

TEST(XmlWriter, HP1055CWritesItsOwnFieldsNotTheInheritedOnes) {
    Owned<VRKPrintHP1055CProperties> r;
    r->SetMediaType(3);
    r->SetCutterState(0);
    r->SetQuality(10);
    VRKPrintHPGL2Properties& base = *r;
    EXPECT_EQ(base.GetMediaType(), -1);
    EXPECT_EQ(Write<VRKPrintHP1055CProperties>(*r, VRKPropertiesXmlWriter::WriteHP1055C),
              "<HP1000GL2Properties mediaType=\"Polyester film\" quality=\"Fast\" "
              "cutterState=\"NO\" autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\">"
              "<monoRollFeeder mediaSource=\"Roll\"/></HP1000GL2Properties>");
}

TEST(XmlWriter, HP4000EverySpelling) {
    Owned<VRKPrintHP4000Properties> r;
    r->SetMediaType(6);
    r->SetCutterState(0);
    r->SetPrintQuality(0);
    r->SetAutoRotate(0);
    r->SetInkedArea(0);
    r->SetRet(0);
    r->SetResolution(0);
    r->SetMaxDetail(0);
    r->SetMediaSource(0);
    EXPECT_EQ(Write<VRKPrintHP4000Properties>(*r, VRKPropertiesXmlWriter::WriteHP4000),
              "<HP4000GL2Properties mediaType=\"Glossy paper\" cutterState=\"NO\" "
              "printQuality=\"DRAFT\" autoRotate=\"NO\" inkedArea=\"NO\" ret=\"NO\" "
              "resolution=\"300\" maxDetail=\"NO\" mediaSource=\"ManualFeed\"/>");
    r->SetPrintQuality(2);
    r->SetResolution(2);
    VRKLightXmlElement element;
    VRKPropertiesLightXmlNode node(&element);
    ASSERT_EQ(VRKPropertiesXmlWriter::WriteHP4000(node, *r), S_OK);
    EXPECT_EQ(element.GetAttribute("printQuality").str(), "HIGH");
    EXPECT_EQ(element.GetAttribute("resolution").str(), "1200");
    // The inherited quality is not part of the document.
    EXPECT_FALSE(element.HasAttribute("quality"));
}

// ---- Numbers -------------------------------------------------------------------------------

TEST(XmlWriter, QualityIsADecimalIntegerNeverChecked) {
    Owned<VRKPrintHPGL2Properties> r;
    r->SetQuality(-2147483647 - 1);
    EXPECT_EQ(WriteHPGL2(*r),
              "<HPGL2Properties mediaType=\"Default\" cutterState=\"YES\" "
              "quality=\"-2147483648\"/>");
    r->SetQuality(0);
    EXPECT_EQ(WriteHPGL2(*r),
              "<HPGL2Properties mediaType=\"Default\" cutterState=\"YES\" "
              "quality=\"0\"/>");
}

TEST(XmlWriter, PenValuesInShortestGeneralFormat) {
    Owned<VRKPrintHPGLProperties> r;
    std::vector<float> red = {0, 127.5f, 255, 1e7f, 0.0001f};
    std::vector<float> green = {0, 0.5f, -1, 0, 0};
    std::vector<float> blue = {0, 1000.25f, 3, 0, 0};
    std::vector<float> width = {0, 0.1f, 0.35f, 1.0f / 3.0f, 2.5f};
    std::vector<int> enable = {1, 0, 1, 2, -1};
    red.resize(32);
    green.resize(32);
    blue.resize(32);
    width.resize(32);
    enable.resize(32);
    r->SetPens(5, red.data(), green.data(), blue.data(), width.data(), enable.data());
    EXPECT_EQ(WriteHPGL(*r),
              "<HPGLProperties origin=\"Lower Left Corner\" relativeMovePen=\"YES\" "
              "printThickness=\"NO\"><pens>"
              "<pen number=\"1\" red=\"127.5\" green=\"0.5\" blue=\"1000.25\" width=\"0.1\" "
              "enable=\"NO\"/>"
              "<pen number=\"2\" red=\"255\" green=\"-1\" blue=\"3\" width=\"0.35\" "
              "enable=\"YES\"/>"
              "<pen number=\"3\" red=\"1e+07\" green=\"0\" blue=\"0\" width=\"0.333333\"/>"
              "<pen number=\"4\" red=\"0.0001\" green=\"0\" blue=\"0\" width=\"2.5\"/>"
              "</pens></HPGLProperties>");
}

TEST(XmlWriter, PenCountOfOneOrLessGivesAnEmptyPenList) {
    for (const int count : {1, 0, -5}) {
        Owned<VRKPrintHPGLProperties> r;
        FillPens(*r, count, 1, 1, 1, 1, 1);
        EXPECT_EQ(WriteHPGL(*r),
                  "<HPGLProperties origin=\"Lower Left Corner\" relativeMovePen=\"YES\" "
                  "printThickness=\"NO\"><pens/></HPGLProperties>")
            << count;
    }
}

TEST(XmlWriter, PenCountLimitsThePensWritten) {
    Owned<VRKPrintHPGLProperties> r;
    FillPens(*r, 3, 10, 20, 30, 0.5f, 1);
    EXPECT_EQ(WriteHPGL(*r),
              "<HPGLProperties origin=\"Lower Left Corner\" relativeMovePen=\"YES\" "
              "printThickness=\"NO\"><pens>"
              "<pen number=\"1\" red=\"10\" green=\"20\" blue=\"30\" width=\"0.5\" "
              "enable=\"YES\"/>"
              "<pen number=\"2\" red=\"10\" green=\"20\" blue=\"30\" width=\"0.5\" "
              "enable=\"YES\"/></pens></HPGLProperties>");
}

TEST(XmlWriter, WritingLeavesTheRecordAsItWas) {
    Owned<VRKPrintHPGLProperties> r;
    FillPens(*r, 12, 3, 4, 5, 6, 0);
    WriteHPGL(*r);
    const PenTable after(*r);
    EXPECT_EQ(after.count, 12);
    EXPECT_EQ(after.red[11], 3.0f);
    EXPECT_EQ(after.width[0], 6.0f);
}

}  // namespace
