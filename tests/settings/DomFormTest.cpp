#include <gtest/gtest.h>

#include <string>

#include "host/xml/VRKDOMImplementation.h"
#include "settings/Documents.h"
#include "settings/FakeDom.h"
#include "settings/Generators.h"
#include "settings/SettingsSupport.h"

namespace {

// A new DOM document whose document element has the given name.
struct Dom {
    explicit Dom(const char* rootName)
        : document(VRKDOMImplementation::CreateDocument(rootName)), root(RootOf(document)) {}
    std::string Text() const { return Dump(LightOfDOM(document)); }

    VRKIDOMDocumentRef document;
    VRKIDOMElementRef root;
};

// A DOM document parsed from text, with its document element.
struct ParsedDom {
    explicit ParsedDom(const std::string& xml) {
        std::string error;
        document = VRKDOMImplementation::Parse(xml, error);
        root = RootOf(document);
    }
    VRKIDOMDocumentRef document;
    VRKIDOMElementRef root;
};

VRKIDOMElementRef AsElement(const VRKSmartRef<FakeElement>& fake) {
    return VRKIDOMElementRef(fake.get());
}

// ---- Writing -----------------------------------------------------------------------------------

TEST(DomForm, HPGL2WriterSetsTypeAndKeepsTheName) {
    HPGL2Made g;
    Dom dom("Printer");
    ASSERT_TRUE(dom.root);
    ASSERT_EQ(g.settings->WriteToDOM(dom.root), S_OK);
    EXPECT_EQ(dom.Text(), "<Printer Type=\"HPGL2\" " + kHPGL2Attributes + "/>");
}

TEST(DomForm, HPGL2WriterInTheHPGLDialect) {
    HPGL2Made g;
    g.Record()->SetType(1);
    Dom dom("Printer");
    ASSERT_EQ(g.settings->WriteToDOM(dom.root), S_OK);
    EXPECT_EQ(dom.Text(),
              "<Printer Type=\"HPGL\" " + kHPGLAttributes + ">" + DefaultPens() + "</Printer>");
}

TEST(DomForm, DesignJetAndHPGLWritersSetNoType) {
    HP1055CMade a;
    a->EnsureProperties();
    Dom da("HP1000GL2Properties");
    ASSERT_EQ(a.settings->WriteToDOM(da.root), S_OK);
    EXPECT_EQ(da.Text(), kDefaultHP1055C);

    HP4000Made b;
    b->EnsureProperties();
    Dom db("HP4000GL2Properties");
    ASSERT_EQ(b.settings->WriteToDOM(db.root), S_OK);
    EXPECT_EQ(db.Text(), kDefaultHP4000);

    HPGLMade c;
    Dom dc("HPGLProperties");
    ASSERT_EQ(c.settings->WriteToDOM(dc.root), S_OK);
    EXPECT_EQ(dc.Text(), kDefaultHPGL);
}

TEST(DomForm, DomAndLightFormsGiveTheSameDocument) {
    // Changed records, so that more than the defaults are compared.
    HPGL2Made hpgl2;
    hpgl2.Record()->SetMediaType(6);
    hpgl2.Record()->SetQuality(7);
    HPGL2Made hpglDialect;
    hpglDialect.Record()->SetType(3);
    FillPens(*hpglDialect->GetHPGLSettings(), 5, 1.5f, 2, 3, 0.25f, 0);
    HP1055CMade dj1000;
    dj1000->EnsureProperties();
    dj1000.Record()->SetMultiRollFeeder(1);
    dj1000.Record()->SetMediaSource(2);
    dj1000.Record()->SetQuality(30);
    HP4000Made dj4000;
    dj4000->EnsureProperties();
    dj4000.Record()->SetResolution(2);
    dj4000.Record()->SetMediaSource(0);
    HPGLMade hpgl;
    hpgl.Record()->SetOrigin(4);

    const auto compare = [](VRKIPrtGeneratorProperties& settings, const char* name,
                            const std::string& typeAttribute) {
        VRKLightXmlElement light;
        ASSERT_EQ(settings.WriteToXml(light), S_OK);
        Dom dom(name);
        ASSERT_EQ(settings.WriteToDOM(dom.root), S_OK);
        VRKLightXmlElement fromDom = LightOfDOM(dom.document);
        EXPECT_EQ(fromDom.GetAttribute("Type").str(), typeAttribute);
        fromDom.RemoveAttribute("Type");
        EXPECT_EQ(Dump(fromDom), Dump(light));
        EXPECT_TRUE(fromDom == light);
    };
    compare(*hpgl2.settings, "HPGL2Properties", "HPGL2");
    compare(*hpglDialect.settings, "HPGLProperties", "HPGL");
    compare(*dj1000.settings, "HP1000GL2Properties", "");
    compare(*dj4000.settings, "HP4000GL2Properties", "");
    compare(*hpgl.settings, "HPGLProperties", "");
}

TEST(DomForm, WithoutAnOwnerDocumentTheHPGLFormFailsAfterItsAttributes) {
    HPGL2Made g;
    g.Record()->SetType(1);
    VRKSmartRef<FakeElement> fake = MakeFake("Printer");
    EXPECT_EQ(g.settings->WriteToDOM(AsElement(fake)), E_FAIL);
    EXPECT_EQ(fake->Dump(), "<Printer Type=\"HPGL\" " + kHPGLAttributes + "/>");
    EXPECT_EQ(fake->setTagNameCalls, 0);

    HPGLMade h;
    VRKSmartRef<FakeElement> other = MakeFake("HPGLProperties");
    EXPECT_EQ(h.settings->WriteToDOM(AsElement(other)), E_FAIL);
    EXPECT_EQ(other->Dump(), "<HPGLProperties " + kHPGLAttributes + "/>");
}

TEST(DomForm, HPGL2FormNeedsNoOwnerDocument) {
    HPGL2Made g;
    VRKSmartRef<FakeElement> fake = MakeFake("Printer");
    EXPECT_EQ(g.settings->WriteToDOM(AsElement(fake)), S_OK);
    EXPECT_EQ(fake->Dump(), "<Printer Type=\"HPGL2\" " + kHPGL2Attributes + "/>");
}

TEST(DomForm, PensListThatCannotBeCreatedIsLeftOut) {
    HPGL2Made g;
    g.Record()->SetType(1);
    auto document = VRKSmartRef<FakeDocument>::Adopt(new FakeDocument);
    document->refusedTag = "pens";
    VRKSmartRef<FakeElement> fake = MakeFake("Printer", document.get());
    EXPECT_EQ(g.settings->WriteToDOM(AsElement(fake)), S_OK);
    EXPECT_EQ(fake->Dump(), "<Printer Type=\"HPGL\" " + kHPGLAttributes + "/>");
}

TEST(DomForm, WriterStopsAddingPensWhenOneCannotBeCreated) {
    HPGL2Made g;
    g.Record()->SetType(1);
    auto document = VRKSmartRef<FakeDocument>::Adopt(new FakeDocument);
    document->createLimit = 3;  // "pens" and two "pen"
    VRKSmartRef<FakeElement> fake = MakeFake("Printer", document.get());
    EXPECT_EQ(g.settings->WriteToDOM(AsElement(fake)), S_OK);
    EXPECT_EQ(fake->Dump(),
              "<Printer Type=\"HPGL\" " + kHPGLAttributes +
                  "><pens><pen number=\"1\" red=\"0\" green=\"0\" blue=\"0\" width=\"0.35\" "
                  "enable=\"YES\"/><pen number=\"2\" red=\"255\" green=\"0\" blue=\"0\" "
                  "width=\"0.35\" enable=\"YES\"/></pens></Printer>");

    auto refusing = VRKSmartRef<FakeDocument>::Adopt(new FakeDocument);
    refusing->refusedTag = "pen";
    VRKSmartRef<FakeElement> other = MakeFake("Printer", refusing.get());
    EXPECT_EQ(g.settings->WriteToDOM(AsElement(other)), S_OK);
    EXPECT_EQ(other->Dump(), "<Printer Type=\"HPGL\" " + kHPGLAttributes + "><pens/></Printer>");
}

TEST(DomForm, FeederChildMadeThroughTheOwnerDocument) {
    HP1055CMade g;
    g->EnsureProperties();
    auto document = VRKSmartRef<FakeDocument>::Adopt(new FakeDocument);
    VRKSmartRef<FakeElement> fake = MakeFake("Anything", document.get());
    EXPECT_EQ(g.settings->WriteToDOM(AsElement(fake)), S_OK);
    EXPECT_EQ(fake->Dump(), kDefaultHP1055C);
    EXPECT_EQ(document->created, 1);
}

// ---- Reading -----------------------------------------------------------------------------------

TEST(DomForm, HPGL2ReaderTakesTheTypeAttribute) {
    HPGL2Made g;
    ParsedDom dom("<Printer Type=\"HPGL2\" mediaType=\"Paper\" cutterState=\"NO\" quality=\"5\"/>");
    ASSERT_EQ(g.settings->ReadFromDOM(dom.root), S_OK);
    EXPECT_EQ(g.Record()->GetMediaType(), 0);
    EXPECT_EQ(g.Record()->GetCutterState(), 0);
    EXPECT_EQ(g.Record()->GetQuality(), 5);
    EXPECT_EQ(g.Record()->GetType(), 0);
}

TEST(DomForm, HPGL2ReaderTypeWinsOverTheTagName) {
    HPGL2Made g;
    ParsedDom dom(
        "<HPGL2Properties Type=\"HPGL\" origin=\"Center\" mediaType=\"Paper\">"
        "<pens><pen number=\"4\" red=\"44\"/></pens></HPGL2Properties>");
    ASSERT_EQ(g.settings->ReadFromDOM(dom.root), S_OK);
    EXPECT_EQ(g.Record()->GetType(), 1);
    EXPECT_EQ(g.Record()->GetMediaType(), -1);
    EXPECT_EQ(g->GetHPGLSettings()->GetOrigin(), 0);
    EXPECT_EQ(PenTable(*g->GetHPGLSettings()).red[4], 44.0f);
}

TEST(DomForm, HPGL2ReaderFallsBackOnTheTagName) {
    for (const char* type : {"", " Type=\"\""}) {
        HPGL2Made a;
        ParsedDom da(std::string("<HPGL2Properties") + type + " quality=\"12\"/>");
        ASSERT_EQ(a.settings->ReadFromDOM(da.root), S_OK);
        EXPECT_EQ(a.Record()->GetQuality(), 12);
        EXPECT_EQ(a.Record()->GetType(), 0);

        HPGL2Made b;
        ParsedDom db(std::string("<HPGLProperties") + type +
                     " printThickness=\"YES\" quality=\"12\"/>");
        ASSERT_EQ(b.settings->ReadFromDOM(db.root), S_OK);
        EXPECT_EQ(b.Record()->GetType(), 1);
        EXPECT_EQ(b.Record()->GetQuality(), 100);
        EXPECT_EQ(b->GetHPGLSettings()->GetPrintThickness(), 1);
    }
}

TEST(DomForm, HPGL2ReaderFallsBackWhenTheAttributeCannotBeFetched) {
    HPGL2Made g;
    VRKSmartRef<FakeElement> fake = MakeFake("HPGLProperties");
    fake->attributes = {{"Type", "HPGL2"}, {"origin", "Center"}};
    fake->getAttributeFails = true;
    ASSERT_EQ(g.settings->ReadFromDOM(AsElement(fake)), S_OK);
    EXPECT_EQ(g.Record()->GetType(), 1);
    // Attributes cannot be fetched, so they read as missing.
    EXPECT_EQ(g->GetHPGLSettings()->GetOrigin(), 1);
}

TEST(DomForm, HPGL2ReaderWithAnyOtherTypeReadsNothing) {
    for (const std::string xml :
         {"<HPGL2Properties Type=\"hpgl2\" quality=\"3\" mediaType=\"Paper\"/>",
          "<HPGLProperties Type=\"HPGL/2\" quality=\"3\" origin=\"Center\"/>",
          "<Printer quality=\"3\" mediaType=\"Paper\" origin=\"Center\"/>",
          "<HP1000GL2Properties quality=\"3\" mediaType=\"Paper\"/>",
          "<hpgl2properties quality=\"3\" mediaType=\"Paper\"/>"}) {
        HPGL2Made g;
        ParsedDom dom(xml);
        ASSERT_TRUE(dom.root) << xml;
        EXPECT_EQ(g.settings->ReadFromDOM(dom.root), S_OK) << xml;
        EXPECT_EQ(g.Record()->GetType(), 0) << xml;
        EXPECT_EQ(g.Record()->GetQuality(), 100) << xml;
        EXPECT_EQ(g.Record()->GetMediaType(), -1) << xml;
        EXPECT_EQ(g->GetHPGLSettings()->GetOrigin(), 1) << xml;
    }
}

TEST(DomForm, HPGL2ReaderFailsWhenTheTagNameCannotBeRead) {
    HPGL2Made g;
    VRKSmartRef<FakeElement> fake = MakeFake("HPGL2Properties");
    fake->attributes = {{"quality", "3"}};
    fake->tagNameFails = true;
    EXPECT_EQ(g.settings->ReadFromDOM(AsElement(fake)), E_FAIL);
    EXPECT_EQ(g.Record()->GetQuality(), 100);
    // With a "Type" the tag name is not needed.
    fake->attributes = {{"Type", "HPGL2"}, {"quality", "3"}};
    EXPECT_EQ(g.settings->ReadFromDOM(AsElement(fake)), S_OK);
    EXPECT_EQ(g.Record()->GetQuality(), 3);
}

TEST(DomForm, DesignJetAndHPGLReadersCheckTheTagName) {
    HP1055CMade a;
    a->EnsureProperties();
    ParsedDom wrongA("<HP4000GL2Properties quality=\"Fast\"/>");
    EXPECT_EQ(a.settings->ReadFromDOM(wrongA.root), E_FAIL);
    EXPECT_EQ(a.Record()->GetQuality(), 100);
    ParsedDom rightA(
        "<HP1000GL2Properties quality=\"Fast\">"
        "<multiRollFeeder mediaSource=\"Roll2\"/></HP1000GL2Properties>");
    EXPECT_EQ(a.settings->ReadFromDOM(rightA.root), S_OK);
    EXPECT_EQ(a.Record()->GetQuality(), 0);
    EXPECT_EQ(a.Record()->GetMultiRollFeeder(), 1);
    EXPECT_EQ(a.Record()->GetMediaSource(), 1);

    HP4000Made b;
    b->EnsureProperties();
    ParsedDom wrongB("<HP1000GL2Properties resolution=\"300\"/>");
    EXPECT_EQ(b.settings->ReadFromDOM(wrongB.root), E_FAIL);
    EXPECT_EQ(b.Record()->GetResolution(), 1);
    ParsedDom rightB("<HP4000GL2Properties resolution=\"300\"/>");
    EXPECT_EQ(b.settings->ReadFromDOM(rightB.root), S_OK);
    EXPECT_EQ(b.Record()->GetResolution(), 0);

    HPGLMade c;
    ParsedDom wrongC("<HPGL2Properties origin=\"Center\"/>");
    EXPECT_EQ(c.settings->ReadFromDOM(wrongC.root), E_FAIL);
    EXPECT_EQ(c.Record()->GetOrigin(), 1);
    ParsedDom rightC(
        "<HPGLProperties origin=\"Center\"><pens><pen number=\"3\" red=\"7\"/></pens>"
        "</HPGLProperties>");
    EXPECT_EQ(c.settings->ReadFromDOM(rightC.root), S_OK);
    EXPECT_EQ(c.Record()->GetOrigin(), 0);
    EXPECT_EQ(PenTable(*c.Record()).red[3], 7.0f);
}

TEST(DomForm, DesignJetReaderFailsWhenTheTagNameCannotBeRead) {
    HP4000Made g;
    g->EnsureProperties();
    VRKSmartRef<FakeElement> fake = MakeFake("HP4000GL2Properties");
    fake->attributes = {{"resolution", "300"}};
    fake->tagNameFails = true;
    EXPECT_EQ(g.settings->ReadFromDOM(AsElement(fake)), E_FAIL);
    EXPECT_EQ(g.Record()->GetResolution(), 1);
}

TEST(DomForm, DomReadersSkipTextBetweenPens) {
    HPGLMade g;
    ParsedDom dom(
        "<HPGLProperties><pens>\n  <pen number=\"2\" red=\"9\"/>text"
        "<pen number=\"3\" red=\"8\"/></pens></HPGLProperties>");
    EXPECT_EQ(g.settings->ReadFromDOM(dom.root), S_OK);
    EXPECT_EQ(PenTable(*g.Record()).red[2], 9.0f);
    EXPECT_EQ(PenTable(*g.Record()).red[3], 8.0f);
}

TEST(DomForm, TextAsFirstChildHidesThePens) {
    HPGLMade g;
    ParsedDom dom(
        "<HPGLProperties>text<pens><pen number=\"2\" red=\"9\"/></pens>"
        "</HPGLProperties>");
    EXPECT_EQ(g.settings->ReadFromDOM(dom.root), S_OK);
    EXPECT_EQ(PenTable(*g.Record()).red[2], 255.0f);
}

TEST(DomForm, NumbersBeyondTheirRangeKeepTheirFields) {
    HPGL2Made a;
    a.Record()->SetQuality(61);
    ParsedDom quality("<Printer Type=\"HPGL2\" quality=\"99999999999999999999\"/>");
    EXPECT_EQ(a.settings->ReadFromDOM(quality.root), S_OK);
    EXPECT_EQ(a.Record()->GetQuality(), 61);
    HPGLMade g;
    ParsedDom pens(
        "<HPGLProperties><pens><pen number=\"4294967297\" red=\"9\"/>"
        "<pen number=\"2\" red=\"nan\" width=\"1e9\"/></pens></HPGLProperties>");
    EXPECT_EQ(g.settings->ReadFromDOM(pens.root), S_OK);
    EXPECT_EQ(PenTable(*g.Record()).red[1], 0.0f);
    EXPECT_EQ(PenTable(*g.Record()).red[2], 255.0f);
    EXPECT_EQ(PenTable(*g.Record()).width[2], 0.35f);
}

TEST(DomForm, NullElementFailsEveryDomOperation) {
    const VRKIDOMElementRef none;
    HPGL2Made a;
    HPGL2Made aHPGL;
    aHPGL.Record()->SetType(1);
    HP1055CMade b;
    b->EnsureProperties();
    HP4000Made c;
    c->EnsureProperties();
    HPGLMade d;
    for (VRKIPrtGeneratorProperties* settings :
         {a.settings.get(), aHPGL.settings.get(), b.settings.get(), c.settings.get(),
          d.settings.get()}) {
        ASSERT_NE(settings, nullptr);
        EXPECT_EQ(settings->ReadFromDOM(none), E_FAIL);
        EXPECT_EQ(settings->WriteToDOM(none), E_FAIL);
    }
    EXPECT_EQ(aHPGL.Record()->GetType(), 1);
}

}  // namespace
