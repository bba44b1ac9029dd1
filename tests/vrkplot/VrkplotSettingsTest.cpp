// vrkplot and settings files: --settings before the jobs, --save-settings after them, and the
// settings command that prints a language's settings.

#include <gtest/gtest.h>

#include <string>

#include "support/Printable.h"
#include "support/TempFolder.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

const std::string kTests = VRK_TESTS_DIR;
const std::string kDeclaration = "<?xml version=\"1.0\"?>\n";

// The default HP-GL settings as vrkplot prints them: pens 1 to 7 black, red, green, yellow, blue,
// magenta and cyan and enabled, pens 8 to 31 black and disabled, all 0.35 mm.
std::string defaultHpglDocument() {
    static const char* const kColours[] = {"",
                                           "0\" green=\"0\" blue=\"0",
                                           "255\" green=\"0\" blue=\"0",
                                           "0\" green=\"255\" blue=\"0",
                                           "255\" green=\"255\" blue=\"0",
                                           "0\" green=\"0\" blue=\"255",
                                           "255\" green=\"0\" blue=\"255",
                                           "0\" green=\"255\" blue=\"255"};
    std::string text = kDeclaration +
                       "<HPGLProperties origin=\"Lower Left Corner\" relativeMovePen=\"YES\" "
                       "printThickness=\"NO\">\n  <pens>\n";
    for (int pen = 1; pen < 32; ++pen) {
        const std::string colour = pen < 8 ? kColours[pen] : kColours[1];
        text += "    <pen number=\"" + std::to_string(pen) + "\" red=\"" + colour +
                "\" width=\"0.35\" enable=\"" + (pen < 8 ? "YES" : "NO") + "\" />\n";
    }
    return text + "  </pens>\n</HPGLProperties>\n";
}

TEST_F(Vrkplot, SettingsOfHpglAreTheDefaults) {
    EXPECT_EQ(Run({"settings", "-l", "HPGL"}), 0) << err;
    EXPECT_EQ(err, "");
    EXPECT_EQ(out, defaultHpglDocument());
}

TEST_F(Vrkplot, SettingsOfTheOtherLanguagesAreTheDefaults) {
    EXPECT_EQ(Run({"settings"}), 0) << err;
    EXPECT_EQ(out, kDeclaration +
                       "<HPGL2Properties mediaType=\"Default\" cutterState=\"YES\" "
                       "quality=\"100\" />\n");
    EXPECT_EQ(Run({"settings", "-l", "HP1000GL2"}), 0) << err;
    EXPECT_EQ(out, kDeclaration +
                       "<HP1000GL2Properties mediaType=\"Default\" quality=\"Best\" "
                       "cutterState=\"YES\" autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\">\n"
                       "  <monoRollFeeder mediaSource=\"Roll\" />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(Run({"settings", "-l", "HP4000GL2"}), 0) << err;
    EXPECT_EQ(out, kDeclaration +
                       "<HP4000GL2Properties mediaType=\"Default\" cutterState=\"YES\" "
                       "printQuality=\"NORMAL\" autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\" "
                       "resolution=\"600\" maxDetail=\"YES\" mediaSource=\"Roll\" />\n");
}

TEST_F(Vrkplot, SettingsFileChangesTheJobStart) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("paper.xml",
                 "<HPGL2Properties mediaType=\"Paper\" cutterState=\"NO\" quality=\"50\"/>");
    EXPECT_EQ(Run({"a4.job", "--settings", "paper.xml", "-o", "-"}), 0) << err;
    EXPECT_BYTES(
        "\x1b"
        "E\x1b%0BINMT0EC1QL50PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2PUSP0PG;",
        out);
}

TEST_F(Vrkplot, SettingsFileOverTheDefaultsIsPrinted) {
    folder.Write("paper.xml", "<HPGL2Properties mediaType=\"Vellum\"/>");
    EXPECT_EQ(Run({"settings", "--settings", "paper.xml"}), 0) << err;
    // A missing quality reads as 0; a missing cutter state stays as it was.
    EXPECT_EQ(out, kDeclaration +
                       "<HPGL2Properties mediaType=\"Vellum\" cutterState=\"YES\" "
                       "quality=\"0\" />\n");
}

