// vrkplot: plays job files into the generator of a printer language and writes the plot files.
//
//   vrkplot JOB... [-l LANGUAGE] [-o OUT] [--job-name NAME] [--settings FILE]
//           [--save-settings FILE]
//   vrkplot settings [-l LANGUAGE] [--settings FILE]
//   vrkplot --list-languages
//
// Exit status 0 when every job was plotted, 2 after any error (a job, a write, the command line).

#include <sys/stat.h>
#include <clocale>
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKDriverLoader.h"
#include "host/core/VRKPrintFileGenerator.h"
#include "host/job/VRKJobOutput.h"
#include "host/job/VRKJobPlayer.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"

namespace {

constexpr int kFailure = 2;
constexpr const char* kDriver = "VRKPrtDriverHPGL2";

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

// True when both paths name the same existing file.
bool sameFile(const std::string& a, const std::string& b) {
    struct stat sa {
    }, sb{};
    return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev &&
           sa.st_ino == sb.st_ino;
}

std::string knownLanguages() {
    std::string names;
    for (const VRKClassEntry& entry : VRKClassDictionary::Instance().Languages()) {
        names += names.empty() ? "" : ", ";
        names += entry.language;
    }
    return names.empty() ? std::string("none") : names;
}

void listLanguages() {
    const std::vector<VRKClassEntry> languages = VRKClassDictionary::Instance().Languages();
    std::size_t width = 0;
    for (const VRKClassEntry& entry : languages) {
        width = std::max(width, entry.language.size());
    }
    for (const VRKClassEntry& entry : languages) {
        std::cout << entry.language << std::string(width - entry.language.size() + 2, ' ')
                  << entry.description << '\n';
    }
    std::cout.flush();
}

// Plots one job file; prints the error and returns false when it cannot.
bool plot(const std::string& job, const std::string& output, const std::string& jobName,
          const VRKClassEntry& language, VRKLightXmlElement* settings,
          const std::string& settingsPath) {
    const auto fail = [&job](const std::string& message) {
        std::cerr << job << ": " << message << '\n';
        return false;
    };
    if (output != "-" && sameFile(job, output)) {
        return fail("the output '" + output + "' is the job file itself");
    }

    VRKBaseUnknown* object = language.factory();
    auto* generator = dynamic_cast<VRKPrintFileGenerator*>(object);
    if (generator == nullptr) {
        if (object != nullptr) {
            object->Release();
        }
        return fail("cannot create a file generator for the language " + language.language);
    }
    std::string error;
    if (settings != nullptr &&
        !VRKGeneratorSettings::Read(generator, *settings, settingsPath, error)) {
        generator->Release();
        return fail(error);
    }

    VRKJobOutput out;
    if (!out.Open(output, error)) {
        generator->Release();
        return fail(error);
    }
    // Generators take the job name from the stream's path.
    out.GetStream().SetPath(VRKUnicodeString(jobName));
    generator->Attach(&out.GetStream());
    VRKJobPlayer player(*generator);
    const bool played = player.PlayFile(job);
    generator->Attach(nullptr);
    generator->Release();

    if (!played) {
        out.Discard();
        std::cerr << player.GetError().ToString() << '\n';
        return false;
    }
    if (!out.Commit(error)) {
        return fail(error);
    }
    return true;
}

// A generator of the language with the settings applied, or null after printing why not.
VRKBaseUnknown* configuredGenerator(const VRKClassEntry& language, VRKLightXmlElement* settings,
                                    const std::string& settingsPath) {
    VRKBaseUnknown* generator = language.factory();
    if (generator == nullptr) {
        std::cerr << "vrkplot: cannot create a generator for the language " << language.language
                  << '\n';
        return nullptr;
    }
    std::string error;
    if (settings != nullptr &&
        !VRKGeneratorSettings::Read(generator, *settings, settingsPath, error)) {
        std::cerr << "vrkplot: " << error << " (language " << language.language << ")\n";
        generator->Release();
        return nullptr;
    }
    return generator;
}

// Prints the settings of a generator as XML on standard output.
bool printSettings(VRKBaseUnknown* generator) {
    VRKLightXmlElement element;
    std::string error;
    if (!VRKGeneratorSettings::Write(generator, element, error)) {
        std::cerr << "vrkplot: " << error << '\n';
        return false;
    }
    std::cout << VRKLightXmlFile::ToText(element);
    std::cout.flush();
    return static_cast<bool>(std::cout);
}

}  // namespace

