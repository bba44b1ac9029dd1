// Fuzz target: settings read by the settings interface of each generator.
//
// Feeds: the first byte chooses the printer language (HPGL2, HPGL, HP1000GL2, HP4000GL2), the rest
// is XML text. The text is read in both forms the host has: parsed into a light XML element and
// handed to VRKIPrtGeneratorProperties::ReadFromXml, and parsed into a DOM document whose document
// element goes to ReadFromDOM; each into a fresh generator of the language, through the
// interface a host reaches it by (property record readers of properties/).
//
// Checks: no crash, leak, undefined behaviour or hang in the XML parsers and the record readers;
// and settings that were read are written back stably: writing them, reading what was written
// into a fresh generator and writing again gives the same text, in either form.

#include <cstdint>
#include <string>
#include <string_view>

#include "FuzzSupport.h"
#include "host/core/VRKIPrtGeneratorProperties.h"
#include "host/xml/VRKDOMImplementation.h"
#include "host/xml/VRKIDOMElement.h"
#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"

namespace {

// A generator of the language with its settings record made, and its settings interface.
struct Settings {
    explicit Settings(const char* language) : generator(vrkfuzz::MakeGenerator(language)) {
        if (!generator || generator->EnsureProperties() == nullptr) {
            vrkfuzz::Broken(std::string("no generator with a record for ") + language);
        }
        settings = VRKQueryInterface<VRKIPrtGeneratorProperties>(generator.get());
        if (!settings) {
            vrkfuzz::Broken(std::string("no settings interface for ") + language);
        }
    }
    VRKSmartRef<VRKPrintGenerator> generator;
    VRKSmartRef<VRKIPrtGeneratorProperties> settings;
};

std::string WrittenAsLight(Settings& s) {
    VRKLightXmlElement written;
    if (s.settings->WriteToXml(written) != S_OK) {
        vrkfuzz::Broken("settings that were read cannot be written (light form)");
    }
    return VRKLightXmlFile::ToText(written);
}

void ReadLight(const char* language, std::string_view text) {
    VRKLightXmlElement element;
    std::string error;
    if (!VRKLightXmlFile::Parse(text, element, error)) {
        return;
    }
    Settings first(language);
    if (first.settings->ReadFromXml(element) != S_OK) {
        return;
    }
    const std::string once = WrittenAsLight(first);
    VRKLightXmlElement again;
    if (!VRKLightXmlFile::Parse(once, again, error)) {
        vrkfuzz::Broken("written settings are not XML: " + error);
    }
    Settings second(language);
    if (second.settings->ReadFromXml(again) != S_OK) {
        vrkfuzz::Broken("written settings are refused (light form):\n" + once);
    }
    const std::string twice = WrittenAsLight(second);
    if (once != twice) {
        vrkfuzz::Broken("settings change when read back (light form):\n" + once + "\n" + twice);
    }
}

// The settings written into the document element of a new document, as text.
std::string WrittenAsDOM(Settings& s, VRKIDOMDocumentRef& document) {
    document = VRKDOMImplementation::CreateDocument("Settings");
    VRKIDOMElementRef root;
    if (!document || document->GetDocumentElement(root) != S_OK || !root) {
        vrkfuzz::Broken("cannot create a DOM document");
    }
    if (s.settings->WriteToDOM(root) != S_OK) {
        vrkfuzz::Broken("settings that were read cannot be written (DOM form)");
    }
    return VRKDOMImplementation::ToText(document);
}

void ReadDOM(const char* language, std::string_view text) {
    std::string error;
    VRKIDOMDocumentRef document = VRKDOMImplementation::Parse(text, error);
    VRKIDOMElementRef root;
    if (!document || document->GetDocumentElement(root) != S_OK || !root) {
        return;
    }
    Settings first(language);
    if (first.settings->ReadFromDOM(root) != S_OK) {
        return;
    }
    VRKIDOMDocumentRef written;
    const std::string once = WrittenAsDOM(first, written);
    VRKIDOMElementRef writtenRoot;
    written->GetDocumentElement(writtenRoot);
    Settings second(language);
    if (second.settings->ReadFromDOM(writtenRoot) != S_OK) {
        vrkfuzz::Broken("written settings are refused (DOM form):\n" + once);
    }
    VRKIDOMDocumentRef rewritten;
    const std::string twice = WrittenAsDOM(second, rewritten);
    if (once != twice) {
        vrkfuzz::Broken("settings change when read back (DOM form):\n" + once + "\n" + twice);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) {
        return 0;
    }
    const char* language = vrkfuzz::kLanguages[data[0] % vrkfuzz::kLanguageCount];
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    ReadLight(language, text);
    ReadDOM(language, text);
    return 0;
}
