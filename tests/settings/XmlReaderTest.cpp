#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesLightXmlNode.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "settings/SettingsSupport.h"

namespace {

template <class Record>
VRKResult Read(const std::string& xml, Record& record,
               VRKResult (*read)(VRKPropertiesXmlNode&, Record&)) {
    VRKLightXmlElement element = Light(xml);
    EXPECT_NE(element.GetName().str(), "#bad") << xml;
    VRKPropertiesLightXmlNode node(&element);
    return read(node, record);
}

VRKResult ReadHPGL2(const std::string& xml, VRKPrintHPGL2Properties& r) {
    return Read<VRKPrintHPGL2Properties>(xml, r, VRKPropertiesXmlReader::ReadHPGL2);
}
VRKResult ReadHPGL(const std::string& xml, VRKPrintHPGLProperties& r) {
    return Read<VRKPrintHPGLProperties>(xml, r, VRKPropertiesXmlReader::ReadHPGL);
}
VRKResult Read1055C(const std::string& xml, VRKPrintHP1055CProperties& r) {
    return Read<VRKPrintHP1055CProperties>(xml, r, VRKPropertiesXmlReader::ReadHP1055C);
}
VRKResult Read4000(const std::string& xml, VRKPrintHP4000Properties& r) {
    return Read<VRKPrintHP4000Properties>(xml, r, VRKPropertiesXmlReader::ReadHP4000);
}

const std::vector<std::string> kMediaTypes = {
    "Default",           "Paper",         "Transparency film", "Vellum", "Polyester film",
    "Translucent paper", "Special paper", "Glossy paper"};

// ---- HP-GL/2 ---------------------------------------------------------------------------------

TEST(XmlReaderHPGL2, ReadsAllThreeFields) {
    Owned<VRKPrintHPGL2Properties> r;
    ASSERT_EQ(
        ReadHPGL2("<HPGL2Properties mediaType=\"Vellum\" cutterState=\"NO\" quality=\"42\"/>", *r),
        S_OK);
    EXPECT_EQ(r->GetMediaType(), 2);
    EXPECT_EQ(r->GetCutterState(), 0);
    EXPECT_EQ(r->GetQuality(), 42);
    EXPECT_EQ(r->GetType(), 0);
}

TEST(XmlReaderHPGL2, EveryMediaTypeSpelling) {
    for (int code = -1; code <= 6; ++code) {
        Owned<VRKPrintHPGL2Properties> r;
        r->SetMediaType(99);
        ASSERT_EQ(ReadHPGL2("<HPGL2Properties mediaType=\"" +
                                kMediaTypes[static_cast<size_t>(code + 1)] + "\"/>",
                            *r),
                  S_OK);
        EXPECT_EQ(r->GetMediaType(), code);
    }
}

TEST(XmlReaderHPGL2, OnlyIdenticalSpellingsAreTaken) {
    // The host string comparison tells case apart, so other letter cases are no spelling at all.
    for (const char* text : {"default", "DEFAULT", "paper", "Default ", " Paper", "Transparency",
                             "Glossy  paper", "0", "-1", ""}) {
        Owned<VRKPrintHPGL2Properties> r;
        r->SetMediaType(4);
        r->SetCutterState(7);
        ASSERT_EQ(ReadHPGL2(std::string("<HPGL2Properties mediaType=\"") + text +
                                "\" cutterState=\"" + text + "\" quality=\"5\"/>",
                            *r),
                  S_OK);
        EXPECT_EQ(r->GetMediaType(), 4) << text;
        EXPECT_EQ(r->GetCutterState(), 7) << text;
    }
    for (const char* text : {"yes", "Yes", "no", "No", "1", "0", "TRUE"}) {
        Owned<VRKPrintHPGL2Properties> r;
        r->SetCutterState(5);
        ASSERT_EQ(ReadHPGL2(std::string("<HPGL2Properties cutterState=\"") + text + "\"/>", *r),
                  S_OK);
        EXPECT_EQ(r->GetCutterState(), 5) << text;
    }
}

TEST(XmlReaderHPGL2, YesAndNo) {
    Owned<VRKPrintHPGL2Properties> r;
    r->SetCutterState(9);
    ReadHPGL2("<HPGL2Properties cutterState=\"NO\"/>", *r);
    EXPECT_EQ(r->GetCutterState(), 0);
    ReadHPGL2("<HPGL2Properties cutterState=\"YES\"/>", *r);
    EXPECT_EQ(r->GetCutterState(), 1);
}

TEST(XmlReaderHPGL2, MissingAttributesKeepTheirFieldsButQualityReadsZero) {
    Owned<VRKPrintHPGL2Properties> r;
    r->SetMediaType(5);
    r->SetCutterState(0);
    r->SetQuality(77);
    ASSERT_EQ(ReadHPGL2("<HPGL2Properties/>", *r), S_OK);
    EXPECT_EQ(r->GetMediaType(), 5);
    EXPECT_EQ(r->GetCutterState(), 0);
    EXPECT_EQ(r->GetQuality(), 0);
}

TEST(XmlReaderHPGL2, QualityIsADecimalNumberOrZero) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"50", 50}, {"-7", -7}, {"+8", 8},   {"  12", 12}, {"33abc", 33}, {"12.9", 12},
        {"abc", 0}, {"", 0},    {"Best", 0}, {"0x10", 0},  {"007", 7},    {"-0", 0}};
    for (const auto& [text, value] : cases) {
        Owned<VRKPrintHPGL2Properties> r;
        r->SetQuality(61);
        ASSERT_EQ(ReadHPGL2("<HPGL2Properties quality=\"" + text + "\"/>", *r), S_OK);
        EXPECT_EQ(r->GetQuality(), value) << text;
    }
}

