#pragma once

#include <string>
#include <vector>

class VRKBaseUnknown;

// `vrkplot DOCUMENT...`: plots job files and drawings with a language or a printer, to their
// destinations.
struct PlotCommand {
    std::vector<std::string> jobs;
    // Drawings: the form (empty: the drawing's own size), its orientation, scaling to it, the
    // margins in millimetres, the order of strokes ("travel", "drawing"; empty: travel for the
    // pen plotter language HPGL, drawing for the others) and the pen's travel measured.
    std::string form;
    bool landscape = false;
    bool fit = false;
    double margins = 0;
    std::string order;
    bool stats = false;
    // PDF text: "outlines" (the glyphs filled, the default) or "labels" (the plotter's font
    // where it can stand for the text's).
    std::string text = "outlines";
    std::string language;
    std::string printer;
    std::string output;
    std::string jobName;
    std::string settingsPath;
    std::string saveSettingsPath;
    bool stream = false;
    double timeoutSeconds = 0;
    bool quiet = false;
    // Which of the options above were given.
    bool haveOutput = false;
    bool haveTimeout = false;
    bool haveJobName = false;
    bool haveSaveSettings = false;

    // Runs the command; the exit status.
    int Run() const;

    // `vrkplot settings`: prints the settings of `language` (empty: HPGL2, or the language of the
    // settings file) with the settings file (if any) read over its defaults.
    static int PrintSettings(const std::string& language, const std::string& settingsPath);
    // `vrkplot settings --edit`: opens the language's settings dialog on those settings; what OK
    // changed is written to the settings file (or printed when there is none).
    static int EditSettings(const std::string& language, const std::string& settingsPath);
    // The generator of `language` with the settings file read over its defaults (a file that
    // does not exist yet is taken as empty when `mayBeNew`); null with `error` when it fails.
    static VRKBaseUnknown* SettingsGenerator(const std::string& language,
                                             const std::string& settingsPath, bool mayBeNew,
                                             std::string& error);
};
