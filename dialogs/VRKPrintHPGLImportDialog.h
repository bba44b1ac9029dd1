#pragma once

#include "dialogs/VRKOwnedRecord.h"

#include <functional>
#include <string>

#include "dialogs/VRKPrintHPGLImportNotification.h"
#include "dialogs/VRKPrintPropertyDialog.h"

class VRKDlgCombo;
class VRKDlgPushButton;
class VRKDlgRadioButton;
class VRKPrintHPGLDialog;
class VRKPrintHPGLProperties;

// Where the pens of an imported HP-GL drawing come from: one of the host's HP-GL printers (the
// "HPGL" language of the user's printer list), or a pen table the user defines in the HP-GL pen
// dialog. The choice goes to the dialog's owner as a VRKPrintHPGLImportNotification.
//
// Two things outlive the dialog, for the whole process: the index of the printer chosen last,
// selected again when the dialog opens, and one shared pen record holding the pens last defined
// through the pen dialog.
//
// The owner makes the dialog, sets its notifications and shows it; the dialog ends by itself:
// - OK: with the printer choice, the chosen printer's pens are copied into the caller's record
//   and its description becomes the printer name. OnNotify is called with the answer, then OnEnd
//   with true.
// - Cancel or the close box: OnEnd with false, no OnNotify.
// The dialog has asked for its own deletion (RequestDelete) before either is called: neither may
// delete it.
class VRKPrintHPGLImportDialog : public VRKPrintPropertyDialog {
  public:
    using Notification = std::function<void(const VRKPrintHPGLImportNotification&)>;
    // true after OK, false after Cancel or the close box.
    using VRKPrintPropertyDialog::EndNotification;
    using VRKPrintPropertyDialog::SetOnEnd;

    // `pens`, which the dialog fills, must outlive it; without one the pen dialog works on a
    // record of the dialog's own. `option` is VRKPrintHPGLImportNotification's: 1 opens on the
    // user's pens (copying `pens` into the shared record first), anything else on the printers
    // when there is an HP-GL printer.
    VRKPrintHPGLImportDialog(VRKDlgDialog* parent, VRKPrintHPGLProperties* pens, int option);
    ~VRKPrintHPGLImportDialog() override;

    // How the answer reaches the owner (the parent dialog or whoever made this one).
    void SetOnNotify(Notification notification) { onNotify = std::move(notification); }

    // The pen dialog opened from the pens button and still open, if any.
    VRKPrintHPGLDialog* GetPenDialog() const;
    // The record the pen dialog works on: the caller's, else the dialog's own.
    VRKPrintHPGLProperties& GetPens() const { return *pens; }

    // The pens last defined through the pen dialog, shared by every import dialog.
    static VRKPrintHPGLProperties& SharedPens();
    // The line of the printer list chosen last (0 until one is chosen).
    static int GetRememberedPrinter();
    static void SetRememberedPrinter(int index);

  private:
    void FillPrinterList();
    void ShowInitialState(int option);
    // Checks one radio button of the pair and unchecks the other, then sets the sensitivities.
    void Choose(bool printerPens);
    void ApplySensitivity();
    void OpenPenDialog();
    void Ok();
    void End(bool ok);

    // The record of the dialog's own when the caller gave none (released with the dialog).
    VRKOwnedRecord<VRKPrintHPGLProperties> ownPens;
    VRKPrintHPGLProperties* pens;
    // The caller gave a record: only then is a printer's pen table copied on OK.
    bool pensGiven;
    Notification onNotify;
    int printerCount = 0;

    VRKDlgRadioButton* printersRadio = nullptr;
    VRKDlgCombo* printerList = nullptr;
    VRKDlgRadioButton* pensRadio = nullptr;
    VRKDlgPushButton* pensButton = nullptr;
};
