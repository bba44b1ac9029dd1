// The state of every widget as set and read from code; no notification is called.
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>

#include <QSlider>
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgColorViewer.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgRadioButton.h"
#include "host/dialogs/VRKDlgSeparator.h"

#include "host/dialogs/VRKDlgSlider.h"
#include "host/dialogs/VRKDlgSpinner.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "host/dialogs/VRKDlgWindows.h"
#include "host/dialogs/qt/VRKDlgQtAccess.h"
#include "tests/dialogs/DialogTestSupport.h"

namespace {

int calls = 0;
void Count() {
    ++calls;
}

TEST_F(DialogTest, ObjectsKnowKeyParentDialogAndChildren) {
    auto* frame = new VRKDlgFrame(*dialog, "Frame");
    auto* check = new VRKDlgCheckButton(*frame, "Check");
    EXPECT_EQ(check->GetKey(), "Check");
    EXPECT_EQ(check->GetParent(), frame);
    EXPECT_EQ(check->GetDialog(), dialog);
    EXPECT_EQ(dialog->GetDialog(), dialog);
    EXPECT_EQ(dialog->FindChild<VRKDlgCheckButton>("Check"), check);
    EXPECT_EQ(dialog->FindChild<VRKDlgCombo>("Check"), nullptr);
    EXPECT_EQ(dialog->FindChildObject("None"), nullptr);
    EXPECT_EQ(dialog->GetChildCount(), 1);
    EXPECT_EQ(frame->GetChild(0), check);
    EXPECT_EQ(frame->GetChild(1), nullptr);
    delete check;
    EXPECT_EQ(frame->GetChildCount(), 0);
}

TEST_F(DialogTest, TitlesSensitivityAndVisibility) {
    dialog->SetTitle("Réglages");
    EXPECT_EQ(dialog->GetTitle(), "Réglages");
    EXPECT_EQ(VRKDlgQtWidget(*dialog)->windowTitle(), QString::fromUtf8("Réglages"));
    auto* frame = new VRKDlgFrame(*dialog, "Frame");
    auto* button = new VRKDlgPushButton(*frame, "Push");
    button->SetTitle("Apply");
    EXPECT_EQ(static_cast<QPushButton*>(VRKDlgQtWidget(*button))->text(), "Apply");
    EXPECT_TRUE(button->IsSensitive());
    frame->SetSensitivity(false);
    EXPECT_FALSE(frame->IsSensitive());
    EXPECT_FALSE(button->IsSensitive());
    frame->SetSensitivity(true);
    EXPECT_TRUE(button->IsSensitive());
    EXPECT_TRUE(button->IsVisible());
    button->SetVisibility(false);
    EXPECT_FALSE(button->IsVisible());
    ShowDialog();
    EXPECT_FALSE(VRKDlgQtWidget(*button)->isVisible());
    EXPECT_TRUE(VRKDlgQtWidget(*frame)->isVisible());
    button->SetVisibility(true);
    EXPECT_TRUE(VRKDlgQtWidget(*button)->isVisible());
}

TEST_F(DialogTest, GridPlacesChildrenInRowsAndSideBySide) {
    auto* first = new VRKDlgLabel(*dialog, "First");
    auto* second = new VRKDlgLabel(*dialog, "Second");
    auto* line = new VRKDlgSeparator(*dialog, "Line");
    EXPECT_EQ(first->GetGridRow(), 0);
    EXPECT_EQ(second->GetGridRow(), 1);
    EXPECT_EQ(line->GetGridRow(), 2);
    second->SetGrid(0, 1);
    EXPECT_EQ(second->GetGridRow(), 0);
    EXPECT_EQ(second->GetGridColumn(), 1);
    auto* third = new VRKDlgLabel(*dialog, "Third");
    EXPECT_EQ(third->GetGridRow(), 3);
    ShowDialog();
    EXPECT_EQ(VRKDlgQtWidget(*first)->y(), VRKDlgQtWidget(*second)->y());
    EXPECT_LT(VRKDlgQtWidget(*first)->x(), VRKDlgQtWidget(*second)->x());
    EXPECT_GT(VRKDlgQtWidget(*third)->y(), VRKDlgQtWidget(*line)->y());
}

TEST_F(DialogTest, CheckAndRadioStates) {
    auto* check = new VRKDlgCheckButton(*dialog, "Check");
    auto* a = new VRKDlgRadioButton(*dialog, "A");
    auto* b = new VRKDlgRadioButton(*dialog, "B");
    calls = 0;
    check->SetOnChange(Count);
    a->SetOnChange(Count);
    EXPECT_FALSE(check->GetState());
    check->SetState(true);
    EXPECT_TRUE(check->GetState());
    a->SetState(true);
    b->SetState(true);
    EXPECT_TRUE(a->GetState());  // not exclusive unless asked
    a->SetExclusive(true);
    b->SetExclusive(true);
    a->SetState(true);
    EXPECT_FALSE(b->GetState());
    a->SetState(false);
    EXPECT_FALSE(a->GetState());
    EXPECT_EQ(calls, 0);
}

TEST_F(DialogTest, ComboLinesColoursAndSelection) {
    auto* combo = new VRKDlgCombo(*dialog, "Combo");
    calls = 0;
    combo->SetOnSelect(Count);
    EXPECT_EQ(combo->GetSelect(), -1);
    EXPECT_EQ(combo->AppendLine("Black", 0, 0, 0), 0);
    EXPECT_EQ(combo->AppendLine("Plain"), 1);
    EXPECT_TRUE(combo->SetLine(2, "Red", 300, -4, 7));
    EXPECT_FALSE(combo->SetLine(4, "Gap"));
    EXPECT_EQ(combo->GetLineCount(), 3);
    int r = -1, g = -1, b = -1;
    EXPECT_TRUE(combo->GetLineColor(2, r, g, b));
    EXPECT_EQ(r, 255);
    EXPECT_EQ(g, 0);
    EXPECT_EQ(b, 7);
    EXPECT_FALSE(combo->GetLineColor(1, r, g, b));
    EXPECT_TRUE(combo->SetLine(2, "Dark"));
    EXPECT_FALSE(combo->GetLineColor(2, r, g, b));
    EXPECT_EQ(combo->GetLine(2), "Dark");
    EXPECT_EQ(combo->GetLine(9), "");
    combo->SetSelect(2);
    EXPECT_EQ(combo->GetSelect(), 2);
    combo->SetSelect(7);
    EXPECT_EQ(combo->GetSelect(), -1);
    combo->ClearLines();
    EXPECT_EQ(combo->GetLineCount(), 0);
    EXPECT_EQ(calls, 0);
}

TEST_F(DialogTest, SpinnerRangeFormatAndValue) {
    auto* spinner = new VRKDlgSpinner(*dialog, "Spin");
    calls = 0;
    spinner->SetOnModify(Count);
    EXPECT_TRUE(spinner->SetRange(0.0, 10.0, 40));
    EXPECT_EQ(spinner->GetStep(), 0.25);
    EXPECT_FALSE(spinner->SetRange(5.0, 1.0, 4));
    EXPECT_FALSE(spinner->SetRange(0.0, 1.0, 0));
    EXPECT_EQ(spinner->GetMax(), 10.0);
    EXPECT_TRUE(spinner->SetFormat("%1.2f mm"));
    EXPECT_FALSE(spinner->SetFormat("%d"));
    EXPECT_FALSE(spinner->SetFormat("%f %f"));
    EXPECT_FALSE(spinner->SetFormat("%s"));
    EXPECT_FALSE(spinner->SetFormat("mm"));
    spinner->SetValue(2.5);
    EXPECT_EQ(spinner->GetValue(), 2.5);
    EXPECT_EQ(spinner->GetText(), "2.50 mm");
    spinner->SetValue(12.0);
    EXPECT_EQ(spinner->GetValue(), 10.0);
    EXPECT_TRUE(spinner->SetFormat("%4.0f%%"));
    EXPECT_EQ(spinner->GetText(), "  10%");
    EXPECT_EQ(calls, 0);
}

TEST_F(DialogTest, SliderStepsAndValue) {
    auto* slider = new VRKDlgSlider(*dialog, "Slide");
    calls = 0;
    slider->SetOnChange(Count);
    EXPECT_TRUE(slider->SetRange(1.0, 3.0, 8));
    // Any value of the range is kept as it is given.
    slider->SetValue(1.6);
    EXPECT_EQ(slider->GetValue(), 1.6);
    EXPECT_EQ(static_cast<QSlider*>(VRKDlgQtWidget(*slider))->value(), 2400);
    slider->SetValue(9.0);
    EXPECT_EQ(slider->GetValue(), 3.0);
    slider->SetValue(-9.0);
    EXPECT_EQ(slider->GetValue(), 1.0);
    EXPECT_FALSE(slider->SetRange(1.0, 0.0, 8));
    EXPECT_EQ(calls, 0);
}

TEST_F(DialogTest, MultiListLinesAndSelection) {
    auto* list = new VRKDlgMultiList(*dialog, "List");
    calls = 0;
    list->SetOnSelect(Count);
    list->SetColumns({"Pen", "Colour"});
    list->SetVisibleLineCount(4);
    EXPECT_EQ(list->GetVisibleLineCount(), 4);
    EXPECT_EQ(list->GetColumnCount(), 2);
    EXPECT_TRUE(list->SetLine(2, 1, "Blue"));
    EXPECT_FALSE(list->SetLine(0, 2, "x"));
    EXPECT_FALSE(list->SetLine(-1, 0, "x"));
    EXPECT_EQ(list->GetLineCount(), 3);
    EXPECT_EQ(list->GetLine(2, 1), "Blue");
    EXPECT_EQ(list->GetLine(0, 0), "");
    list->SetSelect({2, 0, 7});
    EXPECT_EQ(list->GetSelect(), (std::vector<int>{0, 2}));
    list->ClearLines();
    EXPECT_EQ(list->GetLineCount(), 0);
    EXPECT_TRUE(list->GetSelect().empty());
    EXPECT_EQ(calls, 0);
}

TEST_F(DialogTest, TabsPagesAndPictures) {
    // A 2 x 2 picture of our own.
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(QString::fromStdString((folder / "Roll.png").string()), "PNG"));
    auto* tabs = new VRKDlgTabContainer(*dialog, "Tabs");
    auto* one = new VRKDlgTabPage(*tabs, "One");
    auto* two = new VRKDlgTabPage(*tabs, "Two");
    one->SetTitle("Pens");
    two->SetPicture("Roll");
    EXPECT_EQ(two->GetPicture(), "Roll");
    auto* qtabs = static_cast<QTabWidget*>(VRKDlgQtWidget(*tabs));
    EXPECT_EQ(qtabs->tabText(0), "Pens");
    EXPECT_FALSE(qtabs->tabIcon(1).isNull());
    EXPECT_EQ(tabs->GetPageCount(), 2);
    tabs->SetCurrentPage(*two);
    EXPECT_EQ(tabs->GetCurrentPage(), 1);
    two->SetSensitivity(false);
    EXPECT_FALSE(qtabs->isTabEnabled(1));

