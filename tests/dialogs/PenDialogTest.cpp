// The HP-GL pen dialog and its colour dialog, driven through real mouse and keyboard events on
// the offscreen platform.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QTest>
#include <QTreeWidget>

#include "dialogs/VRKPrintHPGLColorDialog.h"
#include "dialogs/VRKPrintHPGLDialog.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgColorViewer.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgRadioButton.h"
#include "host/dialogs/VRKDlgSpinner.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/qt/VRKDlgQtAccess.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "tests/dialogs/PropertyDialogEvents.h"

namespace {

// A pen dialog on a record of the test's, shown; the dialog's end is recorded.
class PenDialog : public ::testing::Test {
  protected:
    void Open() {
        dialog = new VRKPrintHPGLDialog(nullptr, &record);
        // A dialog that ended deletes itself: the test lets go of it then.
        dialog->SetOnEnd([this](bool ok) {
            ends.push_back(ok);
            dialog = nullptr;
        });
        dialog->Show();
        VRKDlgApplication::ProcessEvents();
    }
    void TearDown() override {
        delete dialog;
        VRKDlgApplication::ProcessEvents();
    }
    template <class T>
    T& W(const std::string& key) {
        return WidgetOf<T>(*dialog, key);
    }
    void ClickRow(int row) { ::ClickRow(W<VRKDlgMultiList>("PenList"), row); }
    void ChooseColorLine(int line) { ChooseLine(W<VRKDlgCombo>("ColorChoice"), line); }
    void Click(const VRKDlgObject& widget) { ClickBox(widget); }

