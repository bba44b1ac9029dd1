// The generator of a printer: its language, with the printer's settings in its record.

#include <gtest/gtest.h>

#include <string>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKSmartRef.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "host/xml/VRKLightXmlElement.h"
#include "printers/PrinterLists.h"

namespace {

// The settings a generator holds, written out; an element named "#failed" when they cannot be.
VRKLightXmlElement SettingsOf(VRKBaseUnknown* generator) {
    VRKLightXmlElement element;
    std::string error;
    if (!VRKGeneratorSettings::Write(generator, element, error)) {
        element.SetName("#failed");
    }
    return element;
}

// The settings of a new generator of a language: its defaults.
VRKLightXmlElement DefaultsOf(const char* language) {
    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage(language);
    if (entry == nullptr) {
        return VRKLightXmlElement("#unknown");
    }
    VRKSmartRef<VRKBaseUnknown> generator = VRKSmartRef<VRKBaseUnknown>::Adopt(entry->factory());
    return SettingsOf(generator.get());
}

// A manager over a list file with the given printers, read.
struct ReadList {
    explicit ReadList(const std::string& lines)
        : path(folder.Write("printers.xml", ListText(lines))), manager(path) {
        begun = manager.Begin();
    }
    TempFolder folder{"printers"};
    std::string path;
    VRKPrinterManager manager;
    bool begun = false;
};

TEST(PrinterGenerator, TheRecordHoldsThePrintersSettings) {
    ReadList list(
        "<Printer name=\"plotter\" language=\"HPGL\" destination=\"/dev/null\">\n"
        "  <HPGLProperties origin=\"Center\" printThickness=\"YES\">\n"
        "    <pens><pen number=\"2\" red=\"10\" green=\"20\" blue=\"30\" width=\"0.8\" "
        "enable=\"NO\"/></pens>\n"
        "  </HPGLProperties>\n"
        "</Printer>\n"
        "<Printer name=\"dj\" language=\"HP4000GL2\" destination=\"lp:dj\">\n"
        "  <HP4000GL2Properties printQuality=\"DRAFT\" resolution=\"300\"/>\n"
        "</Printer>\n");
    ASSERT_TRUE(list.begun) << list.manager.GetError();

    VRKPrinter* plotter = list.manager.Find("plotter");
    ASSERT_NE(plotter, nullptr);
    VRKPrintGenerator* generator = plotter->GetGenerator();
    ASSERT_NE(generator, nullptr) << plotter->GetError();
    EXPECT_STREQ(generator->IsA(), "VRKPrintHPGLGenerator");
    // The same generator on every call.
    EXPECT_EQ(plotter->GetGenerator(), generator);
    const VRKLightXmlElement defaults = DefaultsOf("HPGL");
    const VRKLightXmlElement held = SettingsOf(generator);
    ASSERT_EQ(defaults.GetName().str(), "HPGLProperties");
    ASSERT_EQ(held.GetName().str(), "HPGLProperties");
    EXPECT_EQ(defaults.GetAttribute("origin").str(), "Lower Left Corner");
    EXPECT_EQ(held.GetAttribute("origin").str(), "Center");
    EXPECT_EQ(defaults.GetAttribute("printThickness").str(), "NO");
    EXPECT_EQ(held.GetAttribute("printThickness").str(), "YES");
    // Pen 2 is read over the defaults; pen 1 keeps its default.
    EXPECT_EQ(held.GetAttribute("relativeMovePen"), defaults.GetAttribute("relativeMovePen"));
    const VRKLightXmlElement& pens = *held.GetChild(0);
    EXPECT_TRUE(*pens.GetChild(0) == *defaults.GetChild(0)->GetChild(0));
    EXPECT_EQ(pens.GetChild(1)->GetAttribute("red").str(), "10");
    EXPECT_EQ(pens.GetChild(1)->GetAttribute("blue").str(), "30");
    EXPECT_EQ(pens.GetChild(1)->GetAttribute("width").str(), "0.8");
    EXPECT_EQ(pens.GetChild(1)->GetAttribute("enable").str(), "NO");

    VRKPrinter* dj = list.manager.Find("dj");
    ASSERT_NE(dj, nullptr);
    ASSERT_NE(dj->GetGenerator(), nullptr) << dj->GetError();
    const VRKLightXmlElement djHeld = SettingsOf(dj->GetGenerator());
    EXPECT_EQ(DefaultsOf("HP4000GL2").GetAttribute("printQuality").str(), "NORMAL");
    EXPECT_EQ(djHeld.GetAttribute("printQuality").str(), "DRAFT");
    EXPECT_EQ(djHeld.GetAttribute("resolution").str(), "300");
    // The printer's own element is as it was read.
    EXPECT_EQ(dj->GetSettings()->GetAttributeCount(), 2);
}

TEST(PrinterGenerator, NoSettingsElementGivesTheDefaults) {
    ReadList list("<Printer name=\"a\" language=\"HP1000GL2\" destination=\"/dev/null\"/>\n");
    ASSERT_TRUE(list.begun) << list.manager.GetError();
    VRKPrinter* printer = list.manager.Find("a");
    ASSERT_NE(printer, nullptr);
    ASSERT_NE(printer->GetGenerator(), nullptr) << printer->GetError();
    const VRKLightXmlElement defaults = DefaultsOf("HP1000GL2");
    EXPECT_EQ(defaults.GetName().str(), "HP1000GL2Properties");
    EXPECT_TRUE(SettingsOf(printer->GetGenerator()) == defaults);
}

TEST(PrinterGenerator, UnknownLanguage) {
    ReadList list(
        "<Printer name=\"a\" language=\"HPGL2\" destination=\"x\"/>\n"
        "<Printer name=\"plotter\" language=\"HPGL9\" destination=\"x\"/>\n"
        "<Printer name=\"lower\" language=\"hpgl2\" destination=\"x\"/>\n");
    ASSERT_TRUE(list.begun) << list.manager.GetError();
    VRKPrinter* printer = list.manager.Find("plotter");
    ASSERT_NE(printer, nullptr);
    EXPECT_EQ(printer->GetGenerator(), nullptr);
    EXPECT_EQ(printer->GetError(), list.path + ":4: printer 'plotter': unknown language 'HPGL9'");
    // Asking again gives the same answer.
    EXPECT_EQ(printer->GetGenerator(), nullptr);
    EXPECT_EQ(printer->GetError(), list.path + ":4: printer 'plotter': unknown language 'HPGL9'");
    // Languages are matched exactly.
    VRKPrinter* lower = list.manager.Find("lower");
    ASSERT_NE(lower, nullptr);
    EXPECT_EQ(lower->GetGenerator(), nullptr);
    EXPECT_EQ(lower->GetError(), list.path + ":5: printer 'lower': unknown language 'hpgl2'");
    ASSERT_NE(list.manager.Find("a"), nullptr);
    EXPECT_NE(list.manager.Find("a")->GetGenerator(), nullptr);
}

TEST(PrinterGenerator, SettingsOfAnotherLanguage) {
    ReadList list(
        "<Printer name=\"dj\" language=\"HP4000GL2\" destination=\"lp:dj\">\n\n"
        "  <HPGL2Properties quality=\"10\"/>\n"
        "</Printer>\n"
        "<Printer name=\"pens\" language=\"HP1000GL2\" destination=\"lp:dj\">"
        "<HPGLProperties/></Printer>\n");
    ASSERT_TRUE(list.begun) << list.manager.GetError();
    VRKPrinter* dj = list.manager.Find("dj");
    ASSERT_NE(dj, nullptr);
    EXPECT_EQ(dj->GetGenerator(), nullptr);
    EXPECT_EQ(dj->GetError(), list.path +
                                  ":5: printer 'dj': the settings element <HPGL2Properties> is not "
                                  "one that VRKPrintHP4000Generator reads");
    VRKPrinter* pens = list.manager.Find("pens");
    ASSERT_NE(pens, nullptr);
    EXPECT_EQ(pens->GetGenerator(), nullptr);
    EXPECT_EQ(pens->GetError(), list.path +
                                    ":7: printer 'pens': the settings element <HPGLProperties> is "
                                    "not one that VRKPrintHP1055CGenerator reads");
}

TEST(PrinterGenerator, APrinterAddedInCode) {
    TempFolder folder("printers");
    VRKPrinterManager manager(folder.File("printers.xml"));
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    VRKLightXmlElement settings("HPGL2Properties");
    settings.SetAttribute("quality", "37");
    std::string error;
    ASSERT_TRUE(manager.Add("a", "HPGL2", "", "/dev/null", &settings, error)) << error;
    ASSERT_TRUE(manager.Add("b", "HP4000GL2", "", "/dev/null", &settings, error)) << error;
    ASSERT_TRUE(manager.Add("c", "PCL", "", "/dev/null", nullptr, error)) << error;

    VRKPrinter* a = manager.Find("a");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->GetSourceLine(), 0);
    ASSERT_NE(a->GetGenerator(), nullptr) << a->GetError();
    EXPECT_EQ(SettingsOf(a->GetGenerator()).GetAttribute("quality").str(), "37");
    EXPECT_EQ(DefaultsOf("HPGL2").GetAttribute("quality").str(), "100");
    // The printer has its own copy of the element.
    settings.SetAttribute("quality", "1");
    EXPECT_EQ(a->GetSettings()->GetAttribute("quality").str(), "37");

