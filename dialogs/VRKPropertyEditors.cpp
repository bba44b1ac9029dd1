// The property editors of the generators, entered in the host's dictionary while this library is
// loaded: a host opens a generator's dialog through the generator's CreatePropertyEditor.

#include <new>

#include "dialogs/VRKPrintHP1055CDialog.h"
#include "dialogs/VRKPrintHP4000Dialog.h"
#include "dialogs/VRKPrintHPGL2Dialog.h"
#include "dialogs/VRKPrintHPGLDialog.h"
#include "dialogs/VRKPrintHPGLImportDialog.h"
#include "dialogs/VRKPrintHPGLImportNotification.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKPropertyEditorRegistration.h"
#include "host/dialogs/VRKPublishToolsDlg.h"
#include "hpgl/VRKPrintHPGLGenerator.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPrintHPGL2Properties.h"

namespace {

// The dialog `Dialog` on the generator's record of type `Record`; none for a generator without
// one. The DesignJet generators make their record on first use.
template <class Dialog, class Record>
VRKDlgDialog* recordEditor(VRKDlgDialog* parent, VRKPrintGenerator& generator) {
    auto* record = dynamic_cast<Record*>(generator.EnsureProperties());
    if (record == nullptr) {
        return nullptr;
    }
    return new (std::nothrow) Dialog(parent, record);
}

// The HP-GL generator chooses by its parent: asked from the publishing tools (an HP-GL drawing
// being imported), the import dialog, which fills the pens of its inner HP-GL/2 generator and
// answers the tools; otherwise the pen dialog on those pens.
VRKDlgDialog* hpglEditor(VRKDlgDialog* parent, VRKPrintGenerator& generator) {
    auto* hpgl = dynamic_cast<VRKPrintHPGLGenerator*>(&generator);
    VRKPrintHPGL2Generator* inner = hpgl != nullptr ? hpgl->GetInnerGenerator() : nullptr;
    if (inner == nullptr || inner->GetHPGLSettings() == nullptr) {
        return nullptr;
    }
    if (auto* tools = dynamic_cast<VRKPublishToolsDlg*>(parent)) {
        auto* import = new (std::nothrow) VRKPrintHPGLImportDialog(
            parent, inner->GetHPGLSettings(), VRKPrintHPGLImportNotification::kPrinterPens);
        if (import != nullptr) {
            import->SetOnNotify([tools](const VRKPrintHPGLImportNotification& answer) {
                tools->ReceiveImportAnswer(answer.GetOption(), answer.GetPrinterName());
        });
    }
    return import;
}
return new (std::nothrow) VRKPrintHPGLDialog(parent, inner->GetHPGLSettings());
}  // namespace

const VRKPropertyEditorRegistration hpgl2Registration(
    {"VRKPrintHPGL2Generator", &recordEditor<VRKPrintHPGL2Dialog, VRKPrintHPGL2Properties>});
const VRKPropertyEditorRegistration hp1055cRegistration(
    {"VRKPrintHP1055CGenerator", &recordEditor<VRKPrintHP1055CDialog, VRKPrintHP1055CProperties>});
const VRKPropertyEditorRegistration hp4000Registration(
    {"VRKPrintHP4000Generator", &recordEditor<VRKPrintHP4000Dialog, VRKPrintHP4000Properties>});
const VRKPropertyEditorRegistration hpglRegistration({"VRKPrintHPGLGenerator", &hpglEditor});

}  // namespace
