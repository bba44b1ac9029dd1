// Fuzz target: the printer list file.
//
// Feeds: the input is a printers.xml, written to the process's scratch folder and read by
// VRKPrinterManager. Each printer of a list that was read makes its generator, which reads the
// printer's settings element into the generator's record (the driver's four languages are
// registered). The list is then saved over the file and read again.
//
// Checks: no crash, leak, undefined behaviour or hang in reading the list, its printers and their
// settings; a refused list has a message that names the file; a printer without a generator says
// why; and a list that was read saves, and reads back with the same printers in the same order.

#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "host/core/VRKRawCollPV.h"
#include "host/printers/VRKPrinter.h"
#include "host/printers/VRKPrinterManager.h"

namespace {

// The printers' names in the list's order, one a line.
std::string Names(const VRKPrinterManager& manager) {
    VRKRawCollPV list;
    if (!manager.GetPrinterList(list)) {
        vrkfuzz::Broken("the printer list cannot be listed");
    }
    std::string names;
    for (int i = 1; i <= list.Size(); ++i) {
        names += static_cast<VRKPrinter*>(list[i])->GetName().ToUtf8() + "\n";
    }
    return names;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path = vrkfuzz::ScratchFolder() + "/printers.xml";
    vrkfuzz::WriteFile(path, data, size);
    VRKPrinterManager manager(path);
    if (!manager.Begin()) {
        if (manager.GetError().rfind(path, 0) != 0) {
            vrkfuzz::Broken("a refused printer list without a message naming it: '" +
                            manager.GetError() + "'");
        }
        return 0;
    }
    const std::string names = Names(manager);
    VRKRawCollPV list;
    manager.GetPrinterList(list);
    for (int i = 1; i <= list.Size(); ++i) {
        auto* printer = static_cast<VRKPrinter*>(list[i]);
        if (printer->GetGenerator() == nullptr && printer->GetError().empty()) {
            vrkfuzz::Broken("a printer without a generator and without a message");
        }
    }
    std::string error;
    if (!manager.Save(error)) {
        vrkfuzz::Broken("a printer list that was read cannot be saved: " + error);
    }
    manager.End();
    VRKPrinterManager again(path);
    if (!again.Begin()) {
        vrkfuzz::Broken("a saved printer list is refused: " + again.GetError());
    }
    if (Names(again) != names) {
        vrkfuzz::Broken("a saved printer list reads back with other printers");
    }
    again.End();
    return 0;
}