int main(int argc, char** argv) {
    // The user's locale, for the C library's messages; numbers in job files and plots never
    // depend on it.
    std::setlocale(LC_ALL, "");

    CLI::App app{
        "Plays job files into the generator of a printer language and writes the plot "
        "files.",
        "vrkplot"};
    std::vector<std::string> jobs;
    std::string languageName = "HPGL2";
    std::string output;
    std::string jobName;
    std::string settingsPath;
    std::string saveSettingsPath;
    bool list = false;
    CLI::Option* jobsOption =
        app.add_option("JOB", jobs, "Job files to plot, one after another, each to its own file");
    app.add_option("-l,--language", languageName, "Printer language")->capture_default_str();
    CLI::Option* outputOption = app.add_option(
        "-o,--output", output,
        "Output file, only with a single job file; - for standard output (default: the job "
        "file's path with the extension .plt)");
    CLI::Option* nameOption = app.add_option(
        "--job-name", jobName, "Job name given to the generator (default: the output path)");
    CLI::Option* settingsOption = app.add_option(
        "--settings", settingsPath, "Settings file (XML) read into the generator before each job");
    CLI::Option* saveOption =
        app.add_option("--save-settings", saveSettingsPath,
                       "Writes the generator's settings, as used for the jobs, to this file (XML)");
    app.add_flag("--list-languages", list, "List the printer languages and exit")
        ->excludes(jobsOption)
        ->excludes(outputOption)
        ->excludes(nameOption)
        ->excludes(settingsOption)
        ->excludes(saveOption);

    CLI::App* settingsCommand = app.add_subcommand(
        "settings",
        "Prints a language's settings as XML: its defaults, or a settings file's "
        "values over them");
    std::string settingsLanguage = "HPGL2";
    std::string settingsCommandPath;
    settingsCommand->add_option("-l,--language", settingsLanguage, "Printer language")
        ->capture_default_str();
    CLI::Option* settingsCommandFile = settingsCommand->add_option(
        "--settings", settingsCommandPath, "Settings file (XML) read over the defaults");
    app.set_version_flag("--version", std::string("vrkplot ") + VRK_VERSION);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        // Help and version leave with status 0, every usage error with 2.
        return app.exit(e) == 0 ? 0 : kFailure;
    }

    const bool showSettings = settingsCommand->parsed();
    if (showSettings) {
        languageName = settingsLanguage;
        settingsPath = settingsCommandPath;
    }
    const bool haveSettings =
        showSettings ? settingsCommandFile->count() > 0 : settingsOption->count() > 0;
    const bool saveSettings = saveOption->count() > 0;
    if (!list && !showSettings && jobs.empty() && !saveSettings) {
        std::cerr << "vrkplot: no job file given (see --help)\n";
        return kFailure;
    }
    if (outputOption->count() > 0 && output.empty()) {
        std::cerr << "vrkplot: -o needs a file name, or - for standard output\n";
        return kFailure;
    }
    if (outputOption->count() > 0 && jobs.size() > 1) {
        std::cerr << "vrkplot: -o goes with a single job file; " << jobs.size() << " were given\n";
        return kFailure;
    }

    std::string error;
    if (!VRKDriverLoader::Load(kDriver, error)) {
        std::cerr << "vrkplot: cannot load the driver " << kDriver << ": " << error << '\n';
        return kFailure;
    }
    if (list) {
        listLanguages();
        return 0;
    }
    const VRKClassEntry* language = VRKClassDictionary::Instance().FindLanguage(languageName);
    if (language == nullptr || language->factory == nullptr) {
        std::cerr << "vrkplot: unknown language '" << languageName
                  << "'; known languages: " << knownLanguages() << '\n';
        return kFailure;
    }

    // The settings file is read, and tried on a generator of the language, before any job runs,
    // so that a bad file stops everything before a plot is written.
    VRKLightXmlElement settings;
    VRKLightXmlElement* settingsElement = nullptr;
    if (haveSettings) {
        if (!VRKLightXmlFile::Read(settingsPath, settings, error)) {
            std::cerr << "vrkplot: " << error << '\n';
            return kFailure;
        }
        settingsElement = &settings;
    }
    VRKBaseUnknown* generator = configuredGenerator(*language, settingsElement, settingsPath);
    if (generator == nullptr) {
        return kFailure;
    }
    if (showSettings) {
        const bool printed = printSettings(generator);
        generator->Release();
        return printed ? 0 : kFailure;
    }

    int status = 0;
    for (const std::string& job : jobs) {
        const std::string target = outputOption->count() > 0 ? output : defaultOutput(job);
        if (!plot(job, target, nameOption->count() > 0 ? jobName : target, *language,
                  settingsElement, settingsPath)) {
            status = kFailure;
        }
    }
    if (saveSettings && !VRKGeneratorSettings::WriteFile(generator, saveSettingsPath, error)) {
        std::cerr << "vrkplot: " << error << '\n';
        status = kFailure;
    }
    generator->Release();
    return status;
}
