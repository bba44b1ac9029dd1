#include "dialogs/VRKPrintHP1055CDialog.h"

#include <new>

#include "dialogs/VRKPrintDesignJetChoices.h"
#include "dialogs/VRKPrintHP1055CDialogAbout.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgSeparator.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "properties/VRKPrintHP1055CProperties.h"

namespace {

// The record's quality runs from 0 to 100; the dialog offers three steps of 50.
constexpr int kQualityStep = 50;
// The manual feed's line in the single-roll feeder's source list.
constexpr int kManualFeedLine = 1;

VRKPrintHP1055CProperties* newRecordUnless(VRKPrintHP1055CProperties* given) {
    return given == nullptr ? new (std::nothrow) VRKPrintHP1055CProperties : nullptr;
}

}  // namespace

int VRKPrintHP1055CDialog::rememberedPage = 0;

VRKPrintHP1055CDialog::VRKPrintHP1055CDialog(VRKDlgDialog* parent, VRKPrintHP1055CProperties* given)
    : VRKDlgDialog(parent, "PrintProperties"),
      ownRecord(newRecordUnless(given)),
      record(given != nullptr ? given : ownRecord) {
    SetTitle(Text("PrintProperties", "DesignJet 1000 Series"));
    tabs = new VRKDlgTabContainer(*this, "TabContainer");
    BuildOptionsPage(*tabs);
    BuildAdvancedPage(*tabs);
    ShowRecord();
    SetOnOk([this] {
        WriteBack();
        rememberedPage = tabs->GetCurrentPage();
        End(true);
    });
    SetOnCancel([this] { End(false); });
    SetOnClose([this] { End(false); });
}

VRKPrintHP1055CDialog::~VRKPrintHP1055CDialog() {
    if (ownRecord != nullptr) {
        ownRecord->Release();
    }
}

std::string VRKPrintHP1055CDialog::Text(const std::string& key, const std::string& fallback) const {
    return texts.GetResourceValueFromKey(key, fallback);
}

void VRKPrintHP1055CDialog::BuildOptionsPage(VRKDlgTabContainer& tabContainer) {
    auto* page = new VRKDlgTabPage(tabContainer, "Options");
    page->SetTitle(Text("Options", "Options"));
    page->SetPicture("OptionsTab");
    auto* options = new VRKDlgFrame(*page, "OptionsFrame");

    auto* sourceFrame = new VRKDlgFrame(*options, "SourceFrame");
    auto* rollFrame = new VRKDlgFrame(*sourceFrame, "RollFrame");
    multiRollCheck = AddCheck(*rollFrame, "MultiRollFeeder", "Multi-roll feeder");
    multiRollCheck->SetGrid(0, 0, 1, -1);
    multiRollCheck->SetOnChange([this] { FeederChanged(); });
    auto* sourceLabel = new VRKDlgLabel(*rollFrame, "MediaSource");
    sourceLabel->SetTitle(Text("MediaSource", "Media source"));
    sourceList = new VRKDlgCombo(*rollFrame, "SourceList");
    sourceList->SetGrid(1, 1);
    sourceList->SetOnSelect([this] { SourceSelected(); });
    printerIcon = new VRKDlgLabel(*sourceFrame, "PrinterIcon");
    printerIcon->SetGrid(0, 1);

    new VRKDlgSeparator(*options, "Separator");

    auto* mediaFrame = new VRKDlgFrame(*options, "MediaFrame");
    auto* mediaIcon = new VRKDlgLabel(*mediaFrame, "MediaIcon");
    mediaIcon->SetPicture("HPMedia");
    auto* mediaLabel = new VRKDlgLabel(*mediaFrame, "MediaType");
    mediaLabel->SetTitle(Text("MediaType", "Media type"));
    mediaLabel->SetGrid(0, 1);
    mediaList = new VRKDlgCombo(*mediaFrame, "MediaList");
    mediaList->SetGrid(0, 2);
    VRKPrintDesignJetChoices::FillMedia(*mediaList, texts);
    auto* qualityLabel = new VRKDlgLabel(*mediaFrame, "QualityLevel");
    qualityLabel->SetTitle(Text("QualityLevel", "Print quality"));
    qualityLabel->SetGrid(1, 1);
    qualityCombo = new VRKDlgCombo(*mediaFrame, "QualityCombo");
    qualityCombo->SetGrid(1, 2);
    for (const char* line : {"Fast", "Normal", "Best"}) {
        qualityCombo->AppendLine(Text(line, line));
    }
    qualityCombo->SetOnSelect([this] { QualitySelected(); });
    qualityIcon = new VRKDlgLabel(*mediaFrame, "Quality");
    qualityIcon->SetGrid(1, 0);

    AddAboutButton(*page);
}

