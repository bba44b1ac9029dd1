#include "host/core/VRKClassDictionary.h"

#include <algorithm>

#include "host/core/VRKClassRegistration.h"

VRKClassDictionary& VRKClassDictionary::Instance() {
    static VRKClassDictionary dictionary;
    return dictionary;
}

void VRKClassDictionary::Register(const VRKClassEntry& entry) {
    Unregister(entry.className, entry.framework);
    entries_.push_back(entry);
}

void VRKClassDictionary::Unregister(std::string_view className, std::string_view framework) {
    std::erase_if(entries_, [&](const VRKClassEntry& e) {
        return e.className == className && e.framework == framework;
    });
}

const VRKClassEntry* VRKClassDictionary::FindClass(std::string_view className,
                                                   std::string_view framework) const {
    for (const VRKClassEntry& e : entries_) {
        if (e.className == className && e.framework == framework) {
            return &e;
        }
    }
    return nullptr;
}

const VRKClassEntry* VRKClassDictionary::FindLanguage(std::string_view language,
                                                      std::string_view framework) const {
    if (language.empty()) {
        return nullptr;
    }
    for (const VRKClassEntry& e : entries_) {
        if (e.language == language && e.framework == framework) {
            return &e;
        }
    }
    return nullptr;
}

std::vector<VRKClassEntry> VRKClassDictionary::Languages(std::string_view framework) const {
    std::vector<VRKClassEntry> result;
    for (const VRKClassEntry& e : entries_) {
        if (!e.language.empty() && e.framework == framework) {
            result.push_back(e);
        }
    }
    std::sort(result.begin(), result.end(), [](const VRKClassEntry& a, const VRKClassEntry& b) {
        return a.language < b.language;
    });
    return result;
}

VRKBaseUnknown* VRKClassDictionary::Create(std::string_view className,
                                           std::string_view framework) const {
    const VRKClassEntry* entry = FindClass(className, framework);
    if (entry == nullptr || entry->factory == nullptr) {
        return nullptr;
    }
    return entry->factory();
}

VRKClassRegistration::VRKClassRegistration(const VRKClassEntry& entry)
    : className_(entry.className), framework_(entry.framework) {
    VRKClassDictionary::Instance().Register(entry);
}

VRKClassRegistration::~VRKClassRegistration() {
    VRKClassDictionary::Instance().Unregister(className_, framework_);
}
