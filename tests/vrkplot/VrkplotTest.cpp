// vrkplot end to end: the built program run on job files, its errors, exit status and output
// files checked (VrkplotExpectedTest.cpp compares the plots of tests/jobs with tests/expected).
//
// VRKPLOT_PATH comes from the build.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/CommaLocale.h"
#include "support/Printable.h"
#include "support/RunProgram.h"
#include "support/ScopedEnv.h"
#include "support/TempFolder.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

namespace fs = std::filesystem;

const std::string kA4Frame =
    "\x1b"
    "E\x1b%0BINECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2PUSP0PG;";

TEST_F(Vrkplot, A4Frame) {
    Job("a4.job", "Begin width=210 height=297 orientation=1\nEnd\n");
    EXPECT_EQ(Run({"a4.job"}), 0) << err;
    EXPECT_EQ(err, "");
    // What was written, on standard output.
    EXPECT_EQ(out, "a4.job -> a4.plt (HPGL2, 74 bytes)\n");
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("a4.plt")));
    // The temporary file is gone.
    EXPECT_EQ(folder.Listing(), "a4.job\na4.plt\n");
}

TEST_F(Vrkplot, OutputOptionAndStandardOutput) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-o", "plot.hpgl"}), 0) << err;
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("plot.hpgl")));
    EXPECT_EQ(Run({"a4.job", "-l", "HPGL2", "-o", "-"}), 0) << err;
    EXPECT_BYTES(kA4Frame, out);
    EXPECT_EQ(folder.Listing(), "a4.job\nplot.hpgl\n");
}

TEST_F(Vrkplot, DefaultOutputNames) {
    std::filesystem::create_directory(folder.File("sub.d"));
    Job("sub.d/noext", "Begin\nEnd\n");
    Job("two.dots.job", "Begin\nEnd\n");
    Job(".hidden", "Begin\nEnd\n");
    EXPECT_EQ(Run({"sub.d/noext", "two.dots.job", ".hidden"}), 0) << err;
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("sub.d/noext.plt")));
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("two.dots.plt")));
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File(".hidden.plt")));
}

TEST_F(Vrkplot, UnknownVerbOnLineThree) {
    Job("bad.job", "Begin\nMoveTo 1 2\nFrobnicate 3\nEnd\n");
    EXPECT_EQ(Run({"bad.job"}), 2);
    EXPECT_EQ(err, "bad.job:3: unknown verb 'Frobnicate'\n");
    EXPECT_EQ(out, "");
    EXPECT_EQ(folder.Listing(), "bad.job\n");
}

TEST_F(Vrkplot, ValuesBeyondThePlotterLeaveNoPlot) {
    const std::string beyond = "' is beyond the plotter's range (at most 26843544 mm either way)\n";
    Job("far.job", "Begin\nMoveTo 1 1\nMoveTo 6e7 1\nLineTo 1 1\nEnd\n");
    Job("text.job", "Begin\nDrawText 10 1e12 \"x\"\nEnd\n");
    Job("wide.job", "Begin width=3e38\nEnd\n");
    Job("width.job", "Begin\nSetDrawWidth 3e38\nMoveTo 0 0\nLineTo 10 10\nEnd\n");
    for (const char* language : {"HPGL2", "HPGL", "HP1000GL2", "HP4000GL2"}) {
        EXPECT_EQ(Run({"far.job", "-l", language, "-o", "out.plt"}), 2) << language;
        EXPECT_EQ(err, "far.job:3: MoveTo: '6e7" + beyond) << language;
        EXPECT_EQ(Run({"text.job", "-l", language, "-o", "out.plt"}), 2) << language;
        EXPECT_EQ(err, "text.job:2: DrawText: '1e12" + beyond) << language;
        EXPECT_EQ(Run({"wide.job", "-l", language, "-o", "out.plt"}), 2) << language;
        EXPECT_EQ(err, "wide.job:1: Begin: width: '3e38" + beyond) << language;
        EXPECT_EQ(Run({"width.job", "-l", language, "-o", "out.plt"}), 2) << language;
        EXPECT_EQ(err, "width.job:2: SetDrawWidth: '3e38" + beyond) << language;
    }
    EXPECT_EQ(folder.Listing(), "far.job\ntext.job\nwide.job\nwidth.job\n");
}

