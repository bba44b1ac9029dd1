// vrkplot: plays job files and drawings (SVG) into the generator of a printer language and
// writes the plots to files, or sends them to plotters and printers.
//
//   vrkplot [-l LANGUAGE | -p PRINTER] [-o DEST] [--job-name NAME] [--settings FILE]
//           [--save-settings FILE] [--stream] [--timeout SECONDS] [-q]
//           [--form FORM] [--landscape] [--fit] [--margins MM] [--order travel|drawing]
//           [--stats] [--text outlines|labels] [--] DOCUMENT...
//   vrkplot settings [-l LANGUAGE] [--settings FILE]
//   vrkplot printers [--add NAME [-l LANGUAGE] --destination DEST [--settings FILE]
//                     [--description TEXT] | --remove NAME]
//   vrkplot dump PLOT
//   vrkplot --list-languages
//
// Exit status 0 when every job was plotted, 2 after any error (a job, a write, a send, the
// command line).

#include <clocale>
#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKDriverLoader.h"
#include "host/input/VRKDocumentFormats.h"
#include "host/output/VRKOutputPath.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"
#include "tools/vrkplot/DocumentPlotter.h"
#include "tools/vrkplot/DumpCommand.h"
#include "tools/vrkplot/Languages.h"
#include "tools/vrkplot/PlotCommand.h"
#include "tools/vrkplot/PrintersCommand.h"
#include "tools/vrkplot/TemporaryFiles.h"

namespace {

constexpr int kFailure = 2;
constexpr const char* kDriver = "VRKPrtDriverHPGL2";

}  // namespace

