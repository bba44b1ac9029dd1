#pragma once

#include <memory>
#include <string>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKUnicodeString.h"
#include "host/xml/VRKLightXmlElement.h"

class VRKPrintGenerator;

// One printer of the user's printer list: its name, printer language, description, destination
// and, optionally, the settings element of its language.
//
// A printer is a counted object of the host's object model, like the generator it hands out: the
// printer manager holds one reference to each printer it lists and gives them back in End(), and a
// host that wants to keep a printer longer (a print dialog open while the list is read again, a
// job still running) takes a reference of its own with AddRef() and gives it back with Release().
// A plain object owned by the manager could not outlive it, and a host would have to copy what it
// needs out of every printer before End().
//
// The destination is kept as the user wrote it; the printer does not parse it.
class VRKPrinter : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKPrinter)

  public:
    // `settings` may be null (the language's defaults) and is copied. `file` and `sourceLine`
    // say where the printer was read, for messages; a printer made in code has line 0.
    VRKPrinter(VRKUnicodeString name, VRKUnicodeString language, VRKUnicodeString description,
               VRKUnicodeString destination, const VRKLightXmlElement* settings, std::string file,
               int sourceLine);
    ~VRKPrinter() override;

    const VRKUnicodeString& GetName() const { return name_; }
    const VRKUnicodeString& GetLanguage() const { return language_; }
    const VRKUnicodeString& GetDescription() const { return description_; }
    const VRKUnicodeString& GetDestination() const { return destination_; }
    // The settings element of the printer's language, or null when the printer has none.
    const VRKLightXmlElement* GetSettings() const { return settings_.get(); }
    // The line of the printer's element in its file; 0 for a printer made in code.
    int GetSourceLine() const { return sourceLine_; }
    // The file the printer was read from (or is to be saved to).
    const std::string& GetFile() const { return file_; }
    // "FILE:LINE: printer 'NAME'" (as much of it as is known), for messages about the printer.
    std::string Describe() const { return Where(sourceLine_); }

    // A generator of the printer's language with the printer's settings read into its record,
    // made on the first call through the class dictionary. The printer owns it and releases it
    // when it goes; a caller that keeps it longer takes a reference of its own. Null when the
    // language is not registered or the settings are not that language's, GetError() then saying
    // why, with the file and line.
    VRKPrintGenerator* GetGenerator();
    const std::string& GetError() const { return error_; }

  private:
    // "FILE:LINE: printer 'NAME'", or as much of it as is known, for messages.
    std::string Where(int line) const;
    VRKPrintGenerator* MakeGenerator();

    VRKUnicodeString name_;
    VRKUnicodeString language_;
    VRKUnicodeString description_;
    VRKUnicodeString destination_;
    std::unique_ptr<VRKLightXmlElement> settings_;
    std::string file_;
    int sourceLine_ = 0;
    VRKPrintGenerator* generator_ = nullptr;
    std::string error_;
};
