#pragma once

#include <initializer_list>
#include <string>

#include "dialogs/VRKPrintPropertyDialog.h"

class VRKDlgCheckButton;
class VRKDlgCombo;
class VRKDlgContainer;
class VRKDlgFrame;
class VRKDlgLabel;
class VRKDlgTabContainer;
class VRKDlgTabPage;

// What the DesignJet property dialogs share: the tab container, the skeleton of the "Options" page
// (media source, media type and print quality) and of the "Advanced" page (resolution
// enhancement, cutter, printing the inked area only, automatic rotation), the about box opened
// from both pages, and the page remembered for the next dialog of the same class. A model's
// dialog builds its pages from these pieces, adds its own widgets and shows its record.
class VRKPrintDesignJetDialog : public VRKPrintPropertyDialog {
  public:
    using VRKPrintPropertyDialog::EndNotification;
    using VRKPrintPropertyDialog::SetOnEnd;

  protected:
    // `className` names the resource file; `title` is the fallback of the window's title;
    // `rememberedPage`, the model's own, is set to the page shown when OK is pressed.
    VRKPrintDesignJetDialog(VRKDlgDialog* parent, const std::string& className,
                            const std::string& title, int& rememberedPage);

    // Writes the widgets into the record, on OK.
    virtual void WriteBack() = 0;

    // A page of the tab container titled after `key`, with the about button added by the caller.
    VRKDlgTabPage* AddPage(const char* key, const char* picture);
    // The frame of the media source on the "Options" page: `rollFrame` receives its inner frame.
    VRKDlgFrame* AddSourceFrame(VRKDlgContainer& options, VRKDlgFrame*& rollFrame);
    // The media source label and list (sourceList) in `rollFrame`, the list on `row`.
    void AddSourceList(VRKDlgContainer& rollFrame, int row);
    // A separator, then the frame of the media type and print quality (mediaList, qualityCombo,
    // qualityIcon); `qualityLines` are the keys of the quality lines.
    VRKDlgFrame* AddMediaFrame(VRKDlgContainer& options,
                               std::initializer_list<const char*> qualityLines);
    // The resolution enhancement and cutter boxes (retCheck, cutterCheck) of the "Advanced" page.
    VRKDlgFrame* AddAdvancedFrame(VRKDlgContainer& page);
    // Two blank lines round the frame of the pictured options (inkedAreaCheck, inkedAreaIcon,
    // autoRotateCheck) on `row`; the pictures are keyed `inkedAreaKey` and `autoRotateKey`.
    void AddPicturedOptions(VRKDlgContainer& advanced, int row, const char* inkedAreaKey,
                            const char* autoRotateKey);
    void AddAboutButton(VRKDlgContainer& page);
    VRKDlgCheckButton* AddCheck(VRKDlgContainer& frame, const char* key, const char* fallback);
    VRKDlgLabel* AddPicture(VRKDlgContainer& frame, const char* key, const char* picture);
    // The quality picture of the selected quality line.
    void QualitySelected();
    // Shows the page remembered for the dialog's class.
    void ShowRememberedPage();

    VRKDlgTabContainer* tabs = nullptr;
    VRKDlgCombo* sourceList = nullptr;
    VRKDlgCombo* mediaList = nullptr;
    VRKDlgCombo* qualityCombo = nullptr;
    VRKDlgLabel* qualityIcon = nullptr;
    VRKDlgCheckButton* retCheck = nullptr;
    VRKDlgCheckButton* cutterCheck = nullptr;
    VRKDlgCheckButton* inkedAreaCheck = nullptr;
    VRKDlgLabel* inkedAreaIcon = nullptr;
    VRKDlgCheckButton* autoRotateCheck = nullptr;

  private:
    void OpenAbout();

    int& rememberedPage;
};