    // Printers made in code have no line in the messages.
    VRKPrinter* b = manager.Find("b");
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->GetGenerator(), nullptr);
    EXPECT_EQ(b->GetError(), folder.File("printers.xml") +
                                 ": printer 'b': the settings element <HPGL2Properties> is not one "
                                 "that VRKPrintHP4000Generator reads");
    VRKPrinter* c = manager.Find("c");
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->GetGenerator(), nullptr);
    EXPECT_EQ(c->GetError(), folder.File("printers.xml") + ": printer 'c': unknown language 'PCL'");
}

TEST(PrinterGenerator, APrinterOnItsOwn) {
    VRKPrinter* printer = new VRKPrinter("solo", "HPGL2", "", "-", nullptr, std::string(), 0);
    ASSERT_NE(printer->GetGenerator(), nullptr) << printer->GetError();
    VRKPrintGenerator* generator = printer->GetGenerator();
    // A caller that keeps the generator takes a reference; the printer gives its own back.
    generator->AddRef();
    EXPECT_EQ(generator->GetRefCount(), 2u);
    printer->Release();
    EXPECT_EQ(generator->GetRefCount(), 1u);
    EXPECT_EQ(generator->GetLanguage().str(), "HPGL2");
    generator->Release();

    VRKPrinter* unknown = new VRKPrinter("solo", "X", "", "-", nullptr, std::string(), 0);
    EXPECT_EQ(unknown->GetGenerator(), nullptr);
    EXPECT_EQ(unknown->GetError(), "printer 'solo': unknown language 'X'");
    unknown->Release();
}

}  // namespace