TEST_F(Vrkplot, ExistingOutputIsUntouchedOnError) {
    Job("bad.job", "Begin\nMoveTo 1 2\n");
    folder.Write("bad.plt", "an older plot");
    EXPECT_EQ(Run({"bad.job"}), 2);
    EXPECT_EQ(err, "bad.job:2: missing End at the end of the file (the job began on line 1)\n");
    EXPECT_EQ(ReadFileBytes(folder.File("bad.plt")), "an older plot");
    EXPECT_EQ(folder.Listing(), "bad.job\nbad.plt\n");
}

TEST_F(Vrkplot, ExistingOutputIsReplacedOnSuccess) {
    Job("a4.job", "Begin\nEnd\n");
    folder.Write("a4.plt", "an older plot");
    EXPECT_EQ(Run({"a4.job"}), 0) << err;
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("a4.plt")));
}

TEST_F(Vrkplot, NothingReachesStandardOutputOnError) {
    Job("bad.job", "Begin\nMoveTo 1 2\nEnd\nEnd\n");
    EXPECT_EQ(Run({"bad.job", "-o", "-"}), 2);
    EXPECT_EQ(err, "bad.job:4: End after End (the job ended on line 3)\n");
    EXPECT_EQ(out, "");
}

TEST_F(Vrkplot, WriteFailureOnAFullDevice) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-o", "-"}, {}, "/dev/full"), 2);
    EXPECT_EQ(err, "vrkplot: standard output: No space left on device\n");
    EXPECT_EQ(folder.Listing(), "a4.job\n");
}

TEST_F(Vrkplot, OutputFolderThatDoesNotExist) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-o", "missing/a4.plt"}), 2);
    EXPECT_EQ(err,
              "vrkplot: missing/a4.plt: cannot create a temporary file in 'missing/': No such "
              "file or directory\n");
}

TEST_F(Vrkplot, OutputThatIsAFolder) {
    Job("a4.job", "Begin\nEnd\n");
    std::filesystem::create_directory(folder.File("plots"));
    EXPECT_EQ(Run({"a4.job", "-o", "plots"}), 2);
    EXPECT_EQ(err, "vrkplot: plots: is a folder\n");
    EXPECT_EQ(folder.Listing(), "a4.job\nplots\n");
}

TEST_F(Vrkplot, OutputThatIsTheJobItself) {
    Job("a4.plt", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.plt"}), 2);
    EXPECT_EQ(err, "vrkplot: a4.plt: the output is the document itself\n");
    EXPECT_EQ(ReadFileBytes(folder.File("a4.plt")), "Begin\nEnd\n");
}

TEST_F(Vrkplot, SeveralJobFilesGoOnAfterAFailure) {
    Job("one.job", "Begin\nEnd\n");
    Job("two.job", "Begin\nMoveTo 1\nEnd\n");
    Job("three.job", "Begin width=100 height=100\nEnd\n");
    EXPECT_EQ(Run({"one.job", "two.job", "missing.job", "three.job"}), 2);
    EXPECT_EQ(err,
              "two.job:2: MoveTo: missing argument; usage: MoveTo x y\n"
              "missing.job: cannot open the file: No such file or directory\n");
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("one.plt")));
    EXPECT_BYTES(
        "\x1b"
        "E\x1b%0BINECQL100PS4000,4000IP0,0,4000,4000RO270NP256TR0MC0SP0LA2,2,3,2PUSP0PG;",
        ReadFileBytes(folder.File("three.plt")));
    EXPECT_EQ(folder.Listing(), "one.job\none.plt\nthree.job\nthree.plt\ntwo.job\n");
}

