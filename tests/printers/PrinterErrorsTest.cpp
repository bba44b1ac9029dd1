// A printer list that breaks the format is refused, with the file, the line and the fault.

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <string>

#include "printers/PrinterLists.h"

namespace {

const std::string kGood = "language=\"HPGL2\" destination=\"/dev/null\"";

TEST(PrinterListErrors, NotXml) {
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" " + kGood + ">\n</Printers>\n")),
              "printers.xml:4: not XML: Start-end tags mismatch");
    EXPECT_EQ(BeginError(""), "printers.xml:1: not XML: No document element found");
    EXPECT_EQ(BeginError("<Printers>\n<Printer name=\"a\n"),
              "printers.xml:2: not XML: Error parsing element attribute");
}

TEST(PrinterListErrors, TheRoot) {
    EXPECT_EQ(BeginError("<?xml version=\"1.0\"?>\n\n<Plotters/>\n"),
              "printers.xml:3: the root element is <Plotters>, not <Printers>");
    EXPECT_EQ(BeginError("<Printers version=\"2\">\n</Printers>"),
              "printers.xml:1: <Printers>: unknown attribute 'version'");
}

TEST(PrinterListErrors, AnotherElementInTheList) {
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" " + kGood + "/>\n<Plotter name=\"b\" " +
                                  kGood + "/>\n")),
              "printers.xml:4: <Plotter> inside <Printers>: only <Printer> elements belong there");
}

TEST(PrinterListErrors, Names) {
    EXPECT_EQ(BeginError(ListText("<Printer " + kGood + "/>\n")),
              "printers.xml:3: a printer without a name");
    EXPECT_EQ(BeginError(ListText("<Printer name=\"\" " + kGood + "/>\n")),
              "printers.xml:3: a printer with an empty name");
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" " + kGood + "/>\n\n<Printer " + kGood +
                                  "\n  name=\"b\"/>\n<Printer name=\"a\" " + kGood + "/>\n")),
              "printers.xml:7: printer 'a' is listed twice: first on line 3");
    // Letter case makes another name.
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" " + kGood + "/>\n<Printer name=\"A\" " +
                                  kGood + "/>\n")),
              "(read)");
}

TEST(PrinterListErrors, ControlCharactersInNames) {
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a&#9;b\" " + kGood + "/>\n")),
              "printers.xml:3: printer 'a\\x09b': the name has a control character");
    EXPECT_EQ(BeginError(ListText("<Printer name=\"&#127;\" " + kGood + "/>\n")),
              "printers.xml:3: printer '\\x7F': the name has a control character");
    // NEL, a C1 control, in UTF-8.
    EXPECT_EQ(BeginError(ListText("<Printer name=\"x&#x85;\" " + kGood + "/>\n")),
              "printers.xml:3: printer 'x\\xC2\\x85': the name has a control character");
    // Line ends inside an attribute are read as spaces, which a name may hold; so are letters
    // beyond ASCII next to the C1 range.
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\nb \xC2\xA0\xC3\x85\" " + kGood + "/>\n")),
              "(read)");
}

TEST(PrinterListErrors, LanguageAndDestination) {
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" destination=\"x\"/>\n")),
              "printers.xml:3: printer 'a' has no language");
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" destination=\"x\" language=\"\"/>\n")),
              "printers.xml:3: printer 'a' has an empty language");
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" language=\"HPGL\"/>\n")),
              "printers.xml:3: printer 'a' has no destination");
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" language=\"HPGL\" destination=\"\"/>\n")),
              "printers.xml:3: printer 'a' has an empty destination");
}

TEST(PrinterListErrors, UnknownAttributes) {
    EXPECT_EQ(BeginError(ListText("<Printer name=\"plotter\" language=\"HPGL\"\n"
                                  "    destinaton=\"serial:/dev/ttyUSB0\"/>\n")),
              "printers.xml:3: printer 'plotter': unknown attribute 'destinaton'");
    EXPECT_EQ(BeginError(ListText("<Printer nmae=\"a\" " + kGood + "/>\n")),
              "printers.xml:3: <Printer>: unknown attribute 'nmae'");
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" " + kGood + " Description=\"d\"/>\n")),
              "printers.xml:3: printer 'a': unknown attribute 'Description'");
}

TEST(PrinterListErrors, TwoSettingsElements) {
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" " + kGood +
                                  ">\n  <HPGL2Properties quality=\"10\"/>\n"
                                  "  <HPGL2Properties quality=\"20\"/>\n</Printer>\n")),
              "printers.xml:5: printer 'a': a second settings element <HPGL2Properties>; a printer "
              "has one at most");
}

TEST(PrinterListErrors, ElementsNestedTooDeep) {
    std::string open;
    std::string close;
    for (int i = 0; i < 300; ++i) {
        open += "<pens>";
        close += "</pens>";
    }
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" " + kGood + ">\n" + open + "\n" + close +
                                  "</Printer>\n")),
              "printers.xml:4: elements nested more than 256 deep");
}

TEST(PrinterListErrors, TheFirstFaultIsTheOneReported) {
    EXPECT_EQ(BeginError(ListText("<Printer name=\"a\" language=\"\" destination=\"\"/>\n"
                                  "<Printer/>\n")),
              "printers.xml:3: printer 'a' has an empty language");
}

TEST(PrinterListErrors, FilesThatCannotBeRead) {
    TempFolder folder("printers");
    folder.Write("file", "not a folder");
    VRKPrinterManager belowAFile(folder.File("file/printers.xml"));
    EXPECT_FALSE(belowAFile.Begin());
    EXPECT_EQ(belowAFile.GetError(),
              folder.File("file/printers.xml") + ": cannot read: Not a directory");

    ASSERT_EQ(::mkdir(folder.File("printers.xml").c_str(), 0755), 0);
    VRKPrinterManager aFolder(folder.File("printers.xml"));
    EXPECT_FALSE(aFolder.Begin());
    EXPECT_EQ(aFolder.GetError(), folder.File("printers.xml") + ": cannot read: Is a directory");

    VRKPrinterManager noName("");
    EXPECT_FALSE(noName.Begin());
    EXPECT_EQ(noName.GetError(),
              "the printer list has no file name: neither VRK_PRINTERS nor HOME gives one");
}

TEST(PrinterListErrors, AListThatFailedIsNotWrittenOver) {
    TempFolder folder("printers");
    const std::string text = ListText("<Printer name=\"a\" " + kGood + " colour=\"red\"/>\n");
    const std::string path = folder.Write("printers.xml", text);
    VRKPrinterManager manager(path);
    EXPECT_FALSE(manager.Begin());
    std::string error;
    EXPECT_FALSE(manager.Add("b", "HPGL2", "", "/dev/null", nullptr, error));
    EXPECT_EQ(error, path + ": the printer list has not been read");
    EXPECT_FALSE(manager.Save(error));
    EXPECT_EQ(error, path + ": the printer list has not been read");
    EXPECT_EQ(ReadFileBytes(path), text);
    EXPECT_EQ(folder.Listing(), "printers.xml\n");
}

}  // namespace
