#pragma once

#include <string>
#include <vector>

#include "host/core/VRKRawCollPV.h"
#include "host/printers/VRKPrinter.h"
#include "host/printers/VRKPrinterManager.h"
#include "support/TempFolder.h"

// Helpers of the printer list tests.

// The printers a manager lists, in order.
inline std::vector<VRKPrinter*> Listed(const VRKPrinterManager& manager) {
    VRKRawCollPV list;
    std::vector<VRKPrinter*> printers;
    if (manager.GetPrinterList(list)) {
        for (int i = 1; i <= list.Size(); ++i) {
            printers.push_back(static_cast<VRKPrinter*>(list[i]));
        }
    }
    return printers;
}

// The names of the printers a manager lists: "a,b,c".
inline std::string Names(const VRKPrinterManager& manager) {
    std::string names;
    for (const VRKPrinter* printer : Listed(manager)) {
        names += (names.empty() ? "" : ",") + printer->GetName().ToUtf8();
    }
    return names;
}

// `text` with `path` at its start shown as `shown`; the text in brackets when it does not start
// with the path.
inline std::string Relative(const std::string& text, const std::string& path,
                            const std::string& shown) {
    if (text.compare(0, path.size(), path) != 0) {
        return "[" + text + "]";
    }
    return shown + text.substr(path.size());
}

// Begin() on a printer list file holding `text`: its error, with the file's path shown as
// "printers.xml", or "(read)" when Begin() succeeded. A failed Begin() must leave no printer.
inline std::string BeginError(const std::string& text) {
    TempFolder folder("printers");
    const std::string path = folder.Write("printers.xml", text);
    VRKPrinterManager manager(path);
    if (manager.Begin()) {
        return "(read)";
    }
    if (!Listed(manager).empty()) {
        return "(printers left after a failure)";
    }
    return Relative(manager.GetError(), path, "printers.xml");
}

// A list file's text with the given lines inside <Printers>, the first of them on line 3.
inline std::string ListText(const std::string& lines) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Printers>\n" + lines + "</Printers>\n";
}
