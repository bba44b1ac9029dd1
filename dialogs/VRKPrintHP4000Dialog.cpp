#include "dialogs/VRKPrintHP4000Dialog.h"

#include <cstdint>

#include "dialogs/VRKPrintDesignJetChoices.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "properties/VRKPrintHP4000Properties.h"

namespace {

// The source lines: the roll first, then the manual feed. The record says 1 for the roll.
constexpr int kRollLine = 0;

// The line of a three-step code (print quality, resolution): 1 and 2 are their own lines, any
// other value shows the first.
int LineOfCode(int code) {
    return code == 1 || code == 2 ? code : 0;
}

std::uint8_t Flag(bool checked) {
    return checked ? 1 : 0;
}

}  // namespace

int VRKPrintHP4000Dialog::rememberedPage = 0;

VRKPrintHP4000Dialog::VRKPrintHP4000Dialog(VRKDlgDialog* parent, VRKPrintHP4000Properties* given)
    : VRKPrintDesignJetDialog(parent, "VRKPrintHP4000Dialog", "DesignJet 4000 Series",
                              rememberedPage),
      ownRecord(given),
      record(ownRecord.Or(given)) {
    BuildOptionsPage();
    BuildAdvancedPage();
    ShowRecord();
}

VRKPrintHP4000Dialog::~VRKPrintHP4000Dialog() = default;

void VRKPrintHP4000Dialog::BuildOptionsPage() {
    auto* page = AddPage("Options", "OptionsTab");
    auto* options = new VRKDlgFrame(*page, "OptionsFrame");

    VRKDlgFrame* rollFrame = nullptr;
    auto* sourceFrame = AddSourceFrame(*options, rollFrame);
    AddSourceList(*rollFrame, 0);
    VRKPrintDesignJetChoices::FillSources(*sourceList, GetTexts(), false);
    auto* printerIcon = AddPicture(*sourceFrame, "PrinterIcon", "HP4000Monoroll");
    printerIcon->SetGrid(0, 1);

    auto* mediaFrame = AddMediaFrame(*options, {"Draft", "Normal", "High"});
    auto* resolutionLabel = new VRKDlgLabel(*mediaFrame, "Resolution");
    resolutionLabel->SetTitle(Text("Resolution", "Resolution (dpi)"));
    resolutionLabel->SetGrid(2, 1);
    resolutionCombo = new VRKDlgCombo(*mediaFrame, "ResolutionCombo");
    resolutionCombo->SetGrid(2, 2);
    resolutionCombo->AppendLine(Text("Resolution300", "300"));
    resolutionCombo->AppendLine(Text("Resolution600", "600"));
    resolutionCombo->AppendLine(Text("Resolution1200", "1200"));
    AddAboutButton(*page);
}

void VRKPrintHP4000Dialog::BuildAdvancedPage() {
    auto* page = AddPage("Advanced", "AdvancedTab");
    auto* advanced = AddAdvancedFrame(*page);
    maxDetailCheck = AddCheck(*advanced, "MaxDetail", "Maximum detail");
    AddPicturedOptions(*advanced, 4, "InkedAreaIcon", "AutoRotateIcon");
    AddAboutButton(*page);
}

void VRKPrintHP4000Dialog::ShowRecord() {
    sourceList->SetSelect(record->GetMediaSource() != 0 ? kRollLine : kRollLine + 1);
    mediaList->SetSelect(record->GetMediaType() + 1);
    qualityCombo->SetSelect(LineOfCode(record->GetPrintQuality()));
    QualitySelected();
    resolutionCombo->SetSelect(LineOfCode(record->GetResolution()));
    retCheck->SetState(record->GetRet() == 1);
    // The cutter box is the inverse of the stored value, deliberately: a stored 0 shows it
    // checked, and WriteBack stores 0 for a checked box. Change both sides together or neither.
    cutterCheck->SetState(record->GetCutterState() == 0);
    maxDetailCheck->SetState(record->GetMaxDetail() == 1);
    inkedAreaCheck->SetState(record->GetInkedArea() == 1);
    autoRotateCheck->SetState(record->GetAutoRotate() == 1);
    ShowRememberedPage();
}

void VRKPrintHP4000Dialog::WriteBack() {
    // Inverted on purpose, as ShowRecord shows it: a checked box stores 0.
    record->SetCutterState(cutterCheck->GetState() ? 0 : 1);
    // A list without a selection leaves its field as it was.
    if (mediaList->GetSelect() >= 0) {
        record->SetMediaType(mediaList->GetSelect() - 1);
    }
    record->SetMediaSource(sourceList->GetSelect() == kRollLine ? 1 : 0);
    // This model takes its quality as the PJL print quality: the HP-GL/2 quality is switched off
    // so that the body carries no quality instruction of its own.
    record->SetQuality(-1);
    if (qualityCombo->GetSelect() >= 0) {
        record->SetPrintQuality(qualityCombo->GetSelect());
    }
    if (resolutionCombo->GetSelect() >= 0) {
        record->SetResolution(resolutionCombo->GetSelect());
    }
    record->SetInkedArea(Flag(inkedAreaCheck->GetState()));
    record->SetAutoRotate(Flag(autoRotateCheck->GetState()));
    record->SetMaxDetail(Flag(maxDetailCheck->GetState()));
    record->SetRet(Flag(retCheck->GetState()));
}
