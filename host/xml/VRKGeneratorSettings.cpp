#include "host/xml/VRKGeneratorSettings.h"

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKIPrtGeneratorProperties.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"

namespace {

// The settings interface of a generator that has a record (created with defaults if the
// generator makes its record only for a job), or an empty reference with the reason.
VRKSmartRef<VRKIPrtGeneratorProperties> settingsOf(VRKBaseUnknown* generator, std::string& error) {
    auto* printGenerator = dynamic_cast<VRKPrintGenerator*>(generator);
    if (printGenerator == nullptr) {
        error = "not a print generator";
        return {};
    }
    if (printGenerator->EnsureProperties() == nullptr) {
        error = std::string(generator->IsA()) + " has no settings record";
        return {};
    }
    VRKSmartRef<VRKIPrtGeneratorProperties> settings =
        VRKQueryInterface<VRKIPrtGeneratorProperties>(generator);
    if (!settings) {
        error = std::string(generator->IsA()) + " has no settings interface";
    }
    return settings;
}

}  // namespace

bool VRKGeneratorSettings::Read(VRKBaseUnknown* generator, VRKLightXmlElement& element,
                                const std::string& source, std::string& error) {
    VRKSmartRef<VRKIPrtGeneratorProperties> settings = settingsOf(generator, error);
    if (!settings) {
        error = source + ": " + error;
        return false;
    }
    if (settings->ReadFromXml(element) != S_OK) {
        error = source + ": the settings element <" + element.GetName().str() +
                "> is not one that " + generator->IsA() + " reads";
        return false;
    }
    return true;
}

bool VRKGeneratorSettings::ReadFile(VRKBaseUnknown* generator, const std::string& path,
                                    std::string& error) {
    VRKLightXmlElement element;
    return VRKLightXmlFile::Read(path, element, error) && Read(generator, element, path, error);
}

bool VRKGeneratorSettings::Write(VRKBaseUnknown* generator, VRKLightXmlElement& element,
                                 std::string& error) {
    VRKSmartRef<VRKIPrtGeneratorProperties> settings = settingsOf(generator, error);
    if (!settings) {
        return false;
    }
    element.Clear();
    if (settings->WriteToXml(element) != S_OK) {
        error = std::string(generator->IsA()) + " cannot write its settings";
        return false;
    }
    return true;
}

bool VRKGeneratorSettings::WriteFile(VRKBaseUnknown* generator, const std::string& path,
                                     std::string& error) {
    VRKLightXmlElement element;
    if (!Write(generator, element, error)) {
        error = path + ": " + error;
        return false;
    }
    return VRKLightXmlFile::Write(path, element, error);
}
