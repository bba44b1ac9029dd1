#pragma once

#include "host/core/VRKUnicodeString.h"
#include "host/dialogs/VRKDlgDialog.h"

// The host's publishing tools dialog: the window from which a user imports a drawing. A
// generator asked for its property editor with this dialog as the parent answers an import
// question instead of editing its settings; the answer comes back through ReceiveImportAnswer.
class VRKPublishToolsDlg : public VRKDlgDialog {
  public:
    using VRKDlgDialog::VRKDlgDialog;

    // Where the pens of an imported HP-GL drawing come from: option 1 the pens the user
    // defined, option 0 those of the printer of this description. The default keeps the last
    // answer for GetImportOption and GetImportPrinter.
    virtual void ReceiveImportAnswer(int option, const VRKUnicodeString& printerName) {
        importOption = option;
        importPrinter = printerName;
        answers += 1;
    }
    int GetImportOption() const { return importOption; }
    const VRKUnicodeString& GetImportPrinter() const { return importPrinter; }
    int GetAnswerCount() const { return answers; }

  private:
    int importOption = 0;
    VRKUnicodeString importPrinter;
    int answers = 0;
};
