#pragma once

#include <string>

class VRKBaseUnknown;
class VRKLightXmlElement;

// A generator's settings and settings files: reads a file into the generator's record and writes
// the record out, through the generator's settings interface and the light XML model. Every
// function returns false with a message that names the file and the reason.
class VRKGeneratorSettings {
  public:
    // Reads the settings file's element into the generator's record. Fails when the file cannot
    // be read, is not XML, or holds an element that the generator refuses (the element of another
    // printer language). Missing attributes and unknown values are not failures: they leave
    // those settings as they were.
    static bool ReadFile(VRKBaseUnknown* generator, const std::string& path, std::string& error);
    // Reads an element (already parsed) into the generator's record; `source` names it in errors.
    static bool Read(VRKBaseUnknown* generator, VRKLightXmlElement& element,
                     const std::string& source, std::string& error);
    // The generator's settings as an element.
    static bool Write(VRKBaseUnknown* generator, VRKLightXmlElement& element, std::string& error);
    // Writes them to a file, whole or not at all.
    static bool WriteFile(VRKBaseUnknown* generator, const std::string& path, std::string& error);
};
