// vrkplot's printer list: listing, adding and removing printers, and plotting to a printer.

#include <gtest/gtest.h>

#include <string>

#include "support/LoopbackServer.h"
#include "support/Printable.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

class VrkplotPrinters : public Vrkplot {
  protected:
    std::string list = folder.File("printers.xml");
    std::string Env() const { return "VRK_PRINTERS=" + list; }
    int RunWithList(std::vector<std::string> args, std::vector<std::string> env = {}) {
        env.push_back(Env());
        return Run(std::move(args), env);
    }
};

TEST_F(VrkplotPrinters, MissingListIsEmpty) {
    EXPECT_EQ(RunWithList({"printers"}), 0) << err;
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "vrkplot: no printers in " + list +
                       " (add one with: vrkplot printers --add NAME -l LANGUAGE --destination "
                       "DEST)\n");
    EXPECT_EQ(folder.Listing(), "");
}

TEST_F(VrkplotPrinters, AddListRemove) {
    EXPECT_EQ(RunWithList({"printers", "--add", "pens", "-l", "HPGL", "--destination",
                           "serial:/dev/ttyUSB0?baud=9600&flow=xonxoff", "--description",
                           "A3 pen plotter"}),
              0)
        << err;
    EXPECT_EQ(out, "printer pens (HPGL, serial:/dev/ttyUSB0?baud=9600&flow=xonxoff) added to " +
                       list + "\n");
    EXPECT_EQ(RunWithList({"printers", "--add", "roll", "-l", "HP4000GL2", "--destination",
                           "socket://127.0.0.1:9100", "-q"}),
              0)
        << err;
    EXPECT_EQ(out, "");
    EXPECT_EQ(RunWithList({"printers"}), 0) << err;
    EXPECT_EQ(out,
              "NAME  LANGUAGE   DESTINATION                                 DESCRIPTION\n"
              "pens  HPGL       serial:/dev/ttyUSB0?baud=9600&flow=xonxoff  A3 pen plotter\n"
              "roll  HP4000GL2  socket://127.0.0.1:9100\n");
    // The list holds each printer's whole settings element, as a settings file does.
    const std::string text = ReadFileBytes(list);
    EXPECT_NE(text.find("<HPGLProperties"), std::string::npos) << text;
    EXPECT_NE(text.find("<HP4000GL2Properties"), std::string::npos) << text;

    EXPECT_EQ(RunWithList({"printers", "--remove", "pens"}), 0) << err;
    EXPECT_EQ(out, "printer pens removed from " + list + "\n");
    EXPECT_EQ(RunWithList({"printers"}), 0) << err;
    EXPECT_EQ(out,
              "NAME  LANGUAGE   DESTINATION              DESCRIPTION\n"
              "roll  HP4000GL2  socket://127.0.0.1:9100\n");
}

