#include "dialogs/VRKPrintHPGL2Dialog.h"

#include <new>

#include "dialogs/VRKPrintHPGLDialog.h"
#include "host/core/VRKSaturatingTrunc.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgSlider.h"
#include "properties/VRKPrintHPGL2Properties.h"

namespace {

struct Media {
    const char* key;
    const char* text;
};

// The media types; line i is the record's media type i - 1 (-1, the printer's default, first).
constexpr Media kMedia[8] = {
    {"Media1", "Default"},       {"Media2", "Paper"},          {"Media3", "Transparency film"},
    {"Media4", "Vellum"},        {"Media5", "Polyester film"}, {"Media6", "Translucent paper"},
    {"Media7", "Special paper"}, {"Media8", "Glossy paper"},
};

}  // namespace

VRKPrintHPGL2Dialog::VRKPrintHPGL2Dialog(VRKDlgDialog* parent, VRKPrintHPGL2Properties* edited)
    : VRKPrintPropertyDialog(parent, "PrintProperties", "VRKPrintHPGL2Dialog"), record(edited) {
    SetTitle(Text("PrintProperties", "HP-GL/2 Properties"));
    enableCutter = new VRKDlgCheckButton(*this, "EnableCutter");
    enableCutter->SetTitle(Text("EnableCutter", "Enable cutter"));
    enableCutter->SetGrid(0, 0, 1, -1);
    mediaType = new VRKDlgLabel(*this, "MediaType");
    mediaType->SetTitle(Text("MediaType", "Media type"));
    mediaType->SetGrid(1, 0);
    mediaList = new VRKDlgCombo(*this, "MediaList");
    mediaList->SetGrid(1, 1);
    for (const Media& media : kMedia) {
        mediaList->AppendLine(Text(media.key, media.text));
    }
    qualityLevel = new VRKDlgLabel(*this, "QualityLevel");
    qualityLevel->SetTitle(Text("QualityLevel", "Quality"));
    qualityLevel->SetGrid(2, 0);
    qualitySlider = new VRKDlgSlider(*this, "QualitySlider");
    qualitySlider->SetGrid(2, 1);
    qualitySlider->SetRange(0.0, 100.0, 5);
    restriction = new VRKDlgCheckButton(*this, "HPGLRestriction");
    restriction->SetTitle(Text("HPGLRestriction", "HP-GL for pen plotters"));
    restriction->SetGrid(3, 0, 1, -1);
    restriction->SetOnChange([this] { ApplySensitivity(); });
    penTableButton = new VRKDlgPushButton(*this, "HPGLProperties");
    penTableButton->SetTitle(Text("HPGLProperties", "Pens..."));
    penTableButton->SetGrid(4, 0, 1, -1);
    penTableButton->SetOnPush([this] { OpenPenDialog(); });

    if (record != nullptr) {
        enableCutter->SetState(record->GetCutterState() != 0);
        // -1, the default, is line 0; a media type the list lacks selects no line.
        mediaList->SetSelect(record->GetMediaType() + 1);
        qualitySlider->SetValue(record->GetQuality());
        restriction->SetState(record->GetType() != 0);
    }
    ApplySensitivity();
    SetOnOk([this] {
        WriteBack();
        OkNotification notification = std::move(onOkDone);
        RequestDelete();
        if (notification) {
            notification();
        }
    });
    SetOnCancel([this] { RequestDelete(); });
    SetOnClose([this] { RequestDelete(); });
}

void VRKPrintHPGL2Dialog::ApplySensitivity() {
    const bool penPlotter = restriction->GetState();
    enableCutter->SetSensitivity(!penPlotter);
    mediaType->SetSensitivity(!penPlotter);
    mediaList->SetSensitivity(!penPlotter);
    qualityLevel->SetSensitivity(!penPlotter);
    qualitySlider->SetSensitivity(!penPlotter);
    penTableButton->SetSensitivity(penPlotter);
}

void VRKPrintHPGL2Dialog::OpenPenDialog() {
    if (record == nullptr || record->GetHPGLProperties() == nullptr) {
        return;
    }
    // The pen dialog writes the pen table itself on its own OK, whatever becomes of this one.
    penDialog = new (std::nothrow) VRKPrintHPGLDialog(this, record->GetHPGLProperties());
    if (penDialog != nullptr) {
        penDialog->SetOnEnd([this](bool) { penDialog = nullptr; });
        penDialog->Show();
    }
}

void VRKPrintHPGL2Dialog::WriteBack() {
    if (record == nullptr) {
        return;
    }
    record->SetCutterState(enableCutter->GetState() ? 1 : 0);
    record->SetMediaType(mediaList->GetSelect() - 1);
    // The slider's value truncated: 99.9 is stored as 99.
    record->SetQuality(VRKSaturatingTrunc<int>(qualitySlider->GetValue()));
    record->SetType(restriction->GetState() ? 1 : 0);
}