    auto* label = new VRKDlgLabel(*one, "Picture");
    label->SetTitle("text");
    label->SetPicture("Roll");
    EXPECT_TRUE(label->HasPictureLoaded());
    label->SetPicture("Missing");
    EXPECT_FALSE(label->HasPictureLoaded());
    EXPECT_EQ(static_cast<QLabel*>(VRKDlgQtWidget(*label))->text(), "Missing");
    label->SetPicture("");
    EXPECT_EQ(static_cast<QLabel*>(VRKDlgQtWidget(*label))->text(), "text");
}

TEST_F(DialogTest, ColorViewerTakesColourAndRedraws) {
    auto* viewer = new VRKDlgColorViewer(*dialog, "Colour");
    viewer->SetBackgroundColor(0.25, 2.0, -1.0);
    double r = 0, g = 0, b = 0;
    viewer->GetBackgroundColor(r, g, b);
    EXPECT_EQ(r, 0.25);
    EXPECT_EQ(g, 1.0);
    EXPECT_EQ(b, 0.0);
    ShowDialog();
    int painted = viewer->GetPaintCount();
    viewer->Redraw();
    VRKDlgQtWidget(*viewer)->repaint();
    EXPECT_GT(viewer->GetPaintCount(), painted);
    QImage shot = VRKDlgQtWidget(*viewer)->grab().toImage();
    EXPECT_EQ(shot.pixelColor(shot.width() / 2, shot.height() / 2), QColor(64, 255, 0));
}

TEST_F(DialogTest, WindowsAreaReportsCreationOnce) {
    auto* area = new VRKDlgWindows(*dialog, "Area");
    calls = 0;
    area->SetOnCreated(Count);
    EXPECT_FALSE(area->IsCreated());
    ShowDialog();
    EXPECT_TRUE(area->IsCreated());
    dialog->Hide();
    ShowDialog();
    EXPECT_EQ(calls, 1);
}

}  // namespace
