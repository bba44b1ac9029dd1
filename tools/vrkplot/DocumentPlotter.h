#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/core/VRKClassEntry.h"
#include "host/input/VRKDocumentOptions.h"
#include "host/job/VRKJobOutput.h"
#include "host/output/VRKDestination.h"
#include "host/xml/VRKLightXmlElement.h"

class VRKBaseUnknown;

// Plots documents (job files, SVG drawings) with one language and its settings, each to a
// destination, and says what it did: one line per plot ("plan.svg -> plan.plt (HPGL2, 23 KB)")
// unless quiet; errors, and what a drawing holds that cannot be drawn as it asks, on standard
// error.
class DocumentPlotter {
  public:
    // Settings read into every generator before its job, in order: a printer's, then a file's.
    struct Settings {
        VRKLightXmlElement element;
        std::string source;
    };

    // How the lines on standard error start: `error` before every error, `warning` before every
    // warning, and `program` before the errors and warnings of the program's own (not those
    // that already name a file and line). vrkplot's: "", "", "vrkplot: "; a spooler's filter
    // asks for "ERROR: " and "WARNING: " with no program name.
    struct MessageStyle {
        std::string error;
        std::string warning;
        std::string program = "vrkplot: ";
    };

    DocumentPlotter(const VRKClassEntry& language, std::vector<Settings> settings);

    void SetMessageStyle(const MessageStyle& style) { style_ = style; }

    void SetOptions(const VRKJobOutput::Options& options) { options_ = options; }
    // How drawings are laid out and ordered.
    void SetDocumentOptions(const VRKDocumentOptions& options) { documentOptions_ = options; }
    // Where the pen's travel goes when --stats asks for it.
    void SetStatsReport(std::ostream* report) { statsReport_ = report; }
    // Where the lines that say what was done go; null keeps quiet.
    void SetReport(std::ostream* report) { report_ = report; }
    // The name of the printer the plots go to, for those lines.
    void SetPrinterName(const std::string& name) { printerName_ = name; }
    // The job name for every plot; empty: the output file's path as given, or, for a plot that is
    // sent rather than written, the document's name.
    void SetJobName(const std::string& name) { jobName_ = name; }

    // True when plots to `destination` replace a file (a new or existing one, or one a link
    // leads to), rather than go to a device or a printer.
    static bool WritesFile(const VRKDestination& destination);

    // A generator of the language with the settings read into it, or null after printing why
    // not. The caller releases it.
    VRKBaseUnknown* MakeGenerator() const;
    // Plots the document `document` ("-": standard input) to `destination`; prints the error and
    // returns false when it cannot.
    bool Plot(const std::string& document, const VRKDestination& destination) const;

  private:
    // An error of the program's own, and one that says where it is ("plan.svg: ...").
    void ProgramError(const std::string& message) const;
    void Error(const std::string& message) const;
    void Warning(const std::string& message) const;

    const VRKClassEntry& language_;
    std::vector<Settings> settings_;
    VRKJobOutput::Options options_;
    VRKDocumentOptions documentOptions_;
    std::ostream* report_ = nullptr;
    std::ostream* statsReport_ = nullptr;
    std::string printerName_;
    std::string jobName_;
    MessageStyle style_;
};
