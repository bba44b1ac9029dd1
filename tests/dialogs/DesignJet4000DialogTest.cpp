// The DesignJet 4000 series property dialog, driven through real mouse events on the offscreen
// platform: its widgets, what it shows of its record, what OK writes back (the inverted cutter
// box, the HP-GL/2 quality switched off), Cancel and the close box, the page it opens on.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "dialogs/VRKPrintHP1055CDialogAbout.h"
#include "dialogs/VRKPrintHP4000Dialog.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "tests/dialogs/DesignJetDialogDriver.h"

namespace {

using Lines = std::vector<std::string>;

class HP4000Dialog : public DesignJetDialogDriver<VRKPrintHP4000Dialog, VRKPrintHP4000Properties> {
  protected:
    void SetUp() override {
        record.SetMediaSource(1);
        record.SetMediaType(0);
        record.SetPrintQuality(2);
        record.SetResolution(0);
        record.SetQuality(100);
        record.SetCutterState(1);
        record.SetRet(1);
        record.SetMaxDetail(0);
        record.SetInkedArea(1);
        record.SetAutoRotate(0);
    }
    void ExpectRecordAsSetUp() {
        EXPECT_EQ(record.GetMediaSource(), 1);
        EXPECT_EQ(record.GetMediaType(), 0);
        EXPECT_EQ(record.GetPrintQuality(), 2);
        EXPECT_EQ(record.GetResolution(), 0);
        EXPECT_EQ(record.GetQuality(), 100);
        EXPECT_EQ(record.GetCutterState(), 1);
        EXPECT_EQ(record.GetRet(), 1);
        EXPECT_EQ(record.GetMaxDetail(), 0);
        EXPECT_EQ(record.GetInkedArea(), 1);
        EXPECT_EQ(record.GetAutoRotate(), 0);
    }
    void ChangeEverything() {
        ChooseLine("SourceList", 1);
        ChooseLine("MediaList", 5);
        ChooseLine("QualityCombo", 1);
        ChooseLine("ResolutionCombo", 2);
        ShowPage(1);
        for (const char* key : {"RET", "EnableCutter", "MaxDetail", "InkedArea", "AutoRotate"}) {
            Click(W<VRKDlgCheckButton>(key));
        }
    }
};

TEST_F(HP4000Dialog, WidgetTree) {
    Open();
    EXPECT_EQ(dialog->GetKey(), "PrintProperties");
    EXPECT_EQ(dialog->GetTitle(), "DesignJet 4000 Series");
    ASSERT_EQ(W<VRKDlgTabContainer>("TabContainer").GetPageCount(), 2);
    EXPECT_EQ(W<VRKDlgTabPage>("Options").GetPicture(), "OptionsTab");
    EXPECT_EQ(W<VRKDlgTabPage>("Advanced").GetPicture(), "AdvancedTab");
    EXPECT_EQ(dialog->FindChildObject("MultiRollFeeder"), nullptr);
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetParent(), &W<VRKDlgFrame>("RollFrame"));
    EXPECT_EQ(W<VRKDlgFrame>("RollFrame").GetParent(), &W<VRKDlgFrame>("SourceFrame"));
    EXPECT_EQ(W<VRKDlgLabel>("PrinterIcon").GetPicture(), "HP4000Monoroll");
    EXPECT_TRUE(W<VRKDlgLabel>("PrinterIcon").HasPictureLoaded());
    EXPECT_EQ(W<VRKDlgCombo>("ResolutionCombo").GetParent(), &W<VRKDlgFrame>("MediaFrame"));
    EXPECT_EQ(W<VRKDlgLabel>("Resolution").GetTitle(), "Resolution (dpi)");
    EXPECT_EQ(ComboLines("SourceList"), (Lines{"Roll", "Manual feed"}));
    EXPECT_EQ(ComboLines("MediaList"),
              (Lines{"Default", "Paper", "Transparency film", "Vellum", "Polyester film",
                     "Translucent paper", "Special paper", "Glossy paper"}));
    EXPECT_EQ(ComboLines("QualityCombo"), (Lines{"Draft", "Normal", "High"}));
    EXPECT_EQ(ComboLines("ResolutionCombo"), (Lines{"300", "600", "1200"}));
    auto& sub = W<VRKDlgFrame>("SubAdvancedFrame");
    for (const char* key : {"RET", "EnableCutter", "MaxDetail"}) {
        EXPECT_EQ(W<VRKDlgCheckButton>(key).GetParent(), &W<VRKDlgFrame>("AdvancedFrame"));
    }
    EXPECT_EQ(W<VRKDlgCheckButton>("MaxDetail").GetTitle(), "Maximum detail");
    EXPECT_EQ(W<VRKDlgCheckButton>("InkedArea").GetParent(), &sub);
    EXPECT_EQ(W<VRKDlgLabel>("InkedAreaIcon").GetPicture(), "HPInkedArea");
    EXPECT_EQ(W<VRKDlgCheckButton>("AutoRotate").GetParent(), &sub);
    EXPECT_EQ(W<VRKDlgLabel>("AutoRotateIcon").GetPicture(), "HPAutoRotate");
    for (const char* page : {"Options", "Advanced"}) {
        auto* about = W<VRKDlgTabPage>(page).FindChild<VRKDlgPushButton>("ZK_HPLogosOptions");
        ASSERT_NE(about, nullptr) << page;
        EXPECT_EQ(about->GetPicture(), "ZKW_HPLogos");
    }
}