TEST(XmlReaderHPGL2, QualityBeyondTheIntKeepsTheField) {
    for (const char* text : {"99999999999999999999", "2147483648", "-2147483649", "  +4294967296x",
                             "1e10", "-3e38", "1e400"}) {
        Owned<VRKPrintHPGL2Properties> r;
        r->SetQuality(61);
        ASSERT_EQ(ReadHPGL2(std::string("<HPGL2Properties quality=\"") + text + "\"/>", *r), S_OK);
        EXPECT_EQ(r->GetQuality(), 61) << text;
    }
}

TEST(XmlReaderHPGL2, QualityAtTheLimitsOfTheIntAndWithAnExponent) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"2147483647", 2147483647},
        {"-2147483648", -2147483647 - 1},
        {"000000000000042", 42},
        {"5e1", 50},  // an exponent is part of the number
        {"2.5E1", 25},
        {"7e-1", 0},
        {"-2147483648.9", -2147483647 - 1},
        {"1e", 1},
        {"3e+x", 3},
        {".5", 0},
        {"1e-400", 0}};
    for (const auto& [text, value] : cases) {
        Owned<VRKPrintHPGL2Properties> r;
        r->SetQuality(61);
        ASSERT_EQ(ReadHPGL2("<HPGL2Properties quality=\"" + text + "\"/>", *r), S_OK);
        EXPECT_EQ(r->GetQuality(), value) << text;
    }
}

TEST(XmlReaderHPGL2, TypeStaysAsItWas) {
    Owned<VRKPrintHPGL2Properties> r;
    r->SetType(1);
    ASSERT_EQ(ReadHPGL2("<HPGL2Properties mediaType=\"Paper\" quality=\"3\"/>", *r), S_OK);
    EXPECT_EQ(r->GetType(), 1);
    EXPECT_EQ(r->GetMediaType(), 0);
    r->SetType(0);
    ASSERT_EQ(ReadHPGL2("<HPGL2Properties Type=\"HPGL\"/>", *r), S_OK);
    EXPECT_EQ(r->GetType(), 0);
}