TEST_F(Vrkplot, OutputOptionWithSeveralJobFilesIsRefused) {
    Job("one.job", "Begin\nEnd\n");
    Job("two.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"one.job", "two.job", "-o", "both.plt"}), 2);
    EXPECT_EQ(err, "vrkplot: -o goes with a single job file when it names a file; 2 were given\n");
    EXPECT_EQ(folder.Listing(), "one.job\ntwo.job\n");
}

TEST_F(Vrkplot, ListLanguages) {
    EXPECT_EQ(Run({"--list-languages"}), 0) << err;
    EXPECT_EQ(err, "");
    // One line a language: the name, blanks up to a common column, the description.
    std::istringstream lines(out);
    std::string line;
    std::size_t column = 0;
    bool hpgl2 = false;
    while (std::getline(lines, line)) {
        const std::size_t name = line.find(' ');
        const std::size_t description = line.find_first_not_of(' ', name);
        ASSERT_NE(description, std::string::npos) << line;
        EXPECT_TRUE(column == 0 || column == description) << out;
        column = description;
        hpgl2 =
            hpgl2 || (line.substr(0, name) == "HPGL2" &&
                      line.substr(description).rfind("HP-GL/2 for large-format printers", 0) == 0);
    }
    EXPECT_TRUE(hpgl2) << out;
}

TEST_F(Vrkplot, UnknownLanguage) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-l", "PostScript"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: unknown language 'PostScript'; known languages: ", 0), 0u) << err;
    EXPECT_NE(err.find("HPGL2"), std::string::npos) << err;
    EXPECT_EQ(Run({"a4.job", "-l", "hpgl2"}), 2);
    EXPECT_EQ(folder.Listing(), "a4.job\n");
}

TEST_F(Vrkplot, UsageErrors) {
    EXPECT_EQ(Run({}), 2);
    EXPECT_EQ(err, "vrkplot: no job file or drawing given (see --help)\n");
    EXPECT_EQ(Run({"--no-such-option"}), 2);
    EXPECT_NE(err.find("--no-such-option"), std::string::npos) << err;
    EXPECT_EQ(Run({"a.job", "-l"}), 2);
    EXPECT_EQ(Run({"--list-languages", "a.job"}), 2);
}

TEST_F(Vrkplot, HelpAndVersion) {
    EXPECT_EQ(Run({"--help"}), 0);
    EXPECT_NE(out.find("--list-languages"), std::string::npos) << out;
    EXPECT_NE(out.find("--job-name"), std::string::npos) << out;
    EXPECT_EQ(Run({"--version"}), 0);
    EXPECT_EQ(out, "vrkplot 0.1.0\n");
}

TEST_F(Vrkplot, JobNameIsTheOutputPathOrTheGivenName) {
    // Generators that name the job in the plot take the name from the stream's path: the output
    // path as given, or --job-name. Every language is tried; at least one must write the name.
    Job("a4.job", "Begin\nEnd\n");
    ASSERT_EQ(Run({"--list-languages"}), 0) << err;
    std::istringstream lines(out);
    std::string line;
    int naming = 0;
    while (std::getline(lines, line)) {
        const std::string language = line.substr(0, line.find(' '));
        SCOPED_TRACE(language);
        ASSERT_EQ(Run({"a4.job", "-l", language, "-o", "plain.plt"}), 0) << err;
        ASSERT_EQ(Run({"a4.job", "-l", language, "-o", "named.plt", "--job-name", "Plan 7"}), 0)
            << err;
        const std::string plain = ReadFileBytes(folder.File("plain.plt"));
        const std::string named = ReadFileBytes(folder.File("named.plt"));
        if (plain.find("plain.plt") == std::string::npos) {
            EXPECT_EQ(named, plain);
            continue;
        }
        ++naming;
        EXPECT_EQ(named.find("named.plt"), std::string::npos);
        EXPECT_NE(named.find("Plan 7"), std::string::npos) << Printable(named);
    }
    EXPECT_GT(naming, 0);
}

