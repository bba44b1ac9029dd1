#pragma once

#include "host/core/VRKUnicodeString.h"

// The answer of the HP-GL import dialog: where the pens of the imported drawing come from.
// Option 1: the pens the user defined in the pen dialog (no printer name); option 0: the pens of
// the printer whose description is the printer name.
class VRKPrintHPGLImportNotification {
  public:
    static constexpr int kPrinterPens = 0;
    static constexpr int kUserPens = 1;

    void SetOption(int value) { option = value; }
    int GetOption() const { return option; }
    void SetPrinterName(const VRKUnicodeString& name) { printerName = name; }
    const VRKUnicodeString& GetPrinterName() const { return printerName; }

  private:
    int option = kPrinterPens;
    VRKUnicodeString printerName;
};