TEST(XmlReaderHPGL2, ChildrenAreNotLookedAt) {
    Owned<VRKPrintHPGL2Properties> r;
    ASSERT_EQ(ReadHPGL2("<HPGL2Properties quality=\"4\"><pens><pen number=\"1\" red=\"9\"/></pens>"
                        "</HPGL2Properties>",
                        *r),
              S_OK);
    EXPECT_EQ(r->GetQuality(), 4);
    EXPECT_EQ(PenTable(*r->GetHPGLProperties()).red[1], 0.0f);
}

// ---- HP-GL attributes --------------------------------------------------------------------------

TEST(XmlReaderHPGL, EveryOriginSpelling) {
    const std::vector<std::string> origins = {"Center", "Lower Left Corner", "Upper Left Corner",
                                              "Lower Right Corner", "Upper Right Corner"};
    for (int code = 0; code <= 4; ++code) {
        Owned<VRKPrintHPGLProperties> r;
        r->SetOrigin(-9);
        ASSERT_EQ(
            ReadHPGL("<HPGLProperties origin=\"" + origins[static_cast<size_t>(code)] + "\"/>", *r),
            S_OK);
        EXPECT_EQ(r->GetOrigin(), code);
    }
}

TEST(XmlReaderHPGL, ThreeAttributes) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadHPGL("<HPGLProperties origin=\"Center\" relativeMovePen=\"NO\" "
                       "printThickness=\"YES\"/>",
                       *r),
              S_OK);
    EXPECT_EQ(r->GetOrigin(), 0);
    EXPECT_EQ(r->GetRelativeMovePen(), 0);
    EXPECT_EQ(r->GetPrintThickness(), 1);
}

TEST(XmlReaderHPGL, UnknownOrMissingValuesKeepTheFields) {
    Owned<VRKPrintHPGLProperties> r;
    r->SetOrigin(3);
    r->SetRelativeMovePen(4);
    r->SetPrintThickness(5);
    ASSERT_EQ(ReadHPGL("<HPGLProperties origin=\"center\" relativeMovePen=\"yes\"/>", *r), S_OK);
    EXPECT_EQ(r->GetOrigin(), 3);
    EXPECT_EQ(r->GetRelativeMovePen(), 4);
    EXPECT_EQ(r->GetPrintThickness(), 5);
    // Without a "pens" child the pen table is left alone.
    const PenTable pens(*r);
    EXPECT_EQ(pens.count, 32);
    EXPECT_EQ(pens.red[2], 255.0f);
}

// ---- DesignJet 1000 ----------------------------------------------------------------------------

TEST(XmlReaderHP1055C, ReadsEveryField) {
    Owned<VRKPrintHP1055CProperties> r;
    ASSERT_EQ(Read1055C("<HP1000GL2Properties mediaType=\"Special paper\" quality=\"Fast\" "
                        "cutterState=\"NO\" autoRotate=\"NO\" inkedArea=\"NO\" ret=\"NO\">"
                        "<multiRollFeeder mediaSource=\"Roll3\"/></HP1000GL2Properties>",
                        *r),
              S_OK);
    EXPECT_EQ(r->GetMediaType(), 5);
    EXPECT_EQ(r->GetQuality(), 0);
    EXPECT_EQ(r->GetCutterState(), 0);
    EXPECT_EQ(r->GetAutoRotate(), 0);
    EXPECT_EQ(r->GetInkedArea(), 0);
    EXPECT_EQ(r->GetRet(), 0);
    EXPECT_EQ(r->GetMultiRollFeeder(), 1);
    EXPECT_EQ(r->GetMediaSource(), 2);
    // The inherited HP-GL/2 fields are not the ones read.
    const VRKPrintHPGL2Properties& base = *r;
    EXPECT_EQ(base.GetMediaType(), -1);
    EXPECT_EQ(base.GetCutterState(), 1);
    EXPECT_EQ(base.GetQuality(), 100);
    EXPECT_EQ(r->GetScale(), 1.0f);
}

