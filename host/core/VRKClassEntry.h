#pragma once

#include <string>

class VRKBaseUnknown;

// Creates a new object with one reference, or returns null when it cannot.
using VRKFactoryFunction = VRKBaseUnknown* (*)();

// One class known to the class dictionary. `language` is set for print generators: the printer
// language under which a host offers the generator (for example "HPGL2"), with a one-line
// `description` of what the language is for.
struct VRKClassEntry {
    std::string className;
    std::string framework;
    VRKFactoryFunction factory = nullptr;
    std::string language;
    std::string description;
};
