#include "tools/vrkplot/PlotCommand.h"

#include <filesystem>
#include <iostream>
#include <optional>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKRawCollPV.h"
#include "host/drawing/VRKDrawingLayout.h"
#include "host/input/VRKDocumentOptions.h"
#include "host/output/VRKDestination.h"
#include "host/printers/VRKPrinter.h"
#include "host/printers/VRKPrinterManager.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "host/xml/VRKLightXmlFile.h"
#include "tools/vrkplot/DocumentPlotter.h"
#include "tools/vrkplot/Languages.h"

namespace {

constexpr int kFailure = 2;
constexpr const char* kDefaultLanguage = "HPGL2";
// Seconds a printer's TCP port may keep us waiting by default.
constexpr double kSocketTimeout = 30;

int fail(const std::string& message) {
    std::cerr << "vrkplot: " << message << '\n';
    return kFailure;
}

// The output a job file gets without -o: its path with the extension replaced by ".plt", or
// ".plt" added when the file name has none. A leading dot does not start an extension.
std::string defaultOutput(const std::string& job) {
    const std::size_t slash = job.find_last_of('/');
    const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t dot = job.find_last_of('.');
    if (dot != std::string::npos && dot > nameStart) {
        return job.substr(0, dot) + ".plt";
    }
    return job + ".plt";
}

// The language of the command: -l, else the printer's, else the settings file's, else HPGL2.
const VRKClassEntry* chooseLanguage(const std::string& language, const VRKLightXmlElement* file,
                                    const std::string& settingsPath, std::string& error) {
    if (!language.empty()) {
        return vrkplot::findLanguage(language, error);
    }
    if (file != nullptr) {
        return vrkplot::languageOfSettings(*file, settingsPath, error);
    }
    return vrkplot::findLanguage(kDefaultLanguage, error);
}

}  // namespace

