#include "dialogs/VRKPrintHP1055CDialogAbout.h"

#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"

VRKPrintHP1055CDialogAbout::VRKPrintHP1055CDialogAbout(VRKDlgDialog* parent)
    : VRKPrintPropertyDialog(parent, "HPDesJet1000SeriesAbout", "VRKPrintHP1055CDialogAbout",
                             kOkButton) {
    SetTitle(Text("HPDesJet1000SeriesAbout", "About the driver"));
    auto* frame = new VRKDlgFrame(*this, "AboutFrame");
    auto* hpLogo = new VRKDlgLabel(*frame, "HPlogoLabel");
    hpLogo->SetPicture("HP_logo");
    auto* zkLogo = new VRKDlgLabel(*frame, "ZKlogoLabel");
    zkLogo->SetPicture("ZKW_logo");
    zkLogo->SetGrid(0, 1);
    // Each text label spans both columns, under the two badges.
    const auto addText = [this, frame](const char* key, const char* fallback, int row) {
        auto* label = new VRKDlgLabel(*frame, key);
        label->SetTitle(Text(key, fallback));
        label->SetGrid(row, 0, 1, -1);
    };
    addText("BlankLabel1", "  ", 1);
    addText("InformationsLabel",
            "VRKPrtDriverHPGL2: a print driver for large-format printers and pen plotters", 2);
    addText("BlankLabel2", "  ", 3);
    addText("HPcopyrightLabel", "Copyright the VRKPrtDriverHPGL2 developers", 4);
    addText("ZKcopyrightLabel", "Copyright of the dialogs: the VRKPrtDriverHPGL2 developers", 5);
    addText("BlankLabel3", "  ", 6);
    SetOnOk([this] { RequestDelete(); });
    SetOnClose([this] { RequestDelete(); });
}
