#pragma once

#include <functional>
#include <string>

#include "dialogs/VRKPrintPropertyDialog.h"

class VRKDlgCheckButton;
class VRKDlgCombo;
class VRKDlgLabel;
class VRKDlgPushButton;
class VRKDlgSlider;
class VRKPrintHPGLDialog;
class VRKPrintHPGL2Properties;

// The HP-GL/2 property dialog: roll cutter, media type, print quality and the HP-GL restriction
// (the record's Type, which makes the generator write plain HP-GL for a pen plotter). With the
// restriction on, the HP-GL/2 options are greyed and the pen table is edited in the HP-GL pen
// dialog instead. OK writes the record and tells the owner; Cancel and the close box leave it.
class VRKPrintHPGL2Dialog : public VRKPrintPropertyDialog {
  public:
    // Called once the dialog ended through OK; Cancel and the close box call nothing.
    using OkNotification = std::function<void()>;

    // Edits `record`, which must outlive the dialog.
    VRKPrintHPGL2Dialog(VRKDlgDialog* parent, VRKPrintHPGL2Properties* record);

    void SetOnOkDone(OkNotification notification) { onOkDone = std::move(notification); }
    // The pen dialog opened from this one, while it is open.
    VRKPrintHPGLDialog* GetPenDialog() const { return penDialog; }

  private:
    // The HP-GL/2 options usable exactly when the restriction is off; the pen table button the
    // other way round.
    void ApplySensitivity();
    void OpenPenDialog();
    void WriteBack();

    VRKPrintHPGL2Properties* record;
    OkNotification onOkDone;
    VRKPrintHPGLDialog* penDialog = nullptr;

    VRKDlgCheckButton* enableCutter = nullptr;
    VRKDlgLabel* mediaType = nullptr;
    VRKDlgCombo* mediaList = nullptr;
    VRKDlgLabel* qualityLevel = nullptr;
    VRKDlgSlider* qualitySlider = nullptr;
    VRKDlgCheckButton* restriction = nullptr;
    VRKDlgPushButton* penTableButton = nullptr;
};
