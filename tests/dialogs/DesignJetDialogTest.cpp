// The DesignJet 1000 series property dialog, driven through real mouse events on the offscreen
// platform: what it shows of its record, each notification, what OK writes back, Cancel and the
// close box, the page it opens on.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/VRKPrintHP1055CDialog.h"
#include "dialogs/VRKPrintHP1055CDialogAbout.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgSeparator.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "tests/dialogs/DesignJetDialogDriver.h"

namespace {

using Lines = std::vector<std::string>;

class HP1055CDialog
    : public DesignJetDialogDriver<VRKPrintHP1055CDialog, VRKPrintHP1055CProperties> {};

TEST_F(HP1055CDialog, WidgetTree) {
    Open();
    EXPECT_EQ(dialog->GetKey(), "PrintProperties");
    EXPECT_EQ(dialog->GetTitle(), "DesignJet 1000 Series");
    ASSERT_NE(VRKDlgQtOkButton(*dialog), nullptr);
    ASSERT_NE(VRKDlgQtCancelButton(*dialog), nullptr);
    auto& tabs = W<VRKDlgTabContainer>("TabContainer");
    ASSERT_EQ(tabs.GetPageCount(), 2);
    auto& options = W<VRKDlgTabPage>("Options");
    auto& advanced = W<VRKDlgTabPage>("Advanced");
    EXPECT_EQ(options.GetTitle(), "Options");
    EXPECT_EQ(advanced.GetTitle(), "Advanced");
    EXPECT_EQ(options.GetPicture(), "OptionsTab");
    EXPECT_EQ(advanced.GetPicture(), "AdvancedTab");
    EXPECT_EQ(tabs.GetChild(0), &options);
    EXPECT_EQ(tabs.GetChild(1), &advanced);

    // Options: the frames nest as drawn, the about button below them.
    auto& optionsFrame = W<VRKDlgFrame>("OptionsFrame");
    EXPECT_EQ(optionsFrame.GetParent(), &options);
    EXPECT_EQ(W<VRKDlgFrame>("SourceFrame").GetParent(), &optionsFrame);
    EXPECT_EQ(W<VRKDlgFrame>("RollFrame").GetParent(), &W<VRKDlgFrame>("SourceFrame"));
    EXPECT_EQ(W<VRKDlgSeparator>("Separator").GetParent(), &optionsFrame);
    EXPECT_EQ(W<VRKDlgFrame>("MediaFrame").GetParent(), &optionsFrame);
    EXPECT_EQ(W<VRKDlgCheckButton>("MultiRollFeeder").GetParent(), &W<VRKDlgFrame>("RollFrame"));
    EXPECT_EQ(W<VRKDlgLabel>("MediaSource").GetParent(), &W<VRKDlgFrame>("RollFrame"));
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetParent(), &W<VRKDlgFrame>("RollFrame"));
    EXPECT_EQ(W<VRKDlgLabel>("PrinterIcon").GetParent(), &W<VRKDlgFrame>("SourceFrame"));
    for (const char* key : {"MediaIcon", "MediaType", "QualityLevel", "Quality"}) {
        EXPECT_EQ(W<VRKDlgLabel>(key).GetParent(), &W<VRKDlgFrame>("MediaFrame")) << key;
    }
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetParent(), &W<VRKDlgFrame>("MediaFrame"));
    EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetParent(), &W<VRKDlgFrame>("MediaFrame"));
    EXPECT_EQ(W<VRKDlgLabel>("MediaSource").GetTitle(), "Media source");
    EXPECT_EQ(W<VRKDlgLabel>("MediaType").GetTitle(), "Media type");
    EXPECT_EQ(W<VRKDlgLabel>("QualityLevel").GetTitle(), "Print quality");
    EXPECT_EQ(W<VRKDlgCheckButton>("MultiRollFeeder").GetTitle(), "Multi-roll feeder");
    EXPECT_EQ(W<VRKDlgLabel>("MediaIcon").GetPicture(), "HPMedia");
    EXPECT_TRUE(W<VRKDlgLabel>("MediaIcon").HasPictureLoaded());

    // Advanced: a check box and its picture share a key.
    auto& advancedFrame = W<VRKDlgFrame>("AdvancedFrame");
    EXPECT_EQ(advancedFrame.GetParent(), &advanced);
    auto& sub = W<VRKDlgFrame>("SubAdvancedFrame");
    EXPECT_EQ(sub.GetParent(), &advancedFrame);
    EXPECT_EQ(W<VRKDlgCheckButton>("RET").GetParent(), &advancedFrame);
    EXPECT_EQ(W<VRKDlgCheckButton>("EnableCutter").GetParent(), &advancedFrame);
    EXPECT_EQ(W<VRKDlgLabel>("BlankLabel1").GetTitle(), "  ");
    EXPECT_EQ(W<VRKDlgLabel>("BlankLabel2").GetTitle(), "  ");
    EXPECT_EQ(W<VRKDlgLabel>("BlankLabel2").GetParent(), &advancedFrame);
    EXPECT_EQ(W<VRKDlgCheckButton>("InkedArea").GetParent(), &sub);
    EXPECT_EQ(W<VRKDlgLabel>("InkedArea").GetParent(), &sub);
    EXPECT_EQ(W<VRKDlgLabel>("InkedArea").GetPicture(), "HPInkedArea");
    EXPECT_EQ(W<VRKDlgCheckButton>("AutoRotate").GetParent(), &sub);
    EXPECT_EQ(W<VRKDlgLabel>("AutoRotate").GetPicture(), "HPAutoRotate");
    EXPECT_TRUE(W<VRKDlgLabel>("AutoRotate").HasPictureLoaded());
    EXPECT_EQ(W<VRKDlgCheckButton>("InkedArea").GetTitle(), "Print the inked area only");

    // One about button on each page.
    for (VRKDlgTabPage* page : {&options, &advanced}) {
        auto* about = page->FindChild<VRKDlgPushButton>("ZK_HPLogosOptions");
        ASSERT_NE(about, nullptr);
        EXPECT_EQ(about->GetParent(), page);
        EXPECT_EQ(about->GetPicture(), "ZKW_HPLogos");
    }
}