int PlotCommand::Run() const {
    if (jobs.empty() && !haveSaveSettings) {
        return fail("no job file or drawing given (see --help)");
    }
    if (haveOutput && output.empty()) {
        return fail("-o needs a file name, or - for standard output");
    }

    // The printer: its language, settings and destination.
    std::vector<DocumentPlotter::Settings> settings;
    std::string languageName = language;
    std::optional<VRKDestination> destination;
    // Where the printer's language and settings come from, for messages about them.
    std::string printerSource;
    std::string error;
    if (!printer.empty()) {
        VRKPrinterManager manager;
        if (!manager.Begin()) {
            return fail(manager.GetError());
        }
        const VRKPrinter* found = manager.Find(printer);
        if (found == nullptr) {
            std::string message = "no printer '" + printer + "' in " + manager.GetPath();
            VRKRawCollPV list;
            manager.GetPrinterList(list);
            std::string names;
            for (int i = 1; i <= list.Size(); ++i) {
                names += (names.empty() ? "" : ", ") +
                         static_cast<const VRKPrinter*>(list[i])->GetName().ToUtf8();
            }
            manager.End();
            return fail(message + (names.empty() ? std::string(" (the list is empty; see "
                                                               "'vrkplot printers --help')")
                                                 : "; printers: " + names));
        }
        languageName = found->GetLanguage().ToUtf8();
        printerSource = found->Describe();
        if (found->GetSettings() != nullptr) {
            settings.push_back({*found->GetSettings(), printerSource});
        }
        if (!haveOutput) {
            destination.emplace();
            if (!VRKDestination::Parse(found->GetDestination().ToUtf8(), *destination, error)) {
                manager.End();
                return fail(printerSource + ": destination '" + found->GetDestination().ToUtf8() +
                            "': " + error);
            }
        }
        manager.End();
    }

    // The settings file, read and tried before any job runs so that a bad file stops everything
    // before a plot is written.
    VRKLightXmlElement file;
    if (!settingsPath.empty()) {
        if (!VRKLightXmlFile::Read(settingsPath, file, error)) {
            return fail(error);
        }
    }
    const VRKClassEntry* entry =
        chooseLanguage(languageName, settingsPath.empty() ? nullptr : &file, settingsPath, error);
    if (entry == nullptr) {
        return fail(printerSource.empty() ? error : printerSource + ": " + error);
    }
    if (!settingsPath.empty()) {
        settings.push_back({file, settingsPath});
    }
    VRKDocumentOptions documentOptions;
    if (!form.empty()) {
        VRKDrawingLayout::Form parsed;
        if (!VRKDrawingLayout::ParseForm(form, parsed, error)) {
            return fail(error);
        }
        documentOptions.layout.form = parsed;
    }
    documentOptions.layout.landscape = landscape;
    documentOptions.layout.fit = fit;
    documentOptions.layout.margins = static_cast<float>(margins);
    // A pen plotter's pen-up moves cost time and wear; the printers draw a page at once.
    documentOptions.orderForTravel =
        order.empty() ? entry->language == std::string("HPGL") : order == "travel";
    documentOptions.stats = stats;
    documentOptions.textLabels = text == "labels";

    DocumentPlotter plotter(*entry, settings);
    plotter.SetDocumentOptions(documentOptions);
    VRKBaseUnknown* generator = plotter.MakeGenerator();
    if (generator == nullptr) {
        return kFailure;
    }

    if (haveOutput) {
        destination.emplace();
        if (!VRKDestination::Parse(output, *destination, error)) {
            generator->Release();
            return fail(output + ": " + error);
        }
    }
    if (destination.has_value() && jobs.size() > 1 && DocumentPlotter::WritesFile(*destination)) {
        generator->Release();
        if (haveOutput) {
            return fail("-o goes with a single job file when it names a file; " +
                        std::to_string(jobs.size()) + " were given");
        }
        return fail("printer '" + printer + "' writes to the file '" + destination->path +
                    "': give one job file at a time");
    }

    VRKJobOutput::Options options;
    options.stream = stream;
    options.progress = !quiet;
    bool toStandardOutput = false;
    for (const std::string& job : jobs) {
        toStandardOutput =
            toStandardOutput ||
            (destination.has_value() ? destination->kind == VRKDestination::Kind::kStandardOutput
                                     : job == "-");
    }
    // What was done is said on standard output, unless a plot goes there. A plot there owns it:
    // the lines the driver prints itself (the pen table it reads) then go to standard error.
    plotter.SetReport(quiet ? nullptr : toStandardOutput ? &std::cerr : &std::cout);
    plotter.SetStatsReport(!stats ? nullptr : toStandardOutput ? &std::cerr : &std::cout);
    std::streambuf* const standardOutput =
        toStandardOutput ? std::cout.rdbuf(std::cerr.rdbuf()) : nullptr;
    plotter.SetPrinterName(printer);
    if (haveJobName) {
        plotter.SetJobName(jobName);
    }

    int status = 0;
    for (const std::string& job : jobs) {
        const VRKDestination target =
            destination.has_value()
                ? *destination
                : VRKDestination::ForPath(job == "-" ? "-" : defaultOutput(job));
        options.send.timeoutSeconds =
            haveTimeout ? timeoutSeconds
                        : (target.kind == VRKDestination::Kind::kSocket ? kSocketTimeout : 0);
        plotter.SetOptions(options);
        if (!plotter.Plot(job, target)) {
            status = kFailure;
        }
    }
    if (standardOutput != nullptr) {
        std::cout.rdbuf(standardOutput);
    }
    if (haveSaveSettings && !VRKGeneratorSettings::WriteFile(generator, saveSettingsPath, error)) {
        std::cerr << "vrkplot: " << error << '\n';
        status = kFailure;
    }
    generator->Release();
    return status;
}

VRKBaseUnknown* PlotCommand::SettingsGenerator(const std::string& language,
                                               const std::string& settingsPath, bool mayBeNew,
                                               std::string& error) {
    VRKLightXmlElement file;
    // A settings file that does not exist yet starts from the language's defaults, when asked.
    const bool readFile =
        !settingsPath.empty() && !(mayBeNew && !std::filesystem::exists(settingsPath));
    if (readFile && !VRKLightXmlFile::Read(settingsPath, file, error)) {
        return nullptr;
    }
    const VRKClassEntry* entry =
        chooseLanguage(language, readFile ? &file : nullptr, settingsPath, error);
    if (entry == nullptr) {
        return nullptr;
    }
    std::vector<DocumentPlotter::Settings> settings;
    if (readFile) {
        settings.push_back({file, settingsPath});
    }
    return DocumentPlotter(*entry, settings).MakeGenerator();
}

int PlotCommand::PrintSettings(const std::string& language, const std::string& settingsPath) {
    std::string error;
    VRKBaseUnknown* generator = SettingsGenerator(language, settingsPath, false, error);
    if (generator == nullptr) {
        return error.empty() ? kFailure : fail(error);
    }
    VRKLightXmlElement element;
    const bool written = VRKGeneratorSettings::Write(generator, element, error);
    generator->Release();
    if (!written) {
        return fail(error);
    }
    std::cout << VRKLightXmlFile::ToText(element);
    std::cout.flush();
    return std::cout ? 0 : kFailure;
}
