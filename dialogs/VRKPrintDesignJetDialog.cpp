#include "dialogs/VRKPrintDesignJetDialog.h"

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

VRKPrintDesignJetDialog::VRKPrintDesignJetDialog(VRKDlgDialog* parent, const std::string& className,
                                                 const std::string& title, int& remembered)
    : VRKPrintPropertyDialog(parent, "PrintProperties", className), rememberedPage(remembered) {
    SetTitle(Text("PrintProperties", title));
    tabs = new VRKDlgTabContainer(*this, "TabContainer");
    SetOnOk([this] {
        WriteBack();
        rememberedPage = tabs->GetCurrentPage();
        End(true);
    });
    SetOnCancel([this] { End(false); });
    SetOnClose([this] { End(false); });
}

VRKDlgTabPage* VRKPrintDesignJetDialog::AddPage(const char* key, const char* picture) {
    auto* page = new VRKDlgTabPage(*tabs, key);
    page->SetTitle(Text(key, key));
    page->SetPicture(picture);
    return page;
}

VRKDlgFrame* VRKPrintDesignJetDialog::AddSourceFrame(VRKDlgContainer& options,
                                                     VRKDlgFrame*& rollFrame) {
    auto* sourceFrame = new VRKDlgFrame(options, "SourceFrame");
    rollFrame = new VRKDlgFrame(*sourceFrame, "RollFrame");
    return sourceFrame;
}

void VRKPrintDesignJetDialog::AddSourceList(VRKDlgContainer& rollFrame, int row) {
    auto* sourceLabel = new VRKDlgLabel(rollFrame, "MediaSource");
    sourceLabel->SetTitle(Text("MediaSource", "Media source"));
    sourceList = new VRKDlgCombo(rollFrame, "SourceList");
    sourceList->SetGrid(row, 1);
}

VRKDlgFrame* VRKPrintDesignJetDialog::AddMediaFrame(
    VRKDlgContainer& options, std::initializer_list<const char*> qualityLines) {
    new VRKDlgSeparator(options, "Separator");
    auto* mediaFrame = new VRKDlgFrame(options, "MediaFrame");
    AddPicture(*mediaFrame, "MediaIcon", "HPMedia");
    auto* mediaLabel = new VRKDlgLabel(*mediaFrame, "MediaType");
    mediaLabel->SetTitle(Text("MediaType", "Media type"));
    mediaLabel->SetGrid(0, 1);
    mediaList = new VRKDlgCombo(*mediaFrame, "MediaList");
    mediaList->SetGrid(0, 2);
    VRKPrintDesignJetChoices::FillMedia(*mediaList, GetTexts());
    auto* qualityLabel = new VRKDlgLabel(*mediaFrame, "QualityLevel");
    qualityLabel->SetTitle(Text("QualityLevel", "Print quality"));
    qualityLabel->SetGrid(1, 1);
    qualityCombo = new VRKDlgCombo(*mediaFrame, "QualityCombo");
    qualityCombo->SetGrid(1, 2);
    for (const char* line : qualityLines) {
        qualityCombo->AppendLine(Text(line, line));
    }
    qualityCombo->SetOnSelect([this] { QualitySelected(); });
    qualityIcon = new VRKDlgLabel(*mediaFrame, "Quality");
    qualityIcon->SetGrid(1, 0);
    return mediaFrame;
}

VRKDlgFrame* VRKPrintDesignJetDialog::AddAdvancedFrame(VRKDlgContainer& page) {
    auto* advanced = new VRKDlgFrame(page, "AdvancedFrame");
    retCheck = AddCheck(*advanced, "RET", "Resolution enhancement");
    cutterCheck = AddCheck(*advanced, "EnableCutter", "Cut the sheet");
    return advanced;
}

void VRKPrintDesignJetDialog::AddPicturedOptions(VRKDlgContainer& advanced, int row,
                                                 const char* inkedAreaKey,
                                                 const char* autoRotateKey) {
    auto* blank1 = new VRKDlgLabel(advanced, "BlankLabel1");
    blank1->SetTitle(Text("BlankLabel1", "  "));
    auto* blank2 = new VRKDlgLabel(advanced, "BlankLabel2");
    blank2->SetTitle(Text("BlankLabel2", "  "));
    blank2->SetGrid(row + 1, 0);

    auto* sub = new VRKDlgFrame(advanced, "SubAdvancedFrame");
    sub->SetGrid(row, 0);
    inkedAreaCheck = AddCheck(*sub, "InkedArea", "Print the inked area only");
    inkedAreaIcon = AddPicture(*sub, inkedAreaKey, "HPInkedArea");
    inkedAreaIcon->SetGrid(0, 1);
    autoRotateCheck = AddCheck(*sub, "AutoRotate", "Rotate automatically");
    autoRotateCheck->SetGrid(1, 0);
    AddPicture(*sub, autoRotateKey, "HPAutoRotate")->SetGrid(1, 1);
}

void VRKPrintDesignJetDialog::AddAboutButton(VRKDlgContainer& page) {
    auto* about = new VRKDlgPushButton(page, "ZK_HPLogosOptions");
    about->SetTitle(Text("ZK_HPLogosOptions", "About"));
    about->SetPicture("ZKW_HPLogos");
    about->SetOnPush([this] { OpenAbout(); });
}

VRKDlgCheckButton* VRKPrintDesignJetDialog::AddCheck(VRKDlgContainer& frame, const char* key,
                                                     const char* fallback) {
    auto* check = new VRKDlgCheckButton(frame, key);
    check->SetTitle(Text(key, fallback));
    return check;
}

VRKDlgLabel* VRKPrintDesignJetDialog::AddPicture(VRKDlgContainer& frame, const char* key,
                                                 const char* picture) {
    auto* label = new VRKDlgLabel(frame, key);
    label->SetPicture(picture);
    return label;
}

void VRKPrintDesignJetDialog::QualitySelected() {
    qualityIcon->SetPicture(VRKPrintDesignJetChoices::QualityPicture(qualityCombo->GetSelect()));
}

void VRKPrintDesignJetDialog::ShowRememberedPage() {
    tabs->SetCurrentPage(rememberedPage);
}

void VRKPrintDesignJetDialog::OpenAbout() {
    auto* about = new (std::nothrow) VRKPrintHP1055CDialogAbout(this);
    if (about != nullptr) {
        about->Show();
    }
}
