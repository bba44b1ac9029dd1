#pragma once

#include <functional>
#include <string>

#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/VRKDlgResources.h"

class VRKDlgCheckButton;
class VRKDlgCombo;
class VRKDlgContainer;
class VRKDlgLabel;
class VRKDlgTabContainer;
class VRKPrintHP1055CProperties;

// The property dialog of the DesignJet 1000 series: the roll feeder and media source, the media
// type and print quality on the "Options" page; the resolution enhancement, the cutter, printing
// the inked area only and the automatic rotation on the "Advanced" page. Both pages open the about
// box. The widgets show the record when the dialog opens; OK writes them into it. The dialog opens
// on the page that was shown when OK was last pressed in a dialog of this class. It is made
// visible by its owner and ends by itself, telling its owner through the end notification.
class VRKPrintHP1055CDialog : public VRKDlgDialog {
  public:
    // Called when the dialog ends: true after OK, false after Cancel or the close box.
    using EndNotification = std::function<void(bool ok)>;

    // Edits `record`, which must outlive the dialog; without one, a default record of the
    // dialog's own.
    VRKPrintHP1055CDialog(VRKDlgDialog* parent, VRKPrintHP1055CProperties* record);
    ~VRKPrintHP1055CDialog() override;

    void SetOnEnd(EndNotification notification) { onEnd = std::move(notification); }
    VRKPrintHP1055CProperties& GetRecord() const { return *record; }

  private:
    std::string Text(const std::string& key, const std::string& fallback) const;
    void BuildOptionsPage(VRKDlgTabContainer& tabs);
    void BuildAdvancedPage(VRKDlgTabContainer& tabs);
    void AddAboutButton(VRKDlgContainer& page);
    VRKDlgCheckButton* AddCheck(VRKDlgContainer& frame, const char* key, const char* fallback);
    void ShowRecord();
    void FeederChanged();
    void SourceSelected();
    void QualitySelected();
    void OpenAbout();
    void WriteBack();
    void End(bool ok);

    // The page shown when OK was last pressed, for the next dialog of this class.
    static int rememberedPage;

    VRKDlgResources texts{"VRKPrintHP1055CDialog"};
    // The record of the dialog's own when the caller gave none (released with the dialog).
    VRKPrintHP1055CProperties* ownRecord;
    VRKPrintHP1055CProperties* record;
    EndNotification onEnd;

    VRKDlgTabContainer* tabs = nullptr;
    VRKDlgCheckButton* multiRollCheck = nullptr;
    VRKDlgCombo* sourceList = nullptr;
    VRKDlgLabel* printerIcon = nullptr;
    VRKDlgCombo* mediaList = nullptr;
    VRKDlgCombo* qualityCombo = nullptr;
    VRKDlgLabel* qualityIcon = nullptr;
    VRKDlgCheckButton* retCheck = nullptr;
    VRKDlgCheckButton* cutterCheck = nullptr;
    VRKDlgCheckButton* inkedAreaCheck = nullptr;
    VRKDlgLabel* inkedAreaIcon = nullptr;
    VRKDlgCheckButton* autoRotateCheck = nullptr;
};
