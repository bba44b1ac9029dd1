#include "tools/vrkplot/PrintersCommand.h"

#include <algorithm>
#include <iostream>
#include <vector>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKRawCollPV.h"
#include "host/output/VRKDestination.h"
#include "host/printers/VRKPrinter.h"
#include "host/printers/VRKPrinterManager.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"
#include "tools/vrkplot/Languages.h"
#include "tools/vrkplot/SettingsEditing.h"

namespace {

constexpr int kFailure = 2;

int fail(const std::string& message) {
    std::cerr << "vrkplot: " << message << '\n';
    return kFailure;
}

}  // namespace

int PrintersCommand::Run() const {
    if (add.has_value()) {
        return Add();
    }
    if (edit.has_value()) {
        return Edit();
    }
    if (remove.has_value()) {
        return Remove();
    }
    return List();
}

int PrintersCommand::List() const {
    VRKPrinterManager manager;
    if (!manager.Begin()) {
        return fail(manager.GetError());
    }
    VRKRawCollPV printers;
    manager.GetPrinterList(printers);
    if (printers.Size() == 0) {
        manager.End();
        if (!quiet) {
            std::cerr << "vrkplot: no printers in " << manager.GetPath()
                      << " (add one with: vrkplot printers --add NAME -l LANGUAGE --destination "
                         "DEST)\n";
        }
        return 0;
    }
    // Columns: name, language and destination, each as wide as its longest entry, then the
    // description, which is free text.
    std::vector<std::vector<std::string>> rows{{"NAME", "LANGUAGE", "DESTINATION", "DESCRIPTION"}};
    for (int i = 1; i <= printers.Size(); ++i) {
        const auto* printer = static_cast<const VRKPrinter*>(printers[i]);
        rows.push_back({printer->GetName().ToUtf8(), printer->GetLanguage().ToUtf8(),
                        printer->GetDestination().ToUtf8(), printer->GetDescription().ToUtf8()});
    }
    manager.End();
    std::size_t widths[3] = {};
    for (const auto& row : rows) {
        for (std::size_t c = 0; c < 3; ++c) {
            widths[c] = std::max(widths[c], row[c].size());
        }
    }
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t c = 0; c < 3; ++c) {
            line += row[c] + std::string(widths[c] - row[c].size() + 2, ' ');
        }
        line += row[3];
        line.erase(line.find_last_not_of(' ') + 1);
        std::cout << line << '\n';
    }
    std::cout.flush();
    return std::cout ? 0 : kFailure;
}

int PrintersCommand::Add() const {
    std::string error;
    VRKDestination parsed;
    if (!VRKDestination::Parse(destination, parsed, error)) {
        return fail("destination '" + destination + "': " + error);
    }

    // The settings are those of a generator of the language: the defaults, with the settings
    // file read over them, written out whole so that the list shows every value to edit.
    VRKLightXmlElement file;
    if (!settingsPath.empty() && !VRKLightXmlFile::Read(settingsPath, file, error)) {
        return fail(error);
    }
    const VRKClassEntry* entry = nullptr;
    if (!language.empty()) {
        entry = vrkplot::findLanguage(language, error);
    } else if (!settingsPath.empty()) {
        entry = vrkplot::languageOfSettings(file, settingsPath, error);
    } else {
        error = "a printer needs a language: give it with -l (known languages: " +
                vrkplot::knownLanguages() + ")";
    }
    if (entry == nullptr) {
        return fail(error);
    }
    VRKBaseUnknown* generator = entry->factory();
    if (generator == nullptr) {
        return fail("cannot create a generator for the language " + entry->language);
    }
    VRKLightXmlElement settings;
    const bool made = (settingsPath.empty() ||
                       VRKGeneratorSettings::Read(generator, file, settingsPath, error)) &&
                      VRKGeneratorSettings::Write(generator, settings, error);
    generator->Release();
    if (!made) {
        return fail(error + " (language " + entry->language + ")");
    }

    VRKPrinterManager manager;
    if (!manager.Begin()) {
        return fail(manager.GetError());
    }
    const bool added =
        manager.Add(*add, entry->language, description, destination, &settings, error) &&
        manager.Save(error);
    manager.End();
    if (!added) {
        return fail(error);
    }
    if (!quiet) {
        std::cout << "printer " << *add << " (" << entry->language << ", " << destination
                  << ") added to " << manager.GetPath() << std::endl;
    }
    return 0;
}

int PrintersCommand::Remove() const {
    VRKPrinterManager manager;
    if (!manager.Begin()) {
        return fail(manager.GetError());
    }
    std::string error;
    const bool removed = manager.Remove(*remove, error) && manager.Save(error);
    manager.End();
    if (!removed) {
        return fail(error);
    }
    if (!quiet) {
        std::cout << "printer " << *remove << " removed from " << manager.GetPath() << std::endl;
    }
    return 0;
}

int PrintersCommand::Edit() const {
    VRKPrinterManager manager;
    if (!manager.Begin()) {
        return fail(manager.GetError());
    }
    std::string error;
    VRKPrinter* printer = manager.Find(*edit);
    if (printer == nullptr) {
        manager.End();
        return fail(manager.GetPath() + ": no printer '" + *edit + "' in the list");
    }
    VRKPrintGenerator* generator = printer->GetGenerator();
    if (generator == nullptr) {
        const std::string why = printer->GetError();
        manager.End();
        return fail(why);
    }
    bool changed = false;
    VRKLightXmlElement settings;
    int status = vrkplot::EditInDialog(generator, changed, settings);
    if (status == 0 && changed) {
        if (manager.ReplaceSettings(*edit, settings, error) && manager.Save(error)) {
            if (!quiet) {
                std::cout << "printer " << *edit << ": settings written to " << manager.GetPath()
                          << std::endl;
            }
        } else {
            status = fail(error);
        }
    }
    manager.End();
    return status;
}