TEST(XmlReaderHP1055C, QualityBandsReadAsNumbers) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"Fast", 0},    {"Normal", 50}, {"Best", 100}, {"fast", 33},
        {"NORMAL", 33}, {"60", 33},     {"", 33},      {"Best ", 33}};
    for (const auto& [text, value] : cases) {
        Owned<VRKPrintHP1055CProperties> r;
        r->SetQuality(33);
        ASSERT_EQ(Read1055C("<HP1000GL2Properties quality=\"" + text + "\"/>", *r), S_OK);
        EXPECT_EQ(r->GetQuality(), value) << text;
    }
}

TEST(XmlReaderHP1055C, MissingAttributesKeepEveryField) {
    Owned<VRKPrintHP1055CProperties> r;
    r->SetMediaType(6);
    r->SetQuality(61);
    r->SetCutterState(0);
    r->SetAutoRotate(0);
    r->SetInkedArea(0);
    r->SetRet(0);
    r->SetMultiRollFeeder(1);
    r->SetMediaSource(2);
    ASSERT_EQ(Read1055C("<HP1000GL2Properties/>", *r), S_OK);
    EXPECT_EQ(r->GetMediaType(), 6);
    EXPECT_EQ(r->GetQuality(), 61);
    EXPECT_EQ(r->GetCutterState(), 0);
    EXPECT_EQ(r->GetAutoRotate(), 0);
    EXPECT_EQ(r->GetInkedArea(), 0);
    EXPECT_EQ(r->GetRet(), 0);
    EXPECT_EQ(r->GetMultiRollFeeder(), 1);
    EXPECT_EQ(r->GetMediaSource(), 2);
}

TEST(XmlReaderHP1055C, MonoRollFeeder) {
    Owned<VRKPrintHP1055CProperties> r;
    r->SetMultiRollFeeder(1);
    r->SetMediaSource(2);
    ASSERT_EQ(Read1055C("<HP1000GL2Properties><monoRollFeeder mediaSource=\"ManualFeed\"/>"
                        "</HP1000GL2Properties>",
                        *r),
              S_OK);
    EXPECT_EQ(r->GetMultiRollFeeder(), 0);
    EXPECT_EQ(r->GetMediaSource(), 1);
    ASSERT_EQ(Read1055C("<HP1000GL2Properties><monoRollFeeder mediaSource=\"Roll\"/>"
                        "</HP1000GL2Properties>",
                        *r),
              S_OK);
    EXPECT_EQ(r->GetMediaSource(), 0);
}

TEST(XmlReaderHP1055C, MultiRollFeeder) {
    for (int source = 0; source < 3; ++source) {
        Owned<VRKPrintHP1055CProperties> r;
        r->SetMediaSource(9);
        ASSERT_EQ(Read1055C("<HP1000GL2Properties><multiRollFeeder mediaSource=\"Roll" +
                                std::to_string(source + 1) + "\"/></HP1000GL2Properties>",
                            *r),
                  S_OK);
        EXPECT_EQ(r->GetMultiRollFeeder(), 1);
        EXPECT_EQ(r->GetMediaSource(), source);
    }
}

TEST(XmlReaderHP1055C, UnknownSourceKeepsTheSourceButSetsTheKind) {
    // Each feeder knows only its own spellings; an absent source reads as the empty string.
    const std::vector<std::pair<std::string, int>> cases = {
        {"<multiRollFeeder mediaSource=\"Roll\"/>", 1},
        {"<multiRollFeeder mediaSource=\"Roll4\"/>", 1},
        {"<multiRollFeeder mediaSource=\"roll1\"/>", 1},
        {"<multiRollFeeder/>", 1},
        {"<monoRollFeeder mediaSource=\"Roll1\"/>", 0},
        {"<monoRollFeeder mediaSource=\"Manualfeed\"/>", 0},
        {"<monoRollFeeder/>", 0}};
    for (const auto& [child, kind] : cases) {
        Owned<VRKPrintHP1055CProperties> r;
        r->SetMultiRollFeeder(7);
        r->SetMediaSource(5);
        ASSERT_EQ(Read1055C("<HP1000GL2Properties>" + child + "</HP1000GL2Properties>", *r), S_OK);
        EXPECT_EQ(r->GetMultiRollFeeder(), kind) << child;
        EXPECT_EQ(r->GetMediaSource(), 5) << child;
    }
}

