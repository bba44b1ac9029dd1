#pragma once

#include <string>

#include "dialogs/VRKPrintPropertyDialog.h"

// The about box of the DesignJet property dialogs: two badges, a line on the driver and the
// copyright lines, all from its resource file. It is made visible by the dialog that opens it,
// which owns it, and ends by itself on OK or the close box.
class VRKPrintHP1055CDialogAbout : public VRKPrintPropertyDialog {
  public:
    explicit VRKPrintHP1055CDialogAbout(VRKDlgDialog* parent);

  private:
};