TEST_F(VrkplotPrinters, AddRefusesWhatCannotWork) {
    EXPECT_EQ(RunWithList({"printers", "--add", "p", "-l", "hpgl", "--destination", "/dev/null"}),
              2);
    EXPECT_NE(err.find("did you mean 'HPGL'?"), std::string::npos) << err;
    EXPECT_EQ(RunWithList({"printers", "--add", "p", "-l", "HPGL", "--destination", "sokcet://x"}),
              2);
    EXPECT_EQ(err.rfind("vrkplot: destination 'sokcet://x': unknown kind of destination", 0), 0u)
        << err;
    EXPECT_EQ(RunWithList({"printers", "--add", "p", "-l", "HPGL"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: printers --add needs --destination", 0), 0u) << err;
    EXPECT_EQ(folder.Listing(), "");
    ASSERT_EQ(RunWithList({"printers", "--add", "p", "-l", "HPGL", "--destination", "/dev/null"}),
              0)
        << err;
    const std::string before = ReadFileBytes(list);
    EXPECT_EQ(RunWithList({"printers", "--add", "p", "-l", "HPGL2", "--destination", "/dev/null"}),
              2);
    EXPECT_NE(err.find("'p'"), std::string::npos) << err;
    EXPECT_EQ(RunWithList({"printers", "--remove", "nobody"}), 2);
    EXPECT_NE(err.find("'nobody'"), std::string::npos) << err;
    EXPECT_EQ(ReadFileBytes(list), before);
}

TEST_F(VrkplotPrinters, AddTakesTheLanguageOfTheSettingsFile) {
    folder.Write("pens.xml", "<HPGLProperties relativeMovePen=\"YES\"/>\n");
    EXPECT_EQ(RunWithList({"printers", "--add", "p", "--settings", "pens.xml", "--destination",
                           "/dev/null", "-q"}),
              0)
        << err;
    EXPECT_EQ(RunWithList({"printers"}), 0) << err;
    EXPECT_NE(out.find("p     HPGL"), std::string::npos) << out;
    EXPECT_NE(ReadFileBytes(list).find("relativeMovePen=\"YES\""), std::string::npos);
}

TEST_F(VrkplotPrinters, PlotToAPrinterSendsWhatAFileWouldHold) {
    Job("a4.job", "Begin\nMoveTo 10 10\nLineTo 100 50\nEnd\n");
    LoopbackServer server;
    ASSERT_EQ(RunWithList({"printers", "--add", "dj", "-l", "HP4000GL2", "--destination",
                           server.Url(), "-q"}),
              0)
        << err;
    // -o wins over the printer's destination; the job name is given, since a file is named
    // after itself and a sent plot after its job.
    ASSERT_EQ(RunWithList({"-p", "dj", "a4.job", "-o", "file.plt", "--job-name", "a4"}), 0) << err;
    EXPECT_EQ(out, "a4.job -> printer dj at file.plt (HP4000GL2, 469 bytes)\n");
    EXPECT_EQ(RunWithList({"-p", "dj", "a4.job", "--job-name", "a4"}), 0) << err;
    EXPECT_EQ(out, "a4.job -> printer dj at " + server.Url() + " (HP4000GL2, 469 bytes)\n");
    EXPECT_BYTES(ReadFileBytes(folder.File("file.plt")), server.Received());
}

TEST_F(VrkplotPrinters, AnSvgDrawingGoesToAPrinterAsAJobDoes) {
    folder.Write("plan.svg",
                 "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100mm\" height=\"50mm\">"
                 "<line x1=\"10\" y1=\"10\" x2=\"90\" y2=\"40\" stroke=\"black\"/></svg>\n");
    LoopbackServer server;
    ASSERT_EQ(RunWithList({"printers", "--add", "dj", "-l", "HP4000GL2", "--destination",
                           server.Url(), "-q"}),
              0)
        << err;
    ASSERT_EQ(RunWithList({"-p", "dj", "plan.svg", "-o", "file.plt", "--job-name", "plan"}), 0)
        << err;
    ASSERT_EQ(RunWithList({"-p", "dj", "plan.svg", "--job-name", "plan", "-q"}), 0) << err;
    EXPECT_EQ(out, "");
    EXPECT_BYTES(ReadFileBytes(folder.File("file.plt")), server.Received());
    EXPECT_NE(server.Received().find("@PJL JOB NAME=\"VORAN:plan\""), std::string::npos)
        << Printable(server.Received());
}

TEST_F(VrkplotPrinters, SentPlotIsNamedAfterItsJob) {
    Job("a4.job", "Begin\nEnd\n");
    LoopbackServer server;
    ASSERT_EQ(RunWithList({"printers", "--add", "dj", "-l", "HP1000GL2", "--destination",
                           server.Url(), "-q"}),
              0)
        << err;
    EXPECT_EQ(RunWithList({"-p", "dj", "a4.job", "-q"}), 0) << err;
    EXPECT_NE(server.Received().find("@PJL JOB NAME=\"VORAN:a4.job\""), std::string::npos)
        << Printable(server.Received());
}

TEST_F(VrkplotPrinters, PrinterSettingsAreUsed) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("roll.xml", "<HP4000GL2Properties printQuality=\"HIGH\"/>\n");
    ASSERT_EQ(RunWithList({"printers", "--add", "dj", "--settings", "roll.xml", "--destination",
                           "/dev/null", "-q"}),
              0)
        << err;
    ASSERT_EQ(RunWithList({"-p", "dj", "a4.job", "-o", "-"}), 0) << err;
    EXPECT_NE(out.find("@PJL SET PRINTQUALITY=HIGH"), std::string::npos) << Printable(out);
}

TEST_F(VrkplotPrinters, UnknownPrinter) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(RunWithList({"-p", "dj", "a4.job"}), 2);
    EXPECT_EQ(err, "vrkplot: no printer 'dj' in " + list +
                       " (the list is empty; see 'vrkplot printers --help')\n");
    ASSERT_EQ(RunWithList(
                  {"printers", "--add", "pens", "-l", "HPGL", "--destination", "/dev/null", "-q"}),
              0);
    EXPECT_EQ(RunWithList({"-p", "dj", "a4.job"}), 2);
    EXPECT_EQ(err, "vrkplot: no printer 'dj' in " + list + "; printers: pens\n");
    EXPECT_EQ(RunWithList({"-p", "pens", "-l", "HPGL", "a4.job"}), 2);
    EXPECT_EQ(folder.Listing(), "a4.job\nprinters.xml\n");
}

TEST_F(VrkplotPrinters, PrinterOfAnUnknownLanguageNamesItsLine) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write(
        "printers.xml",
        "<Printers>\n  <Printer name=\"x\" language=\"HPGL9\" destination=\"/dev/null\"/>\n"
        "</Printers>\n");
    EXPECT_EQ(RunWithList({"-p", "x", "a4.job"}), 2);
    EXPECT_EQ(err, "vrkplot: " + list +
                       ":2: printer 'x': unknown language 'HPGL9'; known languages: HP1000GL2, "
                       "HP4000GL2, HPGL, HPGL2\n");
    EXPECT_EQ(folder.Listing(), "a4.job\nprinters.xml\n");
}

TEST_F(VrkplotPrinters, MalformedListNamesFileAndLine) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("printers.xml", "<Printers>\n  <Printer name=\"a\"\n</Printers>\n");
    EXPECT_EQ(RunWithList({"printers"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: " + list + ":3: ", 0), 0u) << err;
    EXPECT_EQ(RunWithList({"-p", "a", "a4.job"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: " + list + ":3: ", 0), 0u) << err;
    EXPECT_EQ(folder.Listing(), "a4.job\nprinters.xml\n");
}

}  // namespace
