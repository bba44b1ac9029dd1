// Changing the printer list and writing it back.

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "host/xml/VRKLightXmlElement.h"
#include "printers/PrinterLists.h"

namespace {

// Each printer on one line: "name|language|description|destination|settings element name".
std::string Dump(const VRKPrinterManager& manager) {
    std::string out;
    for (const VRKPrinter* p : Listed(manager)) {
        out += p->GetName().ToUtf8() + "|" + p->GetLanguage().ToUtf8() + "|" +
               p->GetDescription().ToUtf8() + "|" + p->GetDestination().ToUtf8() + "|" +
               (p->GetSettings() != nullptr ? p->GetSettings()->GetName().str() : "-") + "\n";
    }
    return out;
}

// The same printers, settings elements included.
void ExpectSamePrinters(const VRKPrinterManager& a, const VRKPrinterManager& b) {
    EXPECT_EQ(Dump(a), Dump(b));
    const std::vector<VRKPrinter*> left = Listed(a);
    const std::vector<VRKPrinter*> right = Listed(b);
    ASSERT_EQ(left.size(), right.size());
    for (size_t i = 0; i < left.size(); ++i) {
        ASSERT_EQ(left[i]->GetSettings() == nullptr, right[i]->GetSettings() == nullptr) << i;
        if (left[i]->GetSettings() != nullptr) {
            EXPECT_TRUE(*left[i]->GetSettings() == *right[i]->GetSettings()) << i;
        }
    }
}

mode_t ModeOf(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}

mode_t CurrentUmask() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

TEST(PrinterSave, AddSaveAndReadBack) {
    TempFolder folder("printers");
    const std::string path = folder.File("config/vrkplot/printers.xml");
    VRKPrinterManager manager(path);
    ASSERT_TRUE(manager.Begin()) << manager.GetError();

    VRKLightXmlElement settings("HPGLProperties");
    settings.SetAttribute("origin", "Center");
    settings.AddChild(VRKLightXmlElement("pens"))
        .AddChild(VRKLightXmlElement("pen"))
        .SetAttribute("number", "1");
    std::string error;
    ASSERT_TRUE(manager.Add("plotter", "HPGL", "A3 \"pen\" plotter",
                            "serial:/dev/ttyUSB0?baud=9600&flow=xonxoff", &settings, error))
        << error;
    ASSERT_TRUE(
        manager.Add("R\xC3\xA4ume <2>", "HP4000GL2", "", "lp:designjet4000", nullptr, error))
        << error;
    ASSERT_TRUE(manager.Save(error)) << error;

    // The missing folders were made as mkdir -p makes them.
    EXPECT_EQ(ModeOf(folder.File("config")), 0755 & ~CurrentUmask());
    EXPECT_EQ(ModeOf(folder.File("config/vrkplot")), 0755 & ~CurrentUmask());
    EXPECT_EQ(ReadFileBytes(path),
              "<?xml version=\"1.0\"?>\n"
              "<Printers>\n"
              "  <Printer name=\"plotter\" language=\"HPGL\" description=\"A3 &quot;pen&quot; "
              "plotter\" destination=\"serial:/dev/ttyUSB0?baud=9600&amp;flow=xonxoff\">\n"
              "    <HPGLProperties origin=\"Center\">\n"
              "      <pens>\n"
              "        <pen number=\"1\" />\n"
              "      </pens>\n"
              "    </HPGLProperties>\n"
              "  </Printer>\n"
              "  <Printer name=\"R\xC3\xA4ume &lt;2>\" language=\"HP4000GL2\" description=\"\" "
              "destination=\"lp:designjet4000\" />\n"
              "</Printers>\n");
    EXPECT_EQ(folder.Listing(), "config\n");

    VRKPrinterManager back(path);
    ASSERT_TRUE(back.Begin()) << back.GetError();
    ExpectSamePrinters(manager, back);
    EXPECT_EQ(back.Find("plotter")->GetSourceLine(), 3);
    EXPECT_EQ(back.Find("R\xC3\xA4ume <2>")->GetSourceLine(), 10);
}

TEST(PrinterSave, TheExampleFileSavedReadsTheSame) {
    TempFolder folder("printers");
    const std::string path =
        folder.Write("printers.xml", ReadFileBytes(VRK_EXAMPLES_DIR "/printers.xml"));
    VRKPrinterManager example(VRK_EXAMPLES_DIR "/printers.xml");
    ASSERT_TRUE(example.Begin()) << example.GetError();
    VRKPrinterManager copy(path);
    ASSERT_TRUE(copy.Begin()) << copy.GetError();
    std::string error;
    ASSERT_TRUE(copy.Save(error)) << error;
    VRKPrinterManager back(path);
    ASSERT_TRUE(back.Begin()) << back.GetError();
    EXPECT_EQ(Names(back), "plotter,designjet1000,designjet4000");
    ExpectSamePrinters(example, back);
}

TEST(PrinterSave, TextThatNeedsEscapesReadsBack) {
    TempFolder folder("printers");
    VRKPrinterManager manager(folder.File("printers.xml"));
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    std::string error;
    ASSERT_TRUE(manager.Add("a'b&c", "HPGL2", "two\nlines\twith a tab & 'quotes' \"here\"",
                            "socket://[::1]:9100", nullptr, error))
        << error;
    ASSERT_TRUE(manager.Save(error)) << error;
    VRKPrinterManager back(folder.File("printers.xml"));
    ASSERT_TRUE(back.Begin()) << back.GetError();
    ExpectSamePrinters(manager, back);
    ASSERT_NE(back.Find("a'b&c"), nullptr);
    EXPECT_EQ(back.Find("a'b&c")->GetDescription().ToUtf8(),
              "two\nlines\twith a tab & 'quotes' \"here\"");
}

TEST(PrinterSave, RemoveAndSave) {
    TempFolder folder("printers");
    const std::string path = folder.Write(
        "printers.xml", ListText("<Printer name=\"a\" language=\"HPGL2\" destination=\"x\"/>\n"
                                 "<Printer name=\"b\" language=\"HPGL\" destination=\"y\"/>\n"
                                 "<Printer name=\"c\" language=\"HPGL2\" destination=\"z\"/>\n"));
    VRKPrinterManager manager(path);
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    VRKPrinter* b = manager.Find("b");
    ASSERT_NE(b, nullptr);
    std::string error;
    ASSERT_TRUE(manager.Remove("b", error)) << error;
    EXPECT_EQ(Names(manager), "a,c");
    EXPECT_EQ(manager.Find("b"), nullptr);
    // A printer taken out stays valid until End() for whoever still holds it from a list.
    EXPECT_EQ(b->GetName().ToUtf8(), "b");

    EXPECT_FALSE(manager.Remove("b", error));
    EXPECT_EQ(error, path + ": no printer 'b' in the list");
    EXPECT_FALSE(manager.Remove("", error));
    EXPECT_EQ(error, path + ": no printer '' in the list");

    // A name taken out can be given again.
    ASSERT_TRUE(manager.Add("b", "HP1000GL2", "again", "w", nullptr, error)) << error;
    ASSERT_TRUE(manager.Save(error)) << error;
    EXPECT_EQ(ReadFileBytes(path),
              "<?xml version=\"1.0\"?>\n"
              "<Printers>\n"
              "  <Printer name=\"a\" language=\"HPGL2\" description=\"\" destination=\"x\" />\n"
              "  <Printer name=\"c\" language=\"HPGL2\" description=\"\" destination=\"z\" />\n"
              "  <Printer name=\"b\" language=\"HP1000GL2\" description=\"again\" "
              "destination=\"w\" />\n"
              "</Printers>\n");

    ASSERT_TRUE(manager.Remove("a", error));
    ASSERT_TRUE(manager.Remove("c", error));
    ASSERT_TRUE(manager.Remove("b", error));
    ASSERT_TRUE(manager.Save(error)) << error;
    EXPECT_EQ(ReadFileBytes(path), "<?xml version=\"1.0\"?>\n<Printers />\n");
    manager.End();
    // After End() the list is closed until it is read again.
    EXPECT_FALSE(manager.Remove("a", error));
    EXPECT_EQ(error, path + ": the printer list has not been read");
}

TEST(PrinterSave, AddRefusesWhatReadingRefuses) {
    TempFolder folder("printers");
    const std::string path = folder.File("printers.xml");
    VRKPrinterManager manager(path);
    std::string error;
    EXPECT_FALSE(manager.Add("a", "HPGL2", "", "x", nullptr, error));
    EXPECT_EQ(error, path + ": the printer list has not been read");
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    ASSERT_TRUE(manager.Add("a", "HPGL2", "", "x", nullptr, error)) << error;

    EXPECT_FALSE(manager.Add("a", "HPGL", "", "y", nullptr, error));
    EXPECT_EQ(error, path + ": printer 'a' is already in the list");
    EXPECT_FALSE(manager.Add("", "HPGL", "", "y", nullptr, error));
    EXPECT_EQ(error, path + ": a printer with an empty name");
    EXPECT_FALSE(manager.Add("new\nline", "HPGL", "", "y", nullptr, error));
    EXPECT_EQ(error, path + ": printer 'new\\x0Aline': the name has a control character");
    EXPECT_FALSE(manager.Add("b", "", "", "y", nullptr, error));
    EXPECT_EQ(error, path + ": printer 'b' has an empty language");
    EXPECT_FALSE(manager.Add("b", "HPGL", "", "", nullptr, error));
    EXPECT_EQ(error, path + ": printer 'b' has an empty destination");
    EXPECT_EQ(Names(manager), "a");
    // Nothing is written before Save().
    EXPECT_EQ(folder.Listing(), "");
}

TEST(PrinterSave, AFailedSaveLeavesTheFileAsItWas) {
    TempFolder folder("printers");
    // A name as long as a name can be: the temporary file beside it cannot be made.
    const std::string path = folder.File(std::string(255, 'p'));
    const std::string text =
        ListText("<Printer name=\"a\" language=\"HPGL2\" destination=\"x\"/>\n");
    folder.Write(std::string(255, 'p'), text);
    VRKPrinterManager manager(path);
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    std::string error;
    ASSERT_TRUE(manager.Add("b", "HPGL2", "", "y", nullptr, error)) << error;
    EXPECT_FALSE(manager.Save(error));
    EXPECT_EQ(error, path + ": cannot write: File name too long");
    EXPECT_EQ(ReadFileBytes(path), text);
    EXPECT_EQ(folder.Listing(), std::string(255, 'p') + "\n");
}

TEST(PrinterSave, AFolderWhereTheFileShouldBe) {
    TempFolder folder("printers");
    const std::string path = folder.File("printers.xml");
    VRKPrinterManager manager(path);
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    std::string error;
    ASSERT_TRUE(manager.Add("a", "HPGL2", "", "x", nullptr, error)) << error;
    ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
    folder.Write("printers.xml/kept", "kept");
    EXPECT_FALSE(manager.Save(error));
    EXPECT_EQ(error, path + ": is a folder");
    EXPECT_EQ(folder.Listing(), "printers.xml\n");
    EXPECT_EQ(ReadFileBytes(folder.File("printers.xml/kept")), "kept");
}

TEST(PrinterSave, AFileWhereAFolderShouldBe) {
    TempFolder folder("printers");
    folder.Write("config", "a file");
    const std::string path = folder.File("config/vrkplot/printers.xml");
    VRKPrinterManager manager(path);
    // Reading goes through a file where a folder should be: the list cannot be read.
    EXPECT_FALSE(manager.Begin());
    EXPECT_EQ(manager.GetError(), path + ": cannot read: Not a directory");

    // A list read while the folder was there, saved after it was replaced by a file.
    const std::string other = folder.File("other/vrkplot/printers.xml");
    VRKPrinterManager later(other);
    ASSERT_TRUE(later.Begin()) << later.GetError();
    folder.Write("other", "a file");
    std::string error;
    EXPECT_FALSE(later.Save(error));
    EXPECT_EQ(error,
              other + ": cannot create the folder " + folder.File("other") + ": Not a directory");
    EXPECT_EQ(ReadFileBytes(folder.File("other")), "a file");
    EXPECT_EQ(folder.Listing(), "config\nother\n");
}

}  // namespace
