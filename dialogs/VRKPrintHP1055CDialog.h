#pragma once

#include "dialogs/VRKOwnedRecord.h"

#include "dialogs/VRKPrintDesignJetDialog.h"

class VRKDlgCheckButton;
class VRKDlgLabel;
class VRKPrintHP1055CProperties;

// The property dialog of the DesignJet 1000 series: the roll feeder and media source, the media
// type and print quality on the "Options" page; the resolution enhancement, the cutter, printing
// the inked area only and the automatic rotation on the "Advanced" page. Both pages open the about
// box. The widgets show the record when the dialog opens; OK writes them into it. The dialog opens
// on the page that was shown when OK was last pressed in a dialog of this class. It is made
// visible by its owner and ends by itself, telling its owner through the end notification.
class VRKPrintHP1055CDialog : public VRKPrintDesignJetDialog {
  public:
    // Edits `record`, which must outlive the dialog; without one, a default record of the
    // dialog's own.
    VRKPrintHP1055CDialog(VRKDlgDialog* parent, VRKPrintHP1055CProperties* record);
    ~VRKPrintHP1055CDialog() override;

    VRKPrintHP1055CProperties& GetRecord() const { return *record; }

  private:
    void BuildOptionsPage();
    void BuildAdvancedPage();
    void ShowRecord();
    void FeederChanged();
    void SourceSelected();
    void WriteBack() override;

    // The page shown when OK was last pressed, for the next dialog of this class.
    static int rememberedPage;
    // The record of the dialog's own when the caller gave none.
    VRKOwnedRecord<VRKPrintHP1055CProperties> ownRecord;
    VRKPrintHP1055CProperties* record;

    VRKDlgCheckButton* multiRollCheck = nullptr;
    VRKDlgLabel* printerIcon = nullptr;
};
