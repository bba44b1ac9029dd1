#pragma once

#include <ostream>
#include <string>

#include "host/core/VRKClassEntry.h"

class VRKLightXmlElement;

// The printer languages of the loaded driver, as the class dictionary holds them.
namespace vrkplot {

// "HPGL, HPGL2, ...", or "none".
std::string knownLanguages();
// One line a language: its name, then its description at a common column.
void listLanguages(std::ostream& out);
// The language registered under `name` (letter case counts); null with `error` set when there is
// none, suggesting the language whose name differs only in letter case.
const VRKClassEntry* findLanguage(const std::string& name, std::string& error);
// The language that writes its settings as an element of `element`'s name (a settings file
// names its language by its root element); null with `error` set when none does.
const VRKClassEntry* languageOfSettings(const VRKLightXmlElement& element,
                                        const std::string& source, std::string& error);

}  // namespace vrkplot
