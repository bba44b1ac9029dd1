#pragma once

#include <string>
#include <vector>

#include "host/core/VRKUnicodeString.h"

class VRKPrintHPGLProperties;

// The host's printers of the HP-GL language, as the import dialog sees them: read from the
// user's printer list (VRKPrinterManager's default place) on every call, in the list's order. A
// list that cannot be read has no printer.
class VRKPrintHPGLImportPrinters {
  public:
    // The language a printer must have to be offered.
    static constexpr const char* kLanguage = "HPGL";

    // The description of every HP-GL printer.
    static std::vector<std::string> Descriptions();

    // Takes the HP-GL printer at `index` (0 for the first HP-GL printer of the list): copies the
    // pen table of its generator's record (count, colours, widths and enable flags) into `pens`
    // when `pens` is not null and the record is an HP-GL one, and gives the printer's description
    // in `description`. False, with nothing changed, when there is no such printer.
    static bool TakePens(int index, VRKPrintHPGLProperties* pens, VRKUnicodeString& description);
};