void VRKPrintHP1055CDialog::BuildAdvancedPage(VRKDlgTabContainer& tabContainer) {
    auto* page = new VRKDlgTabPage(tabContainer, "Advanced");
    page->SetTitle(Text("Advanced", "Advanced"));
    page->SetPicture("AdvancedTab");
    auto* advanced = new VRKDlgFrame(*page, "AdvancedFrame");
    retCheck = AddCheck(*advanced, "RET", "Resolution enhancement");
    cutterCheck = AddCheck(*advanced, "EnableCutter", "Cut the sheet");
    // Two blank lines of spacing round the frame of the pictured options.
    auto* blank1 = new VRKDlgLabel(*advanced, "BlankLabel1");
    blank1->SetTitle(Text("BlankLabel1", "  "));
    auto* blank2 = new VRKDlgLabel(*advanced, "BlankLabel2");
    blank2->SetTitle(Text("BlankLabel2", "  "));
    blank2->SetGrid(4, 0);

    auto* sub = new VRKDlgFrame(*advanced, "SubAdvancedFrame");
    sub->SetGrid(3, 0);
    inkedAreaCheck = AddCheck(*sub, "InkedArea", "Print the inked area only");
    inkedAreaIcon = new VRKDlgLabel(*sub, "InkedArea");
    inkedAreaIcon->SetPicture("HPInkedArea");
    inkedAreaIcon->SetGrid(0, 1);
    autoRotateCheck = AddCheck(*sub, "AutoRotate", "Rotate automatically");
    autoRotateCheck->SetGrid(1, 0);
    auto* autoRotateIcon = new VRKDlgLabel(*sub, "AutoRotate");
    autoRotateIcon->SetPicture("HPAutoRotate");
    autoRotateIcon->SetGrid(1, 1);

    AddAboutButton(*page);
}

void VRKPrintHP1055CDialog::AddAboutButton(VRKDlgContainer& page) {
    auto* about = new VRKDlgPushButton(page, "ZK_HPLogosOptions");
    about->SetTitle(Text("ZK_HPLogosOptions", "About"));
    about->SetPicture("ZKW_HPLogos");
    about->SetOnPush([this] { OpenAbout(); });
}

VRKDlgCheckButton* VRKPrintHP1055CDialog::AddCheck(VRKDlgContainer& frame, const char* key,
                                                   const char* fallback) {
    auto* check = new VRKDlgCheckButton(frame, key);
    check->SetTitle(Text(key, fallback));
    return check;
}

void VRKPrintHP1055CDialog::ShowRecord() {
    const bool multiRoll = record->GetMultiRollFeeder() >= 1;
    multiRollCheck->SetState(multiRoll);
    VRKPrintDesignJetChoices::FillSources(*sourceList, texts, multiRoll);
    sourceList->SetSelect(record->GetMediaSource());
    printerIcon->SetPicture(multiRoll ? "HPMultiroll" : "HPMonoroll");
    mediaList->SetSelect(record->GetMediaType() + 1);
    qualityCombo->SetSelect(record->GetQuality() / kQualityStep);
    qualityIcon->SetPicture(VRKPrintDesignJetChoices::QualityPicture(qualityCombo->GetSelect()));
    retCheck->SetState(record->GetRet() != 0);
    cutterCheck->SetState(record->GetCutterState() != 0);
    inkedAreaCheck->SetState(record->GetInkedArea() != 0);
    autoRotateCheck->SetState(record->GetAutoRotate() != 0);
    tabs->SetCurrentPage(rememberedPage);
}

void VRKPrintHP1055CDialog::FeederChanged() {
    const bool multiRoll = multiRollCheck->GetState();
    printerIcon->SetPicture(multiRoll ? "HPMultiroll" : "HPMonoroll");
    VRKPrintDesignJetChoices::FillSources(*sourceList, texts, multiRoll);
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

void VRKPrintHP1055CDialog::QualitySelected() {
    qualityIcon->SetPicture(VRKPrintDesignJetChoices::QualityPicture(qualityCombo->GetSelect()));
}

void VRKPrintHP1055CDialog::OpenAbout() {
    auto* about = new (std::nothrow) VRKPrintHP1055CDialogAbout(this);
    if (about != nullptr) {
        about->Show();
    }
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

void VRKPrintHP1055CDialog::End(bool ok) {
    EndNotification notification = std::move(onEnd);
    onEnd = nullptr;
    RequestDelete();
    if (notification) {
        notification(ok);
    }
}