TEST_F(Vrkplot, HpglSettingsFileChoosesThePens) {
    // Pen 2 is now blue: a blue line goes to pen 2 instead of pen 5.
    folder.Write("pens.xml",
                 "<HPGLProperties><pens><pen number=\"2\" red=\"0\" green=\"0\" blue=\"255\" "
                 "width=\"0.35\" enable=\"YES\"/></pens></HPGLProperties>");
    Job("blue.job", "Begin\nDefineColor 1 0 0 1\nSelectDrawColor 1\nMoveTo 1 1\nLineTo 2 2\nEnd\n");
    EXPECT_EQ(Run({"blue.job", "-l", "HPGL", "-o", "-"}), 0) << err;
    EXPECT_NE(out.find("SP5PU"), std::string::npos) << Printable(out);
    EXPECT_EQ(Run({"blue.job", "-l", "HPGL", "--settings", "pens.xml", "-o", "-"}), 0) << err;
    EXPECT_NE(out.find("SP2PU"), std::string::npos) << Printable(out);
    EXPECT_EQ(out.find("SP5PU"), std::string::npos) << Printable(out);
}

TEST_F(Vrkplot, SettingsElementOfAnotherLanguageIsAnError) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("dj.xml", "<HP1000GL2Properties quality=\"Fast\"/>");
    EXPECT_EQ(Run({"a4.job", "-l", "HPGL2", "--settings", "dj.xml"}), 2);
    EXPECT_EQ(err,
              "vrkplot: dj.xml: the settings element <HP1000GL2Properties> is not one that "
              "VRKPrintHPGL2Generator reads (language HPGL2)\n");
    EXPECT_EQ(out, "");
    EXPECT_EQ(folder.Listing(), "a4.job\ndj.xml\n");
    EXPECT_EQ(Run({"settings", "-l", "HPGL", "--settings", "dj.xml"}), 2);
    EXPECT_EQ(out, "");
}

TEST_F(Vrkplot, SettingsFileGivesTheLanguage) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("dj.xml", "<HP1000GL2Properties quality=\"Fast\"/>");
    EXPECT_EQ(Run({"a4.job", "--settings", "dj.xml", "-o", "-"}), 0) << err;
    EXPECT_EQ(err, "a4.job -> standard output (HP1000GL2, 414 bytes)\n");
    EXPECT_NE(out.find("INECQL0PS"), std::string::npos) << Printable(out);
    EXPECT_EQ(Run({"settings", "--settings", "dj.xml"}), 0) << err;
    EXPECT_EQ(out.rfind("<?xml version=\"1.0\"?>\n<HP1000GL2Properties ", 0), 0u) << out;
    // An element that is no language's settings.
    folder.Write("other.xml", "<Drawing/>");
    EXPECT_EQ(Run({"a4.job", "--settings", "other.xml"}), 2);
    EXPECT_EQ(err,
              "vrkplot: other.xml: the settings element <Drawing> is not the settings of any "
              "printer language; give the language with -l (known languages: HP1000GL2, "
              "HP4000GL2, HPGL, HPGL2)\n");
    EXPECT_EQ(folder.Listing(), "a4.job\ndj.xml\nother.xml\n");
}

TEST_F(Vrkplot, SettingsFileThatCannotBeReadIsAnError) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "--settings", "missing.xml"}), 2);
    EXPECT_EQ(err, "vrkplot: missing.xml: cannot open: No such file or directory\n");
    EXPECT_EQ(folder.Listing(), "a4.job\n");
}

