#include "host/printers/VRKPrinter.h"

#include <new>
#include <utility>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/printers/VRKPrinterNames.h"
#include "host/xml/VRKGeneratorSettings.h"

VRK_DEFINE_CLASS(VRKPrinter, VRKBaseUnknown, "VRKNull", "System")

VRKPrinter::VRKPrinter(VRKUnicodeString name, VRKUnicodeString language,
                       VRKUnicodeString description, VRKUnicodeString destination,
                       const VRKLightXmlElement* settings, std::string file, int sourceLine)
    : name_(std::move(name)),
      language_(std::move(language)),
      description_(std::move(description)),
      destination_(std::move(destination)),
      settings_(settings != nullptr ? std::make_unique<VRKLightXmlElement>(*settings) : nullptr),
      file_(std::move(file)),
      sourceLine_(sourceLine) {}

VRKPrinter::~VRKPrinter() {
    if (generator_ != nullptr) {
        generator_->Release();
    }
}

std::string VRKPrinter::Where(int line) const {
    std::string where = file_;
    if (!where.empty() && line > 0) {
        where += ":" + std::to_string(line);
    }
    if (!where.empty()) {
        where += ": ";
    }
    return where + VRKPrinterNames::Label(name_.ToUtf8());
}

VRKPrintGenerator* VRKPrinter::GetGenerator() {
    if (generator_ != nullptr) {
        return generator_;
    }
    try {
        // A failure is not remembered: the language may be registered by the next call (a driver
        // loaded in between).
        error_.clear();
        generator_ = MakeGenerator();
    } catch (const std::bad_alloc&) {
        error_ = Where(sourceLine_) + ": out of memory";
    }
    return generator_;
}

VRKPrintGenerator* VRKPrinter::MakeGenerator() {
    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage(language_.ToUtf8());
    if (entry == nullptr || entry->factory == nullptr) {
        error_ = Where(sourceLine_) + ": unknown language '" + language_.ToUtf8() + "'";
        return nullptr;
    }
    VRKSmartRef<VRKBaseUnknown> object = VRKSmartRef<VRKBaseUnknown>::Adopt(entry->factory());
    auto* generator = dynamic_cast<VRKPrintGenerator*>(object.get());
    if (generator == nullptr) {
        error_ = Where(sourceLine_) + ": cannot create a print generator for the language '" +
                 language_.ToUtf8() + "'";
        return nullptr;
    }
    if (settings_ != nullptr) {
        // The reader takes an element it may change; the printer's own stays as it was read.
        VRKLightXmlElement settings = *settings_;
        const int line = settings_->GetSourceLine() > 0 ? settings_->GetSourceLine() : sourceLine_;
        if (!VRKGeneratorSettings::Read(generator, settings, Where(line), error_)) {
            return nullptr;
        }
    }
    // The printer keeps the factory's reference.
    generator->AddRef();
    return generator;
}
