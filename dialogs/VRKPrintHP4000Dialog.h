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
class VRKPrintHP4000Properties;

// The property dialog of the DesignJet 4000 series: the media source (a single roll or the manual
// feed), the media type, the print quality and the resolution on the "Options" page; the
// resolution enhancement, the cutter, the maximum detail, printing the inked area only and the
// automatic rotation on the "Advanced" page. Both pages open the about box. The widgets show the
// record when the dialog opens; OK writes them into it. The dialog opens on the page that was
// shown when OK was last pressed in a dialog of this class. It is made visible by its owner and
// ends by itself, telling its owner through the end notification.
class VRKPrintHP4000Dialog : public VRKDlgDialog {
  public:
    // Called when the dialog ends: true after OK, false after Cancel or the close box.
    using EndNotification = std::function<void(bool ok)>;

    // Edits `record`, which must outlive the dialog; without one, a default record of the
    // dialog's own.
    VRKPrintHP4000Dialog(VRKDlgDialog* parent, VRKPrintHP4000Properties* record);
    ~VRKPrintHP4000Dialog() override;

    void SetOnEnd(EndNotification notification) { onEnd = std::move(notification); }
    VRKPrintHP4000Properties& GetRecord() const { return *record; }

  private:
    std::string Text(const std::string& key, const std::string& fallback) const;
    void BuildOptionsPage(VRKDlgTabContainer& tabs);
    void BuildMediaFrame(VRKDlgContainer& options);
    void BuildAdvancedPage(VRKDlgTabContainer& tabs);
    void AddAboutButton(VRKDlgContainer& page);
    VRKDlgCheckButton* AddCheck(VRKDlgContainer& frame, const char* key, const char* fallback);
    VRKDlgLabel* AddPicture(VRKDlgContainer& frame, const char* key, const char* picture);
    void ShowRecord();
    void QualitySelected();
    void OpenAbout();
    void WriteBack();
    void End(bool ok);

    // The page shown when OK was last pressed, for the next dialog of this class.
    static int rememberedPage;

    VRKDlgResources texts{"VRKPrintHP4000Dialog"};
    // The record of the dialog's own when the caller gave none (released with the dialog).
    VRKPrintHP4000Properties* ownRecord;
    VRKPrintHP4000Properties* record;
    EndNotification onEnd;

    VRKDlgTabContainer* tabs = nullptr;
    VRKDlgCombo* sourceList = nullptr;
    VRKDlgCombo* mediaList = nullptr;
    VRKDlgCombo* qualityCombo = nullptr;
    VRKDlgLabel* qualityIcon = nullptr;
    VRKDlgCombo* resolutionCombo = nullptr;
    VRKDlgCheckButton* retCheck = nullptr;
    VRKDlgCheckButton* cutterCheck = nullptr;
    VRKDlgCheckButton* maxDetailCheck = nullptr;
    VRKDlgCheckButton* inkedAreaCheck = nullptr;
    VRKDlgCheckButton* autoRotateCheck = nullptr;
};