TEST_F(HP4000Dialog, OpensOnTheRecord) {
    Open();
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetSelect(), 0);
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetSelect(), 1);
    EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetSelect(), 2);
    EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), "HPQualityBest");
    EXPECT_EQ(W<VRKDlgCombo>("ResolutionCombo").GetSelect(), 0);
    EXPECT_TRUE(W<VRKDlgCheckButton>("RET").GetState());
    EXPECT_FALSE(W<VRKDlgCheckButton>("EnableCutter").GetState());
    EXPECT_FALSE(W<VRKDlgCheckButton>("MaxDetail").GetState());
    EXPECT_TRUE(W<VRKDlgCheckButton>("InkedArea").GetState());
    EXPECT_FALSE(W<VRKDlgCheckButton>("AutoRotate").GetState());
    ClickCancel();
    record.SetMediaSource(0);
    record.SetCutterState(0);
    Open();
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetSelect(), 1);
    EXPECT_TRUE(W<VRKDlgCheckButton>("EnableCutter").GetState());
}

TEST_F(HP4000Dialog, FlagsShowCheckedOnlyFor1) {
    record.SetRet(2);
    record.SetMaxDetail(255);
    record.SetInkedArea(2);
    record.SetAutoRotate(1);
    Open();
    EXPECT_FALSE(W<VRKDlgCheckButton>("RET").GetState());
    EXPECT_FALSE(W<VRKDlgCheckButton>("MaxDetail").GetState());
    EXPECT_FALSE(W<VRKDlgCheckButton>("InkedArea").GetState());
    EXPECT_TRUE(W<VRKDlgCheckButton>("AutoRotate").GetState());
    ClickOk();
    EXPECT_EQ(record.GetRet(), 0);
    EXPECT_EQ(record.GetMaxDetail(), 0);
    EXPECT_EQ(record.GetInkedArea(), 0);
    EXPECT_EQ(record.GetAutoRotate(), 1);
}

TEST_F(HP4000Dialog, TheCutterBoxIsTheInverseOfTheRecord) {
    const std::vector<std::pair<int, bool>> shown = {{0, true}, {1, false}, {-3, false}};
    for (const auto& [stored, checked] : shown) {
        record.SetCutterState(stored);
        Open();
        EXPECT_EQ(W<VRKDlgCheckButton>("EnableCutter").GetState(), checked) << stored;
        ClickOk();
        EXPECT_EQ(record.GetCutterState(), checked ? 0 : 1) << stored;
    }
    record.SetCutterState(1);
    Open();
    ShowPage(1);
    Click(W<VRKDlgCheckButton>("EnableCutter"));
    EXPECT_TRUE(W<VRKDlgCheckButton>("EnableCutter").GetState());
    ClickOk();
    EXPECT_EQ(record.GetCutterState(), 0);
    Open();
    Click(W<VRKDlgCheckButton>("EnableCutter"));
    ClickOk();
    EXPECT_EQ(record.GetCutterState(), 1);
}

