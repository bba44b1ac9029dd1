#pragma once

#include "dialogs/VRKOwnedRecord.h"

#include <functional>
#include <string>

#include "dialogs/VRKPrintHPGLPenCopies.h"
#include "dialogs/VRKPrintPropertyDialog.h"

class VRKDlgCheckButton;
class VRKDlgCombo;
class VRKDlgLabel;
class VRKDlgMultiList;
class VRKDlgRadioButton;
class VRKDlgSpinner;
class VRKDlgTabContainer;
class VRKPrintHPGLColorDialog;
class VRKPrintHPGLProperties;

// The HP-GL pen dialog: the pen table of a pen plotter (per pen its colour, width and activation)
// and the plot options (origin, relative pen moves, which line thickness is printed). It works on
// copies and writes them into the record on OK; Reset writes the default pens at once and opens
// the dialog anew. The dialog is made visible by its owner and ends by itself, telling its owner
// through the end notification.
class VRKPrintHPGLDialog : public VRKPrintPropertyDialog {
  public:
    // Called when the dialog ends: true after OK, false after Cancel or the close box. A dialog
    // that Reset replaced ends with neither; its successor takes the notification over.
    using VRKPrintPropertyDialog::EndNotification;
    using VRKPrintPropertyDialog::SetOnEnd;

    // Edits `record`, which must outlive the dialog; without one, a default record of the
    // dialog's own.
    VRKPrintHPGLDialog(VRKDlgDialog* parent, VRKPrintHPGLProperties* record);
    ~VRKPrintHPGLDialog() override;

    // The dialog Reset opened in this one's place, if any.
    VRKPrintHPGLDialog* GetSuccessor() const { return successor; }
    // The colour dialog open for the selected pen, if any.
    VRKPrintHPGLColorDialog* GetColorDialog() const { return colorDialog; }
    VRKPrintHPGLProperties& GetRecord() const { return *record; }

  private:
    void BuildPenPage(VRKDlgTabContainer& tabs);
    void BuildPrinterPage(VRKDlgTabContainer& tabs);
    void FillPenList();
    void ShowInitialState();
    // The pen of the first selected row, or -1 when no row is selected.
    int SelectedPen() const;
    void SetPenWidgetsSensitive(bool sensitive);
    void PenSelected();
    void ColorChosen();
    void ColorDialogEnded(bool ok);
    void WidthChanged();
    void ActivationChanged();
    void Reset();
    void WriteBack();
    // The record of the dialog's own when the caller gave none.
    VRKOwnedRecord<VRKPrintHPGLProperties> ownRecord;
    VRKPrintHPGLProperties* record;
    VRKPrintHPGLPenCopies copies;
    VRKPrintHPGLDialog* successor = nullptr;
    VRKPrintHPGLColorDialog* colorDialog = nullptr;
    // The colour the colour dialog edits, 0 to 255.
    float freeRed = 0.0f, freeGreen = 0.0f, freeBlue = 0.0f;

    VRKDlgMultiList* penList = nullptr;
    VRKDlgLabel* colorLabel = nullptr;
    VRKDlgCombo* colorChoice = nullptr;
    VRKDlgLabel* widthLabel = nullptr;
    VRKDlgSpinner* widthSpinner = nullptr;
    VRKDlgCheckButton* activationCheck = nullptr;
    VRKDlgCombo* originChoice = nullptr;
    VRKDlgCheckButton* relativeCheck = nullptr;
    VRKDlgRadioButton* modelThickness = nullptr;
    VRKDlgRadioButton* penThickness = nullptr;
};
