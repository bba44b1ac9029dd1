#pragma once

#include <string>

class VRKBaseUnknown;
class VRKDataExtension;

// Creates a new implementation object (an extension, not yet bound), or returns null.
using VRKExtensionFactory = VRKDataExtension* (*)();
// Wraps an implementation in the TIE object of an interface: the TIE takes a reference to the
// implementation and is returned with one reference for the caller, or null.
using VRKTieFactory = VRKBaseUnknown* (*)(VRKDataExtension* implementation);

// One "class X implements interface I through implementation class Y" fact of the class
// dictionary.
struct VRKInterfaceEntry {
    std::string interfaceName;       // "VRKIPrtGeneratorProperties"
    std::string className;           // the class that gains the interface
    std::string implementationName;  // the extension class that implements it
    std::string framework;           // "Print"
    VRKExtensionFactory createImplementation = nullptr;
    VRKTieFactory createTie = nullptr;
};