TEST_F(HP1055CDialog, ComboLines) {
    Open();
    EXPECT_EQ(ComboLines("MediaList"),
              (Lines{"Default", "Paper", "Transparency film", "Vellum", "Polyester film",
                     "Translucent paper", "Special paper", "Glossy paper"}));
    EXPECT_EQ(ComboLines("SourceList"), (Lines{"Roll", "Manual feed"}));
    EXPECT_EQ(ComboLines("QualityCombo"), (Lines{"Fast", "Normal", "Best"}));
}

TEST_F(HP1055CDialog, OpensOnTheRecord) {
    record.SetMultiRollFeeder(2);
    record.SetMediaSource(2);
    record.SetMediaType(3);
    record.SetQuality(0);
    record.SetRet(0);
    record.SetCutterState(5);
    record.SetInkedArea(0);
    record.SetAutoRotate(-1);
    Open();
    EXPECT_TRUE(W<VRKDlgCheckButton>("MultiRollFeeder").GetState());
    EXPECT_EQ(ComboLines("SourceList"), (Lines{"Roll 1", "Roll 2", "Roll 3"}));
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetSelect(), 2);
    EXPECT_EQ(W<VRKDlgLabel>("PrinterIcon").GetPicture(), "HPMultiroll");
    EXPECT_TRUE(W<VRKDlgLabel>("PrinterIcon").HasPictureLoaded());
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetSelect(), 4);
    EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetSelect(), 0);
    EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), "HPQualityFast");
    EXPECT_FALSE(W<VRKDlgCheckButton>("RET").GetState());
    EXPECT_TRUE(W<VRKDlgCheckButton>("EnableCutter").GetState());
    EXPECT_FALSE(W<VRKDlgCheckButton>("InkedArea").GetState());
    EXPECT_TRUE(W<VRKDlgCheckButton>("AutoRotate").GetState());
    EXPECT_EQ(CurrentPage(), 0);
}

TEST_F(HP1055CDialog, OpensOnTheSingleRollFeeder) {
    record.SetMultiRollFeeder(0);
    record.SetMediaSource(1);
    record.SetRet(1);
    record.SetCutterState(0);
    Open();
    EXPECT_FALSE(W<VRKDlgCheckButton>("MultiRollFeeder").GetState());
    EXPECT_EQ(ComboLines("SourceList"), (Lines{"Roll", "Manual feed"}));
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetSelect(), 1);
    EXPECT_EQ(W<VRKDlgLabel>("PrinterIcon").GetPicture(), "HPMonoroll");
    EXPECT_TRUE(W<VRKDlgCheckButton>("RET").GetState());
    EXPECT_FALSE(W<VRKDlgCheckButton>("EnableCutter").GetState());
}

TEST_F(HP1055CDialog, QualitySteps) {
    const std::vector<std::pair<int, int>> cases = {{0, 0},  {49, 0},  {50, 1}, {74, 1},
                                                    {99, 1}, {100, 2}, {-49, 0}};
    const char* pictures[] = {"HPQualityFast", "HPQualityNormal", "HPQualityBest"};
    for (const auto& [quality, line] : cases) {
        record.SetQuality(quality);
        Open();
        EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetSelect(), line) << quality;
        EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), pictures[line]) << quality;
        ClickCancel();
    }
}