TEST_F(HP4000Dialog, OutOfRangeCodesSelectTheFirstLine) {
    const std::vector<int> codes = {-1, 3, 7, 1000};
    for (int code : codes) {
        record.SetPrintQuality(code);
        record.SetResolution(code);
        Open();
        EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetSelect(), 0) << code;
        EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), "HPQualityFast") << code;
        EXPECT_EQ(W<VRKDlgCombo>("ResolutionCombo").GetSelect(), 0) << code;
        ClickOk();
        EXPECT_EQ(record.GetPrintQuality(), 0) << code;
        EXPECT_EQ(record.GetResolution(), 0) << code;
    }
    record.SetPrintQuality(1);
    record.SetResolution(2);
    Open();
    EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetSelect(), 1);
    EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), "HPQualityNormal");
    EXPECT_EQ(W<VRKDlgCombo>("ResolutionCombo").GetSelect(), 2);
}

TEST_F(HP4000Dialog, QualityPictureFollowsTheSelection) {
    Open();
    const char* pictures[] = {"HPQualityFast", "HPQualityNormal", "HPQualityBest"};
    for (int line : {0, 1, 2, 0}) {
        ChooseLine("QualityCombo", line);
        EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), pictures[line]) << line;
    }
}

TEST_F(HP4000Dialog, OkWritesEveryWidgetAndSwitchesTheQualityOff) {
    Open();
    ChangeEverything();
    ExpectRecordAsSetUp();
    ClickOk();
    EXPECT_EQ(ends, (std::vector<bool>{true}));
    EXPECT_EQ(record.GetMediaSource(), 0);
    EXPECT_EQ(record.GetMediaType(), 4);
    EXPECT_EQ(record.GetPrintQuality(), 1);
    EXPECT_EQ(record.GetResolution(), 2);
    EXPECT_EQ(record.GetQuality(), -1);
    EXPECT_EQ(record.GetCutterState(), 0);
    EXPECT_EQ(record.GetRet(), 0);
    EXPECT_EQ(record.GetMaxDetail(), 1);
    EXPECT_EQ(record.GetInkedArea(), 0);
    EXPECT_EQ(record.GetAutoRotate(), 1);
}

TEST_F(HP4000Dialog, EveryOkSetsTheQualityOff) {
    record.SetMediaSource(9);
    record.SetMediaType(-1);
    Open();
    ClickOk();
    EXPECT_EQ(record.GetQuality(), -1);
    EXPECT_EQ(record.GetMediaSource(), 1);
    EXPECT_EQ(record.GetMediaType(), -1);
    record.SetQuality(50);
    Open();
    ChooseLine("SourceList", 0);
    ClickOk();
    EXPECT_EQ(record.GetQuality(), -1);
    EXPECT_EQ(record.GetMediaSource(), 1);
}

TEST_F(HP4000Dialog, CancelAndTheCloseBoxLeaveTheRecord) {
    Open();
    ChangeEverything();
    ClickCancel();
    EXPECT_EQ(ends, (std::vector<bool>{false}));
    ExpectRecordAsSetUp();
    Open();
    ChangeEverything();
    CloseWindow();
    EXPECT_EQ(ends, (std::vector<bool>{false, false}));
    ExpectRecordAsSetUp();
}

TEST_F(HP4000Dialog, TheNextDialogOpensOnThePageOfTheLastOk) {
    Open();
    EXPECT_EQ(CurrentPage(), 0);
    ShowPage(1);
    ClickOk();
    Open();
    EXPECT_EQ(CurrentPage(), 1);
    ShowPage(0);
    ClickCancel();
    Open();
    EXPECT_EQ(CurrentPage(), 1);
    ShowPage(0);
    ClickOk();
    Open();
    EXPECT_EQ(CurrentPage(), 0);
}

TEST_F(HP4000Dialog, OpensTheAboutBox) {
    Open();
    ShowPage(1);
    Click(*W<VRKDlgTabPage>("Advanced").FindChild<VRKDlgPushButton>("ZK_HPLogosOptions"));
    auto* about = dialog->FindChild<VRKPrintHP1055CDialogAbout>("HPDesJet1000SeriesAbout");
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(VRKDlgQtWidget(*about)->isVisible());
    VRKDlgQtWidget(*about)->close();
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(dialog->FindChild<VRKPrintHP1055CDialogAbout>("HPDesJet1000SeriesAbout"), nullptr);
    EXPECT_NE(dialog, nullptr);
}

}  // namespace
