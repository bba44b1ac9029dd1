#include "host/core/VRKClassDictionary.h"

#include <algorithm>

#include "host/core/VRKClassRegistration.h"
#include "host/core/VRKDataExtension.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKMetaClass.h"

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

void VRKEnterInDictionary(const VRKClassEntry& entry) {
    VRKClassDictionary::Instance().Register(entry);
}

void VRKRemoveFromDictionary(const VRKClassEntry& entry) {
    VRKClassDictionary::Instance().Unregister(entry.className, entry.framework);
}

void VRKClassDictionary::RegisterInterface(const VRKInterfaceEntry& entry) {
    UnregisterInterface(entry.interfaceName, entry.className, entry.framework);
    interfaces_.push_back(entry);
}

void VRKClassDictionary::UnregisterInterface(std::string_view interfaceName,
                                             std::string_view className,
                                             std::string_view framework) {
    std::erase_if(interfaces_, [&](const VRKInterfaceEntry& e) {
        return e.interfaceName == interfaceName && e.className == className &&
               e.framework == framework;
    });
}

const VRKInterfaceEntry* VRKClassDictionary::FindInterface(std::string_view className,
                                                           std::string_view interfaceName,
                                                           std::string_view framework) const {
    for (const VRKInterfaceEntry& e : interfaces_) {
        if (e.className == className && e.interfaceName == interfaceName &&
            e.framework == framework) {
            return &e;
        }
    }
    return nullptr;
}

VRKBaseUnknown* VRKClassDictionary::createTie(const VRKInterfaceEntry& entry,
                                              VRKBaseUnknown* object) const {
    if (entry.createImplementation == nullptr || entry.createTie == nullptr) {
        return nullptr;
    }
    VRKDataExtension* implementation = entry.createImplementation();
    if (implementation == nullptr) {
        return nullptr;
    }
    implementation->SetImpl(object);
    VRKBaseUnknown* tie = entry.createTie(implementation);
    // The TIE holds its own reference; ours goes whether or not the TIE came to be.
    implementation->Release();
    return tie;
}

VRKBaseUnknown* VRKClassDictionary::QueryInterface(VRKBaseUnknown* object,
                                                   std::string_view interfaceName,
                                                   std::string_view framework) const {
    if (object == nullptr) {
        return nullptr;
    }
    for (const VRKMetaClass* meta = object->GetMetaObject(); meta != nullptr;
         meta = meta->GetBase()) {
        if (const VRKInterfaceEntry* entry =
                FindInterface(meta->GetClassName(), interfaceName, framework)) {
            return createTie(*entry, object);
        }
    }
    return nullptr;
}

VRKBaseUnknown* VRKClassDictionary::GetClassInterface(std::string_view className,
                                                      std::string_view interfaceName,
                                                      std::string_view framework) const {
    const VRKInterfaceEntry* entry = FindInterface(className, interfaceName, framework);
    return entry != nullptr ? createTie(*entry, nullptr) : nullptr;
}

void VRKEnterInDictionary(const VRKInterfaceEntry& entry) {
    VRKClassDictionary::Instance().RegisterInterface(entry);
}

void VRKRemoveFromDictionary(const VRKInterfaceEntry& entry) {
    VRKClassDictionary::Instance().UnregisterInterface(entry.interfaceName, entry.className,
                                                       entry.framework);
}
