#include "tools/vrkplot-cups/PpdRequest.h"

#include <cups/cups.h>
#include <cups/ppd.h>

// The spooler's PPD interface is marked deprecated in favour of its IPP destination interface,
// which asks a running spooler; a filter gets a PPD file and reads it. The warning is silenced
// for this file only, the one that uses that interface.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace PpdRequest {

bool Read(const std::string& path, const std::string& options, CupsJobRequest& request,
          std::string& error) {
    ppd_file_t* ppd = ppdOpenFile(path.c_str());
    if (ppd == nullptr) {
        int line = 0;
        const ppd_status_t status = ppdLastError(&line);
        error = "cannot read the PPD file " + path + ": " + ppdErrorString(status) +
                (line > 0 ? " (line " + std::to_string(line) + ")" : std::string());
        return false;
    }
    const ppd_attr_t* language = ppdFindAttr(ppd, "VRKLanguage", nullptr);
    if (language == nullptr || language->value == nullptr) {
        ppdClose(ppd);
        error = "the PPD file " + path + " names no printer language (*VRKLanguage)";
        return false;
    }
    request.language = language->value;

    ppdMarkDefaults(ppd);
    cups_option_t* parsed = nullptr;
    const int count = cupsParseOptions(options.c_str(), 0, &parsed);
    cupsMarkOptions(ppd, count, parsed);
    for (int i = 0; i < count; ++i) {
        request.options[parsed[i].name] = parsed[i].value != nullptr ? parsed[i].value : "";
    }
    cupsFreeOptions(count, parsed);

    for (ppd_option_t* option = ppdFirstOption(ppd); option != nullptr;
         option = ppdNextOption(ppd)) {
        if (const ppd_choice_t* choice = ppdFindMarkedChoice(ppd, option->keyword)) {
            request.choices[option->keyword] = choice->choice;
        }
    }
    if (const ppd_size_t* size = ppdPageSize(ppd, nullptr)) {
        request.pageSize = CupsPageSize{size->name, size->width, size->length, size->left};
    }
    ppdClose(ppd);
    return true;
}

}  // namespace PpdRequest
