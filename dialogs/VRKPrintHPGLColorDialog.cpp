#include "dialogs/VRKPrintHPGLColorDialog.h"

#include "host/dialogs/VRKDlgColorViewer.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgSpinner.h"
#include "host/dialogs/VRKDlgWindows.h"

VRKPrintHPGLColorDialog::VRKPrintHPGLColorDialog(VRKDlgDialog* parent, float* redValue,
                                                 float* greenValue, float* blueValue)
    : VRKPrintPropertyDialog(parent, "HPGLColor", "VRKPrintHPGLColorDialog"),
      red(redValue),
      green(greenValue),
      blue(blueValue) {
    SetTitle(Text("HPGLColor", "Color"));
    redSpinner = AddSpinner("RedLabel", "Red", "RedSpinner", *red, 0);
    greenSpinner = AddSpinner("GreenLabel", "Green", "GreenSpinner", *green, 1);
    blueSpinner = AddSpinner("BlueLabel", "Blue", "BlueSpinner", *blue, 2);
    viewerFrame = new VRKDlgFrame(*this, "ViewerFrame");
    viewerFrame->SetGrid(3, 0, 1, -1);
    auto* area = new VRKDlgWindows(*viewerFrame, "WinMotifFrame");
    area->SetOnCreated([this] {
        // The swatch goes in once its area exists, 50 by 25.
        if (viewer == nullptr) {
            viewer = new VRKDlgColorViewer(*viewerFrame, "Viewer");
            ShowColor();
        }
    });
    area->SetMinimumSize(50, 25);
    SetOnOk([this] {
        *red = static_cast<float>(redSpinner->GetValue());
        *green = static_cast<float>(greenSpinner->GetValue());
        *blue = static_cast<float>(blueSpinner->GetValue());
        End(true);
    });
    SetOnCancel([this] { End(false); });
    SetOnClose([this] { End(false); });
}

VRKDlgSpinner* VRKPrintHPGLColorDialog::AddSpinner(const char* labelKey, const char* labelText,
                                                   const char* key, float value, int row) {
    auto* label = new VRKDlgLabel(*this, labelKey);
    label->SetTitle(Text(labelKey, labelText));
    label->SetGrid(row, 0);
    auto* spinner = new VRKDlgSpinner(*this, key);
    spinner->SetGrid(row, 1);
    spinner->SetRange(0.0, 255.0, 255);
    spinner->SetFormat("%4.0f");
    spinner->SetValue(value);
    spinner->SetOnModify([this] { ShowColor(); });
    spinner->SetOnUp([this] { ShowColor(); });
    spinner->SetOnDown([this] { ShowColor(); });
    return spinner;
}

void VRKPrintHPGLColorDialog::ShowColor() {
    if (viewer == nullptr) {
        return;
    }
    viewer->SetBackgroundColor(redSpinner->GetValue() / 255.0, greenSpinner->GetValue() / 255.0,
                               blueSpinner->GetValue() / 255.0);
    viewer->Redraw();
}
