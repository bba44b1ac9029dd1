#pragma once

#include <string_view>
#include <vector>

#include "host/core/VRKClassEntry.h"

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

  private:
    VRKClassDictionary() = default;
    std::vector<VRKClassEntry> entries_;
};
