// vrkplot's settings editor (the library it loads for --edit): the dialog runs until it and the
// dialogs it opened have ended; the user's clicks are real events on the offscreen platform.

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKClassDictionary.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "hpgl/VRKPrintHPGLGenerator.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "tools/vrkplot/SettingsEditor.h"

namespace {

// The button or check box with this text in the dialog shown now, or null.
template <class Button>
Button* shown(const QString& text) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) {
            continue;
        }
        for (Button* button : window->findChildren<Button*>()) {
            if (button->text() == text && button->isVisible()) {
                return button;
            }
        }
    }
    return nullptr;
}

// Clicks, once the event loop runs, on what `steps` find, one after the other.
void ClickLater(std::vector<std::function<QAbstractButton*()>> steps) {
    QTimer::singleShot(0, [steps] {
        for (const auto& step : steps) {
            QAbstractButton* button = step();
            ASSERT_NE(button, nullptr);
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
            QCoreApplication::processEvents();
        }
    });
}

SettingsEditor* MakeEditor() {
    return static_cast<SettingsEditor*>(
        VRKClassDictionary::Instance().Create("VRKPlotSettingsEditor", "vrkplot"));
}

TEST(SettingsEditor, RunsTheDialogUntilOk) {
    VRKDlgApplication::Ensure();
    auto* generator = new VRKPrintHPGL2Generator;
    SettingsEditor* editor = MakeEditor();
    ASSERT_NE(editor, nullptr);
    ClickLater({[] { return shown<QCheckBox>("Enable cutter"); },
                [] { return shown<QPushButton>("OK"); }});
    std::string why;
    EXPECT_EQ(editor->Edit(*generator, why), SettingsEditor::kEdited);
    auto* record = dynamic_cast<VRKPrintHPGL2Properties*>(generator->GetProperties());
    EXPECT_EQ(record->GetCutterState(), 0);
    editor->Release();
    generator->Release();
}

TEST(SettingsEditor, WaitsForTheDialogThatResetOpened) {
    VRKDlgApplication::Ensure();
    auto* generator = new VRKPrintHPGLGenerator;
    auto* settings = dynamic_cast<VRKPrintHPGLProperties*>(generator->GetProperties());
    VRKPenTable fewer = settings->GetPenTable();
    fewer.SetCount(4);
    settings->SetPenTable(fewer);
    SettingsEditor* editor = MakeEditor();
    ASSERT_NE(editor, nullptr);
    // Reset, then Cancel in the dialog it opened: the editing is over only then.
    ClickLater(
        {[] { return shown<QPushButton>("Reset"); }, [] { return shown<QPushButton>("Cancel"); }});
    std::string why;
    EXPECT_EQ(editor->Edit(*generator, why), SettingsEditor::kEdited);
    EXPECT_EQ(settings->GetPenCount(), 32);
    editor->Release();
    generator->Release();
}

}  // namespace