TEST_F(Vrkplot, PlotDoesNotDependOnTheLocale) {
    const std::string& locales = CommaLocaleFolder();
    ASSERT_FALSE(locales.empty()) << "localedef could not build " << kCommaLocale
                                  << " (Debian package locales)";
    Job("lines.job", "Begin width=210.5\nMoveTo 1.5 2.25\nLineTo 100.75 2.25\nEnd\n");
    ASSERT_EQ(Run({"lines.job", "-o", "c.plt"}), 0) << err;
    ASSERT_EQ(Run({"lines.job", "-o", "de.plt"},
                  {"LOCPATH=" + locales, std::string("LC_ALL=") + kCommaLocale}),
              0)
        << err;
    EXPECT_BYTES(ReadFileBytes(folder.File("c.plt")), ReadFileBytes(folder.File("de.plt")));
}

TEST_F(Vrkplot, JobFromStandardInput) {
    const std::string job = folder.Write("a4.job", "Begin\nEnd\n");
    // To standard output when no output is given, as a filter.
    EXPECT_EQ(Run({"-"}, {}, "", job), 0) << err;
    EXPECT_BYTES(kA4Frame, out);
    EXPECT_EQ(err, "standard input -> standard output (HPGL2, 74 bytes)\n");
    EXPECT_EQ(Run({"-", "-o", "in.plt"}, {}, "", job), 0) << err;
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("in.plt")));
    EXPECT_EQ(out, "standard input -> in.plt (HPGL2, 74 bytes)\n");
    // Errors name it.
    const std::string bad = folder.Write("bad.job", "Begin\nFrobnicate\n");
    EXPECT_EQ(Run({"-", "-o", "bad.plt"}, {}, "", bad), 2);
    EXPECT_EQ(err, "standard input:2: unknown verb 'Frobnicate'\n");
    EXPECT_EQ(folder.Listing(), "a4.job\nbad.job\nin.plt\n");
}

TEST_F(Vrkplot, DoubleDashBeforeFileNames) {
    Job("settings", "Begin\nEnd\n");
    Job("printers", "Begin\nEnd\n");
    Job("-dash.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"-q", "--", "settings", "printers", "-dash.job"}), 0) << err;
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("settings.plt")));
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("printers.plt")));
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("-dash.plt")));
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "");
}

TEST_F(Vrkplot, LanguageThatDiffersInLetterCaseIsSuggested) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-l", "hpgl"}), 2);
    EXPECT_EQ(err,
              "vrkplot: unknown language 'hpgl'; did you mean 'HPGL'? (names are case-sensitive); "
              "known languages: HP1000GL2, HP4000GL2, HPGL, HPGL2\n");
    EXPECT_EQ(Run({"a4.job", "-l", "hp4000gl2"}), 2);
    EXPECT_NE(err.find("did you mean 'HP4000GL2'?"), std::string::npos) << err;
    EXPECT_EQ(Run({"a4.job", "-l", "PostScript"}), 2);
    EXPECT_EQ(err.find("did you mean"), std::string::npos) << err;
    EXPECT_EQ(folder.Listing(), "a4.job\n");
}

TEST_F(Vrkplot, PlotOnStandardOutputIsNamedAfterItsJob) {
    Job("plan.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"plan.job", "-l", "HP1000GL2", "-o", "-"}), 0) << err;
    EXPECT_EQ(out.rfind("\x1b%-12345X@PJL JOB NAME=\"VORAN:plan.job\"\n", 0), 0u) << Printable(out);
    EXPECT_NE(out.find("@PJL EOJ NAME=\"VORAN:plan.job\""), std::string::npos) << Printable(out);
}

TEST_F(Vrkplot, AJobNameCannotAddPrinterCommands) {
    Job("plan.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"plan.job", "-l", "HP1000GL2", "-o", "named.plt", "--job-name",
                   "x\"\n@PJL SET COPIES=999"}),
              0)
        << err;
    const std::string plot = ReadFileBytes(folder.File("named.plt"));
    EXPECT_EQ(plot.rfind("\x1b%-12345X@PJL JOB NAME=\"VORAN:x' @PJL SET COPIES=999\"\n", 0), 0u)
        << Printable(plot);
    EXPECT_EQ(plot.find("\n@PJL SET COPIES"), std::string::npos) << Printable(plot);
    EXPECT_EQ(err,
              "vrkplot: the job name was cleaned for the printer (double quotes became "
              "apostrophes, control characters became blanks): x' @PJL SET COPIES=999\n");
}

