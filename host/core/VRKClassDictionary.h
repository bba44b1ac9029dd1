#pragma once

#include <string_view>
#include <vector>

#include "host/core/VRKClassEntry.h"
#include "host/core/VRKInterfaceEntry.h"
#include "host/core/VRKSmartRef.h"

class VRKBaseUnknown;

// The process-wide dictionary of classes that libraries register when they are loaded. A host finds
// a class's factory by name, and a print generator by its printer language, here; nothing in a
// host names a driver's classes directly.
class VRKClassDictionary {
  public:
    static VRKClassDictionary& Instance();

    // Adds a class; a second registration of the same class name in the same framework replaces
    // the first (a library loaded twice registers the same factories again).
    void Register(const VRKClassEntry& entry);
    void Unregister(std::string_view className, std::string_view framework);

    const VRKClassEntry* FindClass(std::string_view className,
                                   std::string_view framework = "Print") const;
    const VRKClassEntry* FindLanguage(std::string_view language,
                                      std::string_view framework = "Print") const;

    // Every registered print generator, in order of language name.
    std::vector<VRKClassEntry> Languages(std::string_view framework = "Print") const;

    // Creates an instance through the registered factory, or returns null.
    VRKBaseUnknown* Create(std::string_view className, std::string_view framework = "Print") const;

    // Interfaces. A second registration of the same interface for the same class replaces the
    // first.
    void RegisterInterface(const VRKInterfaceEntry& entry);
    void UnregisterInterface(std::string_view interfaceName, std::string_view className,
                             std::string_view framework);
    // The implementation registered for exactly this class, or null.
    const VRKInterfaceEntry* FindInterface(std::string_view className,
                                           std::string_view interfaceName,
                                           std::string_view framework = "Print") const;
    // The interface on an object: the implementation registered for the object's class or, failing
    // that, for the nearest base class, bound to the object and wrapped in its TIE. The result
    // carries one reference for the caller; null when no class on the way implements it.
    VRKBaseUnknown* QueryInterface(VRKBaseUnknown* object, std::string_view interfaceName,
                                   std::string_view framework = "Print") const;
    // The interface of a class rather than of an object: a TIE over a fresh implementation bound
    // to nothing (a marshaller, say, which is then given its data). Null when the class does not
    // implement the interface.
    VRKBaseUnknown* GetClassInterface(std::string_view className, std::string_view interfaceName,
                                      std::string_view framework = "Print") const;

  private:
    VRKClassDictionary() = default;
    VRKBaseUnknown* createTie(const VRKInterfaceEntry& entry, VRKBaseUnknown* object) const;

    std::vector<VRKClassEntry> entries_;
    std::vector<VRKInterfaceEntry> interfaces_;
};

// The interface I (a class with a static kInterfaceName that derives from VRKBaseUnknown) on an
// object, or an empty reference.
template <typename I>
VRKSmartRef<I> VRKQueryInterface(VRKBaseUnknown* object) {
    VRKBaseUnknown* tie = VRKClassDictionary::Instance().QueryInterface(object, I::kInterfaceName);
    return VRKSmartRef<I>::Adopt(static_cast<I*>(tie));
}

// The interface I of a class, over a fresh implementation, or an empty reference.
template <typename I>
VRKSmartRef<I> VRKGetClassInterface(std::string_view className) {
    VRKBaseUnknown* tie =
        VRKClassDictionary::Instance().GetClassInterface(className, I::kInterfaceName);
    return VRKSmartRef<I>::Adopt(static_cast<I*>(tie));
}
