#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKMetaClass.h"
#include "properties/VRKPrintHP1055CGeneratorImpl.h"
#include "properties/VRKPrintHP4000GeneratorImpl.h"
#include "properties/VRKPrintHPGL2GeneratorImpl.h"
#include "properties/VRKPrintHPGLGeneratorImpl.h"
#include "settings/Documents.h"
#include "settings/Generators.h"
#include "settings/SettingsSupport.h"
#include "support/GeneratorRun.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"

namespace {

VRKIDOMElementRef NewRoot(VRKIDOMDocumentRef& keep, const char* name) {
    keep = VRKDOMImplementation::CreateDocument(name);
    return RootOf(keep);
}

// ---- Reaching the interface --------------------------------------------------------------------

TEST(GeneratorProperties, EveryGeneratorHasTheInterface) {
    HPGL2Made a;
    HP1055CMade b;
    HP4000Made c;
    HPGLMade d;
    ASSERT_NE(a.generator, nullptr);
    ASSERT_NE(b.generator, nullptr);
    ASSERT_NE(c.generator, nullptr);
    ASSERT_NE(d.generator, nullptr);
    ASSERT_TRUE(a.settings);
    ASSERT_TRUE(b.settings);
    ASSERT_TRUE(c.settings);
    ASSERT_TRUE(d.settings);
    // Each generator gets the implementation of its own class, not that of a base class.
    using HPGL2Tie = VRKTIEIPrtGeneratorProperties<VRKPrintHPGL2GeneratorImpl>;
    using HP1055CTie = VRKTIEIPrtGeneratorProperties<VRKPrintHP1055CGeneratorImpl>;
    using HP4000Tie = VRKTIEIPrtGeneratorProperties<VRKPrintHP4000GeneratorImpl>;
    using HPGLTie = VRKTIEIPrtGeneratorProperties<VRKPrintHPGLGeneratorImpl>;
    auto* ta = dynamic_cast<HPGL2Tie*>(a.settings.get());
    auto* tb = dynamic_cast<HP1055CTie*>(b.settings.get());
    auto* tc = dynamic_cast<HP4000Tie*>(c.settings.get());
    auto* td = dynamic_cast<HPGLTie*>(d.settings.get());
    ASSERT_NE(ta, nullptr);
    ASSERT_NE(tb, nullptr);
    ASSERT_NE(tc, nullptr);
    ASSERT_NE(td, nullptr);
    EXPECT_EQ(ta->GetImplementation()->GetImpl(0), a.object.get());
    EXPECT_EQ(tb->GetImplementation()->GetImpl(0), b.object.get());
    EXPECT_EQ(tc->GetImplementation()->GetImpl(0), c.object.get());
    EXPECT_EQ(td->GetImplementation()->GetImpl(0), d.object.get());
}

TEST(GeneratorProperties, FourOperationsOfTheHPGL2Generator) {
    HPGL2Made g;
    VRKLightXmlElement written;
    ASSERT_EQ(g.settings->WriteToXml(written), S_OK);
    EXPECT_EQ(Dump(written), kDefaultHPGL2);
    VRKLightXmlElement in = Light("<HPGL2Properties mediaType=\"Vellum\" quality=\"20\"/>");
    ASSERT_EQ(g.settings->ReadFromXml(in), S_OK);
    EXPECT_EQ(g.Record()->GetMediaType(), 2);
    EXPECT_EQ(g.Record()->GetQuality(), 20);
    VRKIDOMDocumentRef document;
    VRKIDOMElementRef root = NewRoot(document, "S");
    ASSERT_EQ(g.settings->WriteToDOM(root), S_OK);
    EXPECT_EQ(Dump(LightOfDOM(document)),
              "<S Type=\"HPGL2\" mediaType=\"Vellum\" cutterState=\"YES\" quality=\"20\"/>");
    root->SetAttribute("quality", "21");
    ASSERT_EQ(g.settings->ReadFromDOM(root), S_OK);
    EXPECT_EQ(g.Record()->GetQuality(), 21);
}

TEST(GeneratorProperties, FourOperationsOfTheDesignJet1000Generator) {
    HP1055CMade g;
    ASSERT_NE(g->EnsureProperties(), nullptr);
    VRKLightXmlElement written;
    ASSERT_EQ(g.settings->WriteToXml(written), S_OK);
    EXPECT_EQ(Dump(written), kDefaultHP1055C);
    VRKLightXmlElement in = Light("<HP1000GL2Properties ret=\"NO\"/>");
    ASSERT_EQ(g.settings->ReadFromXml(in), S_OK);
    EXPECT_EQ(g.Record()->GetRet(), 0);
    VRKIDOMDocumentRef document;
    VRKIDOMElementRef root = NewRoot(document, "S");
    ASSERT_EQ(g.settings->WriteToDOM(root), S_OK);
    EXPECT_EQ(LightOfDOM(document).GetAttribute("ret").str(), "NO");
    EXPECT_EQ(LightOfDOM(document).GetName().str(), "HP1000GL2Properties");
    root->SetAttribute("ret", "YES");
    ASSERT_EQ(g.settings->ReadFromDOM(root), S_OK);
    EXPECT_EQ(g.Record()->GetRet(), 1);
}

TEST(GeneratorProperties, FourOperationsOfTheDesignJet4000Generator) {
    HP4000Made g;
    ASSERT_NE(g->EnsureProperties(), nullptr);
    VRKLightXmlElement written;
    ASSERT_EQ(g.settings->WriteToXml(written), S_OK);
    EXPECT_EQ(Dump(written), kDefaultHP4000);
    VRKLightXmlElement in = Light("<HP4000GL2Properties maxDetail=\"NO\"/>");
    ASSERT_EQ(g.settings->ReadFromXml(in), S_OK);
    EXPECT_EQ(g.Record()->GetMaxDetail(), 0);
    VRKIDOMDocumentRef document;
    VRKIDOMElementRef root = NewRoot(document, "S");
    ASSERT_EQ(g.settings->WriteToDOM(root), S_OK);
    EXPECT_EQ(LightOfDOM(document).GetAttribute("maxDetail").str(), "NO");
    root->SetAttribute("maxDetail", "YES");
    ASSERT_EQ(g.settings->ReadFromDOM(root), S_OK);
    EXPECT_EQ(g.Record()->GetMaxDetail(), 1);
}

TEST(GeneratorProperties, FourOperationsOfTheHPGLGenerator) {
    HPGLMade g;
    ASSERT_NE(g.Record(), nullptr);
    // The HP-GL generator's record is the HP-GL settings of its inner generator.
    EXPECT_EQ(g.Record(), g->GetInnerGenerator()->GetHPGLSettings());
    VRKLightXmlElement written;
    ASSERT_EQ(g.settings->WriteToXml(written), S_OK);
    EXPECT_EQ(Dump(written), kDefaultHPGL);
    VRKLightXmlElement in = Light("<HPGLProperties relativeMovePen=\"NO\"/>");
    ASSERT_EQ(g.settings->ReadFromXml(in), S_OK);
    EXPECT_EQ(g.Record()->GetRelativeMovePen(), 0);
    VRKIDOMDocumentRef document;
    VRKIDOMElementRef root = NewRoot(document, "S");
    ASSERT_EQ(g.settings->WriteToDOM(root), S_OK);
    EXPECT_EQ(LightOfDOM(document).GetAttribute("relativeMovePen").str(), "NO");
    root->SetAttribute("relativeMovePen", "YES");
    ASSERT_EQ(g.settings->ReadFromDOM(root), S_OK);
    EXPECT_EQ(g.Record()->GetRelativeMovePen(), 1);
}

// ---- Registration ------------------------------------------------------------------------------

struct Registered {
    const char* className;
    const char* implementationName;
    VRKTieFactory factory;
    const VRKMetaClass* meta;
};

const Registered kRegistered[] = {
    {"VRKPrintHPGL2Generator", "VRKPrintHPGL2GeneratorImpl",
     &CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGL2GeneratorImpl,
     VRKPrintHPGL2GeneratorImpl::MetaObject()},
    {"VRKPrintHP1055CGenerator", "VRKPrintHP1055CGeneratorImpl",
     &CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP1055CGeneratorImpl,
     VRKPrintHP1055CGeneratorImpl::MetaObject()},
    {"VRKPrintHP4000Generator", "VRKPrintHP4000GeneratorImpl",
     &CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP4000GeneratorImpl,
     VRKPrintHP4000GeneratorImpl::MetaObject()},
    {"VRKPrintHPGLGenerator", "VRKPrintHPGLGeneratorImpl",
     &CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHPGLGeneratorImpl,
     VRKPrintHPGLGeneratorImpl::MetaObject()},
};

TEST(GeneratorProperties, RegisteredUnderPrintForEachGeneratorClass) {
    for (const Registered& r : kRegistered) {
        const VRKInterfaceEntry* entry = VRKClassDictionary::Instance().FindInterface(
            r.className, "VRKIPrtGeneratorProperties", "Print");
        ASSERT_NE(entry, nullptr) << r.className;
        EXPECT_EQ(entry->interfaceName, "VRKIPrtGeneratorProperties");
        EXPECT_EQ(entry->className, r.className);
        EXPECT_EQ(entry->implementationName, r.implementationName);
        EXPECT_EQ(entry->framework, "Print");
        EXPECT_EQ(entry->createTie, r.factory) << r.className;
        ASSERT_NE(entry->createImplementation, nullptr);
        auto implementation = VRKSmartRef<VRKDataExtension>::Adopt(entry->createImplementation());
        ASSERT_TRUE(implementation);
        EXPECT_STREQ(implementation->IsA(), r.implementationName);
        // Not registered in another framework.
        EXPECT_EQ(VRKClassDictionary::Instance().FindInterface(
                      r.className, "VRKIPrtGeneratorProperties", "Other"),
                  nullptr);
    }
}

TEST(GeneratorProperties, ImplementationsAreExtensionsOfTheirGenerators) {
    for (const Registered& r : kRegistered) {
        EXPECT_STREQ(r.meta->GetClassName(), r.implementationName);
        EXPECT_STREQ(r.meta->GetExtension(), r.className);
        EXPECT_STREQ(r.meta->GetFramework(), "Print");
        EXPECT_TRUE(r.meta->IsAKindOf("VRKBaseUnknown"));
        EXPECT_TRUE(r.meta->IsAKindOf("VRKDataExtension"));
    }
}

TEST(GeneratorProperties, TieFactoriesAreExported) {
    for (const Registered& r : kRegistered) {
        const std::string symbol =
            std::string("CreateTIEVRKIPrtGeneratorProperties") + r.implementationName;
        void* found = ::dlsym(RTLD_DEFAULT, symbol.c_str());
        ASSERT_NE(found, nullptr) << symbol;
        EXPECT_EQ(found, reinterpret_cast<void*>(r.factory)) << symbol;
    }
}

TEST(GeneratorProperties, TieFactoriesRefuseAnImplementationOfAnotherClass) {
    auto hpgl2 = VRKSmartRef<VRKDataExtension>::Adopt(new VRKPrintHPGL2GeneratorImpl);
    auto dj1000 = VRKSmartRef<VRKDataExtension>::Adopt(new VRKPrintHP1055CGeneratorImpl);
    auto dj4000 = VRKSmartRef<VRKDataExtension>::Adopt(new VRKPrintHP4000GeneratorImpl);
    auto hpgl = VRKSmartRef<VRKDataExtension>::Adopt(new VRKPrintHPGLGeneratorImpl);
    auto plain = VRKSmartRef<VRKDataExtension>::Adopt(new VRKDataExtension);
    VRKDataExtension* implementations[] = {hpgl2.get(), dj1000.get(), dj4000.get(), hpgl.get()};
    for (size_t f = 0; f < 4; ++f) {
        for (size_t i = 0; i < 4; ++i) {
            VRKBaseUnknown* tie = kRegistered[f].factory(implementations[i]);
            if (f == i) {
                ASSERT_NE(tie, nullptr) << f;
                EXPECT_EQ(tie->GetRefCount(), 1u);
                EXPECT_TRUE(tie->IsAKindOf("VRKIPrtGeneratorProperties"));
                // The TIE holds the implementation.
                EXPECT_EQ(implementations[i]->GetRefCount(), 2u);
                tie->Release();
                EXPECT_EQ(implementations[i]->GetRefCount(), 1u);
            } else {
                EXPECT_EQ(tie, nullptr) << f << " " << i;
            }
        }
        EXPECT_EQ(kRegistered[f].factory(plain.get()), nullptr);
        EXPECT_EQ(kRegistered[f].factory(nullptr), nullptr);
    }
}

TEST(GeneratorProperties, TieForwardsToItsImplementation) {
    HP4000Made g;
    g->EnsureProperties();
    auto implementation = VRKSmartRef<VRKDataExtension>::Adopt(new VRKPrintHP4000GeneratorImpl);
    implementation->SetImpl(g.object.get());
    auto tie =
        VRKSmartRef<VRKIPrtGeneratorProperties>::Adopt(static_cast<VRKIPrtGeneratorProperties*>(
            CreateTIEVRKIPrtGeneratorPropertiesVRKPrintHP4000GeneratorImpl(implementation.get())));
    ASSERT_TRUE(tie);
    VRKLightXmlElement in = Light("<HP4000GL2Properties printQuality=\"HIGH\"/>");
    EXPECT_EQ(tie->ReadFromXml(in), S_OK);
    EXPECT_EQ(g.Record()->GetPrintQuality(), 2);
    VRKLightXmlElement out;
    EXPECT_EQ(tie->WriteToXml(out), S_OK);
    EXPECT_EQ(out.GetAttribute("printQuality").str(), "HIGH");
}

// ---- Failures ----------------------------------------------------------------------------------

// Runs all four operations and checks that each fails and leaves its element as it was.
void ExpectAllFailUntouched(VRKIPrtGeneratorProperties& settings, const char* name) {
    const std::string xml = std::string("<") + name + " mediaType=\"Paper\" quality=\"Fast\">" +
                            "<monoRollFeeder mediaSource=\"ManualFeed\"/></" + name + ">";
    VRKLightXmlElement element = Light(xml);
    const std::string before = Dump(element);
    EXPECT_EQ(settings.ReadFromXml(element), E_FAIL) << name;
    EXPECT_EQ(Dump(element), before);
    EXPECT_EQ(settings.WriteToXml(element), E_FAIL) << name;
    EXPECT_EQ(Dump(element), before);

    std::string error;
    VRKIDOMDocumentRef document = VRKDOMImplementation::Parse(xml, error);
    VRKIDOMElementRef root = RootOf(document);
    ASSERT_TRUE(root);
    EXPECT_EQ(settings.ReadFromDOM(root), E_FAIL) << name;
    EXPECT_EQ(Dump(LightOfDOM(document)), before);
    EXPECT_EQ(settings.WriteToDOM(root), E_FAIL) << name;
    EXPECT_EQ(Dump(LightOfDOM(document)), before);
}

TEST(GeneratorProperties, DesignJetWithoutARecordFailsAndTouchesNothing) {
    HP1055CMade a;
    ASSERT_EQ(a->GetProperties(), nullptr);
    ExpectAllFailUntouched(*a.settings, "HP1000GL2Properties");
    EXPECT_EQ(a->GetProperties(), nullptr);

    HP4000Made b;
    ASSERT_EQ(b->GetProperties(), nullptr);
    ExpectAllFailUntouched(*b.settings, "HP4000GL2Properties");
    EXPECT_EQ(b->GetProperties(), nullptr);

    // A record dropped again is the same as none.
    HP1055CMade c;
    c->EnsureProperties();
    c->SetHP1055CProperties(nullptr);
    ASSERT_EQ(c->GetProperties(), nullptr);
    ExpectAllFailUntouched(*c.settings, "HP1000GL2Properties");
}

TEST(GeneratorProperties, DesignJetWorksOnceARecordIsSet) {
    HP1055CMade g;
    Owned<VRKPrintHP1055CProperties> record;
    g->SetHP1055CProperties(record.p);
    VRKLightXmlElement in = Light("<HP1000GL2Properties quality=\"Normal\"/>");
    ASSERT_EQ(g.settings->ReadFromXml(in), S_OK);
    // The generator's live record, not a copy.
    EXPECT_EQ(record->GetQuality(), 50);
}

TEST(GeneratorProperties, ImplementationBoundToNoGeneratorFails) {
    for (const Registered& r : kRegistered) {
        auto settings = VRKGetClassInterface<VRKIPrtGeneratorProperties>(r.className);
        ASSERT_TRUE(settings) << r.className;
        ExpectAllFailUntouched(*settings, "HPGL2Properties");
        ExpectAllFailUntouched(*settings, "HPGLProperties");
    }
}

TEST(GeneratorProperties, ImplementationBoundToAnotherKindOfObjectFails) {
    HPGLMade other;
    for (const Registered& r : kRegistered) {
        if (std::string(r.className) == "VRKPrintHPGLGenerator") {
            continue;
        }
        const VRKInterfaceEntry* entry = VRKClassDictionary::Instance().FindInterface(
            r.className, "VRKIPrtGeneratorProperties", "Print");
        ASSERT_NE(entry, nullptr);
        auto implementation = VRKSmartRef<VRKDataExtension>::Adopt(entry->createImplementation());
        implementation->SetImpl(other.object.get());
        auto settings = VRKSmartRef<VRKIPrtGeneratorProperties>::Adopt(
            static_cast<VRKIPrtGeneratorProperties*>(entry->createTie(implementation.get())));
        ASSERT_TRUE(settings);
        ExpectAllFailUntouched(*settings, "HPGLProperties");
    }
}

TEST(GeneratorProperties, WrongElementNamesFailAndChangeNothing) {
    HPGL2Made a;
    for (const char* name : {"HP1000GL2Properties", "HP4000GL2Properties", "hpgl2properties",
                             "HPGL2Properties ", "Printer"}) {
        VRKLightXmlElement element =
            Light("<X mediaType=\"Paper\" quality=\"3\" origin=\"Center\"/>");
        element.SetName(name);
        EXPECT_EQ(a.settings->ReadFromXml(element), E_FAIL) << name;
    }
    EXPECT_EQ(a.Record()->GetMediaType(), -1);
    EXPECT_EQ(a.Record()->GetQuality(), 100);
    EXPECT_EQ(a.Record()->GetType(), 0);
    EXPECT_EQ(a->GetHPGLSettings()->GetOrigin(), 1);

    HPGLMade b;
    VRKLightXmlElement hpgl2 = Light("<HPGL2Properties origin=\"Center\"/>");
    EXPECT_EQ(b.settings->ReadFromXml(hpgl2), E_FAIL);
    EXPECT_EQ(b.Record()->GetOrigin(), 1);
}

// ---- The HP-GL/2 generator and its two forms -----------------------------------------------

TEST(GeneratorProperties, HPGLFormIsReadIntoTheGeneratorsHPGLSettings) {
    HPGL2Made g;
    VRKPrintHPGLProperties* settings = g->GetHPGLSettings();
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings, g.Record()->GetHPGLProperties());
    VRKLightXmlElement in = Light(
        "<HPGLProperties origin=\"Upper Right Corner\" relativeMovePen=\"NO\" "
        "printThickness=\"YES\" mediaType=\"Paper\"><pens><pen number=\"3\" red=\"1\" green=\"2\" "
        "blue=\"3\" width=\"0.5\" enable=\"NO\"/></pens></HPGLProperties>");
    ASSERT_EQ(g.settings->ReadFromXml(in), S_OK);
    EXPECT_EQ(g.Record()->GetType(), 1);
    EXPECT_EQ(g.Record()->GetMediaType(), -1);
    // Same object, changed in place.
    EXPECT_EQ(g->GetHPGLSettings(), settings);
    EXPECT_EQ(settings->GetOrigin(), 4);
    EXPECT_EQ(settings->GetRelativeMovePen(), 0);
    EXPECT_EQ(settings->GetPrintThickness(), 1);
    const PenTable t(*settings);
    EXPECT_EQ(t.red[3], 1.0f);
    EXPECT_EQ(t.green[3], 2.0f);
    EXPECT_EQ(t.blue[3], 3.0f);
    EXPECT_EQ(t.width[3], 0.5f);
    EXPECT_EQ(t.enable[3], 0);
}

