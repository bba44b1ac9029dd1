// Every notification, driven through real mouse and keyboard events on the shown widgets.
#include <QAbstractItemView>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgRadioButton.h"
#include "host/dialogs/VRKDlgSlider.h"
#include "host/dialogs/VRKDlgSpinner.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "host/dialogs/qt/VRKDlgQtAccess.h"
#include "tests/dialogs/DialogTestSupport.h"

namespace {

TEST_F(DialogTest, PushButtonClickCallsOnPush) {
    auto* button = new VRKDlgPushButton(*dialog, "Push");
    int pushes = 0;
    button->SetOnPush([&] { ++pushes; });
    ShowDialog();
    QTest::mouseClick(VRKDlgQtWidget(*button), Qt::LeftButton);
    EXPECT_EQ(pushes, 1);
    button->SetSensitivity(false);
    QTest::mouseClick(VRKDlgQtWidget(*button), Qt::LeftButton);
    EXPECT_EQ(pushes, 1);
}

TEST_F(DialogTest, CheckButtonClickAndSpaceKey) {
    auto* check = new VRKDlgCheckButton(*dialog, "Check");
    std::vector<bool> seen;
    check->SetOnChange([&] { seen.push_back(check->GetState()); });
    check->SetTitle("Mirror");
    ShowDialog();
    QWidget* box = VRKDlgQtWidget(*check);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_EQ(seen, (std::vector<bool>{true, false}));
}

// A click on a radio button's round indicator.
void Click(VRKDlgRadioButton* radio) {
    QWidget* button = VRKDlgQtWidget(*radio);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
}

TEST_F(DialogTest, RadioButtonsAreNotExclusiveUnlessAsked) {
    auto* a = new VRKDlgRadioButton(*dialog, "A");
    auto* b = new VRKDlgRadioButton(*dialog, "B");
    a->SetTitle("Portrait");
    b->SetTitle("Landscape");
    int changes = 0;
    a->SetOnChange([&] { ++changes; });
    b->SetOnChange([&] { ++changes; });
    ShowDialog();
    Click(a);
    Click(b);
    EXPECT_TRUE(a->GetState());
    EXPECT_TRUE(b->GetState());
    EXPECT_EQ(changes, 2);
    Click(b);
    EXPECT_FALSE(b->GetState());
    EXPECT_EQ(changes, 3);

    a->SetExclusive(true);
    b->SetExclusive(true);
    Click(b);
    EXPECT_FALSE(a->GetState());
    EXPECT_TRUE(b->GetState());
    EXPECT_EQ(changes, 5);  // b checked, a unchecked
    Click(b);
    EXPECT_TRUE(b->GetState());
    EXPECT_EQ(changes, 5);
}

TEST_F(DialogTest, ComboSelectionByKeyboardAndFromTheList) {
    auto* combo = new VRKDlgCombo(*dialog, "Combo");
    combo->AppendLine("Pen 1", 0, 0, 0);
    combo->AppendLine("Pen 2", 255, 0, 0);
    combo->AppendLine("Pen 3", 0, 0, 255);
    combo->SetSelect(0);
    std::vector<int> seen;
    combo->SetOnSelect([&] { seen.push_back(combo->GetSelect()); });
    ShowDialog();
    auto* box = static_cast<QComboBox*>(VRKDlgQtWidget(*combo));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Up);
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 1}));

    box->showPopup();
    QAbstractItemView* view = box->view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view->window()));
    QRect line = view->visualRect(view->model()->index(2, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, line.center());
    EXPECT_EQ(combo->GetSelect(), 2);
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 1, 2}));
}

TEST_F(DialogTest, SpinnerUpDownKeysAndTyping) {
    auto* spinner = new VRKDlgSpinner(*dialog, "Spin");
    spinner->SetRange(0.0, 10.0, 20);
    spinner->SetFormat("%1.2f mm");
    spinner->SetValue(5.0);
    std::vector<std::string> seen;
    spinner->SetOnUp([&] { seen.push_back("up " + spinner->GetText()); });
    spinner->SetOnDown([&] { seen.push_back("down " + spinner->GetText()); });
    spinner->SetOnModify([&] { seen.push_back("modify " + spinner->GetText()); });
    ShowDialog();
    auto* box = static_cast<QDoubleSpinBox*>(VRKDlgQtWidget(*spinner));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Up);
    QTest::keyClick(box, Qt::Key_Up);
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(spinner->GetValue(), 5.5);
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[0], "up 5.50 mm");
    EXPECT_EQ(seen[1], "up 6.00 mm");
    EXPECT_EQ(seen[2], "down 5.50 mm");

    seen.clear();
    QLineEdit* edit = box->findChild<QLineEdit*>();
    ASSERT_NE(edit, nullptr);
    edit->selectAll();
    QTest::keyClicks(box, "7.25");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(spinner->GetValue(), 7.25);
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.back().rfind("modify ", 0), 0u);
}

TEST_F(DialogTest, SliderMovesByKeys) {
    auto* slider = new VRKDlgSlider(*dialog, "Slide");
    slider->SetRange(0.0, 2.0, 8);
    slider->SetValue(1.0);
    std::vector<double> seen;
    slider->SetOnChange([&] { seen.push_back(slider->GetValue()); });
    ShowDialog();
    QWidget* widget = VRKDlgQtWidget(*slider);
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Right);
    QTest::keyClick(widget, Qt::Key_Left);
    QTest::keyClick(widget, Qt::Key_Left);
    QTest::keyClick(widget, Qt::Key_End);
    EXPECT_EQ(seen, (std::vector<double>{1.25, 1.0, 0.75, 2.0}));
}

TEST_F(DialogTest, MultiListSelectionByClickingRows) {
    auto* list = new VRKDlgMultiList(*dialog, "List");
    list->SetColumns({"Pen", "Width"});
    for (int row = 0; row < 4; ++row) {
        list->SetLine(row, 0, "Pen " + std::to_string(row + 1));
        list->SetLine(row, 1, "0.35");
    }
    std::vector<std::vector<int>> seen;
    list->SetOnSelect([&] { seen.push_back(list->GetSelect()); });
    ShowDialog();
    auto* tree = static_cast<QTreeWidget*>(VRKDlgQtWidget(*list));
    auto rowCenter = [&](int row) {
        return tree->visualItemRect(tree->topLevelItem(row)).center();
    };
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, rowCenter(2));
    EXPECT_EQ(list->GetSelect(), (std::vector<int>{2}));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::ControlModifier, rowCenter(0));
    EXPECT_EQ(list->GetSelect(), (std::vector<int>{0, 2}));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::ShiftModifier, rowCenter(3));
    EXPECT_EQ(list->GetSelect(), (std::vector<int>{0, 1, 2, 3}));
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.back(), (std::vector<int>{0, 1, 2, 3}));
}

TEST_F(DialogTest, TabChangeByClickingTheTab) {
    auto* tabs = new VRKDlgTabContainer(*dialog, "Tabs");
    auto* one = new VRKDlgTabPage(*tabs, "One");
    auto* two = new VRKDlgTabPage(*tabs, "Two");
    one->SetTitle("Pens");
    two->SetTitle("Paper");
    std::vector<int> seen;
    tabs->SetOnChange([&] { seen.push_back(tabs->GetCurrentPage()); });
    ShowDialog();
    QTabBar* bar = static_cast<QTabWidget*>(VRKDlgQtWidget(*tabs))->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    EXPECT_EQ(seen, (std::vector<int>{1}));
    tabs->SetCurrentPage(0);
    EXPECT_EQ(seen, (std::vector<int>{1}));
}

}  // namespace