TEST_F(HP1055CDialog, Quality74OpensOnNormalAndOkStores50) {
    record.SetQuality(74);
    Open();
    EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetSelect(), 1);
    EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetLine(1), "Normal");
    ClickOk();
    EXPECT_EQ(ends, (std::vector<bool>{true}));
    EXPECT_EQ(record.GetQuality(), 50);
}

TEST_F(HP1055CDialog, DefaultMediaTypeRoundTrips) {
    record.SetMediaType(-1);
    Open();
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetSelect(), 0);
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetLine(0), "Default");
    ClickOk();
    EXPECT_EQ(record.GetMediaType(), -1);
}

TEST_F(HP1055CDialog, SwitchingTheFeederRefillsTheSources) {
    record.SetMultiRollFeeder(0);
    record.SetMediaSource(1);
    Open();
    Click(W<VRKDlgCheckButton>("MultiRollFeeder"));
    EXPECT_EQ(W<VRKDlgLabel>("PrinterIcon").GetPicture(), "HPMultiroll");
    EXPECT_EQ(ComboLines("SourceList"), (Lines{"Roll 1", "Roll 2", "Roll 3"}));
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetSelect(), 0);
    ChooseLine("SourceList", 2);
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetSelect(), 2);
    Click(W<VRKDlgCheckButton>("MultiRollFeeder"));
    EXPECT_EQ(W<VRKDlgLabel>("PrinterIcon").GetPicture(), "HPMonoroll");
    EXPECT_EQ(ComboLines("SourceList"), (Lines{"Roll", "Manual feed"}));
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetSelect(), 0);
}

TEST_F(HP1055CDialog, ManualFeedTakesTheInkedAreaAway) {
    record.SetMultiRollFeeder(0);
    record.SetMediaSource(0);
    Open();
    ChooseLine("SourceList", 1);
    EXPECT_FALSE(W<VRKDlgCheckButton>("InkedArea").IsSensitive());
    EXPECT_FALSE(W<VRKDlgLabel>("InkedArea").IsSensitive());
    EXPECT_TRUE(W<VRKDlgCheckButton>("AutoRotate").IsSensitive());
    ChooseLine("SourceList", 0);
    EXPECT_TRUE(W<VRKDlgCheckButton>("InkedArea").IsSensitive());
    EXPECT_TRUE(W<VRKDlgLabel>("InkedArea").IsSensitive());
    // The second line of the multi-roll feeder is a roll.
    ChooseLine("SourceList", 1);
    EXPECT_FALSE(W<VRKDlgCheckButton>("InkedArea").IsSensitive());
    Click(W<VRKDlgCheckButton>("MultiRollFeeder"));
    EXPECT_TRUE(W<VRKDlgCheckButton>("InkedArea").IsSensitive());
    ChooseLine("SourceList", 1);
    EXPECT_TRUE(W<VRKDlgCheckButton>("InkedArea").IsSensitive());
}

TEST_F(HP1055CDialog, QualityPictureFollowsTheSelection) {
    record.SetQuality(100);
    Open();
    ChooseLine("QualityCombo", 0);
    EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), "HPQualityFast");
    EXPECT_TRUE(W<VRKDlgLabel>("Quality").HasPictureLoaded());
    ChooseLine("QualityCombo", 1);
    EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), "HPQualityNormal");
    ChooseLine("QualityCombo", 2);
    EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), "HPQualityBest");
    EXPECT_EQ(record.GetQuality(), 100);
}

TEST_F(HP1055CDialog, EachPageOpensAVisibleAboutBox) {
    Open();
    Click(*W<VRKDlgTabPage>("Options").FindChild<VRKDlgPushButton>("ZK_HPLogosOptions"));
    auto* about = dialog->FindChild<VRKPrintHP1055CDialogAbout>("HPDesJet1000SeriesAbout");
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(VRKDlgQtWidget(*about)->isVisible());
    QTest::mouseClick(VRKDlgQtOkButton(*about), Qt::LeftButton);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(dialog->FindChild<VRKPrintHP1055CDialogAbout>("HPDesJet1000SeriesAbout"), nullptr);
    ShowPage(1);
    Click(*W<VRKDlgTabPage>("Advanced").FindChild<VRKDlgPushButton>("ZK_HPLogosOptions"));
    about = dialog->FindChild<VRKPrintHP1055CDialogAbout>("HPDesJet1000SeriesAbout");
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(VRKDlgQtWidget(*about)->isVisible());
    // The about box goes with its dialog; nothing was written.
    ClickCancel();
    EXPECT_EQ(ends, (std::vector<bool>{false}));
}

}  // namespace
