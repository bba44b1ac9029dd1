#include "dialogs/VRKPrintHPGLDialog.h"

#include <new>

#include "dialogs/VRKPrintHPGLColorDialog.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgRadioButton.h"
#include "host/dialogs/VRKDlgSpinner.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

struct Origin {
    const char* key;
    const char* text;
};

// The origin choices; the line index is the record's origin value.
constexpr Origin kOrigins[5] = {
    {"Origin1", "Center"},
    {"Origin2", "Lower Left Corner"},
    {"Origin3", "Upper Left Corner"},
    {"Origin4", "Lower Right Corner"},
    {"Origin5", "Upper Right Corner"},
};

}  // namespace

VRKPrintHPGLDialog::VRKPrintHPGLDialog(VRKDlgDialog* parent, VRKPrintHPGLProperties* given)
    : VRKPrintPropertyDialog(parent, "PrintProperties", "VRKPrintHPGLDialog"),
      ownRecord(given),
      record(ownRecord.Or(given)),
      copies(*record) {
    SetTitle(Text("PrintProperties", "HP-GL Pens"));
    auto* tabs = new VRKDlgTabContainer(*this, "TabContainer");
    BuildPenPage(*tabs);
    BuildPrinterPage(*tabs);
    FillPenList();
    ShowInitialState();
    SetOnOk([this] {
        WriteBack();
        End(true);
    });
    SetOnCancel([this] { End(false); });
    SetOnClose([this] { End(false); });
}

VRKPrintHPGLDialog::~VRKPrintHPGLDialog() = default;

void VRKPrintHPGLDialog::BuildPenPage(VRKDlgTabContainer& tabs) {
    auto* page = new VRKDlgTabPage(tabs, "Pen");
    page->SetTitle(Text("Pen", "Pen"));
    auto* frame1 = new VRKDlgFrame(*page, "Frame1");
    penList = new VRKDlgMultiList(*frame1, "PenList");
    penList->SetColumns({Text("Col1", "Pen"), Text("Col2", "Width"), Text("Col3", "Activation")});
    penList->SetVisibleLineCount(9);
    penList->SetOnSelect([this] { PenSelected(); });

    auto* frame2 = new VRKDlgFrame(*page, "Frame2");
    colorLabel = new VRKDlgLabel(*frame2, "ColorLabel");
    colorLabel->SetTitle(Text("ColorLabel", "Color"));
    colorChoice = new VRKDlgCombo(*frame2, "ColorChoice");
    colorChoice->SetGrid(0, 1);
    for (const auto& color : VRKPrintHPGLPenCopies::NamedColors()) {
        colorChoice->AppendLine(Text(color.key, color.text), color.red, color.green, color.blue);
    }
    colorChoice->AppendLine("...");
    colorChoice->SetOnSelect([this] { ColorChosen(); });
    widthLabel = new VRKDlgLabel(*frame2, "WidthLabel");
    widthLabel->SetTitle(Text("WidthLabel", "Width"));
    widthLabel->SetGrid(1, 0);
    widthSpinner = new VRKDlgSpinner(*frame2, "WidthSpinner");
    widthSpinner->SetGrid(1, 1);
    widthSpinner->SetRange(0.1, 3.1, 60);
    widthSpinner->SetFormat("%1.2f mm");
    widthSpinner->SetValue(0.35);
    widthSpinner->SetOnModify([this] { WidthChanged(); });
    widthSpinner->SetOnUp([this] { WidthChanged(); });
    widthSpinner->SetOnDown([this] { WidthChanged(); });
    activationCheck = new VRKDlgCheckButton(*frame2, "ActivationCheck");
    activationCheck->SetTitle(Text("ActivationCheck", "Activation"));
    activationCheck->SetGrid(2, 0, 1, -1);
    activationCheck->SetOnChange([this] { ActivationChanged(); });

    auto* frame2bis = new VRKDlgFrame(*page, "Frame2bis");
    auto* reset = new VRKDlgPushButton(*frame2bis, "ResetButton");
    reset->SetTitle(Text("ResetButton", "Reset"));
    reset->SetOnPush([this] { Reset(); });
}

void VRKPrintHPGLDialog::BuildPrinterPage(VRKDlgTabContainer& tabs) {
    auto* page = new VRKDlgTabPage(tabs, "Printer");
    page->SetTitle(Text("Printer", "Printer"));
    auto* frame3 = new VRKDlgFrame(*page, "Frame3");
    auto* originLabel = new VRKDlgLabel(*frame3, "OriginLabel");
    originLabel->SetTitle(Text("OriginLabel", "Origin"));
    originChoice = new VRKDlgCombo(*frame3, "OriginChoice");
    originChoice->SetGrid(0, 1);
    for (const Origin& origin : kOrigins) {
        originChoice->AppendLine(Text(origin.key, origin.text));
    }
    relativeCheck = new VRKDlgCheckButton(*frame3, "RelativeCheck");
    relativeCheck->SetTitle(Text("RelativeCheck", "Relative pen moves"));
    relativeCheck->SetGrid(1, 0, 1, -1);
    auto* thicknessLabel = new VRKDlgLabel(*frame3, "ThicknessLabel");
    thicknessLabel->SetTitle(Text("ThicknessLabel", "Line thickness"));
    thicknessLabel->SetGrid(2, 0);
    auto* frame31 = new VRKDlgFrame(*frame3, "Frame31");
    frame31->SetGrid(2, 1);
    modelThickness = new VRKDlgRadioButton(*frame31, "ModelThickness");
    modelThickness->SetTitle(Text("ModelThickness", "Model thickness"));
    penThickness = new VRKDlgRadioButton(*frame31, "PenThickness");
    penThickness->SetTitle(Text("PenThickness", "Pen thickness"));
    modelThickness->SetOnChange([this] {
        modelThickness->SetState(true);
        penThickness->SetState(false);
    });
    penThickness->SetOnChange([this] {
        penThickness->SetState(true);
        modelThickness->SetState(false);
    });
}

