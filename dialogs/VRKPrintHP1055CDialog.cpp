#include "dialogs/VRKPrintHP1055CDialog.h"

#include "dialogs/VRKPrintDesignJetChoices.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "properties/VRKPrintHP1055CProperties.h"

namespace {

// The record's quality runs from 0 to 100; the dialog offers three steps of 50.
constexpr int kQualityStep = 50;
// The manual feed's line in the single-roll feeder's source list.
constexpr int kManualFeedLine = 1;

}  // namespace

int VRKPrintHP1055CDialog::rememberedPage = 0;

VRKPrintHP1055CDialog::VRKPrintHP1055CDialog(VRKDlgDialog* parent, VRKPrintHP1055CProperties* given)
    : VRKPrintDesignJetDialog(parent, "VRKPrintHP1055CDialog", "DesignJet 1000 Series",
                              rememberedPage),
      ownRecord(given),
      record(ownRecord.Or(given)) {
    BuildOptionsPage();
    BuildAdvancedPage();
    ShowRecord();
}

VRKPrintHP1055CDialog::~VRKPrintHP1055CDialog() = default;

void VRKPrintHP1055CDialog::BuildOptionsPage() {
    auto* page = AddPage("Options", "OptionsTab");
    auto* options = new VRKDlgFrame(*page, "OptionsFrame");

    VRKDlgFrame* rollFrame = nullptr;
    auto* sourceFrame = AddSourceFrame(*options, rollFrame);
    multiRollCheck = AddCheck(*rollFrame, "MultiRollFeeder", "Multi-roll feeder");
    multiRollCheck->SetGrid(0, 0, 1, -1);
    multiRollCheck->SetOnChange([this] { FeederChanged(); });
    AddSourceList(*rollFrame, 1);
    sourceList->SetOnSelect([this] { SourceSelected(); });
    printerIcon = new VRKDlgLabel(*sourceFrame, "PrinterIcon");
    printerIcon->SetGrid(0, 1);

    AddMediaFrame(*options, {"Fast", "Normal", "Best"});
    AddAboutButton(*page);
}

void VRKPrintHP1055CDialog::BuildAdvancedPage() {
    auto* page = AddPage("Advanced", "AdvancedTab");
    auto* advanced = AddAdvancedFrame(*page);
    AddPicturedOptions(*advanced, 3, "InkedArea", "AutoRotate");
    AddAboutButton(*page);
}

void VRKPrintHP1055CDialog::ShowRecord() {
    const bool multiRoll = record->GetMultiRollFeeder() >= 1;
    multiRollCheck->SetState(multiRoll);
    VRKPrintDesignJetChoices::FillSources(*sourceList, GetTexts(), multiRoll);
    sourceList->SetSelect(record->GetMediaSource());
    printerIcon->SetPicture(multiRoll ? "HPMultiroll" : "HPMonoroll");
    mediaList->SetSelect(record->GetMediaType() + 1);
    qualityCombo->SetSelect(record->GetQuality() / kQualityStep);
    QualitySelected();
    retCheck->SetState(record->GetRet() != 0);
    cutterCheck->SetState(record->GetCutterState() != 0);
    inkedAreaCheck->SetState(record->GetInkedArea() != 0);
    autoRotateCheck->SetState(record->GetAutoRotate() != 0);
    ShowRememberedPage();
}

void VRKPrintHP1055CDialog::FeederChanged() {
    const bool multiRoll = multiRollCheck->GetState();
    printerIcon->SetPicture(multiRoll ? "HPMultiroll" : "HPMonoroll");
    VRKPrintDesignJetChoices::FillSources(*sourceList, GetTexts(), multiRoll);
    sourceList->SetSelect(0);
    // The first line is a roll of either feeder: the inked area may be chosen again.
    SourceSelected();
}

void VRKPrintHP1055CDialog::SourceSelected() {
    // Sheets fed by hand are printed whole, so the inked area applies to the rolls only.
    const bool manualFeed =
        !multiRollCheck->GetState() && sourceList->GetSelect() == kManualFeedLine;
    inkedAreaCheck->SetSensitivity(!manualFeed);
    inkedAreaIcon->SetSensitivity(!manualFeed);
}

void VRKPrintHP1055CDialog::WriteBack() {
    record->SetCutterState(cutterCheck->GetState() ? 1 : 0);
    // A list without a selection (the record held a value the list does not offer) leaves its
    // field as it was.
    if (mediaList->GetSelect() >= 0) {
        record->SetMediaType(mediaList->GetSelect() - 1);
    }
    record->SetMultiRollFeeder(multiRollCheck->GetState() ? 1 : 0);
    if (sourceList->GetSelect() >= 0) {
        record->SetMediaSource(sourceList->GetSelect());
    }
    // Only 0, 50 and 100 are ever stored here, on purpose coarser than the 0 to 100 the record
    // takes: one value per line. A value set elsewhere (a settings file, say) opens on the line of
    // its step of 50 and becomes that step's value once OK is pressed.
    if (qualityCombo->GetSelect() >= 0) {
        record->SetQuality(qualityCombo->GetSelect() * kQualityStep);
    }
    record->SetInkedArea(inkedAreaCheck->GetState() ? 1 : 0);
    record->SetAutoRotate(autoRotateCheck->GetState() ? 1 : 0);
    record->SetRet(retCheck->GetState() ? 1 : 0);
}
