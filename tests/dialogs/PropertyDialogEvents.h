#pragma once

// Real mouse events on the widgets of a property dialog shown on the offscreen platform.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QTest>
#include <QTreeWidget>
#include <string>

#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "host/dialogs/qt/VRKDlgQtAccess.h"

// The widget of this key and type in the dialog; a test that asks for one it lacks fails.
template <class T>
T& WidgetOf(const VRKDlgDialog& dialog, const std::string& key) {
    T* widget = dialog.FindChild<T>(key);
    EXPECT_NE(widget, nullptr) << key;
    return *widget;
}

// A click at the left end of a button, on its box: a button stretched over its row takes clicks
// only on its box and text.
inline void ClickBox(const VRKDlgObject& widget) {
    QWidget* w = VRKDlgQtWidget(widget);
    QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(8, w->height() / 2));
}

inline void ClickOk(const VRKDlgDialog& dialog) {
    QTest::mouseClick(VRKDlgQtOkButton(dialog), Qt::LeftButton);
}

inline void ClickCancel(const VRKDlgDialog& dialog) {
    QTest::mouseClick(VRKDlgQtCancelButton(dialog), Qt::LeftButton);
}

inline void ClickRow(const VRKDlgMultiList& list, int row) {
    auto* tree = static_cast<QTreeWidget*>(VRKDlgQtWidget(list));
    tree->scrollToItem(tree->topLevelItem(row));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(tree->topLevelItem(row)).center());
}

// Opens the combo's list and clicks a line of it.
inline void ChooseLine(const VRKDlgCombo& combo, int line) {
    auto* box = static_cast<QComboBox*>(VRKDlgQtWidget(combo));
    box->showPopup();
    QAbstractItemView* view = box->view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view->window()));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(line, 0)).center());
}