int main(int argc, char** argv) {
    // The user's locale, for the C library's messages; numbers in job files and plots never
    // depend on it.
    std::setlocale(LC_ALL, "");
    // A plotter, printer or pipe that goes away is a write error to report, not a signal that
    // ends the program before it can say so.
    std::signal(SIGPIPE, SIG_IGN);
    // Ctrl-C while a plot is made or sent leaves no temporary file behind.
    TemporaryFiles::RemoveOnSignals();

    CLI::App app{
        "Plays drawings and job files into the generator of a printer language and writes the "
        "plots to files, or sends them to plotters and printers.\n\nDocuments it reads (told "
        "apart by their content, else by their extension):\n" +
            VRKDocumentFormats::Describe(),
        "vrkplot"};
    PlotCommand plot;
    CLI::Option* jobsOption = app.add_option(
        "DOCUMENT", plot.jobs,
        "Drawings and job files to plot, one after another, each to its own plot; - reads "
        "standard input. Put -- before them when a name starts with - or is 'settings', "
        "'printers' or 'dump'");
    CLI::Option* languageOption = app.add_option("-l,--language", plot.language,
                                                 "Printer language (default: HPGL2, or the "
                                                 "language of the --settings file)");
    CLI::Option* printerOption = app.add_option(
        "-p,--printer", plot.printer,
        "Printer from the printer list: its language and settings, and its destination unless "
        "-o is given (see 'vrkplot printers')");
    CLI::Option* outputOption = app.add_option(
        "-o,--output", plot.output,
        "Where the plot goes: a file, - for standard output, a device (/dev/usb/lp0), "
        "socket://HOST[:PORT], lp:QUEUE or serial:DEVICE[?baud=N&flow=xonxoff|rtscts|none] "
        "(default: the job file's path with the extension .plt)");
    CLI::Option* nameOption = app.add_option(
        "--job-name", plot.jobName,
        "Job name given to the generator (default: the output file's path, or the job file's "
        "name for a plot that is sent)");
    CLI::Option* settingsOption =
        app.add_option("--settings", plot.settingsPath,
                       "Settings file (XML) read into the generator before each job");
    CLI::Option* saveOption =
        app.add_option("--save-settings", plot.saveSettingsPath,
                       "Writes the generator's settings, as used for the jobs, to this file (XML)");
    CLI::Option* streamOption = app.add_flag(
        "--stream", plot.stream,
        "Send the plot to a device or printer while it is made, instead of once it is complete "
        "(for plots larger than the disk; a job that fails has then sent part of its plot)");
    CLI::Option* timeoutOption = app.add_option(
        "--timeout", plot.timeoutSeconds,
        "Seconds a printer may take to accept the connection or the next bytes before the send "
        "fails; 0 waits for ever (default: 30 for socket://, none for serial:)");
    timeoutOption->check(CLI::NonNegativeNumber);
    app.add_flag("-q,--quiet", plot.quiet, "Do not say what was written or sent");
    CLI::Option* formOption = app.add_option(
        "--form", plot.form,
        "Drawings: the paper, A4, A3, A2, A1, A0 or WIDTHxHEIGHT in millimetres (default: the "
        "drawing's own size); the drawing keeps its size unless --fit is given");
    CLI::Option* landscapeOption =
        app.add_flag("--landscape", plot.landscape, "Drawings: the form's long side across");
    CLI::Option* fitOption = app.add_flag(
        "--fit", plot.fit,
        "Drawings: scaled to the form inside its margins, keeping the proportions, centred");
    CLI::Option* marginsOption = app.add_option(
        "--margins", plot.margins, "Drawings: the margins on every side, in millimetres");
    marginsOption->check(CLI::Range(0.0, 10000.0));
    CLI::Option* orderOption = app.add_option(
        "--order", plot.order,
        "Drawings: 'travel' groups the strokes by pen and orders them to cut the pen's travel "
        "between them; 'drawing' keeps the drawing's order (default: travel for HPGL, drawing "
        "for the others)");
    orderOption->check(CLI::IsMember({"travel", "drawing"}));
    CLI::Option* statsOption = app.add_flag(
        "--stats", plot.stats,
        "Drawings: prints the pen-down length, the pen-up travel and the pen changes, before "
        "and after ordering");
    CLI::Option* textOption = app.add_option(
        "--text", plot.text,
        "PDF documents: 'labels' draws text as labels in the plotter's font where a plotter font "
        "can stand for it (upright or turned text in an ordinary font), the rest as outlines; "
        "'outlines' fills the glyphs' outlines (default: outlines)");
    textOption->check(CLI::IsMember({"outlines", "labels"}));
    bool list = false;
    app.add_flag("--list-languages", list, "List the printer languages and exit")
        ->excludes(jobsOption)
        ->excludes(outputOption)
        ->excludes(nameOption)
        ->excludes(settingsOption)
        ->excludes(saveOption)
        ->excludes(printerOption)
        ->excludes(streamOption)
        ->excludes(timeoutOption)
        ->excludes(formOption)
        ->excludes(landscapeOption)
        ->excludes(fitOption)
        ->excludes(marginsOption)
        ->excludes(orderOption)
        ->excludes(statsOption)
        ->excludes(textOption);
    printerOption->excludes(languageOption);

    CLI::App* settingsCommand = app.add_subcommand(
        "settings",
        "Prints a language's settings as XML: its defaults, or a settings file's "
        "values over them");
    std::string settingsLanguage;
    std::string settingsCommandPath;
    settingsCommand->add_option("-l,--language", settingsLanguage,
                                "Printer language (default: HPGL2, or the language of the "
                                "--settings file)");
    settingsCommand->add_option("--settings", settingsCommandPath,
                                "Settings file (XML) read over the defaults");
    bool editSettings = false;
    settingsCommand->add_flag("--edit", editSettings,
                              "Opens the language's settings dialog; what OK changes is written "
                              "to the --settings file (a new one may be named), else printed");

    CLI::App* printersCommand =
        app.add_subcommand("printers",
                           "Lists the printers of the printer list ($VRK_PRINTERS, else "
                           "$XDG_CONFIG_HOME/vrkplot/printers.xml), adds or removes one, or "
                           "edits a printer's settings");
    PrintersCommand printers;
    std::string addName, removeName, editName;
    CLI::Option* addOption =
        printersCommand->add_option("--add", addName, "Adds a printer of this name");
    CLI::Option* removeOption =
        printersCommand->add_option("--remove", removeName, "Removes the printer of this name");
    CLI::Option* editOption = printersCommand->add_option(
        "--edit", editName, "Edits the settings of the printer of this name in its dialog");
    addOption->excludes(removeOption);
    editOption->excludes(addOption)->excludes(removeOption);
    CLI::Option* addLanguage =
        printersCommand->add_option("-l,--language", printers.language,
                                    "The new printer's language (default: the language "
                                    "of the --settings file)");
    CLI::Option* addDestination = printersCommand->add_option(
        "--destination", printers.destination,
        "Where the new printer's plots go: a path, socket://HOST[:PORT], lp:QUEUE or "
        "serial:DEVICE[?baud=N&flow=...]");
    CLI::Option* addSettings = printersCommand->add_option("--settings", printers.settingsPath,
                                                           "The new printer's settings file (XML)");
    CLI::Option* addDescription = printersCommand->add_option("--description", printers.description,
                                                              "The new printer's description");
    for (CLI::Option* option : {addLanguage, addDestination, addSettings, addDescription}) {
        option->needs(addOption);
    }
    printersCommand->add_flag("-q,--quiet", printers.quiet, "Do not say what was changed");
    CLI::App* dumpCommand = app.add_subcommand(
        "dump",
        "Prints a plot file as a listing, one instruction a line: PJL lines, PCL escapes, HP-GL "
        "and HP-GL/2 instructions with PE data decoded, raster rows by their size");
    DumpCommand dump;
    dumpCommand->add_option("PLOT", dump.plot, "The plot file; - reads standard input")->required();
    app.require_subcommand(0, 1);
    app.set_version_flag("--version", std::string("vrkplot ") + VRK_VERSION);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        // Help and version leave with status 0, every usage error with 2.
        return app.exit(e) == 0 ? 0 : kFailure;
    }
    if (addOption->count() > 0 && addDestination->count() == 0) {
        std::cerr << "vrkplot: printers --add needs --destination (a path, "
                     "socket://HOST[:PORT], lp:QUEUE or serial:DEVICE)\n";
        return kFailure;
    }

    // The listing reads the plot's bytes alone: it needs no driver.
    if (dumpCommand->parsed()) {
        return dump.Run();
    }

    std::string error;
    if (!VRKDriverLoader::Load(kDriver, error)) {
        std::cerr << "vrkplot: cannot load the driver " << kDriver << ": " << error << '\n';
        return kFailure;
    }
    if (list) {
        vrkplot::listLanguages(std::cout);
        return std::cout ? 0 : kFailure;
    }
    if (printersCommand->parsed()) {
        if (addOption->count() > 0) {
            printers.add = addName;
        }
        if (removeOption->count() > 0) {
            printers.remove = removeName;
        }
        if (editOption->count() > 0) {
            printers.edit = editName;
        }
        return printers.Run();
    }
    if (settingsCommand->parsed()) {
        return editSettings ? PlotCommand::EditSettings(settingsLanguage, settingsCommandPath)
                            : PlotCommand::PrintSettings(settingsLanguage, settingsCommandPath);
    }
    plot.haveOutput = outputOption->count() > 0;
    plot.haveTimeout = timeoutOption->count() > 0;
    plot.haveJobName = nameOption->count() > 0;
    plot.haveSaveSettings = saveOption->count() > 0;
    return plot.Run();
}
