// vrkplot-cups: the spooler's filter for the plotters. The spooler runs it as
//
//   vrkplot-cups JOB USER TITLE COPIES OPTIONS [FILE]
//
// with the printer's PPD file in $PPD and the queue's name in $PRINTER. It reads the document
// (a PDF, an SVG drawing or a job file) from FILE or, without one, from standard input, plots it
// with the language the PPD names and the settings its marked choices ask for, and writes the
// plot COPIES times to standard output. Messages go to standard error with the spooler's
// prefixes (ERROR:, WARNING:, INFO:, DEBUG:). Exit status 0 when the plot was written, 1 after
// any error; nothing is written to standard output then.

#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKDriverLoader.h"
#include "host/core/VRKEnvironment.h"
#include "host/output/VRKDestination.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "tools/vrkplot-cups/CupsJobMapping.h"
#include "tools/vrkplot-cups/PlotCopies.h"
#include "tools/vrkplot-cups/PpdRequest.h"
#include "tools/vrkplot-cups/QueueSettings.h"
#include "tools/vrkplot/DocumentPlotter.h"
#include "tools/vrkplot/Languages.h"
#include "tools/vrkplot/TemporaryFiles.h"

namespace {

constexpr int kFailure = 1;
constexpr const char* kDriver = "VRKPrtDriverHPGL2";

int fail(const std::string& message) {
    std::cerr << "ERROR: " << message << std::endl;
    return kFailure;
}

// COPIES as the spooler passes it: a whole number; 0 and less are left to the mapping to refuse.
bool parseCopies(const char* text, int& copies) {
    errno = 0;
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || errno != 0 || value < -1000000 || value > 1000000) {
        return false;
    }
    copies = static_cast<int>(value);
    return true;
}

// The pens of a fresh generator of the language: the standard pen table.
std::optional<VRKLightXmlElement> standardPens(const VRKClassEntry& language) {
    VRKBaseUnknown* generator = DocumentPlotter(language, {}).MakeGenerator();
    if (generator == nullptr) {
        return std::nullopt;
    }
    VRKLightXmlElement element;
    std::string error;
    const bool written = VRKGeneratorSettings::Write(generator, element, error);
    generator->Release();
    if (!written) {
        return std::nullopt;
    }
    for (int i = 0; i < element.GetChildCount(); ++i) {
        if (element.GetChild(i)->GetName() == VRKString("pens")) {
            return *element.GetChild(i);
        }
    }
    return std::nullopt;
}

// A temporary file the plot is made in, removed when the object goes.
class PlotFile {
  public:
    bool Create(std::string& error) {
        std::string pattern = VRKEnvironment::TemporaryDirectory() + "vrkplot-cups.XXXXXX";
        const int fd = ::mkstemp(pattern.data());
        if (fd < 0) {
            error = "cannot create a temporary file in " + VRKEnvironment::TemporaryDirectory() +
                    ": " + std::strerror(errno);
            return false;
        }
        ::close(fd);
        path_ = pattern;
        return true;
    }
    ~PlotFile() {
        if (!path_.empty()) {
            ::unlink(path_.c_str());
        }
    }
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

int run(int argc, char** argv) {
    if (argc < 6 || argc > 7) {
        std::cerr << "Usage: vrkplot-cups job user title copies options [file]" << std::endl;
        return kFailure;
    }
    const std::string document = argc == 7 ? argv[6] : "-";
    const std::optional<std::string> ppd = VRKEnvironment::Get("PPD");
    if (!ppd.has_value() || ppd->empty()) {
        return fail("no PPD file: the spooler names the printer's PPD file in $PPD");
    }

    CupsJobRequest request;
    std::string error;
    if (!PpdRequest::Read(*ppd, argv[5], request, error)) {
        return fail(error);
    }
    if (!parseCopies(argv[4], request.copies)) {
        return fail(std::string("copies: '") + argv[4] + "' is not a whole number");
    }
    request.title = argv[3];
    if (request.title.empty()) {
        request.title = std::string("job ") + argv[1];
    }

    if (!VRKDriverLoader::Load(kDriver, error)) {
        return fail("cannot load the driver " + std::string(kDriver) + ": " + error);
    }
    const VRKClassEntry* language = vrkplot::findLanguage(request.language, error);
    if (language == nullptr) {
        return fail(*ppd + ": " + error);
    }
    if (request.language == "HPGL") {
        request.standardPens = standardPens(*language);
    }

    CupsJob job;
    if (!CupsJobMapping::Map(request, job, error)) {
        return fail(error);
    }

    // The queue's settings file first, then the PPD's choices over it.
    std::vector<DocumentPlotter::Settings> settings;
    const std::string queue = VRKEnvironment::Get("PRINTER").value_or("");
    std::optional<VRKLightXmlElement> queueSettings;
    if (!QueueSettings::Read(queue, queueSettings, error)) {
        return fail(error);
    }
    if (queueSettings.has_value()) {
        const std::string path = QueueSettings::PathOf(queue);
        if (vrkplot::languageOfSettings(*queueSettings, path, error) != language) {
            return fail(error.empty() ? path + ": the settings are not of the printer's language " +
                                            request.language
                                      : error);
        }
        std::cerr << "DEBUG: the queue's settings file " << path << std::endl;
        settings.push_back({*queueSettings, path});
    }
    settings.push_back({job.settings, *ppd});

    DocumentPlotter plotter(*language, settings);
    plotter.SetMessageStyle({"ERROR: ", "WARNING: ", ""});
    plotter.SetDocumentOptions(job.document);
    plotter.SetJobName(job.jobName);

    PlotFile plot;
    if (!plot.Create(error)) {
        return fail(error);
    }
    // The plot owns standard output: what the driver prints itself goes to standard error, where
    // the spooler logs it.
    std::streambuf* const standardOutput = std::cout.rdbuf(std::cerr.rdbuf());
    const bool plotted = plotter.Plot(document, VRKDestination::ForPath(plot.Path()));
    std::cout.rdbuf(standardOutput);
    if (!plotted) {
        return kFailure;
    }
    // A job cancelled while its copies are written leaves no plot behind either.
    TemporaryFiles::Set(plot.Path());
    const bool written = PlotCopies::Write(plot.Path(), job.copies, STDOUT_FILENO, error);
    TemporaryFiles::Set(std::string());
    if (!written) {
        return fail(error);
    }
    std::cerr << "INFO: plotted " << (document == "-" ? "the document" : document) << " ("
              << request.language << ", " << job.copies << (job.copies == 1 ? " copy" : " copies")
              << ")" << std::endl;
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    // A closed pipe to the backend is a write error to report, not a signal that ends the filter.
    std::signal(SIGPIPE, SIG_IGN);
    // A cancelled job (SIGTERM) leaves no temporary plot behind.
    TemporaryFiles::RemoveOnSignals();
    try {
        return run(argc, argv);
    } catch (const std::exception& e) {
        return fail(e.what());
    } catch (...) {
        return fail("unexpected failure");
    }
}