TEST(XmlReaderHP1055C, OnlyTheFirstChildIsExamined) {
    Owned<VRKPrintHP1055CProperties> r;
    r->SetMultiRollFeeder(7);
    r->SetMediaSource(5);
    ASSERT_EQ(Read1055C("<HP1000GL2Properties><feeder/><multiRollFeeder mediaSource=\"Roll2\"/>"
                        "</HP1000GL2Properties>",
                        *r),
              S_OK);
    EXPECT_EQ(r->GetMultiRollFeeder(), 7);
    EXPECT_EQ(r->GetMediaSource(), 5);
    ASSERT_EQ(Read1055C("<HP1000GL2Properties><monoRollFeeder mediaSource=\"ManualFeed\"/>"
                        "<multiRollFeeder mediaSource=\"Roll3\"/></HP1000GL2Properties>",
                        *r),
              S_OK);
    EXPECT_EQ(r->GetMultiRollFeeder(), 0);
    EXPECT_EQ(r->GetMediaSource(), 1);
    // Case counts for the child's name as well.
    ASSERT_EQ(Read1055C("<HP1000GL2Properties><MultiRollFeeder mediaSource=\"Roll3\"/>"
                        "</HP1000GL2Properties>",
                        *r),
              S_OK);
    EXPECT_EQ(r->GetMultiRollFeeder(), 0);
    EXPECT_EQ(r->GetMediaSource(), 1);
}

TEST(XmlReaderHP1055C, WrongElementNameFailsAndChangesNothing) {
    for (const char* name : {"HP4000GL2Properties", "HPGL2Properties", "HPGLProperties",
                             "hp1000gl2properties", "HP1000GL2Properties2"}) {
        Owned<VRKPrintHP1055CProperties> r;
        EXPECT_EQ(Read1055C(std::string("<") + name +
                                " mediaType=\"Paper\" quality=\"Fast\" cutterState=\"NO\" "
                                "autoRotate=\"NO\" inkedArea=\"NO\" ret=\"NO\">"
                                "<multiRollFeeder mediaSource=\"Roll2\"/></" +
                                name + ">",
                            *r),
                  E_FAIL)
            << name;
        EXPECT_EQ(r->GetMediaType(), -1);
        EXPECT_EQ(r->GetQuality(), 100);
        EXPECT_EQ(r->GetCutterState(), 1);
        EXPECT_EQ(r->GetAutoRotate(), 1);
        EXPECT_EQ(r->GetInkedArea(), 1);
        EXPECT_EQ(r->GetRet(), 1);
        EXPECT_EQ(r->GetMultiRollFeeder(), 0);
        EXPECT_EQ(r->GetMediaSource(), 0);
    }
    EXPECT_EQ(static_cast<unsigned>(E_FAIL), 0x80004005u);
}

// ---- DesignJet 4000 ----------------------------------------------------------------------------

TEST(XmlReaderHP4000, ReadsEveryField) {
    Owned<VRKPrintHP4000Properties> r;
    ASSERT_EQ(Read4000("<HP4000GL2Properties mediaType=\"Translucent paper\" cutterState=\"NO\" "
                       "printQuality=\"HIGH\" autoRotate=\"NO\" inkedArea=\"NO\" ret=\"NO\" "
                       "resolution=\"1200\" maxDetail=\"NO\" mediaSource=\"ManualFeed\"/>",
                       *r),
              S_OK);
    EXPECT_EQ(r->GetMediaType(), 4);
    EXPECT_EQ(r->GetCutterState(), 0);
    EXPECT_EQ(r->GetPrintQuality(), 2);
    EXPECT_EQ(r->GetAutoRotate(), 0);
    EXPECT_EQ(r->GetInkedArea(), 0);
    EXPECT_EQ(r->GetRet(), 0);
    EXPECT_EQ(r->GetResolution(), 2);
    EXPECT_EQ(r->GetMaxDetail(), 0);
    EXPECT_EQ(r->GetMediaSource(), 0);
    EXPECT_EQ(r->GetQuality(), 100);
}

