#include "dialogs/VRKPrintHPGLImportPrinters.h"

#include <functional>

#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKRawCollPV.h"
#include "host/printers/VRKPrinter.h"
#include "host/printers/VRKPrinterManager.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

// Calls `visit` on every HP-GL printer of the list with its rank among them, between Begin() and
// End() of a printer manager; stops when `visit` returns false.
void ForEachHPGLPrinter(const std::function<bool(VRKPrinter&, int)>& visit) {
    VRKPrinterManager manager;
    if (manager.Begin()) {
        VRKRawCollPV list;
        manager.GetPrinterList(list);
        int rank = 0;
        for (int i = 1; i <= list.Size(); ++i) {
            auto* printer = static_cast<VRKPrinter*>(list[i]);
            if (printer == nullptr ||
                !(printer->GetLanguage() == VRKPrintHPGLImportPrinters::kLanguage)) {
                continue;
            }
            if (!visit(*printer, rank++)) {
                break;
            }
        }
    }
    manager.End();
}

}  // namespace

std::vector<std::string> VRKPrintHPGLImportPrinters::Descriptions() {
    std::vector<std::string> descriptions;
    try {
        ForEachHPGLPrinter([&](VRKPrinter& printer, int) {
            descriptions.push_back(printer.GetDescription().ToUtf8());
            return true;
        });
    } catch (...) {
        // Out of memory: the printers listed so far.
    }
    return descriptions;
}

bool VRKPrintHPGLImportPrinters::TakePens(int index, VRKPrintHPGLProperties* pens,
                                          VRKUnicodeString& description) {
    bool found = false;
    try {
        ForEachHPGLPrinter([&](VRKPrinter& printer, int rank) {
            if (rank != index) {
                return true;
            }
            found = true;
            VRKPrintGenerator* generator = printer.GetGenerator();
            VRKBaseUnknown* record = generator != nullptr ? generator->GetProperties() : nullptr;
            if (pens != nullptr && record != nullptr &&
                record->IsAKindOf("VRKPrintHPGLProperties")) {
                pens->SetPenTable(static_cast<VRKPrintHPGLProperties*>(record)->GetPenTable());
            }
            description = printer.GetDescription();
            return false;
        });
    } catch (...) {
        return false;
    }
    return found;
}