TEST_F(Vrkplot, SettingsFileThatIsNotXmlIsAnError) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("broken.xml", "<?xml version=\"1.0\"?>\n<HPGL2Properties quality=\"50\"\n");
    EXPECT_EQ(Run({"a4.job", "--settings", "broken.xml"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: broken.xml:", 0), 0u) << err;
    EXPECT_NE(err.find(": not XML: "), std::string::npos) << err;
    folder.Write("empty.xml", "");
    EXPECT_EQ(Run({"a4.job", "--settings", "empty.xml"}), 2);
    EXPECT_NE(err.find("empty.xml"), std::string::npos) << err;
    EXPECT_EQ(folder.Listing(), "a4.job\nbroken.xml\nempty.xml\n");
}

TEST_F(Vrkplot, UnknownValuesAndMissingAttributesAreNotErrors) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("odd.xml",
                 "<HP4000GL2Properties mediaType=\"Cardboard\" printQuality=\"high\" "
                 "resolution=\"2400\"/>");
    EXPECT_EQ(Run({"settings", "-l", "HP4000GL2", "--settings", "odd.xml"}), 0) << err;
    EXPECT_NE(out.find("mediaType=\"Default\""), std::string::npos) << out;
    EXPECT_NE(out.find("printQuality=\"NORMAL\""), std::string::npos) << out;
    EXPECT_NE(out.find("resolution=\"600\""), std::string::npos) << out;
    EXPECT_EQ(Run({"a4.job", "-l", "HP4000GL2", "--settings", "odd.xml"}), 0) << err;
}

TEST_F(Vrkplot, SettingsNumbersBeyondTheirRangeKeepTheirValues) {
    folder.Write("big.xml", "<HPGL2Properties quality=\"99999999999999999999\"/>");
    EXPECT_EQ(Run({"settings", "-l", "HPGL2", "--settings", "big.xml"}), 0) << err;
    EXPECT_NE(out.find("quality=\"100\""), std::string::npos) << out;
    // Pen "4294967297" does not wrap round to pen 1; pen 2's colour and width are no numbers
    // a plotter can take.
    folder.Write("pens.xml",
                 "<HPGLProperties><pens><pen number=\"4294967297\" red=\"9\" width=\"1\"/>"
                 "<pen number=\"2\" red=\"nan\" green=\"inf\" width=\"1e9\"/></pens>"
                 "</HPGLProperties>");
    EXPECT_EQ(Run({"settings", "-l", "HPGL", "--settings", "pens.xml"}), 0) << err;
    EXPECT_NE(out.find("<pen number=\"1\" red=\"0\" green=\"0\" blue=\"0\" width=\"0.35\""),
              std::string::npos)
        << out;
    EXPECT_NE(out.find("<pen number=\"2\" red=\"255\" green=\"0\" blue=\"0\" width=\"0.35\""),
              std::string::npos)
        << out;
}

TEST_F(Vrkplot, SaveSettingsWritesWhatTheJobsUsed) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("in.xml",
                 "<HP1000GL2Properties quality=\"Fast\"><multiRollFeeder "
                 "mediaSource=\"Roll3\"/></HP1000GL2Properties>");
    EXPECT_EQ(
        Run({"a4.job", "-l", "HP1000GL2", "--settings", "in.xml", "--save-settings", "saved.xml"}),
        0)
        << err;
    EXPECT_EQ(ReadFileBytes(folder.File("saved.xml")),
              kDeclaration +
                  "<HP1000GL2Properties mediaType=\"Default\" quality=\"Fast\" "
                  "cutterState=\"YES\" autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\">\n"
                  "  <multiRollFeeder mediaSource=\"Roll3\" />\n</HP1000GL2Properties>\n");
    // Without a job file the settings are only converted.
    EXPECT_EQ(Run({"-l", "HPGL", "--save-settings", "hpgl.xml"}), 0) << err;
    EXPECT_EQ(ReadFileBytes(folder.File("hpgl.xml")), defaultHpglDocument());
}

TEST_F(Vrkplot, SaveSettingsThatCannotBeWrittenIsAnError) {
    EXPECT_EQ(Run({"--save-settings", "no/such/folder/s.xml"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: no/such/folder/s.xml: cannot write: ", 0), 0u) << err;
}

TEST_F(Vrkplot, SettingsOfAnUnknownLanguage) {
    EXPECT_EQ(Run({"settings", "-l", "PostScript"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: unknown language 'PostScript'", 0), 0u) << err;
}

TEST_F(Vrkplot, ExampleSettingsFilesAreAsVrkplotWritesThem) {
    for (const char* language : {"HPGL2", "HPGL", "HP1000GL2", "HP4000GL2"}) {
        const std::string file = kTests + "/../examples/settings/" + language + ".xml";
        EXPECT_EQ(Run({"settings", "-l", language, "--settings", file}), 0) << err;
        EXPECT_EQ(out, ReadFileBytes(file)) << language;
    }
}

}  // namespace