    VRKPrintHPGLProperties record;
    VRKPrintHPGLDialog* dialog = nullptr;
    std::vector<bool> ends;
};

TEST_F(PenDialog, OpensOnTheRecord) {
    record.SetOrigin(3);
    record.SetRelativeMovePen(0);
    Open();
    auto& list = W<VRKDlgMultiList>("PenList");
    ASSERT_EQ(list.GetLineCount(), 31);
    EXPECT_EQ(list.GetVisibleLineCount(), 9);
    EXPECT_EQ(list.GetLine(0, 0), "1");
    EXPECT_EQ(list.GetLine(0, 1), "0.35 mm");
    EXPECT_EQ(list.GetLine(0, 2), "    +  ");
    EXPECT_EQ(list.GetLine(30, 0), "31");
    EXPECT_EQ(list.GetLine(30, 2), "       ");
    auto& colors = W<VRKDlgCombo>("ColorChoice");
    ASSERT_EQ(colors.GetLineCount(), 8);
    EXPECT_EQ(colors.GetLine(1), "Red");
    EXPECT_EQ(colors.GetLine(7), "...");
    int r = 0, g = 0, b = 0;
    EXPECT_TRUE(colors.GetLineColor(6, r, g, b));
    EXPECT_EQ((std::vector<int>{r, g, b}), (std::vector<int>{0, 255, 255}));
    EXPECT_FALSE(colors.GetLineColor(7, r, g, b));
    EXPECT_EQ(colors.GetSelect(), 0);
    EXPECT_FALSE(colors.IsSensitive());
    EXPECT_FALSE(W<VRKDlgLabel>("ColorLabel").IsSensitive());
    EXPECT_FALSE(W<VRKDlgLabel>("WidthLabel").IsSensitive());
    EXPECT_FALSE(W<VRKDlgSpinner>("WidthSpinner").IsSensitive());
    EXPECT_FALSE(W<VRKDlgCheckButton>("ActivationCheck").IsSensitive());
    EXPECT_FALSE(W<VRKDlgCheckButton>("ActivationCheck").GetState());
    EXPECT_TRUE(W<VRKDlgPushButton>("ResetButton").IsSensitive());
    EXPECT_EQ(W<VRKDlgSpinner>("WidthSpinner").GetText(), "0.35 mm");
    EXPECT_EQ(W<VRKDlgCombo>("OriginChoice").GetSelect(), 3);
    EXPECT_EQ(W<VRKDlgCombo>("OriginChoice").GetLine(0), "Center");
    EXPECT_FALSE(W<VRKDlgCheckButton>("RelativeCheck").GetState());
    EXPECT_TRUE(W<VRKDlgRadioButton>("ModelThickness").GetState());
    EXPECT_FALSE(W<VRKDlgRadioButton>("PenThickness").GetState());
}

TEST_F(PenDialog, OnePenShowsAnEmptyList) {
    VRKPenTable one = record.GetPenTable();
    one.SetCount(1);
    record.SetPenTable(one);
    Open();
    EXPECT_EQ(W<VRKDlgMultiList>("PenList").GetLineCount(), 0);
    EXPECT_FALSE(W<VRKDlgCombo>("ColorChoice").IsSensitive());
    EXPECT_FALSE(W<VRKDlgSpinner>("WidthSpinner").IsSensitive());
}

TEST_F(PenDialog, SelectingAPenShowsItsValues) {
    Open();
    ClickRow(2);  // pen 3, green
    EXPECT_TRUE(W<VRKDlgCombo>("ColorChoice").IsSensitive());
    EXPECT_TRUE(W<VRKDlgSpinner>("WidthSpinner").IsSensitive());
    EXPECT_TRUE(W<VRKDlgCheckButton>("ActivationCheck").IsSensitive());
    EXPECT_EQ(W<VRKDlgCombo>("ColorChoice").GetSelect(), 2);
    EXPECT_TRUE(W<VRKDlgCheckButton>("ActivationCheck").GetState());
    ClickRow(9);  // pen 10, black and disabled
    EXPECT_EQ(W<VRKDlgCombo>("ColorChoice").GetSelect(), 0);
    EXPECT_FALSE(W<VRKDlgCheckButton>("ActivationCheck").GetState());
}

TEST_F(PenDialog, EditsReachTheRecordOnOk) {
    record.SetPrintThickness(5);
    record.SetRelativeMovePen(7);
    Open();
    ClickRow(2);
    auto* spin = static_cast<QDoubleSpinBox*>(VRKDlgQtWidget(W<VRKDlgSpinner>("WidthSpinner")));
    spin->setFocus();
    QTest::keyClick(spin, Qt::Key_Up);
    QTest::keyClick(spin, Qt::Key_Up);
    EXPECT_EQ(W<VRKDlgMultiList>("PenList").GetLine(2, 1), "0.45 mm");
    Click(W<VRKDlgCheckButton>("ActivationCheck"));
    EXPECT_EQ(W<VRKDlgMultiList>("PenList").GetLine(2, 2), "       ");
    ChooseColorLine(4);  // blue
    // Nothing reaches the record before OK.
    EXPECT_EQ(record.GetPenTable().Slots()[3], (VRKPen{0, 255, 0, 0.35f, 1}));
    ClickOk(*dialog);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(ends, (std::vector<bool>{true}));
    EXPECT_EQ(record.GetPenTable().Slots()[3], (VRKPen{0, 0, 255, 0.45f, 0}));
    // The plot options are rewritten from the widgets: 5 and 7 were shown as set.
    EXPECT_EQ(record.GetPrintThickness(), 1);
    EXPECT_EQ(record.GetRelativeMovePen(), 1);
    EXPECT_EQ(record.GetOrigin(), 1);
}

TEST_F(PenDialog, ThicknessChoicesExcludeEachOther) {
    Open();
    W<VRKDlgTabContainer>("TabContainer").SetCurrentPage(1);
    VRKDlgApplication::ProcessEvents();
    Click(W<VRKDlgRadioButton>("PenThickness"));
    EXPECT_TRUE(W<VRKDlgRadioButton>("PenThickness").GetState());
    EXPECT_FALSE(W<VRKDlgRadioButton>("ModelThickness").GetState());
    Click(W<VRKDlgRadioButton>("ModelThickness"));
    EXPECT_TRUE(W<VRKDlgRadioButton>("ModelThickness").GetState());
    EXPECT_FALSE(W<VRKDlgRadioButton>("PenThickness").GetState());
    Click(W<VRKDlgRadioButton>("PenThickness"));
    ClickOk(*dialog);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(record.GetPrintThickness(), 1);
}

TEST_F(PenDialog, CancelLeavesTheRecord) {
    Open();
    ClickRow(0);
    Click(W<VRKDlgCheckButton>("ActivationCheck"));
    ClickCancel(*dialog);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(ends, (std::vector<bool>{false}));
    EXPECT_EQ(record.GetPenTable(), VRKPrintHPGLProperties().GetPenTable());
}

TEST_F(PenDialog, FreeColourThroughTheColourDialog) {
    Open();
    ClickRow(1);  // pen 2, red
    ChooseColorLine(7);
    VRKPrintHPGLColorDialog* colour = dialog->GetColorDialog();
    ASSERT_NE(colour, nullptr);
    VRKDlgApplication::ProcessEvents();
    auto* red = colour->FindChild<VRKDlgSpinner>("RedSpinner");
    ASSERT_NE(red, nullptr);
    EXPECT_EQ(red->GetValue(), 255.0);
    EXPECT_EQ(red->GetText(), " 255");
    auto* green = static_cast<QDoubleSpinBox*>(
        VRKDlgQtWidget(*colour->FindChild<VRKDlgSpinner>("GreenSpinner")));
    green->setFocus();
    QTest::keyClick(green, Qt::Key_Up);
    ASSERT_NE(colour->GetViewer(), nullptr);
    double r = 0, g = 0, b = 0;
    colour->GetViewer()->GetBackgroundColor(r, g, b);
    EXPECT_EQ(r, 1.0);
    EXPECT_EQ(g, 1.0 / 255.0);
    EXPECT_EQ(b, 0.0);
    ClickOk(*colour);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(dialog->GetColorDialog(), nullptr);
    ClickOk(*dialog);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(record.GetPenTable().Slots()[2], (VRKPen{255, 1, 0, 0.35f, 1}));
}

TEST_F(PenDialog, ResetWritesTheDefaultPensAtOnce) {
    VRKPenTable changed = record.GetPenTable();
    changed.Slots()[4].width = 2.0f;
    changed.SetCount(6);
    record.SetPenTable(changed);
    record.SetOrigin(0);
    Open();
    Click(W<VRKDlgPushButton>("ResetButton"));
    // The first dialog ends itself once the click is handled: its successor is taken before.
    ASSERT_TRUE(dialog->IsDeleteRequested());
    VRKPrintHPGLDialog* next = dialog->GetSuccessor();
    ASSERT_NE(next, nullptr);
    dialog = next;
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(record.GetPenTable(), VRKPrintHPGLProperties().GetPenTable());
    EXPECT_EQ(record.GetOrigin(), 0);
    EXPECT_EQ(W<VRKDlgMultiList>("PenList").GetLineCount(), 31);
    // Cancelling the new dialog keeps the reset; the end notification came over to it.
    ClickCancel(*dialog);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(ends, (std::vector<bool>{false}));
    EXPECT_EQ(record.GetPenTable(), VRKPrintHPGLProperties().GetPenTable());
}

}  // namespace
