#include "dialogs/VRKPrintHP4000Dialog.h"

#include <cstdint>
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
#include "properties/VRKPrintHP4000Properties.h"

namespace {

// The source lines: the roll first, then the manual feed. The record says 1 for the roll.
constexpr int kRollLine = 0;

VRKPrintHP4000Properties* newRecordUnless(VRKPrintHP4000Properties* given) {
    return given == nullptr ? new (std::nothrow) VRKPrintHP4000Properties : nullptr;
}

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
    : VRKDlgDialog(parent, "PrintProperties"),
      ownRecord(newRecordUnless(given)),
      record(given != nullptr ? given : ownRecord) {
    SetTitle(Text("PrintProperties", "DesignJet 4000 Series"));
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

VRKPrintHP4000Dialog::~VRKPrintHP4000Dialog() {
    if (ownRecord != nullptr) {
        ownRecord->Release();
    }
}

std::string VRKPrintHP4000Dialog::Text(const std::string& key, const std::string& fallback) const {
    return texts.GetResourceValueFromKey(key, fallback);
}

void VRKPrintHP4000Dialog::BuildOptionsPage(VRKDlgTabContainer& tabContainer) {
    auto* page = new VRKDlgTabPage(tabContainer, "Options");
    page->SetTitle(Text("Options", "Options"));
    page->SetPicture("OptionsTab");
    auto* options = new VRKDlgFrame(*page, "OptionsFrame");

    auto* sourceFrame = new VRKDlgFrame(*options, "SourceFrame");
    auto* rollFrame = new VRKDlgFrame(*sourceFrame, "RollFrame");
    auto* sourceLabel = new VRKDlgLabel(*rollFrame, "MediaSource");
    sourceLabel->SetTitle(Text("MediaSource", "Media source"));
    sourceList = new VRKDlgCombo(*rollFrame, "SourceList");
    sourceList->SetGrid(0, 1);
    VRKPrintDesignJetChoices::FillSources(*sourceList, texts, false);
    auto* printerIcon = AddPicture(*sourceFrame, "PrinterIcon", "HP4000Monoroll");
    printerIcon->SetGrid(0, 1);

    new VRKDlgSeparator(*options, "Separator");
    BuildMediaFrame(*options);
    AddAboutButton(*page);
}

void VRKPrintHP4000Dialog::BuildMediaFrame(VRKDlgContainer& options) {
    auto* mediaFrame = new VRKDlgFrame(options, "MediaFrame");
    AddPicture(*mediaFrame, "MediaIcon", "HPMedia");
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
    for (const char* line : {"Draft", "Normal", "High"}) {
        qualityCombo->AppendLine(Text(line, line));
    }
    qualityCombo->SetOnSelect([this] { QualitySelected(); });
    qualityIcon = new VRKDlgLabel(*mediaFrame, "Quality");
    qualityIcon->SetGrid(1, 0);

    auto* resolutionLabel = new VRKDlgLabel(*mediaFrame, "Resolution");
    resolutionLabel->SetTitle(Text("Resolution", "Resolution (dpi)"));
    resolutionLabel->SetGrid(2, 1);
    resolutionCombo = new VRKDlgCombo(*mediaFrame, "ResolutionCombo");
    resolutionCombo->SetGrid(2, 2);
    resolutionCombo->AppendLine(Text("Resolution300", "300"));
    resolutionCombo->AppendLine(Text("Resolution600", "600"));
    resolutionCombo->AppendLine(Text("Resolution1200", "1200"));
}

void VRKPrintHP4000Dialog::BuildAdvancedPage(VRKDlgTabContainer& tabContainer) {
    auto* page = new VRKDlgTabPage(tabContainer, "Advanced");
    page->SetTitle(Text("Advanced", "Advanced"));
    page->SetPicture("AdvancedTab");
    auto* advanced = new VRKDlgFrame(*page, "AdvancedFrame");
    retCheck = AddCheck(*advanced, "RET", "Resolution enhancement");
    cutterCheck = AddCheck(*advanced, "EnableCutter", "Cut the sheet");
    maxDetailCheck = AddCheck(*advanced, "MaxDetail", "Maximum detail");
    // Two blank lines of spacing round the frame of the pictured options.
    auto* blank1 = new VRKDlgLabel(*advanced, "BlankLabel1");
    blank1->SetTitle(Text("BlankLabel1", "  "));
    auto* blank2 = new VRKDlgLabel(*advanced, "BlankLabel2");
    blank2->SetTitle(Text("BlankLabel2", "  "));
    blank2->SetGrid(5, 0);

    auto* sub = new VRKDlgFrame(*advanced, "SubAdvancedFrame");
    sub->SetGrid(4, 0);
    inkedAreaCheck = AddCheck(*sub, "InkedArea", "Print the inked area only");
    AddPicture(*sub, "InkedAreaIcon", "HPInkedArea")->SetGrid(0, 1);
    autoRotateCheck = AddCheck(*sub, "AutoRotate", "Rotate automatically");
    autoRotateCheck->SetGrid(1, 0);
    AddPicture(*sub, "AutoRotateIcon", "HPAutoRotate")->SetGrid(1, 1);

    AddAboutButton(*page);
}

void VRKPrintHP4000Dialog::AddAboutButton(VRKDlgContainer& page) {
    auto* about = new VRKDlgPushButton(page, "ZK_HPLogosOptions");
    about->SetTitle(Text("ZK_HPLogosOptions", "About"));
    about->SetPicture("ZKW_HPLogos");
    about->SetOnPush([this] { OpenAbout(); });
}

VRKDlgCheckButton* VRKPrintHP4000Dialog::AddCheck(VRKDlgContainer& frame, const char* key,
                                                  const char* fallback) {
    auto* check = new VRKDlgCheckButton(frame, key);
    check->SetTitle(Text(key, fallback));
    return check;
}

VRKDlgLabel* VRKPrintHP4000Dialog::AddPicture(VRKDlgContainer& frame, const char* key,
                                              const char* picture) {
    auto* label = new VRKDlgLabel(frame, key);
    label->SetPicture(picture);
    return label;
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
    tabs->SetCurrentPage(rememberedPage);
}

void VRKPrintHP4000Dialog::QualitySelected() {
    qualityIcon->SetPicture(VRKPrintDesignJetChoices::QualityPicture(qualityCombo->GetSelect()));
}

void VRKPrintHP4000Dialog::OpenAbout() {
    auto* about = new (std::nothrow) VRKPrintHP1055CDialogAbout(this);
    if (about != nullptr) {
        about->Show();
    }
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

void VRKPrintHP4000Dialog::End(bool ok) {
    EndNotification notification = std::move(onEnd);
    onEnd = nullptr;
    RequestDelete();
    if (notification) {
        notification(ok);
    }
}
