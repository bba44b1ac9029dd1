#pragma once

#include "dialogs/VRKOwnedRecord.h"

#include "dialogs/VRKPrintDesignJetDialog.h"

class VRKDlgCheckButton;
class VRKDlgCombo;
class VRKPrintHP4000Properties;

// The property dialog of the DesignJet 4000 series: the media source (a single roll or the manual
// feed), the media type, the print quality and the resolution on the "Options" page; the
// resolution enhancement, the cutter, the maximum detail, printing the inked area only and the
// automatic rotation on the "Advanced" page. Both pages open the about box. The widgets show the
// record when the dialog opens; OK writes them into it. The dialog opens on the page that was
// shown when OK was last pressed in a dialog of this class. It is made visible by its owner and
// ends by itself, telling its owner through the end notification.
class VRKPrintHP4000Dialog : public VRKPrintDesignJetDialog {
  public:
    // Edits `record`, which must outlive the dialog; without one, a default record of the
    // dialog's own.
    VRKPrintHP4000Dialog(VRKDlgDialog* parent, VRKPrintHP4000Properties* record);
    ~VRKPrintHP4000Dialog() override;

    VRKPrintHP4000Properties& GetRecord() const { return *record; }

  private:
    void BuildOptionsPage();
    void BuildAdvancedPage();
    void ShowRecord();
    void WriteBack() override;

    // The page shown when OK was last pressed, for the next dialog of this class.
    static int rememberedPage;
    // The record of the dialog's own when the caller gave none.
    VRKOwnedRecord<VRKPrintHP4000Properties> ownRecord;
    VRKPrintHP4000Properties* record;

    VRKDlgCombo* resolutionCombo = nullptr;
    VRKDlgCheckButton* maxDetailCheck = nullptr;
};
