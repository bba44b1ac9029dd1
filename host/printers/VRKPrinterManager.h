#pragma once

#include <string>
#include <vector>

#include "host/core/VRKUnicodeString.h"

class VRKLightXmlElement;
class VRKPrinter;
class VRKRawCollPV;

// The user's printer list: an XML file with one <Printer> element per printer inside <Printers>
// (docs/host.md has the format). A host makes a manager, reads the list with Begin(), takes the
// printers with GetPrinterList() and gives them back with End():
//
//   VRKPrinterManager manager;   // the file at DefaultPath()
//   if (!manager.Begin()) { report manager.GetError(); }
//   VRKRawCollPV printers;
//   manager.GetPrinterList(printers);
//   ... static_cast<VRKPrinter*>(printers[i]) for i from 1 to printers.Size() ...
//   manager.End();
//
// Add, Remove and Save change the list and write it back. They work on a list that Begin() has
// read, so that a list that could not be read is never written over.
//
// No function throws; every failure comes back as false with a message that names the file and,
// for a fault in it, the line.
class VRKPrinterManager {
  public:
    // The list at DefaultPath().
    VRKPrinterManager();
    explicit VRKPrinterManager(std::string path);
    ~VRKPrinterManager();
    VRKPrinterManager(const VRKPrinterManager&) = delete;
    VRKPrinterManager& operator=(const VRKPrinterManager&) = delete;

    // Where the printer list is looked for: $VRK_PRINTERS when it is set and not empty, else
    // $XDG_CONFIG_HOME/vrkplot/printers.xml when that is set to an absolute path, else
    // $HOME/.config/vrkplot/printers.xml (the home folder of the password database when HOME is
    // not set or empty). Empty when none of these gives a folder.
    static std::string DefaultPath();

    const std::string& GetPath() const { return path_; }

    // Reads the list. A missing file is an empty list; a file that cannot be read, that is not
    // XML or that breaks the format is refused: false, no printers, and GetError() says where and
    // what. Reading again first gives the printers back as End() does.
    bool Begin();
    // Appends every printer, in the list's order, as a VRKPrinter*. They stay valid until End() or
    // the manager's destruction, even when removed in between. False only when memory runs out.
    bool GetPrinterList(VRKRawCollPV& printers) const;
    // Gives the printers back; the manager can Begin() again.
    void End();
    // Why Begin() failed; empty after a success.
    const std::string& GetError() const { return error_; }

    // The printer of exactly this name, or null.
    VRKPrinter* Find(const VRKUnicodeString& name) const;
    // Adds a printer at the end of the list; `settings` may be null and is copied. Refused when
    // the name is empty, has a control character or is taken, and when the language or the
    // destination is empty.
    bool Add(const VRKUnicodeString& name, const VRKUnicodeString& language,
             const VRKUnicodeString& description, const VRKUnicodeString& destination,
             const VRKLightXmlElement* settings, std::string& error);
    // Takes a printer out of the list.
    bool Remove(const VRKUnicodeString& name, std::string& error);
    // Gives a printer new settings (copied), keeping its place in the list and everything else.
    // The printer object found before stays valid, with its old settings, until End().
    bool ReplaceSettings(const VRKUnicodeString& name, const VRKLightXmlElement& settings,
                         std::string& error);
    // Writes the whole list to the file, creating its missing folders first, whole or not at all:
    // when writing fails, the file is as it was.
    bool Save(std::string& error);

  private:
    // The place of the printer of this name, or the end with `error` saying it is not listed.
    std::vector<VRKPrinter*>::iterator Listed(const VRKUnicodeString& name, std::string& error);
    bool Read();
    bool ReadPrinter(const VRKLightXmlElement& element);
    // "FILE:LINE: " of an element of the file.
    std::string At(const VRKLightXmlElement& element) const;
    bool Check(std::string& error) const;
    bool Write(std::string& error) const;

    std::string path_;
    std::string error_;
    // Begin() has read the list.
    bool begun_ = false;
    // One reference each.
    std::vector<VRKPrinter*> printers_;
    // Printers taken out of the list, kept until End() for whoever still holds them from a list.
    std::vector<VRKPrinter*> removed_;
};