TEST(GeneratorProperties, HPGLDialectWritesTheHPGLFormOnly) {
    for (const int type : {1, 2, -1}) {
        HPGL2Made g;
        g.Record()->SetType(type);
        g.Record()->SetQuality(5);
        g->GetHPGLSettings()->SetOrigin(0);
        VRKLightXmlElement out;
        ASSERT_EQ(g.settings->WriteToXml(out), S_OK);
        EXPECT_EQ(Dump(out),
                  "<HPGLProperties origin=\"Center\" relativeMovePen=\"YES\" "
                  "printThickness=\"NO\">" +
                      DefaultPens() + "</HPGLProperties>")
            << type;
    }
}

TEST(GeneratorProperties, HPGL2FormReadInHPGLModeStaysInHPGLMode) {
    HPGL2Made g;
    g.Record()->SetType(1);
    VRKLightXmlElement in =
        Light("<HPGL2Properties mediaType=\"Glossy paper\" cutterState=\"NO\" quality=\"9\"/>");
    ASSERT_EQ(g.settings->ReadFromXml(in), S_OK);
    EXPECT_EQ(g.Record()->GetType(), 1);
    EXPECT_EQ(g.Record()->GetMediaType(), 6);
    EXPECT_EQ(g.Record()->GetCutterState(), 0);
    EXPECT_EQ(g.Record()->GetQuality(), 9);
    VRKLightXmlElement out;
    ASSERT_EQ(g.settings->WriteToXml(out), S_OK);
    EXPECT_EQ(Dump(out), kDefaultHPGL);
}

