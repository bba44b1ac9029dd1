#pragma once

#include <new>
#include <string>

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKDictionaryRegistration.h"
#include "host/core/VRKInterfaceEntry.h"
#include "host/core/VRKMetaClass.h"

// Enters an interface implementation in the class dictionary and takes it out again.
void VRKEnterInDictionary(const VRKInterfaceEntry& entry);
void VRKRemoveFromDictionary(const VRKInterfaceEntry& entry);

// A static object of this type in a library registers an interface implementation while the
// library is loaded.
using VRKInterfaceRegistration = VRKDictionaryRegistration<VRKInterfaceEntry>;

// The entry of an extension class that implements an interface for the class it extends, with the
// names its meta class was defined with (VRK_DEFINE_CLASS): the extended class, the extension's
// own name and the framework. Its implementations are made with new; `createTie` wraps one.
template <typename Extension>
VRKInterfaceEntry VRKExtensionEntry(const char* interfaceName, VRKTieFactory createTie) {
    const VRKMetaClass* meta = Extension::MetaObject();
    return {interfaceName,
            meta->GetExtension(),
            meta->GetClassName(),
            meta->GetFramework(),
            []() -> VRKDataExtension* { return new (std::nothrow) Extension; },
            createTie};
}
