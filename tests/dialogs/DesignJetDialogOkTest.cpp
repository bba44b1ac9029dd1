// What OK writes into the DesignJet 1000 series record, what Cancel and the close box leave, and
// the page the next dialog opens on; all through real mouse events on the offscreen platform.

#include <gtest/gtest.h>

#include <vector>

#include "dialogs/VRKPrintHP1055CDialog.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "tests/dialogs/DesignJetDialogDriver.h"

namespace {

class HP1055CDialogOk
    : public DesignJetDialogDriver<VRKPrintHP1055CDialog, VRKPrintHP1055CProperties> {
  protected:
    // A record unlike the defaults in every field the dialog shows.
    void SetUp() override {
        record.SetMultiRollFeeder(0);
        record.SetMediaSource(0);
        record.SetMediaType(2);
        record.SetQuality(100);
        record.SetCutterState(1);
        record.SetInkedArea(1);
        record.SetAutoRotate(0);
        record.SetRet(0);
    }
    void ExpectRecordAsSetUp() {
        EXPECT_EQ(record.GetMultiRollFeeder(), 0);
        EXPECT_EQ(record.GetMediaSource(), 0);
        EXPECT_EQ(record.GetMediaType(), 2);
        EXPECT_EQ(record.GetQuality(), 100);
        EXPECT_EQ(record.GetCutterState(), 1);
        EXPECT_EQ(record.GetInkedArea(), 1);
        EXPECT_EQ(record.GetAutoRotate(), 0);
        EXPECT_EQ(record.GetRet(), 0);
    }
    void ChangeEverything() {
        Click(W<VRKDlgCheckButton>("MultiRollFeeder"));
        ChooseLine("SourceList", 2);
        ChooseLine("MediaList", 7);
        ChooseLine("QualityCombo", 0);
        ShowPage(1);
        Click(W<VRKDlgCheckButton>("RET"));
        Click(W<VRKDlgCheckButton>("EnableCutter"));
        Click(W<VRKDlgCheckButton>("InkedArea"));
        Click(W<VRKDlgCheckButton>("AutoRotate"));
    }
};

TEST_F(HP1055CDialogOk, WritesEveryWidget) {
    Open();
    ChangeEverything();
    // Nothing reaches the record before OK.
    ExpectRecordAsSetUp();
    ClickOk();
    EXPECT_EQ(ends, (std::vector<bool>{true}));
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(record.GetMultiRollFeeder(), 1);
    EXPECT_EQ(record.GetMediaSource(), 2);
    EXPECT_EQ(record.GetMediaType(), 6);
    EXPECT_EQ(record.GetQuality(), 0);
    EXPECT_EQ(record.GetCutterState(), 0);
    EXPECT_EQ(record.GetInkedArea(), 0);
    EXPECT_EQ(record.GetAutoRotate(), 1);
    EXPECT_EQ(record.GetRet(), 1);
}

TEST_F(HP1055CDialogOk, UnchangedWidgetsWriteTheirOwnValues) {
    // Flags other than 0 and 1, a feeder count above 1 and a quality between the steps come back
    // as the widgets show them.
    record.SetMultiRollFeeder(3);
    record.SetMediaSource(1);
    record.SetQuality(60);
    record.SetCutterState(7);
    record.SetInkedArea(-2);
    record.SetAutoRotate(4);
    record.SetRet(9);
    Open();
    ClickOk();
    EXPECT_EQ(record.GetMultiRollFeeder(), 1);
    EXPECT_EQ(record.GetMediaSource(), 1);
    EXPECT_EQ(record.GetMediaType(), 2);
    EXPECT_EQ(record.GetQuality(), 50);
    EXPECT_EQ(record.GetCutterState(), 1);
    EXPECT_EQ(record.GetInkedArea(), 1);
    EXPECT_EQ(record.GetAutoRotate(), 1);
    EXPECT_EQ(record.GetRet(), 1);
}

TEST_F(HP1055CDialogOk, QualityLinesStoreStepsOf50) {
    const int stored[] = {0, 50, 100};
    for (int line = 0; line < 3; ++line) {
        record.SetQuality(33);
        Open();
        ChooseLine("QualityCombo", line);
        ClickOk();
        EXPECT_EQ(record.GetQuality(), stored[line]) << line;
    }
}

TEST_F(HP1055CDialogOk, EveryMediaLineStoresItsType) {
    for (int line = 0; line < 8; ++line) {
        Open();
        ChooseLine("MediaList", line);
        ClickOk();
        EXPECT_EQ(record.GetMediaType(), line - 1) << line;
    }
}

TEST_F(HP1055CDialogOk, ValuesTheListsDoNotOfferAreKept) {
    record.SetMediaType(12);
    record.SetMediaSource(5);
    record.SetQuality(150);
    Open();
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetSelect(), -1);
    EXPECT_EQ(W<VRKDlgCombo>("SourceList").GetSelect(), -1);
    EXPECT_EQ(W<VRKDlgCombo>("QualityCombo").GetSelect(), -1);
    EXPECT_EQ(W<VRKDlgLabel>("Quality").GetPicture(), "");
    ClickOk();
    EXPECT_EQ(record.GetMediaType(), 12);
    EXPECT_EQ(record.GetMediaSource(), 5);
    EXPECT_EQ(record.GetQuality(), 150);
}

TEST_F(HP1055CDialogOk, CancelLeavesTheRecord) {
    Open();
    ChangeEverything();
    ClickCancel();
    EXPECT_EQ(ends, (std::vector<bool>{false}));
    EXPECT_EQ(dialog, nullptr);
    ExpectRecordAsSetUp();
}

TEST_F(HP1055CDialogOk, TheCloseBoxLeavesTheRecord) {
    Open();
    ChangeEverything();
    CloseWindow();
    EXPECT_EQ(ends, (std::vector<bool>{false}));
    EXPECT_EQ(dialog, nullptr);
    ExpectRecordAsSetUp();
}

TEST_F(HP1055CDialogOk, TheNextDialogOpensOnThePageOfTheLastOk) {
    Open();
    EXPECT_EQ(CurrentPage(), 0);
    ShowPage(1);
    ClickOk();
    Open();
    EXPECT_EQ(CurrentPage(), 1);
    // Cancel remembers nothing.
    ShowPage(0);
    ClickCancel();
    Open();
    EXPECT_EQ(CurrentPage(), 1);
    ShowPage(0);
    ClickOk();
    Open();
    EXPECT_EQ(CurrentPage(), 0);
    EXPECT_EQ(ends, (std::vector<bool>{true, false, true}));
}

}  // namespace
