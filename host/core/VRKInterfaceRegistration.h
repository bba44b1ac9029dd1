#pragma once

#include <new>
#include <string>

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKInterfaceEntry.h"
#include "host/core/VRKMetaClass.h"

// A static object of this type in a library enters an interface implementation in the class
// dictionary when the library is loaded and takes it out again when it is unloaded.
class VRKInterfaceRegistration {
  public:
    explicit VRKInterfaceRegistration(const VRKInterfaceEntry& entry);
    ~VRKInterfaceRegistration();
    VRKInterfaceRegistration(const VRKInterfaceRegistration&) = delete;
    VRKInterfaceRegistration& operator=(const VRKInterfaceRegistration&) = delete;

  private:
    std::string interfaceName_;
    std::string className_;
    std::string framework_;
};

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
