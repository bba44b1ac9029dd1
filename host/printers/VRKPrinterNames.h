#pragma once

#include <string>

// The rules for the fields of a printer, shared by reading the printer list and adding to it.
// Each check gives the fault as the end of a message ("printer 'plotter' has an empty language"),
// or an empty string when there is none; the caller puts the file and line before it.
class VRKPrinterNames {
  public:
    // A name must not be empty and must not hold a control character (C0, DEL or C1): a name is
    // shown in menus and messages on one line.
    static std::string NameFault(const std::string& name);
    // The language and the destination must not be empty.
    static std::string FieldFault(const std::string& name, const char* field,
                                  const std::string& value);
    // "printer 'NAME'" for messages, with each control character written as \xHH.
    static std::string Label(const std::string& name);
};
