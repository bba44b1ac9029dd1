// The property editors of the generators, entered in the host's dictionary while this library is
// loaded: a host opens a generator's dialog through the generator's CreatePropertyEditor.

#include <new>

#include "dialogs/VRKPrintHPGL2Dialog.h"
#include "dialogs/VRKPrintHPGLDialog.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKPropertyEditorRegistration.h"
#include "hpgl/VRKPrintHPGLGenerator.h"
#include "properties/VRKPrintHPGL2Properties.h"

namespace {

VRKDlgDialog* hpgl2Editor(VRKDlgDialog* parent, VRKPrintGenerator& generator) {
    auto* record = dynamic_cast<VRKPrintHPGL2Properties*>(generator.GetProperties());
    if (record == nullptr) {
        return nullptr;
    }
    return new (std::nothrow) VRKPrintHPGL2Dialog(parent, record);
}

// The HP-GL generator's pens: the pen dialog on the settings of its inner HP-GL/2 generator.
VRKDlgDialog* hpglEditor(VRKDlgDialog* parent, VRKPrintGenerator& generator) {
    auto* hpgl = dynamic_cast<VRKPrintHPGLGenerator*>(&generator);
    VRKPrintHPGL2Generator* inner = hpgl != nullptr ? hpgl->GetInnerGenerator() : nullptr;
    if (inner == nullptr || inner->GetHPGLSettings() == nullptr) {
        return nullptr;
    }
    return new (std::nothrow) VRKPrintHPGLDialog(parent, inner->GetHPGLSettings());
}

const VRKPropertyEditorRegistration hpgl2Registration({"VRKPrintHPGL2Generator", &hpgl2Editor});
const VRKPropertyEditorRegistration hpglRegistration({"VRKPrintHPGLGenerator", &hpglEditor});

}  // namespace