void VRKPrintHPGLDialog::FillPenList() {
    penList->ClearLines();
    for (int row = 0; row < copies.RowCount(); ++row) {
        const int pen = VRKPrintHPGLPenCopies::PenOfRow(row);
        penList->SetLine(row, 0, VRKPrintHPGLPenCopies::NumberCell(pen));
        penList->SetLine(row, 1, VRKPrintHPGLPenCopies::WidthCell(copies.Pen(pen).width));
        penList->SetLine(row, 2,
                         VRKPrintHPGLPenCopies::ActivationCell(copies.Pen(pen).enable != 0));
    }
}

void VRKPrintHPGLDialog::ShowInitialState() {
    colorChoice->SetSelect(0);
    activationCheck->SetState(false);
    originChoice->SetSelect(record->GetOrigin());
    relativeCheck->SetState(record->GetRelativeMovePen() != 0);
    penThickness->SetState(record->GetPrintThickness() != 0);
    modelThickness->SetState(record->GetPrintThickness() == 0);
    SetPenWidgetsSensitive(false);
}

void VRKPrintHPGLDialog::SetPenWidgetsSensitive(bool sensitive) {
    colorLabel->SetSensitivity(sensitive);
    colorChoice->SetSensitivity(sensitive);
    widthLabel->SetSensitivity(sensitive);
    widthSpinner->SetSensitivity(sensitive);
    activationCheck->SetSensitivity(sensitive);
}

int VRKPrintHPGLDialog::SelectedPen() const {
    const std::vector<int> rows = penList->GetSelect();
    return rows.empty() ? -1 : VRKPrintHPGLPenCopies::PenOfRow(rows.front());
}

void VRKPrintHPGLDialog::PenSelected() {
    const int pen = SelectedPen();
    if (pen < 0) {
        return;
    }
    SetPenWidgetsSensitive(true);
    colorChoice->SetSelect(copies.ColorIndex(pen));
    widthSpinner->SetValue(copies.Pen(pen).width);
    activationCheck->SetState(copies.Pen(pen).enable != 0);
}

void VRKPrintHPGLDialog::ColorChosen() {
    const int pen = SelectedPen();
    if (pen < 0) {
        return;
    }
    const int line = colorChoice->GetSelect();
    if (line == VRKPrintHPGLPenCopies::kFreeColor) {
        if (colorDialog != nullptr) {
            return;
        }
        freeRed = copies.Pen(pen).red;
        freeGreen = copies.Pen(pen).green;
        freeBlue = copies.Pen(pen).blue;
        colorDialog = new VRKPrintHPGLColorDialog(this, &freeRed, &freeGreen, &freeBlue);
        colorDialog->SetOnEnd([this](bool ok) { ColorDialogEnded(ok); });
        colorDialog->Show();
        return;
    }
    copies.ChooseNamedColor(pen, line);
}

void VRKPrintHPGLDialog::ColorDialogEnded(bool ok) {
    colorDialog = nullptr;
    const int pen = SelectedPen();
    if (ok && pen >= 0) {
        copies.ChooseFreeColor(pen, freeRed, freeGreen, freeBlue);
    }
}

void VRKPrintHPGLDialog::WidthChanged() {
    const int pen = SelectedPen();
    if (pen < 0) {
        return;
    }
    copies.SetWidth(pen, static_cast<float>(widthSpinner->GetValue()));
    penList->SetLine(pen - 1, 1, VRKPrintHPGLPenCopies::WidthCell(copies.Pen(pen).width));
}

void VRKPrintHPGLDialog::ActivationChanged() {
    const int pen = SelectedPen();
    if (pen < 0) {
        return;
    }
    const bool enabled = activationCheck->GetState();
    copies.SetEnabled(pen, enabled);
    penList->SetLine(pen - 1, 2, VRKPrintHPGLPenCopies::ActivationCell(enabled));
}

void VRKPrintHPGLDialog::Reset() {
    // The default pens go into the record at once, whatever becomes of the new dialog.
    VRKPrintHPGLPenCopies::ResetPens(*record);
    auto* parent = dynamic_cast<VRKDlgDialog*>(GetParent());
    successor = new (std::nothrow) VRKPrintHPGLDialog(parent, record);
    if (successor != nullptr) {
        // A record of this dialog's own goes over to the new dialog, with the notification.
        ownRecord.HandOver(successor->ownRecord);
        successor->SetOnEnd(TakeEndNotification());
        successor->Show();
    }
    // Without a successor, the notification is dropped: this dialog ends with neither answer.
    TakeEndNotification();
    RequestDelete();
}

void VRKPrintHPGLDialog::WriteBack() {
    copies.WriteTo(*record);
    record->SetOrigin(originChoice->GetSelect());
    record->SetRelativeMovePen(relativeCheck->GetState() ? 1 : 0);
    record->SetPrintThickness(modelThickness->GetState() ? 0 : 1);
}
