#pragma once

#include <functional>
#include <string>

#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/VRKDlgResources.h"

class VRKDlgColorViewer;
class VRKDlgFrame;
class VRKDlgSpinner;

// The free colour of a pen: red, green and blue from 0 to 255 with a live swatch. It edits three
// floats of its owner, written only on OK, and ends by itself, telling its owner.
class VRKPrintHPGLColorDialog : public VRKDlgDialog {
  public:
    using EndNotification = std::function<void(bool ok)>;

    // The three floats must outlive the dialog.
    VRKPrintHPGLColorDialog(VRKDlgDialog* parent, float* red, float* green, float* blue);

    void SetOnEnd(EndNotification notification) { onEnd = std::move(notification); }
    // The swatch, once the area that holds it reported its creation.
    VRKDlgColorViewer* GetViewer() const { return viewer; }

  private:
    std::string Text(const std::string& key, const std::string& fallback) const;
    VRKDlgSpinner* AddSpinner(const char* labelKey, const char* labelText, const char* key,
                              float value, int row);
    void ShowColor();
    void End(bool ok);

    VRKDlgResources texts{"VRKPrintHPGLColorDialog"};
    float* red;
    float* green;
    float* blue;
    EndNotification onEnd;
    VRKDlgSpinner* redSpinner = nullptr;
    VRKDlgSpinner* greenSpinner = nullptr;
    VRKDlgSpinner* blueSpinner = nullptr;
    VRKDlgFrame* viewerFrame = nullptr;
    VRKDlgColorViewer* viewer = nullptr;
};
