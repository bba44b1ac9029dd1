#include "tools/vrkplot/Languages.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKClassDictionary.h"
#include "host/xml/VRKGeneratorSettings.h"
#include "host/xml/VRKLightXmlElement.h"

namespace vrkplot {

namespace {

bool equalIgnoringCase(const std::string& a, const std::string& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

}  // namespace

std::string knownLanguages() {
    std::string names;
    for (const VRKClassEntry& entry : VRKClassDictionary::Instance().Languages()) {
        names += names.empty() ? "" : ", ";
        names += entry.language;
    }
    return names.empty() ? std::string("none") : names;
}

void listLanguages(std::ostream& out) {
    const std::vector<VRKClassEntry> languages = VRKClassDictionary::Instance().Languages();
    std::size_t width = 0;
    for (const VRKClassEntry& entry : languages) {
        width = std::max(width, entry.language.size());
    }
    for (const VRKClassEntry& entry : languages) {
        out << entry.language << std::string(width - entry.language.size() + 2, ' ')
            << entry.description << '\n';
    }
    out.flush();
}

const VRKClassEntry* findLanguage(const std::string& name, std::string& error) {
    const VRKClassEntry* language = VRKClassDictionary::Instance().FindLanguage(name);
    if (language != nullptr && language->factory != nullptr) {
        return language;
    }
    error = "unknown language '" + name + "'";
    for (const VRKClassEntry& entry : VRKClassDictionary::Instance().Languages()) {
        if (equalIgnoringCase(entry.language, name)) {
            error += "; did you mean '" + entry.language + "'? (names are case-sensitive)";
            break;
        }
    }
    error += "; known languages: " + knownLanguages();
    return nullptr;
}

const VRKClassEntry* languageOfSettings(const VRKLightXmlElement& element,
                                        const std::string& source, std::string& error) {
    const std::string name = element.GetName().str();
    for (const VRKClassEntry& entry : VRKClassDictionary::Instance().Languages()) {
        if (entry.factory == nullptr) {
            continue;
        }
        VRKBaseUnknown* generator = entry.factory();
        if (generator == nullptr) {
            continue;
        }
        VRKLightXmlElement written;
        std::string ignored;
        const bool matches = VRKGeneratorSettings::Write(generator, written, ignored) &&
                             written.GetName().str() == name;
        generator->Release();
        if (matches) {
            return VRKClassDictionary::Instance().FindLanguage(entry.language);
        }
    }
    error = source + ": the settings element <" + name +
            "> is not the settings of any printer language; give the language with -l (known "
            "languages: " +
            knownLanguages() + ")";
    return nullptr;
}

}  // namespace vrkplot
