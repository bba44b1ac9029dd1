#include "tools/vrkplot/DocumentPlotter.h"

#include <sys/stat.h>
#include <unistd.h>

#include <iomanip>
#include <iostream>
#include <utility>

#include "host/core/VRKPrintFileGenerator.h"
#include "host/input/VRKDocumentFormats.h"
#include "host/input/VRKDocumentInput.h"
#include "host/input/VRKDocumentResult.h"
#include "host/job/VRKJobName.h"
#include "host/output/VRKOutputPath.h"
#include "host/output/VRKSendProgress.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "tools/vrkplot/EmptyPlotCheck.h"
#include "tools/vrkplot/TemporaryFiles.h"

namespace {

// True when both paths name the same existing file.
bool sameFile(const std::string& a, const std::string& b) {
    struct stat sa {
    }, sb{};
    return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev &&
           sa.st_ino == sb.st_ino;
}

std::string describeDocument(const std::string& document) {
    return document == "-" ? std::string("standard input") : document;
}

// "pen-up travel: 5321.4 mm before ordering, 1830.2 mm after"
void printTravel(std::ostream& out, const std::string& name, const VRKDocumentResult& result) {
    if (!result.before.has_value() || !result.after.has_value()) {
        return;
    }
    const VRKDocumentResult::Travel& b = *result.before;
    const VRKDocumentResult::Travel& a = *result.after;
    out << std::fixed << std::setprecision(1);
    out << name << ": pen-down length: " << b.penDown << " mm before ordering, " << a.penDown
        << " mm after\n";
    out << name << ": pen-up travel: " << b.penUp << " mm before ordering, " << a.penUp
        << " mm after\n";
    out << name << ": pen changes: " << b.penChanges << " before ordering, " << a.penChanges
        << " after" << std::endl;
    out << std::defaultfloat;
}

}  // namespace

bool DocumentPlotter::WritesFile(const VRKDestination& destination) {
    if (destination.kind != VRKDestination::Kind::kPath) {
        return false;
    }
    VRKOutputPath target;
    std::string ignored;
    return !target.Resolve(destination.path, ignored) ||
           target.GetKind() != VRKOutputPath::Kind::kInPlace;
}

void DocumentPlotter::ProgramError(const std::string& message) const {
    std::cerr << style_.error << style_.program << message << '\n';
}

void DocumentPlotter::Error(const std::string& message) const {
    std::cerr << style_.error << message << '\n';
}

void DocumentPlotter::Warning(const std::string& message) const {
    std::cerr << style_.warning << message << '\n';
}

DocumentPlotter::DocumentPlotter(const VRKClassEntry& language, std::vector<Settings> settings)
    : language_(language), settings_(std::move(settings)) {}

VRKBaseUnknown* DocumentPlotter::MakeGenerator() const {
    VRKBaseUnknown* generator = language_.factory != nullptr ? language_.factory() : nullptr;
    if (generator == nullptr) {
        ProgramError("cannot create a generator for the language " + language_.language);
        return nullptr;
    }
    for (const Settings& settings : settings_) {
        std::string error;
        // The reader takes the element as it is; a copy keeps ours for the next job.
        VRKLightXmlElement element = settings.element;
        if (!VRKGeneratorSettings::Read(generator, element, settings.source, error)) {
            ProgramError(error + " (language " + language_.language + ")");
            generator->Release();
            return nullptr;
        }
    }
    return generator;
}

bool DocumentPlotter::Plot(const std::string& document, const VRKDestination& destination) const {
    if (destination.kind == VRKDestination::Kind::kPath && document != "-" &&
        sameFile(document, destination.path)) {
        ProgramError(destination.path + ": the output is the document itself");
        return false;
    }
    // The document first: a file that cannot be read, or is of no format known, leaves the
    // destination untouched.
    VRKDocumentInput input;
    std::string error;
    if (!input.Open(document, error)) {
        Error(error);
        return false;
    }
    VRKDocumentReader* reader = VRKDocumentFormats::Choose(input, error);
    if (reader == nullptr) {
        Error(error);
        return false;
    }
    VRKBaseUnknown* object = MakeGenerator();
    if (object == nullptr) {
        return false;
    }
    auto* generator = dynamic_cast<VRKPrintFileGenerator*>(object);
    if (generator == nullptr) {
        object->Release();
        ProgramError("cannot create a file generator for the language " + language_.language);
        return false;
    }

    // Generators take the job name from the stream's path: a plot file is named after itself,
    // a plot sent to a plotter after its drawing, since "/dev/usb/lp0" names nothing. The
    // spooler gets it as the job's title.
    std::string jobName = jobName_;
    if (jobName.empty()) {
        jobName = WritesFile(destination) ? destination.path : describeDocument(document);
    }
    // The name goes inside the quotes of the printer's PJL lines: nothing in it may end them.
    if (const std::string changes = VRKJobName::Changes(jobName); !changes.empty()) {
        jobName = VRKJobName::Clean(jobName);
        Warning(style_.program + "the job name was cleaned for the printer (" + changes +
                "): " + jobName);
    }
    VRKJobOutput::Options options = options_;
    options.send.title = jobName;

    VRKJobOutput out;
    if (!out.Open(destination, options, error)) {
        generator->Release();
        ProgramError(error);
        return false;
    }
    TemporaryFiles::Set(out.GetTemporaryPath());
    out.GetStream().SetPath(VRKUnicodeString(jobName));
    generator->Attach(&out.GetStream());
    VRKDocumentResult result;
    const bool played = reader->Play(input, *generator, documentOptions_, result);
    generator->Attach(nullptr);
    generator->Release();
    for (const std::string& warning : result.warnings) {
        // "FILE:LINE: message", as compilers say it, for editors to jump to.
        Warning(warning);
    }

    if (!played) {
        out.Discard();
        TemporaryFiles::Set(std::string());
        Error(result.error);
        return false;
    }
    // A pen plotter's plot without a pen-down move is blank paper: said before it is written or
    // sent. A plot streamed to its destination is not read back.
    if (language_.language == "HPGL" && !out.GetTemporaryPath().empty() &&
        out.GetStream().Flush() && EmptyPlotCheck::DrawsNothing(out.GetTemporaryPath())) {
        Warning(EmptyPlotCheck::Warning(style_.program));
    }
    const bool committed = out.Commit(error);
    TemporaryFiles::Set(std::string());
    if (!committed) {
        ProgramError(error);
        return false;
    }
    if (statsReport_ != nullptr) {
        printTravel(*statsReport_, input.GetName(), result);
    }
    if (report_ != nullptr) {
        std::string where = destination.Describe();
        if (!printerName_.empty()) {
            where = "printer " + printerName_ + " at " + where;
        }
        *report_ << describeDocument(document) << " -> " << where << " (" << language_.language
                 << ", " << VRKSendProgress::FormatSize(out.GetSize()) << ")";
        if (!out.GetReceipt().empty()) {
            *report_ << ": " << out.GetReceipt();
        }
        *report_ << std::endl;
    }
    return true;
}