TEST_F(Vrkplot, AnOutputPathIsCleanedAsAJobName) {
    Job("plan.job", "Begin\nEnd\n");
    const std::string name =
        "a\"\x1b"
        "b.plt";
    EXPECT_EQ(Run({"plan.job", "-l", "HP4000GL2", "-o", name}), 0) << err;
    const std::string plot = ReadFileBytes(folder.File(name));
    EXPECT_NE(plot.find("@PJL JOB NAME=\"VORAN:a' b.plt\""), std::string::npos) << Printable(plot);
    EXPECT_NE(plot.find("@PJL EOJ NAME=\"VORAN:a' b.plt\""), std::string::npos) << Printable(plot);
    EXPECT_NE(err.find("the job name was cleaned"), std::string::npos) << err;
}

TEST_F(Vrkplot, AnHpglPlotThatDrawsNothingIsSaidToBeBlank) {
    Job("nocolor.job", "Begin\nMoveTo 1 1\nLineTo 5 5\nEnd\n");
    EXPECT_EQ(Run({"nocolor.job", "-l", "HPGL", "-o", "blank.plt", "-q"}), 0) << err;
    EXPECT_EQ(err,
              "vrkplot: warning: the plot draws nothing: no pen ever goes down (the job must "
              "select a colour with SelectDrawColor before it draws: pen 0 is no pen)\n");
    EXPECT_EQ(ReadFileBytes(folder.File("blank.plt")), "PU0,0PR;SP1;PU;PA;SP0;PG;");

    // A colour chosen: a pen goes down, nothing to say.
    Job("color.job", "Begin\nDefineColor 1 0 0 0\nSelectDrawColor 1\nLineTo 5 5\nEnd\n");
    EXPECT_EQ(Run({"color.job", "-l", "HPGL", "-o", "drawn.plt", "-q"}), 0) << err;
    EXPECT_EQ(err, "");
    // HP-GL/2 printers draw with their default pen: no check there.
    EXPECT_EQ(Run({"nocolor.job", "-l", "HPGL2", "-o", "drawn2.plt", "-q"}), 0) << err;
    EXPECT_EQ(err, "");
}

TEST_F(Vrkplot, AMissingPenTableIsNamed) {
    Job("color.job", "Begin\nDefineColor 1 0 0 0\nSelectDrawColor 1\nLineTo 5 5\nEnd\n");
    TempFolder tables{"no-tables"};
    ScopedEnv table("HPGL2_PEN_TABLE", "1");
    ScopedEnv tmp("TMPDIR", tables.Path() + "/");
    EXPECT_EQ(Run({"color.job", "-l", "HPGL", "-o", "blank.plt", "-q"}), 0) << err;
    EXPECT_EQ(err,
              "vrkplot: warning: the plot draws nothing: no pen ever goes down "
              "(HPGL2_PEN_TABLE is set, but there is no pen table file " +
                  tables.Path() + "/PenTable, so no colour finds a pen)\n");
}

TEST_F(Vrkplot, QuietSaysNothing) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-q"}), 0) << err;
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "");
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("a4.plt")));
    // Sizes from a kilobyte on are in decimal units, cut down.
    std::string job = "Begin\n";
    for (int i = 0; i < 400; ++i) {
        job += "MoveTo 1 1\nLineTo 100 " + std::to_string(i) + "\n";
    }
    Job("lines.job", job + "End\n");
    EXPECT_EQ(Run({"lines.job"}), 0) << err;
    const std::uintmax_t size = std::filesystem::file_size(folder.File("lines.plt"));
    ASSERT_GE(size, 1000u);
    EXPECT_EQ(out, "lines.job -> lines.plt (HPGL2, " + std::to_string(size / 1000) + " KB)\n");
}

}  // namespace
