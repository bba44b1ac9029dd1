#pragma once

#include <functional>
#include <string>

#include "dialogs/VRKPrintPropertyDialog.h"

class VRKDlgColorViewer;
class VRKDlgFrame;
class VRKDlgSpinner;

// The free colour of a pen: red, green and blue from 0 to 255 with a live swatch. It edits three
// floats of its owner, written only on OK, and ends by itself, telling its owner.
class VRKPrintHPGLColorDialog : public VRKPrintPropertyDialog {
  public:
    using VRKPrintPropertyDialog::EndNotification;
    using VRKPrintPropertyDialog::SetOnEnd;

    // The three floats must outlive the dialog.
    VRKPrintHPGLColorDialog(VRKDlgDialog* parent, float* red, float* green, float* blue);

    // The swatch, once the area that holds it reported its creation.
    VRKDlgColorViewer* GetViewer() const { return viewer; }

  private:
    VRKDlgSpinner* AddSpinner(const char* labelKey, const char* labelText, const char* key,
                              float value, int row);
    void ShowColor();

    float* red;
    float* green;
    float* blue;
    VRKDlgSpinner* redSpinner = nullptr;
    VRKDlgSpinner* greenSpinner = nullptr;
    VRKDlgSpinner* blueSpinner = nullptr;
    VRKDlgFrame* viewerFrame = nullptr;
    VRKDlgColorViewer* viewer = nullptr;
};
