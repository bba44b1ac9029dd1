#include "dialogs/VRKPrintHPGLImportDialog.h"

#include <new>
#include <vector>

#include "dialogs/VRKPrintHPGLDialog.h"
#include "dialogs/VRKPrintHPGLImportPrinters.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgRadioButton.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

// The printer chosen last, for the whole process.
int rememberedPrinter = 0;

// Everything the pen dialog edits: the pen table and the plot options.
void CopyRecord(const VRKPrintHPGLProperties& from, VRKPrintHPGLProperties& to) {
    if (&from == &to) {
        return;
    }
    to.SetPenTable(from.GetPenTable());
    to.SetOrigin(from.GetOrigin());
    to.SetRelativeMovePen(from.GetRelativeMovePen());
    to.SetPrintThickness(from.GetPrintThickness());
}

}  // namespace

VRKPrintHPGLImportDialog::VRKPrintHPGLImportDialog(VRKDlgDialog* parent,
                                                   VRKPrintHPGLProperties* given, int option)
    : VRKPrintPropertyDialog(parent, "PrintProperties", "VRKPrintHPGLImportDialog"),
      ownPens(given),
      // Without a record of its own (no memory for one), the pen dialog works on the shared pens.
      pens(ownPens.Or(given) != nullptr ? ownPens.Or(given) : &SharedPens()),
      pensGiven(given != nullptr) {
    SetTitle(Text("PrintProperties", "HP-GL Import"));
    printersRadio = new VRKDlgRadioButton(*this, "HPGLPrinters");
    printersRadio->SetTitle(Text("HPGLPrinters", "Pens of a printer"));
    printerList = new VRKDlgCombo(*this, "HPGLListPrinters");
    printerList->SetGrid(0, 1);
    pensRadio = new VRKDlgRadioButton(*this, "HPGLPens");
    pensRadio->SetGrid(1, 0);
    pensRadio->SetTitle(Text("HPGLPens", "Pens defined here"));
    pensButton = new VRKDlgPushButton(*this, "HPGLPensButton");
    pensButton->SetTitle(Text("HPGLPensButton", "Pens..."));
    pensButton->SetGrid(1, 1);

    FillPrinterList();
    ShowInitialState(option);

    printersRadio->SetOnChange([this] { Choose(true); });
    pensRadio->SetOnChange([this] { Choose(false); });
    pensButton->SetOnPush([this] { OpenPenDialog(); });
    SetOnOk([this] { Ok(); });
    SetOnCancel([this] { End(false); });
    SetOnClose([this] { End(false); });
}

VRKPrintHPGLImportDialog::~VRKPrintHPGLImportDialog() = default;

VRKPrintHPGLProperties& VRKPrintHPGLImportDialog::SharedPens() {
    static VRKPrintHPGLProperties shared;
    return shared;
}

int VRKPrintHPGLImportDialog::GetRememberedPrinter() {
    return rememberedPrinter;
}

void VRKPrintHPGLImportDialog::SetRememberedPrinter(int index) {
    rememberedPrinter = index;
}

void VRKPrintHPGLImportDialog::FillPrinterList() {
    const std::vector<std::string> descriptions = VRKPrintHPGLImportPrinters::Descriptions();
    for (const std::string& description : descriptions) {
        printerList->AppendLine(description);
    }
    printerCount = printerList->GetLineCount();
    // A remembered line that the list no longer has falls back to the first printer.
    const bool known = rememberedPrinter >= 0 && rememberedPrinter < printerCount;
    printerList->SetSelect(known ? rememberedPrinter : 0);
}

void VRKPrintHPGLImportDialog::ShowInitialState(int option) {
    if (option == VRKPrintHPGLImportNotification::kUserPens && pensGiven) {
        CopyRecord(*pens, SharedPens());
    }
    const bool printerPens =
        option != VRKPrintHPGLImportNotification::kUserPens && printerCount > 0;
    printersRadio->SetState(printerPens);
    pensRadio->SetState(!printerPens);
    // Without an HP-GL printer, the printers cannot be chosen.
    printersRadio->SetSensitivity(printerCount > 0);
    ApplySensitivity();
}

void VRKPrintHPGLImportDialog::Choose(bool printerPens) {
    printersRadio->SetState(printerPens);
    pensRadio->SetState(!printerPens);
    ApplySensitivity();
}

void VRKPrintHPGLImportDialog::ApplySensitivity() {
    printerList->SetSensitivity(printersRadio->GetState());
    pensButton->SetSensitivity(pensRadio->GetState());
}

VRKPrintHPGLDialog* VRKPrintHPGLImportDialog::GetPenDialog() const {
    // The pen dialog is a child of this one; a dialog its Reset replaced is on its way out.
    for (int i = 0; i < GetChildCount(); ++i) {
        auto* dialog = dynamic_cast<VRKPrintHPGLDialog*>(GetChild(i));
        if (dialog != nullptr && !dialog->IsDeleteRequested()) {
            return dialog;
        }
    }
    return nullptr;
}

void VRKPrintHPGLImportDialog::OpenPenDialog() {
    if (VRKPrintHPGLDialog* open = GetPenDialog()) {
        // One pen dialog at a time: the open one is shown again.
        open->Show();
        return;
    }
    CopyRecord(SharedPens(), *pens);
    auto* dialog = new (std::nothrow) VRKPrintHPGLDialog(this, pens);
    if (dialog == nullptr) {
        return;
    }
    dialog->SetOnEnd([this](bool ok) {
        if (ok) {
            CopyRecord(*pens, SharedPens());
        }
    });
    dialog->Show();
}

void VRKPrintHPGLImportDialog::Ok() {
    VRKUnicodeString printerName;
    const bool printerPens = printersRadio->GetState();
    if (printerPens) {
        rememberedPrinter = printerList->GetSelect();
        VRKPrintHPGLImportPrinters::TakePens(rememberedPrinter, pensGiven ? pens : nullptr,
                                             printerName);
    }
    VRKPrintHPGLImportNotification notification;
    notification.SetOption(pensRadio->GetState() ? VRKPrintHPGLImportNotification::kUserPens
                                                 : VRKPrintHPGLImportNotification::kPrinterPens);
    notification.SetPrinterName(pensRadio->GetState() ? VRKUnicodeString() : printerName);
    Notification notify = std::move(onNotify);
    onNotify = nullptr;
    EndNotification end = TakeEndNotification();
    RequestDelete();
    if (notify) {
        notify(notification);
    }
    if (end) {
        end(true);
    }
}

void VRKPrintHPGLImportDialog::End(bool ok) {
    onNotify = nullptr;
    VRKPrintPropertyDialog::End(ok);
}
