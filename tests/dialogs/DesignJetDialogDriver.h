#pragma once

// Drives the DesignJet property dialogs through real mouse events on the offscreen platform: a
// dialog of type D on a record of type R, shown; its end is recorded. At the end of each test the
// remembered tab page is set back to the first page the way a user would (a dialog opened, its
// first tab clicked, OK), so that no test depends on the one before.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTest>
#include <QWidget>
#include <string>
#include <vector>

#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/qt/VRKDlgQtAccess.h"

// The first descendant of `root` with this key that is a T. Two widgets of different kinds may
// share a key (a check box and the picture beside it); FindChild gives the first of them only.
template <class T>
T* FindTyped(const VRKDlgObject& root, const std::string& key) {
    for (int i = 0; i < root.GetChildCount(); ++i) {
        VRKDlgObject* child = root.GetChild(i);
        if (child->GetKey() == key) {
            if (auto* typed = dynamic_cast<T*>(child)) {
                return typed;
            }
        }
        if (T* found = FindTyped<T>(*child, key)) {
            return found;
        }
    }
    return nullptr;
}

template <class D, class R>
class DesignJetDialogDriver : public ::testing::Test {
  protected:
    void Open() {
        dialog = new D(nullptr, &record);
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
        dialog = nullptr;
        VRKDlgApplication::ProcessEvents();
        R scratch;
        auto* reset = new D(nullptr, &scratch);
        reset->Show();
        VRKDlgApplication::ProcessEvents();
        ClickTab(*reset, 0);
        QTest::mouseClick(VRKDlgQtOkButton(*reset), Qt::LeftButton);
        VRKDlgApplication::ProcessEvents();
    }
    template <class T>
    T& W(const std::string& key) {
        T* widget = FindTyped<T>(*dialog, key);
        EXPECT_NE(widget, nullptr) << key;
        return *widget;
    }
    static void ClickTab(VRKDlgDialog& d, int index) {
        auto* tabs = d.FindChild<VRKDlgTabContainer>("TabContainer");
        auto* bar = VRKDlgQtWidget(*tabs)->findChild<QTabBar*>();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
        VRKDlgApplication::ProcessEvents();
    }
    void ShowPage(int index) { ClickTab(*dialog, index); }
    void ChooseLine(const std::string& comboKey, int line) {
        auto* box = static_cast<QComboBox*>(VRKDlgQtWidget(W<VRKDlgCombo>(comboKey)));
        box->showPopup();
        QAbstractItemView* view = box->view();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view->window()));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(view->model()->index(line, 0)).center());
        VRKDlgApplication::ProcessEvents();
    }
    void Click(const VRKDlgObject& widget) {
        QTest::mouseClick(VRKDlgQtWidget(widget), Qt::LeftButton);
        VRKDlgApplication::ProcessEvents();
    }
    // A check box takes clicks on its box and text only, which may end before the middle of a
    // wide widget: the click goes to the middle of the box.
    void Click(const VRKDlgCheckButton& check) {
        QWidget* box = VRKDlgQtWidget(check);
        QStyleOptionButton option;
        option.initFrom(box);
        const QRect indicator =
            box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
        QTest::mouseClick(box, Qt::LeftButton, {}, indicator.center());
        VRKDlgApplication::ProcessEvents();
    }
    void ClickOk() {
        QTest::mouseClick(VRKDlgQtOkButton(*dialog), Qt::LeftButton);
        VRKDlgApplication::ProcessEvents();
    }
    void ClickCancel() {
        QTest::mouseClick(VRKDlgQtCancelButton(*dialog), Qt::LeftButton);
        VRKDlgApplication::ProcessEvents();
    }
    void CloseWindow() {
        VRKDlgQtWidget(*dialog)->close();
        VRKDlgApplication::ProcessEvents();
    }
    int CurrentPage() { return W<VRKDlgTabContainer>("TabContainer").GetCurrentPage(); }
    std::vector<std::string> ComboLines(const std::string& comboKey) {
        std::vector<std::string> lines;
        auto& combo = W<VRKDlgCombo>(comboKey);
        for (int i = 0; i < combo.GetLineCount(); ++i) {
            lines.push_back(combo.GetLine(i));
        }
        return lines;
    }

    R record;
    D* dialog = nullptr;
    std::vector<bool> ends;
};
