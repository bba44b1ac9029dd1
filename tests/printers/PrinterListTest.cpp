// Reading the printer list: the shipped example, a missing file, and the printers it gives.

#include <gtest/gtest.h>

#include <string>

#include "host/core/VRKPrintGenerator.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "host/xml/VRKLightXmlElement.h"
#include "printers/PrinterLists.h"

namespace {

TEST(PrinterList, TheExampleFile) {
    VRKPrinterManager manager(VRK_EXAMPLES_DIR "/printers.xml");
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    EXPECT_EQ(manager.GetError(), "");
    const std::vector<VRKPrinter*> printers = Listed(manager);
    ASSERT_EQ(printers.size(), 3u);

    EXPECT_EQ(printers[0]->GetName().ToUtf8(), "plotter");
    EXPECT_EQ(printers[0]->GetLanguage().ToUtf8(), "HPGL");
    EXPECT_EQ(printers[0]->GetDestination().ToUtf8(), "serial:/dev/ttyUSB0?baud=9600&flow=xonxoff");
    EXPECT_EQ(printers[0]->GetDescription().ToUtf8(),
              "A3 pen plotter on the first USB serial port");
    EXPECT_EQ(printers[1]->GetName().ToUtf8(), "designjet1000");
    EXPECT_EQ(printers[1]->GetLanguage().ToUtf8(), "HP1000GL2");
    EXPECT_EQ(printers[1]->GetDestination().ToUtf8(), "socket://designjet1000.local:9100");
    EXPECT_EQ(printers[2]->GetName().ToUtf8(), "designjet4000");
    EXPECT_EQ(printers[2]->GetLanguage().ToUtf8(), "HP4000GL2");
    EXPECT_EQ(printers[2]->GetDestination().ToUtf8(), "lp:designjet4000");

    for (VRKPrinter* printer : printers) {
        SCOPED_TRACE(printer->GetName().ToUtf8());
        EXPECT_EQ(printer->GetFile(), VRK_EXAMPLES_DIR "/printers.xml");
        ASSERT_NE(printer->GetSettings(), nullptr);
        EXPECT_EQ(printer->GetSettings()->GetName().str(),
                  printer->GetLanguage().ToUtf8() + "Properties");
        VRKPrintGenerator* generator = printer->GetGenerator();
        ASSERT_NE(generator, nullptr) << printer->GetError();
        EXPECT_EQ(printer->GetError(), "");
        EXPECT_EQ(generator->GetLanguage().str(), printer->GetLanguage().ToUtf8());
    }
    // The DesignJet elements are complete: the generators hold exactly them.
    for (VRKPrinter* printer : {printers[1], printers[2]}) {
        VRKLightXmlElement held;
        std::string error;
        ASSERT_TRUE(VRKGeneratorSettings::Write(printer->GetGenerator(), held, error)) << error;
        EXPECT_TRUE(held == *printer->GetSettings()) << printer->GetName().ToUtf8();
    }
    // The plotter's element has the pens of its carousel; the generator has those, then the
    // rest of its 31 pens.
    VRKLightXmlElement held;
    std::string error;
    ASSERT_TRUE(VRKGeneratorSettings::Write(printers[0]->GetGenerator(), held, error)) << error;
    const VRKLightXmlElement& given = *printers[0]->GetSettings();
    EXPECT_EQ(held.GetAttributes(), given.GetAttributes());
    ASSERT_EQ(given.GetChildCount(), 1);
    ASSERT_EQ(given.GetChild(0)->GetChildCount(), 8);
    ASSERT_EQ(held.GetChildCount(), 1);
    ASSERT_EQ(held.GetChild(0)->GetChildCount(), 31);
    for (int pen = 0; pen < 8; ++pen) {
        EXPECT_TRUE(*held.GetChild(0)->GetChild(pen) == *given.GetChild(0)->GetChild(pen)) << pen;
    }
    manager.End();
    EXPECT_TRUE(Listed(manager).empty());
}

TEST(PrinterList, PrintersAndTheirLines) {
    TempFolder folder("printers");
    const std::string path = folder.Write(
        "printers.xml",
        ListText("  <!-- first -->\n"
                 "  <Printer name=\"a\" language=\"HPGL2\" destination=\"/dev/null\"/>\n"
                 "  <Printer destination=\"lp:\" description=\"Zweiter Stock, "
                 "R\xC3\xA4ume 2\" name=\"b &amp; c\"\n"
                 "           language=\"HPGL\">\n"
                 "    <HPGLProperties origin=\"Center\"/>\n"
                 "  </Printer>\n"));
    VRKPrinterManager manager(path);
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    EXPECT_EQ(Names(manager), "a,b & c");
    const VRKPrinter* a = manager.Find("a");
    const VRKPrinter* b = manager.Find("b & c");
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(a->GetSourceLine(), 4);
    EXPECT_EQ(a->GetDescription().ToUtf8(), "");
    EXPECT_EQ(a->GetSettings(), nullptr);
    EXPECT_EQ(b->GetSourceLine(), 5);
    EXPECT_EQ(b->GetDescription().ToUtf8(), "Zweiter Stock, R\xC3\xA4ume 2");
    EXPECT_EQ(b->GetDestination().ToUtf8(), "lp:");
    ASSERT_NE(b->GetSettings(), nullptr);
    EXPECT_EQ(b->GetSettings()->GetSourceLine(), 7);
    EXPECT_EQ(b->GetSettings()->GetAttribute("origin").str(), "Center");
    // Names match exactly.
    EXPECT_EQ(manager.Find("A"), nullptr);
    EXPECT_EQ(manager.Find("b"), nullptr);
    EXPECT_EQ(manager.Find(""), nullptr);
}

TEST(PrinterList, AMissingFileIsAnEmptyList) {
    TempFolder folder("printers");
    for (const std::string& path : {folder.File("printers.xml"), folder.File("no/such/list.xml")}) {
        VRKPrinterManager manager(path);
        EXPECT_TRUE(manager.Begin()) << manager.GetError();
        EXPECT_EQ(manager.GetError(), "");
        EXPECT_EQ(Names(manager), "");
    }
    // Nothing was created by reading.
    EXPECT_EQ(folder.Listing(), "");
}

TEST(PrinterList, AnEmptyList) {
    EXPECT_EQ(BeginError("<Printers/>"), "(read)");
    EXPECT_EQ(BeginError(ListText("  <!-- none yet -->\n  text is passed over\n")), "(read)");
}

TEST(PrinterList, BeginAgainReadsTheFileAgain) {
    TempFolder folder("printers");
    const std::string path = folder.Write(
        "printers.xml", ListText("<Printer name=\"a\" language=\"HPGL2\" destination=\"x\"/>\n"));
    VRKPrinterManager manager(path);
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    EXPECT_EQ(Names(manager), "a");
    folder.Write("printers.xml",
                 ListText("<Printer name=\"b\" language=\"HPGL2\" destination=\"x\"/>\n"
                          "<Printer name=\"c\" language=\"HPGL2\" destination=\"x\"/>\n"));
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    EXPECT_EQ(Names(manager), "b,c");
    // A list that now fails leaves no printer and says why.
    folder.Write("printers.xml", "<Printers>");
    EXPECT_FALSE(manager.Begin());
    EXPECT_EQ(Names(manager), "");
    EXPECT_NE(manager.GetError(), "");
    // After a failure, a good file reads and the error goes.
    folder.Write("printers.xml", "<Printers/>");
    EXPECT_TRUE(manager.Begin());
    EXPECT_EQ(manager.GetError(), "");
}

TEST(PrinterList, APrinterKeptByTheHostOutlivesEnd) {
    TempFolder folder("printers");
    const std::string path = folder.Write(
        "printers.xml",
        ListText("<Printer name=\"a\" language=\"HPGL2\" destination=\"/dev/null\"/>\n"));
    VRKPrinter* kept = nullptr;
    {
        VRKPrinterManager manager(path);
        ASSERT_TRUE(manager.Begin()) << manager.GetError();
        kept = manager.Find("a");
        ASSERT_NE(kept, nullptr);
        EXPECT_EQ(kept->GetRefCount(), 1u);
        kept->AddRef();
        ASSERT_NE(kept->GetGenerator(), nullptr) << kept->GetError();
    }
    // The manager is gone; the host's reference keeps the printer and its generator.
    EXPECT_EQ(kept->GetRefCount(), 1u);
    EXPECT_EQ(kept->GetName().ToUtf8(), "a");
    EXPECT_EQ(kept->GetGenerator()->GetLanguage().str(), "HPGL2");
    EXPECT_TRUE(kept->IsAKindOf("VRKPrinter"));
    kept->Release();
}

}  // namespace