// The HP-GL settings a record owns, open to the tests: a record whose settings could not be made
// is one whose member is null.
struct HPGLSettingsOfRecord : VRKPrintHPGL2Properties {
    static VRKPrintHPGLProperties*& Of(VRKPrintHPGL2Properties& record) {
        return record.*(&HPGLSettingsOfRecord::hpglProperties);
    }
};

TEST(GeneratorProperties, HPGLFormFailsWithoutTheRecordsHPGLSettings) {
    HPGL2Peer peer;
    VRKPrintHPGLProperties*& owned = HPGLSettingsOfRecord::Of(peer.Record());
    VRKPrintHPGLProperties* saved = owned;
    ASSERT_EQ(saved, peer.hpglSettings);
    auto settings = VRKQueryInterface<VRKIPrtGeneratorProperties>(&peer);
    ASSERT_TRUE(settings);
    owned = nullptr;

    // The HP-GL/2 form does not need them.
    VRKLightXmlElement hpgl2 = Light("<HPGL2Properties quality=\"7\"/>");
    EXPECT_EQ(settings->ReadFromXml(hpgl2), S_OK);
    EXPECT_EQ(peer.Record().GetQuality(), 7);

    VRKLightXmlElement in = Light("<HPGLProperties origin=\"Center\"/>");
    EXPECT_EQ(settings->ReadFromXml(in), E_FAIL);
    EXPECT_EQ(peer.Record().GetType(), 0);
    std::string error;
    VRKIDOMDocumentRef document =
        VRKDOMImplementation::Parse("<S Type=\"HPGL\" origin=\"Center\"/>", error);
    EXPECT_EQ(settings->ReadFromDOM(RootOf(document)), E_FAIL);
    EXPECT_EQ(peer.Record().GetType(), 0);

    peer.Record().SetType(1);
    VRKLightXmlElement out("Untouched");
    EXPECT_EQ(settings->WriteToXml(out), E_FAIL);
    EXPECT_EQ(Dump(out), "<Untouched/>");
    EXPECT_EQ(settings->WriteToDOM(RootOf(document)), E_FAIL);
    EXPECT_EQ(Dump(LightOfDOM(document)), "<S Type=\"HPGL\" origin=\"Center\"/>");

    owned = saved;
    EXPECT_EQ(saved->GetOrigin(), 1);
    settings.reset();
    EXPECT_EQ(peer.GetRefCount(), 1u);
}

