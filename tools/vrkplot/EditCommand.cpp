// `vrkplot settings --edit`: the language's settings dialog on a settings file. The dialogs and
// the widget toolkit come in a library of their own, loaded here only.

#include <iostream>
#include <string>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKDriverLoader.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "host/xml/VRKLightXmlFile.h"
#include "tools/vrkplot/PlotCommand.h"
#include "tools/vrkplot/SettingsEditing.h"
#include "tools/vrkplot/SettingsEditor.h"

namespace {

constexpr int kFailure = 2;

int fail(const std::string& message) {
    std::cerr << "vrkplot: " << message << '\n';
    return kFailure;
}

// The settings as text, to tell whether the dialog changed them.
bool settingsText(VRKBaseUnknown* generator, std::string& text, std::string& error) {
    VRKLightXmlElement element;
    if (!VRKGeneratorSettings::Write(generator, element, error)) {
        return false;
    }
    text = VRKLightXmlFile::ToText(element);
    return true;
}

// Releases the objects of the host's object model it holds.
struct Released {
    VRKBaseUnknown* object;
    ~Released() {
        if (object != nullptr) {
            object->Release();
        }
    }
};

}  // namespace

int vrkplot::EditInDialog(VRKBaseUnknown* generator, bool& changed, VRKLightXmlElement& settings) {
    std::string error;
    auto* printGenerator = dynamic_cast<VRKPrintGenerator*>(generator);
    std::string before;
    if (printGenerator == nullptr || !settingsText(generator, before, error)) {
        return fail(error.empty() ? "the language has no settings" : error);
    }
    if (!VRKDriverLoader::Load("VRKPlotEdit", error)) {
        return fail("cannot load the settings dialogs: " + error);
    }
    const Released editor{
        VRKClassDictionary::Instance().Create("VRKPlotSettingsEditor", "vrkplot")};
    if (editor.object == nullptr) {
        return fail("the settings dialogs are not installed");
    }
    // The library registers exactly this class, made from this interface.
    auto* settingsEditor = static_cast<SettingsEditor*>(editor.object);
    std::string why;
    switch (settingsEditor->Edit(*printGenerator, why)) {
        case SettingsEditor::kNoDisplay:
            return fail("cannot show the settings dialog: " + why);
        case SettingsEditor::kNoDialog:
            return fail(why);
        case SettingsEditor::kEdited:
            break;
    }
    std::string after;
    if (!VRKGeneratorSettings::Write(generator, settings, error)) {
        return fail(error);
    }
    after = VRKLightXmlFile::ToText(settings);
    changed = after != before;
    if (!changed) {
        std::cerr << "vrkplot: the settings are unchanged\n";
    }
    return 0;
}

int PlotCommand::EditSettings(const std::string& language, const std::string& settingsPath) {
    std::string error;
    const Released generator{SettingsGenerator(language, settingsPath, true, error)};
    if (generator.object == nullptr) {
        return error.empty() ? kFailure : fail(error);
    }
    bool changed = false;
    VRKLightXmlElement settings;
    if (const int status = vrkplot::EditInDialog(generator.object, changed, settings);
        status != 0 || !changed) {
        return status;
    }
    if (settingsPath.empty()) {
        std::cout << VRKLightXmlFile::ToText(settings);
        std::cout.flush();
        return std::cout ? 0 : kFailure;
    }
    if (!VRKGeneratorSettings::WriteFile(generator.object, settingsPath, error)) {
        return fail(error);
    }
    std::cerr << "vrkplot: settings written to " << settingsPath << '\n';
    return 0;
}