TEST(XmlReaderHP4000, SpellingsOfQualityResolutionAndSource) {
    Owned<VRKPrintHP4000Properties> r;
    const std::vector<std::pair<std::string, int>> qualities = {
        {"DRAFT", 0}, {"NORMAL", 1}, {"HIGH", 2}};
    for (const auto& [text, code] : qualities) {
        r->SetPrintQuality(9);
        Read4000("<HP4000GL2Properties printQuality=\"" + text + "\"/>", *r);
        EXPECT_EQ(r->GetPrintQuality(), code) << text;
    }
    const std::vector<std::pair<std::string, int>> resolutions = {
        {"300", 0}, {"600", 1}, {"1200", 2}};
    for (const auto& [text, code] : resolutions) {
        r->SetResolution(9);
        Read4000("<HP4000GL2Properties resolution=\"" + text + "\"/>", *r);
        EXPECT_EQ(r->GetResolution(), code) << text;
    }
    r->SetMediaSource(9);
    Read4000("<HP4000GL2Properties mediaSource=\"Roll\"/>", *r);
    EXPECT_EQ(r->GetMediaSource(), 1);
    Read4000("<HP4000GL2Properties mediaSource=\"ManualFeed\"/>", *r);
    EXPECT_EQ(r->GetMediaSource(), 0);
}

TEST(XmlReaderHP4000, UnknownAndMissingValuesKeepTheFields) {
    Owned<VRKPrintHP4000Properties> r;
    r->SetMediaType(3);
    r->SetCutterState(0);
    r->SetPrintQuality(0);
    r->SetResolution(0);
    r->SetMediaSource(7);
    r->SetMaxDetail(0);
    ASSERT_EQ(Read4000("<HP4000GL2Properties mediaType=\"Polyester Film\" printQuality=\"Normal\" "
                       "resolution=\"600dpi\" mediaSource=\"Roll1\" quality=\"5\"/>",
                       *r),
              S_OK);
    EXPECT_EQ(r->GetMediaType(), 3);
    EXPECT_EQ(r->GetCutterState(), 0);
    EXPECT_EQ(r->GetPrintQuality(), 0);
    EXPECT_EQ(r->GetResolution(), 0);
    EXPECT_EQ(r->GetMediaSource(), 7);
    EXPECT_EQ(r->GetMaxDetail(), 0);
    EXPECT_EQ(r->GetAutoRotate(), 1);
    // The inherited quality is not part of the document.
    EXPECT_EQ(r->GetQuality(), 100);
}

TEST(XmlReaderHP4000, WrongElementNameFailsAndChangesNothing) {
    for (const char* name : {"HP1000GL2Properties", "HPGL2Properties", "HP4000GL2properties"}) {
        Owned<VRKPrintHP4000Properties> r;
        EXPECT_EQ(Read4000(std::string("<") + name +
                               " mediaType=\"Paper\" cutterState=\"NO\" printQuality=\"HIGH\" "
                               "autoRotate=\"NO\" inkedArea=\"NO\" ret=\"NO\" resolution=\"300\" "
                               "maxDetail=\"NO\" mediaSource=\"ManualFeed\"/>",
                           *r),
                  E_FAIL)
            << name;
        EXPECT_EQ(r->GetMediaType(), -1);
        EXPECT_EQ(r->GetCutterState(), 1);
        EXPECT_EQ(r->GetPrintQuality(), 1);
        EXPECT_EQ(r->GetAutoRotate(), 1);
        EXPECT_EQ(r->GetInkedArea(), 1);
        EXPECT_EQ(r->GetRet(), 1);
        EXPECT_EQ(r->GetResolution(), 1);
        EXPECT_EQ(r->GetMaxDetail(), 1);
        EXPECT_EQ(r->GetMediaSource(), 1);
    }
}

}  // namespace