TEST(GeneratorProperties, ReadTakesEffectOnTheNextJob) {
    GeneratorRun<VRKPrintHPGL2Generator> run(&fctCreateVRKPrintHPGL2Generator);
    auto settings = VRKQueryInterface<VRKIPrtGeneratorProperties>(run.object);
    ASSERT_TRUE(settings);
    VRKLightXmlElement in =
        Light("<HPGL2Properties mediaType=\"Paper\" cutterState=\"NO\" quality=\"50\"/>");
    ASSERT_EQ(settings->ReadFromXml(in), S_OK);
    run->Begin(FormParameters(210, 297, 1));
    run->End();
    EXPECT_BYTES(
        "\x1b"
        "E\x1b%0BINMT0EC1QL50PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2PUSP0PG;",
        run.Bytes());
}

TEST(GeneratorProperties, HPGLFormReadSwitchesTheNextJobToHPGL) {
    GeneratorRun<VRKPrintHPGL2Generator> run(&fctCreateVRKPrintHPGL2Generator);
    auto settings = VRKQueryInterface<VRKIPrtGeneratorProperties>(run.object);
    ASSERT_TRUE(settings);
    VRKLightXmlElement in = Light("<HPGLProperties origin=\"Center\"/>");
    ASSERT_EQ(settings->ReadFromXml(in), S_OK);
    run->Begin(FormParameters(210, 297, 1));
    run->End();
    EXPECT_BYTES("PU-4200,-5940PR;SP1;PU;PA;SP0;PG;", run.Bytes());
}

TEST(GeneratorProperties, DesignJetReadTakesEffectOnTheNextJob) {
    GeneratorRun<VRKPrintHP4000Generator> run(&fctCreateVRKPrintHP4000Generator);
    auto settings = VRKQueryInterface<VRKIPrtGeneratorProperties>(run.object);
    ASSERT_TRUE(settings);
    run->EnsureProperties();
    VRKLightXmlElement in = Light("<HP4000GL2Properties resolution=\"1200\" maxDetail=\"NO\"/>");
    ASSERT_EQ(settings->ReadFromXml(in), S_OK);
    run->Begin(FormParameters(210, 297, 1));
    run->End();
    const std::string& bytes = run.Bytes();
    EXPECT_NE(bytes.find("@PJL SET RESOLUTION=1200\n"), std::string::npos) << Printable(bytes);
    EXPECT_NE(bytes.find("@PJL SET MAXDETAIL=OFF\n"), std::string::npos) << Printable(bytes);
}

}  // namespace
